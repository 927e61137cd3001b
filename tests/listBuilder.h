// Attribute lists for tests, written as they read:
//
//     AttrNodeList job = list().integer(u"copies", 2).set(u"page-ranges", list().range(u"value", 1, 5));
//
// and shown as one line of text, which is also how a failed test prints them:
//
//     copies=2 page-ranges=1setOf[value=rangeOfInteger[lower-bound=1 upper-bound=5]]
//
// Integers stand as they are, other single values behind the name of their syntax, a private node ends in '!'.
#pragma once

#include "jtcore/Attributes/AttrNodeList.h"
#include "jtcore/Attributes/AttrValueFactory.h"
#include "jtcore/Attributes/IppBoolean.h"
#include "jtcore/Attributes/IppList.h"
#include "jtcore/Attributes/PrimitiveInteger.h"
#include "jtcore/Attributes/PrimitiveString.h"
#include "jtcore/Services/text.h"

#include <memory>
#include <ostream>
#include <string>
#include <string_view>
#include <utility>

class ListBuilder {
public:
    ListBuilder& value(std::u16string_view id, std::unique_ptr<AttrValue> value) {
        list_.addNode(id, std::move(value));
        return *this;
    }
    ListBuilder& value(std::u16string_view id, std::u16string_view syntax, std::u16string_view text) {
        return value(id, AttrValueFactory::createAttrValue(syntax, text));
    }
    ListBuilder& integer(std::u16string_view id, std::int32_t v) { return value(id, std::make_unique<IppInteger>(v)); }
    ListBuilder& enumeration(std::u16string_view id, std::int32_t v) { return value(id, std::make_unique<IppEnum>(v)); }
    ListBuilder& boolean(std::u16string_view id, bool v) { return value(id, std::make_unique<IppBoolean>(v)); }
    ListBuilder& keyword(std::u16string_view id, std::u16string_view v) { return value(id, u"keyword", v); }
    ListBuilder& name(std::u16string_view id, std::u16string_view v) { return value(id, u"name", v); }
    ListBuilder& text(std::u16string_view id, std::u16string_view v) { return value(id, u"text", v); }
    ListBuilder& uri(std::u16string_view id, std::u16string_view v) { return value(id, u"uri", v); }

    ListBuilder& inner(std::u16string_view id, std::u16string_view syntax, const ListBuilder& members) {
        return value(id, std::make_unique<IppList>(members.list_, syntax));
    }
    ListBuilder& set(std::u16string_view id, const ListBuilder& members) { return inner(id, syntax1setOf, members); }
    ListBuilder& collection(std::u16string_view id, const ListBuilder& members) {
        return inner(id, syntaxCollection, members);
    }
    ListBuilder& range(std::u16string_view id, std::int32_t lower, std::int32_t upper) {
        return inner(id, syntaxRangeOfInteger,
                     ListBuilder().integer(u"lower-bound", lower).integer(u"upper-bound", upper));
    }
    ListBuilder& resolution(std::u16string_view id, std::int32_t cross, std::int32_t feed, std::int32_t units) {
        return inner(
            id, syntaxResolution,
            ListBuilder().integer(u"cross-feed", cross).integer(u"feed-direction", feed).enumeration(u"units", units));
    }

    // Makes the node added last a private one.
    ListBuilder& hidden() {
        last().setPrivate(true);
        return *this;
    }

    operator AttrNodeList() const { return list_; }

private:
    AttrNode& last() {
        AttrNode* last = nullptr;
        for (AttrNode& node : list_)
            last = &node;
        return *last;
    }

    AttrNodeList list_;
};

inline ListBuilder list() { return {}; }

inline std::string show(const AttrNodeList& nodes) {
    std::string line;
    for (const AttrNode& node : nodes) {
        const AttrValue& value = node.getAttrValue();
        if (!line.empty()) line += ' ';
        line += toUtf8(node.getAttrID()) + "=";
        if (value.getValueType() != AVTE::integer) line += toUtf8(value.getSyntaxName());
        if (const IppList* inner = value.asList())
            line += "[" + show(inner->getList()) + "]";
        else if (value.getValueType() == AVTE::integer)
            line += toUtf8(value.getIppValue());
        else
            line += ":" + toUtf8(value.getIppValue());
        if (node.isPrivate()) line += '!';
    }
    return line;
}

// How the test framework prints and compares lists.
inline void PrintTo(const AttrNodeList& nodes, std::ostream* out) { *out << show(nodes); }
inline bool operator==(const AttrNodeList& a, const AttrNodeList& b) { return a.equals(b); }
