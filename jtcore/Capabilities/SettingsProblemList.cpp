#include "jtcore/Capabilities/SettingsProblemList.h"

#include "jtcore/Services/KolmaException.h"

#include <utility>

SettingsProblemList::SettingsProblemList(const SettingsProblemList& other) : root_(other.root_) {
    problems_.reserve(other.problems_.size());
    for (const auto& problem : other.problems_)
        problems_.push_back(problem->clone());
}

SettingsProblemList& SettingsProblemList::operator=(const SettingsProblemList& other) {
    if (this != &other) *this = SettingsProblemList(other);
    return *this;
}

const SettingsProblem& SettingsProblemList::getNextSettingsProblem(std::size_t& position) const {
    if (!hasMoreSettingsProblems(position))
        raise<NodeAccessOutOfBoundsException>(
            u"SettingsProblemList::getNextSettingsProblem(): No more SettingsProblems to get. Caller failed to test "
            u"with hasMoreSettingsProblems() first!\r\n");
    return *problems_[position++];
}

SettingsProblem& SettingsProblemList::getNextSettingsProblem(std::size_t& position) {
    return const_cast<SettingsProblem&>(std::as_const(*this).getNextSettingsProblem(position));
}
