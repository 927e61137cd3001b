#include "jtcore/AnlXlate/PersistentSettings.h"

#include "jtcore/AnlXlate/JtifTranslator.h"
#include "jtcore/AnlXlate/ProvenStates.h"
#include "jtcore/AnlXlate/SmallJtifTranslator.h"
#include "jtcore/Compress/CompressedBuffer.h"
#include "jtcore/Services/KolmaException.h"
#include "jtcore/Services/User.h"
#include "jtcore/Services/UserPreferences.h"
#include "jtcore/Services/trace.h"

#include <algorithm>
#include <cstring>
#include <utility>

namespace {

// REQUIRES: the buffer holds a whole Front.
template <typename Front>
Front readFront(const ByteBuffer& bytes) {
    Front front;
    std::memcpy(&front, bytes.getData(), sizeof(Front));
    return front;
}

ByteBuffer behind(const ByteBuffer& bytes, std::size_t size) {
    return bytes.getSize() == size ? ByteBuffer() : ByteBuffer(bytes.getData() + size, bytes.getSize() - size);
}

bool isCurrent(const PersistentHeader& header) {
    constexpr PersistentHeader current;
    return header.headerSize == current.headerSize && header.version == current.version;
}

bool isCurrent(const PersistentData& data) { return data.dataSize == PersistentData().dataSize; }

// The text of this failure is that of validateCompressedData(), whoever decompresses.
ByteBuffer decompress(const ByteBuffer& compressed) {
    const CompressedBuffer block(compressed);
    ByteBuffer original;
    block.getOriginalData(original);
    if (original.getSize() != block.getOriginalSize())
        raise<MissingOrBadPersistentSettingsFormatException>(
            u"PersistentSettings::validateCompressedData(): Size of decompressed data (%ld) doesn't match the expected "
            u"original size (%ld).\r\n",
            original.getSize(), block.getOriginalSize());
    return original;
}

StateParts split(const ByteBuffer& state) {
    if (const auto proven = ProvenStates::find(state)) return proven->parts;
    StateParts parts;
    ByteBuffer compressed;
    PersistentSettings::getMajorComponentsFromStateDataBuffer(state, parts.header, compressed);
    PersistentSettings::getComponentsFromCompressedDataBuffer(compressed, parts.data, parts.text);
    return parts;
}

StateParts splitCurrent(const ByteBuffer& state) {
    StateParts parts;
    ByteBuffer compressed;
    PersistentSettings::getMajorComponentsFromStateDataBuffer(state, parts.header, compressed);
    if (!isCurrent(parts.header))
        raise<MissingOrBadPersistentSettingsFormatException>(
            u"PersistentSettings::importPersistentSettingsState(): Import request ignored. Don't have header structure "
            u"of the most recent version. The header information doesn't exist or doesn't match.\r\n");
    PersistentSettings::getComponentsFromCompressedDataBuffer(compressed, parts.data, parts.text);
    return parts;
}

PersistentData readData(const ByteBuffer& state) {
    const auto proven = ProvenStates::find(state);
    return proven ? proven->parts.data : split(state).data;
}

ByteBuffer assemble(const PersistentData& data, const ByteBuffer& text) {
    ByteBuffer block;
    block.reserve(sizeof data + text.getSize());
    block.appendData(&data, sizeof data);
    block.appendData(text.getData(), text.getSize());
    CompressedBuffer compressed;
    compressed.store(block);
    const PersistentHeader header;
    ByteBuffer state;
    state.reserve(sizeof header + compressed.getSize());
    state.appendData(&header, sizeof header);
    state.appendData(compressed.getData(), compressed.getSize());
    ProvenStates::add(state, {header, data, text});
    return state;
}

AttrNodeList parseText(const ByteBuffer& text) {
    AttrNodeList list;
    if (!text.isEmpty()) SmallJtifTranslator().bufferToAnl(text, list);
    return list;
}

// The settings text of today for one in the long form of older releases.
ByteBuffer toSmallText(const ByteBuffer& longText) {
    AttrNodeList list;
    if (!longText.isEmpty()) JtifTranslator().bufferToAnl(longText, list);
    ByteBuffer text;
    SmallJtifTranslator().anlToBuffer(list, text);
    return text;
}

std::u16string_view cutUserName(std::u16string_view name) {
    if (name.size() <= PersistentData::userNameLength) return name;
    name = name.substr(0, PersistentData::userNameLength);
    bool endsInHalfAPair = name.back() >= 0xD800 && name.back() <= 0xDBFF;
    return endsInHalfAPair ? name.substr(0, name.size() - 1) : name;
}

void setUserName(PersistentData& data, std::u16string_view name) {
    const ByteBuffer bytes(cutUserName(name));
    std::fill(std::begin(data.userName), std::end(data.userName), std::uint8_t{0});
    std::copy_n(bytes.getData(), bytes.getSize(), data.userName);
}

std::u16string getUserName(const PersistentData& data) {
    std::u16string name = ByteBuffer(data.userName, sizeof data.userName).getAsString();
    return name.substr(0, name.find(u'\0'));
}

PersistentData makeInitialData() {
    PersistentData data;
    // Nothing reads this record back, so it must not keep a document from opening.
    try {
        setUserName(data, User::getLogonName());
        const UserPreferences preferences;
        data.jobNamePreference = preferences.getJobNamePreference();
        data.useLogonName = preferences.getUseLogonNamePreference();
        data.useLogonNameRecipient = preferences.getUseLogonNameRecipientPreference();
    } catch (const KolmaException& failure) {
        traceException(&failure, u"PersistentSettings::PersistentSettings()", u"The user data stays incomplete.");
    }
    return data;
}

bool hasFront37(const ByteBuffer& state) {
    if (state.getSize() < sizeof(PersistentHeader37)) return false;
    auto front = readFront<PersistentHeader37>(state);
    return front.headerSize == PersistentHeader37().headerSize && front.version == PersistentHeader37::oldVersion;
}

ByteBuffer convert37(const ByteBuffer& state) {
    PersistentData data = makeInitialData();
    data.settingsEditable = readFront<PersistentHeader37>(state).settingsEditable;
    ByteBuffer compressed = behind(state, sizeof(PersistentHeader37));
    return assemble(data, compressed.isEmpty() ? ByteBuffer() : toSmallText(decompress(compressed)));
}

bool hasFront40(const ByteBuffer& state) {
    if (state.getSize() < sizeof(PersistentHeader)) return false;
    auto front = readFront<PersistentHeader>(state);
    return front.headerSize == PersistentHeader().headerSize && front.version == persistentVersion40;
}

ByteBuffer convert40(const ByteBuffer& state) {
    StateParts old = split(state);
    return assemble(old.data, toSmallText(old.text));
}

} // namespace

