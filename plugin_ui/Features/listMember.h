// One value among the members of a list-valued attribute.
#pragma once

#include "jtcore/FeatureSettings/FeatureSettings.h"

class Capabilities;

bool hasMember(const FeatureSettings& settings, const FeatureId& feature, FeatureValue value);
// Every occurrence of it; the other members stay as they are.
void eraseMember(FeatureSettings& settings, const FeatureId& feature, FeatureValue value);
void eraseAllMembers(FeatureSettings& settings, const FeatureId& feature);
void appendMember(FeatureSettings& settings, const FeatureId& feature, FeatureValue value);
// Whether the printer's list for the feature has the value.
bool isValueSupported(const Capabilities& capabilities, const FeatureId& feature, Feature parent, FeatureValue value);
