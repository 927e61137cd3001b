// What is reported: one measurement held against another of the same run.
#pragma once

#include <benchmark/benchmark.h>

#include <string>
#include <vector>

struct Ratio {
    std::string what;
    std::string ours; // names of benchmarks
    std::string peer;
    double most = 0;  // the most that it may be; 0 where it is only reported
    double scale = 1; // what one iteration of the peer counts for
};

// Adds a row to the report. Called while the program starts.
int reportRatio(Ratio ratio);

// Collects the medians of the run and prints the report behind the library's own.
class RatioReporter : public benchmark::ConsoleReporter {
public:
    void ReportRuns(const std::vector<Run>& runs) override;
    // True when every ratio that has a bound keeps it.
    bool printRatios() const;

private:
    struct Median {
        std::string name;
        double nanoseconds;
    };
    std::vector<Median> medians_;
};
