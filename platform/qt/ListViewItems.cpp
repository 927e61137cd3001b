#include "platform/qt/ListViewItems.h"

#include "platform/qt/Window.h"

#include <algorithm>

namespace {

// LPSTR_TEXTCALLBACK: no address, but the wish to be asked.
constexpr LONG_PTR textOnDemand = -1;

} // namespace

QString givenText(LPCWSTR text) {
    return reinterpret_cast<LONG_PTR>(text) == textOnDemand ? QString() : textFrom(text);
}

int giveText(const QString& text, LPWSTR buffer, int room) {
    if (buffer == nullptr || room <= 0) return 0;
    return static_cast<int>(copyText(text, static_cast<WPARAM>(room), reinterpret_cast<LPARAM>(buffer)));
}

int ListViewItems::insert(const LVITEMW& item) {
    if (item.iItem < 0 || item.iSubItem != 0) return -1;
    int row = std::min(item.iItem, rowCount());
    insertRow(row);
    LVITEMW placed = item;
    placed.iItem = row;
    write(placed);
    return row;
}

bool ListViewItems::write(const LVITEMW& item) {
    if (!hasCell(item.iItem, item.iSubItem)) return false;
    QModelIndex cell = index(item.iItem, item.iSubItem);
    if ((item.mask & LVIF_TEXT) != 0) setData(cell, givenText(item.pszText), Qt::DisplayRole);
    if ((item.mask & LVIF_IMAGE) != 0) setData(cell, item.iImage, imageRole);
    if ((item.mask & LVIF_PARAM) != 0) setData(cell, static_cast<qlonglong>(item.lParam), parameterRole);
    return true;
}

bool ListViewItems::read(LVITEMW& item) const {
    if (!hasCell(item.iItem, item.iSubItem)) return false;
    if ((item.mask & LVIF_TEXT) != 0) giveText(text(item.iItem, item.iSubItem), item.pszText, item.cchTextMax);
    if ((item.mask & LVIF_IMAGE) != 0) item.iImage = image(item.iItem);
    if ((item.mask & LVIF_PARAM) != 0) item.lParam = parameter(item.iItem);
    if ((item.mask & LVIF_INDENT) != 0) item.iIndent = 0;
    return true;
}

LPARAM ListViewItems::parameter(int row) const {
    return static_cast<LPARAM>(index(row, 0).data(parameterRole).toLongLong());
}

int ListViewItems::image(int row) const { return index(row, 0).data(imageRole).toInt(); }
