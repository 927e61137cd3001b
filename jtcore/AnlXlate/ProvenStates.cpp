#include "jtcore/AnlXlate/ProvenStates.h"

#include "jtcore/Services/OwnedCriticalResource.h"

#include <algorithm>
#include <array>

namespace {

constinit OwnedCriticalResource lock("ProvenStates");

using Slots = std::array<std::shared_ptr<const ProvenState>, ProvenStates::maximumCount>;

// Guarded by the lock. The one asked for last comes first; free slots are empty.
constinit Slots slots;

Slots::iterator findSlot(const ByteBuffer& state) noexcept {
    return std::find_if(slots.begin(), slots.end(), [&](const auto& kept) { return kept && kept->state == state; });
}

} // namespace

std::shared_ptr<const ProvenState> ProvenStates::find(const ByteBuffer& state) noexcept {
    const OwnedCriticalResource::Guard guard(lock);
    const auto found = findSlot(state);
    if (found == slots.end()) return nullptr;
    std::rotate(slots.begin(), found, found + 1);
    return slots.front();
}

void ProvenStates::add(const ByteBuffer& state, const StateParts& parts,
                       const std::shared_ptr<const AttrNodeList>& list) noexcept {
    if (parts.text.getSize() > maximumTextSize) return;
    std::shared_ptr<const ProvenState> added;
    try {
        added = std::make_shared<const ProvenState>(ProvenState{state, parts, list});
    } catch (...) {
        return; // it will be read again
    }
    const OwnedCriticalResource::Guard guard(lock);
    const auto known = findSlot(state);
    const auto slot = known == slots.end() ? slots.end() - 1 : known;
    if (known == slots.end() || added->list) slot->swap(added);
    std::rotate(slots.begin(), slot, slot + 1);
}
