// kolma_picture: makes the bitmaps and icons of the resource module from their drawings. It draws into memory and needs
// no display.

#include "resources/pictures/tool/pictureFiles.h"

#include <CLI/CLI.hpp>
#include <QFile>
#include <QFileInfo>
#include <QGuiApplication>

#include <iostream>
#include <stdexcept>
#include <string>
#include <vector>

namespace {

// What lists, sheets and task bars ask for, up to four times the small one.
const std::vector<int> iconSizes = {16, 20, 24, 32, 40, 48, 64, 128};

struct Arguments {
    std::vector<std::string> bitmaps;
    std::vector<std::string> icons;
    std::string folder;
};

void write(const QString& name, const QByteArray& bytes) {
    QFile file(name);
    if (!file.open(QIODevice::WriteOnly) || file.write(bytes) != bytes.size())
        throw std::runtime_error(name.toStdString() + ": cannot be written");
}

QString outputName(const Arguments& arguments, const std::string& drawing, const char* extension) {
    return QString::fromStdString(arguments.folder) + u'/' +
           QFileInfo(QString::fromStdString(drawing)).completeBaseName() + QLatin1String(extension);
}

void makePictures(const Arguments& arguments) {
    for (const std::string& file : arguments.bitmaps) {
        const PictureRenderer drawing(file);
        write(outputName(arguments, file, ".bmp"), bitmapFile(drawing.draw(drawing.naturalSize())));
    }
    for (const std::string& file : arguments.icons)
        write(outputName(arguments, file, ".ico"), iconFile(PictureRenderer(file), iconSizes));
}

} // namespace

int main(int argc, char** argv) {
    Arguments arguments;
    CLI::App app("Makes bitmaps and icons from drawings.", "kolma_picture");
    app.add_option("--bitmaps", arguments.bitmaps, "drawings that become bitmaps of their own size");
    app.add_option("--icons", arguments.icons, "drawings that become icons");
    app.add_option("--out", arguments.folder, "folder of the files that are made")->required();
    CLI11_PARSE(app, argc, argv)

    qputenv("QT_QPA_PLATFORM", "minimal");
    const QGuiApplication application(argc, argv);
    try {
        makePictures(arguments);
    } catch (const std::exception& failure) {
        std::cerr << "kolma_picture: " << failure.what() << "\n";
        return 1;
    }
    return 0;
}
