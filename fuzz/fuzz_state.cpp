// Any bytes as a state: they are refused with a failure of the family and nothing changes, or they are read, and what
// was read survives being stored again.
#include "jtcore/AnlXlate/PersistentSettings.h"
#include "jtcore/Services/KolmaException.h"
#include "stateMutator.h"

#include <algorithm>
#include <cstdlib>

namespace {

void check(bool holds) {
    if (!holds) std::abort();
}

void expectAllCanBeDone(PersistentSettings settings) {
    AttrNodeList list;
    settings.getAttrNodeList(list);
    settings.validateState();
    settings.setSettingsEditable(!settings.isSettingsEditable());
    settings.setUserData(settings.getStateInfo().userName, true, false, true);
    settings.setAttrNodeList(list);
}

} // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    static const PersistentSettings initial;
    const ByteBuffer state(data, size);
    PersistentSettings settings(initial);
    bool isRead = settings.importPersistentSettingsState(state, false);
    try {
        check(PersistentSettings(initial).importPersistentSettingsState(state, true) && isRead);
    } catch (const KolmaException&) {
        check(!isRead && settings.equals(initial));
    }
    if (isRead) expectAllCanBeDone(settings);
    return 0;
}

extern "C" std::size_t LLVMFuzzerCustomMutator(std::uint8_t* data, std::size_t size, std::size_t maximum,
                                               unsigned seed) {
    const ByteBuffer changed = mutateState(ByteBuffer(data, size), maximum, seed);
    std::copy_n(changed.getData(), changed.getSize(), data);
    return changed.getSize();
}
