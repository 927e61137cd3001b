#include "platform/qt/PropertySheet.h"

#include "platform/controls.h"
#include "platform/posix/service.h"
#include "platform/qt/SheetKeys.h"
#include "platform/qt/SheetTabs.h"
#include "platform/qt/controlClasses.h"
#include "platform/qt/keyboard.h"
#include "platform/qt/windowCalls.h"

#include <QApplication>
#include <QHBoxLayout>
#include <QScreen>
#include <QScrollArea>
#include <QVBoxLayout>

#include <algorithm>
#include <utility>

namespace {

constexpr WORD applyId = ID_APPLY_NOW;
constexpr WORD fontSize = 9;
constexpr int frameRoom = 120; // logical pixels for title, tabs and buttons round a page

struct ButtonRow {
    WPARAM button;
    WORD id;
};
constexpr ButtonRow buttonRows[] = {
    {PSBTN_OK, IDOK}, {PSBTN_APPLYNOW, applyId}, {PSBTN_CANCEL, IDCANCEL}, {PSBTN_HELP, IDHELP}};

class Flag {
public:
    explicit Flag(bool& flag) : flag_(flag), before_(std::exchange(flag, true)) {}
    ~Flag() { flag_ = before_; }
    Flag(const Flag&) = delete;
    Flag& operator=(const Flag&) = delete;

private:
    bool& flag_;
    bool before_;
};

// A page is part of the sheet, whatever its template says of a window of its own.
void makePart(DialogTemplate& page) {
    constexpr DWORD ofWindows =
        WS_POPUP | WS_CAPTION | WS_SYSMENU | WS_THICKFRAME | DS_MODALFRAME | WS_VISIBLE | WS_DISABLED;
    page.style = (page.style & ~ofWindows) | WS_CHILD | DS_CONTROL;
    page.extendedStyle |= WS_EX_CONTROLPARENT;
}

std::optional<DialogTemplate> readTemplate(const PROPSHEETPAGEW& record) {
    if ((record.dwFlags & PSP_DLGINDIRECT) == 0) return loadDialogTemplate(record.hInstance, record.pszTemplate);
    std::optional<DialogTemplate> page = parseDialogTemplate(record.pResource);
    if (!page) SetLastError(ERROR_INVALID_PARAMETER);
    return page;
}

// In the user's language, as the toolkit has it.
QString buttonText(const char* text) { return QCoreApplication::translate("QPlatformTheme", text); }

} // namespace

PropertySheet* PropertySheet::create(Window* owner, const Options& options, const std::vector<SheetPage*>& pages,
                                     std::size_t first) {
    auto widget = std::make_unique<QWidget>(owner ? owner->root().widget() : nullptr, Qt::Dialog);
    WindowTraits traits;
    traits.className = dialogClassName;
    traits.style = WS_POPUP | WS_CAPTION | WS_SYSMENU | DS_MODALFRAME;
    traits.extendedStyle = WS_EX_CONTROLPARENT;
    const QFont font = dialogFont(fontSize, u"MS Shell Dlg");
    std::unique_ptr<PropertySheet> made(new PropertySheet(std::move(widget), std::move(traits), font));
    if (!made->readPages(pages)) return nullptr;
    auto& sheet = static_cast<PropertySheet&>(keep(std::move(made)));
    sheet.layOut(options);
    // A page that refuses to be shown leaves the sheet to the next one.
    for (std::size_t i = 0; i < pages.size() && sheet.shown_ < 0; ++i)
        sheet.show(static_cast<int>((first + i) % pages.size()));
    if (sheet.shown_ >= 0) return &sheet;
    sheet.destroy();
    return nullptr;
}

PropertySheet::PropertySheet(std::unique_ptr<QWidget> widget, WindowTraits traits, const QFont& font)
    : Dialog(std::move(widget), std::move(traits), font, nullptr) {}

