// The user's file of stocks: what is in it, what is refused, and that no failure costs the user his library.
#include "jtcore/AnlXlate/SpfTranslator.h"
#include "jtcore/Services/JtifParseException.h"
#include "jtcore/Stock/StockInformation.h"
#include "tests/FaultyFileSystem.h"
#include "tests/capabilityBuilder.h"
#include "tests/expectFailure.h"
#include "tests/stockBuilder.h"

#include <fcntl.h>
#include <gmock/gmock.h>
#include <sys/wait.h>
#include <unistd.h>

using testing::AllOf;
using testing::ElementsAre;
using testing::HasSubstr;

namespace {

std::string library(const std::string& attributes) { return "<stockpref>" + attributes + "</stockpref>"; }
// A white space first, as every list has it in a file.
std::string element(const std::string& id, const std::string& syntax, const std::string& members) {
    const bool isList = syntax == "1setOf" || syntax == "collection";
    return "<" + id + " syntax='" + syntax + "'>" + (isList ? "\n" : "") + members + "</" + id + ">";
}
std::string stocks(const std::string& values) { return element("media-user-defined", "1setOf", values); }
std::string stock(const std::string& members) { return element("value", "collection", members); }
std::string key(const std::string& name) { return element("media-key", "name", name); }
std::string printerFavorites(const std::string& values) { return element("media-favorites-printer", "1setOf", values); }
std::string userFavorites(const std::string& values) {
    return element("media-favorites-user-defined", "1setOf", values);
}
std::string color(const std::string& name) { return element("media-color", "keyword", name); }

std::string readCode() {
    return errorCodeOf([] { StockInformation stocks(makeCapabilities(list())); });
}

class StockPreferencesTest : public testing::Test {
protected:
    UserProfile profile_;
};

StockList aLibrary(std::u16string_view name) {
    StockList stocks;
    for (int i = 0; i < 5; ++i)
        stocks.addStock(described(namedSheet(std::u16string(name) + static_cast<char16_t>(u'0' + i))));
    return stocks;
}

AttrNodeList contentOf(const UserProfile& profile) {
    AttrNodeList content;
    SpfTranslator().fileToAnl(profile.folder() / UserProfile::current, content);
    return content;
}

} // namespace

TEST_F(StockPreferencesTest, beginsWithTenCommonSizes) {
    const Capabilities capabilities = makeCapabilities(list());
    StockInformation information(capabilities);
    EXPECT_THAT(show(information.getStocks()),
                ElementsAre("user 1 white 21600x27900 favorite", "user 2 white 21600x35600 favorite",
                            "user 3 white 43200x27900 favorite", "user 4 white 22900x27900 favorite",
                            "user 5 white 21600x33000 favorite", "user 6 white 22300x29700 favorite",
                            "user 7 white 21000x29700 favorite", "user 8 white 42000x29700 favorite",
                            "user 9 white 25000x35300 favorite", "user 10 white 25700x36400 favorite"));
    AttrNodeList first;
    information.getStocks().getNextStock().writeToMediaDatabase(first);
    EXPECT_EQ(show(first), "media-color=keyword:white media-type=keyword:stationery media-hole-count=0 "
                           "media-size=collection[x-dimension=21600 y-dimension=27900] media-key=name:1");
    EXPECT_EQ(profile_.folder().entries(), 0U) << "nothing is written before it is asked for";
    EXPECT_TRUE(information.getPreferences().getFilePath().empty());
    information.save();
    EXPECT_EQ(profile_.folder().entries(), 1U);
    EXPECT_EQ(show(StockInformation(capabilities).getStocks()), show(information.getStocks()));
}

