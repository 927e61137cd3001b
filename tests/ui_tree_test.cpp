// The tree of components: dispatch, the way down, validation, pruning, notifications and observers. No window is
// needed.
#include "plugin_ui/ApplyRepeats.h"
#include "plugin_ui/UIFeature.h"

#include "platform/windows.h"
#include "tests/capabilityBuilder.h"
#include "tests/expectFailure.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <functional>

using testing::ElementsAre;
using testing::IsEmpty;

namespace {

using Log = std::vector<std::string>;

// Says which handler was called.
class Recorder : public MessageProcessor {
public:
    explicit Recorder(Log& log) : log_(log) {}

#define HANDLER(name)                                                                                                  \
    bool name(const UIMessage& message, LRESULT& result) override {                                                    \
        log_.emplace_back(#name);                                                                                      \
        return MessageProcessor::name(message, result);                                                                \
    }
    HANDLER(onInitDialog)
    HANDLER(onCommand)
    HANDLER(onNotify)
    HANDLER(onShow)
    HANDLER(onHide)
    HANDLER(onEnable)
    HANDLER(onDisable)
    HANDLER(onValidateEntry)
    HANDLER(onValidateSave)
    HANDLER(onRefresh)
    HANDLER(onOtherMessage)
    HANDLER(onDestroy)
    HANDLER(onIntroduce)
    HANDLER(onLock)
    HANDLER(onUnlock)
#undef HANDLER

private:
    Log& log_;
};

// A leaf with a name: what it does is set by the test.
class Leaf : public MessageProcessor {
public:
    Leaf(Log& log, const char* name) : name(name), log_(log) {}
    ~Leaf() override { log_.push_back("~" + name); }

    bool processMessage(const UIMessage& message, LRESULT& result) override {
        log_.push_back(name);
        return takes || MessageProcessor::processMessage(message, result);
    }
    bool isEntryValid(HWND) override { return isValid; }

    const std::string name;
    bool takes = false;
    bool isValid = true;

private:
    Log& log_;
};

class Branch : public MessageProcessorWithChildren {
public:
    Leaf& addLeaf(Log& log, const char* name) { return addNew<Leaf>(log, name); }
};

class TestFeature : public UIFeature {
public:
    TestFeature(UIContext& context, Log& log, std::string name)
        : UIFeature(context, noParentFeature), name(std::move(name)), log_(log) {}
    ~TestFeature() override { log_.push_back("~" + name); }

    bool isFeatureSupported() override { return isGroup ? removeUnsupportedFeatures() : isSupported; }
    void updateFeatureWithNewSettings() override { log_.push_back(name + " updates"); }
    void initializeFeature() override { log_.push_back(name + " initializes"); }
    void handleSubjectUpdate(std::uint16_t subjectId) override { heard.push_back(subjectId); }
    void setToDefault(FeatureSettings&) override { log_.push_back(name + " to default"); }
    void setDefaultLabel(std::uint16_t id) override { log_.push_back(name + " label " + std::to_string(id)); }

