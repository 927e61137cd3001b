// The exit codes of kolma.
#pragma once

enum ExitCode : int {
    exitDone = 0,
    exitNotValid = 1, // the thing asked about is not valid
    exitUsage = 2,
    exitFailure = 3,
};
