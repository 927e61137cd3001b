// The pictures and icons of the resource modules.

#include "resources/ids.h"
#include "tests/ResourceFile.h"

#include <algorithm>
#include <gtest/gtest.h>
#include <map>
#include <set>
#include <string>
#include <vector>

namespace {

const ResourceFile& module() {
    static const ResourceFile file(driverDir / languages[0].file);
    return file;
}

int wordAt(std::span<const BYTE> bytes, std::size_t at) { return bytes[at] | bytes[at + 1] << 8U; }

std::string drawingOf(int id) {
    const std::span<const BYTE> bytes = module().resource(id, toWide(u"SVG"));
    return {bytes.begin(), bytes.end()};
}

struct PictureId {
    const char* value;
    int number;
};

const std::vector<PictureId> valuePictures = {
#define VALUE(number, enumerator, text, abbreviation, syntax, labelId, bitmapId, ...) {#enumerator, bitmapId},
#include "jtcore/FeatureSettings/FeatureValue.def"
#undef VALUE
};

// Places that pictures have in the templates, in pixels of a screen of 96 dots per inch with the smallest usual font.
struct Room {
    std::set<int> pictures;
    int width;
    int height;
};

const std::vector<Room> rooms = {
    {{IDB_ABOUT_LOGO}, 64, 64},
    {{IDB_LOAD_TICKET, IDB_LOAD_TICKET_PRESSED, IDB_SAVE_TICKET, IDB_SAVE_TICKET_PRESSED, IDB_DEFAULTS,
      IDB_DEFAULTS_PRESSED},
     32,
     32},
    {{IDB_FINISHING_BUTTON, IDB_FINISHING_BUTTON_PRESSED, IDB_FINISHING_BUTTON_DISABLED}, 32, 24},
};

Room roomOf(int picture) {
    for (const Room& room : rooms)
        if (room.pictures.contains(picture)) return room;
    return {{}, 48, 48};
}

} // namespace

TEST(Pictures, lieInTheModuleAsBitmapOfTheRightSizeAndAsDrawing) {
    for (const NamedId& id : allIds("IDB_")) {
        const std::span<const BYTE> bitmap = module().resource(id.number, RT_BITMAP);
        ASSERT_GE(bitmap.size(), 40U) << id.name << " has no bitmap";
        const Room room = roomOf(id.number);
        EXPECT_EQ(wordAt(bitmap, 4), room.width) << id.name;
        EXPECT_EQ(wordAt(bitmap, 8), room.height) << id.name;
        EXPECT_EQ(wordAt(bitmap, 14), 24) << id.name;
        EXPECT_EQ(bitmap.size(), 40U + static_cast<std::size_t>((room.width * 3 + 3) / 4 * 4 * room.height)) << id.name;
        EXPECT_FALSE(drawingOf(id.number).empty()) << id.name << " has no drawing";
    }
}

// The rows of a bitmap run from the bottom; all of them have the transparent color in their first corner.
TEST(Pictures, areTransparentAroundWhatTheyShow) {
    for (const NamedId& id : allIds("IDB_")) {
        const std::span<const BYTE> bitmap = module().resource(id.number, RT_BITMAP);
        ASSERT_GE(bitmap.size(), 43U) << id.name;
        EXPECT_EQ(std::vector<BYTE>(bitmap.begin() + 40, bitmap.begin() + 43), std::vector<BYTE>({0, 128, 0}))
            << id.name;
        int shown = 0;
        for (std::size_t at = 40; at + 2 < bitmap.size(); at += 3)
            shown += bitmap[at] != 0 || bitmap[at + 1] != 128 || bitmap[at + 2] != 0 ? 1 : 0;
        EXPECT_GT(shown, 100) << id.name << " is empty";
    }
}

TEST(Pictures, areThereForEveryValueThatNamesOne) {
    std::map<int, const char*> seen;
    for (const PictureId& picture : valuePictures) {
        if (picture.number == 0) continue;
        EXPECT_FALSE(module().resource(picture.number, RT_BITMAP).empty()) << picture.value;
        EXPECT_TRUE(seen.emplace(picture.number, picture.value).second) << picture.value;
    }
    EXPECT_EQ(seen.size(), 29U);
}

// Shapes alone: a font would look different on every machine, and what points elsewhere is refused when it is loaded.
TEST(Pictures, areDrawnWithShapesAlone) {
    for (const NamedId& id : allIds("IDB_")) {
        const std::string drawing = drawingOf(id.number);
        EXPECT_TRUE(drawing.starts_with("<svg ")) << id.name;
        for (const char* refused : {"<text", "<image", "<use", "<style", "href", "<!", "url("})
            EXPECT_EQ(drawing.find(refused), std::string::npos) << id.name << " has " << refused;
    }
}

TEST(Icons, haveASizeForEveryListAndScreen) {
    for (const NamedId& id : allIds("IDI_")) {
        const std::span<const BYTE> group = module().resource(id.number, RT_GROUP_ICON);
        ASSERT_GE(group.size(), 6U) << id.name << " has no icon";
        std::set<int> sizes;
        for (std::size_t entry = 6; entry + 14 <= group.size(); entry += 14) {
            sizes.insert(group[entry]);
            EXPECT_FALSE(module().resource(wordAt(group, entry + 12), RT_ICON).empty()) << id.name;
        }
        EXPECT_EQ(sizes, std::set<int>({16, 20, 24, 32, 40, 48, 64, 128})) << id.name;
    }
}

TEST(Drawings, areAllUsed) {
    const std::string rows = readFile(sourceDir / "pictures/pictures.rc");
    for (const char* folder : {"pictures", "pictures/icons"})
        for (const auto& file : std::filesystem::directory_iterator(sourceDir / folder)) {
            const bool isDrawing = file.path().extension() == ".svg";
            const bool isNamed = rows.find(", " + file.path().stem().string() + ")") != std::string::npos;
            EXPECT_TRUE(isNamed || !isDrawing) << file.path();
        }
}