TEST_F(StockPreferencesTest, writesLibraryAndFavouritesInTheOrderOfTheFile) {
    StockList stocks;
    stocks.addStock(stockOf(list().name(u"media", u"ann"))).setFavorite(true);
    stocks.addStock(stockOf(list().name(u"media", u"p"), StockType::printer)).setFavorite(true);
    stocks.addStock(stockOf(list().name(u"media", u"j"), StockType::job)).setFavorite(true);
    stocks.addStock(described(list().keyword(u"media-color", u"blue").keyword(u"media-key", u"iso-a4-white")));
    stocks.addStock(stockOf(list().name(u"media", u"q"), StockType::printer));
    StockPreferences().write(stocks);
    EXPECT_EQ(show(contentOf(profile_)),
              "media-user-defined=1setOf[value=collection[media-key=name:ann] "
              "value=collection[media-color=keyword:blue media-key=keyword:iso-a4-white]] "
              "media-favorites-user-defined=1setOf[value=name:ann] media-favorites-printer=1setOf[value=name:p]");
    EXPECT_TRUE(profile_.library().ends_with("</stockpref>"));
    const std::string before = profile_.library();
    StockPreferences again;
    StockList read = again.getUserStocks();
    StockList printers;
    printers.addStock(stockOf(list().name(u"media", u"p"), StockType::printer));
    again.markPrinterFavorites(printers);
    read.append(printers);
    again.write(read);
    EXPECT_EQ(profile_.library(), before);
}

TEST_F(StockPreferencesTest, readsTheOlderFileOnlyWhereTheCurrentOneIsMissing) {
    const std::string older = library(stocks(stock(key("old")))), current = library(stocks(stock(key("new"))));
    profile_.folder().write(UserProfile::older, older);
    StockPreferences fromOlder;
    EXPECT_THAT(show(fromOlder.getUserStocks()), ElementsAre("user old"));
    EXPECT_TRUE(fromOlder.getFilePath().ends_with(u"stkpref.spf"));
    fromOlder.write(fromOlder.getUserStocks());
    EXPECT_TRUE(fromOlder.getFilePath().ends_with(u"stkpr35.spf"));
    EXPECT_EQ(profile_.folder().content(UserProfile::older), older);
    EXPECT_THAT(show(StockPreferences().getUserStocks()), ElementsAre("user old"));
    profile_.writeLibrary(current);
    EXPECT_THAT(show(StockPreferences().getUserStocks()), ElementsAre("user new"));
    profile_.writeLibrary("broken");
    EXPECT_EQ(readCode(), "001:002") << "the older file does not stand in for a broken one";
}

TEST_F(StockPreferencesTest, favouritesFindTheirStocksByNameAndWaitForThePrinter) {
    const std::string twoStocks = stocks(stock(key("a") + color("blue")) + stock(color("white")));
    const struct {
        const char* what;
        std::string content;
        const char* ofUser;
        const char* ofPrinter;
        const char* saved;
    } cases[] = {
        {"none", library(twoStocks), "", "", ""},
        {"by name", library(twoStocks + userFavorites(element("value", "name", "a"))), "a", "", ""},
        {"of the user without a stock", library(twoStocks + userFavorites(element("value", "name", "z"))), "", "", ""},
        {"the syntax does not count", library(twoStocks + userFavorites(element("value", "keyword", "a"))), "a", "",
         ""},
        {"no name finds no unnamed stock",
         library(twoStocks + userFavorites(element("value", "boolean", "true") + "<value syntax='name'/>")), "", "",
         ""},
        {"of the printer", library(printerFavorites(element("value", "name", "p"))), "", "p", "value=name:p"},
        {"of a printer without it",
         library(printerFavorites(element("value", "name", "gone") + element("value", "keyword", "p") +
                                  element("value", "keyword", "lost"))),
         "", "p", "value=name:p value=name:gone value=keyword:lost"},
        {"older form, by name", library(twoStocks + userFavorites(stock(key("a")))), "a", "", ""},
        {"older form, unnamed", library(twoStocks + userFavorites(stock(color("white")))), "(unnamed)", "", ""},
        {"older form, of a printer",
         library(printerFavorites(stock(key("p") + color("red")) + stock(key("gone")) + stock(color("green")))), "",
         "p", "value=name:p value=name:gone"},
    };
    for (const char* file : {UserProfile::current, UserProfile::older})
        for (const auto& c : cases) {
            SCOPED_TRACE(std::string(c.what) + " in " + file);
            std::filesystem::remove(profile_.folder().path() / UserProfile::current);
            profile_.folder().write(file, c.content);
            StockPreferences preferences;
            StockList all = preferences.getUserStocks();
            StockList printers;
            printers.addStock(described(namedSheet(u"p", u"red"), StockType::printer));
            preferences.markPrinterFavorites(printers);
            all.append(printers);
            std::string ofUser, ofPrinter;
            for (const Stock& s : all)
                if (s.isFavorite())
                    (s.getType() == StockType::user ? ofUser : ofPrinter) +=
                        s.isNamed() ? toUtf8(s.getName().getValueText()) : "(unnamed)";
            EXPECT_EQ(ofUser, c.ofUser);
            EXPECT_EQ(ofPrinter, c.ofPrinter);
            preferences.write(all);
            AttrNodeList content = contentOf(profile_);
            const AttrNodeList* saved = nullptr;
            content.JtifAttrToList(saved, u"media-favorites-printer");
            EXPECT_EQ(saved ? show(*saved) : "", c.saved);
        }
}

