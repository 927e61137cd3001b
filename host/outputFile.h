// The files that commands write.
#pragma once

#include "jtcore/Services/ByteBuffer.h"

#include <string>

// Replaces the file in one step. Raises WriteFileException; the earlier file then stands as it was.
void writeOutputFile(const std::u16string& path, const ByteBuffer& bytes);
