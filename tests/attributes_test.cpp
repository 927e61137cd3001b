#include "jtcore/Attributes/IppNull.h"
#include "tests/expectFailure.h"
#include "tests/listBuilder.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <array>
#include <functional>
#include <vector>

namespace {

constexpr std::array singleSyntaxes = {
#define ATTR_SYNTAX(enumerator, number, name, Class) std::u16string_view(name),
#include "jtcore/Attributes/AttrSyntax.def"
};
constexpr std::array listSyntaxes = {
#define ATTR_LIST_SYNTAX(name, constant) std::u16string_view(name),
#include "jtcore/Attributes/AttrSyntax.def"
};

// One value of every class, no two of them equal.
std::vector<std::unique_ptr<AttrValue>> oneOfEach() {
    std::vector<std::unique_ptr<AttrValue>> values;
    for (std::u16string_view syntax : singleSyntaxes)
        values.push_back(AttrValueFactory::createAttrValue(syntax, u"1"));
    for (std::u16string_view syntax : listSyntaxes)
        values.push_back(std::make_unique<IppList>(list().integer(u"value", 1), syntax));
    values.push_back(std::make_unique<IppList>(u"1setOf"));
    values.push_back(std::make_unique<IppNull>(u"octetString"));
    values.push_back(std::make_unique<IppNull>(u"integer"));
    return values;
}

TEST(AttrValue, aTextGivesTheValueOfItsSyntax) {
    struct Row {
        std::u16string_view syntax, text;
        std::int32_t type;
        std::u16string_view expected;
        bool isPreserved = false;
    };
    const Row rows[] = {
        {u"integer", u"12abc", 2, u"12"},
        {u"integer", u"abc", 2, u"0"},
        {u"integer", u"", 2, u"0"},
        {u"integer", u"-7", 2, u"-7"},
        {u"integer", u"+7", 2, u"7"},
        {u"integer", u"--7", 2, u"0"},
        {u"integer", u" 7", 2, u"0"},
        {u"integer", u"7.9", 2, u"7"},
        {u"integer", u"\u0667", 2, u"0"}, // digits of other scripts are no digits
        {u"integer", u"2147483647", 2, u"2147483647"},
        {u"integer", u"2147483648", 2, u"2147483647"},
        {u"integer", u"-2147483648", 2, u"-2147483648"},
        {u"integer", u"-2147483649", 2, u"-2147483648"},
        {u"integer", u"-99999999999999999999999999", 2, u"-2147483648"},
        {u"integer", u"00000000000000000012", 2, u"12"},
        {u"integer", u"000000000000000000012", 2, u"1"}, // the 21st character is not read
        {u"enum", u"5", 3, u"5"},
        {u"name", u" a b ", 4, u" a b ", true},
        {u"keyword", u"two-sided-long-edge", 5, u"two-sided-long-edge"},
        {u"boolean", u"true", 6, u"true"},
        {u"boolean", u"1", 6, u"true"},
        {u"boolean", u"yes", 6, u"true"},
        {u"boolean", u"false", 6, u"false"},
        {u"boolean", u"TRUE", 6, u"false"},
        {u"boolean", u"", 6, u"false"},
        {u"text", u"\U0001F5A8", 7, u"\U0001F5A8", true},
        {u"mimeMediaType", u"application/pdf", 8, u"application/pdf"},
        {u"uri", u"file:///c:/jobs", 9, u"file:///c:/jobs"},
        {u"octetString", u"x", 1, u""},
        {u"Integer", u"3", 1, u""},
        {u"", u"3", 1, u""},
    };
    for (const Row& row : rows) {
        SCOPED_TRACE(toUtf8(row.syntax) + " '" + toUtf8(row.text) + "'");
        auto value = AttrValueFactory::createAttrValue(row.syntax, row.text);
        EXPECT_EQ(static_cast<std::int32_t>(value->getValueType()), row.type);
        EXPECT_EQ(value->getIppValue(), row.expected);
        EXPECT_EQ(value->getSyntaxName(), row.syntax);
        EXPECT_EQ(value->isPreservedText(), row.isPreserved);
    }
}

TEST(AttrValue, aListSyntaxHasNoText) {
    for (std::u16string_view syntax : listSyntaxes)
        EXPECT_EQ(messageOf<UnknownCaseException>([&] { AttrValueFactory::createAttrValue(syntax, u"x"); }),
                  "AttrValueFactory::createSimpleAttrValue(AVTE): unhandled attribute value enumeration "
                  "(10).\r\n");
    EXPECT_EQ(
        messageOf<UnknownCaseException>([] { AttrValueFactory::createSimpleAttrValue(static_cast<AVTE>(77), u"x"); }),
        "AttrValueFactory::createSimpleAttrValue(AVTE): unhandled attribute value enumeration (77).\r\n");
}

TEST(AttrValue, aCopyEqualsItsOriginalAndNothingElse) {
    const auto values = oneOfEach();
    for (std::size_t i = 0; i < values.size(); ++i)
        for (std::size_t j = 0; j < values.size(); ++j)
            EXPECT_EQ(values[i]->clone()->equals(*values[j]), i == j)
                << toUtf8(values[i]->getSyntaxName()) << " and " << toUtf8(values[j]->getSyntaxName());
}

TEST(AttrValue, everyClassAnswersWhatItIs) {
    for (const auto& value : oneOfEach()) {
        SCOPED_TRACE(toUtf8(value->getSyntaxName()));
        auto type = static_cast<int>(value->getValueType());
        EXPECT_EQ(value->isPrimitiveInteger(), type == 2 || type == 3);
        EXPECT_EQ(value->isPrimitiveString(), type == 4 || type == 5 || (type >= 7 && type <= 9));
        EXPECT_EQ(value->isList(), type == 10);
        EXPECT_EQ(value->asPrimitiveInteger() != nullptr, value->isPrimitiveInteger());
        EXPECT_EQ(value->asPrimitiveString() != nullptr, value->isPrimitiveString());
        EXPECT_EQ(value->asList() != nullptr, value->isList());
        EXPECT_EQ(value->asBoolean() != nullptr, type == 6);
        EXPECT_EQ(value->is1setOf(), type == 10 && value->getSyntaxName() == u"1setOf");
        EXPECT_EQ(value->isCollection(), type == 10 && value->getSyntaxName() == u"collection");
        EXPECT_EQ(value->isRangeOfInteger(), type == 10 && value->getSyntaxName() == u"rangeOfInteger");
        EXPECT_EQ(value->isResolution(), type == 10 && value->getSyntaxName() == u"resolution");
    }
}

TEST(AttrValue, aBooleanInHandTakesOnlyItsTwoWords) {
    IppBoolean value(false);
    value.setIppValue(u"true");
    EXPECT_TRUE(value.getValue());
    EXPECT_EQ(messageOf<UnknownCaseException>([&] { value.setIppValue(u"yes"); }),
              "IppBoolean::setIppValue(): illegal attribute value string specified for this class(yes).\r\n");
    EXPECT_TRUE(value.getValue());
    value.setIppValue(u"false");
    EXPECT_FALSE(value.getValue());
}

TEST(AttrValue, listsAndUnknownValuesIgnoreText) {
    IppList listValue(list().integer(u"value", 1), u"1setOf");
    IppNull nullValue(u"octetString");
    for (AttrValue* value : {static_cast<AttrValue*>(&listValue), static_cast<AttrValue*>(&nullValue)}) {
        value->setIppValue(u"x");
        EXPECT_EQ(value->getIppValue(), u"");
    }
    EXPECT_EQ(show(listValue.getList()), "value=1");
}

TEST(AttrValue, aTextMayBeSetFromAPartOfItself) {
    IppText text(u"*a text that is long enough to live on the heap");
    text.setIppValue(std::u16string_view(text.getValue()).substr(1));
    EXPECT_EQ(text.getIppValue(), u"a text that is long enough to live on the heap");
}

TEST(AttrValue, aRangeTellsItsMembersAndLeavesOutputsOfMissingOnes) {
    auto read = [](const ListBuilder& members, std::u16string_view syntax) {
        std::int32_t lower = -1, upper = -2;
        bool isWhole = IppList(members, syntax).getRangeOfIntegerValues(lower, upper);
        return std::tuple(isWhole, lower, upper);
    };
    auto both = list().integer(u"lower-bound", 1).enumeration(u"upper-bound", 5);
    EXPECT_EQ(read(both, u"rangeOfInteger"), std::tuple(true, 1, 5));
    EXPECT_EQ(read(list().integer(u"upper-bound", 5), u"rangeOfInteger"), std::tuple(false, -1, 5));
    EXPECT_EQ(read(list(), u"rangeOfInteger"), std::tuple(false, -1, -2));
    EXPECT_EQ(messageOf<AttributeTypeMismatchException>([&] { read(both, u"collection"); }),
              "AttrValue::getRangeOfIntegerValues: This AttrValue is not a rangeOfInteger list!!\r\n");
    std::int32_t a = 0, b = 0, c = 0;
    EXPECT_EQ(messageOf<AttributeTypeMismatchException>([&] { IppInteger(1).getResolutionValues(a, b, c); }),
              "AttrValue::getResolutionValues: This AttrValue is not a resolution list!!\r\n");
}

TEST(AttrValue, resolutionsAreTheSameByTheirNumbers) {
    auto resolution = [](const ListBuilder& members) { return IppList(members, u"resolution"); };
    const IppList fine =
        resolution(list().integer(u"cross-feed", 600).integer(u"feed-direction", 600).integer(u"units", 3));
    const IppList sameWithEnum =
        resolution(list().enumeration(u"units", 3).integer(u"feed-direction", 600).integer(u"cross-feed", 600));
    const IppList coarse =
        resolution(list().integer(u"cross-feed", 300).integer(u"feed-direction", 600).integer(u"units", 3));
    const IppList part = resolution(list().integer(u"cross-feed", 600));
    const IppList none = resolution(list());
    EXPECT_TRUE(fine.isSameResolution(sameWithEnum));
    EXPECT_FALSE(fine.isSameResolution(coarse));
    EXPECT_FALSE(fine.isSameResolution(part));
    EXPECT_FALSE(part.isSameResolution(fine));
    EXPECT_TRUE(part.isSameResolution(none));
    EXPECT_FALSE(fine.isSameResolution(IppInteger(600)));
    EXPECT_FALSE(IppInteger(600).isSameResolution(IppInteger(600)));
}

TEST(AttrID, isNeverEmpty) {
    const std::string failure = "AttrID::validateTheID(): supplied value is empty.\r\n";
    AttrID id(u"x");
    EXPECT_EQ(messageOf<InvalidAttributeIdException>([] { static_cast<void>(AttrID(u"")); }), failure);
    EXPECT_EQ(messageOf<InvalidAttributeIdException>([] { static_cast<void>(AttrID{std::u16string()}); }), failure);
    EXPECT_EQ(messageOf<InvalidAttributeIdException>([&] { id = u""; }), failure);
    EXPECT_EQ(id.getName(), u"x");
    AttrNodeList nodes;
    std::int32_t number = 0;
    EXPECT_EQ(messageOf<InvalidAttributeIdException>([&] { nodes.JtifAttrToLong(number, u""); }), failure);
    EXPECT_EQ(messageOf<InvalidAttributeIdException>([&] { nodes.addListNode(u"", u"collection"); }), failure);
    EXPECT_EQ(messageOf<InvalidAttributeIdException>([&] { nodes.setNode(u"", IppInteger(1)); }), failure);
    EXPECT_TRUE(nodes.isEmpty());
}

TEST(AttrID, isOrderedByCodeUnits) {
    const std::u16string_view ascending[] = {u"B", u"a", u"ab", u"abc", u"b", u"\xD83D\xDDA8", u"\uFFFD"};
    for (std::size_t i = 0; i < std::size(ascending); ++i)
        for (std::size_t j = 0; j < std::size(ascending); ++j) {
            EXPECT_EQ(AttrID(ascending[i]) < AttrID(ascending[j]), i < j) << i << " " << j;
            EXPECT_EQ(AttrID(ascending[i]) == AttrID(ascending[j]), i == j) << i << " " << j;
        }
}

TEST(AttrNodeList, occurrencesCountFromZeroInListOrder) {
    const AttrNodeList nodes = list().integer(u"a", 1).integer(u"b", 2).integer(u"a", 3);
    const AttrNode* first = nodes.getNode(u"a");
    const AttrNode* second = nodes.getNode(u"a", 1);
    ASSERT_TRUE(first && second);
    EXPECT_EQ(first->getAttrValue().getIppValue(), u"1");
    EXPECT_EQ(second->getAttrValue().getIppValue(), u"3");
    EXPECT_EQ(nodes.getNode(u"a", 2), nullptr);
    EXPECT_EQ(nodes.getMatchingNode(*second), second);
    EXPECT_EQ(nodes.getMatchingNode(*second, 1), nullptr);
    std::size_t index = 99;
    EXPECT_TRUE(nodes.getNodePosition(*second, index));
    EXPECT_EQ(index, 2u);
    EXPECT_FALSE(nodes.getNodePosition(AttrNode(*second), index));
    EXPECT_EQ(index, 2u);
}

TEST(AttrNodeList, positionMinusOneIsTheLastNode) {
    const AttrNodeList nodes = list().integer(u"a", 1).integer(u"b", 2);
    const std::tuple<std::u16string_view, int, bool> rows[] = {{u"a", 0, true},   {u"b", 1, true},  {u"b", -1, true},
                                                               {u"a", -1, false}, {u"a", 1, false}, {u"b", 2, false},
                                                               {u"b", -2, false}};
    for (const auto& [id, position, expected] : rows)
        EXPECT_EQ(nodes.isNodeAt(id, position), expected) << toUtf8(id) << " at " << position;
    EXPECT_FALSE(AttrNodeList().isNodeAt(u"a", -1));
}

TEST(AttrNodeList, aSetNodeIsFreshAndNotPrivate) {
    AttrNodeList nodes = list().integer(u"a", 1).hidden().integer(u"a", 2);
    nodes.setNode(u"a", IppKeyword(u"x"));
    EXPECT_EQ(show(nodes), "a=keyword:x a=2");
    nodes.setNode(u"a", IppInteger(3), 2);
    EXPECT_EQ(show(nodes), "a=keyword:x a=2 a=3");
    // From its own value, and from a value inside itself.
    nodes.setNode(u"a", nodes.getNode(u"a")->getAttrValue());
    nodes.addCollection(u"c").setNode(u"inner", IppInteger(7));
    AttrNodeList* inner = nullptr;
    ASSERT_TRUE(nodes.JtifAttrToList(inner, u"c"));
    nodes.setNode(u"c", inner->getNode(u"inner")->getAttrValue());
    EXPECT_EQ(show(nodes), "a=keyword:x a=2 a=3 c=7");
}

TEST(AttrNodeList, copiesAreDeepAndAssignmentBearsItselfAndItsParts) {
    AttrNodeList nodes =
        list().integer(u"a", 1).hidden().collection(u"c", list().set(u"s", list().integer(u"value", 2)));
    const std::string shown = show(nodes);
    AttrNodeList copy(nodes);
    AttrNodeList* inner = nullptr;
    ASSERT_TRUE(nodes.JtifAttrToList(inner, u"c"));
    inner->clear();
    EXPECT_EQ(show(copy), shown);
    EXPECT_NE(show(nodes), shown);

    AttrNodeList& same = copy;
    copy.getNextNode();
    copy = same;
    EXPECT_EQ(show(copy), shown);
    ASSERT_TRUE(copy.JtifAttrToList(inner, u"c"));
    copy = *inner;
    EXPECT_EQ(show(copy), "s=1setOf[value=2]");
    ASSERT_TRUE(copy.JtifAttrToList(inner, u"s"));
    copy = std::move(*inner);
    EXPECT_EQ(show(copy), "value=2");
}

TEST(AttrNodeList, equalityIsByPosition) {
    const AttrNodeList nodes = list().integer(u"a", 1).integer(u"b", 2);
    EXPECT_TRUE(nodes.equals(list().integer(u"a", 1).integer(u"b", 2)));
    EXPECT_FALSE(nodes.equals(list().integer(u"b", 2).integer(u"a", 1)));
    EXPECT_FALSE(nodes.equals(list().integer(u"a", 1)));
    EXPECT_FALSE(nodes.equals(list().integer(u"a", 1).integer(u"b", 2).hidden()));
    EXPECT_FALSE(nodes.equals(list().integer(u"a", 1).enumeration(u"b", 2)));
}

// Walks the list with its cursor; at the id given, the action is run. What the walk met is returned.
template <typename Action>
std::string walk(AttrNodeList& nodes, std::u16string_view at, Action&& action) {
    std::string met;
    for (nodes.resetIterator(); nodes.hasMoreNodes();) {
        AttrNode& node = nodes.getNextNode();
        met += toUtf8(node.getAttrID());
        if (node.getAttrID().getName() == at) action(node);
    }
    return met;
}

TEST(AttrNodeList, aWalkNeitherSkipsNorRepeatsWhenNodesGo) {
    const AttrNodeList letters = list().integer(u"a", 1).integer(u"b", 1).integer(u"c", 1).integer(u"d", 1);
    for (std::u16string_view at : {u"a", u"b", u"c", u"d"})
        for (std::u16string_view gone : {u"a", u"b", u"c", u"d"}) {
            AttrNodeList nodes = letters;
            std::string expected = gone <= at ? "abcd" : "";
            if (expected.empty())
                for (char letter : std::string("abcd"))
                    if (letter != static_cast<char>(gone[0])) expected += letter;
            EXPECT_EQ(walk(nodes, at, [&](AttrNode&) { nodes.deleteNodeObject(nodes.getNode(gone)); }), expected)
                << "at " << toUtf8(at) << " without " << toUtf8(gone);
            EXPECT_EQ(nodes.getNumNodes(), 3u);
        }
    AttrNodeList nodes = letters;
    EXPECT_EQ(walk(nodes, u"b", [&](AttrNode&) { nodes.moveNodeToFront(u"d"); }), "abbc");
}

TEST(AttrNodeList, theCursorFailsPastTheEndAndKnowsPrivateNodes) {
    AttrNodeList nodes = list().integer(u"a", 1).hidden().integer(u"b", 1).integer(u"c", 1).hidden();
    ASSERT_TRUE(nodes.hasMoreNonPrivateNodes());
    EXPECT_EQ(nodes.getNextNonPrivateNode().getAttrID().getName(), u"b");
    EXPECT_FALSE(nodes.hasMoreNonPrivateNodes());
    EXPECT_TRUE(nodes.hasMoreNodes());
    EXPECT_EQ(messageOf<NodeAccessOutOfBoundsException>([&] { nodes.getNextNonPrivateNode(); }),
              "AttrNodeList::getNextNonPrivateNode(): No more non-private nodes to get. Caller failed to test "
              "with hasMoreNonPrivateNodes() first!\r\n");
    EXPECT_EQ(nodes.getNextNode().getAttrID().getName(), u"c");
    EXPECT_FALSE(nodes.hasMoreNodes());
    EXPECT_EQ(messageOf<NodeAccessOutOfBoundsException>([&] { nodes.getNextNode(); }),
              "AttrNodeList::getNextNode(): No more nodes to get. Caller failed to test with hasMoreNodes() "
              "first!\r\n");
    nodes.clear();
    EXPECT_FALSE(nodes.hasMoreNodes());
}

TEST(AttrNodeList, moveNodeToFrontKeepsTheOrderOfTheOthers) {
    AttrNodeList nodes = list().integer(u"a", 1).integer(u"b", 2).integer(u"a", 3).integer(u"c", 4);
    EXPECT_FALSE(nodes.moveNodeToFront(u"a"));
    EXPECT_FALSE(nodes.moveNodeToFront(u"x"));
    EXPECT_EQ(show(nodes), "a=1 b=2 a=3 c=4");
    EXPECT_TRUE(nodes.moveNodeToFront(u"a", 1));
    EXPECT_EQ(show(nodes), "a=3 a=1 b=2 c=4");
}

TEST(AttrNodeList, deletionsOfWhatIsNotThereDoNothing) {
    AttrNodeList nodes = list().integer(u"a", 1);
    nodes.deleteNode(u"a", 1);
    nodes.deleteNode(u"b");
    nodes.deleteNodeObject(nullptr);
    AttrNode stranger(u"a", IppInteger(1));
    nodes.deleteNodeObject(&stranger);
    EXPECT_EQ(show(nodes), "a=1");
    nodes.deleteNode(u"a");
    EXPECT_EQ(show(nodes), "");
}

TEST(AttrNodeList, mergesAsToldByTheKindOfList) {
    const auto keywords = [](std::initializer_list<std::u16string_view> words) {
        ListBuilder members;
        for (std::u16string_view word : words)
            members.keyword(u"value", word);
        return members;
    };
    struct Row {
        const char* name;
        AttrNodeList mine, other;
        bool inSet;
        std::string expected;
    };
    const Row rows[] = {
        {"what is here wins", list().integer(u"copies", 1), list().integer(u"copies", 3), false, "copies=1"},
        {"what is missing comes", list().integer(u"copies", 1), list().integer(u"x", 3).hidden(), false,
         "copies=1 x=3!"},
        {"nothing to merge", list().integer(u"copies", 1), list(), false, "copies=1"},
        {"into nothing", list(), list().range(u"r", 1, 2), false, "r=rangeOfInteger[lower-bound=1 upper-bound=2]"},
        {"sets are united", list().set(u"s", keywords({u"a", u"b"})), list().set(u"s", keywords({u"b", u"c"})), false,
         "s=1setOf[value=keyword:a value=keyword:b value=keyword:c]"},
        {"collections keep their members", list().collection(u"c", list().integer(u"a", 1)),
         list().collection(u"c", list().integer(u"a", 2).integer(u"b", 3)), false, "c=collection[a=1 b=3]"},
        {"the other's syntax decides", list().collection(u"c", list().integer(u"a", 1)),
         list().set(u"c", list().integer(u"a", 2)), false, "c=collection[a=1 a=2]"},
        {"equal values in a set only", list().integer(u"value", 1), list().integer(u"value", 2).integer(u"value", 1),
         true, "value=1 value=2"},
        {"one list each in a set", list().collection(u"value", list().integer(u"a", 1)),
         list().collection(u"value", list().integer(u"b", 2)), true, "value=collection[a=1 b=2]"},
        {"more than one list in a set", list().range(u"value", 1, 2),
         list().range(u"value", 1, 2).range(u"value", 3, 4), true,
         "value=rangeOfInteger[lower-bound=1 upper-bound=2] value=rangeOfInteger[lower-bound=1 upper-bound=2] "
         "value=rangeOfInteger[lower-bound=3 upper-bound=4]"},
        {"more than one list here in a set", list().collection(u"value", list()).collection(u"value", list()),
         list().collection(u"value", list().integer(u"a", 1)), true,
         "value=collection[] value=collection[] value=collection[a=1]"},
        {"a single value stands against a list", list().integer(u"c", 1),
         list().collection(u"c", list().integer(u"a", 1)), false, "c=1"},
        {"a list stands against a single value", list().collection(u"c", list()), list().integer(u"c", 1), false,
         "c=collection[]"},
    };
    for (const Row& row : rows) {
        AttrNodeList mine = row.mine;
        const std::string other = show(row.other);
        mine.mergeList(row.other, row.inSet);
        EXPECT_EQ(show(mine), row.expected) << row.name;
        EXPECT_EQ(show(row.other), other) << row.name;
    }
}

TEST(AttrNodeList, aMergeWithItselfOrAPartOfItselfEnds) {
    AttrNodeList nodes = list().set(u"s", list().integer(u"value", 1).integer(u"value", 1));
    nodes.mergeList(nodes);
    EXPECT_EQ(show(nodes), "s=1setOf[value=1 value=1]");
    nodes = list().collection(u"c", list().collection(u"c", list().integer(u"a", 1)).integer(u"b", 2));
    AttrNodeList* inner = nullptr;
    ASSERT_TRUE(nodes.JtifAttrToList(inner, u"c"));
    nodes.mergeList(*inner);
    EXPECT_EQ(show(nodes), "c=collection[c=collection[a=1] b=2 a=1] b=2");
}

TEST(AttrNodeList, emptyListsArePrunedFromTheInside) {
    AttrNodeList nodes = list()
                             .collection(u"a", list().set(u"s", list()))
                             .integer(u"n", 1)
                             .set(u"b", list())
                             .set(u"b", list())
                             .collection(u"c", list().set(u"s", list()).integer(u"m", 2));
    nodes.pruneEmptyLists();
    EXPECT_EQ(show(nodes), "n=1 c=collection[m=2]");
}

TEST(AttrNodeList, matchingNodesGoAtEveryDepthWithTheListsTheyEmpty) {
    AttrNodeList nodes = list()
                             .integer(u"x", 1)
                             .integer(u"x", 1)
                             .integer(u"x", 2)
                             .integer(u"x", 1)
                             .hidden()
                             .collection(u"a", list().set(u"s", list().integer(u"x", 1).integer(u"x", 1)))
                             .collection(u"b", list().integer(u"x", 1).integer(u"y", 1));
    nodes.deleteMatchingNodes(*nodes.getNode(u"x"));
    EXPECT_EQ(show(nodes), "x=2 x=1! b=collection[y=1]");
}

TEST(AttrNodeList, conversionsReadTheirClassAndFailOnOthers) {
    AttrNodeList nodes = list()
                             .integer(u"integer", 1)
                             .enumeration(u"enum", 2)
                             .keyword(u"keyword", u"k")
                             .name(u"name", u"n")
                             .uri(u"uri", u"u")
                             .boolean(u"boolean", true)
                             .range(u"range", 3, 4)
                             .value(u"null", u"?", u"");
    struct Row {
        std::string_view operation, classes;
        std::vector<std::u16string_view> accepted;
        std::function<bool(std::u16string_view)> convert;
    };
    std::int32_t number = 0;
    std::u16string text;
    bool flag = false;
    AttrNodeList* inner = nullptr;
    const Row rows[] = {
        {"JtifAttrToLong",
         "is not derived from PrimitiveInteger or IppEnum!",
         {u"integer", u"enum"},
         [&](auto id) { return nodes.JtifAttrToLong(number, id); }},
        {"JtifAttrToString",
         "is not derived from PrimitiveString!",
         {u"keyword", u"name", u"uri"},
         [&](auto id) { return nodes.JtifAttrToString(text, id); }},
        {"JtifAttrToBool", "is not IppBoolean!", {u"boolean"}, [&](auto id) { return nodes.JtifAttrToBool(flag, id); }},
        {"JtifAttrToList",
         "is not derived from IppList!",
         {u"range"},
         [&](auto id) { return nodes.JtifAttrToList(inner, id); }},
    };
    for (const Row& row : rows) {
        EXPECT_FALSE(row.convert(u"missing"));
        for (const AttrNode& node : std::as_const(nodes)) {
            const std::u16string& id = node.getAttrID().getName();
            SCOPED_TRACE(std::string(row.operation) + " of " + toUtf8(id));
            if (std::find(row.accepted.begin(), row.accepted.end(), id) != row.accepted.end()) {
                EXPECT_TRUE(row.convert(id));
                continue;
            }
            EXPECT_EQ(messageOf<AttributeTypeMismatchException>([&] { row.convert(id); }),
                      "AttrNodeList::" + std::string(row.operation) + "(): Specified attribute '" + toUtf8(id) + "' " +
                          std::string(row.classes) + "\r\n");
        }
    }
    EXPECT_EQ(number, 2);
    EXPECT_EQ(text, u"u");
    EXPECT_TRUE(flag);
    inner->setNode(u"lower-bound", IppInteger(2));
    std::int32_t lower = 0, upper = 0;
    EXPECT_TRUE(nodes.JtifRangeToLongs(lower, upper, u"range"));
    EXPECT_EQ(std::tuple(lower, upper), std::tuple(2, 4));
    inner->deleteNode(u"lower-bound");
    EXPECT_FALSE(nodes.JtifRangeToLongs(lower = -1, upper = -1, u"range"));
    EXPECT_EQ(std::tuple(lower, upper), std::tuple(-1, 4));
    EXPECT_FALSE(nodes.JtifRangeToLongs(lower = -1, upper = -1, u"missing"));
    EXPECT_EQ(std::tuple(lower, upper), std::tuple(-1, -1));
}

TEST(AttrNodeList, aNodeKeepsItsAddressWhileOthersComeAndGo) {
    AttrNodeList nodes = list().integer(u"gone", 0);
    AttrNode& kept = nodes.setNode(u"kept", IppInteger(1));
    AttrNodeList& inner = nodes.add1setOf(u"inner");
    for (int i = 0; i < 1000; ++i)
        nodes.addNode(AttrNode(u"filler", IppInteger(i)));
    nodes.deleteNode(u"gone");
    inner.addNode(u"value", std::make_unique<IppInteger>(5));
    AttrNodeList moved = std::move(nodes);
    EXPECT_EQ(moved.getNode(u"kept"), &kept);
    EXPECT_EQ(show(IppList(inner, u"1setOf").getList()), "value=5");
    EXPECT_TRUE(nodes.isEmpty()); // NOLINT(bugprone-use-after-move): the contract says so
}

TEST(AttrNodeList, deepListsAreCopiedComparedAndDestroyedOnASmallStack) {
    AttrNodeList nodes;
    AttrNodeList* deepest = &nodes;
    for (int depth = 0; depth < 64; ++depth)
        deepest = &deepest->addCollection(u"c");
    deepest->setNode(u"x", IppInteger(1));
    AttrNodeList copy = nodes;
    EXPECT_TRUE(copy.equals(nodes));
    copy.mergeList(nodes);
    EXPECT_TRUE(copy.equals(nodes));
    deepest->clear();
    nodes.pruneEmptyLists();
    EXPECT_TRUE(nodes.isEmpty());
}

} // namespace
