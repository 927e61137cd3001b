#include "jtcore/Capabilities/SettingsProblemFixer.h"

#include "jtcore/AnlXlate/PersistentSettings.h"
#include "jtcore/Capabilities/SettingsProblemList.h"
#include "jtcore/Capabilities/problemRanks.h"
#include "jtcore/FeatureSettings/FeatureId.h"
#include "jtcore/FeatureSettings/NestedAttrID.h"

namespace {

// Enough for a value that needs one repair after the other; what is left then cannot be repaired.
constexpr int maximumRounds = 6;

} // namespace

SettingsProblemFixer::SettingsProblemFixer(const PersistentSettings& defaults) : defaults_(defaults.getSharedList()) {}

void SettingsProblemFixer::fixProblems(SettingsProblemList& problems) {
    problems.sort([](const SettingsProblem& one, const SettingsProblem& other) {
        return repairRankOf(one) < repairRankOf(other);
    });
    handledNodes_.clear();
    replacedNodes_.clear();
    std::size_t position = 0;
    for (problems.resetIterator(position); problems.hasMoreSettingsProblems(position);)
        fix(problems.getNextSettingsProblem(position));
    if (problems.getRoot()) problems.getRoot()->pruneEmptyLists();
}

// What stood in the value that a default has replaced is no longer there to be repaired.
bool SettingsProblemFixer::isHandled(const SettingsProblem& problem) const {
    if (handledNodes_.contains(problem.getNode())) return true;
    return repairRankOf(problem) == RepairRank::failedCapability && replacedNodes_.contains(problem.getNode());
}

void SettingsProblemFixer::fix(SettingsProblem& problem) {
    if (isHandled(problem)) return;
    const bool isReplaced =
        repairRankOf(problem) == RepairRank::unsupportedValue && problem.getFix(*defaults_).kind == FixKind::replace;
    problem.fix(*defaults_);
    if (isReplaced) replacedNodes_.insert(problem.getNode());
    handledNodes_.insert(problem.getRemovedNodes().begin(), problem.getRemovedNodes().end());
}

bool SettingsProblemFixer::fixUntilValid(SettingsProblemList& problems, const Validate& validate) {
    for (int round = 0; round < maximumRounds; ++round) {
        fixProblems(problems);
        problems.clear();
        if (validate(problems)) return true;
        dropUselessDefaults(problems);
    }
    return false;
}

void SettingsProblemFixer::dropUselessDefaults(const SettingsProblemList& problems) {
    auto kept = std::make_shared<AttrNodeList>(*defaults_);
    std::size_t position = 0;
    for (problems.resetIterator(position); problems.hasMoreSettingsProblems(position);) {
        const SettingsProblem& problem = problems.getNextSettingsProblem(position);
        const FeatureInfo* feature = FeatureDataBase::find(problem.getProblemAttrName());
        AttrNodeList* holder = feature && problem.getNode() ? feature->nestedId().findList(*kept) : nullptr;
        const AttrNode* used = holder ? holder->getNode(feature->path.leaf) : nullptr;
        if (used && used->getAttrValue().equals(problem.getNode()->getAttrValue())) holder->deleteNodeObject(used);
    }
    defaults_ = std::move(kept);
}
