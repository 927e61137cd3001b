// Reading and writing tickets, held against what the library alone takes for the same bytes.
#include "bench/ratios.h"
#include "bench/tickets.h"
#include "bench/xmlPeers.h"
#include "jtcore/AnlXlate/JtifTranslator.h"

namespace {

void readText(benchmark::State& state, const ByteBuffer& text) {
    JtifTranslator translator;
    for (auto _ : state) {
        AttrNodeList list;
        translator.bufferToAnl(text, list);
        benchmark::DoNotOptimize(list.getNumNodes());
    }
    state.SetBytesProcessed(static_cast<std::int64_t>(text.getSize()) * state.iterations());
}

void ticketRead(benchmark::State& state) { readText(state, ticketText(typicalTicket())); }
void ticketReadLarge(benchmark::State& state) { readText(state, ticketText(largeTicket())); }
BENCHMARK(ticketRead);
BENCHMARK(ticketReadLarge);

template <auto parse>
void ticketPeer(benchmark::State& state) {
    ByteBuffer text = ticketText(typicalTicket());
    for (auto _ : state)
        benchmark::DoNotOptimize(parse(text));
}
template <auto parse>
void ticketPeerLarge(benchmark::State& state) {
    ByteBuffer text = ticketText(largeTicket());
    for (auto _ : state)
        benchmark::DoNotOptimize(parse(text));
}

std::size_t validatedDom(const ByteBuffer& text) { return parseWithDom(text, true, DomUse::keptParser); }
std::size_t validatedSax2(const ByteBuffer& text) { return parseWithSax2(text, true); }

BENCHMARK(ticketPeer<validatedDom>)->Name("ticketDomPeer");
BENCHMARK(ticketPeerLarge<validatedDom>)->Name("ticketDomPeerLarge");
BENCHMARK(ticketPeer<validatedSax2>)->Name("ticketSax2Peer");
BENCHMARK(ticketPeer<parseWithPugixml>)->Name("ticketPugixmlPeer");

void ticketWrite(benchmark::State& state) {
    AttrNodeList list = typicalTicket();
    JtifTranslator translator;
    for (auto _ : state) {
        ByteBuffer bytes;
        translator.anlToBuffer(list, bytes);
        benchmark::DoNotOptimize(bytes.getSize());
    }
}
BENCHMARK(ticketWrite);

const int reported[] = {
    reportRatio({"read a ticket with validation / bare validating DOM", "ticketRead", "ticketDomPeer", 1.25}),
    reportRatio({"the same, 250 exceptions", "ticketReadLarge", "ticketDomPeerLarge", 1.25}),
    reportRatio({"read a ticket with validation / bare validating SAX2", "ticketRead", "ticketSax2Peer"}),
    reportRatio({"read a ticket with validation / pugixml, not validating", "ticketRead", "ticketPugixmlPeer"}),
    reportRatio({"write a ticket / read it", "ticketWrite", "ticketRead"}),
};

} // namespace
