// One element of an attribute list: an id and the value that it owns.
#pragma once

#include "jtcore/Attributes/AttrID.h"
#include "jtcore/Attributes/AttrValue.h"

#include <memory>
#include <utility>

class AttrNode {
public:
    // Copies the value. Raises InvalidAttributeIdException on an empty id.
    AttrNode(std::u16string_view id, const AttrValue& value, bool isPrivate = false);
    // Takes the value over. REQUIRES: value is not null.
    AttrNode(AttrID&& id, std::unique_ptr<AttrValue> value, bool isPrivate = false) noexcept;

    // Deep copies.
    AttrNode(const AttrNode& other);
    AttrNode& operator=(const AttrNode& other);
    // The source may afterwards only be assigned or destroyed.
    AttrNode(AttrNode&&) noexcept = default;
    AttrNode& operator=(AttrNode&&) noexcept = default;
    ~AttrNode() = default;

    const AttrID& getAttrID() const noexcept { return id_; }
    void setAttrID(AttrID id) noexcept { id_ = std::move(id); }

    const AttrValue& getAttrValue() const noexcept { return *value_; }
    AttrValue& getAttrValue() noexcept { return *value_; }
    // REQUIRES: value is not null.
    void setAttrValue(std::unique_ptr<AttrValue> value) noexcept { value_ = std::move(value); }

    // A private node lives in memory like any other, but is never written out.
    bool isPrivate() const noexcept { return isPrivate_; }
    void setPrivate(bool isPrivate) noexcept { isPrivate_ = isPrivate; }

    // Same id, equal values, same privacy.
    bool equals(const AttrNode& other) const;

private:
    AttrID id_;
    std::unique_ptr<AttrValue> value_;
    bool isPrivate_;
};
