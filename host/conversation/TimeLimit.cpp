#include "host/conversation/TimeLimit.h"

#include "host/ExitCode.h"
#include "host/output.h"
#include "jtcore/Services/formatMessage.h"

#include <cstdlib>
#include <utility>

TimeLimit::TimeLimit(std::u16string name) : name_(std::move(name)), watcher_([this] { watch(); }) {}

TimeLimit::~TimeLimit() {
    {
        std::lock_guard lock(mutex_);
        isDone_ = true;
    }
    changed_.notify_one();
    watcher_.join();
}

void TimeLimit::set(std::chrono::seconds limit) {
    std::lock_guard lock(mutex_);
    limit_ = limit;
}

bool TimeLimit::isOver() const {
    std::lock_guard lock(mutex_);
    return Clock::now() > begin_ + limit_;
}

void TimeLimit::watch() {
    std::unique_lock lock(mutex_);
    while (!isDone_) {
        if (Clock::now() > begin_ + limit_ + grace) {
            printError(formatMessage(u"%s: a command did not come back within the %u seconds that the script may take.",
                                     name_, limit_.count()));
            std::_Exit(exitNotValid);
        }
        changed_.wait_for(lock, std::chrono::seconds(1));
    }
}
