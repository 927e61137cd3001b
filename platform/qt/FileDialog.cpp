#include "platform/qt/FileDialog.h"

#include "platform/controls.h"
#include "platform/qt/FileChooser.h"
#include "platform/qt/windowCalls.h"

#include <QApplication>
#include <QDir>
#include <QFileInfo>
#include <QStandardPaths>

namespace {

// Where the last choice was made, for the dialogs that are given no folder.
QString& lastFolder() {
    static QString folder;
    return folder;
}

QString usualFolder() {
    if (QFileInfo(lastFolder()).isDir()) return lastFolder();
    QString documents = QStandardPaths::writableLocation(QStandardPaths::DocumentsLocation);
    return QFileInfo(documents).isDir() ? documents : QDir::homePath();
}

// Keys go the dialog's own ways from one of its parts to the next.
constexpr LRESULT ownKeys = DLGC_WANTTAB | DLGC_WANTARROWS | DLGC_WANTCHARS | DLGC_WANTALLKEYS;

class NameField : public Window {
public:
    NameField(QLineEdit& field, WindowTraits traits)
        : Window(std::unique_ptr<QWidget>(&field), std::move(traits)), field_(field) {}

    LRESULT answer(UINT message, WPARAM wParam, LPARAM lParam) override {
        switch (message) {
        case WM_SETTEXT:
            return field_.setText(textFrom(lParam)), TRUE;
        case WM_GETTEXT:
            return copyText(field_.text(), wParam, lParam);
        case WM_GETTEXTLENGTH:
            return field_.text().size();
        case WM_GETDLGCODE:
            return ownKeys | DLGC_HASSETSEL;
        case EM_SETSEL:
            return field_.selectAll(), 0;
        default:
            return Window::answer(message, wParam, lParam);
        }
    }

private:
    QLineEdit& field_;
};

class ChooserButton : public Window {
public:
    ChooserButton(QPushButton& button, WindowTraits traits)
        : Window(std::unique_ptr<QWidget>(&button), std::move(traits)), button_(button) {}

    LRESULT answer(UINT message, WPARAM wParam, LPARAM lParam) override {
        switch (message) {
        case BM_CLICK:
            return notifyCommand(BN_CLICKED), 0;
        case WM_GETTEXT:
            return copyText(button_.text(), wParam, lParam);
        case WM_GETTEXTLENGTH:
            return button_.text().size();
        case WM_GETDLGCODE:
            return ownKeys | DLGC_BUTTON;
        default:
            return Window::answer(message, wParam, lParam);
        }
    }

private:
    QPushButton& button_;
};

WindowTraits traitsOf(const char16_t* className, DWORD style, WORD id) {
    WindowTraits traits;
    traits.className = className;
    traits.style = style;
    traits.id = id;
    return traits;
}

QString shownFilter(const FileFilter& filter) {
    QString patterns = u'(' + filter.patterns.join(u' ') + u')';
    QString label = filter.label;
    // Labels often end with their patterns already.
    if (qsizetype bracket = label.lastIndexOf(u'('); bracket > 0 && label.endsWith(u')')) label.truncate(bracket);
    return label.trimmed() + u' ' + patterns;
}

} // namespace

FileDialog& FileDialog::make(FileChoice& choice, bool isSave, Window* owner) {
    QWidget* parent = owner == nullptr ? nullptr : owner->root().widget();
    WindowTraits traits = traitsOf(dialogClassName, WS_POPUP | WS_CAPTION | WS_SYSMENU | WS_THICKFRAME, 0);
    auto dialog =
        std::make_unique<FileDialog>(std::make_unique<FileChooser>(parent, isSave), std::move(traits), choice, isSave);
    return static_cast<FileDialog&>(Window::keep(std::move(dialog)));
}

FileDialog::FileDialog(std::unique_ptr<FileChooser> chooser, WindowTraits traits, FileChoice& choice, bool isSave)
    : Dialog(std::unique_ptr<QWidget>(chooser.release()), std::move(traits), QApplication::font(), nullptr),
      chooser_(static_cast<FileChooser&>(*widget())),
      choice_(choice),
      isSave_(isSave) {
    adoptControls();
    fill();
    chooser_.accepting = [this] { accept(); };
    chooser_.rejecting = [this] { end(IDCANCEL); };
}

void FileDialog::adoptControls() {
    constexpr DWORD style = WS_CHILD | WS_VISIBLE | WS_TABSTOP;
    QLineEdit& field = chooser_.nameField();
    Window::keep(std::make_unique<NameField>(field, traitsOf(u"Edit", style | ES_AUTOHSCROLL, fileNameFieldId)));
    Window::keep(
        std::make_unique<ChooserButton>(chooser_.acceptButton(), traitsOf(u"Button", style | BS_DEFPUSHBUTTON, IDOK)));
    Window::keep(
        std::make_unique<ChooserButton>(chooser_.rejectButton(), traitsOf(u"Button", style | BS_PUSHBUTTON, IDCANCEL)));
    send(DM_SETDEFID, IDOK);
}

