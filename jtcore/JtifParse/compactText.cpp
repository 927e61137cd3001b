#include "jtcore/JtifParse/compactText.h"

#include "jtcore/Attributes/AttrValueFactory.h"
#include "jtcore/Attributes/IppList.h"
#include "jtcore/Attributes/PrimitiveString.h"
#include "jtcore/JtifParse/KolmaXmlParser.h"
#include "jtcore/JtifParse/compactSyntax.h"
#include "jtcore/JtifParse/xmlText.h"
#include "jtcore/Services/text.h"

#include <algorithm>
#include <optional>
#include <string_view>

namespace {

constexpr std::string_view head = "<?xml version=\"1.0\" encoding=\"UTF-8\"?>\r\n<sjtif xml:lang=\"en-US\"> ";
constexpr std::string_view tail = "</sjtif>";
constexpr std::string_view preserve = " xml:space=\"preserve\"";

bool isNameStart(char c) { return (c >= 'a' && c <= 'z') || (c >= 'A' && c <= 'Z') || c == '_'; }
bool isNameByte(char c) { return isNameStart(c) || (c >= '0' && c <= '9') || c == '-' || c == '.'; }
bool isAsciiName(std::u16string_view name) {
    for (char16_t unit : name)
        if (unit > 0x7F || !isNameByte(static_cast<char>(unit))) return false;
    return !name.empty() && isNameStart(static_cast<char>(name.front()));
}

std::u16string widened(std::string_view ascii) { return {ascii.begin(), ascii.end()}; }

// Reads in one pass. Every operation answers false, and the whole text is then left to the library, as soon as it
// stands differently from how our writer puts it.
class CompactReader {
public:
    explicit CompactReader(std::string_view text) : text_(text) {}

    bool read(AttrNodeList& list) {
        return skip(head) && readElements(list, 2) && text_.compare(at_, text_.npos, tail) == 0;
    }

private:
    struct StartTag {
        std::string_view name;
        std::string_view syntax;
        bool preservesSpace = false;
        bool isEmpty = false;
    };

    bool skip(std::string_view expected) {
        if (text_.compare(at_, expected.size(), expected) != 0) return false;
        at_ += expected.size();
        return true;
    }

    bool standsAt(std::string_view expected) const { return text_.compare(at_, expected.size(), expected) == 0; }

    // Elements up to the end tag of what holds them.
    bool readElements(AttrNodeList& list, int depth) {
        while (!standsAt("</"))
            if (depth > xmlMaximumDepth || !readElement(list, depth)) return false;
        return true;
    }

    bool readElement(AttrNodeList& list, int depth) {
        StartTag tag;
        if (!readStartTag(tag)) return false;
        if (tag.isEmpty) return true;
        if (standsAt("</")) return readEndTag(tag.name); // no content: no attribute
        std::unique_ptr<AttrValue> value = standsAt("<") ? readList(tag, depth) : readText(tag);
        if (!value || !readEndTag(tag.name)) return false;
        list.addNode(AttrNode(AttrID(widened(tag.name)), std::move(value)));
        return true;
    }

    bool readStartTag(StartTag& tag) {
        if (!skip("<") || !readName(tag.name) || !skip(" s=\"")) return false;
        std::size_t start = at_;
        while (at_ < text_.size() && isNameByte(text_[at_]))
            ++at_;
        tag.syntax = text_.substr(start, at_ - start);
        if (tag.syntax.empty() || !skip("\"")) return false;
        tag.preservesSpace = skip(preserve);
        tag.isEmpty = skip("/>");
        return tag.isEmpty || skip(">");
    }

    bool readEndTag(std::string_view name) { return skip("</") && skip(name) && skip(">"); }

    bool readName(std::string_view& name) {
        std::size_t start = at_;
        if (at_ == text_.size() || !isNameStart(text_[at_])) return false;
        while (at_ < text_.size() && isNameByte(text_[at_]))
            ++at_;
        name = text_.substr(start, at_ - start);
        return true;
    }

    std::unique_ptr<AttrValue> readList(const StartTag& tag, int depth) {
        auto value = std::make_unique<IppList>(syntaxOf(tag));
        return readElements(value->getList(), depth + 1) ? std::move(value) : nullptr;
    }

    std::unique_ptr<AttrValue> readText(const StartTag& tag) {
        std::optional<std::u16string> text = readCharacters();
        if (!text || text->empty()) return nullptr;
        if (!tag.preservesSpace && trimSpace(*text).size() != text->size()) return nullptr;
        std::u16string syntax = syntaxOf(tag);
        // A list syntax has no text; the failure is the library's to raise.
        if (AttrValueFactory::getSyntaxType(syntax) == AVTE::list) return nullptr;
        return AttrValueFactory::createAttrValue(syntax, *text);
    }

    static std::u16string syntaxOf(const StartTag& tag) {
        return std::u16string(fromCompactSyntax(widened(tag.syntax)));
    }

    // The text up to the next tag.
    std::optional<std::u16string> readCharacters() {
        std::u16string out;
        while (at_ < text_.size() && text_[at_] != '<') {
            std::size_t start = at_;
            while (at_ < text_.size() && isPlain(text_[at_]))
                out += static_cast<char16_t>(text_[at_++]);
            if (at_ != start) continue;
            if (text_[at_] == '&' ? !readEntity(out) : !readBeyondAscii(out)) return std::nullopt;
        }
        return out;
    }

    // A character that stands for itself. A carriage return never does, and '>' is never written.
    static bool isPlain(char c) {
        return (c >= ' ' && c < 0x7F && c != '<' && c != '&' && c != '>') || c == '\t' || c == '\n';
    }