TEST_F(StockPreferencesTest, refusesAFileThatIsDamaged) {
    const std::string good = stock(key("a"));
    const auto inStock = [](const std::string& members) { return library(stocks(stock(members))); };
    const struct {
        const char* what;
        std::string content;
        const char* code;
    } cases[] = {
        {"nothing", "", "001:002"},
        {"blanks", "  \n", "001:002"},
        {"no XML", "media-user-defined", "001:002"},
        {"zeros", std::string(500, '\0'), "001:002"},
        {"binary", "\x89PNG\r\n\x1a\n", "001:002"},
        {"half a file", library(stocks(good)).substr(0, 60), "001:002"},
        {"two roots", library("") + library(""), "001:002"},
        {"a tail", library("") + "x", "001:002"},
        {"crossed tags", "<stockpref><a></stockpref></a>", "001:002"},
        {"another root", "<jtif>" + stocks(good) + "</jtif>", "001:002"},
        {"a document type", "<!DOCTYPE stockpref SYSTEM \"x.dtd\">" + library(""), "001:002"},
        {"an internal subset", "<!DOCTYPE stockpref [<!ENTITY a 'b'>]>" + library(stocks(stock(key("&a;")))),
         "001:002"},
        {"an entity that is none", inStock(key("&a;")), "001:002"},
        {"a control character", inStock(key("&#1;")), "001:002"},
        {"half a character", inStock(key("\xe2\x82")), "001:002"},
        {"an encoding that is none", "<?xml version='1.0' encoding='none'?>" + library(""), "001:002"},
        {"a syntax twice", library("<a syntax='name' syntax='name'>x</a>"), "001:002"},
        {"a boolean that is no keyword", inStock(element("media-recycled", "boolean", "maybe")), "001:002"},
        {"a list with text", library("<media-user-defined syntax='1setOf'>a</media-user-defined>"), "008:000"},
        {"a stock with text", library(stocks("<value syntax='collection'>a</value>")), "008:000"},
        {"deeper than anybody looks", inStock([] {
             std::string nested;
             for (int i = 0; i < 80; ++i)
                 nested = element("a", "collection", nested + "\n");
             return nested;
         }()),
         "001:002"},
    };
    for (const auto& c : cases) {
        profile_.writeLibrary(c.content);
        EXPECT_EQ(readCode(), c.code) << c.what;
        EXPECT_EQ(profile_.library(), c.content) << c.what;
    }
}