PersistentSettings::PersistentSettings() : AnlDealer(makeInitialState()) {}

PersistentSettings& PersistentSettings::operator=(const PersistentSettings& other) {
    setState(other.getState());
    return *this;
}

ByteBuffer PersistentSettings::makeInitialState() { return assemble(makeInitialData(), {}); }

void PersistentSettings::bufferToAnl(const ByteBuffer& state, AttrNodeList& list) const {
    const auto proven = ProvenStates::find(state);
    if (proven && proven->list)
        list = *proven->list;
    else
        list = parseText(split(convertToCurrentState(state)).text);
}

void PersistentSettings::anlToBuffer(const AttrNodeList& list, ByteBuffer& state) const {
    const PersistentData data = readData(getState());
    ByteBuffer text;
    SmallJtifTranslator().anlToBuffer(list, text);
    state = assemble(data, text);
}

void PersistentSettings::fileToAnl(const std::u16string&, AttrNodeList&) const {}

void PersistentSettings::anlToFile(const AttrNodeList&, const std::u16string&) const {}

std::unique_ptr<AnlDealer> PersistentSettings::clone() const { return std::make_unique<PersistentSettings>(*this); }

bool PersistentSettings::equals(const AnlDealer& other) const {
    const auto* settings = dynamic_cast<const PersistentSettings*>(&other);
    return settings && settings->getState() == getState();
}

void PersistentSettings::validateState() const { validateStateBytes(getState()); }

void PersistentSettings::validateStateBytes(const ByteBuffer& state) {
    if (ProvenStates::find(state)) return;
    StateParts parts = split(convertToCurrentState(state));
    if (!isCurrent(parts.header) || !isCurrent(parts.data))
        traceText(u"PersistentSettings::validateState()", u"The state is of a version that is not known.");
}

std::shared_ptr<const AttrNodeList> PersistentSettings::getSharedList() const {
    const auto proven = ProvenStates::find(getState());
    if (proven && proven->list) return proven->list;
    auto list = std::make_shared<AttrNodeList>();
    getAttrNodeList(*list);
    return list;
}

