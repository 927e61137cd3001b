#include "resources/capabilities/tool/FaultList.h"

#include <algorithm>

// What several families or forms share would be told again for each.
void FaultList::add(const Place& place, const std::string& text) {
    std::string line = place.file + ": " + (place.key.empty() ? "" : place.key + ": ") + text;
    if (std::find(lines_.begin(), lines_.end(), line) == lines_.end()) lines_.push_back(std::move(line));
}
