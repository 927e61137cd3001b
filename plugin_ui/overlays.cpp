#include "plugin_ui/overlays.h"

#include "plugin_ui/Controls/BitmapUIControl.h"
#include "plugin_ui/Features/AboutUIFeature.h"
#include "plugin_ui/Features/CollationUIFeature.h"
#include "plugin_ui/Features/CopiesUIFeature.h"
#include "plugin_ui/Features/KeyWordListUIFeature.h"
#include "plugin_ui/Features/PageRangeUIFeature.h"
#include "plugin_ui/Features/PlexUIFeature.h"

#include <algorithm>
#include <array>

namespace {

constexpr std::array iconIds = {
#define OVERLAY(Class, icon, help, label, dialogTemplate, frame) icon,
#include "plugin_ui/Overlay.def"
#undef OVERLAY
};

// The icon is what an entry of the navigation list is known by.
constexpr bool areUnique() {
    for (std::size_t i = 0; i < iconIds.size(); ++i)
        if (std::find(iconIds.begin() + i + 1, iconIds.end(), iconIds[i]) != iconIds.end()) return false;
    return true;
}
static_assert(iconIds.size() == 12 && areUnique());

} // namespace

std::vector<std::unique_ptr<Overlay>> makeOverlays(UIContext& context) {
    std::vector<std::unique_ptr<Overlay>> overlays;
#define OVERLAY(Class, icon, help, label, dialogTemplate, frame) overlays.push_back(std::make_unique<Class>(context));
#include "plugin_ui/Overlay.def"
#undef OVERLAY
    return overlays;
}

// The children of each overlay, in the order in which they get their messages. An overlay without a feature that the
// printer has gets no entry, so one whose features are still to be written is not seen.

BasicFeaturesOverlay::BasicFeaturesOverlay(UIContext& context) : Overlay(context) {
    setFrameId(IDC_BASIC_FRAME);
    addNew<CopiesUIFeature>(context);
    addNew<PlexUIFeature>(context, noParentFeature);
    addNew<PageRangeUIFeature>(context);
    // The job ticket's place.
    addNew<CollationUIFeature>(context, noParentFeature);
    // Finishing's place, and the stock's behind it.
    addNew<BitmapUIControl>(IDC_BASIC_PICTURE, IDB_BASIC);
    addNew<KeyWordListUIFeature>(context, IDC_OUTPUT_BIN_LABEL, IDC_OUTPUT_BIN_LIST, Feature::outputBin,
                                 noParentFeature);
}

ImageOutputOverlay::ImageOutputOverlay(UIContext& context) : Overlay(context) { setFrameId(IDC_IMAGE_OUTPUT_FRAME); }

ImageQualityOverlay::ImageQualityOverlay(UIContext& context) : Overlay(context) { setFrameId(IDC_IMAGE_QUALITY_FRAME); }

JobNotesOverlay::JobNotesOverlay(UIContext& context) : Overlay(context) { setFrameId(IDC_JOB_NOTES_FRAME); }

ExceptionPagesOverlay::ExceptionPagesOverlay(UIContext& context) : Overlay(context) {
    setFrameId(IDC_EXCEPTION_PAGES_FRAME);
}

PageInsertsOverlay::PageInsertsOverlay(UIContext& context) : Overlay(context) { setFrameId(IDC_PAGE_INSERTS_FRAME); }

ChapterStartsOverlay::ChapterStartsOverlay(UIContext& context) : Overlay(context) {
    setFrameId(IDC_CHAPTER_STARTS_FRAME);
}

CoversOverlay::CoversOverlay(UIContext& context) : Overlay(context) { setFrameId(IDC_COVERS_FRAME); }

HighlightColorOverlay::HighlightColorOverlay(UIContext& context) : Overlay(context) {
    setFrameId(IDC_HIGHLIGHT_COLOR_FRAME);
    const auto addList = [&](std::uint16_t label, std::uint16_t list, Feature feature) {
        addNew<KeyWordListUIFeature>(context, label, list, feature, noParentFeature);
    };
    addList(IDC_HIGHLIGHT_COLORANT_LABEL, IDC_HIGHLIGHT_COLORANT_LIST, Feature::highlightColorant);
    addList(IDC_HIGHLIGHT_MAP_COLOR_LABEL, IDC_HIGHLIGHT_MAP_COLOR_LIST, Feature::highlightMapColor);
    addList(IDC_HIGHLIGHT_MAP_LABEL, IDC_HIGHLIGHT_MAP_LIST, Feature::highlightMap);
    addList(IDC_HIGHLIGHT_MISMATCH_LABEL, IDC_HIGHLIGHT_MISMATCH_LIST, Feature::highlightColorantMismatch);
}

ColorOverlay::ColorOverlay(UIContext& context) : Overlay(context) { setFrameId(IDC_COLOR_FRAME); }

DestinationOverlay::DestinationOverlay(UIContext& context) : Overlay(context) { setFrameId(IDC_DESTINATION_FRAME); }

AboutOverlay::AboutOverlay(UIContext& context) : Overlay(context) {
    setFrameId(IDC_ABOUT_FRAME);
    addNew<AboutUIFeature>(context);
}
