// The tab control of a property sheet.
#pragma once

#include "platform/qt/Window.h"

#include <QStringList>

#include <functional>

class QTabBar;

class SheetTabs : public Window {
public:
    static constexpr WORD controlId = 0x3020; // published

    // `choose` is called with the tab that a person, or a message, wants to see; it answers with show().
    SheetTabs(QWidget* parent, const QStringList& titles, std::function<void(int)> choose);

    // Marks the tab without asking anybody.
    void show(int index);
    int current() const;
    int count() const;
    // The next one, or the one before, round the ends.
    int neighbour(int step) const;

    LRESULT answer(UINT message, WPARAM wParam, LPARAM lParam) override;

private:
    QTabBar& bar() const;
    LRESULT getItem(int index, LPARAM item) const;

    std::function<void(int)> choose_;
};
