// The overlays of the page; what tells them apart stands in Overlay.def.
#pragma once

#include "plugin_ui/Overlay.h"
#include "resources/ids.h"

#include <memory>
#include <vector>

#define OVERLAY(Class, icon, help, label, dialogTemplate, frame)                                                       \
    class Class final : public Overlay {                                                                               \
    public:                                                                                                            \
        explicit Class(UIContext& context);                                                                            \
        std::uint16_t getIconId() const override { return icon; }                                                      \
        std::uint16_t getHelpContextId() const override { return help; }                                               \
        std::uint16_t getLabelId() const override { return label; }                                                    \
        std::uint16_t getDialogId() const override { return dialogTemplate; }                                          \
    };
#include "plugin_ui/Overlay.def"
#undef OVERLAY

// Every overlay with every feature, in the order of the navigation list; the printer has not been asked yet.
std::vector<std::unique_ptr<Overlay>> makeOverlays(UIContext& context);
