// What was read of a store, kept for as long as the store's file is as it was then. Opening a store costs a hundred
// times what it costs to see that it has not been touched.
//
// Whoever asks gets what the store says at that moment, whichever process wrote it.
#pragma once

#include "platform/posix/Database.h"
#include "platform/posix/FileStamp.h"

#include <map>
#include <mutex>
#include <utility>

// Answer: a value, with `bool isSmall() const`; what is not small is read anew each time.
template <typename Answer>
class KeptAnswers {
public:
    // What `read(const Database&)` answers, or nothing where nothing was ever written. A question stands for one
    // reading. Raises what opening the store and reading raise; a failure is not kept.
    template <typename Read>
    std::optional<Answer> ask(const std::string& folder, const Database::Layout& layout, const std::string& question,
                              const Read& read) {
        const std::string path = folder + "/" + layout.fileName;
        const std::optional<FileStamp> stamp = FileStamp::of(path);
        if (!stamp) return std::nullopt;
        if (auto known = find(path, *stamp, question)) return known;
        const bool isReliable = stamp->isReliable(path);
        const auto store = Database::openForReading(folder, layout);
        if (!store) return std::nullopt;
        Answer answer = read(*store);
        if (isReliable && answer.isSmall() && store->changesItsFile() && FileStamp::of(path) == stamp)
            keep(path, *stamp, question, answer);
        return answer;
    }

private:
    static constexpr std::size_t maximumCount = 64;

    std::optional<Answer> find(const std::string& path, const FileStamp& stamp, const std::string& question) const {
        const std::lock_guard lock(mutex_);
        if (path_ != path || stamp_ != stamp) return std::nullopt;
        const auto at = answers_.find(question);
        return at == answers_.end() ? std::nullopt : std::optional(at->second);
    }

    void keep(const std::string& path, const FileStamp& stamp, const std::string& question, const Answer& answer) {
        const std::lock_guard lock(mutex_);
        if (path_ != path || stamp_ != stamp || answers_.size() >= maximumCount) answers_.clear();
        stamp_.reset(); // in case of a raise
        path_ = path;
        answers_.insert_or_assign(question, answer);
        stamp_ = stamp;
    }

    mutable std::mutex mutex_;
    std::string path_;
    std::optional<FileStamp> stamp_;
    std::map<std::string, Answer> answers_; // all of the file at the path, as it was at the stamp
};
