// Stocks, lists of them, and the media database that keeps a job and a list in step.
#include "jtcore/Capabilities/LimitationsDisplay.h"
#include "jtcore/Printer/PrinterDefaults.h"
#include "jtcore/Stock/StockInformation.h"
#include "platform/windows.h"
#include "tests/FakeResources.h"
#include "tests/capabilityBuilder.h"
#include "tests/expectFailure.h"
#include "tests/stockBuilder.h"

#include <functional>
#include <gmock/gmock.h>

using testing::ElementsAre;
using testing::IsEmpty;

namespace {

const FeatureId media(Feature::media);
const FeatureId mediaCol(Feature::mediaCol);

ListBuilder named(std::u16string_view name) { return list().name(u"media", name); }
ListBuilder withId(ListBuilder level, std::int32_t id) { return level.integer(Stock::logicalIdAttribute, id).hidden(); }

std::string showKind(const Stock& stock) { return stock.getNameKind() == StockNameKind::media ? "media" : "key"; }

} // namespace

TEST(Stock, isReadOutOfALevelOfSettings) {
    const struct {
        const char* what;
        AttrNodeList level;
        const char* expected; // kind, name, settings
    } cases[] = {
        {"nothing", {}, ""},
        {"only an id", withId(list(), 5), ""},
        {"an empty collection", list().collection(u"media-col", list()), ""},
        {"other settings", list().integer(u"copies", 2), ""},
        {"a name", named(u"ann"), "media ann: media=name:ann"},
        {"a name with an id", withId(named(u"ann"), 5), "media ann: media=name:ann private-stock-logical-id=5!"},
        {"an id that is not ours", named(u"ann").integer(Stock::logicalIdAttribute, 5), "media ann: media=name:ann"},
        {"a description", list().collection(u"media-col", list().keyword(u"media-color", u"blue")),
         "key (unnamed): media-col=collection[media-color=keyword:blue]"},
        {"a described name",
         list().collection(u"media-col", list().name(u"media-key", u"ann").integer(u"media-tooth", 1)),
         "media ann: media=name:ann"},
        {"a collection beside a name", named(u"ann").collection(u"media-col", list().keyword(u"media-color", u"blue")),
         "key (unnamed): media-col=collection[media-color=keyword:blue]"},
        {"a collection with a key beside a name",
         named(u"ann").collection(u"media-col", list().name(u"media-key", u"bob").keyword(u"media-color", u"blue")),
         "key bob: media-col=collection[media-color=keyword:blue]"},
        {"only a key", list().collection(u"media-col", list().name(u"media-key", u"ann")), "media ann: media=name:ann"},
        {"two keys",
         list().collection(u"media-col",
                           list().name(u"media-key", u"ann").name(u"media-key", u"bob").integer(u"x-grams", 5)),
         "key ann: media-col=collection[x-grams=5]"},
        {"a key beyond the table",
         list().collection(u"media-col", list().name(u"media-key", std::u16string(2000, u'x')).integer(u"x-grams", 5)),
         "key (unnamed): media-col=collection[x-grams=5]"},
        {"an empty collection beside a name", named(u"ann").collection(u"media-col", list()),
         "media ann: media=name:ann"},
        {"a keyword that the table knows", list().keyword(u"media", u"iso-a4-white"),
         "media iso-a4-white: media=keyword:iso-a4-white"},
        {"a keyword that nobody knows", list().keyword(u"media", u"press-4711"),
         "media press-4711: media=name:press-4711"},
        {"a name beyond the table", named(std::u16string(2000, u'x')), ""},
        {"a name that is a list", list().set(u"media", named(u"ann")), ""},
        {"a collection that is a text", named(u"ann").text(u"media-col", u"bob"), "media ann: media=name:ann"},
        {"a size that is a text",
         list().collection(u"media-col", list().text(u"media-size", u"A4").keyword(u"media-color", u"blue")),
         "key (unnamed): media-col=collection[media-color=keyword:blue]"},
        {"a weight that is a text",
         list().collection(u"media-col", list().name(u"media-weight-metric", u"80").integer(u"media-hole-count", 2)),
         "key (unnamed): media-col=collection[media-hole-count=2]"},
        {"an attribute that nobody knows", list().collection(u"media-col", list().integer(u"x-grams", 5)),
         "key (unnamed): media-col=collection[x-grams=5]"},
    };
    for (const auto& c : cases) {
        SCOPED_TRACE(c.what);
        const FeatureSettings settings(c.level);
        const auto stock = Stock::fromSettings(settings, StockType::printer);
        std::string shown;
        if (stock)
            shown = showKind(*stock) + ' ' +
                    (stock->isNamed() ? toUtf8(stock->getName().getValueText()) : "(unnamed)") + ": " +
                    show(stock->getSettings().getAttrNodeList());
        EXPECT_EQ(shown, c.expected);
        if (!stock) continue;
        EXPECT_EQ(stock->getType(), StockType::printer);
        EXPECT_FALSE(stock->isFavorite());
        EXPECT_EQ(stock->getLogicalId(), Stock::getLogicalIdOf(settings));
    }
}

