#include "platform/qt/ListViewDelegate.h"

#include "platform/qt/ImageList.h"
#include "platform/qt/ListViewItems.h"

#include <QAbstractItemView>
#include <QHelpEvent>
#include <QListView>
#include <QPainter>
#include <QPainterPath>
#include <QTextLayout>
#include <QToolTip>

#include <algorithm>

namespace {

constexpr int margin = 4;
constexpr int gap = 4;
constexpr int mostLabelLines = 2;
constexpr qreal roundness = 5;
constexpr QSize checkBoxSize{16, 16};

QSize sizeOf(HIMAGELIST images) {
    auto list = imageListOf(images);
    return list == nullptr || list->count() == 0 ? QSize() : list->size();
}

// The text in as many lines as a label may have; the last one is cut where more would follow.
QStringList linesOf(const QString& text, int width, const QFont& font) {
    QTextLayout layout(text, font);
    layout.beginLayout();
    QStringList lines;
    for (QTextLine line = layout.createLine(); line.isValid() && lines.size() < mostLabelLines;
         line = layout.createLine()) {
        line.setLineWidth(width);
        bool isLast = lines.size() + 1 == mostLabelLines;
        QString rest = text.mid(line.textStart(), isLast ? -1 : line.textLength()).trimmed();
        lines += QFontMetrics(font).elidedText(rest, Qt::ElideRight, width);
    }
    layout.endLayout();
    return lines;
}

QPalette::ColorGroup groupOf(const QStyleOptionViewItem& option) {
    if ((option.state & QStyle::State_Enabled) == 0) return QPalette::Disabled;
    return (option.state & QStyle::State_Active) != 0 ? QPalette::Active : QPalette::Inactive;
}

bool isSelected(const QStyleOptionViewItem& option) { return (option.state & QStyle::State_Selected) != 0; }

} // namespace

QSize ListViewDelegate::stateSize() const {
    QSize images = sizeOf(look_.state);
    return images.isEmpty() && look_.hasCheckBoxes() ? checkBoxSize : images;
}

QSize ListViewDelegate::iconSize() const { return sizeOf(look_.isIcons() ? look_.normal : look_.small); }

ListViewDelegate::Parts ListViewDelegate::parts(const QRect& cell, const QModelIndex& index,
                                                const QFontMetrics& metrics) const {
    return look_.isIcons() ? iconParts(cell, index, metrics) : rowParts(cell, index, metrics);
}

ListViewDelegate::Parts ListViewDelegate::iconParts(const QRect& cell, const QModelIndex& index,
                                                    const QFontMetrics& metrics) const {
    Parts parts;
    parts.bounds = cell.adjusted(1, 1, -1, -1);
    QSize size = iconSize();
    parts.icon = QRect({cell.center().x() - size.width() / 2 + 1, cell.top() + margin}, size);
    int top = size.isEmpty() ? cell.top() + margin : parts.icon.bottom() + 1 + gap;
    parts.label = QRect(QPoint(cell.left() + margin, top), QPoint(cell.right() - margin, cell.bottom() - 1));
    parts.label.setHeight(std::min(parts.label.height(), mostLabelLines * metrics.lineSpacing()));
    if (index.column() == 0 && look_.hasCheckBoxes())
        parts.state = QRect(parts.icon.bottomLeft() - QPoint(checkBoxSize.width(), checkBoxSize.height()), stateSize());
    return parts;
}

ListViewDelegate::Parts ListViewDelegate::rowParts(const QRect& cell, const QModelIndex& index,
                                                   const QFontMetrics& metrics) const {
    Parts parts;
    int x = cell.left() + margin;
    auto take = [&](QSize size) {
        QRect area(QPoint(x, cell.top() + (cell.height() - size.height()) / 2), size);
        if (size.isEmpty()) return QRect();
        x += size.width() + gap;
        return area;
    };
    if (index.column() == 0) {
        parts.state = take(stateSize());
        parts.icon = take(iconSize());
    }
    parts.label = QRect(QPoint(x, cell.top()), QPoint(cell.right() - margin, cell.bottom()));
    parts.bounds = cell;
    if (!look_.isReport() || look_.hasFullRows() || index.column() != 0) return parts;
    int text = metrics.horizontalAdvance(index.data().toString());
    parts.bounds.setRight(std::min(parts.label.right(), parts.label.left() + text) + margin);
    return parts;
}

int ListViewDelegate::contentWidth(const QModelIndex& index, const QFontMetrics& metrics) const {
    int width = 2 * margin + metrics.horizontalAdvance(index.data().toString()) + 1;
    if (index.column() == 0)
        for (QSize size : {stateSize(), iconSize()})
            width += size.isEmpty() ? 0 : size.width() + gap;
    return width;
}

int ListViewDelegate::rowHeight(const QFontMetrics& metrics) const {
    return std::max({metrics.height(), stateSize().height(), sizeOf(look_.small).height()}) + margin;
}

QSize ListViewDelegate::sizeHint(const QStyleOptionViewItem& option, const QModelIndex& index) const {
    if (const auto* grid = qobject_cast<const QListView*>(option.widget)) return grid->gridSize();
    return {contentWidth(index, option.fontMetrics), rowHeight(option.fontMetrics)};
}

