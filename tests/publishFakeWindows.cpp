// Puts the fakes in front of the platform's calls, for code that is linked into the test program.
#include "tests/fakeWindowCalls.h"

#define FAKE_WINDOW_CALL(Result, Name, Parameters, Arguments)                                                          \
    Result WINAPI Name Parameters { return fakes::Name Arguments; }
FAKE_WINDOW_CALLS(FAKE_WINDOW_CALL)
#undef FAKE_WINDOW_CALL