TEST(Stock, comesBackFromTheMediaDatabase) {
    const struct {
        AttrNodeList level;
        const char* written;
    } cases[] = {
        {named(u"ann"), "media-key=name:ann"},
        {list().keyword(u"media", u"iso-a4-white"), "media-key=keyword:iso-a4-white"},
        {list().collection(u"media-col", namedSheet(u"ann", u"blue")),
         "media-color=keyword:blue media-size=collection[x-dimension=21000 y-dimension=29700] media-key=name:ann"},
        {withId(list().collection(u"media-col", list().keyword(u"media-color", u"blue")), 7),
         "media-color=keyword:blue"},
    };
    for (const auto& c : cases) {
        const Stock stock = stockOf(c.level);
        AttrNodeList written = list().integer(u"copies", 1);
        stock.writeToMediaDatabase(written);
        EXPECT_EQ(show(written), c.written);
        AttrNodeList database = list().collection(u"value", list());
        *database.getNode(u"value") = AttrNode(u"value", IppList(written, syntaxCollection));
        StockList again = StockList::fromAttributes(database, StockType::user);
        EXPECT_EQ(again.getNextStock().compare(stock), StockDifference::none);
    }
    AttrNodeList nothing = list().integer(u"copies", 1);
    Stock(0, {}, StockType::user, StockNameKind::media, FeatureSettings()).writeToMediaDatabase(nothing);
    EXPECT_TRUE(nothing.isEmpty());
}

TEST(Stock, matchesByIdThenByNameThenByMedia) {
    const AttrNodeList whiteA = list().collection(u"media-col", namedSheet(u"ann"));
    const AttrNodeList whiteB = list().collection(u"media-col", namedSheet(u"bob"));
    const AttrNodeList blueA = list().collection(u"media-col", namedSheet(u"ann", u"blue"));
    const AttrNodeList white = list().collection(u"media-col", sheet(u"white"));
    const AttrNodeList blue = list().collection(u"media-col", sheet(u"blue"));
    const struct {
        const char* rule;
        Stock one;
        Stock other;
        StockMatch expected;
    } cases[] = {
        {"equal ids, whatever else", stockOf(whiteA, StockType::user, 5), stockOf(named(u"z"), StockType::job, 5),
         StockMatch::sameId},
        {"other ids, whatever else", stockOf(whiteA, StockType::user, 5), stockOf(whiteA, StockType::user, 6),
         StockMatch::none},
        {"one id does not count", stockOf(whiteA, StockType::user, 5), stockOf(whiteA), StockMatch::sameName},
        {"one id does not count, unnamed", stockOf(whiteA, StockType::user, 5), stockOf(white), StockMatch::sameMedia},
        {"the kinds of name differ", stockOf(named(u"ann")), stockOf(whiteA), StockMatch::none},
        {"equal names", stockOf(named(u"ann")), stockOf(named(u"ann")), StockMatch::sameName},
        {"other names", stockOf(named(u"ann")), stockOf(named(u"bob")), StockMatch::none},
        {"equal media, other names", stockOf(whiteA), stockOf(whiteB), StockMatch::none},
        {"equal names, other media", stockOf(whiteA), stockOf(blueA), StockMatch::none},
        {"equal names and media", stockOf(whiteA), stockOf(whiteA), StockMatch::sameName},
        {"one unnamed", stockOf(whiteA), stockOf(white), StockMatch::sameMedia},
        {"both unnamed", stockOf(white), stockOf(white), StockMatch::sameMedia},
        {"unnamed, other media", stockOf(whiteA), stockOf(blue), StockMatch::none},
        {"the type does not count", stockOf(whiteA), stockOf(whiteA, StockType::printer), StockMatch::sameName},
    };
    for (const auto& c : cases) {
        EXPECT_EQ(c.one.matches(c.other), c.expected) << c.rule;
        EXPECT_EQ(c.other.matches(c.one), c.expected) << c.rule << ", the other way round";
    }
}

