// An image list: pictures of one size, by number, as list views show them.
#pragma once

#include "platform/types.h"

#include <QIcon>
#include <QSize>

#include <memory>
#include <vector>

class QPainter;

class ImageList {
public:
    explicit ImageList(QSize size) : size_(size) {}

    // In logical pixels: what a picture is drawn in, whatever the device pixel ratio.
    QSize size() const noexcept { return size_; }
    int count() const noexcept { return static_cast<int>(images_.size()); }

    // The new picture's number.
    int add(QIcon image);
    // False where there is no such picture.
    bool replace(int index, QIcon image);
    // -1 removes all of them.
    bool remove(int index);
    // Nothing is drawn where there is no such picture.
    void paint(QPainter& painter, QRect area, int index, QIcon::Mode mode) const;

private:
    bool has(int index) const noexcept { return index >= 0 && index < count(); }

    QSize size_;
    std::vector<QIcon> images_;
};

// Null for what is no image list, and for one that was destroyed.
std::shared_ptr<ImageList> imageListOf(HIMAGELIST handle);
