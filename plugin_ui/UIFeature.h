// One job option as the user sees it: it owns the controls that show the option, and translates between them and the
// attributes in the settings of its dialog.
//
// The life of a feature: built with its controls, whose observer it is; asked isFeatureSupported(); with each showing
// of its dialog given a window and settings and told initializeFeature(), then updateFeatureWithNewSettings() whenever
// the settings have changed from elsewhere; told by handleSubjectUpdate() what the user did, which it writes into the
// settings. It keeps no state of a window between two showings.
#pragma once

#include "jtcore/FeatureSettings/FeatureSettings.h"
#include "plugin_ui/ConfigurableUIComponent.h"
#include "plugin_ui/Observer.h"
#include "plugin_ui/ObserverSubject.h"

class UIFeature : public ConfigurableUIComponent, public Observer, public ObserverSubject {
public:
    // The working settings of the dialog, unless others were set. Raises UnknownCaseException before there are any.
    virtual FeatureSettings& getDialogSettings();
    // Whether the printer can do this; asked once, before there is a window. Takes out of itself what cannot be done.
    virtual bool isFeatureSupported() = 0;
    // Shows what the settings hold. Never writes them, but for a value that depends on another one.
    virtual void updateFeatureWithNewSettings() = 0;
    // Fills the controls with what does not depend on the settings: lists of values, ranges, limits.
    virtual void initializeFeature();

    // The children first, then initializeFeature().
    bool onInitDialog(const UIMessage& message, LRESULT& result) override;
    // updateFeatureWithNewSettings() first, then the children.
    bool onRefresh(const UIMessage& message, LRESULT& result) override;

    // The dialog of the current showing, null before the first.
    HWND getWindow() const noexcept { return window_; }
    // A label that is shown and hidden with the feature.
    void addStaticLabel(std::uint16_t controlId);
    // Makes a child that is a subject and watches it.
    template <typename Child, typename... Arguments>
    Child& addObserved(Arguments&&... arguments) {
        Child& child = addNew<Child>(std::forward<Arguments>(arguments)...);
        child.addObserver(*this);
        return child;
    }

    // All features of the dialog, from its root.
    void refreshDialog();
    // This feature and what is below it.
    void refreshFeature();
    void enableFeature();
    void disableFeature();
    // What this feature and all below it edit, until the next showing of the dialog. Borrowed; null for nothing.
    void setDialogSettings(FeatureSettings* settings);
    // Tells the property sheet that there is something to apply.
    void markPageChanged();

protected:
    UIFeature(UIContext& context, Feature parentFeature);

private:
    bool tellItself(UINT message);

    HWND window_ = nullptr;
    FeatureSettings* dialogSettings_ = nullptr;
};
