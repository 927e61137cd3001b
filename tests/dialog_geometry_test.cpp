// Where a dialog's window goes, and how it is fitted round its controls. Windows are rectangles here; a dialog unit is
// two pixels wide and three high.
#include "plugin_ui/dialogGeometry.h"

#include "platform/windows.h"

#include <algorithm>
#include <gmock/gmock.h>
#include <gtest/gtest.h>
#include <map>
#include <string>

namespace {

struct Box {
    RECT rect; // on the screen
    DWORD style = 0;
    std::u16string className = u"Static";
};

// Window 0 is the dialog, with a frame of 4 pixels and a title of 20 above its client area.
std::map<int, Box> boxes;

HWND toHandle(int number) { return reinterpret_cast<HWND>(static_cast<std::intptr_t>(number + 1)); }
int toNumber(HWND window) { return static_cast<int>(reinterpret_cast<std::intptr_t>(window)) - 1; }

constexpr int frame = 4;
constexpr int title = 20;

void makeDialog(int left, int top, int clientWidth, int clientHeight) {
    boxes.clear();
    boxes[0].rect = {left, top, left + clientWidth + 2 * frame, top + clientHeight + title + 2 * frame};
}

// In client coordinates of the dialog.
void add(int number, const RECT& rect, const char16_t* className = u"Static", DWORD style = 0) {
    const int x = boxes[0].rect.left + frame;
    const int y = boxes[0].rect.top + frame + title;
    boxes[number] = {{rect.left + x, rect.top + y, rect.right + x, rect.bottom + y}, style, className};
}

std::string show(const RECT& rect) {
    return std::to_string(rect.left) + "," + std::to_string(rect.top) + " " + std::to_string(rect.right - rect.left) +
           "x" + std::to_string(rect.bottom - rect.top);
}

std::string client(int number) {
    RECT rect = boxes.at(number).rect;
    POINT origin{rect.left, rect.top};
    ScreenToClient(toHandle(0), &origin);
    return show({origin.x, origin.y, origin.x + rect.right - rect.left, origin.y + rect.bottom - rect.top});
}

} // namespace

BOOL WINAPI GetWindowRect(HWND window, LPRECT rect) {
    *rect = boxes.at(toNumber(window)).rect;
    return TRUE;
}

BOOL WINAPI GetClientRect(HWND, LPRECT rect) {
    const RECT& dialog = boxes.at(0).rect;
    *rect = {0, 0, dialog.right - dialog.left - 2 * frame, dialog.bottom - dialog.top - title - 2 * frame};
    return TRUE;
}

BOOL WINAPI ScreenToClient(HWND, LPPOINT point) {
    point->x -= boxes.at(0).rect.left + frame;
    point->y -= boxes.at(0).rect.top + frame + title;
    return TRUE;
}

BOOL WINAPI MapDialogRect(HWND, LPRECT rect) {
    *rect = {rect->left * 2, rect->top * 3, rect->right * 2, rect->bottom * 3};
    return TRUE;
}

HWND WINAPI GetWindow(HWND window, UINT which) {
    const auto next = boxes.upper_bound(which == GW_CHILD ? 0 : toNumber(window));
    return next == boxes.end() ? nullptr : toHandle(next->first);
}

int WINAPI GetClassNameW(HWND window, LPWSTR name, int size) {
    const std::u16string& className = boxes.at(toNumber(window)).className;
    const auto length = className.copy(name, static_cast<std::size_t>(size) - 1);
    name[length] = 0;
    return static_cast<int>(length);
}

LONG WINAPI GetWindowLongW(HWND window, int) { return static_cast<LONG>(boxes.at(toNumber(window)).style); }

BOOL WINAPI IsWindowVisible(HWND) { return FALSE; }

BOOL WINAPI MoveWindow(HWND window, int x, int y, int width, int height, BOOL) {
    boxes.at(toNumber(window)).rect = {x, y, x + width, y + height};
    return TRUE;
}

