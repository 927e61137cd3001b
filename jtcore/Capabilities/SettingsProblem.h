// One disagreement between settings and what the printer can do: where it stands, how it is told to a user, and what
// its repair would be.
//
// A problem refers to nodes of the settings. It is thrown away when the settings change in any other way than by
// fix() of the problems of one list; after a repair, nodes that went are only compared.
#pragma once

#include "jtcore/Capabilities/AttrLocation.h"

#include <cstdint>
#include <memory>
#include <string>
#include <vector>

enum class FixKind : std::int32_t {
    remove = 1,          // the attribute goes
    removeEnclosing = 2, // the attribute goes, and the optional element that cannot be without it
    replace = 3,         // the attribute gets another value
    add = 4,             // the attribute is added
};

// What a repair would do.
struct Fix {
    FixKind kind = FixKind::remove;
    // A node with the value that replaces the present one, or is added; null where the attribute goes.
    std::unique_ptr<AttrNode> replacement;
    // The node with the present value; null for a missing feature. It belongs to the settings.
    AttrNode* node = nullptr;
};

// The part of a job that a problem belongs to. Reports are sorted by these numbers.
enum class ProblemContext : std::int32_t {
    job = 0,
    exception = 1,
    chapterStart = 2,
    insert = 3,
    frontCover = 4,
    backCover = 5,
};

class SettingsProblem {
public:
    virtual ~SettingsProblem() = default;

    // Repairs the settings. `defaults` are the settings that a job for the printer starts with. REQUIRES: no earlier
    // repair took away the node of the problem.
    virtual void fix(const AttrNodeList& defaults);
    // What fix() would do. Changes nothing.
    virtual Fix getFix(const AttrNodeList& defaults) const = 0;
    virtual std::unique_ptr<SettingsProblem> clone() const = 0;
    // True for a problem of the same class with equal fields.
    virtual bool equals(const SettingsProblem& other) const = 0;
    // The feature's name as the user reads it; the attribute's id in single quotes where it has none.
    std::u16string getProblemFeatureName() const;
    // The id of the attribute that the problem is about.
    virtual std::u16string getProblemAttrName() const { return location_.getAttrName(); }

    // Null at the root.
    const AttrNode* getNode() const noexcept { return location_.getNode(); }
    const AttrLocation& getLocation() const noexcept { return location_; }
    // The nodes that fix() took out of the settings. They may be gone: for comparing only.
    const std::vector<const AttrNode*>& getRemovedNodes() const noexcept { return removedNodes_; }

    // A value of the problem's attribute as the user reads it; empty for a list that has no short form. Raises what the
    // resource module raises.
    std::u16string getValueDisplay(const AttrValue& value) const;
    // "Exception pages (3 - 5):". Raises what the resource module raises.
    std::u16string getContextHeading() const;
    // The outputs are the pages of the context, 0 where it has none.
    ProblemContext getContext(std::int32_t& first, std::int32_t& last) const;

protected:
    explicit SettingsProblem(AttrLocation location) : location_(std::move(location)) {}
    SettingsProblem(const SettingsProblem&) = default;
    SettingsProblem& operator=(const SettingsProblem&) = delete;

    bool hasEqualPlace(const SettingsProblem& other) const;
    // Where the trace hook is told of a name that cannot be had.
    virtual std::u16string_view getNameOperation() const { return u"SettingsProblem::getProblemFeatureName()"; }

    Fix makeRemoval() const;
    Fix makeReplacement(std::unique_ptr<AttrNode> replacement) const;
    // Takes the node away, and where it was required the enclosing element too.
    void remove();
    // Takes away the nearest enclosing attribute that is optional; nothing where there is none.
    void removeEnclosing();

private:
    void replaceValue(const AttrNode& replacement);

    AttrLocation location_;
    std::vector<const AttrNode*> removedNodes_;
};

// What every class of problems has in common besides its repair.
template <typename Derived, typename Base>
class ClonedProblem : public Base {
public:
    std::unique_ptr<SettingsProblem> clone() const override {
        return std::make_unique<Derived>(static_cast<const Derived&>(*this));
    }
    bool equals(const SettingsProblem& other) const override {
        const auto* same = dynamic_cast<const Derived*>(&other);
        return same && this->hasEqualPlace(other) && static_cast<const Derived&>(*this).hasEqualFields(*same);
    }

protected:
    using Base::Base;
};
