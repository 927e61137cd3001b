// The list of overlays on the page: it shows one overlay at a time and hides the others. All of them are alive and get
// every message but UIM_SHOW.
#pragma once

#include "plugin_ui/MessageProcessorWithChildren.h"

#include <cstddef>
#include <cstdint>
#include <vector>

class Overlay;
struct UIContext;

class NavigationBar : public MessageProcessorWithChildren {
public:
    // The context is borrowed for the object's life.
    explicit NavigationBar(UIContext& context) noexcept : context_(context) {}

    // REQUIRES: the child is an Overlay.
    void addChild(std::unique_ptr<MessageProcessor> child) override;
    const std::vector<Overlay*>& getOverlays() const noexcept { return overlays_; }
    // The one that is shown. REQUIRES: there are overlays.
    Overlay& getCurrent() const { return *overlays_.at(current_); }

    bool onInitDialog(const UIMessage& message, LRESULT& result) override;
    bool onCommand(const UIMessage& message, LRESULT& result) override;
    bool onNotify(const UIMessage& message, LRESULT& result) override;
    bool onShow(const UIMessage& message, LRESULT& result) override;
    bool onRefresh(const UIMessage& message, LRESULT& result) override;
    // F1 on a control of the page.
    bool onOtherMessage(const UIMessage& message, LRESULT& result) override;

private:
    void fillList(const UIMessage& message);
    void applyViewStyle();
    void switchTo(HWND window, std::size_t index);
    void showHelp(HWND window) const;

    UIContext& context_;
    std::vector<Overlay*> overlays_; // the children
    std::size_t current_ = 0;
    HWND listWindow_ = nullptr;
    HWND helpButton_ = nullptr;
};