TEST(Stock, comparesByTheWeightiestDifference) {
    const Stock stock = described(namedSheet(u"ann"), StockType::user, 5);
    const struct {
        const char* rule;
        std::function<void(Stock&)> change;
        StockDifference expected;
    } cases[] = {
        {"a copy", [](Stock&) {}, StockDifference::none},
        {"the favourite mark", [](Stock& s) { s.setFavorite(true); }, StockDifference::none},
        {"the id", [](Stock& s) { s.setLogicalId(6); }, StockDifference::logicalId},
        {"the type, and the id", [](Stock& s) { s.setType(StockType::job), s.setLogicalId(6); }, StockDifference::type},
        {"the name, and the type", [](Stock& s) { s.setName(nameValue(u"bob")), s.setType(StockType::job); },
         StockDifference::name},
        {"no name", [](Stock& s) { s.setName({}); }, StockDifference::name},
        {"the media, and the name",
         [](Stock& s) {
             s.getSettings().setFeatureValue(FeatureId(Feature::mediaColor), {});
             s.setName(nameValue(u"bob"));
         },
         StockDifference::media},
        {"what the name stands for", [](Stock& s) { s.setNameKind(StockNameKind::media); }, StockDifference::nameKind},
    };
    for (const auto& c : cases) {
        Stock changed = stock;
        c.change(changed);
        EXPECT_EQ(stock.compare(changed), c.expected) << c.rule;
        EXPECT_EQ(changed.compare(stock), c.expected) << c.rule << ", the other way round";
    }
}

TEST(Stock, hasTheSameMediaWhenAllThatDescribesThePaperAgrees) {
    for (std::uint32_t number = featureFirst; number <= featureLast; ++number) {
        const FeatureId feature(Feature{number});
        if (!Stock::isStockFeature(feature)) continue;
        const bool isList = feature.hasSyntax(AVTE::list);
        const bool isName = feature == FeatureId(Feature::media) || feature == FeatureId(Feature::mediaKey);
        if (isList) continue;
        Stock one = described(list().integer(u"x-grams", 5));
        Stock other = one;
        one.getSettings().setString(feature, u"7");
        EXPECT_EQ(one.hasSameMedia(other), isName) << toUtf8(feature.getUniqueId()) << " here only";
        EXPECT_EQ(other.hasSameMedia(one), isName) << toUtf8(feature.getUniqueId()) << " there only";
        other.getSettings().setString(feature, u"8");
        EXPECT_EQ(one.hasSameMedia(other), isName) << toUtf8(feature.getUniqueId()) << " differs";
        other.getSettings().setString(feature, u"7");
        EXPECT_TRUE(one.hasSameMedia(other)) << toUtf8(feature.getUniqueId());
    }
    EXPECT_FALSE(Stock::isStockFeature(FeatureId(Feature::copies)));
    EXPECT_TRUE(Stock::isStockFeature(mediaCol) && Stock::isStockFeature(FeatureId(Feature::mediaSize)));
}

TEST(Stock, appliesItselfToALevelInPlaceOfWhatWasThere) {
    FeatureSettings level(
        AttrNodeList(withId(named(u"old").integer(u"copies", 2).collection(u"media-col", sheet(u"blue")), 9)));
    described(list().keyword(u"media-color", u"white"), StockType::user, 5).applyTo(level);
    EXPECT_EQ(show(level.getAttrNodeList()),
              "copies=2 media-col=collection[media-color=keyword:white] private-stock-logical-id=5!");
    stockOf(named(u"ann")).applyTo(&level.getAttrNodeList());
    EXPECT_EQ(show(level.getAttrNodeList()), "copies=2 media=name:ann");
    Stock::copyMedia(FeatureSettings(AttrNodeList(withId(list().collection(u"media-col", list()), 3))), level);
    EXPECT_EQ(show(level.getAttrNodeList()), "copies=2 private-stock-logical-id=3!");
    Stock::clearFrom(level);
    EXPECT_EQ(show(level.getAttrNodeList()), "copies=2");
}

