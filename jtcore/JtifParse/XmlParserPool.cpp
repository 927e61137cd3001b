#include "jtcore/JtifParse/XmlParserPool.h"

#include "jtcore/Services/File.h"
#include "jtcore/Services/JtifParseException.h"

#include <xercesc/framework/MemBufInputSource.hpp>
#include <xercesc/framework/XMLGrammarPoolImpl.hpp>
#include <xercesc/util/OutOfMemoryException.hpp>
#include <xercesc/util/PlatformUtils.hpp>
#include <xercesc/util/XMLException.hpp>
#include <xercesc/validators/DTD/DTDGrammar.hpp>

#include <algorithm>

using namespace XERCES_CPP_NAMESPACE;

namespace {

// A system has one DTD; more than this are kept by nobody but tests.
constexpr std::size_t maximumKept = 4;
// What a parser may still hold when its document is gone.
constexpr std::size_t maximumIdleMemory = 1024U * 1024;
// Twice what the DTD of tickets takes.
constexpr std::size_t grammarReserve = 2048U * 1024;

[[noreturn]] void raiseFaultyDtd(const std::u16string& path, std::u16string_view reason) {
    raiseJtifParse(JtifParseCode::ERROR_REPORTED_DURING_PARSE, u"KeptGrammar::load(): The DTD %s is faulty: %s\r\n",
                   path, reason);
}

// The library builds them when a document first needs them, and crashes where memory ends in the middle of that. So
// they are built here, out of the reserve.
void buildContentModels(DTDGrammar& grammar) {
    NameIdPoolEnumerator<DTDElementDecl> elements = grammar.getElemEnumerator();
    while (elements.hasMoreElements()) {
        DTDElementDecl& element = elements.nextElement();
        if (element.getModelType() == DTDElementDecl::Children ||
            element.getModelType() == DTDElementDecl::Mixed_Simple)
            element.getContentModel();
    }
}

} // namespace

KeptGrammar::KeptGrammar(std::u16string dtdPath)
    : path_(std::move(dtdPath)),
      memory_(xmlMaximumMemory, grammarReserve),
      pool_(*new (&memory_) XMLGrammarPoolImpl(&memory_)) {
    load(File(path_).read());
    pool_.lockPool();
}

void KeptGrammar::load(const ByteBuffer& dtd) {
    KeptParser loader(&pool_);
    DOMTreeErrorReporter reporter;
    loader.parser.expect({}, {}, reporter);
    MemBufInputSource source(dtd.getData(), dtd.getSize(), GuardedDomParser::grammarId(), false, &loader.memory);
    Grammar* grammar = nullptr;
    try {
        grammar = loader.parser.loadGrammar(source, Grammar::DTDGrammarType, true);
    } catch (const ParseStopped&) { // the reporter has the reason
    } catch (const XMLException& fault) {
        raiseFaultyDtd(path_, fault.getMessage());
    }
    if (grammar == nullptr || reporter.hasSeenError() || reporter.hasSeenFatalError())
        raiseFaultyDtd(path_, reporter.getMessage());
    buildContentModels(static_cast<DTDGrammar&>(*grammar));
}

KeptParser::KeptParser(XMLGrammarPool* grammars)
    : memory(xmlMaximumMemory), parser(*new (&memory) GuardedDomParser(memory, grammars)) {
    parser.setUp();
}

std::unique_ptr<KeptParser> XmlParserPool::take(const std::u16string& dtdPath) {
    auto fits = [&](const std::unique_ptr<KeptParser>& kept) {
        return kept->grammar != nullptr ? kept->grammar->getPath() == dtdPath : dtdPath.empty();
    };
    auto found = std::ranges::find_if(idle_, fits);
    if (found == idle_.end()) return make(dtdPath);
    std::unique_ptr<KeptParser> parser = std::move(*found);
    idle_.erase(found);
    return parser;
}

std::unique_ptr<KeptParser> XmlParserPool::make(const std::u16string& dtdPath) {
    if (dtdPath.empty()) return std::make_unique<KeptParser>(nullptr);
    std::shared_ptr<KeptGrammar> grammar = grammarOf(dtdPath);
    auto parser = std::make_unique<KeptParser>(&grammar->getPool());
    parser->grammar = std::move(grammar);
    return parser;
}

void XmlParserPool::giveBack(std::unique_ptr<KeptParser> parser) noexcept {
    try {
        parser->parser.resetDocumentPool();
        parser->memory.setLimit(xmlMaximumMemory);
        if (idle_.size() >= maximumKept || parser->memory.inUse() > maximumIdleMemory) return;
        idle_.push_back(std::move(parser));
    } catch (...) { // a parser that cannot be kept is dropped
    }
}

void XmlParserPool::forget(const std::shared_ptr<KeptGrammar>& grammar) noexcept {
    std::erase_if(idle_, [&](const auto& kept) { return kept->grammar == grammar; });
    std::erase(grammars_, grammar);
}

std::shared_ptr<KeptGrammar> XmlParserPool::grammarOf(const std::u16string& dtdPath) {
    auto found = std::ranges::find(grammars_, dtdPath, [](const auto& kept) { return kept->getPath(); });
    if (found != grammars_.end()) return *found;
    auto grammar = std::make_shared<KeptGrammar>(dtdPath);
    if (grammars_.size() >= maximumKept) forget(std::shared_ptr<KeptGrammar>(grammars_.front()));
    grammars_.push_back(grammar);
    return grammar;
}
