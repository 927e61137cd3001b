// While one lives, the leak checker of the sanitizers overlooks what is allocated.
#pragma once

#ifdef __SANITIZE_ADDRESS__

#include <sanitizer/lsan_interface.h>

using LeaksUnseen = __lsan::ScopedDisabler;

#else

struct LeaksUnseen {
    LeaksUnseen() {}
};

#endif