TEST(Stock, keepsItsNameAndItsDescriptionInStep) {
    Stock stock = described(namedSheet(u"ann"));
    stock.setNameKind(StockNameKind::media);
    EXPECT_EQ(show(stock.getSettings().getAttrNodeList()), "media=name:ann");
    stock.setName(nameValue(u"bob"));
    EXPECT_EQ(show(stock.getSettings().getAttrNodeList()), "media=name:bob");
    stock.setNameKind(StockNameKind::key);
    EXPECT_EQ(show(stock.getSettings().getAttrNodeList()), "");
    EXPECT_EQ(stock.getName(), nameValue(u"bob"));
}

TEST(Stock, ownsItsSettings) {
    FeatureSettings settings;
    settings.setFeatureValue(media, nameValue(u"ann"));
    Stock stock(0, nameValue(u"ann"), StockType::user, StockNameKind::media,
                FeatureSettings::view(&settings.getAttrNodeList()));
    settings.setFeatureValue(media, {});
    EXPECT_EQ(show(stock.getSettings().getAttrNodeList()), "media=name:ann");
    Stock copy = stock;
    copy.assignNewLogicalId();
    EXPECT_NE(copy.getLogicalId(), 0U);
    EXPECT_EQ(stock.getLogicalId(), 0U);
    stock.assignNewLogicalId();
    EXPECT_EQ(stock.getLogicalId(), copy.getLogicalId() + 1);
    EXPECT_EQ(Stock::getLogicalIdOf(stock.getSettings()), stock.getLogicalId());
}

TEST(Stock, showsWhereItComesFrom) {
    FakeResources resources;
    Stock stock = stockOf(named(u"ann"), StockType::job);
    EXPECT_EQ(toUtf8(stock.getDisplayString()), "ann");
    stock.setType(StockType::user);
    EXPECT_EQ(toUtf8(stock.getDisplayString()), "ann#7500");
    stock.setType(StockType::printer);
    EXPECT_EQ(toUtf8(stock.getDisplayString()), "ann#7501");
    stock.setType(StockType{4});
    EXPECT_EQ(messageOf<UnknownCaseException>([&] { stock.getDisplayString(); }),
              "Stock::getDisplayString(): Unexpected stock type enumeration value of (4)!\r\n");
}

TEST(Stock, isHeldAgainstThePrinterBeforeItGoesIntoAJob) {
    const PrinterModel model = modelOfFamily(1);
    const Capabilities printer =
        makeCapabilities(list()
                             .set(u"job-creation-attributes-supported", keywords({u"media-col"}))
                             .set(u"media-col-supported", keywords({u"media-color"}))
                             .set(u"media-color-supported", keywords({u"white"})),
                         model);
    const PrinterDefaults defaults(model, TicketForm::current);
    const struct {
        const char* what;
        const char16_t* color;
        int answer; // 0 when nobody may ask
        bool goesOn;
        StockType type;
        const char* settings;
    } cases[] = {
        {"what the printer has", u"white", 0, true, StockType::user, "media-col=collection[media-color=keyword:white]"},
        {"refused", u"blue", IDCANCEL, false, StockType::user, "media-col=collection[media-color=keyword:blue]"},
        {"repaired", u"blue", IDOK, true, StockType::job, "media-col=collection[media-color=keyword:white]"},
    };
    for (const auto& c : cases) {
        SCOPED_TRACE(c.what);
        std::string title;
        const auto before = installLimitationsDisplay([&](const LimitationsReport& report) {
            title = toUtf8(report.title);
            EXPECT_TRUE(report.canCancel);
            return c.answer;
        });
        Stock stock = described(list().keyword(u"media-color", c.color).name(u"media-key", u"ann"));
        EXPECT_EQ(stock.checkStock(printer, defaults, noParentFeature, nullptr), c.goesOn);
        installLimitationsDisplay(before);
        EXPECT_EQ(title.empty(), c.answer == 0) << title;
        EXPECT_TRUE(title.empty() || title.ends_with(toUtf8(nameValue(u"ann").getDisplayString()) + " (library)"))
            << title;
        EXPECT_EQ(stock.getType(), c.type);
        EXPECT_EQ(show(stock.getSettings().getAttrNodeList()), c.settings);
    }
}

