#include "plugin_ui/sheetSite.h"

#include "jtcore/Services/UserMessage.h"

void reportPlainly(HWND owner, const std::exception& failure) {
    UserMessage message(owner, u"Kolma Printer Driver",
                        u"The operation could not be completed, and the text that says why could not be loaded. Please "
                        u"reinstall the driver.");
    message.setException(&failure);
    message.show();
}
