#include "platform/qt/controlClasses.h"

#include "platform/controls.h"

#include <QStringView>

#include <algorithm>

namespace {

constexpr ControlClass classes[] = {
    {WC_BUTTONW, 0x80, &makeButton},     {WC_EDITW, 0x81, &makeEdit},         {WC_STATICW, 0x82, &makeStatic},
    {WC_LISTBOXW, 0x83, &makeListBox},   {WC_COMBOBOXW, 0x85, &makeComboBox}, {WC_LISTVIEWW, 0, &makeListView},
    {TRACKBAR_CLASSW, 0, &makeTrackbar}, {UPDOWN_CLASSW, 0, &makeUpDown},     {TOOLTIPS_CLASSW, 0, &makeToolTip},
};

template <typename Matches>
const ControlClass* find(Matches&& matches) {
    const auto* row = std::ranges::find_if(classes, matches);
    if (row != std::end(classes)) return row;
    SetLastError(ERROR_CANNOT_FIND_WND_CLASS);
    return nullptr;
}

} // namespace

const ControlClass* controlClass(const std::u16string& name) noexcept {
    return find([&](const ControlClass& row) {
        return QStringView(name).compare(QStringView(fromWide(row.name)), Qt::CaseInsensitive) == 0;
    });
}

const ControlClass* controlClass(WORD ordinal) noexcept {
    return find([&](const ControlClass& row) { return ordinal != 0 && row.ordinal == ordinal; });
}
