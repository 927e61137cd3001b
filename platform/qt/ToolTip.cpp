// The tool tip class. A tool is a whole control here: its text lies with the control's widget, which shows it and tells
// it to who cannot see.
#include "platform/controls.h"
#include "platform/modules.h"
#include "platform/qt/Window.h"
#include "platform/qt/controlClasses.h"

#include <QCoreApplication>
#include <QCursor>
#include <QHelpEvent>
#include <QTextDocument>
#include <QTimer>
#include <QToolTip>

#include <algorithm>
#include <cstddef>
#include <vector>

namespace {

constexpr int usualDelay = 500;
// Older programs' structures end with the text.
constexpr UINT leastToolSize = offsetof(TTTOOLINFOW, lpszText) + sizeof(LPWSTR);
constexpr int longestText = 1024;

struct Tool {
    HWND owner;
    UINT_PTR id;
    QPointer<QWidget> widget;
    QString text;
};

const TTTOOLINFOW* toolInfo(LPARAM info) {
    const auto* tool = reinterpret_cast<const TTTOOLINFOW*>(info); // NOLINT: published
    return tool != nullptr && tool->cbSize >= leastToolSize ? tool : nullptr;
}

// The text, or the number of a string.
QString textOf(const TTTOOLINFOW& tool) {
    constexpr LPARAM askParent = -1;
    if (reinterpret_cast<LPARAM>(tool.lpszText) == askParent) return {};
    if (!IS_INTRESOURCE(tool.lpszText)) return textFrom(tool.lpszText);
    WCHAR text[longestText];
    auto id = static_cast<UINT>(reinterpret_cast<ULONG_PTR>(tool.lpszText));
    return id != 0 && LoadStringW(tool.hinst, id, text, longestText) > 0 ? textFrom(text) : QString();
}

class ToolTip : public Window {
public:
    ToolTip(std::unique_ptr<QWidget> widget, const WindowTraits& traits);
    ~ToolTip() override;

    LRESULT answer(UINT message, WPARAM wParam, LPARAM lParam) override;

protected:
    bool eventFilter(QObject* watched, QEvent* event) override;

private:
    LRESULT answerTool(UINT message, LPARAM lParam);
    std::vector<Tool>::iterator find(const TTTOOLINFOW& info);
    Tool* toolOf(const QObject* widget);
    Tool* seenThrough(const QObject* widget, const QPoint& place);
    LRESULT add(const TTTOOLINFOW& info);
    LRESULT remove(const TTTOOLINFOW& info);
    LRESULT setText(const TTTOOLINFOW& info);
    LRESULT tellText(const TTTOOLINFOW& info, WPARAM room);
    LRESULT setMaximumWidth(int width);
    LRESULT setDelay(WPARAM which, int milliseconds);
    QString shown(const QString& text) const;
    void show(Tool& tool) const;
    void wait(Tool& tool);
    void showNow();

