// Dialog units: a quarter of a dialog font's average width, and an eighth of its height.
#pragma once

#include "platform/types.h"

#include <QFont>
#include <QRect>

class DialogUnits {
public:
    explicit DialogUnits(const QFont& font);

    // In logical pixels, rounded.
    int across(int units) const noexcept;
    int down(int units) const noexcept;
    // Edges are mapped, not sizes: what touches in units touches in pixels.
    QRect rect(int x, int y, int width, int height) const noexcept;

private:
    int baseX_;
    int baseY_;
};

// The font of a template: the desktop's own for the shell's dialog faces.
QFont dialogFont(WORD pointSize, const std::u16string& faceName);
