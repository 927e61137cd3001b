#include "host/conversation/showWindow.h"

#include "host/conversation/ControlReader.h"
#include "host/conversation/textPattern.h"
#include "host/conversation/windowTree.h"
#include "host/output.h"
#include "jtcore/Services/text.h"

#include <fmt/format.h>

#include <algorithm>
#include <vector>

namespace {

// A text that is wider pushes what is behind it aside, in its own line only.
constexpr std::size_t widestColumn = 44;

struct Line {
    std::string id;
    std::string kind;
    std::string label;
    std::string value;
    std::string state;
};

std::string quoted(std::u16string_view text) {
    return text.empty() ? std::string() : '"' + toTerminal(foldBlanks(text)) + '"';
}

// What holds others is no more than its parts.
bool isShown(HWND control) {
    const ControlKind kind = kindOf(control);
    return IsWindowVisible(control) && kind != ControlKind::dialog && kind != ControlKind::toolTip;
}

std::string stateOf(HWND control, const ControlReader& reader) {
    std::vector<std::string> words;
    if (reader.kind() == ControlKind::checkBox || reader.kind() == ControlKind::radioButton) {
        static constexpr const char* states[] = {"off", "on", "mixed"};
        words.emplace_back(states[static_cast<std::size_t>(reader.checkState())]);
    }
    if (reader.hasItems()) {
        const std::vector<int> rows = reader.selectedRows();
        const std::size_t count = reader.items().size();
        words.push_back(rows.empty() ? fmt::format("{} items", count) : fmt::format("{} of {}", rows[0] + 1, count));
    }
    if (!IsWindowEnabled(control)) words.emplace_back("disabled");
    if (GetFocus() == control) words.emplace_back("focused");
    return fmt::format("{}", fmt::join(words, ", "));
}

Line lineOf(HWND control) {
    const ControlReader reader(control);
    const int id = GetDlgCtrlID(control);
    const std::u16string label = labelOf(control);
    const std::u16string value = reader.value();
    const bool isValueTheLabel = !reader.hasItems() && reader.kind() != ControlKind::edit &&
                                 reader.kind() != ControlKind::slider && reader.kind() != ControlKind::upDown;
    return {id == IDC_STATIC || id <= 0 ? std::string() : fmt::format("{}", id), toUtf8(describe(reader.kind())),
            quoted(label), isValueTheLabel ? std::string() : quoted(value), stateOf(control, reader)};
}

void pad(std::string& text, std::size_t width) { text.append(width - std::min(width, columnsOf(text)), ' '); }

void align(std::vector<Line>& lines, std::string Line::*column) {
    std::size_t width = 0;
    for (const Line& line : lines)
        if (const std::size_t columns = columnsOf(line.*column); columns <= widestColumn)
            width = std::max(width, columns);
    for (Line& line : lines)
        pad(line.*column, width);
}

} // namespace

std::string showWindow(HWND window) {
    std::vector<Line> lines;
    for (const HWND control : windowsIn(window))
        if (isShown(control)) lines.push_back(lineOf(control));
    for (std::string Line::*column : {&Line::kind, &Line::label, &Line::value})
        align(lines, column);
    std::string text = fmt::format("window {}\n", quoted(textOf(window)));
    for (const Line& line : lines) {
        std::string row = fmt::format("{:>7}  {}  {}  {}  {}", line.id, line.kind, line.label, line.value, line.state);
        row.erase(row.find_last_not_of(' ') + 1);
        text += row + '\n';
    }
    return text;
}