BOOL WINAPI SetWindowPos(HWND window, HWND, int x, int y, int, int, UINT flags) {
    EXPECT_TRUE((flags & SWP_NOSIZE) != 0 && (flags & (SWP_SHOWWINDOW | SWP_HIDEWINDOW)) == 0);
    const RECT rect = boxes.at(toNumber(window)).rect;
    const int number = toNumber(window);
    const int left = number == 0 ? x : x + boxes.at(0).rect.left + frame;
    const int top = number == 0 ? y : y + boxes.at(0).rect.top + frame + title;
    boxes.at(number).rect = {left, top, left + rect.right - rect.left, top + rect.bottom - rect.top};
    return TRUE;
}

BOOL WINAPI SystemParametersInfoW(UINT, UINT, PVOID workArea, UINT) {
    *static_cast<RECT*>(workArea) = {0, 0, 1000, 700};
    return TRUE;
}

TEST(Fitting, controlsAtTheMarginStayAndTheRestOfTheWindowGoes) {
    makeDialog(100, 100, 400, 300);
    add(1, {14, 21, 114, 41});
    add(2, {14, 81, 64, 101}, u"Button");
    fitAroundControls(toHandle(0), toHandle(2));
    EXPECT_EQ(client(1), "14,21 100x20");
    EXPECT_EQ(client(2), "14,81 50x20");
    EXPECT_EQ(show(boxes[0].rect), "100,100 136x150") << "114 + 14 and 101 + 21, with the frame";
}

TEST(Fitting, controlsElsewhereAreMovedToTheMargin) {
    makeDialog(100, 100, 400, 300);
    add(1, {54, 71, 154, 91});
    add(2, {94, 111, 194, 131}, u"Button");
    fitAroundControls(toHandle(0), toHandle(2));
    EXPECT_EQ(client(1), "14,21 100x20");
    EXPECT_EQ(client(2), "54,61 100x20");
    EXPECT_EQ(show(boxes[0].rect), "100,100 176x130");
    makeDialog(100, 100, 20, 20); // too small for what is in it
    add(1, {14, 21, 114, 41}, u"Button");
    fitAroundControls(toHandle(0), toHandle(1));
    EXPECT_EQ(show(boxes[0].rect), "100,100 136x90") << "it grows";
}

TEST(Fitting, aFrameCountsFromItsCaptionsMiddle) {
    makeDialog(0, 0, 400, 300);
    add(1, {14, 12, 214, 112}, u"Button", 7); // its upper 9 pixels are above the line
    add(2, {14, 61, 64, 81}, u"Button");
    fitAroundControls(toHandle(0), toHandle(2));
    EXPECT_EQ(client(1), "14,12 200x100") << "12 + 9 is the margin already";
    makeDialog(0, 0, 400, 300);
    add(1, {14, 12, 214, 112}, u"Static", 7);
    add(2, {14, 61, 64, 81}, u"Button");
    fitAroundControls(toHandle(0), toHandle(2));
    EXPECT_EQ(client(1), "14,21 200x100") << "no button";
}

TEST(Placing, theTopRightCornerGoesToTheAnchorAndNothingBelowTheScreen) {
    struct Row {
        int x;
        int y;
        const char* place;
        int yAfter;
    };
    const Row rows[] = {{500, 100, "300,100 200x150", 100},
                        {100, 5, "-100,5 200x150", 5},
                        {500, 550, "300,550 200x150", 550},
                        {500, 551, "300,550 200x150", 550},
                        {500, 5000, "300,550 200x150", 550}};
    for (const Row& row : rows) {
        makeDialog(0, 0, 192, 122);
        int y = row.y;
        placeTopRight(toHandle(0), row.x, y);
        EXPECT_EQ(show(boxes[0].rect), row.place);
        EXPECT_EQ(y, row.yAfter);
    }
}
