// The attributes that describe a stock, for the code of this room.
#pragma once

#include "jtcore/FeatureSettings/FeatureId.h"
#include "jtcore/FeatureSettings/FeatureValue.h"

class AttrNode;
class AttrNodeList;

// The attribute's own id.
const std::u16string& idOf(Feature feature);

// The members of the level's media-col. Null when there is none, or it is no list.
const AttrNodeList* findMediaMembers(const AttrNodeList& level);
AttrNodeList* findMediaMembers(AttrNodeList& level);

// The name that the attribute of that feature holds; not set when there is none, or none that the table of values can
// take in. A keyword that the table does not know is taken for a name.
FeatureValue readStockName(const AttrNodeList& list, Feature feature);

// Whether the value is of a kind that the attribute may have: a number, a text, a list. True for an attribute that is
// no feature.
bool isReadable(const AttrNode& node);
// Takes out what is not readable, at any depth.
void dropUnreadable(AttrNodeList& list);
// Raises AttributeTypeMismatchException where there is something to drop, and UnknownFeatureRequestException where
// there is a name that is too long for the table of values.
void refuseUnreadable(const AttrNodeList& list);
