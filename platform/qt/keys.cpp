#include "platform/qt/keys.h"

#include <algorithm>
#include <array>

namespace {

struct KeyRow {
    int qt;
    int published;
};

constexpr std::array<KeyRow, 24> keyRows = {{
    {Qt::Key_Backspace, VK_BACK},  {Qt::Key_Tab, VK_TAB},       {Qt::Key_Backtab, VK_TAB},
    {Qt::Key_Return, VK_RETURN},   {Qt::Key_Enter, VK_RETURN},  {Qt::Key_Shift, VK_SHIFT},
    {Qt::Key_Control, VK_CONTROL}, {Qt::Key_Alt, VK_MENU},      {Qt::Key_Escape, VK_ESCAPE},
    {Qt::Key_Space, VK_SPACE},     {Qt::Key_PageUp, VK_PRIOR},  {Qt::Key_PageDown, VK_NEXT},
    {Qt::Key_End, VK_END},         {Qt::Key_Home, VK_HOME},     {Qt::Key_Left, VK_LEFT},
    {Qt::Key_Up, VK_UP},           {Qt::Key_Right, VK_RIGHT},   {Qt::Key_Down, VK_DOWN},
    {Qt::Key_Insert, VK_INSERT},   {Qt::Key_Delete, VK_DELETE}, {Qt::Key_Plus, VK_ADD},
    {Qt::Key_Minus, VK_SUBTRACT},  {Qt::Key_AltGr, VK_MENU},    {Qt::Key_Meta, 0},
}};

constexpr int functionKeys = VK_F12 - VK_F1 + 1;

bool isLetterOrDigit(int key) {
    return (key >= Qt::Key_A && key <= Qt::Key_Z) || (key >= Qt::Key_0 && key <= Qt::Key_9);
}

// Keys that type a control character whatever their text says.
char16_t controlCharacterOf(int key) {
    switch (key) {
    case Qt::Key_Backspace:
        return u'\b';
    case Qt::Key_Tab:
    case Qt::Key_Backtab:
        return u'\t';
    case Qt::Key_Return:
    case Qt::Key_Enter:
        return u'\r';
    case Qt::Key_Escape:
        return u'\x1B';
    default:
        return 0;
    }
}

} // namespace

WORD virtualKeyOf(const QKeyEvent& event) noexcept {
    int key = event.key();
    if (isLetterOrDigit(key)) return static_cast<WORD>(key);
    if (key >= Qt::Key_F1 && key < Qt::Key_F1 + functionKeys) return static_cast<WORD>(VK_F1 + key - Qt::Key_F1);
    const auto* row = std::find_if(keyRows.begin(), keyRows.end(), [&](const KeyRow& one) { return one.qt == key; });
    return row == keyRows.end() ? WORD{0} : static_cast<WORD>(row->published);
}

std::u16string charactersOf(const QKeyEvent& event) {
    if (char16_t control = controlCharacterOf(event.key())) return {control};
    bool isControl = event.modifiers().testFlag(Qt::ControlModifier);
    bool isAlt = event.modifiers().testFlag(Qt::AltModifier);
    if (isControl && !isAlt && event.key() >= Qt::Key_A && event.key() <= Qt::Key_Z)
        return {static_cast<char16_t>(event.key() - Qt::Key_A + 1)};
    QString text = event.text();
    bool isTyped = !text.isEmpty() && text.at(0).unicode() >= u' ' && text.at(0).unicode() != 0x7F;
    return isTyped && isControl == isAlt ? text.toStdU16String() : std::u16string();
}

int qtKeyOf(WORD virtualKey) noexcept {
    if (isLetterOrDigit(virtualKey)) return virtualKey;
    if (virtualKey >= VK_F1 && virtualKey <= VK_F12) return Qt::Key_F1 + virtualKey - VK_F1;
    const auto* row =
        std::find_if(keyRows.begin(), keyRows.end(), [&](const KeyRow& one) { return one.published == virtualKey; });
    return virtualKey == 0 || row == keyRows.end() ? 0 : row->qt;
}

QKeyEvent pressTyping(char16_t unit) {
    switch (unit) {
    case u'\b':
        return {QEvent::KeyPress, Qt::Key_Backspace, Qt::NoModifier, "\b"};
    case u'\t':
        return {QEvent::KeyPress, Qt::Key_Tab, Qt::NoModifier, "\t"};
    case u'\r':
        return {QEvent::KeyPress, Qt::Key_Return, Qt::NoModifier, "\r"};
    case u'\x1B':
        return {QEvent::KeyPress, Qt::Key_Escape, Qt::NoModifier, "\x1B"};
    default:
        break;
    }
    if (unit < u' ') return {QEvent::KeyPress, Qt::Key_A + unit - 1, Qt::ControlModifier, QString(QChar(unit))};
    return {QEvent::KeyPress, QChar(unit).toUpper().unicode(), Qt::NoModifier, QString(QChar(unit))};
}

QString textOfKey(WORD virtualKey, Qt::KeyboardModifiers modifiers) {
    if (modifiers & (Qt::ControlModifier | Qt::AltModifier)) return {};
    if (char16_t control = controlCharacterOf(qtKeyOf(virtualKey))) return QString(QChar(control));
    if (virtualKey == VK_ADD) return "+";
    if (virtualKey == VK_SUBTRACT) return "-";
    if (virtualKey != VK_SPACE && !isLetterOrDigit(virtualKey)) return {};
    QChar unit(virtualKey);
    return modifiers & Qt::ShiftModifier ? QString(unit) : QString(unit.toLower());
}
