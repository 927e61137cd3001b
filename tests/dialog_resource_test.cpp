// Dialog templates: the forms that are understood, the joining of several, and what is refused.
#include "jtcore/Services/DialogResource.h"

#include "tests/dialogTemplateBuilder.h"
#include "tests/expectFailure.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <map>

using testing::ElementsAre;
using testing::HasSubstr;

namespace {

using Bytes = TemplateBuilder::Bytes;

DialogResource loaded(const Bytes& bytes, bool hidden = false) {
    DialogResource resource(100, hidden);
    resource.resourceLoaded(resourceTypeDialog, bytes.size(), bytes.data());
    return resource;
}

Bytes composed(const DialogResource& resource) {
    const std::uint8_t* data = resource.getResourceData();
    return {data, data + resource.getResourceSize()};
}

std::uint16_t wordAt(const Bytes& bytes, std::size_t at) {
    return static_cast<std::uint16_t>(bytes.at(at) | bytes.at(at + 1) << 8);
}

TemplateBuilder templateOf(std::initializer_list<std::uint16_t> ids) {
    TemplateBuilder builder;
    builder.header(static_cast<std::uint16_t>(ids.size()));
    for (const std::uint16_t id : ids)
        builder.item(id);
    return builder;
}

// A template of many items, each as small as can be.
Bytes manyItems(std::uint16_t count) {
    TemplateBuilder builder;
    builder.header(count);
    for (std::uint16_t i = 0; i < count; ++i)
        builder.itemFront(i).word(0).word(0).word(0).pad();
    return builder.bytes();
}

// The ids of the items, found by their places: every item of templateOf() has the same length.
std::vector<std::uint16_t> idsOf(const DialogResource& resource) {
    const Bytes bytes = composed(resource);
    const std::size_t front = templateOf({}).bytes().size();
    const std::size_t length = templateOf({1}).bytes().size() - front;
    EXPECT_EQ((bytes.size() - front) % length, 0U);
    std::vector<std::uint16_t> ids;
    for (std::size_t at = front; at < bytes.size(); at += length)
        ids.push_back(wordAt(bytes, at + 16));
    EXPECT_EQ(wordAt(bytes, 8), ids.size()) << "the header's count";
    return ids;
}

} // namespace

TEST(DialogResource, everyFormOfHeaderAndItemComesBackByteForByte) {
    const auto header = [](auto&& rest) {
        TemplateBuilder builder;
        builder.front(0x40, 1);
        rest(builder);
        return builder.pad().item(5).bytes();
    };
    const auto item = [](auto&& rest) {
        TemplateBuilder builder;
        builder.header(2).itemFront(5);
        rest(builder);
        return builder.pad().item(6).bytes();
    };
    const std::map<const char*, Bytes> rows = {
        {"no items", templateOf({}).bytes()},
        {"three items", templateOf({1, 2, 3}).bytes()},
        {"no font", TemplateBuilder().front(0, 1).word(0).word(0).text(u"T").pad().item(5).bytes()},
        {"menu by ordinal, class by name",
         header([](auto& b) { b.ordinal(7).text(u"Kolma").text(u"T").word(9).text(u"Font"); })},
        {"menu by name, class by ordinal",
         header([](auto& b) { b.text(u"Menu").ordinal(3).text(u"T").word(9).text(u"Font"); })},
        {"empty title and font name", header([](auto& b) { b.word(0).word(0).text(u"").word(9).text(u""); })},
        {"a title that begins like an ordinal",
         header([](auto& b) { b.word(0).word(0).word(0xFFFF).word(5).word(0).word(9).text(u"F"); })},
        {"item class by name", item([](auto& b) { b.text(u"SysListView32").text(u"").word(0); })},
        {"item without class and title", item([](auto& b) { b.word(0).word(0).word(0); })},
        {"item title by ordinal", item([](auto& b) { b.ordinal(0x82).ordinal(1300).word(0); })},
        {"data of six bytes with their size",
         item([](auto& b) { b.ordinal(0x80).text(u"").word(6).quad(0x01020304); })},
        {"data of two bytes, the size alone", item([](auto& b) { b.ordinal(0x80).text(u"x").word(2); })},
        {"data of an odd size", item([](auto& b) { b.ordinal(0x80).text(u"").word(5).quad(0x00020304); })},
    };
    for (const auto& [what, bytes] : rows) {
        const DialogResource resource = loaded(bytes);
        EXPECT_EQ(resource.getItemCount(), wordAt(bytes, 8)) << what;
        EXPECT_EQ(composed(resource), bytes) << what;
        EXPECT_EQ(reinterpret_cast<std::uintptr_t>(resource.getResourceData()) % 4, 0U) << what;
    }
}

TEST(DialogResource, theLastItemMayComeWithoutItsPadding) {
    Bytes bytes = TemplateBuilder().header(1).itemFront(5).ordinal(0x80).text(u"xy").word(0).bytes();
    ASSERT_NE(bytes.size() % 4, 0U);
    const DialogResource resource = loaded(bytes);
    bytes.resize(bytes.size() + 2);
    EXPECT_EQ(composed(resource), bytes);
}

