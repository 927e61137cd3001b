// Any bytes as a dialog template of a module: it is refused, or read without looking outside of it.
#include "platform/qt/dialogTemplate.h"

#include <cstdint>
#include <cstdlib>
#include <vector>

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    // A copy of just that size, so that the sanitizer sees where it ends.
    std::vector<BYTE> bytes(data, data + size);
    auto dialog = parseDialogTemplate(std::span<const BYTE>(bytes));
    // The smallest item has a place, an id, three empty texts or ordinals: what is read came from somewhere.
    constexpr std::size_t smallestItem = 24;
    if (dialog && dialog->items.size() * smallestItem > size) std::abort();
    return 0;
}
