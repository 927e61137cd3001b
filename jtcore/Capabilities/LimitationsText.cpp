#include "jtcore/Capabilities/LimitationsText.h"

#include "jtcore/Capabilities/problemRanks.h"
#include "jtcore/Services/ResourceLibrary.h"
#include "resources/ids.h"

#include <tuple>

struct LimitationsText::Category {
    std::u16string_view start;
    std::uint16_t titleId;
    std::uint16_t repairId;
    std::uint16_t columnsId;
    bool hasDetails;
};

namespace {

std::u16string getText(std::uint16_t id) { return ResourceLibrary().getString(id); }

// What the report is sorted by.
struct Place {
    ReportRank rank;
    ProblemContext context;
    std::int32_t first;
    std::int32_t last;
    auto operator<=>(const Place&) const = default; // NOLINT(modernize-use-nullptr)
    bool isSameContext(const Place& other) const {
        return std::tie(context, first, last) == std::tie(other.context, other.first, other.last);
    }
};

Place placeOf(const SettingsProblem& problem) {
    Place place{reportRankOf(problem), {}, 0, 0};
    place.context = problem.getContext(place.first, place.last);
    return place;
}

constexpr std::u16string_view arrow = u" -> ";
constexpr ProblemContext noContext{-1};
constexpr ReportRank noRank{0};

} // namespace

std::u16string LimitationsText::makeHeading(const Category& category) const {
    std::u16string heading(category.start);
    heading += getText(category.titleId);
    if (showsRepair_) heading.append(u" ").append(getText(category.repairId));
    return heading.append(u"\r\n\r\n").append(getText(category.columnsId)).append(u"\r\n");
}

std::u16string LimitationsText::describeRemoval(const SettingsProblem& problem, const Fix& fix,
                                                bool isInContext) const {
    const bool goesWhole = fix.kind == FixKind::removeEnclosing && isInContext;
    std::u16string words;
    if (fix.node && !goesWhole) words.append(u": ").append(problem.getValueDisplay(fix.node->getAttrValue()));
    if (!showsRepair_) return words;
    const std::uint16_t id = goesWhole     ? IDS_FIX_ENTRY_REMOVED
                             : isInContext ? IDS_FIX_REMOVED_FROM_ENTRY
                                           : IDS_FIX_REMOVED;
    return words.append(arrow).append(getText(id));
}

std::u16string LimitationsText::describe(const SettingsProblem& problem, bool isInContext) const {
    const Fix fix = problem.getFix(defaults_);
    if (fix.kind == FixKind::remove || fix.kind == FixKind::removeEnclosing)
        return describeRemoval(problem, fix, isInContext);
    std::u16string words;
    if (fix.node) words.append(u": ").append(problem.getValueDisplay(fix.node->getAttrValue()));
    if (showsRepair_ && fix.replacement)
        words.append(arrow).append(problem.getValueDisplay(fix.replacement->getAttrValue()));
    return words;
}

std::u16string LimitationsText::compose(const SettingsProblemList& problems) const {
    static constexpr Category categories[] = {
        {u"", IDS_CATEGORY_UNSUPPORTED_FEATURES, IDS_REPAIR_UNSUPPORTED_FEATURES, IDS_COLUMNS_UNSUPPORTED_FEATURES,
         false},
        {u"\r\n", IDS_CATEGORY_UNSUPPORTED_VALUES, IDS_REPAIR_UNSUPPORTED_VALUES, IDS_COLUMNS_UNSUPPORTED_VALUES, true},
        {u"\r\n", IDS_CATEGORY_MISSING_FEATURES, IDS_REPAIR_MISSING_FEATURES, IDS_COLUMNS_MISSING_FEATURES, true},
    };
    SettingsProblemList sorted(problems);
    sorted.sort([](const SettingsProblem& one, const SettingsProblem& other) { return placeOf(one) < placeOf(other); });
    std::u16string text;
    bool hasDetails = false;
    Place last{noRank, noContext, 0, 0};
    std::size_t position = 0;
    for (sorted.resetIterator(position); sorted.hasMoreSettingsProblems(position);) {
        const SettingsProblem& problem = sorted.getNextSettingsProblem(position);
        const Place place = placeOf(problem);
        if (place.rank != last.rank && place.rank != ReportRank::other) {
            const Category& category = categories[static_cast<std::size_t>(place.rank) - 1];
            text += makeHeading(category);
            hasDetails = category.hasDetails;
        }
        if (!place.isSameContext(last)) text.append(u"\r\n\t").append(problem.getContextHeading()).append(u"\r\n");
        last = place;
        text.append(u"\t").append(problem.getProblemFeatureName());
        if (hasDetails) text.append(describe(problem, place.context != ProblemContext::job));
        text.append(u"\r\n");
    }
    return text;
}
