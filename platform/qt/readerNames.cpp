#include "platform/qt/readerNames.h"

#include "platform/controls.h"
#include "platform/qt/Dialog.h"
#include "platform/qt/keyboard.h"

#include <QWidget>

#include <algorithm>

namespace {

bool isLabel(Window& control) { return control.isOfClass(WC_STATICW) && !textOf(control).isEmpty(); }

bool takesName(Window& control) {
    return !control.isOfClass(WC_BUTTONW) && !control.isOfClass(WC_STATICW) && Dialog::of(&control) == nullptr;
}

// The controls up to the next label.
void nameBehind(const std::vector<Window*>& controls, std::size_t label) {
    const QString name = withoutMnemonic(textOf(*controls[label]));
    for (std::size_t i = label + 1; i < controls.size() && !isLabel(*controls[i]); ++i) {
        if (!takesName(*controls[i])) continue;
        QWidget& widget = *controls[i]->widget();
        widget.setAccessibleName(name);
        if (QWidget* field = widget.focusProxy()) field->setAccessibleName(name);
    }
}

} // namespace

void nameForReaders(const std::vector<Window*>& controls) {
    for (std::size_t i = 0; i < controls.size(); ++i)
        if (isLabel(*controls[i])) nameBehind(controls, i);
}

void renameForReaders(Window& label) {
    if (Dialog::of(label.parent()) == nullptr || !isLabel(label)) return;
    const std::vector<Window*> controls = label.parent()->children();
    auto at = std::ranges::find(controls, &label);
    if (at != controls.end()) nameBehind(controls, static_cast<std::size_t>(at - controls.begin()));
}
