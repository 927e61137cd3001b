// Random attribute lists that every document format can carry. The seed is printed with a failure; KOLMA_SEED in the
// environment repeats a run.
#pragma once

#include "jtcore/Attributes/AttrNodeList.h"
#include "jtcore/Attributes/AttrValueFactory.h"
#include "jtcore/Attributes/IppList.h"
#include "jtcore/FeatureSettings/FeatureDataBase.h"
#include "jtcore/FeatureSettings/FeatureValueDataBase.h"
#include "jtcore/JtifParse/attrCategory.h"

#include <array>
#include <cstdlib>
#include <memory>
#include <random>
#include <string>
#include <string_view>
#include <vector>

inline unsigned randomSeed() {
    const char* given = std::getenv("KOLMA_SEED");
    return given != nullptr ? static_cast<unsigned>(std::strtoul(given, nullptr, 10)) : std::random_device()();
}

class RandomList {
public:
    explicit RandomList(unsigned seed) : random_(seed) {
        for (const FeatureInfo& feature : FeatureDataBase::rows()) {
            memberIds_.push_back(feature.uniqueId());
            AttrCategory category = getAttrCategory(feature.uniqueId());
            if (category == AttrCategory::jobTemplate) topIds_.push_back(feature.uniqueId());
        }
        for (std::u16string_view id : {u"value", u"lower-bound", u"units", u"media-source", u"media-info"})
            memberIds_.push_back(id);
    }

    // All of one group, so that the order is that of the list.
    AttrNodeList ticket() { return nodes(topIds_, below(12), 3); }

private:
    std::size_t below(std::size_t limit) { return std::uniform_int_distribution<std::size_t>(0, limit - 1)(random_); }

    template <typename Range>
    auto oneOf(const Range& range) {
        return range[below(std::size(range))];
    }

    AttrNodeList nodes(const std::vector<std::u16string_view>& ids, std::size_t count, int depth) {
        AttrNodeList list;
        for (std::size_t i = 0; i < count; ++i)
            list.addNode(oneOf(ids), value(depth));
        return list;
    }

    std::unique_ptr<AttrValue> value(int depth) {
        static constexpr std::array<std::u16string_view, 4> lists{u"1setOf", u"collection", u"rangeOfInteger",
                                                                  u"resolution"};
        static constexpr std::array<std::u16string_view, 8> singles{u"integer", u"enum", u"boolean", u"keyword",
                                                                    u"name",    u"text", u"uri",     u"mimeMediaType"};
        if (depth > 0 && below(3) == 0)
            return std::make_unique<IppList>(nodes(memberIds_, 1 + below(4), depth - 1), oneOf(lists));
        std::u16string_view syntax = oneOf(singles);
        return AttrValueFactory::createAttrValue(syntax, textFor(syntax));
    }

    std::u16string textFor(std::u16string_view syntax) {
        if (syntax == u"boolean") return below(2) == 0 ? u"true" : u"false";
        if (syntax == u"integer" || syntax == u"enum") {
            std::u16string digits;
            for (char c : std::to_string(static_cast<int>(random_())))
                digits += static_cast<char16_t>(c);
            return digits;
        }
        if (below(3) == 0) return std::u16string(oneOf(FeatureValueDataBase::fixedRows().subspan(1)).text);
        if (below(4) == 0) return std::u16string(below(3), u'*') + abbreviation();
        bool keepsBlanks = syntax == u"name" || syntax == u"text";
        return keepsBlanks ? text() : u'x' + text() + u'x';
    }

    // What a value may only look like.
    std::u16string abbreviation() {
        std::u16string_view text = oneOf(FeatureValueDataBase::fixedRows()).abbreviation;
        return text.empty() ? u"q" : std::u16string(text);
    }

    std::u16string text() {
        static constexpr std::array<std::u16string_view, 14> pieces{
            u"a", u" ",   u"\t",  u"\r", u"\n",           u"\r\n",       u"<",
            u"&", u"]]>", u"\"'", u"*",  u"\u00e4\u20ac", u"\U0001F600", u"\ufffd\ud7ff\ue000"};
        std::u16string text;
        for (std::size_t i = 0; i <= below(8); ++i)
            text += oneOf(pieces);
        return text;
    }

    std::mt19937 random_;
    std::vector<std::u16string_view> topIds_;
    std::vector<std::u16string_view> memberIds_;
};
