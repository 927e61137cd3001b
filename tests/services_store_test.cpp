// The registry and the preferences in it, who the user is, and where the driver lies.
#include "jtcore/Services/Registry.h"
#include "jtcore/Services/User.h"
#include "jtcore/Services/UserPreferences.h"
#include "jtcore/Services/WindowsProcessToken.h"
#include "jtcore/Services/getDriverFilePath.h"
#include "tests/TemporaryFolder.h"
#include "tests/expectFailure.h"
#include "tests/serviceDoubles.h"

#include <cstring>
#include <vector>

namespace {

const std::u16string root = u"SOFTWARE\\Kolma\\Kolma Lindor Services\\";

// A store of preferences that is this test's own.
class Store : public testing::Test {
protected:
    TemporaryFolder folder;
    EnvironmentVariable place{"XDG_CONFIG_HOME", folder.path().c_str()};
    EnvironmentVariable locale{"LC_ALL", "de_DE.UTF-8"};
    Registry registry;
};

// What a locale answers; 0 for no answer.
ServiceDouble<int(LCID, LCTYPE, LPWSTR, int)> playLocale(char16_t measure, char16_t paper) {
    return {doubles::GetLocaleInfoW, [=](LCID, LCTYPE type, LPWSTR data, int) {
                char16_t answer = type == LOCALE_IMEASURE ? measure : paper;
                data[0] = answer;
                data[1] = 0;
                return answer == 0 ? 0 : 2;
            }};
}

template <typename Entry>
FARPROC asEntry(Entry* entry) {
    return reinterpret_cast<FARPROC>(entry);
}

DWORD refuseUser(LPWSTR, DWORD, LPBYTE*) { return 5; }
BOOL refuseProfile(HANDLE, LPWSTR, LPDWORD size) {
    *size = 10;
    SetLastError(0x57);
    return FALSE;
}

} // namespace

using RegistryStore = Store;
using UserPreferencesStore = Store;

TEST_F(RegistryStore, aValueComesBackAsItWasWritten) {
    ByteBuffer bytes;
    EXPECT_FALSE(registry.getValue(u"Software\\None", u"X", bytes));
    registry.setLongValue(u"Software\\A", u"number", -5);
    registry.setStringValue(u"Software\\A", u"text", u"C:\\a \u00e4.jtif");
    registry.setStringValue(u"Software\\A", u"nothing", u"");
    registry.setValue(u"Software\\A", u"terminated", REG_SZ, ByteBuffer(u"ab\0"));
    registry.setValue(u"Software\\A", u"terminated twice", REG_SZ, ByteBuffer(std::u16string(u"ab\0\0", 4)));
    EXPECT_EQ(registry.getLongValue(u"Software\\A", u"number", 1), -5);
    EXPECT_EQ(registry.getStringValue(u"Software\\A", u"text", u""), u"C:\\a \u00e4.jtif");
    EXPECT_EQ(registry.getStringValue(u"Software\\A", u"terminated twice", u""), u"ab");
    EXPECT_TRUE(registry.getValue(u"Software\\A", u"number", bytes));
    EXPECT_EQ(bytes, ByteBuffer(std::int32_t{-5}));
    // An empty value is there and reads as none.
    EXPECT_TRUE(registry.hasValue(u"Software\\A", u"nothing"));
    EXPECT_FALSE(registry.getValue(u"Software\\A", u"nothing", bytes));
    EXPECT_TRUE(bytes.isEmpty());
    EXPECT_EQ(registry.getLongValue(u"Software\\A", u"nothing", 7), 7);
    EXPECT_EQ(registry.getStringValue(u"Software\\A", u"missing", u"fallback"), u"fallback");
    EXPECT_FALSE(registry.hasValue(u"Software\\A", u"missing"));
}

TEST_F(RegistryStore, aNumberOfTwoBytesIsRefused) {
    registry.setValue(u"K", u"short", REG_BINARY, ByteBuffer("ab", 2));
    EXPECT_EQ(messageOf<NotEnoughBytesForDesiredDataTypeException>([&] { registry.getLongValue(u"K", u"short", 1); }),
              "ByteBuffer::getAsLongValue(): Cannot convert to the desired data type because the size of the source "
              "buffer is too small (2 bytes)! It needs to be at least 4 bytes.\r\n");
}