    std::string name;
    bool isSupported = true;
    bool isGroup = false;
    std::vector<std::uint16_t> heard;

private:
    Log& log_;
};

class Group : public ConfigurableUIComponent {
public:
    explicit Group(UIContext& context, Feature parent = noParentFeature) : ConfigurableUIComponent(context, parent) {}
};

LRESULT deliver(MessageProcessor& to, UINT id, LPARAM lParam = 0) {
    LRESULT result = 0;
    to.processMessage({nullptr, id, 0, lParam}, result);
    return result;
}

} // namespace

TEST(Tree, everyMessageGoesToItsHandlerAndIsLeftOpen) {
    const std::pair<UINT, const char*> rows[] = {{2, "onDestroy"},
                                                 {78, "onNotify"},
                                                 {272, "onInitDialog"},
                                                 {273, "onCommand"},
                                                 {0x8001, "onHide"},
                                                 {0x8002, "onShow"},
                                                 {0x8003, "onRefresh"},
                                                 {0x8004, "onEnable"},
                                                 {0x8005, "onDisable"},
                                                 {0x8006, "onValidateEntry"},
                                                 {0x8007, "onValidateSave"},
                                                 {0x8008, "onIntroduce"},
                                                 {0x8009, "onLock"},
                                                 {0x800A, "onUnlock"},
                                                 {15, "onOtherMessage"},
                                                 {43, "onOtherMessage"},
                                                 {0x8000, "onOtherMessage"},
                                                 {0x800B, "onOtherMessage"},
                                                 {0xFFFFFFFF, "onOtherMessage"}};
    for (const auto& [id, handler] : rows) {
        Log log;
        Recorder recorder(log);
        LRESULT result = 0;
        EXPECT_FALSE(recorder.processMessage({nullptr, id, 0, 0}, result)) << id;
        EXPECT_THAT(log, ElementsAre(handler)) << id;
        EXPECT_EQ(result, id == UIM_VALIDATE_ENTRY || id == UIM_VALIDATE_SAVE ? entriesValid : 0) << id;
    }
}

TEST(Tree, childrenSeeAMessageInOrderUntilOneTakesIt) {
    Log log;
    Branch root;
    root.addLeaf(log, "a");
    auto& inner = root.addNew<Branch>();
    Leaf& b = inner.addLeaf(log, "b");
    inner.addLeaf(log, "c");
    root.addLeaf(log, "d");
    deliver(root, UIM_SHOW);
    EXPECT_THAT(log, ElementsAre("a", "b", "c", "d"));
    log.clear();
    b.takes = true;
    LRESULT result = 0;
    EXPECT_TRUE(root.processMessage({nullptr, UIM_SHOW, 0, 0}, result));
    EXPECT_THAT(log, ElementsAre("a", "b")) << "the branch's sibling must not see it either";
}

TEST(Tree, aChildThatIsTakenOutDiesOnceAndHearsNothingMore) {
    Log log;
    Branch root;
    root.addLeaf(log, "a");
    Leaf& b = root.addLeaf(log, "b");
    Branch other;
    Leaf& foreign = other.addLeaf(log, "foreign");
    EXPECT_TRUE(root.hasChild(b));
    EXPECT_FALSE(root.removeChildObject(foreign));
    EXPECT_TRUE(root.removeChildObject(b));
    EXPECT_THAT(log, ElementsAre("~b"));
    log.clear();
    deliver(root, UIM_SHOW);
    const auto next = root.removeChild(root.firstChild());
    EXPECT_TRUE(next == root.endOfChildren());
    root.requestDefaultLabel(7); // would reach what is gone, were it still registered
    EXPECT_THAT(log, ElementsAre("a", "~a"));
}

TEST(Tree, childrenDieInTheirOrder) {
    Log log;
    {
        Branch root;
        for (const char* name : {"a", "b", "c"})
            root.addLeaf(log, name);
    }
    EXPECT_THAT(log, ElementsAre("~a", "~b", "~c"));
}

TEST(Tree, whatAHandlerThrowsPassesThroughUnchanged) {
    struct Thrower : MessageProcessor {
        bool onShow(const UIMessage&, LRESULT&) override { throw 5; }
    };
    Log log;
    Branch root;
    root.addNew<Branch>().addNew<Thrower>();
    root.addLeaf(log, "behind");
    EXPECT_THROW(deliver(root, UIM_SHOW), int);
    EXPECT_THAT(log, IsEmpty());
}

TEST(Validation, theFirstThatFailsEndsTheWalk) {
    struct Row {
        const char* invalid;
        LRESULT result;
        Log asked;
    };
    const Row rows[] = {{"", 1, {"a", "b1", "b2", "c"}},
                        {"a", 2, {"a"}},
                        {"b1", 2, {"a", "b1"}},
                        {"b2", 2, {"a", "b1", "b2"}},
                        {"c", 2, {"a", "b1", "b2", "c"}}};
    for (const UINT message : {UIM_VALIDATE_ENTRY, UIM_VALIDATE_SAVE})
        for (const Row& row : rows) {
            Log log;
            Branch root;
            Leaf& a = root.addLeaf(log, "a");
            auto& second = root.addNew<Branch>();
            Leaf& b1 = second.addLeaf(log, "b1");
            Leaf& b2 = second.addLeaf(log, "b2");
            Leaf& c = root.addLeaf(log, "c");
            for (Leaf* leaf : {&a, &b1, &b2, &c})
                leaf->isValid = leaf->name != row.invalid;
            EXPECT_EQ(deliver(root, message), row.result) << row.invalid;
            EXPECT_EQ(log, row.asked) << row.invalid;
        }
}

TEST(Validation, aComponentIsSaveValidWhenItsEntriesAreUnlessItSaysOtherwise) {
    struct NotForSaving : MessageProcessor {
        bool isSaveValid(HWND) override { return false; }
    };
    NotForSaving component;
    EXPECT_EQ(deliver(component, UIM_VALIDATE_ENTRY), entriesValid);
    EXPECT_EQ(deliver(component, UIM_VALIDATE_SAVE), entriesInvalid);
}

TEST(Pruning, whatThePrinterCannotDoIsGoneWithEverythingBelow) {
    Log log;
    UIContext context;
    Group root(context);
    root.addNew<Leaf>(log, "picture");
    auto& kept = root.addNew<TestFeature>(context, log, "kept");
    root.addNew<TestFeature>(context, log, "dropped").isSupported = false;
    auto& group = root.addNew<TestFeature>(context, log, "group");
    group.isGroup = true;
    group.addNew<TestFeature>(context, log, "in group").isSupported = false;
    auto& other = root.addNew<TestFeature>(context, log, "other group");
    other.isGroup = true;
    other.addNew<TestFeature>(context, log, "first of two").isSupported = false;
    auto& second = other.addNew<TestFeature>(context, log, "second of two");
    EXPECT_TRUE(root.removeUnsupportedFeatures());
    EXPECT_THAT(log, ElementsAre("~dropped", "~in group", "~group", "~first of two"));
    EXPECT_TRUE(root.hasChild(kept));
    EXPECT_TRUE(other.hasChild(second));
    EXPECT_EQ(root.endOfChildren() - root.firstChild(), 3) << "a control stays";
    kept.isSupported = second.isSupported = false;
    EXPECT_FALSE(root.removeUnsupportedFeatures()) << "nothing but a control is left";
}

TEST(Pruning, theQuestionIsAskedOfTheJobOrOfTheEnclosingFeature) {
    const Capabilities printer = makeCapabilities(aPrinter());
    UIContext context;
    context.capabilities = &printer;
    for (const Feature parent : {noParentFeature, Feature::any}) {
        const Group onJob(context, parent);
        EXPECT_TRUE(onJob.isOnJob());
        EXPECT_TRUE(onJob.isSupportedFeature(Feature::copies));
        EXPECT_FALSE(onJob.isSupportedFeature(Feature::outputBin));
    }
    const Group inside(context, Feature::pageOverrides);
    EXPECT_FALSE(inside.isOnJob());
    for (const Feature feature : {Feature::copies, Feature::sides, Feature::outputBin})
        EXPECT_EQ(inside.isSupportedFeature(feature), printer.isMemberSupported(Feature::pageOverrides, feature))
            << nameOf(feature);
}

TEST(Feature, hearsOfItsWindowBeforeAndOfNewSettingsAfterItsChildren) {
    Log log;
    UIContext context;
    TestFeature feature(context, log, "outer");
    feature.addNew<TestFeature>(context, log, "inner");
    EXPECT_EQ(errorCodeOf([&] { feature.getDialogSettings(); }), "008:000") << "there are no settings yet";
    FeatureSettings settings;
    deliver(feature, WM_INITDIALOG, reinterpret_cast<LPARAM>(&settings));
    EXPECT_THAT(log, ElementsAre("inner initializes", "outer initializes"));
    EXPECT_EQ(&feature.getDialogSettings(), &settings);
    log.clear();
    feature.refreshFeature();
    EXPECT_THAT(log, ElementsAre("outer updates", "inner updates"));
}

TEST(Feature, settingsAndParentOfATreeAreGivenToAllFeaturesOfIt) {
    Log log;
    UIContext context;
    TestFeature root(context, log, "root");
    root.addNew<Leaf>(log, "control");
    auto& middle = root.addNew<TestFeature>(context, log, "middle");
    auto& leaf = middle.addNew<TestFeature>(context, log, "leaf");
    FeatureSettings settings;
    root.setDialogSettings(&settings);
    root.setParentFeature(Feature::pageOverrides);
    for (TestFeature* feature : {&root, &middle, &leaf}) {
        EXPECT_EQ(&feature->getDialogSettings(), &settings) << feature->name;
        EXPECT_EQ(feature->getParentFeature(), Feature::pageOverrides) << feature->name;
    }
}

TEST(Notification, reachesRegisteredComponentsInOrderUntilOneTakesIt) {
    Log log;
    UIContext context;
    TestFeature root(context, log, "root");
    root.addNew<TestFeature>(context, log, "child").addNew<TestFeature>(context, log, "grandchild");
    TestFeature beside(context, log, "beside");
    root.addComponent(beside);
    FeatureSettings settings;
    EXPECT_FALSE(root.requestDefault(settings));
    EXPECT_THAT(log, ElementsAre("child to default", "grandchild to default", "beside to default"));
    log.clear();
    root.requestDefaultLabel(77);
    EXPECT_THAT(log, ElementsAre("child label 77", "grandchild label 77", "beside label 77"));
    log.clear();
    EXPECT_FALSE(root.handleNotification({static_cast<UINotificationKind>(3), 77, &settings}));
    EXPECT_THAT(log, IsEmpty());

    struct Taker : UIComponent {
        bool handleDefaultRequest(const UINotification&) override { return true; }
    } taker;
    TestFeature behind(context, log, "behind");
    root.removeComponent(beside);
    root.addComponent(taker);
    root.addComponent(behind);
    EXPECT_TRUE(root.requestDefault(settings));
    EXPECT_THAT(log, ElementsAre("child to default", "grandchild to default"));
}

namespace {

struct Subject : ObserverSubject {};

class Listener : public Observer {
public:
    explicit Listener(Log& log, std::string name) : log_(log), name_(std::move(name)) {}
    void handleSubjectUpdate(std::uint16_t subjectId) override {
        log_.push_back(name_ + " " + std::to_string(subjectId));
        if (onUpdate) onUpdate();
    }
    std::function<void()> onUpdate;

private:
    Log& log_;
    std::string name_;
};

} // namespace

TEST(Observers, hearInTheOrderInWhichTheyCame) {
    Log log;
    Subject subject;
    subject.notifyObservers();
    Listener a(log, "a");
    Listener b(log, "b");
    Listener late(log, "late");
    subject.addObserver(a);
    subject.addObserver(b);
    subject.addObserver(a);
    a.onUpdate = [&] {
        if (log.size() == 1) subject.addObserver(late);
    };
    subject.notifyObservers();
    const std::string id = std::to_string(subject.getSubjectId());
    EXPECT_THAT(log, ElementsAre("a " + id, "b " + id, "a " + id, "late " + id));
    log.clear();
    subject.removeObserver(a);
    subject.notifyObservers();
    EXPECT_THAT(log, ElementsAre("b " + id, "late " + id));
}

TEST(Observers, subjectsAreToldApartByIdsThatWrapAt65536) {
    const std::uint16_t first = Subject().getSubjectId();
    for (std::uint32_t made = 1; made < 65536; ++made)
        ASSERT_NE(Subject().getSubjectId(), first) << made;
    EXPECT_EQ(Subject().getSubjectId(), first);
}

TEST(ApplyRepeats, swallowsThreeOfFourWhereTheyAreExpected) {
    for (const bool areExpected : {false, true}) {
        ApplyRepeats repeats(areExpected);
        std::string acted;
        for (int notification = 0; notification < 9; ++notification) {
            const bool isSwallowed = repeats.swallow();
            if (!isSwallowed) repeats.begin();
            acted += isSwallowed ? '.' : 'x';
        }
        EXPECT_EQ(acted, areExpected ? "x...x...x" : "xxxxxxxxx");
    }
    ApplyRepeats refused(true);
    EXPECT_FALSE(refused.swallow());
    EXPECT_FALSE(refused.swallow()) << "an apply that was refused is not counted";
}