bool PropertySheet::readPages(const std::vector<SheetPage*>& pages) {
    for (SheetPage* source : pages) {
        std::optional<DialogTemplate> read = readTemplate(source->record);
        if (!read) return false;
        makePart(*read);
        pages_.push_back({source, std::move(*read), nullptr});
    }
    return !pages_.empty();
}

void PropertySheet::layOut(const Options& options) {
    widget()->setWindowTitle(options.title);
    auto* column = new QVBoxLayout(widget());
    column->setSizeConstraint(QLayout::SetFixedSize);
    QStringList titles;
    for (const Page& page : pages_)
        titles += QString::fromStdU16String(page.source->title);
    auto tabs = std::make_unique<SheetTabs>(widget(), titles, [this](int index) { activate(index); });
    tabs_ = tabs.get();
    column->addWidget(tabs->widget());
    keep(std::move(tabs));
    column->addWidget(makeFrame(), 1);
    auto* row = new QHBoxLayout;
    column->addLayout(row);
    row->addStretch(1);
    row->addWidget(addButton(IDOK, buttonText("OK"), BS_DEFPUSHBUTTON).widget());
    row->addWidget(addButton(IDCANCEL, buttonText("Cancel"), BS_PUSHBUTTON).widget());
    if (options.hasApply) row->addWidget(addButton(applyId, buttonText("Apply"), BS_PUSHBUTTON | WS_DISABLED).widget());
    send(DM_SETDEFID, IDOK);
    new SheetKeys(*this, [this](int step) { activate(tabs_->neighbour(step)); });
}

// A page larger than the screen can be scrolled, and follows the keys.
QWidget* PropertySheet::makeFrame() {
    const QSize size = pageSize();
    const QSize room = QApplication::primaryScreen()->availableSize() - QSize(frameRoom / 2, frameRoom);
    auto* area = new QScrollArea(widget());
    area->setFrameShape(QFrame::NoFrame);
    frame_ = new QWidget;
    frame_->setFixedSize(size);
    area->setWidget(frame_);
    area->setFocusPolicy(Qt::NoFocus);
    area->setMinimumSize(size.boundedTo(room));
    connect(qApp, &QApplication::focusChanged, area, [area](QWidget*, QWidget* now) {
        if (now != nullptr && area->widget()->isAncestorOf(now)) area->ensureWidgetVisible(now);
    });
    return area;
}

QSize PropertySheet::pageSize() const {
    QSize size;
    for (const Page& page : pages_) {
        const DialogTemplate& from = page.dialogTemplate;
        const DialogUnits units(dialogFont(from.pointSize, from.faceName));
        size = size.expandedTo(units.rect(0, 0, from.width, from.height).size());
    }
    return size;
}

Window& PropertySheet::addButton(WORD id, const QString& text, DWORD style) {
    WindowTraits traits;
    traits.className = WC_BUTTONW;
    traits.style = style | WS_CHILD | WS_VISIBLE | WS_TABSTOP;
    traits.id = id;
    traits.text = text.toStdU16String();
    Window& button = keep(makeButton(traits, widget()));
    button.widget()->setEnabled((style & WS_DISABLED) == 0);
    return button;
}

PropertySheet::Page* PropertySheet::current() {
    return shown_ < 0 ? nullptr : &pages_[static_cast<std::size_t>(shown_)];
}

PropertySheet::Page* PropertySheet::pageOf(HWND handle) {
    const auto page = std::find_if(pages_.begin(), pages_.end(),
                                   [&](const Page& p) { return p.dialog && p.dialog->handle() == handle; });
    return page == pages_.end() ? nullptr : &*page;
}

int PropertySheet::indexOf(const Page& page) const { return static_cast<int>(&page - pages_.data()); }

bool PropertySheet::activate(int index) {
    const bool mayGo = index == shown_ || (!isBusy_ && current() && tell(*current(), PSN_KILLACTIVE) == FALSE);
    if (mayGo && (index == shown_ || show(index))) return true;
    tabs_->show(shown_);
    return false;
}

