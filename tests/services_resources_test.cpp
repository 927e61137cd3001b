// The resource module and what is loaded from it.
#include "jtcore/Services/ResourceData.h"
#include "jtcore/Services/ResourceLibrary.h"
#include "jtcore/Services/text.h"
#include "tests/FakeResources.h"
#include "tests/expectFailure.h"

#include <cstring>

TEST(ResourceLibrary, theModuleLivesFromTheFirstTicketToTheLast) {
    FakeResources resources;
    {
        ResourceLibrary first;
        ResourceLibrary second = first;
        EXPECT_EQ(first.getModuleHandle(), second.getModuleHandle());
        EXPECT_EQ(resources.loads, 1);
    }
    EXPECT_EQ(resources.loaded, 0);
    resources.isAbsent = true;
    std::string message = messageOf<ResourceLibraryConstructionException>([] { ResourceLibrary ticket; });
    EXPECT_TRUE(message.starts_with("ResourceLibrary ctor failed during LoadLibrary of '")) << message;
    EXPECT_TRUE(message.ends_with("jtres37.dll'. Last Error: 126.\r\n")) << message;
    resources.isAbsent = false;
    ResourceLibrary again;
    EXPECT_EQ(resources.loads, 2);
    EXPECT_EQ(resources.loaded, 1);
}

TEST(ResourceLibrary, aStringIsCutAtItsLimitAndAMissingOneIsAFailure) {
    FakeResources resources;
    ResourceLibrary library;
    EXPECT_EQ(library.getString(65535), u"#65535");
    char16_t buffer[4];
    EXPECT_EQ(library.getString(11601, buffer, 4), 3);
    EXPECT_STREQ(toUtf8(buffer).c_str(), "#11");
    resources.missing = 9;
    EXPECT_EQ(messageOf<ResourceAcquisitionException>([&] { library.getString(9); }),
              "ResourceLibrary::getString(9) failed - LoadString returned ZERO.\r\n");
    ServiceDouble endless(doubles::LoadStringW, [](HINSTANCE, UINT, LPWSTR text, int size) {
        for (int i = 0; i < size - 1; ++i)
            text[i] = u'x';
        text[size - 1] = 0;
        return size - 1;
    });
    EXPECT_EQ(library.getString(9), std::u16string(1023, u'x'));
}

TEST(ResourceLibrary, eachStepOfLoadingFailsInItsOwnWords) {
    FakeResources resources;
    ResourceLibrary library;
    char bytes[] = "some bytes";
    ServiceDouble found(doubles::FindResourceW, [](auto...) { return reinterpret_cast<HRSRC>(1); });   // NOLINT
    ServiceDouble loaded(doubles::LoadResource, [](auto...) { return reinterpret_cast<HGLOBAL>(1); }); // NOLINT
    ServiceDouble locked(doubles::LockResource, [&bytes](HGLOBAL) -> LPVOID { return bytes; });
    auto failureOf = [&library](std::uint16_t id) {
        return messageOf<ResourceAcquisitionException>([&] {
            ResourceData data(id);
            library.loadRawData(data);
        });
    };
    EXPECT_EQ(failureOf(0), "ResourceLibrary::loadResData() failed - ResourceID == 0\r\n");
    {
        ServiceDouble none(doubles::LockResource, [](HGLOBAL) -> LPVOID { return nullptr; });
        EXPECT_EQ(failureOf(1), "ResourceLibrary::loadResData() failed in ::LockResource()\r\n");
    }
    {
        ServiceDouble none(doubles::LoadResource, [](auto...) -> HGLOBAL { return nullptr; });
        EXPECT_EQ(failureOf(1), "ResourceLibrary::loadResData() failed in ::LoadResource()\r\n");
    }
    ServiceDouble none(doubles::FindResourceW, [](auto...) -> HRSRC { return nullptr; });
    EXPECT_EQ(failureOf(1), "ResourceLibrary::loadResData() failed in ::FindResource()\r\n");
    ServiceDouble noIcon(doubles::LoadIconW, [](auto...) -> HICON { return nullptr; });
    EXPECT_EQ(messageOf<ResourceAcquisitionException>([&] { library.getIconHandle(1); }),
              "ResourceLibrary::getIconHandle() failed in ::LoadIcon(), returned NULL\r\n");
}

TEST(ResourceLibrary, theRealModuleGivesItsStringsAndTemplates) {
    ResourceLibrary library;
    EXPECT_FALSE(library.getString(11602).empty());
    EXPECT_EQ(messageOf<ResourceAcquisitionException>([&] { library.getString(65535); }),
              "ResourceLibrary::getString(65535) failed - LoadString returned ZERO.\r\n");
    ResourceData none(65535);
    EXPECT_EQ(messageOf<ResourceAcquisitionException>([&] { library.loadDialogData(none); }),
              "ResourceLibrary::loadResData() failed in ::FindResource()\r\n");
    EXPECT_EQ(none.getResourceType(), 0);
}

TEST(ResourceData, takesTheNamedTypesOnly) {
    for (std::int32_t type = -1; type <= 25; ++type) {
        bool named = type >= 1 && type <= 23 && type != 13 && type != 15 && type != 18;
        ResourceData data(7, 5);
        data.resourceLoaded(5, 3, "abc");
        if (named) {
            data.setResourceType(type);
            EXPECT_EQ(data.getResourceType(), type);
            continue;
        }
        auto load = [&] { data.resourceLoaded(type, 2, "xy"); };
        EXPECT_EQ(messageOf<UnknownCaseException>(load),
                  "ResourceData::setResourceType() EXCEPTION - unknown switch (RT_) value\r\n")
            << type;
        EXPECT_EQ(data.getResourceType(), 5);
        EXPECT_EQ(std::memcmp(data.getResourceData(), "abc", data.getResourceSize()), 0);
    }
}

TEST(ResourceData, whatIsNotLoadedHasNoData) {
    ResourceData data(7, 5);
    data.resourceLoaded(10, 3, "abc");
    data.load(8);
    EXPECT_EQ(data.getResourceId(), 8);
    EXPECT_EQ(data.getResourceType(), 0);
    EXPECT_EQ(data.getResourceSize(), 0U);
    EXPECT_EQ(messageOf<ResourceAcquisitionException>([&] { data.getResourceData(); }),
              "ResourceData::getResourceData() failed - ResourceData ByteBuffer EMPTY!\r\n");
}
