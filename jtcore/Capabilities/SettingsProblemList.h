// The problems of one list of settings, in the order in which they were found.
#pragma once

#include "jtcore/Capabilities/SettingsProblem.h"

#include <algorithm>
#include <cstddef>
#include <memory>
#include <vector>

class SettingsProblemList {
public:
    SettingsProblemList() = default;
    // Clones every problem.
    SettingsProblemList(const SettingsProblemList& other);
    SettingsProblemList& operator=(const SettingsProblemList& other);
    SettingsProblemList(SettingsProblemList&&) noexcept = default;
    SettingsProblemList& operator=(SettingsProblemList&&) noexcept = default;
    ~SettingsProblemList() = default;

    // The list that the problems refer to; it is not owned.
    void setRoot(AttrNodeList* root) noexcept { root_ = root; }
    AttrNodeList* getRoot() const noexcept { return root_; }

    // Appends a clone, or the problem itself.
    void add(const SettingsProblem& problem) { add(problem.clone()); }
    void add(std::unique_ptr<SettingsProblem> problem) { problems_.push_back(std::move(problem)); }
    std::size_t getSize() const noexcept { return problems_.size(); }
    bool isEmpty() const noexcept { return problems_.empty(); }
    void clear() noexcept { problems_.clear(); }

    // `isBefore` compares two problems. Problems of which neither is before the other keep their order.
    template <typename Compare>
    void sort(const Compare& isBefore) {
        std::stable_sort(problems_.begin(), problems_.end(),
                         [&](const auto& one, const auto& other) { return isBefore(*one, *other); });
    }

    // Walks with a position of the caller's. getNextSettingsProblem() raises NodeAccessOutOfBoundsException at the end.
    void resetIterator(std::size_t& position) const noexcept { position = 0; }
    bool hasMoreSettingsProblems(std::size_t position) const noexcept { return position < problems_.size(); }
    SettingsProblem& getNextSettingsProblem(std::size_t& position);
    const SettingsProblem& getNextSettingsProblem(std::size_t& position) const;

private:
    AttrNodeList* root_ = nullptr;
    std::vector<std::unique_ptr<SettingsProblem>> problems_;
};
