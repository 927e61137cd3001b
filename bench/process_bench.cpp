// Whole processes, by the clock: kolma against a process of the same linkage that does nothing.
#include "bench/ratios.h"
#include "bench/tickets.h"
#include "jtcore/AnlXlate/KolmaDevMode.h"

#include <cstdio>
#include <fcntl.h>
#include <spawn.h>
#include <string>
#include <sys/resource.h>
#include <sys/wait.h>
#include <unistd.h>

extern char** environ;

namespace {

// Runs the program to its end. Returns the most memory that it held, in KiB.
long runProcess(const std::vector<std::string>& command) {
    std::vector<char*> arguments;
    for (const std::string& word : command)
        arguments.push_back(const_cast<char*>(word.c_str()));
    arguments.push_back(nullptr);
    posix_spawn_file_actions_t actions;
    posix_spawn_file_actions_init(&actions);
    posix_spawn_file_actions_addopen(&actions, STDOUT_FILENO, "/dev/null", O_WRONLY, 0);
    pid_t child = 0;
    posix_spawn(&child, arguments[0], &actions, nullptr, arguments.data(), environ);
    posix_spawn_file_actions_destroy(&actions);
    int status = 0;
    rusage usage{};
    wait4(child, &status, 0, &usage);
    return usage.ru_maxrss;
}

void startProcess(benchmark::State& state, const std::vector<std::string>& command) {
    long peak = 0;
    for (auto _ : state)
        peak = runProcess(command);
    state.counters["peak_MiB"] = static_cast<double>(peak) / 1024;
}

const std::string program = KOLMA_BUILD_DIR "/bin/kolma";

void bareProcess(benchmark::State& state) { startProcess(state, {KOLMA_BUILD_DIR "/bench/bare_process"}); }
void kolmaHelp(benchmark::State& state) { startProcess(state, {program, "--help"}); }
void kolmaDrivers(benchmark::State& state) { startProcess(state, {program, "drivers"}); }

void kolmaDevModeShow(benchmark::State& state) {
    KolmaDevMode settings;
    settings.setAttrNodeList(typicalTicket());
    KolmaDmType area{};
    settings.exportToDevMode(&area);
    std::string path = "/tmp/kolma_bench_area." + std::to_string(getpid());
    if (std::FILE* file = std::fopen(path.c_str(), "wb")) {
        std::fwrite(&area, sizeof area, 1, file);
        std::fclose(file);
    }
    startProcess(state, {program, "devmode", "show", path});
    unlink(path.c_str());
}

BENCHMARK(bareProcess)->UseRealTime();
BENCHMARK(kolmaHelp)->UseRealTime();
BENCHMARK(kolmaDrivers)->UseRealTime();
BENCHMARK(kolmaDevModeShow)->UseRealTime();

const int reported[] = {
    reportRatio({"kolma --help / bare process", "kolmaHelp", "bareProcess", 1.5}),
    reportRatio({"kolma drivers / bare process", "kolmaDrivers", "bareProcess", 1.5}),
    reportRatio({"kolma devmode show / bare process", "kolmaDevModeShow", "bareProcess"}),
};

} // namespace
