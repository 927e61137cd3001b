// A group of controls that lies on the page with the others, one group shown at a time: an entry of the navigation bar,
// and the features behind it.
#pragma once

#include "plugin_ui/ConfigurableUIComponent.h"

class Overlay : public ConfigurableUIComponent {
public:
    virtual std::uint16_t getIconId() const = 0;
    // The topic in the help file.
    virtual std::uint16_t getHelpContextId() const;
    virtual std::uint16_t getLabelId() const = 0;
    // The template whose controls are joined to the page's.
    virtual std::uint16_t getDialogId() const = 0;

    // The frame first, then the features.
    bool onShow(const UIMessage& message, LRESULT& result) override;
    bool onHide(const UIMessage& message, LRESULT& result) override;

protected:
    explicit Overlay(UIContext& context) : ConfigurableUIComponent(context, noParentFeature) {}

    // The control round the group, or its title.
    void setFrameId(std::uint16_t id) noexcept { frameId_ = id; }

private:
    void showFrame(HWND window, int how) const;

    std::uint16_t frameId_ = 0;
};
