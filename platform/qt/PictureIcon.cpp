#include "platform/qt/PictureIcon.h"

#include "platform/qt/gdiObjects.h"
#include "platform/qt/resourcePictures.h"
#include "platform/qt/windowCalls.h"

#include <QApplication>
#include <QIconEngine>
#include <QPainter>
#include <QPixmap>
#include <QStyle>
#include <QStyleOption>

namespace {

class BitmapEngine : public QIconEngine {
public:
    explicit BitmapEngine(Bitmap bitmap) : bitmap_(std::move(bitmap)) {}

    void paint(QPainter* painter, const QRect& area, QIcon::Mode mode, QIcon::State state) override {
        qreal ratio = painter->device()->devicePixelRatio();
        QPixmap picture = pixmap((QSizeF(area.size()) * ratio).toSize(), mode, state);
        painter->drawPixmap(area, picture);
    }
    QPixmap pixmap(const QSize& size, QIcon::Mode mode, QIcon::State /*state*/) override {
        QPixmap picture = QPixmap::fromImage(bitmap_.shown(size));
        if (mode == QIcon::Normal) return picture;
        QStyleOption option;
        option.palette = QApplication::palette();
        return QApplication::style()->generatedIconPixmap(mode, picture, &option);
    }
    QIconEngine* clone() const override { return new BitmapEngine(bitmap_); }

private:
    Bitmap bitmap_;
};

} // namespace

PictureIcon PictureIcon::of(WPARAM type, LPARAM image) {
    if (image == 0) return {};
    if (type == IMAGE_ICON) {
        QIcon icon = iconOf(reinterpret_cast<HICON>(image)); // NOLINT
        if (icon.isNull()) return {};
        return {icon, QSize(qt::GetSystemMetrics(SM_CXICON), qt::GetSystemMetrics(SM_CYICON))};
    }
    auto bitmap = gdiObjectAs<Bitmap>(reinterpret_cast<HGDIOBJ>(image)); // NOLINT
    if (!bitmap) return {};
    QSize size = bitmap->size();
    return {QIcon(new BitmapEngine(std::move(*bitmap))), size};
}
