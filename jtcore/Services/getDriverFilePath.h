// Where the files lie that belong to the driver.
#pragma once

#include "platform/types.h"

#include <string>
#include <string_view>

// The full path of a file beside the driver's own files. The printer says which driver; without one (null), or when
// it has no answer, it is the driver directory of the system. Raises nothing of its own: when no directory can be had,
// the result is a backslash and the file name, and it is the opening of the file that fails.
std::u16string getDriverFilePath(HANDLE printer, std::u16string_view fileName);