TEST_F(RegistryStore, aFailureOfTheStoreTellsItsNumber) {
    registry.setLongValue(u"K", u"V", 1);
    ByteBuffer bytes;
    {
        ServiceDouble query(doubles::RegQueryValueExW, [](auto...) { return 5; });
        EXPECT_EQ(messageOf<RegistryRequestException>([&] { registry.getValue(u"K", u"V", bytes); }),
                  "Registry::getValue(): Call to RegQueryValueEx(V) failed with result of 5 (0x5).\r\n");
    }
    {
        ServiceDouble set(doubles::RegSetValueExW, [](auto...) { return 112; });
        EXPECT_EQ(messageOf<RegistryRequestException>([&] { registry.setLongValue(u"K", u"V", 2); }),
                  "Registry::setValue(): Call to RegSetValueEx(V) failed with result of 112 (0x70).\r\n");
    }
    {
        ServiceDouble create(doubles::RegCreateKeyExW, [](auto...) { return 1016; });
        EXPECT_EQ(messageOf<RegistryRequestException>([&] { registry.setLongValue(u"K\\L", u"V", 2); }),
                  "Registry::setValue(): Call to RegCreateKeyEx(K\\L) failed with result of 1016 (0x3f8).\r\n");
    }
    EXPECT_EQ(registry.getLongValue(u"K", u"V", 0), 1);
}

TEST_F(RegistryStore, aValueThatChangesWhileItIsReadIsTakenAsFarAsItCame) {
    registry.setStringValue(u"K", u"V", u"long text");
    std::vector<DWORD> claims;
    ServiceDouble query(doubles::RegQueryValueExW,
                        [&claims](HKEY, LPCWSTR, LPDWORD, LPDWORD, LPBYTE data, LPDWORD size) {
                            if (data != nullptr) std::memcpy(data, "ab", 2);
                            *size = data == nullptr ? claims.at(0) : claims.at(1);
                            return 0;
                        });
    claims = {8, 2};
    ByteBuffer bytes;
    EXPECT_TRUE(registry.getValue(u"K", u"V", bytes));
    EXPECT_EQ(bytes, ByteBuffer("ab", 2));
    claims = {0xFFFFFFFF, 0};
    EXPECT_EQ(messageOf<RegistryRequestException>([&] { registry.getValue(u"K", u"V", bytes); }),
              "Registry::getValue(): Call to RegQueryValueEx(V) failed with result of 234 (0xea).\r\n");
}

TEST_F(UserPreferencesStore, whatIsNotStoredReadsAsItsDefault) {
    for (char16_t measure : {u'0', u'1'}) {
        auto locales = playLocale(measure, u'9');
        UserPreferences preferences(u"Lindor 20");
        EXPECT_EQ(preferences.getKeyPath(), root + u"Lindor 20");
        EXPECT_FALSE(preferences.hasJobNamePreference());
        EXPECT_TRUE(preferences.getJobNamePreference());
        EXPECT_FALSE(preferences.getAccountRequiredPreference());
        EXPECT_FALSE(preferences.getAcctNumberInJtPreference());
        EXPECT_TRUE(preferences.getUseLogonNamePreference());
        EXPECT_TRUE(preferences.getUseLogonNameRecipientPreference());
        EXPECT_TRUE(preferences.getGenericJtPreference());
        EXPECT_EQ(preferences.getPreferredJobTicket(), u"");
        EXPECT_EQ(preferences.getCustomPaperSizePreference(), measure == u'1' ? 1 : 2);
        EXPECT_EQ(preferences.getImageShiftUnitPreference(), measure == u'1' ? 1 : 2);
        EXPECT_EQ(preferences.getToolBarPreference(), 1);
    }
    EXPECT_EQ(UserPreferences().getKeyPath(), root);
    EXPECT_EQ(folder.entries(), 0U);
}