TEST_F(StockPreferencesTest, refusesStocksThatASaveWouldLose) {
    const std::string longName(2000, 'x');
    const auto inStock = [](const std::string& members) { return library(stocks(stock(members))); };
    const struct {
        const char* what;
        std::string content;
        const char* attribute; // that the failure names
    } cases[] = {
        {"a library that is a name", library(element("media-user-defined", "name", "a")), "media-user-defined"},
        {"favourites that are a name", library(element("media-favorites-printer", "name", "a")),
         "media-favorites-printer"},
        {"the user's favourites a number", library(element("media-favorites-user-defined", "integer", "1")),
         "media-favorites-user-defined"},
        {"a stock that is a name", library(stocks(element("value", "name", "a"))), "media-user-defined"},
        {"a stock of an unknown syntax", library(stocks(element("value", "stock", "a"))), "media-user-defined"},
        {"a size that is a text", inStock(element("media-size", "keyword", "iso-a4")), "media-size"},
        {"an edge that is a text",
         inStock(element("media-size", "collection", element("x-dimension", "name", "21000"))), "x-dimension"},
        {"a weight that is a text", inStock(element("media-weight-metric", "keyword", "80")), "media-weight-metric"},
        {"holes that are a list", inStock(element("media-hole-count", "1setOf", key("a"))), "media-hole-count"},
        {"a colour that is a number", inStock(element("media-color", "integer", "5")), "media-color"},
        {"a type of an unknown syntax", inStock(element("media-type", "kind", "stationery")), "media-type"},
        {"a name that is a number", inStock(element("media-key", "integer", "5")), "media-key"},
        {"a name that is a list", inStock(element("media-key", "1setOf", key("a"))), "media-key"},
        {"a favourite with such a name", library(userFavorites(stock(element("media-key", "integer", "5")))),
         "media-key"},
        {"a name beyond all bounds", inStock(key(longName)), "media-key"},
        {"a description beyond all bounds", inStock(element("media-description", "name", longName)),
         "media-description"},
    };
    for (const auto& c : cases) {
        SCOPED_TRACE(c.what);
        profile_.writeLibrary(c.content);
        EXPECT_EQ(readCode(), "001:002");
        EXPECT_THAT(
            messageOf<JtifParseException>([] { StockPreferences preferences; }),
            AllOf(HasSubstr("stkpr35.spf is no usable library"), HasSubstr("'" + std::string(c.attribute) + "'")));
        EXPECT_EQ(profile_.library(), c.content);
    }
}

TEST_F(StockPreferencesTest, readsWhatIsOddButWhole) {
    const struct {
        const char* what;
        std::string content;
        std::vector<std::string> expected;
    } cases[] = {
        {"an empty root", "<stockpref/>", {}},
        {"an empty library", library(stocks("")), {}},
        {"only favourites", library(userFavorites(element("value", "name", "a"))), {}},
        {"an entry without members", library(stocks(stock("") + stock(key("a")))), {"user a"}},
        {"foreign attributes", library("<x/>" + element("y", "integer", "5") + stocks(stock(key("a")))), {"user a"}},
        {"a keyword that nobody knows",
         library(stocks(stock(element("media-key", "keyword", "press-1")))),
         {"user press-1"}},
        {"the same stock twice", library(stocks(stock(key("a")) + stock(key("a")))), {"user a", "user a"}},
        {"the same attribute twice", library(stocks(stock(key("a"))) + stocks(stock(key("b")))), {"user a"}},
        {"an extreme size",
         library(stocks(stock(key("a") + element("media-size", "collection",
                                                 element("x-dimension", "integer", "-2147483648") +
                                                     element("y-dimension", "integer", "99999999999"))))),
         {"user a -2147483648x2147483647"}},
    };
    for (const auto& c : cases) {
        profile_.writeLibrary(c.content);
        EXPECT_EQ(show(StockPreferences().getUserStocks()), c.expected) << c.what;
    }
}

TEST_F(StockPreferencesTest, aLibraryCutAnywhereIsRefusedOrRead) {
    StockPreferences().write(aLibrary(u"stock "));
    const std::string whole = profile_.library();
    for (std::size_t size = 0; size < whole.size(); ++size) {
        profile_.writeLibrary(whole.substr(0, size));
        ASSERT_EQ(errorCodeOf([] { StockPreferences preferences; }), "001:002") << "cut at " << size;
    }
}

