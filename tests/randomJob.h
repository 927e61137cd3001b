// Random jobs in the shapes that tickets have: features at their places with values of the tables and values that no
// printer has, numbers out of every range, attributes that nobody knows, exceptions, inserts and covers, and lists
// where none belongs.
#pragma once

#include "jtcore/Attributes/AttrValueFactory.h"
#include "jtcore/Attributes/IppList.h"
#include "jtcore/Attributes/PrimitiveInteger.h"
#include "jtcore/FeatureSettings/FeatureId.h"
#include "jtcore/FeatureSettings/FeatureSettings.h"
#include "jtcore/FeatureSettings/NestedAttrID.h"

#include <random>
#include <string>

class RandomJob {
public:
    explicit RandomJob(unsigned seed) : random_(seed) {}

    AttrNodeList make() {
        AttrNodeList job;
        addFeatures(job, below(25));
        for (const char16_t* cover : {u"cover-front", u"cover-back"})
            if (oneIn(4)) addFeatures(job.addCollection(cover), below(6));
        for (const char16_t* entries : {u"page-overrides", u"insert-sheet"})
            if (oneIn(3)) addEntries(job.add1setOf(entries));
        if (oneIn(3)) addUnknown(job);
        return job;
    }

private:
    std::size_t below(std::size_t limit) { return std::uniform_int_distribution<std::size_t>(0, limit - 1)(random_); }
    bool oneIn(std::size_t count) { return below(count) == 0; }

    void addEntries(AttrNodeList& set) {
        for (std::size_t i = below(4); i > 0; --i) {
            AttrNodeList& entry = set.addCollection(u"value");
            if (!oneIn(4)) FeatureSettings::view(&entry).setRange(FeatureId(Feature::inputDocuments), 1, number());
            if (!oneIn(4)) FeatureSettings::view(&entry).setRange(FeatureId(Feature::pages), number(), number());
            addFeatures(entry, below(8));
        }
    }

    void addFeatures(AttrNodeList& level, std::size_t count) {
        for (std::size_t i = 0; i < count; ++i)
            addFeature(level, FeatureDataBase::rows()[below(FeatureDataBase::rows().size())]);
    }

    void addFeature(AttrNodeList& level, const FeatureInfo& feature) {
        const Syntax& syntax = feature.syntaxes[below(feature.syntaxes.size())];
        if (syntax.name == u"collection") return;
        AttrNodeList& holder = feature.nestedId().makeList(level);
        for (std::size_t i = oneIn(4) ? 3 : 1; i > 0; --i)
            holder.addNode(feature.path.leaf, value(feature, syntax));
    }

    std::unique_ptr<AttrValue> value(const FeatureInfo& feature, const Syntax& syntax) {
        if (syntax.type == AVTE::list) return listValue(syntax.name);
        if (oneIn(8)) return AttrValueFactory::createSimpleAttrValue(AVTE::keyword, text());
        return AttrValueFactory::createSimpleAttrValue(syntax.type, textFor(feature, syntax.type));
    }

    std::unique_ptr<AttrValue> listValue(std::u16string_view syntax) {
        auto list = std::make_unique<IppList>(syntax);
        for (const char16_t* id : {u"lower-bound", u"upper-bound", u"cross-feed", u"feed-direction", u"units"})
            if (!oneIn(9)) list->getList().addNode(id, std::make_unique<IppInteger>(number()));
        return list;
    }

    std::u16string textFor(const FeatureInfo& feature, AVTE type) {
        if (oneIn(2)) return knownText(feature);
        if (type != AVTE::integer && type != AVTE::enumeration) return text();
        const std::string digits = std::to_string(number());
        return {digits.begin(), digits.end()};
    }

    std::u16string knownText(const FeatureInfo& feature) {
        const auto rows = FeatureValueDataBase::fixedRows();
        for (std::size_t tries = 0, at = below(rows.size()); tries < rows.size(); ++tries, at = (at + 1) % rows.size())
            if (rows[at].features.contains(feature.number)) return std::u16string(rows[at].text);
        return text();
    }

    std::u16string text() {
        static constexpr std::u16string_view pieces[] = {u"x", u" ", u"own paper", u"\U0001F600", u"0123456789"};
        std::u16string text;
        for (std::size_t i = oneIn(5) ? below(60) : below(4); i > 0; --i)
            text += pieces[below(std::size(pieces))];
        return text;
    }

    std::int32_t number() {
        static constexpr std::int32_t edges[] = {-2147483647 - 1, -1, 0, 1, 2, 9999, 99999, 100000, 2147483647};
        return oneIn(2) ? edges[below(std::size(edges))] : static_cast<std::int32_t>(below(60000)) - 5000;
    }

    void addUnknown(AttrNodeList& job) {
        job.addNode(u"nobody-knows-me", AttrValueFactory::createAttrValue(u"keyword", u"x"));
        AttrNodeList& wrapped = job.add1setOf(u"wrapped").add1setOf(u"value");
        addFeatures(wrapped.addCollection(u"value"), 2);
        if (oneIn(2)) addFeatures(job.addCollection(u"media-col"), 2); // a second one
        if (oneIn(2)) addFeatures(job.addListNode(u"copies", u"1setOf"), 2);
    }

    std::mt19937 random_;
};
