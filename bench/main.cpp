#include "bench/ratios.h"

#include <cstring>

// Builds a printer's capabilities for the first time in this process, and prints the seconds.
int measureFirstCapabilities();

int main(int count, char** arguments) {
    if (count == 2 && std::strcmp(arguments[1], "--first-capabilities") == 0) return measureFirstCapabilities();
    benchmark::Initialize(&count, arguments);
    if (benchmark::ReportUnrecognizedArguments(count, arguments)) return 2;
    RatioReporter reporter;
    benchmark::RunSpecifiedBenchmarks(&reporter);
    return reporter.printRatios() ? 0 : 1;
}