TEST_F(StockPreferencesTest, aLibraryThatCannotBeReadIsNeverReplaced) {
    const std::string content = library(stocks(stock(key("a"))));
    profile_.folder().write(UserProfile::older, library(""));
    profile_.writeLibrary(content);
    const struct {
        const char* call;
        int error;
        const char* code;
    } cases[] = {
        {"open", EACCES, "001:015"}, {"open", EMFILE, "001:015"}, {"stat", EACCES, ""},
        {"stat", EIO, ""},           {"read", EIO, "001:012"},    {"fstat", EIO, "001:015"},
    };
    for (const auto& c : cases) {
        SCOPED_TRACE(std::string(c.call) + " " + std::to_string(c.error));
        FaultyFileSystem faults;
        faults.fail(c.call, c.error);
        const std::string code = errorCodeOf([] { StockPreferences preferences; });
        EXPECT_EQ(code, c.code);
        if (code.empty()) {
            EXPECT_THAT(show(StockPreferences().getUserStocks()), ElementsAre("user a"));
        }
    }
    EXPECT_EQ(profile_.library(), content);
    std::filesystem::remove(profile_.folder().path() / UserProfile::current);
    std::filesystem::create_directory(profile_.folder().path() / UserProfile::current);
    EXPECT_EQ(readCode(), "001:015") << "a folder of that name";
}

TEST_F(StockPreferencesTest, aSaveThatFailsSaysSoAndLeavesTheLibraryWhole) {
    StockPreferences preferences;
    preferences.write(aLibrary(u"old "));
    const std::string old = profile_.library();
    const struct {
        const char* call;
        int error;
        const char* code;
    } cases[] = {
        {"open", EACCES, "001:017"},  {"open", ENOSPC, "001:017"},   {"open", EROFS, "001:017"},
        {"write", ENOSPC, "001:019"}, {"write", EIO, "001:019"},     {"fsync", EIO, "001:019"},
        {"close", EIO, "001:019"},    {"rename", EACCES, "001:019"},
    };
    preferences.write(aLibrary(u"new "));
    const std::string fresh = profile_.library();
    for (const auto& c : cases)
        for (int after = 0; after < 3; ++after) {
            SCOPED_TRACE(std::string(c.call) + " fails after " + std::to_string(after));
            profile_.writeLibrary(old);
            std::string code;
            {
                FaultyFileSystem faults;
                faults.fail(c.call, c.error, after);
                code = errorCodeOf([&] { preferences.write(aLibrary(u"new ")); });
            }
            const std::string content = profile_.library();
            if (after == 0) {
                EXPECT_EQ(code, c.code);
                EXPECT_EQ(content, old);
            } else {
                // A call that was made less often has not failed; one behind the replacement cannot undo it.
                EXPECT_TRUE(code.empty() || code.starts_with("001:01")) << code;
                EXPECT_TRUE(content == fresh || (content == old && !code.empty())) << content;
            }
        }
    EXPECT_EQ(profile_.folder().entries(), 1U) << "no temporary file is left";
}

TEST_F(StockPreferencesTest, aSaveToWhereNothingCanBeWrittenFails) {
    StockPreferences preferences;
    const auto path = profile_.folder().path() / UserProfile::current;
    preferences.write(aLibrary(u"old "));
    const std::string old = profile_.library();
    std::filesystem::permissions(path, std::filesystem::perms::owner_read);
    EXPECT_EQ(errorCodeOf([&] { preferences.write(aLibrary(u"new ")); }), "001:017") << "a file that is read only";
    EXPECT_EQ(profile_.library(), old);
    EXPECT_EQ(errorCodeOf([&] {
                  StockList stocks = aLibrary(u"new ");
                  stocks.begin().operator*().setName(nameValue(u"bell \a"));
                  std::filesystem::permissions(path, std::filesystem::perms::owner_all);
                  preferences.write(stocks);
              }),
              "001:003")
        << "a name that no file can hold";
    EXPECT_EQ(profile_.library(), old);

    EnvironmentVariable home("HOME", (profile_.folder().path() / "missing").c_str());
    StockPreferences nowhere;
    EXPECT_EQ(nowhere.getUserStocks().getSize(), 10U);
    EXPECT_EQ(errorCodeOf([&] { nowhere.write(aLibrary(u"new ")); }), "001:017") << "a folder that is not there";
}

namespace {

// Ends the process before or after the n-th call that changes something, or half way through it.
class DeadlyFileSystem : public FileSystem {
public:
    enum When { before, halfway, after };
    static constexpr int killed = 99;

