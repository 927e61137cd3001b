#include "platform/qt/HelpWindow.h"

#include "platform/controls.h"
#include "platform/qt/controlClasses.h"
#include "platform/qt/windowCalls.h"

#include <QCoreApplication>
#include <QFileInfo>
#include <QHBoxLayout>
#include <QScreen>
#include <QTextBrowser>
#include <QVBoxLayout>

namespace {

constexpr WORD fontSize = 9;
constexpr WORD textId = 100;
constexpr int textMargin = 12;
constexpr QSize comfortable(520, 560);
constexpr char16_t textClassName[] = u"HelpText";

// The text of a page, which reads out to programs and is left to the toolkit in everything else.
class HelpText : public Window {
public:
    explicit HelpText(std::unique_ptr<QTextBrowser> browser)
        : Window(std::move(browser), {textClassName, WS_CHILD | WS_VISIBLE | WS_TABSTOP, 0, textId, {}}) {}

    LRESULT answer(UINT message, WPARAM wParam, LPARAM lParam) override {
        switch (message) {
        case WM_GETTEXT:
            return copyText(text(), wParam, lParam);
        case WM_GETTEXTLENGTH:
            return text().size();
        case WM_GETDLGCODE:
            return DLGC_WANTARROWS | DLGC_WANTTAB; // Tab goes from link to link
        default:
            return Window::answer(message, wParam, lParam);
        }
    }

private:
    QString text() const { return static_cast<const QTextBrowser*>(widget())->toPlainText(); }
};

QString textStyle() {
    return QStringLiteral("h1 { font-size: large; margin-top: 8px; margin-bottom: 0px; }"
                          "h2 { font-size: medium; margin-top: 14px; margin-bottom: 0px; }"
                          "p, li { margin-top: 4px; margin-bottom: 4px; }");
}

} // namespace

QString HelpWindow::findPage(const QString& helpFile, ULONG_PTR topic) {
    const QFileInfo named(helpFile);
    const QString folder = named.path() + u'/' + named.completeBaseName() + u'/';
    for (const QString& name : {QString::number(topic), QStringLiteral("contents")}) {
        const QFileInfo page(folder + name + QStringLiteral(".html"));
        if (page.isFile() && page.isReadable()) return page.absoluteFilePath();
    }
    return {};
}

HelpWindow* HelpWindow::beside(Window& owner) {
    for (Window* window : owner.root().owned())
        if (auto* help = dynamic_cast<HelpWindow*>(window)) return help;
    return nullptr;
}

void HelpWindow::show(Window& owner, const QString& page) {
    HelpWindow* help = beside(owner);
    if (help == nullptr) {
        help = &static_cast<HelpWindow&>(keep(std::unique_ptr<Window>(new HelpWindow(owner))));
        help->layOut();
    }
    help->open(page);
}

void HelpWindow::closeBeside(Window& owner) {
    if (HelpWindow* help = beside(owner)) help->destroy();
}

HelpWindow::HelpWindow(Window& owner)
    : Dialog(std::make_unique<QWidget>(owner.root().widget(), Qt::Dialog),
             {dialogClassName, WS_POPUP | WS_CAPTION | WS_SYSMENU | WS_THICKFRAME, WS_EX_CONTROLPARENT, 0, {}},
             dialogFont(fontSize, u"MS Shell Dlg"), nullptr) {}

void HelpWindow::layOut() {
    auto browser = std::make_unique<QTextBrowser>(widget());
    text_ = browser.get();
    text_->document()->setDefaultStyleSheet(textStyle());
    text_->document()->setDocumentMargin(textMargin);
    connect(text_, &QTextBrowser::sourceChanged, this, [this] { widget()->setWindowTitle(text_->documentTitle()); });
    keep(std::make_unique<HelpText>(std::move(browser)));
    WindowTraits close{WC_BUTTONW, WS_CHILD | WS_VISIBLE | WS_TABSTOP | BS_PUSHBUTTON, 0, IDCANCEL, {}};
    close.text = QCoreApplication::translate("QPlatformTheme", "Close").toStdU16String();
    Window& button = keep(makeButton(close, widget()));
    auto* column = new QVBoxLayout(widget());
    column->addWidget(text_, 1);
    column->addWidget(button.widget(), 0, Qt::AlignRight);
    widget()->resize(comfortable.boundedTo(widget()->screen()->availableSize()));
    standBeside(owner()->widget()->frameGeometry());
}

// Where the screen has no room on either side it stands where the desktop puts it.
void HelpWindow::standBeside(const QRect& sheet) {
    const QRect screen = widget()->screen()->availableGeometry();
    const int right = sheet.right() + 1;
    const int left = sheet.left() - widget()->width();
    if (right + widget()->width() <= screen.right())
        widget()->move(right, sheet.top());
    else if (left >= screen.left())
        widget()->move(left, sheet.top());
}

void HelpWindow::open(const QString& page) {
    text_->setSource(QUrl::fromLocalFile(page));
    widget()->show();
    widget()->raise();
    widget()->activateWindow();
    text_->setFocus();
}

// Enter on a link that Tab has come to.
void HelpWindow::followLink() {
    QTextCursor cursor = text_->textCursor();
    if (!cursor.hasSelection()) return;
    cursor.setPosition(cursor.selectionStart() + 1);
    const QString link = cursor.charFormat().anchorHref();
    if (!link.isEmpty()) text_->setSource(text_->source().resolved(QUrl(link)));
}

LRESULT HelpWindow::answerByDefault(UINT message, WPARAM wParam, LPARAM lParam) {
    if (message != WM_COMMAND) return Dialog::answerByDefault(message, wParam, lParam);
    if (LOWORD(wParam) == IDOK) followLink();
    if (LOWORD(wParam) == IDCANCEL) destroy();
    return 0;
}

namespace qt {

BOOL WinHelpW(HWND hWndMain, LPCWSTR lpszHelp, UINT uCommand, ULONG_PTR dwData) {
    Window* owner = Window::of(hWndMain);
    if (owner == nullptr) return FALSE;
    if (uCommand == HELP_QUIT) return HelpWindow::closeBeside(*owner), TRUE;
    const QString file = textFrom(lpszHelp).replace(u'\\', u'/');
    const QString page = HelpWindow::findPage(file, uCommand == HELP_CONTEXT ? dwData : 0);
    if (!page.isEmpty()) return HelpWindow::show(*owner, page), TRUE;
    const std::u16string text = QStringLiteral("The help file was not found:\n%1").arg(file).toStdU16String();
    ::MessageBoxW(hWndMain, toWide(text), u"Help", MB_OK | MB_ICONEXCLAMATION);
    SetLastError(ERROR_FILE_NOT_FOUND);
    return FALSE;
}

} // namespace qt
