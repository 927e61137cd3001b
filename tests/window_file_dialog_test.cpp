#include "WindowListener.h"
#include "platform/common_dialogs.h"
#include "platform/posix/messageBox.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <QDir>
#include <QFile>
#include <QTemporaryDir>

#include <optional>

namespace {

constexpr int nameField = 1148;

// A user who meets a file dialog: types the name, presses the button, and presses Cancel if the dialog is still there.
struct Visitor {
    std::u16string name;
    int button = IDOK;
    // The button of the message box that comes up, 0 for one that must not come.
    int boxAnswer = 0;

    std::u16string offeredName;
    std::u16string title;
    std::u16string box;
    bool hasCome = false;
};
Visitor* visitor = nullptr;

std::u16string textOf(HWND window) {
    WCHAR text[300] = {};
    GetWindowTextW(window, text, 300);
    return text;
}

BOOL CALLBACK findDialog(HWND window, LPARAM found) {
    if (GetDlgItem(window, nameField) == nullptr) return TRUE;
    *reinterpret_cast<HWND*>(found) = window;
    return FALSE;
}

void CALLBACK visit(HWND, UINT, UINT_PTR, DWORD) {
    HWND dialog = nullptr;
    EnumThreadWindows(GetCurrentThreadId(), &findDialog, reinterpret_cast<LPARAM>(&dialog));
    if (dialog == nullptr) return;
    if (std::exchange(visitor->hasCome, true)) {
        SendMessageW(GetDlgItem(dialog, IDCANCEL), BM_CLICK, 0, 0);
        return;
    }
    visitor->title = textOf(dialog);
    visitor->offeredName = textOf(GetDlgItem(dialog, nameField));
    SetDlgItemTextW(dialog, nameField, toWide(visitor->name));
    SendMessageW(GetDlgItem(dialog, visitor->button), BM_CLICK, 0, 0);
}

int answerBox(void*, HWND, LPCWSTR text, LPCWSTR, UINT) {
    visitor->box = text;
    EXPECT_NE(visitor->boxAnswer, 0) << "an unexpected box";
    return visitor->boxAnswer;
}

class FileDialogTest : public testing::Test {
protected:
    FileDialogTest() : owner_(u"Static", 0) {
        hooks_ = installWindowHooks({nullptr, &answerBox, nullptr, nullptr});
        QFile(folder_.filePath("there.jtif")).open(QIODevice::WriteOnly);
        QFile(folder_.filePath("bare")).open(QIODevice::WriteOnly);
        QDir(folder_.path()).mkdir("inner");
        folderText_ = QDir::cleanPath(folder_.path()).toStdU16String();
        record_.lStructSize = sizeof record_;
        record_.hwndOwner = owner_.parent();
        record_.lpstrFilter = toWide(filter_);
        record_.lpstrFile = file_;
        record_.nMaxFile = static_cast<DWORD>(std::size(file_));
        record_.lpstrFileTitle = title_;
        record_.nMaxFileTitle = static_cast<DWORD>(std::size(title_));
        record_.lpstrInitialDir = toWide(folderText_);
    }
    ~FileDialogTest() override { installWindowHooks(hooks_); }

    BOOL run(Visitor& who, bool isSave) {
        visitor = &who;
        UINT_PTR timer = SetTimer(nullptr, 0, 50, &visit);
        BOOL result = isSave ? GetSaveFileNameW(&record_) : GetOpenFileNameW(&record_);
        KillTimer(nullptr, timer);
        EXPECT_TRUE(who.hasCome);
        return result;
    }
    std::u16string published(const char16_t* name) const {
        std::u16string path = folderText_ + u'/' + name;
        std::replace(path.begin(), path.end(), u'/', u'\\');
        return path;
    }

