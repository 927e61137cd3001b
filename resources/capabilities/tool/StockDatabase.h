// The stocks that a printer lists, with the members that it can be told.
#pragma once

#include "resources/capabilities/tool/FamilyFile.h"
#include "resources/capabilities/tool/SharedData.h"
#include "resources/capabilities/tool/SupportedFeatures.h"

#include "jtcore/Attributes/AttrNodeList.h"

#include <string>
#include <vector>

struct ListedStock {
    std::string name; // by which the files know it
    AttrNodeList members;
    bool isShortened = false; // the printer cannot be told all of it
};

// Makes the stocks that the family names, in its order. Of stocks that are alike because the printer cannot be told
// what makes them differ, only the first is listed.
std::vector<ListedStock> listStocks(const FamilyFile& family, const SharedData& shared,
                                    const SupportedFeatures& supported, FaultList& faults);
