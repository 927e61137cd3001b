// Dialogs on somebody's desktop: what a screen reader hears, where the focus is seen, light and dark, and message
// boxes.
#include "platform/gdi.h"
#include "tests/dialogStage.h"

#include <QAccessible>
#include <QDBusConnection>
#include <QDBusMessage>
#include <QDBusVariant>
#include <QThread>
#include <QWidget>

#include <gmock/gmock.h>

TEST_F(Dialogs, aScreenReaderHearsWhatEachControlIs) {
    struct Row {
        const char16_t* className;
        DWORD style;
        const char16_t* text;
        const char* name;
        QAccessible::Role role;
    };
    // Each stands behind a label "Copies:".
    const Row rows[] = {
        {u"Edit", 0, u"7", "Copies:", QAccessible::EditableText},
        {u"Edit", ES_MULTILINE, u"7", "Copies:", QAccessible::EditableText},
        {u"ComboBox", CBS_DROPDOWNLIST, u"", "Copies:", QAccessible::ComboBox},
        {u"ComboBox", CBS_DROPDOWN, u"", "Copies:", QAccessible::EditableText},
        {u"ListBox", 0, u"", "Copies:", QAccessible::List},
        {u"SysListView32", LVS_REPORT, u"", "Copies:", QAccessible::Tree},
        {u"SysListView32", LVS_ICON, u"", "Copies:", QAccessible::List},
        {u"msctls_trackbar32", 0, u"", "Copies:", QAccessible::Slider},
        {u"Button", BS_PUSHBUTTON, u"&More", "More", QAccessible::Button},
        {u"Button", BS_OWNERDRAW, u"&Load", "Load", QAccessible::Button},
        {u"Button", BS_AUTOCHECKBOX, u"&Collate", "Collate", QAccessible::CheckBox},
        {u"Button", BS_AUTORADIOBUTTON, u"&All", "All", QAccessible::RadioButton},
    };
    for (const Row& row : rows) {
        HWND dialog =
            open({{u"Static", SS_LEFT, label, u"&Copies:"}, {row.className, row.style | WS_TABSTOP, editA, row.text}});
        key(VK_TAB);
        ASSERT_EQ(focusedId(), editA) << row.name;
        QAccessibleInterface* heard = QAccessible::queryAccessibleInterface(QApplication::focusWidget());
        ASSERT_NE(heard, nullptr);
        EXPECT_EQ(heard->text(QAccessible::Name).toStdString(), row.name)
            << QString::fromUtf16(row.className).toStdString();
        SetDlgItemTextW(dialog, label, u"Num&ber:");
        const bool isCalledByLabel = row.name == std::string("Copies:");
        EXPECT_EQ(heard->text(QAccessible::Name).toStdString(), isCalledByLabel ? "Number:" : row.name);
        EXPECT_EQ(heard->role(), row.role) << QString::fromUtf16(row.className).toStdString() << " " << row.style;
    }
}

TEST_F(Dialogs, theKeysShowWhereTheyGo) {
    const std::vector<DialogItem> items = {
        {u"Button", BS_PUSHBUTTON | WS_TABSTOP, 201, u"Push"},
        {u"Button", BS_OWNERDRAW | WS_TABSTOP, 202, u"Drawn"},
        {u"Button", BS_AUTOCHECKBOX | WS_TABSTOP, 203, u"Tick"},
        {u"Button", BS_AUTORADIOBUTTON | WS_TABSTOP, 204, u"One"},
        {u"Edit", WS_TABSTOP | WS_BORDER, 205, u""},
        {u"ComboBox", CBS_DROPDOWNLIST | WS_TABSTOP, 206, u""},
        {u"msctls_trackbar32", WS_TABSTOP, 207, u""},
    };
    open(items);
    for (const DialogItem& item : items) {
        QWidget* focused = QApplication::focusWidget();
        ASSERT_EQ(focusedId(), item.id);
        const QImage with = focused->grab().toImage();
        key(VK_TAB);
        EXPECT_NE(with, focused->grab().toImage()) << item.id;
    }
}