    WindowListener owner_;
    WindowHooks hooks_;
    QTemporaryDir folder_;
    std::u16string folderText_;
    const char16_t* filter_ = u"Tickets (*.jtif)\0*.jtif\0All files\0*.*\0";
    WCHAR file_[300] = {};
    WCHAR title_[100] = {};
    OPENFILENAMEW record_{};
};

TEST_F(FileDialogTest, takesWhatItsFlagsAllow) {
    struct Row {
        const char* name;
        bool isSave;
        DWORD flags;
        const char16_t* typed;
        int boxAnswer;
        // Null for no choice.
        const char16_t* chosen;
        const char16_t* boxHas;
    };
    const Row rows[] = {
        {"a file that is there", false, OFN_FILEMUSTEXIST, u"there.jtif", 0, u"there.jtif", u""},
        {"without its extension", false, OFN_FILEMUSTEXIST, u"there", 0, u"there.jtif", u""},
        {"one that has none", false, OFN_FILEMUSTEXIST, u"bare", 0, u"bare", u""},
        {"a missing file", false, OFN_FILEMUSTEXIST, u"missing.jtif", IDOK, nullptr, u"not found"},
        {"a missing file that may be missing", false, 0, u"missing.jtif", 0, u"missing.jtif", u""},
        {"a missing folder", true, OFN_PATHMUSTEXIST, u"nowhere\\new.jtif", IDOK, nullptr, u"Directory not found"},
        {"a new file", true, OFN_PATHMUSTEXIST | OFN_OVERWRITEPROMPT, u"new", 0, u"new.jtif", u""},
        {"a folder of it", true, OFN_PATHMUSTEXIST, u"inner\\new", 0, u"inner/new.jtif", u""},
        {"an old file, yes", true, OFN_OVERWRITEPROMPT, u"there", IDYES, u"there.jtif", u"already exists"},
        {"an old file, no", true, OFN_OVERWRITEPROMPT, u"there", IDNO, nullptr, u"already exists"},
        {"an old file without the question", true, 0, u"there.jtif", 0, u"there.jtif", u""},
        {"a folder alone", false, 0, u"inner", 0, nullptr, u""},
    };
    for (const Row& row : rows) {
        SCOPED_TRACE(row.name);
        file_[0] = 0;
        record_.Flags = row.flags | OFN_EXPLORER | OFN_HIDEREADONLY;
        record_.lpstrDefExt = u"jtif";
        Visitor who{row.typed, IDOK, row.boxAnswer, {}, {}, {}, false};
        EXPECT_EQ(run(who, row.isSave), row.chosen != nullptr ? TRUE : FALSE);
        EXPECT_EQ(CommDlgExtendedError(), 0U);
        EXPECT_EQ(std::u16string(file_), row.chosen == nullptr ? u"" : published(row.chosen));
        EXPECT_EQ(who.box.empty(), row.boxHas[0] == 0);
        EXPECT_NE(who.box.find(row.boxHas), std::u16string::npos);
    }
}

TEST_F(FileDialogTest, givesBackWhereTheNameIs) {
    record_.nFilterIndex = 2;
    Visitor who{u"there.jtif", IDOK, 0, {}, {}, {}, false};
    EXPECT_EQ(run(who, false), TRUE);
    EXPECT_EQ(std::u16string(title_), u"there.jtif");
    EXPECT_EQ(std::u16string(file_ + record_.nFileOffset), u"there.jtif");
    EXPECT_EQ(std::u16string(file_ + record_.nFileExtension), u"jtif");
    EXPECT_EQ(record_.nFilterIndex, 2U);
}

TEST_F(FileDialogTest, offersTitleAndNameOfTheProgram) {
    std::u16string path = published(u"there.jtif");
    std::copy(path.begin(), path.end(), file_);
    record_.lpstrTitle = u"Load a ticket";
    record_.lpstrInitialDir = nullptr;
    Visitor who{u"there.jtif", IDCANCEL, 0, {}, {}, {}, false};
    EXPECT_EQ(run(who, false), FALSE);
    EXPECT_EQ(CommDlgExtendedError(), 0U) << "Cancel is no failure";
    EXPECT_EQ(who.title, u"Load a ticket");
    EXPECT_EQ(who.offeredName, u"there.jtif");
    EXPECT_EQ(std::u16string(file_), path) << "as it was";
    EXPECT_NE(IsWindowEnabled(owner_.parent()), FALSE);
}

TEST_F(FileDialogTest, saysHowMuchRoomThePathNeeds) {
    record_.nMaxFile = 5;
    Visitor who{u"there.jtif", IDOK, 0, {}, {}, {}, false};
    EXPECT_EQ(run(who, false), FALSE);
    EXPECT_EQ(CommDlgExtendedError(), FNERR_BUFFERTOOSMALL);
    EXPECT_EQ(file_[0], published(u"there.jtif").size() + 1);
}

TEST_F(FileDialogTest, refusesARecordThatIsNone) {
    record_.lStructSize = 12;
    EXPECT_EQ(GetOpenFileNameW(&record_), FALSE);
    EXPECT_EQ(CommDlgExtendedError(), CDERR_STRUCTSIZE);
    EXPECT_EQ(GetSaveFileNameW(nullptr), FALSE);
    EXPECT_EQ(CommDlgExtendedError(), CDERR_INITIALIZATION);
}

} // namespace