// The page whose template has that number in its module.
bool PropertySheet::activateTemplate(ULONG_PTR id) {
    const auto page = std::ranges::find_if(pages_, [&](const Page& one) {
        const PROPSHEETPAGEW& record = one.source->record;
        return (record.dwFlags & PSP_DLGINDIRECT) == 0 && reinterpret_cast<ULONG_PTR>(record.pszTemplate) == id;
    });
    return page != pages_.end() && activate(indexOf(*page));
}

bool PropertySheet::show(int index) {
    Page& page = pages_[static_cast<std::size_t>(index)];
    if (!page.dialog && !make(page)) return false;
    if (Page* before = current(); before && before != &page && before->dialog) before->dialog->widget()->hide();
    const bool isBack = shown_ == index;
    shown_ = index;
    tabs_->show(index);
    page.dialog->widget()->show();
    tell(page, PSN_SETACTIVE);
    if (widget()->focusWidget() != tabs_->widget() && page.dialog) focusPage(*page.dialog, isBack);
    return true;
}

// A page that takes the user back, since it has something to say, does so to where the user was on it.
void PropertySheet::focusPage(Dialog& page, bool isBack) {
    const QWidget* last = isBack ? page.widget()->focusWidget() : nullptr;
    const Window* at = last && last->isEnabled() && last->isVisible() ? Window::holding(last) : nullptr;
    focusByKeyboard(at ? at->handle() : qt::GetNextDlgTabItem(page.handle(), nullptr, FALSE));
}

bool PropertySheet::make(Page& page) {
    const PROPSHEETPAGEW& record = page.source->record;
    PROPSHEETPAGEW& own = page.source->record;
    const bool asks = (record.dwFlags & PSP_USECALLBACK) != 0 && record.pfnCallback;
    if (asks && service(UINT{0}, [&] { return record.pfnCallback(nullptr, PSPCB_CREATE, &own); }) == 0) return false;
    page.dialog =
        Dialog::create(page.dialogTemplate, record.hInstance, this, record.pfnDlgProc, reinterpret_cast<LPARAM>(&own));
    if (!page.dialog) return false;
    QWidget* widget = page.dialog->widget();
    widget->setParent(frame_);
    widget->setGeometry(frame_->rect());
    return true;
}

LRESULT PropertySheet::tell(Page& page, UINT code, LPARAM lParam) {
    if (!page.dialog) return 0;
    const Flag busy(isBusy_);
    PSHNOTIFY notification{{handle(), 0, code}, lParam};
    return page.dialog->send(WM_NOTIFY, 0, reinterpret_cast<LPARAM>(&notification));
}

void PropertySheet::press(WORD id) {
    if (isBusy_) return;
    if (id == IDOK && apply(true)) end(IDOK);
    if (id == IDCANCEL) cancel(false);
    if (id == applyId) applyNow();
    if (id == IDHELP) tell(*current(), PSN_HELP);
}

bool PropertySheet::applyNow() {
    if (isBusy_ || !apply(false)) return false;
    tell(*current(), PSN_SETACTIVE);
    return true;
}

bool PropertySheet::apply(bool isClosing) {
    if (tell(*current(), PSN_KILLACTIVE) != FALSE) return false;
    for (Page& page : pages_)
        if (page.dialog && !applyTo(page, isClosing)) return false;
    for (Page& page : pages_)
        page.isChanged = false;
    noteChanges();
    return true;
}

// The page that has something to say against it is brought up.
bool PropertySheet::applyTo(Page& page, bool isClosing) {
    LRESULT answer = tell(page, PSN_APPLY, isClosing ? TRUE : FALSE);
    if (page.dialog && page.dialog->hasFailed()) answer = PSNRET_INVALID;
    if (answer != PSNRET_INVALID && answer != PSNRET_INVALID_NOCHANGEPAGE) return true;
    if (answer == PSNRET_INVALID)
        show(indexOf(page));
    else
        tell(*current(), PSN_SETACTIVE);
    return false;
}

