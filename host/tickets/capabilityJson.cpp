#include "host/tickets/FeatureReport.h"
#include "host/tickets/capabilityText.h"
#include "jtcore/Services/text.h"

#include <nlohmann/json.hpp>

namespace {

using Json = nlohmann::ordered_json;

Json toJson(const std::vector<std::u16string>& texts) {
    Json array = Json::array();
    for (const std::u16string& text : texts)
        array.push_back(toUtf8(text));
    return array;
}

Json toJson(const std::vector<FeatureReport::Choice>& choices) {
    Json array = Json::array();
    for (const FeatureReport::Choice& choice : choices)
        array.push_back({{"value", toUtf8(choice.text)}, {"label", toUtf8(choice.words)}});
    return array;
}

Json idsOf(const std::vector<FeatureReport::Choice>& members) {
    Json array = Json::array();
    for (const FeatureReport::Choice& member : members)
        array.push_back(toUtf8(member.text));
    return array;
}

Json toJson(const std::vector<Resolution>& resolutions) {
    Json array = Json::array();
    for (const Resolution& resolution : resolutions)
        array.push_back({{"crossFeed", resolution.crossFeed},
                         {"feedDirection", resolution.feedDirection},
                         {"units", resolution.units}});
    return array;
}

Json toJson(const StockSizeRange& sizes) {
    return {{"x", {{"lower", sizes.xMinimum}, {"upper", sizes.xMaximum}}},
            {"y", {{"lower", sizes.yMinimum}, {"upper", sizes.yMaximum}}}};
}

void addLimits(Json& json, const FeatureReport& report) {
    if (report.range) {
        const char* const name = report.isText ? "characters" : "range";
        json[name] = {{"lower", report.range->first}, {"upper", report.range->second}};
    }
    if (report.characterLimit) json["characterLimit"] = *report.characterLimit;
    if (report.characterSet) json["characterSet"] = *report.characterSet;
    if (report.precision) json["precision"] = *report.precision;
    if (report.refusesBlanks) json["blanks"] = false;
}

Json toJson(const FeatureReport& report) {
    Json json = {{"id", toUtf8(report.id)}, {"label", toUtf8(report.words)}};
    if (!report.choices.empty()) json["values"] = toJson(report.choices);
    if (!report.resolutions.empty()) json["resolutions"] = toJson(report.resolutions);
    if (!report.sizes.empty()) json["sizes"] = toJson(report.sizes);
    if (report.customSizes) json["customSizes"] = toJson(*report.customSizes);
    if (!report.members.empty()) json["members"] = idsOf(report.members);
    addLimits(json, report);
    json["ownValues"] = report.takesOwnValues;
    json["mayBeUnset"] = report.mayBeUnset;
    return json;
}

} // namespace

Json featuresToJson(const Capabilities& capabilities) {
    const FeatureLabels labels;
    Json features = Json::array();
    for (const FeatureInfo& row : FeatureDataBase::rows())
        if (isOffered(capabilities, row.number))
            features.push_back(toJson(reportFeature(capabilities, row.number, labels)));
    return features;
}