TEST_F(UserPreferencesStore, everyRowIsStoredUnderItsNameAndReadBackByEveryCopy) {
    UserPreferences preferences(u"Lindor 20");
    UserPreferences copy = preferences;
    int row = 0;
    auto check = [&](const char16_t* name, PreferenceKind kind, auto set, auto get, auto value) {
        SCOPED_TRACE(toUtf8(name));
        EXPECT_EQ(preferences.getRows().at(static_cast<std::size_t>(row)).name, name);
        EXPECT_EQ(preferences.getRows().at(static_cast<std::size_t>(row++)).kind, kind);
        EXPECT_FALSE(registry.hasValue(root + u"Lindor 20", name));
        (preferences.*set)(value);
        EXPECT_EQ((copy.*get)(), value);
        EXPECT_NE((UserPreferences(u"Lindor 30").*get)(), value) << "another driver";
        EXPECT_TRUE(registry.hasValue(root + u"Lindor 20", name));
    };
    using P = UserPreferences;
    using K = PreferenceKind;
    check(u"JOB_NAME_PREFERENCE", K::boolean, &P::setJobNamePreference, &P::getJobNamePreference, false);
    EXPECT_TRUE(copy.hasJobNamePreference());
    check(u"ACCOUNT_REQUIRED_PREFERENCE", K::boolean, &P::setAccountRequiredPreference,
          &P::getAccountRequiredPreference, true);
    check(u"ACCT_NUMBER_IN_JT_PREFERENCE", K::boolean, &P::setAcctNumberInJtPreference, &P::getAcctNumberInJtPreference,
          true);
    check(u"USE_LOGON_NAME_PREFERENCE", K::boolean, &P::setUseLogonNamePreference, &P::getUseLogonNamePreference,
          false);
    check(u"USE_LOGON_NAME_PREFERENCE_RECIPIENT", K::boolean, &P::setUseLogonNameRecipientPreference,
          &P::getUseLogonNameRecipientPreference, false);
    check(u"GENERIC_JT_PREFERENCE", K::boolean, &P::setGenericJtPreference, &P::getGenericJtPreference, false);
    check(u"PREFERRED_JOB_TICKET", K::text, &P::setPreferredJobTicket, &P::getPreferredJobTicket,
          std::u16string(u"/home/a/b.jtif"));
    check(u"CUSTOM_PAPER_SIZE_PREFERENCE", K::byLocale, &P::setCustomPaperSizePreference,
          &P::getCustomPaperSizePreference, 1);
    check(u"IMAGE_SHIFT_UNIT_PREFERENCE", K::byLocale, &P::setImageShiftUnitPreference, &P::getImageShiftUnitPreference,
          1);
    check(u"TOOL_BAR_PREFERENCE", K::number, &P::setToolBarPreference, &P::getToolBarPreference, 0);
    EXPECT_EQ(row, 10);
    EXPECT_FALSE(UserPreferences().hasJobNamePreference());
    registry.setLongValue(root + u"Lindor 20", u"JOB_NAME_PREFERENCE", 256);
    EXPECT_TRUE(copy.getJobNamePreference());
}

TEST(User, theLocaleChoosesUnitsAndPaper) {
    struct Row {
        char16_t measure;
        char16_t paper;
        bool us;
        DefaultStockSize size;
    };
    const Row rows[] = {
        {u'0', u'1', false, DefaultStockSize::letter}, {u'0', u'5', false, DefaultStockSize::legal},
        {u'1', u'8', true, DefaultStockSize::a3},      {u'1', u'9', true, DefaultStockSize::a4},
        {u'0', u'2', false, DefaultStockSize::a4},     {u'1', u'2', true, DefaultStockSize::letter},
        {u'0', 0, false, DefaultStockSize::a4},        {0, 0, true, DefaultStockSize::letter},
        {u'x', u'x', true, DefaultStockSize::letter},
    };
    for (const Row& row : rows) {
        auto locale = playLocale(row.measure, row.paper);
        EXPECT_EQ(User::isUsingUSMeasurements(), row.us) << toUtf8(std::u16string{row.measure, row.paper});
        EXPECT_EQ(User::getDefaultStockSize(), row.size) << toUtf8(std::u16string{row.measure, row.paper});
    }
    static_assert(static_cast<int>(DefaultStockSize::a4) == 8 && static_cast<int>(DefaultStockSize::a3) == 9);
}