void PropertySheet::cancel(bool byFrame) {
    if (isBusy_ || tell(*current(), PSN_QUERYCANCEL) != FALSE) return;
    for (Page& page : pages_)
        tell(page, PSN_RESET, byFrame ? TRUE : FALSE);
    end(IDCANCEL);
}

void PropertySheet::setChanged(HWND handle, bool isChanged) {
    if (Page* page = pageOf(handle)) page->isChanged = isChanged;
    noteChanges();
}

void PropertySheet::noteChanges() {
    const bool isChanged = std::any_of(pages_.begin(), pages_.end(), [](const Page& page) { return page.isChanged; });
    for (Window* button : children())
        if (button->id() == applyId) button->widget()->setEnabled(isChanged);
}

// What was done cannot be taken back any more.
void PropertySheet::turnCancelToClose() {
    for (Window* button : children()) {
        if (button->id() == IDCANCEL) button->widget()->setEnabled(false);
        if (button->id() == IDOK) button->send(WM_SETTEXT, 0, reinterpret_cast<LPARAM>(buttonText("Close").utf16()));
    }
}

LRESULT PropertySheet::querySiblings(WPARAM wParam, LPARAM lParam) {
    for (const Page& page : pages_) {
        const LRESULT answer = page.dialog ? page.dialog->send(PSM_QUERYSIBLINGS, wParam, lParam) : 0;
        if (answer != 0) return answer;
    }
    return 0;
}

LRESULT PropertySheet::answerByDefault(UINT message, WPARAM wParam, LPARAM lParam) {
    switch (message) {
    case WM_COMMAND:
        if (HIWORD(wParam) == BN_CLICKED) press(LOWORD(wParam));
        return 0;
    case WM_CLOSE:
        cancel(true);
        return 0;
    case WM_HELP:
        return current() ? tell(*current(), PSN_HELP) : 0;
    default:
        break;
    }
    const std::optional<LRESULT> answer = answerSheet(message, wParam, lParam);
    return answer ? *answer : Dialog::answerByDefault(message, wParam, lParam);
}

std::optional<LRESULT> PropertySheet::answerSheet(UINT message, WPARAM wParam, LPARAM lParam) {
    switch (message) {
    case PSM_CHANGED:
    case PSM_UNCHANGED:
        setChanged(reinterpret_cast<HWND>(wParam), message == PSM_CHANGED); // NOLINT: published
        return 0;
    case PSM_SETCURSEL:
        return isPage(wParam) && activate(static_cast<int>(wParam)) ? TRUE : FALSE;
    case PSM_SETCURSELID:
        return activateTemplate(static_cast<ULONG_PTR>(lParam)) ? TRUE : FALSE;
    case PSM_APPLY:
        return applyNow() ? TRUE : FALSE;
    case PSM_PRESSBUTTON:
        for (const ButtonRow& row : buttonRows)
            if (row.button == wParam) press(row.id);
        return 0;
    case PSM_CANCELTOCLOSE:
        turnCancelToClose();
        return 0;
    case PSM_QUERYSIBLINGS:
        return querySiblings(wParam, lParam);
    case PSM_GETTABCONTROL:
        return reinterpret_cast<LRESULT>(tabs_->handle());
    case PSM_GETCURRENTPAGEHWND:
        return current() && current()->dialog ? reinterpret_cast<LRESULT>(current()->dialog->handle()) : 0;
    case PSM_HWNDTOINDEX: {
        const Page* page = pageOf(reinterpret_cast<HWND>(wParam)); // NOLINT: published
        return page ? indexOf(*page) : -1;
    }
    case PSM_INDEXTOHWND:
        return isPage(wParam) && pages_[wParam].dialog ? reinterpret_cast<LRESULT>(pages_[wParam].dialog->handle()) : 0;
    case PSM_SETTITLEW:
        widget()->setWindowTitle(textFrom(lParam));
        return 0;
    default:
        return std::nullopt;
    }
}
