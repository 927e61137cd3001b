// The stored structures of the settings, byte for byte. All of them are made of bytes: they have no padding and may lie
// at any address.
#pragma once

#include "jtcore/AnlXlate/LittleLong.h"

#include <cstddef>
#include <cstdint>
#include <type_traits>

// The front of a state. A CompressedBuffer in its stored form follows.
struct PersistentHeader {
    static constexpr std::uint32_t currentVersion = 0x03080001;

    LittleLong headerSize = 8;
    LittleLong version = currentVersion;
};
static_assert(sizeof(PersistentHeader) == 8 && offsetof(PersistentHeader, version) == 4);

// The front of what the compressed block holds. The settings text follows, and may be empty.
struct PersistentData {
    static constexpr std::size_t userNameLength = 255;

    LittleLong dataSize = 522;
    std::uint8_t settingsEditable = 1; // 0: the settings are locked in the document sheet
    std::uint8_t filler = 0;
    std::uint8_t userName[512] = {}; // UTF-16, zero-filled
    std::uint8_t jobNamePreference = 0;
    std::uint8_t useLogonName = 0;
    std::uint8_t useLogonNameRecipient = 0;
    std::uint8_t lastFiller = 0;
};
static_assert(sizeof(PersistentData) == 522 && offsetof(PersistentData, settingsEditable) == 4 &&
              offsetof(PersistentData, userName) == 6 && offsetof(PersistentData, jobNamePreference) == 518 &&
              offsetof(PersistentData, useLogonName) == 519 && offsetof(PersistentData, useLogonNameRecipient) == 520);
static_assert(sizeof(PersistentData::userName) == (PersistentData::userNameLength + 1) * 2);

// Older states. The numbers do not grow with age.
//
// 3.7: this front, then a CompressedBuffer of the settings text in its long form; nothing when the text is empty.
struct PersistentHeader37 {
    static constexpr std::uint32_t oldVersion = 0x03070001;

    LittleLong headerSize = 10;
    LittleLong version = oldVersion;
    std::uint8_t settingsEditable = 1;
    std::uint8_t filler = 0;
};
static_assert(sizeof(PersistentHeader37) == 10 && offsetof(PersistentHeader37, settingsEditable) == 8);

// 4.0: as the current state with this version, the settings text being in its long form.
inline constexpr std::uint32_t persistentVersion40 = 0x04000001;

// The private area behind the host's public settings: the fixed fields, of which the first three are the host's header
// of such areas, and the state.
struct KolmaDmFields {
    static constexpr std::uint32_t signature = 0x4B4C4D41;
    static constexpr std::uint32_t currentVersion = 0x04000001;
    static constexpr std::uint32_t olderVersion = 0x03070002; // accepted, never written

    LittleLong dwSize = 4016;
    LittleLong dwSignature = signature;
    LittleLong dwVersion = currentVersion; // of the area; the state has a version of its own
    LittleLong dataSize = 0;               // a claim: how many bytes of data are the state
};
struct KolmaDmType {
    KolmaDmFields fields;
    std::uint8_t data[4000] = {};
};
static_assert(sizeof(KolmaDmType) == 4016 && alignof(KolmaDmType) == 1 && offsetof(KolmaDmType, data) == 16);
static_assert(offsetof(KolmaDmFields, dwSize) == 0 && offsetof(KolmaDmFields, dwSignature) == 4 &&
              offsetof(KolmaDmFields, dwVersion) == 8 && offsetof(KolmaDmFields, dataSize) == 12);
static_assert(std::is_trivially_copyable_v<PersistentHeader> && std::is_trivially_copyable_v<PersistentData> &&
              std::is_trivially_copyable_v<PersistentHeader37> && std::is_trivially_copyable_v<KolmaDmType>);
