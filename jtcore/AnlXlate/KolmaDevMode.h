// The persistent settings that travel in the private area which the host keeps for every user and document.
//
// An area is getDevModeSize() bytes at any address (KolmaDmType). Whoever passes one vouches for that many readable, or
// for exportToDevMode() writable, bytes; nothing else of it is trusted. A null area is an invalid one.
#pragma once

#include "jtcore/AnlXlate/PersistentSettings.h"

// What an area says of itself, before anything is converted.
struct AreaInfo {
    bool isValid = false;
    std::uint32_t areaVersion = 0;
    std::uint32_t stateVersion = 0; // 0 when the state is too short to say
    std::uint32_t stateSize = 0;    // as claimed
};

class KolmaDevMode : public PersistentSettings {
public:
    // The initial state.
    KolmaDevMode() = default;
    // The state of the area, or the initial state when the area is not valid. Raises when a valid area holds a state
    // that cannot be read.
    explicit KolmaDevMode(const void* area);

    std::unique_ptr<AnlDealer> clone() const override;
    bool equals(const AnlDealer& other) const override;
    // Raises DevModeOverflowException for a state of more than 4000 bytes.
    void validateDataToBeStored(const ByteBuffer& state) const override;
    void validateState() const override;

    // False, and nothing changed, when the area is not valid; otherwise as importPersistentSettingsState().
    bool importFromDevMode(const void* area, bool rethrow);
    // Writes the whole area, zeros behind the state. REQUIRES: area is not null.
    void exportToDevMode(void* area) const;

    static constexpr std::size_t getDevModeSize() noexcept { return sizeof(KolmaDmType); }
    // Looks at the three fields of the host's header only.
    static bool isValidArea(const void* area) noexcept;
    static AreaInfo getAreaInfo(const void* area) noexcept;
    // Raises when a valid area holds a state that fails validateStateBytes(). An area that is not valid passes.
    static void validateDevMode(const void* area);
};
