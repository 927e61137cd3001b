// The resource module: every string, dialog template, icon and capability file.
//
// An object is a ticket for the stack of whoever needs a resource: while there is one, the module is loaded, and
// reading through it needs no lock. Tickets are cheap while another one lives.
#pragma once

#include "platform/types.h"

#include <cstdint>
#include <string>

class ResourceData;

class ResourceLibrary {
public:
    // Loads the module with the first ticket. Raises ResourceLibraryConstructionException; each new ticket tries again.
    ResourceLibrary();
    // Another ticket.
    ResourceLibrary(const ResourceLibrary&) : ResourceLibrary() {}
    ResourceLibrary& operator=(const ResourceLibrary&) noexcept { return *this; }
    // Frees the module with the last ticket.
    ~ResourceLibrary();

    HMODULE getModuleHandle() const noexcept;

    // The string, at most 1023 characters of it. Raises ResourceAcquisitionException when it is missing or empty.
    std::u16string getString(std::uint16_t id) const;
    // The same into a buffer of `maximum` characters, with a terminator; returns the length without it.
    int getString(std::uint16_t id, char16_t* buffer, int maximum) const;

    // The icon belongs to the module. Raises ResourceAcquisitionException.
    HICON getIconHandle(std::uint16_t id) const;

    // Loads the resource's id, of the given type, into the resource. Each raises ResourceAcquisitionException.
    void loadResData(ResourceData& resource, std::int32_t type) const;
    // RT_RCDATA.
    void loadRawData(ResourceData& resource) const;
    // RT_DIALOG.
    void loadDialogData(ResourceData& resource) const;
};
