#include "host/tickets/AttributeTree.h"

#include "host/output.h"
#include "host/tickets/textColumns.h"
#include "jtcore/Attributes/IppList.h"
#include "jtcore/Services/text.h"

#include <fmt/format.h>

#include <algorithm>
#include <iterator>

namespace {

constexpr std::size_t widestColumn = 44;

const AttrNodeList* asList(const AttrValue& value) {
    const IppList* list = value.asList();
    return list ? &list->getList() : nullptr;
}

std::string unitsName(std::int32_t units) {
    if (units == 3) return "dpi";
    return units == 4 ? "dpcm" : fmt::format("(units {})", units);
}

// A range or a resolution whose members are all there and nothing else is.
bool isFixedShape(const AttrValue& value, std::string& text) {
    std::int32_t first = 0;
    std::int32_t second = 0;
    std::int32_t third = 0;
    const AttrNodeList* list = asList(value);
    if (value.isRangeOfInteger() && list->getNumNodes() == 2 && value.getRangeOfIntegerValues(first, second)) {
        text = first == second ? fmt::format("{}", first) : fmt::format("{}-{}", first, second);
        return true;
    }
    if (value.isResolution() && list->getNumNodes() == 3 && value.getResolutionValues(first, second, third)) {
        text = fmt::format("{} x {} {}", first, second, unitsName(third));
        return true;
    }
    return false;
}

// A value that stands on one line. False for a list with nodes of its own.
bool isOnOneLine(const AttrValue& value, std::string& text) {
    if (isFixedShape(value, text)) return true;
    if (value.isList()) return false;
    text = toTerminal(value.getIppValue());
    if (value.isPreservedText()) text = '"' + text + '"';
    return true;
}

// Plain elements of one syntax, all called "value", as the features' sets have them.
bool isPlainSet(const AttrNodeList& list, std::string& text) {
    std::u16string_view syntax;
    std::string element;
    text.clear();
    for (const AttrNode& node : list) {
        const AttrValue& value = node.getAttrValue();
        const bool isOfOneKind = syntax.empty() || syntax == value.getSyntaxName();
        if (node.getAttrID().getName() != u"value" || !isOfOneKind || !isOnOneLine(value, element)) return false;
        syntax = value.getSyntaxName();
        text += (text.empty() ? "" : ", ") + element;
    }
    return !text.empty();
}

std::string count(std::size_t number, std::string_view what) {
    return fmt::format("{} {}{}", number, what, number == 1 ? "" : "s");
}

} // namespace

AttributeTree::AttributeTree(const AttrNodeList& list) { addList(list, 0, {}); }

void AttributeTree::addList(const AttrNodeList& list, std::size_t depth, std::u16string_view owner) {
    for (const AttrNode& node : list)
        addNode(node, depth, owner, toTerminal(node.getAttrID().getName()));
}

void AttributeTree::addNode(const AttrNode& node, std::size_t depth, std::u16string_view owner,
                            const std::string& name) {
    const AttrValue& value = node.getAttrValue();
    const AttrNodeList* list = asList(value);
    const bool isElement = node.getAttrID().getName() == u"value";
    const std::u16string_view feature = isElement ? owner : std::u16string_view(node.getAttrID().getName());
    Row row{
        std::string(2 * depth, ' ') + name, toTerminal(value.getSyntaxName()), {}, labelOf(feature, isElement, value)};
    if (isOnOneLine(value, row.value)) {
        rows_.push_back(std::move(row));
    } else if (value.is1setOf() && isPlainSet(*list, row.value)) {
        row.syntax += ' ' + toTerminal(list->begin()->getAttrValue().getSyntaxName());
        rows_.push_back(std::move(row));
    } else {
        if (value.is1setOf()) row.value = count(list->getNumNodes(), "element");
        rows_.push_back(std::move(row));
        value.is1setOf() ? addSetElements(*list, depth + 1, feature) : addList(*list, depth + 1, feature);
    }
}

void AttributeTree::addSetElements(const AttrNodeList& list, std::size_t depth, std::u16string_view owner) {
    std::size_t number = 0;
    for (const AttrNode& node : list) {
        const std::u16string& id = node.getAttrID().getName();
        addNode(node, depth, owner, fmt::format("{}[{}]", id == u"value" ? "" : toTerminal(id), ++number));
    }
}

// "Sides printed: One-sided". An element of a set tells its value alone, since the set has told the feature.
std::string AttributeTree::labelOf(std::u16string_view feature, bool isElement, const AttrValue& value) const {
    const AttrNodeList* list = asList(value);
    const AttrValue& single = value.is1setOf() && list->getNumNodes() == 1 ? list->begin()->getAttrValue() : value;
    std::string text = isElement ? std::string() : toTerminal(labels_.ofFeature(feature));
    const std::string words =
        single.isList() ? std::string() : toTerminal(labels_.ofValue(feature, single.getIppValue()));
    if (!text.empty() && !words.empty()) text += ": ";
    return text + words;
}

std::string AttributeTree::toText() const {
    auto widest = [this](std::string Row::*column, std::size_t limit) {
        std::size_t width = 0;
        for (const Row& row : rows_)
            if (const std::size_t columns = columnsOf(row.*column); columns <= limit) width = std::max(width, columns);
        return width;
    };
    const std::size_t attributes = widest(&Row::attribute, widestColumn);
    const std::size_t syntaxes = widest(&Row::syntax, widestColumn);
    const std::size_t values = widest(&Row::value, widestColumn);
    const std::size_t indent = attributes + 2 + syntaxes + 2;
    std::string text;
    for (const Row& row : rows_) {
        const std::string value = columnsOf(row.value) > values ? wrap(row.value, indent) : row.value;
        std::string line = pad(row.attribute, attributes) + "  " + pad(row.syntax, syntaxes) + "  " +
                           pad(value, values) + "  " + row.label;
        line.erase(line.find_last_not_of(' ') + 1);
        text += line + '\n';
    }
    return text;
}

std::size_t countNodes(const AttrNodeList& list) {
    std::size_t nodes = list.getNumNodes();
    for (const AttrNode& node : list)
        if (const AttrNodeList* inner = asList(node.getAttrValue())) nodes += countNodes(*inner);
    return nodes;
}
