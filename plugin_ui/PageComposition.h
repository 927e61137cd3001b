// What the page is put together from: one frame, and what is left of each overlay when the printer has been asked.
#pragma once

#include "jtcore/Services/DialogResource.h"

#include <memory>

class NavigationBar;
struct UIContext;

class PageComposition {
public:
    // Raises what the resource module and the templates raise.
    explicit PageComposition(UIContext& context);
    ~PageComposition();
    PageComposition(const PageComposition&) = delete;
    PageComposition& operator=(const PageComposition&) = delete;

    // The frame with the controls of all overlays, hidden. Good as long as the composition.
    const DialogResource& getDialog() const noexcept { return dialog_; }
    // The bar with its overlays; empty when it was taken before.
    std::unique_ptr<NavigationBar> takeNavigationBar() noexcept;

private:
    DialogResource dialog_;
    std::unique_ptr<NavigationBar> navigationBar_;
};