bool PersistentSettings::isSettingsEditable() const { return readData(getState()).settingsEditable != 0; }

void PersistentSettings::setSettingsEditable(bool isEditable) {
    StateParts parts = split(getState());
    parts.data.settingsEditable = isEditable;
    setState(assemble(parts.data, parts.text));
}

void PersistentSettings::setUserData(std::u16string_view userName, bool jobNamePreference, bool useLogonName,
                                     bool useLogonNameRecipient) {
    const auto proven = ProvenStates::find(getState());
    StateParts parts = proven ? proven->parts : split(getState());
    const PersistentData before = parts.data;
    setUserName(parts.data, userName);
    parts.data.jobNamePreference = jobNamePreference;
    parts.data.useLogonName = useLogonName;
    parts.data.useLogonNameRecipient = useLogonNameRecipient;
    if (std::memcmp(&before, &parts.data, sizeof before) == 0) return; // nothing would change
    setState(assemble(parts.data, parts.text));
    if (proven) ProvenStates::add(getState(), parts, proven->list); // of the same text
}

StateInfo PersistentSettings::getStateInfo() const {
    StateParts parts = split(getState());
    return {.version = parts.header.version,
            .size = getStateSize(),
            .isSettingsEditable = parts.data.settingsEditable != 0,
            .userName = getUserName(parts.data),
            .jobNamePreference = parts.data.jobNamePreference != 0,
            .useLogonName = parts.data.useLogonName != 0,
            .useLogonNameRecipient = parts.data.useLogonNameRecipient != 0};
}

bool PersistentSettings::importPersistentSettingsState(const ByteBuffer& state, bool rethrow) {
    try {
        adoptState(state);
        return true;
    } catch (...) {
        return giveUpImport(rethrow);
    }
}

void PersistentSettings::adoptState(ByteBuffer state) {
    const auto known = ProvenStates::find(state);
    if (!known) state = convertToCurrentState(state);
    if (!known || !known->list) {
        const StateParts parts = known ? known->parts : splitCurrent(state);
        if (!isCurrent(parts.data))
            raise<MissingOrBadPersistentSettingsFormatException>(
                u"PersistentSettings::importPersistentSettingsState(): Import request ignored. Don't have a data "
                u"structure of the most recent version. The data structure in the compressed block doesn't exist or "
                u"doesn't match.\r\n");
        ProvenStates::add(state, parts, std::make_shared<const AttrNodeList>(parseText(parts.text)));
    }
    setState(std::move(state));
}

bool PersistentSettings::giveUpImport(bool rethrow) {
    if (rethrow) throw;
    traceText(u"PersistentSettings::importPersistentSettingsState()", u"Data is invalid!");
    return false;
}

ByteBuffer PersistentSettings::convertToCurrentState(const ByteBuffer& state) {
    if (hasFront37(state)) return convert37(state);
    if (hasFront40(state)) return convert40(state);
    return state;
}

void PersistentSettings::validateCompressedData(const ByteBuffer& compressed) { decompress(compressed); }

void PersistentSettings::getMajorComponentsFromStateDataBuffer(const ByteBuffer& state, PersistentHeader& header,
                                                               ByteBuffer& compressed) {
    if (state.getSize() < sizeof(PersistentHeader))
        raise<MissingOrBadPersistentSettingsFormatException>(
            u"PersistentSettings::getMajorComponentsFromStateDataBuffer: The ByteBuffer data is not big enough (%ld "
            u"bytes) to contain the required header  (%ld bytes)!\r\n",
            state.getSize(), sizeof(PersistentHeader));
    header = readFront<PersistentHeader>(state);
    compressed = behind(state, sizeof(PersistentHeader));
}

void PersistentSettings::getComponentsFromCompressedDataBuffer(const ByteBuffer& compressed, PersistentData& data,
                                                               ByteBuffer& text) {
    ByteBuffer block = decompress(compressed);
    if (block.getSize() < sizeof(PersistentData))
        raise<MissingOrBadPersistentSettingsFormatException>(
            u"PersistentSettings::getComponentsFromCompressedDataBuffer: The ByteBuffer data is not big enough (%ld "
            u"bytes) to contain the required header (%ld bytes)!\r\n",
            block.getSize(), sizeof(PersistentData));
    data = readFront<PersistentData>(block);
    text = behind(block, sizeof(PersistentData));
}