TEST(StockList, keepsAddressesAndCursorsWhileItsStocksComeAndGo) {
    StockList stocks;
    std::vector<Stock*> elements;
    for (const char16_t* name : {u"ann", u"bob", u"c", u"d", u"e"})
        elements.push_back(&stocks.addStock(stockOf(named(name))));
    for (int i = 0; i < 100; ++i)
        stocks.addStock(stockOf(named(u"z")));
    EXPECT_EQ(&stocks.getNextStock(), elements[0]);
    EXPECT_EQ(&stocks.getNextStock(), elements[1]);
    EXPECT_EQ(stocks.removeStock(elements[1]), 1U); // directly behind the cursor
    EXPECT_EQ(&stocks.getNextStock(), elements[2]);
    EXPECT_EQ(stocks.removeStock(elements[0]), 0U); // further behind
    EXPECT_EQ(&stocks.getNextStock(), elements[3]);
    EXPECT_EQ(stocks.removeStock(elements[4]), 2U); // before it
    EXPECT_EQ(show(stocks.getNextStock()), "user z");

    StockList::Position position = 0;
    while (stocks.hasMoreStocks(position))
        if (Stock& stock = stocks.getNextStock(position); show(stock) == "user z")
            position = stocks.removeStock(&stock);
    EXPECT_THAT(show(stocks), ElementsAre("user c", "user d"));
    EXPECT_FALSE(stocks.hasMoreStocks());
    EXPECT_TRUE(stocks.contains(elements[2]));
    EXPECT_FALSE(stocks.contains(nullptr));
    EXPECT_EQ(stocks.removeStock(nullptr), 2U);
    EXPECT_EQ(
        messageOf<NodeAccessOutOfBoundsException>([&] { stocks.getNextStock(); }),
        "StockList::getNextStock(): No more Stocks to get. Caller failed to test with hasMoreStocks() first!\r\n");

    stocks.append(stocks);
    EXPECT_THAT(show(stocks), ElementsAre("user c", "user d", "user c", "user d"));
    StockList copy;
    copy = stocks;
    stocks.clear();
    EXPECT_EQ(show(copy.getNextStock()), "user c");
    EXPECT_FALSE(stocks.hasMoreStocks());
}

TEST(StockList, readsADatabaseInItsOrderAndLeavesOutWhatDescribesNothing) {
    const AttrNodeList database = list()
                                      .collection(u"value", namedSheet(u"bob"))
                                      .collection(u"value", list())
                                      .keyword(u"value", u"a4")
                                      .collection(u"other", namedSheet(u"x"))
                                      .collection(u"value", list().name(u"media-key", u"ann"));
    EXPECT_THAT(show(StockList::fromAttributes(database, StockType::printer)),
                ElementsAre("printer bob white 21000x29700", "printer ann"));
}

namespace {

// A media database whose user has a library of ann (white) and bob (blue), and whose printer has ann (white) and p
// (red).
class StockInformationTest : public testing::Test {
protected:
    StockInformationTest() {
        std::string library = "<stockpref><media-user-defined syntax='1setOf'>\n";
        for (const char* row : {"ann white", "bob blue"})
            library += "<value syntax='collection'>\n<media-key syntax='name'>" + std::string(row, 3) +
                       "</media-key><media-color syntax='keyword'>" + std::string(row + 4) +
                       "</media-color><media-size syntax='collection'>\n<x-dimension "
                       "syntax='integer'>21000</x-dimension><y-dimension syntax='integer'>29700</y-dimension>"
                       "</media-size></value>";
        profile_.writeLibrary(library + "</media-user-defined></stockpref>");
        stocks_ = std::make_unique<StockInformation>(capabilities_);
    }

