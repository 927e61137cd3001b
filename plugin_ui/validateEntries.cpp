#include "plugin_ui/validateEntries.h"

#include "platform/windows.h"
#include "plugin_ui/UIMessage.h"

namespace {

bool isAnsweredValid(HWND window, UINT message) {
    SendMessageW(window, message, 0, 0);
    return GetWindowLongPtrW(window, DWLP_MSGRESULT) == entriesValid;
}

} // namespace

bool validateEntries(HWND window) { return isAnsweredValid(window, UIM_VALIDATE_ENTRY); }

bool validateForSave(HWND window) { return isAnsweredValid(window, UIM_VALIDATE_SAVE); }
