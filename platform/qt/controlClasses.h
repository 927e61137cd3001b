// The classes of controls. Each factory makes one control on a parent's widget; its place is set afterwards.
#pragma once

#include "platform/qt/Window.h"

#include <memory>

std::unique_ptr<Window> makeButton(const WindowTraits& traits, QWidget* parent);
std::unique_ptr<Window> makeStatic(const WindowTraits& traits, QWidget* parent);
std::unique_ptr<Window> makeEdit(const WindowTraits& traits, QWidget* parent);
std::unique_ptr<Window> makeComboBox(const WindowTraits& traits, QWidget* parent);
std::unique_ptr<Window> makeListBox(const WindowTraits& traits, QWidget* parent);
std::unique_ptr<Window> makeListView(const WindowTraits& traits, QWidget* parent);
std::unique_ptr<Window> makeTrackbar(const WindowTraits& traits, QWidget* parent);
std::unique_ptr<Window> makeUpDown(const WindowTraits& traits, QWidget* parent);
std::unique_ptr<Window> makeToolTip(const WindowTraits& traits, QWidget* parent);

// By name, without case, or by the ordinal of a template; null, with ERROR_CANNOT_FIND_WND_CLASS, for no known class.
using ControlFactory = std::unique_ptr<Window> (*)(const WindowTraits& traits, QWidget* parent);
struct ControlClass {
    LPCWSTR name;
    WORD ordinal;
    ControlFactory make;
};
const ControlClass* controlClass(const std::u16string& name) noexcept;
const ControlClass* controlClass(WORD ordinal) noexcept;