    Stock& element(std::size_t index) {
        StockList::Position position = index;
        return stocks_->getStocks().getNextStock(position);
    }
    // A job that uses ann twice, bob twice and p of the database, and twice a stock of its own.
    void bindJob() {
        const ListBuilder white = list().collection(u"media-col", sheet(u"white"));
        const ListBuilder blueB = list().collection(u"media-col", namedSheet(u"bob", u"blue"));
        const ListBuilder red = list().collection(u"media-col", sheet(u"red"));
        const ListBuilder own = list().collection(u"media-col", sheet(u"green"));
        job_ = FeatureSettings(AttrNodeList(
            list()
                .collection(u"media-col", sheet(u"white"))
                .collection(u"cover-front", blueB)
                .collection(u"cover-back", own)
                .set(u"insert-sheet", list().collection(u"value", white).collection(u"value", red))
                .set(u"page-overrides",
                     list().collection(u"value", blueB).collection(u"value", own).collection(u"value", list()))));
        stocks_->setSettings(&job_);
    }
    // "2 nested" for two uses, at least one of them by a cover, an insert or the like.
    std::string usage(const char* name, StockType type = StockType::user) {
        for (Stock& stock : stocks_->getStocks())
            if (stock.getType() == type && toUtf8(stock.getName().getValueText()) == name)
                return std::to_string(stocks_->getUseCount(&stock)) +
                       (stocks_->isUsedInNestedFeature(&stock) ? " nested" : "");
        return "none";
    }
    std::string colorOf(const FeatureSettings& level) {
        const Stock* stock = stocks_->findStockForSettings(level);
        return stock ? show(*stock) : "none";
    }

    UserProfile profile_;
    Capabilities capabilities_ = makeCapabilities(
        list().set(u"media-col-database",
                   list().collection(u"value", namedSheet(u"ann")).collection(u"value", namedSheet(u"p", u"red"))));
    std::unique_ptr<StockInformation> stocks_;
    FeatureSettings job_;
};

const FeatureId coverFront(Feature::coverFront);
const FeatureId coverBack(Feature::coverBack);

} // namespace

TEST_F(StockInformationTest, joinsLibraryAndPrinter) {
    EXPECT_THAT(show(stocks_->getStocks()), ElementsAre("user ann white 21000x29700", "user bob blue 21000x29700",
                                                        "printer ann white 21000x29700", "printer p red 21000x29700"));
    std::uint32_t last = 0;
    for (const Stock& stock : stocks_->getStocks()) {
        EXPECT_GT(stock.getLogicalId(), last);
        last = stock.getLogicalId();
        EXPECT_EQ(Stock::getLogicalIdOf(stock.getSettings()), last);
    }
}

TEST_F(StockInformationTest, recognisesTheStocksOfAJob) {
    bindJob();
    EXPECT_EQ(usage("ann"), "2 nested");
    EXPECT_EQ(usage("ann", StockType::printer), "0");
    EXPECT_EQ(usage("bob"), "2 nested");
    EXPECT_EQ(usage("p", StockType::printer), "1 nested");
    EXPECT_EQ(usage("1", StockType::job), "2 nested");
    const auto level = [&](const FeatureId& id) { return show(job_.getCollection(id).getAttrNodeList()); };
    const std::string id = std::to_string(element(4).getLogicalId());
    EXPECT_EQ(
        level(coverBack),
        "media-col=collection[media-color=keyword:green media-size=collection[x-dimension=21000 y-dimension=29700]] "
        "private-stock-logical-id=" +
            id + "!");
    // From now on a level is known by its id, whatever becomes of its description.
    job_.getCollectionView(coverBack).setFeatureValue(FeatureId(Feature::mediaColor), Value::white);
    EXPECT_EQ(colorOf(job_.getCollection(coverBack)), "job 1 green 21000x29700");
    stocks_->rebuildUsage();
    EXPECT_EQ(usage("1", StockType::job), "2 nested");
    EXPECT_EQ(stocks_->getStocks().getSize(), 5U);
}

