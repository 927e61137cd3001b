#include "bench/ratios.h"

#include <algorithm>
#include <cstdio>
#include <utility>

namespace {

std::vector<Ratio>& ratios() {
    static std::vector<Ratio> rows;
    return rows;
}

} // namespace

int reportRatio(Ratio ratio) {
    ratios().push_back(std::move(ratio));
    return 0;
}

void RatioReporter::ReportRuns(const std::vector<Run>& runs) {
    ConsoleReporter::ReportRuns(runs);
    for (const Run& run : runs) {
        bool isMedian = run.run_type == Run::RT_Aggregate && run.aggregate_name == "median";
        if (!isMedian) continue;
        // A benchmark of other processes is measured by the clock, all others by the time of this one.
        double time = !run.run_name.time_type.empty() ? run.GetAdjustedRealTime() : run.GetAdjustedCPUTime();
        medians_.push_back({run.run_name.function_name, time / benchmark::GetTimeUnitMultiplier(run.time_unit) * 1e9});
    }
}

bool RatioReporter::printRatios() const {
    auto timeOf = [this](const std::string& name) {
        auto found = std::find_if(medians_.begin(), medians_.end(), [&](const Median& m) { return m.name == name; });
        return found == medians_.end() ? 0.0 : found->nanoseconds;
    };
    bool allKept = true;
    std::printf("\n%-62s %12s %12s %8s %8s\n", "ratio of medians", "ours, us", "peer, us", "ratio", "at most");
    for (const Ratio& row : ratios()) {
        double ours = timeOf(row.ours);
        double peer = timeOf(row.peer) * row.scale;
        if (ours == 0 || peer == 0) continue; // filtered out of this run
        double ratio = ours / peer;
        bool kept = row.most == 0 || ratio <= row.most;
        allKept = allKept && kept;
        char bound[16] = "";
        if (row.most != 0) std::snprintf(bound, sizeof bound, "%.2f", row.most);
        std::printf("%-62s %12.4f %12.4f %8.3f %8s%s\n", row.what.c_str(), ours / 1000, peer / 1000, ratio, bound,
                    kept ? "" : "  NOT KEPT");
    }
    return allKept;
}