TEST(DialogResource, joinsItemsInOrderUnderTheFirstHeader) {
    DialogResource frame = loaded(templateOf({1, 2}).bytes());
    const DialogResource first = loaded(templateOf({3}).bytes());
    const DialogResource nothing = loaded(templateOf({}).bytes());
    EXPECT_EQ(&(frame + first), &frame);
    frame + nothing + DialogResource() + loaded(templateOf({4, 5}).bytes());
    EXPECT_THAT(idsOf(frame), ElementsAre(1, 2, 3, 4, 5));
    EXPECT_THAT(idsOf(first), ElementsAre(3)) << "the other stays as it was";
    frame + frame;
    EXPECT_THAT(idsOf(frame), ElementsAre(1, 2, 3, 4, 5, 1, 2, 3, 4, 5));

    DialogResource bare = loaded(templateOf({}).bytes());
    bare + loaded(templateOf({7, 8, 9}).bytes());
    EXPECT_THAT(idsOf(bare), ElementsAre(7, 8, 9));

    DialogResource empty;
    empty + first;
    EXPECT_THAT(idsOf(empty), ElementsAre(3));
    EXPECT_EQ(empty.getResourceId(), 100);
}

TEST(DialogResource, holds65535ItemsAndNotOneMore) {
    DialogResource resource = loaded(manyItems(40000));
    const DialogResource more = loaded(manyItems(40000));
    const Bytes before = composed(resource);
    EXPECT_EQ(messageOf<ExceededNumberOfDlgItems>([&] { resource + more; }),
              "EXCEPTION: DialogResource::operator+() detected >65535 DlgItems.\r\n");
    EXPECT_EQ(composed(resource), before);
    resource + loaded(manyItems(25535));
    EXPECT_EQ(resource.getItemCount(), 65535U);
    EXPECT_EQ(wordAt(composed(resource), 8), 65535);
    EXPECT_EQ(errorCodeOf([&] { resource + loaded(manyItems(1)); }), "007:000");
    EXPECT_EQ(loaded(manyItems(65535)).getItemCount(), 65535U);
}

TEST(DialogResource, hiddenTakesVisibleFromEveryItemAndNothingElse) {
    const Bytes plain = templateOf({1, 2, 3}).bytes();
    const Bytes hidden = composed(loaded(plain, true));
    ASSERT_EQ(hidden.size(), plain.size());
    std::size_t changed = 0;
    for (std::size_t i = 0; i < plain.size(); ++i)
        if (hidden[i] != plain[i]) {
            ++changed;
            EXPECT_EQ(plain[i], 0x50);
            EXPECT_EQ(hidden[i], 0x40);
        }
    EXPECT_EQ(changed, 3U);
}

TEST(DialogResource, askedBeforeALoadOrAfterAResetItRaises) {
    const char* const words = "DialogResource::getResourceData() failed - ResourceData ByteBuffer EMPTY!\r\n";
    EXPECT_EQ(messageOf<ResourceAcquisitionException>([] { DialogResource(5).getResourceData(); }), words);
    DialogResource resource = loaded(templateOf({1}).bytes(), true);
    resource.resetDialog(200, false);
    EXPECT_EQ(resource.getResourceId(), 200);
    EXPECT_EQ(resource.getResourceSize(), 0U);
    EXPECT_EQ(messageOf<ResourceAcquisitionException>([&] { resource.getResourceData(); }), words);
    const Bytes bytes = templateOf({1}).bytes();
    resource.resourceLoaded(resourceTypeRawData, bytes.size(), bytes.data());
    EXPECT_EQ(resource.getResourceType(), resourceTypeDialog) << "a template stays one";
    EXPECT_EQ(composed(resource), bytes) << "no longer hidden";
}

TEST(DialogResource, whatLiesIsRefusedAndLeavesTheEarlierTemplate) {
    const Bytes good = templateOf({1, 2}).bytes();
    Bytes oneMore = good;
    ++oneMore[8];
    Bytes oneLess = good;
    --oneLess[8];
    Bytes tail = good;
    tail.push_back(0);
    Bytes data = TemplateBuilder().header(1).itemFront(1).ordinal(0x80).text(u"").word(1).pad().bytes();
    Bytes longData = TemplateBuilder().header(1).itemFront(1).ordinal(0x80).text(u"").word(0xFFFF).pad().bytes();
    struct Row {
        const char* what;
        Bytes bytes;
        const char* reason;
    };
    const Row rows[] = {
        {"nothing", {}, "cut short"},
        {"a count too high", oneMore, "cut short"},
        {"a count too low", oneLess, "behind the last item"},
        {"a byte too many", tail, "behind the last item"},
        {"the extended form", TemplateBuilder().quad(0xFFFF0001).quad(0).quad(0).quad(0).quad(0).bytes(), "extended"},
        {"a title without end", TemplateBuilder().front(0, 0).word(0).word(0).word('T').bytes(), "cut short"},
        {"data smaller than its size", data, "creation data"},
        {"data beyond the end", longData, "cut short"},
    };
    for (const Row& row : rows) {
        DialogResource resource = loaded(good);
        EXPECT_THAT(messageOf<ResourceAcquisitionException>(
                        [&] { resource.resourceLoaded(resourceTypeDialog, row.bytes.size(), row.bytes.data()); }),
                    HasSubstr(row.reason))
            << row.what;
        EXPECT_EQ(composed(resource), good) << row.what;
    }
}

TEST(DialogResource, cutAnywhereItIsRefused) {
    const Bytes whole = templateOf({1, 2}).bytes();
    // The padding at the very end may be missing.
    const std::size_t content =
        TemplateBuilder(templateOf({1})).itemFront(2).ordinal(0x80).text(u"Caption").word(0).bytes().size();
    for (std::size_t size = 0; size < content; ++size) {
        const Bytes cut(whole.begin(), whole.begin() + static_cast<std::ptrdiff_t>(size));
        EXPECT_EQ(errorCodeOf([&] { loaded(cut); }), "005:000") << size;
    }
}