TEST_F(StockInformationTest, prefersTheUsersStockToThePrintersAndThatToTheJobs) {
    Stock named = described(namedSheet(u"ann"), StockType::job);
    EXPECT_EQ(stocks_->findBestMatch(named), &element(0));
    stocks_->removeStock(&element(0));
    Stock& ofJob = stocks_->addStock(named);
    EXPECT_EQ(stocks_->findBestMatch(named)->getType(), StockType::printer);
    stocks_->removeStock(stocks_->findBestMatch(named));
    EXPECT_EQ(stocks_->findBestMatch(named), &ofJob);
    // A better match wins over a better type.
    Stock unnamed = described(sheet(u"white"), StockType::job);
    EXPECT_EQ(stocks_->findBestMatch(unnamed), &ofJob);
    Stock& ofUser = stocks_->addStock(described(namedSheet(u"other")));
    EXPECT_EQ(stocks_->findBestMatch(unnamed), &ofUser);
    EXPECT_EQ(stocks_->findBestMatch(named), &ofJob);
    EXPECT_EQ(stocks_->findBestMatch(described(sheet(u"yellow"))), nullptr);
    EXPECT_EQ(stocks_->findStockForSettings(FeatureSettings()), nullptr);
}

TEST_F(StockInformationTest, forgetsTheStocksThatTheJobNoLongerUses) {
    bindJob();
    job_.setFeatureValue(coverBack, {});
    stocks_->refresh();
    EXPECT_EQ(usage("1", StockType::job), "1 nested");
    job_.getAttrNodeList().deleteNode(u"page-overrides");
    stocks_->refresh();
    EXPECT_EQ(usage("1", StockType::job), "none");
    EXPECT_EQ(stocks_->generateName(), nameValue(u"1"));
    stocks_->setSettings(nullptr);
    EXPECT_EQ(usage("ann"), "0");
}

TEST_F(StockInformationTest, carriesAChangeToEveryPlaceThatUsesTheStock) {
    bindJob();
    Stock changed = element(1);
    changed.getSettings().setFeatureValue(FeatureId(Feature::mediaColor), Value::white);
    EXPECT_EQ(&stocks_->updateStock(&changed), &element(1));
    EXPECT_EQ(show(element(1)), "user bob white 21000x29700");
    EXPECT_TRUE(show(job_.getAttrNodeList()).find("blue") == std::string::npos) << show(job_.getAttrNodeList());
    // One that comes without an id takes over the description, not the identity.
    const std::uint32_t id = element(1).getLogicalId();
    Stock known = described(namedSheet(u"bob"));
    known.setFavorite(true);
    stocks_->updateStock(&known);
    EXPECT_EQ(element(1).getLogicalId(), id);
    EXPECT_TRUE(element(1).isFavorite());
    EXPECT_EQ(usage("bob"), "2 nested");
    stocks_->rebuildUsage();
    EXPECT_EQ(usage("bob"), "2 nested");
}

TEST_F(StockInformationTest, replacesAStockWhereverTheJobUsesIt) {
    bindJob();
    stocks_->replaceStock(&element(1), &element(3));
    EXPECT_EQ(usage("bob"), "0");
    EXPECT_EQ(usage("p", StockType::printer), "3 nested");
    EXPECT_EQ(colorOf(job_.getCollection(coverFront)), "printer p red 21000x29700");
    stocks_->rebuildUsage();
    EXPECT_EQ(usage("p", StockType::printer), "3 nested");
    const AttrNodeList before = job_.getAttrNodeList();
    stocks_->replaceStock(&element(1), &element(0)); // not in use
    stocks_->replaceStock(&element(3), &element(3));
    EXPECT_EQ(job_.getAttrNodeList(), before);
    EXPECT_EQ(usage("p", StockType::printer), "3 nested");
}

TEST_F(StockInformationTest, keepsAUsersStockThatTheJobUsesAsOneOfTheJob) {
    bindJob();
    stocks_->removeStock(&element(1));
    EXPECT_EQ(usage("bob", StockType::job), "2 nested");
    stocks_->removeStock(&element(0));
    EXPECT_THAT(show(stocks_->getStocks()),
                ElementsAre("job ann white 21000x29700", "job bob blue 21000x29700", "printer ann white 21000x29700",
                            "printer p red 21000x29700", "job 1 green 21000x29700"));
    stocks_->removeStock(&element(0)); // the job's own goes, used or not
    EXPECT_EQ(usage("ann", StockType::job), "none");
    Stock foreign = described(sheet(u"yellow"));
    stocks_->removeStock(&foreign);
    EXPECT_EQ(stocks_->getStocks().getSize(), 4U);
    EXPECT_FALSE(stocks_->isInUse(&foreign));
}

