// A window whose rows are shown by an item view that is the window's widget or a part of it. The view only shows: its
// mouse, keys and focus become messages of the window, which does what they mean.
#pragma once

#include "platform/qt/Window.h"

#include <QAbstractItemView>

#include <optional>
#include <vector>

// In the order in which the item views number the ways of their cursor.
enum class RowStep { up, down, left, right, first, last, pageUp, pageDown };
std::optional<RowStep> stepOfKey(WPARAM key) noexcept;

// Takes everything from the view that it would do by itself.
void makeShowOnly(QAbstractItemView& view);

// Whether the key is held now.
bool isKeyHeld(int key);

class ItemViewWindow : public Window {
public:
    using Window::Window;

protected:
    // REQUIRES: the view dies with the window's widget.
    void watch(QAbstractItemView& view);
    bool eventFilter(QObject* watched, QEvent* event) override;

private:
    bool translateOfView(QObject* watched, QEvent& event);
    bool translateOfViewport(QAbstractItemView& view, QEvent& event);

    std::vector<QAbstractItemView*> views_;
};
