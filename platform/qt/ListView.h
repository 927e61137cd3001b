// The list view class: what its messages mean and which notifications it sends. Mouse and keyboard act through the
// messages, so that a program's message and a user's hand do the same.
#pragma once

#include "platform/list_view.h"
#include "platform/qt/ItemViewWindow.h"
#include "platform/qt/ListViewInput.h"
#include "platform/qt/ListViewStates.h"
#include "platform/qt/ListViewSurface.h"

class ListView : public ItemViewWindow {
public:
    ListView(std::unique_ptr<ListViewSurface> surface, const WindowTraits& traits);

    LRESULT answer(UINT message, WPARAM wParam, LPARAM lParam) override;
    void styleChanged(DWORD before, DWORD extendedBefore) override;
    void place(const QRect& area) override;

private:
    void adopt(QAbstractItemView& view);
    LRESULT answerItems(UINT message, WPARAM wParam, LPARAM lParam);
    LRESULT answerStates(UINT message, WPARAM wParam, LPARAM lParam);
    LRESULT answerColumns(UINT message, WPARAM wParam, LPARAM lParam);
    LRESULT answerPlaces(UINT message, WPARAM wParam, LPARAM lParam);

    LRESULT insertItem(const LVITEMW& item);
    LRESULT writeItem(const LVITEMW& item);
    LRESULT readItem(LVITEMW& item);
    LRESULT setItemText(int row, const LVITEMW& item);
    LRESULT getItemText(int row, const LVITEMW& item);
    LRESULT deleteItem(int row);
    LRESULT deleteAllItems();
    LRESULT findItem(int after, const LVFINDINFOW& sought);
    LRESULT setItemState(int row, const LVITEMW& item);
    LRESULT setExtendedStyle(DWORD mask, DWORD style);
    LRESULT setImageList(WPARAM which, HIMAGELIST images);
    LRESULT setColumnWidth(int column, int width);
    LRESULT columnWidth(int column);
    LRESULT setIconSpacing(LPARAM spacing);
    LRESULT itemRectangle(int row, int column, RECT* rectangle);
    LRESULT hitTest(LVHITTESTINFO* test);

    HIMAGELIST& imageList(WPARAM which);
    void destroyImageLists();
    void notifyColumn(int column);
    LRESULT notifyItem(UINT code, int row);

    ListViewSurface& surface_;
    ListViewItems& items_;
    ListViewStates states_;
    ListViewInput input_;
};