void FileDialog::fill() {
    if (!choice_.title.isEmpty()) chooser_.setWindowTitle(choice_.title);
    QStringList filters;
    for (const FileFilter& filter : choice_.filters)
        filters += shownFilter(filter);
    if (!filters.isEmpty()) {
        chooser_.setNameFilters(filters);
        chooser_.selectNameFilter(filters[choice_.filter]);
    }
    chooser_.setDirectory(QFileInfo(choice_.folder).isDir() ? choice_.folder : usualFolder());
    chooser_.nameField().setText(choice_.name);
    chooser_.nameField().selectAll();
    chooser_.nameField().setFocus();
}

LRESULT FileDialog::answerByDefault(UINT message, WPARAM wParam, LPARAM lParam) {
    switch (message) {
    case WM_COMMAND:
        if (LOWORD(wParam) == IDOK) accept();
        if (LOWORD(wParam) == IDCANCEL) end(IDCANCEL);
        return 0;
    case WM_GETDLGCODE:
        return ownKeys;
    default:
        return Dialog::answerByDefault(message, wParam, lParam);
    }
}

QString FileDialog::typedPath() const {
    QString typed = chooser_.nameField().text().replace(u'\\', u'/');
    if (typed == u"~" || typed.startsWith(u"~/")) typed = QDir::homePath() + typed.mid(1);
    return typed.trimmed().isEmpty() ? QString() : QDir::cleanPath(chooser_.directory().absoluteFilePath(typed));
}

void FileDialog::accept() {
    QString path = typedPath();
    if (path.isEmpty()) return;
    if (QFileInfo(path).isDir()) {
        chooser_.setDirectory(path);
        chooser_.nameField().clear();
        return;
    }
    path = choice_.completed(path);
    QPointer<FileDialog> self = this;
    if (!isAllowed(path) || self == nullptr || isEnded()) return;
    lastFolder() = QFileInfo(path).path();
    choice_.path = path;
    choice_.filter = std::max(static_cast<int>(chooser_.nameFilters().indexOf(chooser_.selectedNameFilter())), 0);
    end(IDOK);
}

bool FileDialog::isAllowed(const QString& path) {
    QFileInfo file(path);
    if (choice_.wants(OFN_NOVALIDATE)) return true;
    bool mustBeThere = choice_.wants(OFN_FILEMUSTEXIST);
    if ((mustBeThere || choice_.wants(OFN_PATHMUSTEXIST)) && !file.dir().exists())
        return refuse(file, "%1\nDirectory not found.\nPlease verify the correct directory name was given.");
    if (mustBeThere && !file.exists())
        return refuse(file, "%1\nFile not found.\nPlease verify the correct file name was given.");
    if (file.exists() && !file.isFile()) return refuse(file, "%1\nThis is no file. Choose another name.");
    if (isSave_ && file.exists() && choice_.wants(OFN_NOREADONLYRETURN) && !file.isWritable())
        return refuse(file, "%1\nThe file cannot be changed. Choose another name.");
    if (isSave_ && file.exists() && choice_.wants(OFN_OVERWRITEPROMPT))
        return ask(file, "%1 already exists.\nDo you want to replace it?");
    if (!file.exists() && choice_.wants(OFN_CREATEPROMPT))
        return ask(file, "%1 does not exist.\nDo you want to create it?");
    return true;
}

bool FileDialog::refuse(const QFileInfo& file, const char* why) {
    QPointer<FileDialog> self = this;
    showBox(file, why, MB_OK | MB_ICONWARNING);
    if (self != nullptr && handle() != nullptr) chooser_.nameField().selectAll();
    return false;
}

bool FileDialog::ask(const QFileInfo& file, const char* question) {
    return showBox(file, question, MB_YESNO | MB_ICONWARNING | MB_DEFBUTTON2) == IDYES;
}

// In the user's language, as far as the toolkit's own dialog says the same.
int FileDialog::showBox(const QFileInfo& file, const char* text, UINT type) {
    std::u16string body = QCoreApplication::translate("QFileDialog", text).arg(file.fileName()).toStdU16String();
    std::u16string caption = chooser_.windowTitle().toStdU16String();
    return ::MessageBoxW(handle(), toWide(body), toWide(caption), type);
}

namespace qt {

namespace {

thread_local DWORD lastFault = 0;

BOOL chooseFile(LPOPENFILENAMEW record, bool isSave) {
    lastFault = faultOf(record);
    if (lastFault != 0) return FALSE;
    try {
        Window* owner = record->hwndOwner == nullptr ? nullptr : Window::of(record->hwndOwner);
        FileChoice choice(*record);
        FileDialog::make(choice, isSave, owner).runModal();
        if (choice.path.isEmpty()) return FALSE;
        lastFault = giveBack(choice, *record);
    } catch (...) {
        lastFault = CDERR_MEMALLOCFAILURE;
    }
    return lastFault == 0 ? TRUE : FALSE;
}

} // namespace

BOOL GetOpenFileNameW(LPOPENFILENAMEW lpofn) { return chooseFile(lpofn, false); }

BOOL GetSaveFileNameW(LPOPENFILENAMEW lpofn) { return chooseFile(lpofn, true); }

DWORD CommDlgExtendedError() { return lastFault; }

} // namespace qt