TEST(User, theProfileDirectoryIsTheUsersOwn) {
    TemporaryFolder folder;
    EnvironmentVariable home("HOME", folder.path().c_str());
    EXPECT_EQ(toUtf8(User::getProfileDirectoryPath()), folder.path().string());
    ServiceDouble none(doubles::LoadLibraryW, [](LPCWSTR) -> HMODULE { return nullptr; });
    EXPECT_EQ(toUtf8(User::getProfileDirectoryPath()), folder.path().string());
}

TEST(User, eachWayToTheProfileDirectoryFailsInItsOwnWords) {
    {
        ServiceDouble token(doubles::OpenProcessToken, [](auto...) {
            SetLastError(5);
            return FALSE;
        });
        EXPECT_EQ(messageOf<ProcessTokenRequestException>([] { User::getProfileDirectoryPath(); }),
                  "WindowsProcessToken::WindowsProcessToken(): Call to OpenProcessToken(0x8) failed with LastError of "
                  "0x5.\r\n");
    }
    {
        ServiceDouble entry(doubles::GetProcAddress, [](auto...) -> FARPROC {
            SetLastError(127);
            return nullptr;
        });
        EXPECT_EQ(messageOf<UserInformationRequestException>([] { User::getProfileDirectoryPath(); }),
                  "User::getProfileDirectoryPath(): Failed call to GetProcAddress for the GetUserProfileDirectory(). "
                  "LastError of 0x7f.\r\n");
    }
    {
        ServiceDouble entry(doubles::GetProcAddress, [](auto...) { return asEntry(refuseProfile); });
        std::string message = messageOf<UserInformationRequestException>([] { User::getProfileDirectoryPath(); });
        EXPECT_TRUE(message.starts_with("User::getProfileDirectoryPath(): Failed call to GetUserProfileDirectory() to "
                                        "fill in the buffer with token handle of 0x"))
            << message;
        EXPECT_TRUE(message.ends_with(". LastError of 0x57.\r\n")) << message;
    }
    ServiceDouble none(doubles::LoadLibraryW, [](LPCWSTR) -> HMODULE { return nullptr; });
    ServiceDouble windows(doubles::GetWindowsDirectoryW, [](auto...) {
        SetLastError(6);
        return 0U;
    });
    EXPECT_EQ(messageOf<UserInformationRequestException>([] { User::getProfileDirectoryPath(); }),
              "User::GetUserProfileDirectory(): Failed call to GetWindowsDirectory() to fill in the buffer. LastError "
              "of 0x6.\r\n");
}

TEST(User, theLogonNameComesFromTheFirstServiceThatIsThere) {
    std::u16string real = User::getLogonName();
    EXPECT_FALSE(real.empty());
    ServiceDouble provider(doubles::WNetGetUserW, [](LPCWSTR, LPWSTR user, LPDWORD size) {
        EXPECT_EQ(*size, 256U);
        std::memcpy(user, u"provider", sizeof u"provider");
        return 0U;
    });
    EXPECT_EQ(User::getLogonName(), real);
    {
        // A service that is there and does not know is not asked past.
        ServiceDouble entry(doubles::GetProcAddress, [](auto...) { return asEntry(refuseUser); });
        EXPECT_EQ(User::getLogonName(), u"");
    }
    ServiceDouble none(doubles::LoadLibraryW, [](LPCWSTR) -> HMODULE { return nullptr; });
    EXPECT_EQ(User::getLogonName(), u"provider");
    ServiceDouble refused(doubles::WNetGetUserW, [](auto...) { return 1317U; });
    EXPECT_EQ(User::getLogonName(), u"");
}