    DeadlyFileSystem(int call, When when) : left_(call), when_(when), earlier_(installFileSystem(this)) {}
    ~DeadlyFileSystem() override { installFileSystem(earlier_); }

    int open(const char* path, int flags, mode_t mode) override {
        if ((flags & O_ACCMODE) == O_RDONLY) return FileSystem::open(path, flags, mode);
        return deadly([&] { return FileSystem::open(path, flags, mode); });
    }
    ssize_t write(int file, const void* bytes, std::size_t size) override {
        if (left_ == 1 && when_ == halfway) size /= 2;
        return deadly([&] { return FileSystem::write(file, bytes, size); });
    }
    int ftruncate(int file, off_t size) override {
        return deadly([&] { return FileSystem::ftruncate(file, size); });
    }
    int fsync(int file) override {
        return deadly([&] { return FileSystem::fsync(file); });
    }
    int close(int file) override {
        return deadly([&] { return FileSystem::close(file); });
    }
    int fchmod(int file, mode_t mode) override {
        return deadly([&] { return FileSystem::fchmod(file, mode); });
    }
    int fchown(int file, uid_t owner, gid_t group) override {
        return deadly([&] { return FileSystem::fchown(file, owner, group); });
    }
    int rename(const char* from, const char* to) override {
        return deadly([&] { return FileSystem::rename(from, to); });
    }
    int renameNew(const char* from, const char* to) override {
        return deadly([&] { return FileSystem::renameNew(from, to); });
    }
    int link(const char* from, const char* to) override {
        return deadly([&] { return FileSystem::link(from, to); });
    }
    int unlink(const char* path) override {
        return deadly([&] { return FileSystem::unlink(path); });
    }

private:
    template <typename Call>
    auto deadly(Call call) -> decltype(call()) {
        const bool isLast = --left_ == 0;
        if (isLast && when_ == before) _exit(killed);
        const auto result = call();
        if (isLast) _exit(killed);
        return result;
    }

    int left_;
    When when_;
    FileSystem* earlier_;
};

// The exit code of a process that saves the library and is killed in the given call.
int saveAndDie(StockPreferences& preferences, const StockList& stocks, int call, DeadlyFileSystem::When when) {
    const pid_t child = fork();
    if (child == 0) {
        DeadlyFileSystem fileSystem(call, when);
        _exit(errorCodeOf([&] { preferences.write(stocks); }).empty() ? 0 : 1);
    }
    int status = 0;
    waitpid(child, &status, 0);
    return WIFEXITED(status) ? WEXITSTATUS(status) : -1;
}

} // namespace

TEST_F(StockPreferencesTest, aKillAtAnyCallLeavesTheOldLibraryOrTheNewOne) {
    StockPreferences preferences;
    const StockList oldStocks = aLibrary(u"old "), newStocks = aLibrary(u"another one, and longer ");
    preferences.write(newStocks);
    const std::string newContent = profile_.library();
    preferences.write(oldStocks);
    const std::string oldContent = profile_.library();
    for (const bool isThere : {true, false}) {
        int seenOld = 0, seenNew = 0;
        for (const auto when : {DeadlyFileSystem::before, DeadlyFileSystem::halfway, DeadlyFileSystem::after})
            for (int call = 1;; ++call) {
                if (isThere)
                    profile_.writeLibrary(oldContent);
                else
                    std::filesystem::remove(profile_.folder().path() / UserProfile::current);
                const int code = saveAndDie(preferences, newStocks, call, when);
                const std::string content = profile_.library();
                seenNew += content == newContent;
                seenOld += content == (isThere ? oldContent : "(missing)");
                if (code == 0) {
                    EXPECT_EQ(content, newContent);
                    break;
                }
                ASSERT_EQ(code, DeadlyFileSystem::killed) << "call " << call;
                ASSERT_TRUE(content == newContent || content == (isThere ? oldContent : "(missing)"))
                    << "call " << call;
                ASSERT_LT(call, 1000);
            }
        EXPECT_GT(seenOld, 10);
        EXPECT_GT(seenNew, 5);
    }
}