    std::vector<Tool> tools_;
    QTimer delay_;
    QPointer<QWidget> waiting_;
    int maximumWidth_ = -1;
    bool isActive_ = true;
};

ToolTip::ToolTip(std::unique_ptr<QWidget> widget, const WindowTraits& traits) : Window(std::move(widget), traits) {
    delay_.setSingleShot(true);
    delay_.setInterval(usualDelay);
    connect(&delay_, &QTimer::timeout, this, [this] { showNow(); });
}

ToolTip::~ToolTip() {
    for (Tool& tool : tools_)
        if (tool.widget != nullptr) tool.widget->setToolTip(QString());
}

LRESULT ToolTip::answer(UINT message, WPARAM wParam, LPARAM lParam) {
    switch (message) {
    case TTM_ACTIVATE:
        isActive_ = wParam != 0;
        return 0;
    case TTM_POP:
        return QToolTip::hideText(), 0;
    case TTM_GETTOOLCOUNT:
        return static_cast<LRESULT>(tools_.size());
    case TTM_SETMAXTIPWIDTH:
        return setMaximumWidth(static_cast<int>(lParam));
    case TTM_GETMAXTIPWIDTH:
        return maximumWidth_;
    case TTM_SETDELAYTIME:
        return setDelay(wParam, static_cast<SHORT>(LOWORD(lParam)));
    case TTM_GETDELAYTIME:
        return wParam == TTDT_INITIAL ? delay_.interval() : 0;
    case TTM_GETTEXTW:
        return toolInfo(lParam) == nullptr ? 0 : tellText(*toolInfo(lParam), wParam);
    case TTM_ADDTOOLW:
    case TTM_DELTOOLW:
    case TTM_UPDATETIPTEXTW:
        return answerTool(message, lParam);
    default:
        return Window::answer(message, wParam, lParam);
    }
}

LRESULT ToolTip::answerTool(UINT message, LPARAM lParam) {
    const TTTOOLINFOW* info = toolInfo(lParam);
    if (info == nullptr) return FALSE;
    if (message == TTM_ADDTOOLW) return add(*info);
    return message == TTM_DELTOOLW ? remove(*info) : setText(*info);
}

std::vector<Tool>::iterator ToolTip::find(const TTTOOLINFOW& info) {
    return std::ranges::find_if(tools_,
                                [&](const Tool& tool) { return tool.owner == info.hwnd && tool.id == info.uId; });
}

LRESULT ToolTip::add(const TTTOOLINFOW& info) {
    bool isById = (info.uFlags & TTF_IDISHWND) != 0;
    Window* control = Window::of(isById ? reinterpret_cast<HWND>(info.uId) : info.hwnd); // NOLINT: published
    if (control == nullptr) return FALSE;
    remove(info);
    Tool& tool = tools_.emplace_back(Tool{info.hwnd, info.uId, control->widget(), textOf(info)});
    show(tool);
    tool.widget->installEventFilter(this);
    if (tool.widget->parentWidget() != nullptr) tool.widget->parentWidget()->installEventFilter(this);
    return TRUE;
}

LRESULT ToolTip::remove(const TTTOOLINFOW& info) {
    auto tool = find(info);
    if (tool == tools_.end()) return 0;
    if (tool->widget != nullptr) tool->widget->setToolTip(QString());
    tools_.erase(tool);
    return 0;
}

LRESULT ToolTip::setText(const TTTOOLINFOW& info) {
    auto tool = find(info);
    if (tool == tools_.end()) return 0;
    tool->text = textOf(info);
    show(*tool);
    return 0;
}

LRESULT ToolTip::tellText(const TTTOOLINFOW& info, WPARAM room) {
    auto tool = find(info);
    return copyText(tool == tools_.end() ? QString() : tool->text, room, reinterpret_cast<LPARAM>(info.lpszText));
}

LRESULT ToolTip::setMaximumWidth(int width) {
    int before = std::exchange(maximumWidth_, width);
    for (Tool& tool : tools_)
        show(tool);
    return before;
}

// A negative time goes back to the usual one. How long a text stays follows from its length.
LRESULT ToolTip::setDelay(WPARAM which, int milliseconds) {
    if (which == TTDT_INITIAL || which == TTDT_AUTOMATIC)
        delay_.setInterval(milliseconds < 0 ? usualDelay : milliseconds);
    return 0;
}

// Text is never taken for markup; but markup is what breaks a line that would get too long.
QString ToolTip::shown(const QString& text) const {
    bool isLong = maximumWidth_ > 0 && QFontMetrics(QToolTip::font()).size(0, text).width() > maximumWidth_;
    if (!isLong && !Qt::mightBeRichText(text)) return text;
    return QStringLiteral("<p style='white-space:%1'>%2</p>")
        .arg(isLong ? QStringLiteral("pre-wrap") : QStringLiteral("pre"), text.toHtmlEscaped());
}

void ToolTip::show(Tool& tool) const {
    if (tool.widget != nullptr) tool.widget->setToolTip(shown(tool.text));
}

Tool* ToolTip::toolOf(const QObject* widget) {
    auto at = std::ranges::find_if(tools_, [&](const Tool& tool) { return tool.widget == widget; });
    return at == tools_.end() ? nullptr : &*at;
}

// A label that leaves the mouse to its parent has a tip all the same.
Tool* ToolTip::seenThrough(const QObject* widget, const QPoint& place) {
    auto at = std::ranges::find_if(tools_, [&](const Tool& tool) {
        return tool.widget != nullptr && tool.widget->parentWidget() == widget && tool.widget->isVisible() &&
               tool.widget->testAttribute(Qt::WA_TransparentForMouseEvents) && tool.widget->geometry().contains(place);
    });
    return at == tools_.end() ? nullptr : &*at;
}

bool ToolTip::eventFilter(QObject* watched, QEvent* event) {
    Tool* tool = toolOf(watched);
    switch (event->type()) {
    case QEvent::Enter:
        if (tool != nullptr) wait(*tool);
        break;
    case QEvent::Leave:
    case QEvent::MouseButtonPress:
    case QEvent::KeyPress:
        delay_.stop();
        break;
    case QEvent::ToolTip: {
        if (!isActive_) return true;
        auto& help = static_cast<QHelpEvent&>(*event);
        Tool* below = tool == nullptr ? seenThrough(watched, help.pos()) : nullptr;
        if (below == nullptr) break;
        QToolTip::showText(help.globalPos(), below->widget->toolTip(), below->widget);
        return true;
    }
    default:
        break;
    }
    return Window::eventFilter(watched, event);
}

void ToolTip::wait(Tool& tool) {
    waiting_ = tool.widget;
    delay_.start();
}

void ToolTip::showNow() {
    if (waiting_ == nullptr || !isActive_ || !waiting_->underMouse()) return;
    QPoint place = QCursor::pos();
    QHelpEvent help(QEvent::ToolTip, waiting_->mapFromGlobal(place), place);
    QCoreApplication::sendEvent(waiting_, &help);
}

} // namespace

// The window itself is never seen. As published it stands on the desktop and is no part of what it explains.
std::unique_ptr<Window> makeToolTip(const WindowTraits& traits, QWidget* parent) {
    auto widget = std::make_unique<QWidget>(parent, Qt::ToolTip);
    return std::make_unique<ToolTip>(std::move(widget), traits);
}
