#include "plugin_ui/documentItems.h"

#include "jtcore/AnlXlate/KolmaDevMode.h"
#include "jtcore/Services/KolmaException.h"
#include "plugin_ui/OptionItemBuilder.h"
#include "plugin_ui/PageLock.h"
#include "plugin_ui/hostBoundary.h"
#include "plugin_ui/sheetSite.h"
#include "resources/ids.h"

#include <utility>

namespace {

constexpr OptionRow editableRow{
    IDS_ITEM_EDITABLE, TVOT_2STATES, 0, {{IDS_ITEM_EDITABLE_YES, IDI_CPSUI_YES}, {IDS_ITEM_EDITABLE_NO, IDI_CPSUI_NO}}};
constexpr LONG selectionYes = 0;
constexpr LONG selectionNo = 1;

void storeEditable(const OEMCUIPPARAM& param, bool isEditable) {
    if (!param.pOEMDM) raise<UnknownCaseException>(u"KolmaDocumentPropertyUICallback(): the host gave no area.\r\n");
    KolmaDevMode settings(param.pOEMDM);
    settings.setSettingsEditable(isEditable);
    settings.exportToDevMode(param.pOEMDM);
}

void leavePage(const OEMCUIPPARAM& param) {
    const bool isEditable = param.pOEMOptItems[0].Sel != selectionNo;
    if (auto* lock = static_cast<PageLock*>(param.pOEMUserData)) isEditable ? lock->unlockPage() : lock->lockPage();
    storeEditable(param, isEditable);
}

CatchSite siteOf(const CPSUICBPARAM& callback) {
    return {callback.hDlg, IDS_CAPTION_DOCUMENT_PROPERTIES, u"KolmaDocumentPropertyUICallback()"};
}

// The selection goes back at once and forward again when it has reached the area: whatever happens in between it is
// true.
LONG changeSelection(const CPSUICBPARAM& callback, const OEMCUIPPARAM& param) {
    if (callback.pCurItem != param.pOEMOptItems) return CPSUICB_ACTION_NONE;
    const LONG chosen = std::exchange(callback.pCurItem->Sel, callback.OldSel);
    const bool isStored = runAtSheetSite(siteOf(callback), false, [&] {
        storeEditable(param, chosen != selectionNo);
        return true;
    });
    if (!isStored) return CPSUICB_ACTION_OPTIF_CHANGED;
    callback.pCurItem->Sel = chosen;
    return CPSUICB_ACTION_NONE;
}

LONG answer(const CPSUICBPARAM& callback, const OEMCUIPPARAM& param) {
    switch (callback.Reason) {
    case CPSUICB_REASON_SEL_CHANGED:
        return changeSelection(callback, param);
    case CPSUICB_REASON_APPLYNOW:
        return CPSUICB_ACTION_ITEMS_APPLIED;
    case CPSUICB_REASON_KILLACTIVE:
        return runAtSheetSite(siteOf(callback), LONG{CPSUICB_ACTION_NONE}, [&] {
            leavePage(param);
            return LONG{CPSUICB_ACTION_NONE};
        });
    default:
        return CPSUICB_ACTION_NONE;
    }
}

// What the sheet is told when a failure is passed on.
LONG failureOf(const CPSUICBPARAM* callback) noexcept {
    const bool isChange = callback && callback->Reason == CPSUICB_REASON_SEL_CHANGED;
    return isChange ? CPSUICB_ACTION_OPTIF_CHANGED : CPSUICB_ACTION_NONE;
}

} // namespace

void tellDocumentItems(OEMCUIPPARAM& param, PageLock& lock) {
    if (!param.pOEMOptItems) {
        param.cOEMOptItems = 1;
        return;
    }
    if (param.cOEMOptItems == 0) return;
    const bool isEditable = KolmaDevMode(param.pOEMDM).isSettingsEditable();
    param.pOEMUserData = &lock;
    param.OEMCUIPCallback = KolmaDocumentPropertyUICallback;
    OptionItemBuilder(param.hOEMHeap).fill(param.pOEMOptItems[0], editableRow, isEditable ? selectionYes : selectionNo);
}

LONG APIENTRY KolmaDocumentPropertyUICallback(PCPSUICBPARAM callback, POEMCUIPPARAM param) {
    return hostBoundary(failureOf(callback), [&] {
        if (!callback || !param || !param->pOEMOptItems) return LONG{CPSUICB_ACTION_NONE};
        return answer(*callback, *param);
    });
}
