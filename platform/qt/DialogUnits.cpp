#include "platform/qt/DialogUnits.h"

#include "platform/windows.h"

#include <QApplication>
#include <QFontMetricsF>

#include <cmath>

namespace {

constexpr int unitsAcross = 4;
constexpr int unitsDown = 8;

} // namespace

DialogUnits::DialogUnits(const QFont& font) {
    const QString alphabet = QStringLiteral("ABCDEFGHIJKLMNOPQRSTUVWXYZabcdefghijklmnopqrstuvwxyz");
    QFontMetricsF metrics(font);
    int width = static_cast<int>(std::lround(metrics.horizontalAdvance(alphabet)));
    baseX_ = (width / 26 + 1) / 2;
    baseY_ = static_cast<int>(std::lround(metrics.height()));
}

int DialogUnits::across(int units) const noexcept { return MulDiv(units, baseX_, unitsAcross); }

int DialogUnits::down(int units) const noexcept { return MulDiv(units, baseY_, unitsDown); }

QRect DialogUnits::rect(int x, int y, int width, int height) const noexcept {
    return {across(x), down(y), across(width), down(height)};
}

QFont dialogFont(WORD pointSize, const std::u16string& faceName) {
    QFont font = QApplication::font();
    QString face = QString::fromStdU16String(faceName);
    if (!face.isEmpty() && !face.startsWith(u"MS Shell Dlg", Qt::CaseInsensitive)) font.setFamily(face);
    if (pointSize != 0) font.setPointSize(pointSize);
    return font;
}
