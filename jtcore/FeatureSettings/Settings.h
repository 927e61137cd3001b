// The typed door to an attribute list: one attribute is addressed by its identifier instead of by path and name.
//
// An object either owns its list or is a view of somebody else's, which must outlive it; writes through a view go into
// the viewed list. Reading never creates anything. Writing creates the collections on the way to the attribute.
//
// Every operation with an identifier raises UnknownFeatureRequestException when the tables have no row for it, and
// AttributeTypeMismatchException when a list on the way, or the value, is of another class than asked for. The
// occurrence selects among the attributes of one id in the list that holds them.
#pragma once

#include "jtcore/Attributes/AttrNodeList.h"
#include "jtcore/FeatureSettings/FeatureValue.h"
#include "jtcore/FeatureSettings/Resolution.h"
#include "jtcore/FeatureSettings/SettingId.h"

#include <cstddef>
#include <cstdint>
#include <memory>
#include <string>
#include <string_view>

class Settings {
public:
    // Owns a new, empty list.
    Settings();
    // Owns a copy of the list.
    explicit Settings(const AttrNodeList& list);
    // Views the list. REQUIRES: list is not null.
    explicit Settings(AttrNodeList* list) noexcept;
    // The copy of an owner owns a copy; the copy of a view is a view of the same list.
    Settings(const Settings& other);
    Settings& operator=(const Settings& other);
    virtual ~Settings() = default;
    virtual std::unique_ptr<Settings> clone() const { return std::make_unique<Settings>(*this); }

    bool isEmpty() const noexcept { return list_->isEmpty(); }
    bool isView() const noexcept { return !owned_; }
    // The list in use, not a copy.
    AttrNodeList& getAttrNodeList() noexcept { return *list_; }
    const AttrNodeList& getAttrNodeList() const noexcept { return *list_; }
    // Owns a copy of the list from now on; nothing happens when it is the list in use already.
    void assignList(const AttrNodeList& list);

    bool hasFeature(const SettingId& id) const;
    // The nodes of the list that holds the attribute, 0 when there is no such list: for a member of a set the number of
    // its values.
    std::size_t getValueCount(const SettingId& id) const;

    // Not set when there is no such attribute. A text that a user may define becomes a value of its own; raises
    // UnknownFeatureRequestException for any other text that the table does not know.
    FeatureValue getFeatureValue(const SettingId& id, std::size_t occurrence = 0) const;
    // False, and the output untouched, when there is no such attribute.
    bool getString(const SettingId& id, std::u16string& value, std::size_t occurrence = 0) const;
    bool getLong(const SettingId& id, std::int32_t& value, std::size_t occurrence = 0) const;
    bool getBool(const SettingId& id, bool& value, std::size_t occurrence = 0) const;
    bool getRange(const SettingId& id, std::int32_t& lower, std::int32_t& upper, std::size_t occurrence = 0) const;
    // False, and the output cleared, when there is no such attribute or it is no complete resolution.
    bool getResolution(const SettingId& id, Resolution& value, std::size_t occurrence = 0) const;

    // A value that is not set erases the attribute, and with it the collections on its path that this empties.
    void setFeatureValue(const SettingId& id, FeatureValue value, std::size_t occurrence = 0);
    // Stores a value of the identifier's first syntax. Raises UnknownCaseException when that is a list.
    void setString(const SettingId& id, std::u16string_view value, std::size_t occurrence = 0);
    void setLong(const SettingId& id, std::int32_t value, std::size_t occurrence = 0);
    void setBool(const SettingId& id, bool value, std::size_t occurrence = 0);
    void setRange(const SettingId& id, std::int32_t lower, std::int32_t upper, std::size_t occurrence = 0);
    void setResolution(const SettingId& id, const Resolution& value, std::size_t occurrence = 0);

    // A copy of the attribute's node, or null.
    std::unique_ptr<AttrNode> getNodeCopy(const SettingId& id) const;
    // Stores a copy of the node's value under the identifier's own id.
    void setNodeValue(const SettingId& id, const AttrNode& node, std::size_t occurrence = 0);
    // Takes the attribute over from the source. One that the source lacks is deleted here, with prune also the
    // collections on its path that this empties.
    void copyFeature(const SettingId& id, const Settings& source, bool prune);
    // True when both lack the attribute, or both have equal nodes, their privacy included.
    bool equalFeature(const SettingId& id, const Settings& other, std::size_t occurrence = 0) const;

protected:
    // The list that holds the attribute: null when it is missing, or made.
    AttrNodeList* findHolder(const SettingId& id) const;
    AttrNodeList& makeHolder(const SettingId& id);
    const AttrNode* findNode(const SettingId& id, std::size_t occurrence) const;
    // The list inside the attribute, made with this syntax where there is none.
    AttrNodeList& makeInnerList(const SettingId& id, std::u16string_view syntaxName, std::size_t occurrence);

private:
    std::unique_ptr<AttrNodeList> owned_;
    AttrNodeList* list_;
};
