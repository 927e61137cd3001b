// The widget of a combo box: Qt's own, which tells when its list opens and how it ends.
#pragma once

#include <QComboBox>

#include <functional>

class DropDownBox : public QComboBox {
public:
    explicit DropDownBox(QWidget* parent);

    // Before the list opens; when it is about to close, with the user's choice taken or not; after it closed.
    std::function<void()> opening;
    std::function<void(bool isTaken)> ending;
    std::function<void()> closed;
    // The user chose an entry, maybe the same as before; from the list or with a key that needs no list.
    std::function<void(bool isFromList)> chosen;

    bool isOpen() const noexcept { return isOpen_; }
    // Of the box without its list, as the font needs it.
    int closedHeight() const { return fontMetrics().height() + 8; }
    int droppedWidth() const { return std::max(droppedWidth_, width()); }
    void setDroppedWidth(int width) { droppedWidth_ = width; }

    // As the user does it with a key that needs no list.
    void choose(int row);

    void showPopup() override;
    void hidePopup() override;

protected:
    bool eventFilter(QObject* watched, QEvent* event) override;
    void keyPressEvent(QKeyEvent* event) override;
    void wheelEvent(QWheelEvent* event) override;

private:
    void watchList();
    bool finish(bool isTaken);
    void leaveList(const QKeyEvent& tab);

    int droppedWidth_ = 0;
    bool isOpen_ = false;
    // The event that runs takes the entry under the mouse or the cursor, if it closes the list.
    bool takes_ = false;
};