TEST_F(StockInformationTest, handsOutNamesThatNobodyBears) {
    stocks_->addStock(described(namedSheet(u"1", u"red")));
    stocks_->addStock(stockOf(named(u"2"), StockType::job));
    EXPECT_EQ(stocks_->generateName(), nameValue(u"3"));
    EXPECT_EQ(stocks_->generateName(), nameValue(u"4"));
    stocks_->releaseName(nameValue(u"3"));
    EXPECT_EQ(show(stocks_->addStock(described(sheet(u"yellow")))), "user 3 yellow 21000x29700");
    Stock& unnamed = stocks_->addStock(described(sheet(u"green")));
    EXPECT_EQ(unnamed.getName(), nameValue(u"5"));
    stocks_->removeStock(&unnamed);
    EXPECT_EQ(stocks_->generateName(), nameValue(u"5"));
    EXPECT_TRUE(stocks_->isNameUsed(nameValue(u"2")));
    EXPECT_TRUE(stocks_->isNameUsed(nameValue(u"2"), StockType::job));
    EXPECT_FALSE(stocks_->isNameUsed(nameValue(u"2"), StockType::user));
    EXPECT_FALSE(stocks_->isNameUsed(nameValue(u"4")));
}

TEST_F(StockInformationTest, walksByTypeAlsoWhileStocksGo) {
    stocks_->addStock(stockOf(named(u"j"), StockType::job));
    stocks_->addStock(stockOf(named(u"u")));
    const auto walk = [&](Stock* removed) {
        std::vector<std::string> seen;
        stocks_->rewindByType();
        while (stocks_->hasMoreStocksByType()) {
            Stock& stock = stocks_->getNextStockByType();
            seen.push_back(show(stock));
            if (removed) stocks_->removeStock(removed);
            removed = nullptr;
        }
        return seen;
    };
    EXPECT_THAT(walk(nullptr), ElementsAre("user ann white 21000x29700", "user bob blue 21000x29700", "user u",
                                           "printer ann white 21000x29700", "printer p red 21000x29700", "job j"));
    EXPECT_THAT(walk(&element(1)), ElementsAre("user ann white 21000x29700", "user u", "printer ann white 21000x29700",
                                               "printer p red 21000x29700", "job j"));
    EXPECT_THAT(walk(&element(0)), ElementsAre("user ann white 21000x29700", "user u", "printer ann white 21000x29700",
                                               "printer p red 21000x29700", "job j"));
    stocks_->getStocks().clear();
    EXPECT_THAT(walk(nullptr), IsEmpty());
    EXPECT_EQ(messageOf<NodeAccessOutOfBoundsException>([&] { stocks_->getNextStockByType(); }),
              "StockInformation::getNextStockByType(): No more Stocks to get. Caller failed to test with "
              "hasMoreStocksByType() first!\r\n");
}

TEST_F(StockInformationTest, survivesAJobWhoseStocksMakeNoSense) {
    const AttrNodeList senseless =
        list()
            .text(u"media-col", u"white")
            .set(u"media", list().name(u"value", u"ann"))
            .collection(u"cover-front", list().collection(u"media-col", list().integer(u"media-size", 4)))
            .integer(u"page-overrides", 3);
    job_ = FeatureSettings(senseless);
    stocks_->setSettings(&job_);
    EXPECT_EQ(job_.getAttrNodeList(), senseless);
    EXPECT_EQ(stocks_->getStocks().getSize(), 4U);
}

TEST_F(StockInformationTest, findsTheStocksOfALongJobAtOnce) {
    for (int i = 0; i < 50; ++i)
        stocks_->addStock(described(sheet(u"white", 20000, 30000 + i)));
    AttrNodeList job;
    AttrNodeList& pages = job.add1setOf(u"page-overrides");
    for (int i = 0; i < 250; ++i)
        pages.addCollection(u"value").addNode(
            u"media-col",
            std::make_unique<IppList>(AttrNodeList(sheet(u"white", 20000, 30000 + i % 50)), syntaxCollection));
    job_ = FeatureSettings(job);
    stocks_->setSettings(&job_);
    EXPECT_EQ(stocks_->getStocks().getSize(), 54U);
    for (StockList::Position i = 4; i < 54; ++i)
        EXPECT_EQ(stocks_->getUseCount(&element(i)), 5U);
}
