// Any 4016 bytes as a private area: a foreign area is left alone, one that cannot be read fails with a failure of the
// family, and after either, and after a good one, there are settings that export to a readable area.
#include "jtcore/AnlXlate/KolmaDevMode.h"
#include "jtcore/Services/KolmaException.h"
#include "stateMutator.h"

#include <algorithm>
#include <array>
#include <cstdlib>
#include <cstring>

namespace {

using Area = std::array<std::uint8_t, KolmaDevMode::getDevModeSize()>;

void check(bool holds) {
    if (!holds) std::abort();
}

// An input of another size is cut, or filled with zeros.
Area areaOf(const std::uint8_t* data, std::size_t size) {
    Area area{};
    std::copy_n(data, std::min(size, area.size()), area.begin());
    return area;
}

void expectUsable(const KolmaDevMode& settings) {
    settings.validateState();
    Area area;
    settings.exportToDevMode(area.data());
    check(KolmaDevMode::isValidArea(area.data()) && KolmaDevMode(area.data()).equals(settings));
    AttrNodeList list;
    settings.getAttrNodeList(list);
}

} // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    static const KolmaDevMode initial;
    const Area area = areaOf(data, size);
    check(KolmaDevMode::getAreaInfo(area.data()).isValid == KolmaDevMode::isValidArea(area.data()));
    KolmaDevMode settings(initial);
    bool isRead = settings.importFromDevMode(area.data(), false);
    try {
        KolmaDevMode constructed(area.data());
        KolmaDevMode::validateDevMode(area.data());
        check(constructed.equals(isRead ? settings : initial));
        check(isRead || !KolmaDevMode::isValidArea(area.data()));
    } catch (const KolmaException&) {
        check(!isRead && settings.equals(initial));
    }
    expectUsable(settings);
    return 0;
}

// Changes the state in the area, and now and then the area itself.
extern "C" std::size_t LLVMFuzzerCustomMutator(std::uint8_t* data, std::size_t size, std::size_t maximum,
                                               unsigned seed) {
    if (maximum < sizeof(KolmaDmType)) return size;
    KolmaDmType area;
    const Area bytes = areaOf(data, size);
    std::memcpy(&area, bytes.data(), sizeof area);
    std::size_t stateSize = std::min<std::size_t>(area.fields.dataSize, sizeof area.data);
    const ByteBuffer whole(&area, sizeof area);
    if (seed % 8 == 0) {
        const ByteBuffer changed = mutateState(whole, sizeof area, 0);
        std::memset(static_cast<void*>(&area), 0, sizeof area);
        std::memcpy(static_cast<void*>(&area), changed.getData(), changed.getSize());
    } else {
        const ByteBuffer state = mutateState(ByteBuffer(area.data, stateSize), sizeof area.data, seed / 8);
        std::copy_n(state.getData(), state.getSize(), area.data);
        area.fields.dataSize = static_cast<std::uint32_t>(state.getSize());
    }
    std::memcpy(data, &area, sizeof area);
    return sizeof area;
}
