#include "host/tickets/capabilityText.h"

#include "host/output.h"
#include "host/tickets/FeatureReport.h"
#include "host/tickets/textColumns.h"

#include <fmt/format.h>

#include <algorithm>
#include <array>

namespace {

struct Group {
    std::string_view heading;
    std::vector<Feature> features;
};

const std::vector<Group>& groups() {
    using enum Feature;
    static const std::vector<Group> all = {
#define GROUP(heading, ...) {heading, {__VA_ARGS__}},
#include "host/tickets/capabilityGroups.def"
#undef GROUP
    };
    return all;
}

consteval bool everyFeatureHasOneGroup() {
    using enum Feature;
    std::array<int, featureLast + 1> seen{};
#define GROUP(heading, ...)                                                                                            \
    for (const Feature feature : {__VA_ARGS__})                                                                        \
        ++seen[static_cast<std::size_t>(feature)];
#include "host/tickets/capabilityGroups.def"
#undef GROUP
    return std::all_of(seen.begin() + featureFirst, seen.end(), [](int times) { return times == 1; });
}
static_assert(everyFeatureHasOneGroup());

// The words of the driver may hold commas.
constexpr std::string_view separator = "; ";

class Phrase {
public:
    void add(std::string_view part) { text_.append(text_.empty() ? "" : separator).append(part); }
    const std::string& text() const { return text_; }

private:
    std::string text_;
};

std::string inMillimetres(std::int32_t lower, std::int32_t upper) {
    return fmt::format("{:g}-{:g} mm", lower / 100.0, upper / 100.0);
}

std::string describeSizes(const StockSizeRange& range) {
    return fmt::format("custom {} by {}", inMillimetres(range.xMinimum, range.xMaximum),
                       inMillimetres(range.yMinimum, range.yMaximum));
}

bool isLength(const FeatureId& feature) {
    return feature.getNumber() == Feature::xDimension || feature.getNumber() == Feature::yDimension;
}

std::string describeRange(const FeatureId& feature, const FeatureReport& report) {
    const auto [lower, upper] = *report.range;
    if (isLength(feature)) return inMillimetres(lower, upper);
    const std::string range = lower < 0 ? fmt::format("{} to {}", lower, upper) : fmt::format("{}-{}", lower, upper);
    return report.isText ? range + " characters" : range;
}

std::string describe(const FeatureId& feature, const FeatureReport& report) {
    Phrase phrase;
    for (const FeatureReport::Choice& choice : report.choices)
        phrase.add(toTerminal(choice.words));
    for (const Resolution& resolution : report.resolutions)
        phrase.add(fmt::format("{} x {} {}", resolution.crossFeed, resolution.feedDirection,
                               resolution.units == 4 ? "dpcm" : "dpi"));
    for (const std::u16string& size : report.sizes)
        phrase.add(toTerminal(size));
    for (const FeatureReport::Choice& member : report.members)
        phrase.add(toTerminal(member.words));
    if (report.customSizes) phrase.add(describeSizes(*report.customSizes));
    if (report.range) phrase.add(describeRange(feature, report));
    if (report.takesOwnValues) phrase.add("own values");
    if (report.characterLimit) phrase.add(fmt::format("up to {} characters", *report.characterLimit));
    if (report.refusesBlanks) phrase.add("no blanks");
    if (report.characterSet) phrase.add(fmt::format("character set {}", *report.characterSet));
    if (report.precision) phrase.add(fmt::format("precision {}", *report.precision));
    return phrase.text().empty() ? "yes" : phrase.text();
}

struct Row {
    std::string words;
    std::string what;
};

std::vector<Row> rowsOf(const Group& group, const Capabilities& capabilities, const FeatureLabels& labels) {
    std::vector<Row> rows;
    for (const FeatureId feature : group.features) {
        if (!isOffered(capabilities, feature)) continue;
        const FeatureReport report = reportFeature(capabilities, feature, labels);
        rows.push_back({toTerminal(report.words), describe(feature, report)});
    }
    return rows;
}

std::size_t widthOfWords(const std::vector<std::vector<Row>>& groups) {
    std::size_t width = 0;
    for (const std::vector<Row>& rows : groups)
        for (const Row& row : rows)
            width = std::max(width, columnsOf(row.words));
    return width;
}

} // namespace

std::string toText(const Capabilities& capabilities) {
    const FeatureLabels labels;
    std::vector<std::vector<Row>> all;
    for (const Group& group : groups())
        all.push_back(rowsOf(group, capabilities, labels));
    const std::size_t width = widthOfWords(all);
    std::string text;
    for (std::size_t i = 0; i < all.size(); ++i) {
        if (all[i].empty()) continue;
        text += fmt::format("\n{}\n", groups()[i].heading);
        for (const Row& row : all[i])
            text += fmt::format("  {}  {}\n", pad(row.words, width), wrap(row.what, width + 4, separator));
    }
    return text;
}
