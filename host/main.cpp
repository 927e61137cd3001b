#include "host/CommandLine.h"
#include "host/commandFailure.h"

int main(int argc, char** argv) {
    return runReporting([&] { return CommandLine().run(argc, argv); });
}
