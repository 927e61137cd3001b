#include "jtcore/AnlXlate/KolmaDevMode.h"

#include "jtcore/Services/KolmaException.h"

#include <cstring>

namespace {

constexpr std::size_t dataOffset = offsetof(KolmaDmType, data);
constexpr std::size_t dataLimit = sizeof(KolmaDmType::data);

KolmaDmFields readFields(const void* area) noexcept {
    KolmaDmFields fields;
    std::memcpy(&fields, area, sizeof fields);
    return fields;
}

ByteBuffer readState(const void* area) {
    std::uint32_t size = readFields(area).dataSize;
    if (size > dataLimit)
        raise<MissingOrBadPersistentSettingsFormatException>(
            u"KolmaDevMode::importFromDevMode(): The size of the data (%lu) is more than the KolmaDmType DevMode "
            u"structure holds (%lu)!\r\n",
            size, dataLimit);
    return {static_cast<const std::uint8_t*>(area) + dataOffset, size};
}

} // namespace

KolmaDevMode::KolmaDevMode(const void* area) : PersistentSettings(NoState::tag) {
    // Most areas are valid, and an initial state made first would only be thrown away: it asks the system for the user.
    if (!importFromDevMode(area, true)) setState(makeInitialState());
}

std::unique_ptr<AnlDealer> KolmaDevMode::clone() const { return std::make_unique<KolmaDevMode>(*this); }

bool KolmaDevMode::equals(const AnlDealer& other) const {
    return dynamic_cast<const KolmaDevMode*>(&other) && PersistentSettings::equals(other);
}

void KolmaDevMode::validateDataToBeStored(const ByteBuffer& state) const {
    if (state.getSize() > dataLimit)
        raise<DevModeOverflowException>(u"KolmaDevMode::validateDataToBeStored(): Data to be stored is too large (%ld) "
                                        u"to fit into the KolmaDmType DevMode structure (%ld)!\r\n",
                                        state.getSize(), dataLimit);
}

// As an area of this state would be: it fits, and the state can be read from it.
void KolmaDevMode::validateState() const {
    validateDataToBeStored(getState());
    PersistentSettings::validateState();
}

bool KolmaDevMode::importFromDevMode(const void* area, bool rethrow) {
    if (!isValidArea(area)) return false;
    try {
        adoptState(readState(area));
        return true;
    } catch (...) {
        return giveUpImport(rethrow);
    }
}

void KolmaDevMode::exportToDevMode(void* area) const {
    KolmaDmType fresh;
    fresh.fields.dataSize = static_cast<std::uint32_t>(getStateSize());
    std::memcpy(fresh.data, getState().getData(), getStateSize());
    std::memcpy(area, &fresh, sizeof fresh);
}

bool KolmaDevMode::isValidArea(const void* area) noexcept {
    if (!area) return false;
    const KolmaDmFields fields = readFields(area);
    return fields.dwSize == sizeof(KolmaDmType) && fields.dwSignature == KolmaDmFields::signature &&
           (fields.dwVersion == KolmaDmFields::currentVersion || fields.dwVersion == KolmaDmFields::olderVersion);
}

AreaInfo KolmaDevMode::getAreaInfo(const void* area) noexcept {
    if (!isValidArea(area)) return {};
    const KolmaDmFields fields = readFields(area);
    AreaInfo info{.isValid = true, .areaVersion = fields.dwVersion, .stateSize = fields.dataSize};
    if (info.stateSize < sizeof(PersistentHeader) || info.stateSize > dataLimit) return info;
    PersistentHeader header;
    std::memcpy(&header, static_cast<const std::uint8_t*>(area) + dataOffset, sizeof header);
    info.stateVersion = header.version;
    return info;
}

void KolmaDevMode::validateDevMode(const void* area) {
    if (isValidArea(area)) validateStateBytes(readState(area));
}
