// States of every release for tests, put together from their parts.
#pragma once

#include "jtcore/AnlXlate/JtifTranslator.h"
#include "jtcore/AnlXlate/KolmaDevMode.h"
#include "jtcore/AnlXlate/SmallJtifTranslator.h"
#include "jtcore/Compress/CompressedBuffer.h"
#include "tests/listBuilder.h"

#include <array>
#include <initializer_list>
#include <vector>

using Area = std::vector<std::uint8_t>;

inline ByteBuffer joined(std::initializer_list<ByteBuffer> parts) {
    ByteBuffer all;
    for (const ByteBuffer& part : parts)
        all.appendData(part.getData(), part.getSize());
    return all;
}

inline ByteBuffer bytesOf(std::initializer_list<std::uint8_t> bytes) { return {bytes.begin(), bytes.size()}; }

inline ByteBuffer little(std::uint32_t value) { return ByteBuffer(static_cast<std::int32_t>(value)); }

inline ByteBuffer firstOf(const ByteBuffer& bytes, std::size_t size) { return {bytes.getData(), size}; }

inline ByteBuffer compressed(const ByteBuffer& original) {
    CompressedBuffer block;
    block.store(original);
    return block.getStoredData();
}

// What the block of a state holds: 522 bytes of record, and the settings text.
inline ByteBuffer decompressed(const ByteBuffer& state, std::size_t frontSize = 8) {
    ByteBuffer original;
    CompressedBuffer(ByteBuffer(state.getData() + frontSize, state.getSize() - frontSize)).getOriginalData(original);
    return original;
}

inline ByteBuffer recordOf(const PersistentSettings& settings) {
    return firstOf(decompressed(settings.getState()), 522);
}

inline ByteBuffer textOf(const AttrNodeList& nodes, const AnlTranslator& translator) {
    ByteBuffer text;
    translator.anlToBuffer(nodes, text);
    return text;
}

inline ByteBuffer state37(std::uint8_t settingsEditable, const AttrNodeList& nodes) {
    return joined({little(10), little(0x03070001), bytesOf({settingsEditable, 0xEE}),
                   compressed(textOf(nodes, JtifTranslator()))});
}

inline ByteBuffer state40(const ByteBuffer& record, const AttrNodeList& nodes) {
    return joined({little(8), little(0x04000001), compressed(joined({record, textOf(nodes, JtifTranslator())}))});
}

inline ByteBuffer currentState(const ByteBuffer& record, const ByteBuffer& text) {
    return joined({little(8), little(0x03080001), compressed(joined({record, text}))});
}

inline Area areaOf(const ByteBuffer& state, std::uint32_t version = 0x04000001) {
    ByteBuffer bytes = joined({little(4016), little(0x4B4C4D41), little(version),
                               little(static_cast<std::uint32_t>(state.getSize())), state});
    bytes.resize(4016);
    return {bytes.getData(), bytes.getData() + bytes.getSize()};
}

inline Area exported(const KolmaDevMode& settings) {
    Area area(KolmaDevMode::getDevModeSize(), 0xEE);
    settings.exportToDevMode(area.data());
    return area;
}

inline AttrNodeList listOf(const PersistentSettings& settings) {
    AttrNodeList nodes;
    settings.getAttrNodeList(nodes);
    return nodes;
}
