// The directory of a module's resource section: types, names, languages.
#pragma once

#include "platform/posix/ResourceModule.h"

// Every resource of the section, in the order (type, name, neutral language first, place in the directory). `address`
// is the section's own, from which the data are counted. Fails with ERROR_RESOURCE_DATA_NOT_FOUND when anything in it
// does not hold.
std::vector<Resource> readResourceDirectory(std::span<const BYTE> section, std::uint32_t directory,
                                            std::uint32_t address);

// Little-endian numbers. REQUIRES: the bytes are there.
WORD wordAt(std::span<const BYTE> bytes, std::size_t offset);
DWORD doubleWordAt(std::span<const BYTE> bytes, std::size_t offset);
