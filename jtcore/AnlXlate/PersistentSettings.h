// The settings of a job between sessions: a compact block of bytes, the state, which carries the attribute list and a
// small fixed record beside it. Reads every state that an earlier release has written.
//
// A state is: PersistentHeader, then a CompressedBuffer that holds PersistentData and the settings text
// (SmallJtifTranslator's). An object holds a readable state of the current version from its construction on. What
// changes the state builds the whole new one first: a raise leaves the object as it was.
//
// A state is read once for as long as the process remembers it (ProvenStates).
//
// A state that cannot be read raises MissingOrBadPersistentSettingsFormatException, or what CompressedBuffer and the
// translators raise.
#pragma once

#include "jtcore/AnlXlate/AnlDealer.h"
#include "jtcore/AnlXlate/PersistentLayout.h"

#include <cstdint>
#include <memory>
#include <string>
#include <string_view>

// What stands beside the attributes in a state.
struct StateInfo {
    std::uint32_t version = 0;
    std::size_t size = 0; // in bytes
    bool isSettingsEditable = true;
    std::u16string userName;
    bool jobNamePreference = false;
    bool useLogonName = false;
    bool useLogonNameRecipient = false;
};

class PersistentSettings : public AnlDealer {
public:
    // The initial state: no attributes, settings editable, the logged-on user's name and the preferences of no driver
    // in particular. A name or preference that cannot be found out is empty or off: it keeps nobody from printing.
    PersistentSettings();
    PersistentSettings(const PersistentSettings&) = default;
    // Raises what validateDataToBeStored() raises for the other's state.
    PersistentSettings& operator=(const PersistentSettings& other);

    // A state to a list and back. A failure leaves the output as it was. The other direction takes over the record of
    // the state that this object holds.
    void bufferToAnl(const ByteBuffer& state, AttrNodeList& list) const override;
    void anlToBuffer(const AttrNodeList& list, ByteBuffer& state) const override;
    // A state is never a file: these do nothing.
    void fileToAnl(const std::u16string& fileName, AttrNodeList& list) const override;
    void anlToFile(const AttrNodeList& list, const std::u16string& fileName) const override;

    std::unique_ptr<AnlDealer> clone() const override;
    bool equals(const AnlDealer& other) const override;
    void validateState() const override;

    bool isSettingsEditable() const;
    void setSettingsEditable(bool isEditable);
    // A name of more than 255 characters is cut, never inside a surrogate pair.
    void setUserData(std::u16string_view userName, bool jobNamePreference, bool useLogonName,
                     bool useLogonNameRecipient);
    StateInfo getStateInfo() const;
    // The list of getAttrNodeList(), for reading alone: where the state was read lately it is not read again.
    std::shared_ptr<const AttrNodeList> getSharedList() const;

    // Takes over a state of any known version, brought up to the current one. A state that cannot be read raises when
    // `rethrow` is set and otherwise gives false; the object then keeps its own.
    bool importPersistentSettingsState(const ByteBuffer& state, bool rethrow);

    // The same settings as a state of the current version. What is of no known version comes back unchanged.
    static ByteBuffer convertToCurrentState(const ByteBuffer& state);
    // Raises when the state cannot be brought up to date, taken apart and decompressed. A foreign front alone passes.
    static void validateStateBytes(const ByteBuffer& state);
    // Raises when the block does not decompress to the size that it claims.
    static void validateCompressedData(const ByteBuffer& compressed);

    // The two cuts of a state: front and compressed block; record and settings text. Raise when it is too short.
    static void getMajorComponentsFromStateDataBuffer(const ByteBuffer& state, PersistentHeader& header,
                                                      ByteBuffer& compressed);
    static void getComponentsFromCompressedDataBuffer(const ByteBuffer& compressed, PersistentData& data,
                                                      ByteBuffer& text);

protected:
    // Without the initial state, for one who sets a state at once.
    enum class NoState { tag };
    explicit PersistentSettings(NoState) noexcept {}
    static ByteBuffer makeInitialState();

    // Imports or raises.
    void adoptState(ByteBuffer state);
    // How an import ends that has failed. REQUIRES: called in the handler of the failure.
    static bool giveUpImport(bool rethrow);
};
