#include "plugin_ui/documentItems.h"

#include "jtcore/AnlXlate/KolmaDevMode.h"
#include "jtcore/Services/KolmaException.h"
#include "plugin_ui/OptionItemBuilder.h"
#include "plugin_ui/PageLock.h"
#include "plugin_ui/hostBoundary.h"
#include "plugin_ui/sheetSite.h"
#include "resources/ids.h"

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

LONG answer(const CPSUICBPARAM& callback, const OEMCUIPPARAM& param) {
    switch (callback.Reason) {
    case CPSUICB_REASON_SEL_CHANGED:
        if (callback.pCurItem == param.pOEMOptItems) storeEditable(param, callback.pCurItem->Sel != selectionNo);
        return CPSUICB_ACTION_NONE;
    case CPSUICB_REASON_APPLYNOW:
        return CPSUICB_ACTION_ITEMS_APPLIED;
    case CPSUICB_REASON_KILLACTIVE:
        leavePage(param);
        return CPSUICB_ACTION_NONE;
    default:
        return CPSUICB_ACTION_NONE;
    }
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
    constexpr LONG nothing = CPSUICB_ACTION_NONE;
    return hostBoundary(nothing, [&] {
        if (!callback || !param || !param->pOEMOptItems) return nothing;
        const CatchSite site{callback->hDlg, IDS_CAPTION_DOCUMENT_PROPERTIES, u"KolmaDocumentPropertyUICallback()"};
        return runAtSheetSite(site, nothing, [&] { return answer(*callback, *param); });
    });
}
