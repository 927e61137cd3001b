// Repairs settings. A fixer serves one set of settings; a failure may leave them half repaired, so callers work on a
// copy.
#pragma once

#include "jtcore/Attributes/AttrNodeList.h"

#include <functional>
#include <memory>
#include <unordered_set>

class PersistentSettings;
class SettingsProblem;
class SettingsProblemList;

class SettingsProblemFixer {
public:
    // Of the settings that repairs take values from. Raises what reading them raises.
    explicit SettingsProblemFixer(const PersistentSettings& defaults);
    explicit SettingsProblemFixer(AttrNodeList defaults)
        : defaults_(std::make_shared<const AttrNodeList>(std::move(defaults))) {}

    // Repairs each problem once, in the order that keeps later repairs meaningful: unsupported attributes, unsupported
    // values, failed capabilities, missing features. What stood on a node that an earlier repair took away is skipped.
    // Sorts the list; its problems are used up. Lists that have become empty go.
    void fixProblems(SettingsProblemList& problems);

    // Fills an emptied list with the problems of the same settings and returns true when there are none.
    using Validate = std::function<bool(SettingsProblemList&)>;
    // The same, and again as long as a repair leaves something to be repaired: a default may not suit the printer
    // either, a repaired value may be refused by another rule, and of several values only the first is held against a
    // limit. A default that has not helped is not used again. Ends after a few rounds. True when nothing is left;
    // otherwise `problems` holds what is.
    bool fixUntilValid(SettingsProblemList& problems, const Validate& validate);

private:
    void fix(SettingsProblem& problem);
    // Whether an earlier repair of this round took away what the problem stands on.
    bool isHandled(const SettingsProblem& problem) const;
    // Takes out of the defaults what stands in the settings, put there by a repair, and is a problem itself.
    void dropUselessDefaults(const SettingsProblemList& problems);

    std::shared_ptr<const AttrNodeList> defaults_;      // replaced by a copy where something goes
    std::unordered_set<const AttrNode*> handledNodes_;  // taken away
    std::unordered_set<const AttrNode*> replacedNodes_; // that got a default for an unsupported value
};
