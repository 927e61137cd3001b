#include "platform/qt/Window.h"
#include "platform/qt/windowCalls.h"

#include <QPixmap>
#include <QSaveFile>

namespace qt {

BOOL SaveWindowPicture(HWND hWnd, LPCWSTR lpFileName) {
    const Window* window = Window::of(hWnd);
    if (window == nullptr) return FALSE;
    QSaveFile file(textFrom(lpFileName));
    if (file.open(QIODevice::WriteOnly) && window->widget()->grab().save(&file, "PNG") && file.commit()) return TRUE;
    SetLastError(ERROR_WRITE_FAULT);
    return FALSE;
}

} // namespace qt