void ListViewDelegate::paint(QPainter* painter, const QStyleOptionViewItem& given, const QModelIndex& index) const {
    QStyleOptionViewItem option = given;
    initStyleOption(&option, index);
    Parts where = parts(option.rect, index, option.fontMetrics);
    if (look_.isReport() && !look_.hasFullRows() && index.column() != 0) option.state &= ~QStyle::State_Selected;
    QModelIndex item = index.siblingAtColumn(0);
    painter->save();
    painter->setRenderHint(QPainter::Antialiasing);
    paintBack(*painter, option, where);
    paintState(*painter, option, where.state, item.data(ListViewItems::marksRole).toUInt() >> 12U);
    paintIcon(*painter, option, where.icon, item.data(ListViewItems::imageRole).toInt());
    paintLabel(*painter, option, where.label);
    painter->restore();
}

void ListViewDelegate::paintBack(QPainter& painter, const QStyleOptionViewItem& option, const Parts& parts) const {
    QColor colour = option.palette.color(groupOf(option), QPalette::Highlight);
    bool isHovered = (option.state & QStyle::State_MouseOver) != 0 && (option.state & QStyle::State_Enabled) != 0;
    QColor fill = colour;
    if (!isSelected(option)) fill.setAlpha(isHovered ? 40 : 0);
    QPainterPath shape;
    QRectF area = parts.bounds;
    if (look_.isReport())
        shape.addRect(area);
    else
        shape.addRoundedRect(area, roundness, roundness);
    painter.fillPath(shape, fill);
    if ((option.state & QStyle::State_HasFocus) == 0) return;
    // Seen on a selected item and on one that only has the focus.
    bool isLight = option.palette.color(QPalette::Base).lightness() > 127;
    painter.setPen(QPen(isLight ? colour.darker(150) : colour.lighter(150), 1));
    QRectF line = area.adjusted(0.5, 0.5, -0.5, -0.5);
    if (look_.isReport() && look_.hasFullRows()) {
        painter.drawLine(line.topLeft(), line.topRight());
        painter.drawLine(line.bottomLeft(), line.bottomRight());
    } else if (look_.isReport()) {
        painter.drawRect(line);
    } else {
        painter.drawRoundedRect(line, roundness, roundness);
    }
}

void ListViewDelegate::paintState(QPainter& painter, const QStyleOptionViewItem& option, const QRect& area,
                                  UINT image) const {
    if (area.isNull() || image == 0) return;
    if (auto images = imageListOf(look_.state); images != nullptr && images->count() != 0) {
        images->paint(painter, area, static_cast<int>(image) - 1, QIcon::Normal);
        return;
    }
    QStyleOptionViewItem box = option;
    box.rect = area;
    box.state &= ~(QStyle::State_HasFocus | QStyle::State_Selected | QStyle::State_MouseOver);
    box.state |= image == 2 ? QStyle::State_On : QStyle::State_Off;
    option.widget->style()->drawPrimitive(QStyle::PE_IndicatorItemViewItemCheck, &box, &painter, option.widget);
}

void ListViewDelegate::paintIcon(QPainter& painter, const QStyleOptionViewItem& option, const QRect& area,
                                 int image) const {
    auto images = imageListOf(look_.isIcons() ? look_.normal : look_.small);
    if (images == nullptr || area.isNull()) return;
    images->paint(painter, area, image, groupOf(option) == QPalette::Disabled ? QIcon::Disabled : QIcon::Normal);
}

void ListViewDelegate::paintLabel(QPainter& painter, const QStyleOptionViewItem& option, const QRect& area) const {
    painter.setFont(option.font);
    painter.setPen(
        option.palette.color(groupOf(option), isSelected(option) ? QPalette::HighlightedText : QPalette::Text));
    if (!look_.isIcons()) {
        QString text = option.fontMetrics.elidedText(option.text, Qt::ElideRight, area.width());
        painter.drawText(area, static_cast<int>(option.displayAlignment | Qt::TextSingleLine), text);
        return;
    }
    QString text = linesOf(option.text, area.width(), option.font).join(u'\n');
    painter.drawText(area, static_cast<int>(Qt::AlignHCenter | Qt::AlignTop), text);
}

bool ListViewDelegate::isCut(const QRect& cell, const QModelIndex& index, const QFontMetrics& metrics) const {
    if (!look_.isIcons()) return contentWidth(index, metrics) > cell.width() + 1;
    QRect label = parts(cell, index, metrics).label;
    QRect whole =
        metrics.boundingRect(QRect(0, 0, label.width(), cell.height() * 4), Qt::TextWordWrap, index.data().toString());
    return whole.height() > label.height() || whole.width() > label.width();
}

bool ListViewDelegate::helpEvent(QHelpEvent* event, QAbstractItemView* view, const QStyleOptionViewItem& option,
                                 const QModelIndex& index) {
    if (event->type() != QEvent::ToolTip || !index.isValid())
        return QStyledItemDelegate::helpEvent(event, view, option, index);
    QString text = isCut(option.rect, index, option.fontMetrics) ? index.data().toString() : QString();
    QToolTip::showText(event->globalPos(), text, view, option.rect);
    return true;
}
