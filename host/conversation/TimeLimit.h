// How long a conversation may take. What hangs without ever coming back to the script is ended with the process.
#pragma once

#include <chrono>
#include <condition_variable>
#include <mutex>
#include <string>
#include <thread>

class TimeLimit {
public:
    using Clock = std::chrono::steady_clock;
    static constexpr std::chrono::seconds usual{60};

    // The name is that of the script, for the message of a process that had to be ended.
    explicit TimeLimit(std::u16string name);
    ~TimeLimit();
    TimeLimit(const TimeLimit&) = delete;
    TimeLimit& operator=(const TimeLimit&) = delete;

    // From the object's begin.
    void set(std::chrono::seconds limit);
    bool isOver() const;

private:
    // What a command may take longer before it counts as one that never ends.
    static constexpr std::chrono::seconds grace{10};

    void watch();

    const std::u16string name_;
    const Clock::time_point begin_ = Clock::now();
    mutable std::mutex mutex_;
    std::condition_variable changed_;
    std::chrono::seconds limit_ = usual;
    bool isDone_ = false;
    std::thread watcher_;
};
