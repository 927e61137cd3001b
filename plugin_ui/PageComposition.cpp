#include "plugin_ui/PageComposition.h"

#include "jtcore/Services/ResourceLibrary.h"
#include "plugin_ui/NavigationBar.h"
#include "plugin_ui/overlays.h"
#include "resources/ids.h"

#include <utility>

PageComposition::PageComposition(UIContext& context)
    : dialog_(IDD_PAGE_FRAME, true), navigationBar_(std::make_unique<NavigationBar>(context)) {
    for (auto& overlay : makeOverlays(context))
        if (overlay->removeUnsupportedFeatures()) navigationBar_->addChild(std::move(overlay));
    const ResourceLibrary library;
    library.loadDialogData(dialog_);
    for (const Overlay* overlay : navigationBar_->getOverlays()) {
        DialogResource part(overlay->getDialogId(), true);
        library.loadDialogData(part);
        dialog_ + part;
    }
}

PageComposition::~PageComposition() = default;

std::unique_ptr<NavigationBar> PageComposition::takeNavigationBar() noexcept { return std::move(navigationBar_); }
