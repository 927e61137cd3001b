// A program run to its end: its exit code and what it wrote.
#pragma once

#include "tests/TemporaryFolder.h"

#include <fcntl.h>
#include <spawn.h>
#include <sys/wait.h>

#include <stdexcept>
#include <string>
#include <vector>

extern char** environ;

struct ProcessResult {
    int exitCode = -1; // -1 when a signal ended it
    std::string out;
    std::string error;
};

inline ProcessResult runProcess(std::vector<std::string> command) {
    const TemporaryFolder folder;
    const std::string out = (folder.path() / "out").string();
    const std::string error = (folder.path() / "error").string();
    std::vector<char*> arguments;
    for (std::string& argument : command)
        arguments.push_back(argument.data());
    arguments.push_back(nullptr);
    posix_spawn_file_actions_t actions;
    posix_spawn_file_actions_init(&actions);
    posix_spawn_file_actions_addopen(&actions, 1, out.c_str(), O_WRONLY | O_CREAT, 0600);
    posix_spawn_file_actions_addopen(&actions, 2, error.c_str(), O_WRONLY | O_CREAT, 0600);
    pid_t child = 0;
    const int failure = posix_spawn(&child, arguments[0], &actions, nullptr, arguments.data(), environ);
    posix_spawn_file_actions_destroy(&actions);
    if (failure != 0) throw std::runtime_error("cannot run " + command[0]);
    int status = 0;
    waitpid(child, &status, 0);
    return {WIFEXITED(status) ? WEXITSTATUS(status) : -1, folder.content("out"), folder.content("error")};
}