    bool readEntity(std::u16string& out) {
        if (skip("&amp;"))
            out += u'&';
        else if (skip("&lt;"))
            out += u'<';
        else if (skip("&gt;"))
            out += u'>';
        else if (skip("&#xD;"))
            out += u'\r';
        else
            return false;
        return true;
    }

    bool readBeyondAscii(std::u16string& out) {
        std::size_t start = at_;
        while (at_ < text_.size() && static_cast<unsigned char>(text_[at_]) >= 0x80)
            ++at_;
        if (at_ == start) return false;
        std::u16string run = fromUtf8(text_.substr(start, at_ - start));
        // What came out as a replacement, or as nothing that XML can carry, was not written by us.
        if (run.find(u'\xFFFD') != run.npos || findUnwritableCharacter(run) != std::u16string_view::npos) return false;
        out += run;
        return true;
    }

    std::string_view text_;
    std::size_t at_ = 0;
};

class CompactWriter {
public:
    explicit CompactWriter(const CompactSpelling& spelling) : spelling_(spelling) {}

    bool write(const AttrNodeList& list) {
        out_ += head;
        if (!writeNodes(list, 2)) return false;
        out_ += tail;
        return true;
    }

    const std::string& text() const { return out_; }

private:
    bool writeNodes(const AttrNodeList& list, int depth) {
        for (const AttrNode& node : list)
            if (node.isPrivate())
                pass(node);
            else if (depth > xmlMaximumDepth || !writeNode(node, depth))
                return false;
        return true;
    }

    bool writeNode(const AttrNode& node, int depth) {
        const CompactSpelling::Id id = spelling_.spellId(node.getAttrID());
        const AttrValue& value = node.getAttrValue();
        std::u16string_view syntax = toCompactSyntax(value.getSyntaxName());
        if (!isAsciiName(id.text) || !isAsciiName(syntax)) return false;
        out_ += '<';
        writeAscii(id.text);
        out_ += " s=\"";
        writeAscii(syntax);
        out_ += '"';
        if (value.isPreservedText()) out_ += preserve;
        const IppList* inner = value.asList();
        return inner ? writeList(id, inner->getList(), depth) : writeValue(id, value);
    }

    bool writeList(const CompactSpelling::Id& id, const AttrNodeList& list, int depth) {
        const bool isEmpty = isWrittenEmpty(list);
        if (!isEmpty) out_ += '>';
        if (!writeNodes(list, depth + 1)) return false;
        meet(id);
        if (isEmpty)
            out_ += "/>";
        else
            writeEndTag(id);
        return true;
    }

    bool writeValue(const CompactSpelling::Id& id, const AttrValue& value) {
        out_ += '>';
        meet(id);
        const PrimitiveString* text = value.asPrimitiveString();
        if (!(text ? writeText(spelling_.spellText(text->getValue(), context_, scratch_))
                   : writeText(value.getIppValue())))
            return false;
        writeEndTag(id);
        return true;
    }

    void writeEndTag(const CompactSpelling::Id& id) {
        out_ += "</";
        writeAscii(id.text);
        out_ += '>';
    }

    void meet(const CompactSpelling::Id& id) { context_ = id.context.value_or(context_); }

    // What is not written is met all the same.
    void pass(const AttrNode& node) {
        if (const IppList* inner = node.getAttrValue().asList())
            for (const AttrNode& below : inner->getList())
                pass(below);
        meet(spelling_.spellId(node.getAttrID()));
    }

    static bool isWrittenEmpty(const AttrNodeList& list) {
        return std::all_of(list.begin(), list.end(), [](const AttrNode& node) { return node.isPrivate(); });
    }

    void writeAscii(std::u16string_view text) {
        const std::size_t start = out_.size();
        out_.resize(start + text.size());
        std::ranges::transform(text, out_.begin() + static_cast<std::ptrdiff_t>(start),
                               [](char16_t unit) { return static_cast<char>(unit); });
    }

    bool writeText(std::u16string_view text) {
        std::size_t plain = 0;
        while (plain < text.size() && isPlain(text[plain]))
            ++plain;
        writeAscii(text.substr(0, plain));
        text.remove_prefix(plain);
        if (findUnwritableCharacter(text) != text.npos) return false;
        while (!text.empty()) {
            std::size_t length = text.find_first_of(u"&<>\r");
            out_ += toUtf8(text.substr(0, length));
            if (length == text.npos) return true;
            out_ += escapeOf(text[length]);
            text.remove_prefix(length + 1);
        }
        return true;
    }

    // Stands for itself in one byte.
    static bool isPlain(char16_t unit) {
        return unit >= u' ' && unit < 0x7F && unit != u'&' && unit != u'<' && unit != u'>';
    }

    static std::string_view escapeOf(char16_t unit) {
        switch (unit) {
        case u'&':
            return "&amp;";
        case u'<':
            return "&lt;";
        case u'>':
            return "&gt;";
        default:
            return "&#xD;";
        }
    }

    const CompactSpelling& spelling_;
    int context_ = CompactSpelling::noContext;
    std::string out_;
    std::u16string scratch_;
};

} // namespace

bool readCompactText(const ByteBuffer& text, AttrNodeList& list) {
    std::string_view bytes(reinterpret_cast<const char*>(text.getData()), text.getSize());
    AttrNodeList read;
    if (!CompactReader(bytes).read(read)) return false;
    if (list.isEmpty()) {
        list = std::move(read);
        return true;
    }
    for (AttrNode& node : read)
        list.addNode(std::move(node));
    return true;
}

bool writeCompactText(const AttrNodeList& list, ByteBuffer& text, const CompactSpelling& spelling) {
    CompactWriter writer(spelling);
    if (!writer.write(list)) return false;
    text.appendData(writer.text().data(), writer.text().size());
    return true;
}
