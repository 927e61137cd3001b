#include "tests/reference/Recorder.h"

#include <utility>

namespace reference {

std::vector<Recording> recordings() {
    std::vector<Recording> all;
    for (const auto& scenes : {fieldScenes(), listScenes(), rangeScenes()})
        for (const Scene& scene : scenes)
            all.push_back({scene.title, [scene](UINT settleTime) { return record(scene, settleTime); }});
    for (Recording& sheet : sheetRecordings())
        all.push_back(std::move(sheet));
    return all;
}

} // namespace reference