// Runs in a process of its own, on a bus of its own, where it is the desktop, too.
TEST_F(Dialogs, DISABLED_theDesktopChangesItsColours) {
    int told = 0;
    onMessage = [&](HWND, UINT message, WPARAM, LPARAM) -> INT_PTR {
        told += message == WM_SYSCOLORCHANGE ? 1 : 0;
        return message == WM_INITDIALOG;
    };
    open({firstEdit, okButton});
    QDBusConnection desktop = QDBusConnection::connectToBus(QDBusConnection::SessionBus, "desktop");
    ASSERT_TRUE(desktop.registerService("org.freedesktop.portal.Desktop"));
    struct Row {
        const char* setting;
        uint preference;
        bool isDark;
        int told;
    };
    const Row rows[] = {
        {"color-scheme", 1, true, 1}, {"accent-color", 0, true, 0},  {"color-scheme", 2, false, 1},
        {"color-scheme", 1, true, 1}, {"color-scheme", 0, false, 1},
    };
    for (const Row& row : rows) {
        told = 0;
        QDBusMessage change = QDBusMessage::createSignal("/org/freedesktop/portal/desktop",
                                                         "org.freedesktop.portal.Settings", "SettingChanged");
        change << "org.freedesktop.appearance" << row.setting
               << QVariant::fromValue(QDBusVariant(QVariant(row.preference)));
        ASSERT_TRUE(desktop.send(change));
        for (int wait = 0; wait < 100 && told < row.told; ++wait) {
            QThread::msleep(10);
            runEvents();
        }
        EXPECT_EQ(told, row.told) << row.setting << " " << row.preference;
        EXPECT_EQ(GetRValue(GetSysColor(COLOR_WINDOW)) < 128, row.isDark) << row.preference;
        QImage seen = QApplication::activeWindow()->grab().toImage();
        EXPECT_EQ(seen.pixelColor(2, seen.height() - 3).lightness() < 128, row.isDark) << row.preference;
        QImage field = QApplication::focusWidget()->grab().toImage();
        EXPECT_EQ(field.pixelColor(field.width() - 4, 4).lightness() < 128, row.isDark) << row.preference;
    }
}

TEST_F(Dialogs, everythingFollowsTheDesktopFromLightToDark) {
    if (std::system("command -v dbus-run-session > /dev/null") != 0) GTEST_SKIP() << "there is no bus to ask";
    ProcessResult result = runDisabled("Dialogs.DISABLED_theDesktopChangesItsColours",
                                       {"/usr/bin/env", "KOLMA_COLOR_SCHEME=desktop", "dbus-run-session", "--"});
    EXPECT_EQ(result.exitCode, 0) << result.out << result.error;
}

TEST_F(Dialogs, aMessageBoxIsFoundAndAnsweredLikeAnyWindow) {
    struct Row {
        UINT type;
        std::vector<int> buttons;
        int escape; // 0: the box stays
        int byDefault;
    };
    const Row rows[] = {
        {MB_OK, {IDOK}, IDOK, IDOK},
        {MB_OKCANCEL | MB_ICONWARNING, {IDOK, IDCANCEL}, IDCANCEL, IDOK},
        {MB_YESNO | MB_DEFBUTTON2 | MB_ICONQUESTION, {IDYES, IDNO}, 0, IDNO},
        {MB_YESNOCANCEL | MB_DEFBUTTON3, {IDYES, IDNO, IDCANCEL}, IDCANCEL, IDCANCEL},
        {MB_ABORTRETRYIGNORE | MB_ICONERROR, {IDABORT, IDRETRY, IDIGNORE}, 0, IDABORT},
        {MB_RETRYCANCEL, {IDRETRY, IDCANCEL}, IDCANCEL, IDRETRY},
    };
    HWND owner = open({firstEdit});
    for (const Row& row : rows) {
        auto show = [&] { return MessageBoxW(owner, u"The text.\r\n", u"The title", row.type); };
        inside([&](HWND box) {
            EXPECT_EQ(textOf(box), u"The title");
            EXPECT_EQ(textOf(GetDlgItem(box, IDC_STATIC)), u"The text.");
            EXPECT_EQ(GetParent(box), owner);
            EXPECT_EQ(focusedId(), row.byDefault) << row.type;
            for (int id = IDOK; id <= IDNO; ++id) {
                bool isWanted = std::ranges::find(row.buttons, id) != row.buttons.end();
                EXPECT_EQ(GetDlgItem(box, id) != nullptr, isWanted) << row.type << " button " << id;
            }
            key(VK_ESCAPE);
            if (row.escape == 0) SendDlgItemMessageW(box, row.buttons.back(), BM_CLICK, 0, 0);
        });
        EXPECT_EQ(show(), row.escape == 0 ? row.buttons.back() : row.escape) << row.type;
        inside([](HWND) { key(VK_RETURN); });
        EXPECT_EQ(show(), row.byDefault) << row.type;
    }
}

TEST_F(Dialogs, aMessageBoxStaysOnTheScreenWhateverItSays) {
    const std::u16string word(400, u'w');
    std::u16string lines;
    for (int i = 0; i < 500; ++i)
        lines += u"One more line of many.\n";
    const std::pair<std::u16string, std::u16string> boxes[] = {
        {u"Short", u"Load /a/ticket.jtif " + word}, {u"Load " + word, u"Short"}, {u"Long", word}, {u"Long", lines}};
    for (const auto& [caption, text] : boxes) {
        inside([](HWND box) {
            RECT screen;
            RECT button;
            SystemParametersInfoW(SPI_GETWORKAREA, 0, &screen, 0);
            GetWindowRect(GetDlgItem(box, IDOK), &button);
            EXPECT_TRUE(button.right <= screen.right && button.bottom <= screen.bottom)
                << button.right << ", " << button.bottom;
            EndDialog(box, IDOK);
        });
        MessageBoxW(nullptr, text.c_str(), caption.c_str(), MB_OK | MB_ICONERROR);
    }
}
