// Lists and tables on the real window layer: what is chosen, how wide they are, and which clicks and keys observers
// hear of.
#include "plugin_ui/Controls/ComboBoxUIControl.h"
#include "plugin_ui/Controls/ListBoxUIControl.h"
#include "plugin_ui/Controls/ListViewUIControl.h"
#include "tests/controlStage.h"

namespace {

TEST_F(UiControls, aComboBoxWorksWithDataWords) {
    auto& control = show<ComboBoxUIControl>(label, combo);
    EXPECT_FALSE(control.selectFirstIfNone()) << "there is none";
    control.addItem(u"Blue", 130);
    control.addItem(u"A word above 31 bits", 0xFFFFFFFFU);
    control.addItem(u"", 517);
    control.setSelectedData(0xFFFFFFFFU);
    EXPECT_EQ(control.getCurrentIndex(), 1);
    EXPECT_FALSE(control.selectFirstIfNone());
    control.replaceItem(0, u"Red", 134);
    EXPECT_EQ(hands.entries(combo), (std::vector<std::u16string>{u"Red", u"A word above 31 bits", u""}));
    EXPECT_EQ(hands.chosen(combo), u"Red");
    control.setSelectedData(130);
    EXPECT_EQ(control.getCurrentIndex(), -1) << "no entry has the word";
    EXPECT_EQ(counter.take(), 0);
    EXPECT_TRUE(control.selectFirstIfNone());
    EXPECT_EQ(control.getSelectedData(), 134U);
    EXPECT_EQ(counter.take(), 1);
    hands.choose(combo, 2);
    hands.choose(combo, 2);
    EXPECT_EQ(counter.take(), 2) << "the same entry counts too";
    EXPECT_EQ(control.getSelectedData(), 517U);
    EXPECT_EQ(control.getText(), u"");
    control.deleteItem(2);
    EXPECT_EQ(control.findData(517), -1);
    control.clear();
    EXPECT_TRUE(hands.entries(combo).empty());
}

TEST_F(UiControls, anOpenListIsAsWideAsItsLongestTextAndTheScreenAllows) {
    auto& control = show<ComboBoxUIControl>(label, combo);
    RECT place{};
    RECT desktop{};
    GetWindowRect(hands.item(combo), &place);
    GetWindowRect(GetDesktopWindow(), &desktop);
    const auto width = [&] { return static_cast<LONG>(hands.send(combo, CB_GETDROPPEDWIDTH)); };
    control.addItem(std::u16string(60, u'W'), 1);
    const LONG wide = width();
    EXPECT_GT(wide, place.right - place.left);
    control.addItem(u"short", 2);
    EXPECT_EQ(width(), wide);
    control.addItem(std::u16string(3000, u'W'), 3);
    EXPECT_EQ(width(), desktop.right - place.left - 12);
    control.deleteItem(2);
    EXPECT_EQ(width(), wide);
}

TEST_F(UiControls, aListBoxTellsOfAnotherDataWord) {
    auto& control = show<ListBoxUIControl>(label, list);
    control.addItem(u"One", 1);
    control.addItem(u"Two", 2);
    control.setSelectedData(7);
    EXPECT_EQ(hands.send(list, LB_GETCURSEL), LB_ERR);
    control.replaceItem(1, u"Three", 3);
    EXPECT_EQ(hands.send(list, LB_GETCOUNT), 2);
    hands.command(list, LBN_SELCHANGE);
    hands.command(list, LBN_SELCHANGE);
    EXPECT_EQ(control.getSelectedData(), 3U);
    EXPECT_EQ(counter.take(), 1);
}

TEST_F(UiControls, aTableKeepsTextsDataChecksAndSelection) {
    auto& control = show<ListViewUIControl>(table);
    control.addColumn(0, 80, u"Name");
    control.addColumn(1, -1, u"Size");
    EXPECT_EQ(control.addRow(), 0);
    EXPECT_EQ(control.addRow(LPARAM{4711}), 1);
    control.setCellText(1, 0, u"Plain");
    control.setCellText(1, 1, u"A4");
    EXPECT_EQ(control.getCellText(1, 0), u"Plain");
    EXPECT_EQ(control.getCellText(1, 1), u"A4");
    EXPECT_EQ(control.getCellText(0, 0), u"");
    EXPECT_EQ(control.nextSelectedRow(0), -1);
    EXPECT_FALSE(control.nextSelectedData(0).has_value());
    control.selectRow(1);
    EXPECT_EQ(control.getSelectedCount(), 1);
    EXPECT_EQ(control.nextSelectedRow(0), 1);
    EXPECT_EQ(control.nextSelectedData(1), LPARAM{4711});
    EXPECT_EQ(control.nextSelectedRow(2), -1);
    control.setCheckBoxes(true);
    control.setRowChecked(0, true);
    EXPECT_TRUE(control.isRowChecked(0));
    EXPECT_FALSE(control.isRowChecked(1));
    control.deleteRow(0);
    EXPECT_EQ(control.getCellText(0, 1), u"A4");
    open();
    EXPECT_EQ(hands.send(table, LVM_GETITEMCOUNT), 0);
}

// What an observer of a table sees while it is told.
class TableWatcher final : public Observer {
public:
    explicit TableWatcher(const ListViewUIControl& table) : table_(table) {}
    void handleSubjectUpdate(std::uint16_t) override { seen += table_.wasDoubleClicked() ? u"double " : u"single "; }
    std::u16string seen;

private:
    const ListViewUIControl& table_;
};

TEST_F(UiControls, aTableTellsAClickFromADoubleClickAndIgnoresItsEmptyArea) {
    auto& control = show<ListViewUIControl>(table);
    TableWatcher watcher(control);
    control.addObserver(watcher);
    control.addRow();
    control.addRow();
    const auto notify = [&](UINT code, int row) {
        NMITEMACTIVATE notification{};
        notification.hdr = {hands.item(table), table, code};
        notification.iItem = row;
        SendMessageW(hands.window(), WM_NOTIFY, table, reinterpret_cast<LPARAM>(&notification));
    };
    notify(NM_CLICK, 1);
    EXPECT_EQ(control.getCurrentRow(), 1);
    notify(NM_CLICK, -1);
    notify(NM_DBLCLK, -1);
    notify(LVN_ITEMCHANGED, 0);
    EXPECT_EQ(control.getCurrentRow(), 1);
    notify(NM_DBLCLK, 0);
    EXPECT_EQ(watcher.seen, u"single double ");
    hands.command(table, 0);
    EXPECT_FALSE(control.wasDoubleClicked());
}

TEST_F(UiControls, aTableTellsOfKeysOnceAndNotOfWhatTheProgramSelects) {
    auto& control = show<ListViewUIControl>(table);
    control.addColumn(0, 80, u"Name");
    for (const char16_t* name : {u"Apple", u"Banana", u"Cherry"})
        control.setCellText(control.addRow(), 0, name);
    hands.send(table, WM_SETFOCUS);
    EXPECT_EQ(counter.take(), 0) << "a first row with the focus is not chosen";
    control.selectRow(0);
    EXPECT_EQ(counter.take(), 0);
    hands.send(table, WM_SETFOCUS);
    EXPECT_EQ(counter.take(), 1) << "a chosen row is";
    hands.pressKey(table, VK_DOWN);
    EXPECT_EQ(control.getCurrentRow(), 1);
    EXPECT_EQ(control.nextSelectedRow(0), 1);
    EXPECT_EQ(counter.take(), 1) << "one row lost, another one gained";
    hands.press(table, u'c');
    EXPECT_EQ(control.getCurrentRow(), 2);
    EXPECT_EQ(counter.take(), 1);
    hands.pressKey(table, VK_DOWN);
    EXPECT_EQ(counter.take(), 0) << "there is no further row";
    control.setCheckBoxes(true);
    hands.pressKey(table, VK_SPACE);
    EXPECT_TRUE(control.isRowChecked(2));
    EXPECT_EQ(counter.take(), 1);
    control.setRowChecked(2, false);
    control.deleteAllRows();
    EXPECT_EQ(counter.take(), 0);
    const LONG_PTR own = GetWindowLongPtrW(hands.item(table), GWLP_WNDPROC);
    tree_->removeChildObject(control);
    EXPECT_NE(GetWindowLongPtrW(hands.item(table), GWLP_WNDPROC), own) << "the table has its own procedure back";
}

} // namespace