TEST(DriverFilePath, isThePrintersOwnOrTheSystems) {
    struct Row {
        const char16_t* driver; // null for no answer
        const char16_t* system;
        const char16_t* expected;
    };
    const std::u16string deep = u"/" + std::u16string(400, u'd');
    const std::u16string deepFile = deep + u"\\3\\f.dtd";
    const Row rows[] = {
        {u"C:\\drivers\\3\\jtui37.dll", u"S", u"C:\\drivers\\3\\f.dtd"},
        {u"/opt/lib/3/libjtui37.so", u"S", u"/opt/lib/3\\f.dtd"},
        {u"nofolder.dll", u"S", u"S\\3\\f.dtd"},
        {nullptr, u"/lib/kolma", u"/lib/kolma\\3\\f.dtd"},
        {nullptr, u"/lib/kolma/3", u"/lib/kolma/3\\f.dtd"},
        {nullptr, deep.c_str(), deepFile.c_str()},
        {nullptr, nullptr, u"\\f.dtd"},
    };
    for (const Row& row : rows) {
        ServiceDouble driver(doubles::GetPrinterDriverW,
                             [&row](HANDLE, LPWSTR, DWORD level, LPBYTE info, DWORD size, LPDWORD needed) {
                                 EXPECT_EQ(level, 2U);
                                 *needed = sizeof(DRIVER_INFO_2W);
                                 if (row.driver == nullptr || size < *needed) return FALSE;
                                 DRIVER_INFO_2W filled{};
                                 filled.pDriverPath = const_cast<LPWSTR>(row.driver);
                                 std::memcpy(info, &filled, sizeof filled);
                                 return TRUE;
                             });
        ServiceDouble system(doubles::GetPrinterDriverDirectoryW,
                             [&row](LPWSTR, LPWSTR, DWORD, LPBYTE directory, DWORD size, LPDWORD needed) {
                                 if (row.system == nullptr) return FALSE;
                                 std::u16string_view text = row.system;
                                 *needed = static_cast<DWORD>((text.size() + 1) * 2);
                                 if (size < *needed) return FALSE;
                                 std::memcpy(directory, text.data(), *needed);
                                 return TRUE;
                             });
        HANDLE printer = reinterpret_cast<HANDLE>(1); // NOLINT
        EXPECT_EQ(toUtf8(getDriverFilePath(printer, u"f.dtd")), toUtf8(row.expected));
        if (row.driver != nullptr) continue;
        EXPECT_EQ(toUtf8(getDriverFilePath(nullptr, u"f.dtd")), toUtf8(row.expected));
    }
}

TEST(ByteBuffer, valuesAreStoredLowByteFirst) {
    EXPECT_EQ(ByteBuffer(u"a\u20ac"), ByteBuffer("a\0\xac\x20", 4));
    EXPECT_EQ(ByteBuffer(std::int32_t{-2}), ByteBuffer("\xfe\xff\xff\xff", 4));
    EXPECT_EQ(ByteBuffer(true), ByteBuffer("\1", 1));
    EXPECT_EQ(ByteBuffer("abcdefg", 7).getAsString().size(), 3U);
    EXPECT_EQ(ByteBuffer().getAsString(), u"");
    EXPECT_EQ(ByteBuffer().getData(), nullptr);
    EXPECT_EQ(ByteBuffer("\1\2\3\x80\5", 5).getAsLongValue(), static_cast<std::int32_t>(0x80030201));
    EXPECT_TRUE(ByteBuffer("\2", 1).getAsBoolValue());
    EXPECT_EQ(messageOf<NotEnoughBytesForDesiredDataTypeException>([] { ByteBuffer().getAsBoolValue(); }),
              "ByteBuffer::getAsBoolValue(): Cannot convert to the desired data type because the size of the source "
              "buffer is too small (0 bytes)! It needs to be at least 1 bytes.\r\n");
    ByteBuffer own("abc", 3);
    for (int i = 0; i < 4; ++i)
        own.appendData(own.getData(), own.getSize());
    own.setData(own.getData() + 1, 4);
    EXPECT_EQ(own, ByteBuffer("bcab", 4));
}
