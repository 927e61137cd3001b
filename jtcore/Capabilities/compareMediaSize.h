// Whether a paper size is one that the printer takes, either way round.
#pragma once

#include "jtcore/Attributes/AttrValue.h"

class AttrNodeList;
class Capabilities;

// `tested` is a media-size, `supported` the sizes and ranges of sizes that the printer names; `userDefined` may be
// null. Where the user may define sizes of his own only the ranges limit them. What cannot be judged passes.
bool compareMediaSize(const Capabilities& capabilities, const AttrValue& tested, const AttrValue& supported,
                      const AttrNodeList* userDefined);
