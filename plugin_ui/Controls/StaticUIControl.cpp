#include "plugin_ui/Controls/StaticUIControl.h"

StaticUIControl::StaticUIControl(std::uint16_t itemId) : UIControl(itemId), itemId_(itemId) { addControlId(itemId); }

void StaticUIControl::setText(const std::u16string& text) { SetDlgItemTextW(getWindow(), itemId_, toWide(text)); }
