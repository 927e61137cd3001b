// What mouse and keyboard do to a list view, whether the user's hand or a program's message moves them.
#pragma once

#include "platform/qt/ListViewStates.h"
#include "platform/qt/ListViewSurface.h"
#include "platform/qt/listText.h"

#include <functional>

class ListViewInput {
public:
    // Sends the notification with the rest of its record behind the header.
    using Notify = std::function<LRESULT(UINT code, NMHDR& header)>;

    ListViewInput(ListViewSurface& surface, ListViewStates& states, Notify notify);

    // False for a message that is no input, and for a key that is none of the list view's.
    bool take(UINT message, WPARAM wParam, LPARAM lParam);

private:
    void takeFocus();
    void loseFocus();
    void press(WPARAM keys, POINT at);
    void release(POINT at);
    void releaseRight(POINT at);
    void doublePress(WPARAM keys, POINT at);
    void hover(POINT at);
    bool pressKey(WPARAM key);
    void pressSpace();
    void pressReturn();
    void type(WPARAM unit);
    void moveTo(int row);
    void activate(int row);
    // Of the item whose box is there; invalid for none.
    QModelIndex boxAt(const ListViewSurface::Hit& hit) const;
    LRESULT notifyClick(UINT code, const ListViewSurface::Hit& hit, POINT at);

    ListViewSurface& surface_;
    ListViewItems& items_;
    ListViewStates& states_;
    Notify notify_;
    TypedSearch search_;
    bool isPressed_ = false;
    // The item on whose box the mouse went down.
    QPersistentModelIndex pressedBox_;
};
