// The root of the identifiers by which the rest of the system names features and capabilities: a number, and everything
// else asked from the tables. Identifiers are small values.
#pragma once

#include "jtcore/FeatureSettings/Feature.h"
#include "jtcore/FeatureSettings/Syntax.h"

#include <cstddef>
#include <cstdint>
#include <memory>
#include <string>
#include <string_view>

class AttrID;
class NestedAttrID;

enum class SettingKind : std::uint32_t {
    feature = 1,
    capability = 2,
};

// Every question to the tables raises UnknownFeatureRequestException when they have no row for the identifier.
class SettingId {
public:
    virtual ~SettingId() = default;
    // The attribute's own id, the last of its path.
    const AttrID& getAttrID() const;
    virtual const NestedAttrID& getNestedId() const = 0;
    // The name under which the feature or capability is known.
    virtual std::u16string_view getUniqueId() const = 0;
    virtual std::unique_ptr<SettingId> clone() const = 0;
    virtual bool equals(const SettingId& other) const noexcept = 0;
    virtual const SyntaxList& getSyntaxes() const = 0;

    Feature getNumber() const noexcept { return number_; }
    void setNumber(Feature number) noexcept { number_ = number; }
    SettingKind getKind() const noexcept { return kind_; }

    const std::u16string& getAttrName() const;
    // True when the attribute stands for one of several values: its innermost list is a 1setOf.
    bool is1setOfMember() const;
    // An index past the list raises IndexOutOfBoundsException.
    std::u16string_view getSyntaxName(std::size_t index) const;
    bool hasSyntax(AVTE type) const;
    bool hasSyntaxName(std::u16string_view name) const;

protected:
    SettingId(Feature number, SettingKind kind) noexcept : number_(number), kind_(kind) {}
    SettingId(const SettingId&) = default;
    SettingId& operator=(const SettingId&) = default;

private:
    Feature number_;
    SettingKind kind_;
};

inline bool operator==(const SettingId& one, const SettingId& other) noexcept { return one.equals(other); }
