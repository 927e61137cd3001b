// Writes the record of every scene into a file; where the platform's own windows are, that is what others are compared
// with.
#include "tests/reference/Recorder.h"

#include "platform/controls.h"

#include <cstdlib>
#include <fstream>

int main(int count, char** arguments) {
    if (count != 2) return 2;
    INITCOMMONCONTROLSEX classes{};
    classes.dwSize = sizeof classes;
    classes.dwICC = 0xFFFF;
    InitCommonControlsEx(&classes);
    std::ofstream file(arguments[1], std::ios::binary);
    for (const reference::Recording& recording : reference::recordings())
        file << recording.record(60) << std::flush;
    return file ? EXIT_SUCCESS : EXIT_FAILURE;
}
