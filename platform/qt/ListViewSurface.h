// The widget of a list view: its items in the view that is chosen, and where on it everything lies. Positions are those
// of the surface, which is the window's client area.
#pragma once

#include "platform/qt/ListViewIcons.h"
#include "platform/qt/ListViewItems.h"
#include "platform/qt/ListViewReport.h"

#include <QItemSelectionModel>
#include <QWidget>

#include <functional>
#include <memory>

class ListViewSurface : public QWidget {
public:
    struct Hit {
        int row = -1;
        int column = 0;
        // LVHT_...
        UINT where = LVHT_NOWHERE;
        bool isOnItem() const noexcept { return (where & LVHT_ONITEM) != 0; }
    };

    explicit ListViewSurface(QWidget* parent);
    ~ListViewSurface() override;

    // A view is made when it is first wanted: to make one takes time, and most lists are never shown in the other.
    std::function<void(ListViewReport&)> reportMade;
    std::function<void(ListViewIcons&)> iconsMade;

    ListViewItems& items() noexcept { return items_; }
    QItemSelectionModel& selection() noexcept { return selection_; }
    ListViewLook& look() noexcept { return look_; }
    // It knows the columns in every view.
    ListViewReport& report();
    ListViewIcons& icons();
    ListViewFace& face();
    QAbstractItemView& view() { return face().view(); }
    // Without making a view for the answer.
    bool hasColumn(int column) const { return report_ != nullptr && report_->hasColumn(column); }

    // By the list view styles of a window. Items, columns, selection and focus stay.
    void follow(DWORD style, DWORD extendedStyle);
    // After the look changed.
    void arrange();

    Hit hit(QPoint at);
    // LVIR_...; null for what is no cell.
    QRect rectangle(int row, int column, int part);
    QPoint fromViewport(QPoint at) { return view().viewport()->mapTo(this, at); }
    // False when the row is not there.
    bool reveal(int row, bool partlyIsEnough);
    int topRow();
    int rowsPerPage();

protected:
    bool event(QEvent* event) override;

private:
    ListViewDelegate& delegate() { return static_cast<ListViewDelegate&>(*view().itemDelegate()); }
    void dress(QAbstractItemView& view) const;

    DWORD style_ = 0;
    DWORD extendedStyle_ = 0;
    ListViewLook look_;
    ListViewItems items_;
    QItemSelectionModel selection_{&items_};
    std::unique_ptr<ListViewReport> report_;
    std::unique_ptr<ListViewIcons> icons_;
};
