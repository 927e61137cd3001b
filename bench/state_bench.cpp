// A state to a list and back, and where the time goes, beside what general parsers take for the same bytes.
#include "bench/ippPeer.h"
#include "bench/ratios.h"
#include "bench/tickets.h"
#include "bench/xmlPeers.h"
#include "jtcore/AnlXlate/SmallJtifTranslator.h"

namespace {

void stateToList(benchmark::State& state) {
    const std::vector<KolmaDevMode> settings = manySettings();
    std::size_t turn = 0;
    for (auto _ : state) {
        AttrNodeList list;
        settings[++turn % settings.size()].getAttrNodeList(list);
        benchmark::DoNotOptimize(list.getNumNodes());
    }
}
BENCHMARK(stateToList);

void listToState(benchmark::State& state) {
    PersistentSettings settings;
    AttrNodeList list = typicalTicket();
    for (auto _ : state) {
        settings.setAttrNodeList(list);
        benchmark::DoNotOptimize(settings.getStateSize());
    }
}
BENCHMARK(listToState);

void compactRead(benchmark::State& state) {
    ByteBuffer text = compactText(typicalTicket());
    for (auto _ : state) {
        AttrNodeList list;
        SmallJtifTranslator().bufferToAnl(text, list);
        benchmark::DoNotOptimize(list.getNumNodes());
    }
}
BENCHMARK(compactRead);

void compactWrite(benchmark::State& state) {
    AttrNodeList list = typicalTicket();
    for (auto _ : state) {
        ByteBuffer bytes;
        SmallJtifTranslator().anlToBuffer(list, bytes);
        benchmark::DoNotOptimize(bytes.getSize());
    }
}
BENCHMARK(compactWrite);

std::size_t plainDom(const ByteBuffer& text) { return parseWithDom(text, false, DomUse::keptParser); }
std::size_t plainSax2(const ByteBuffer& text) { return parseWithSax2(text, false); }

// Inflates the compact text and parses it, as a state is read, without making anything of it.
template <auto parse>
void inflateAndParse(benchmark::State& state) {
    ByteBuffer text = compactText(typicalTicket());
    ByteBuffer block = compressedText(typicalTicket());
    for (auto _ : state)
        benchmark::DoNotOptimize(parse(inflateBare(block, text.getSize())));
}
BENCHMARK(inflateAndParse<plainDom>)->Name("inflateAndDom");
BENCHMARK(inflateAndParse<plainSax2>)->Name("inflateAndSax2");
BENCHMARK(inflateAndParse<parseWithPugixml>)->Name("inflateAndPugixml");

void inflateAlone(benchmark::State& state) {
    std::size_t size = compactText(typicalTicket()).getSize();
    ByteBuffer block = compressedText(typicalTicket());
    for (auto _ : state)
        benchmark::DoNotOptimize(inflateBare(block, size));
}
BENCHMARK(inflateAlone);

void deflateAlone(benchmark::State& state) {
    ByteBuffer text = compactText(typicalTicket());
    for (auto _ : state)
        benchmark::DoNotOptimize(deflateBare(text));
}
BENCHMARK(deflateAlone);

void listCopy(benchmark::State& state) {
    AttrNodeList list = typicalTicket();
    for (auto _ : state) {
        AttrNodeList copy(list);
        benchmark::DoNotOptimize(copy.getNumNodes());
    }
}
BENCHMARK(listCopy);

void ippReadPeer(benchmark::State& state) {
    ByteBuffer message = writeIpp(typicalTicket());
    for (auto _ : state)
        benchmark::DoNotOptimize(readIpp(message));
}
BENCHMARK(ippReadPeer);

const int reported[] = {
    reportRatio({"state to list / inflate + bare DOM", "stateToList", "inflateAndDom", 1.3}),
    reportRatio({"state to list / inflate + SAX2", "stateToList", "inflateAndSax2"}),
    reportRatio({"state to list / inflate + pugixml", "stateToList", "inflateAndPugixml"}),
    reportRatio({"state to list / libcups ippRead of the same job", "stateToList", "ippReadPeer"}),
    reportRatio({"  share of zlib: inflate / state to list", "inflateAlone", "stateToList"}),
    reportRatio({"  share of XML and ours: compact text to list / state to list", "compactRead", "stateToList"}),
    reportRatio({"  share of the list itself: a deep copy / state to list", "listCopy", "stateToList"}),
    reportRatio({"list to state / state to list", "listToState", "stateToList"}),
    reportRatio({"  share of zlib: deflate / list to state", "deflateAlone", "listToState"}),
    reportRatio({"  share of XML and ours: list to compact text / list to state", "compactWrite", "listToState"}),
};

} // namespace
