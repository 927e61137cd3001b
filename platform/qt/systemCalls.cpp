// What the desktop says of itself, and what is asked of it.
#include "platform/controls.h"
#include "platform/qt/Desktop.h"
#include "platform/qt/gdiObjects.h"
#include "platform/qt/windowCalls.h"

#include <QApplication>
#include <QPalette>
#include <QScreen>
#include <QStyle>

#include <algorithm>

namespace {

QPalette::ColorRole roleOf(int index) {
    switch (index) {
    case COLOR_WINDOW:
        return QPalette::Base;
    case COLOR_WINDOWTEXT:
        return QPalette::Text;
    case COLOR_HIGHLIGHT:
        return QPalette::Highlight;
    case COLOR_HIGHLIGHTTEXT:
        return QPalette::HighlightedText;
    case COLOR_BTNSHADOW:
        return QPalette::Dark;
    case COLOR_BTNTEXT:
    case COLOR_GRAYTEXT:
        return QPalette::ButtonText;
    case COLOR_BTNHIGHLIGHT:
        return QPalette::Light;
    case COLOR_INFOTEXT:
        return QPalette::ToolTipText;
    case COLOR_INFOBK:
        return QPalette::ToolTipBase;
    default:
        return QPalette::Window;
    }
}

int metric(QStyle::PixelMetric which) { return QApplication::style()->pixelMetric(which); }

} // namespace

QRect screenArea() { return QApplication::primaryScreen()->geometry(); }

namespace qt {

DWORD GetSysColor(int nIndex) {
    QPalette::ColorGroup group = nIndex == COLOR_GRAYTEXT ? QPalette::Disabled : QPalette::Active;
    return colorrefOf(QApplication::palette().color(group, roleOf(nIndex)));
}

int GetSystemMetrics(int nIndex) {
    constexpr int border = 1;
    constexpr int dialogFrame = 3;
    switch (nIndex) {
    case SM_CXSCREEN:
        return screenArea().width();
    case SM_CYSCREEN:
        return screenArea().height();
    case SM_CXVSCROLL:
    case SM_CYHSCROLL:
        return metric(QStyle::PM_ScrollBarExtent);
    case SM_CYCAPTION:
        return metric(QStyle::PM_TitleBarHeight);
    case SM_CXBORDER:
    case SM_CYBORDER:
        return border;
    case SM_CXDLGFRAME:
    case SM_CYDLGFRAME:
        return dialogFrame;
    case SM_CXICON:
    case SM_CYICON:
    case SM_CXCURSOR:
    case SM_CYCURSOR:
        return metric(QStyle::PM_LargeIconSize);
    case SM_CXSMICON:
    case SM_CYSMICON:
        return metric(QStyle::PM_SmallIconSize);
    case SM_CXEDGE:
    case SM_CYEDGE:
        return metric(QStyle::PM_DefaultFrameWidth);
    default:
        return 0;
    }
}

BOOL SystemParametersInfoW(UINT uiAction, UINT /*uiParam*/, PVOID pvParam, UINT /*fWinIni*/) {
    if (uiAction != SPI_GETWORKAREA || pvParam == nullptr) {
        SetLastError(ERROR_INVALID_PARAMETER);
        return FALSE;
    }
    *static_cast<RECT*>(pvParam) = rectOf(QApplication::primaryScreen()->availableGeometry());
    return TRUE;
}

BOOL MessageBeep(UINT /*uType*/) {
    QApplication::beep();
    return TRUE;
}

BOOL InitCommonControlsEx(const INITCOMMONCONTROLSEX* picce) {
    if (picce != nullptr && picce->dwSize == sizeof(INITCOMMONCONTROLSEX)) return TRUE;
    SetLastError(ERROR_INVALID_PARAMETER);
    return FALSE;
}

} // namespace qt
