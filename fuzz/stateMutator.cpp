#include "stateMutator.h"

#include "jtcore/Compress/CompressedBuffer.h"
#include "jtcore/Services/KolmaException.h"

#include <algorithm>
#include <cstdint>

extern "C" std::size_t LLVMFuzzerMutate(std::uint8_t* data, std::size_t size, std::size_t maximum);

namespace {

constexpr std::size_t largestOriginal = 16384;

ByteBuffer mutateBytes(ByteBuffer bytes, std::size_t maximum) {
    std::size_t size = std::min(bytes.getSize(), maximum);
    bytes.resize(maximum);
    bytes.resize(LLVMFuzzerMutate(bytes.getData(), size, maximum));
    return bytes;
}

// Older states have a front of ten bytes, as their first number says.
std::size_t frontSize(const ByteBuffer& state) { return state.getData()[0] == 10 ? 10 : 8; }

ByteBuffer mutateInside(const ByteBuffer& state) {
    std::size_t front = frontSize(state);
    ByteBuffer original;
    CompressedBuffer(ByteBuffer(state.getData() + front, state.getSize() - front), largestOriginal)
        .getOriginalData(original);
    CompressedBuffer block;
    block.store(mutateBytes(original, largestOriginal));
    ByteBuffer changed(state.getData(), front);
    changed.appendData(block.getData(), block.getSize());
    return changed;
}

} // namespace

ByteBuffer mutateState(const ByteBuffer& state, std::size_t maximum, unsigned seed) {
    if (seed % 4 == 0 || state.getSize() < 10) return mutateBytes(state, maximum);
    try {
        ByteBuffer changed = mutateInside(state);
        if (changed.getSize() <= maximum) return changed;
    } catch (const KolmaException&) {
        // It was unreadable already.
    }
    return mutateBytes(state, maximum);
}
