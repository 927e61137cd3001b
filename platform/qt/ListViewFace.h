// What shows a list view's items. It only shows: what the mouse and the keyboard do is the list view's, who turns their
// events into messages before the widget sees them.
#pragma once

#include "platform/qt/ItemViewWindow.h"

class ListViewFace {
public:
    virtual ~ListViewFace() = default;

    virtual QAbstractItemView& view() = 0;
    // The row that a key leads to from the one with the focus; -1 for none.
    virtual int neighbour(RowStep step) = 0;
    // Anew where the cells lie, after items, texts, pictures or the font changed.
    virtual void arrange() = 0;
    // What arrange() has put off, now: for who asks where a cell lies.
    virtual void settle() = 0;
};
