// Private areas in files: the bare 4016 bytes.
#pragma once

#include "jtcore/AnlXlate/PersistentLayout.h"

#include <string>

// An area of zeros: it has no header and counts as absent.
KolmaDmType absentArea() noexcept;

// The area in that file. Raises what File raises, and a failure with words for a file of another size.
KolmaDmType readAreaFile(const std::u16string& path);

// The same, or an absent area when there is no such file.
KolmaDmType readAreaFileIfThere(const std::u16string& path);

// Replaces the file in one step. Raises WriteFileException; the earlier file then stands as it was.
void writeAreaFile(const std::u16string& path, const KolmaDmType& area);

// Whether the header is that of an area of this driver.
bool hasOurHeader(const KolmaDmType& area) noexcept;
