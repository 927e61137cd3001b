// Dialog templates in the plain form, as they lie in a module or in memory.
#pragma once

#include "platform/windows.h"

#include <optional>
#include <span>
#include <string>
#include <vector>

struct TemplateItem {
    DWORD style = 0;
    DWORD extendedStyle = 0;
    // In dialog units, as all places of a template.
    SHORT x = 0;
    SHORT y = 0;
    SHORT width = 0;
    SHORT height = 0;
    WORD id = 0;
    // The class by ordinal, or 0 and by name.
    WORD classOrdinal = 0;
    std::u16string className;
    // The title, or the number of a picture.
    std::u16string text;
    WORD imageId = 0;
};

struct DialogTemplate {
    DWORD style = 0;
    DWORD extendedStyle = 0;
    SHORT x = 0;
    SHORT y = 0;
    SHORT width = 0;
    SHORT height = 0;
    std::u16string title;
    // 0 where the template names no font.
    WORD pointSize = 0;
    std::u16string faceName;
    std::vector<TemplateItem> items;
};

// Nothing for a template that is cut short, that lies about its items, or that has the extended form. Never reads past
// the bytes.
std::optional<DialogTemplate> parseDialogTemplate(std::span<const BYTE> bytes);
// Of a template in memory, whose size nobody tells: reads as far as the template itself says.
std::optional<DialogTemplate> parseDialogTemplate(LPCDLGTEMPLATEW dialogTemplate);
// Of a module's dialog; nothing, with the last error set, where there is none or it is damaged.
std::optional<DialogTemplate> loadDialogTemplate(HINSTANCE module, LPCWSTR name);
