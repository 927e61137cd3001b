// The help as it lies beside the modules: a page for every group of options that can be shown, in both languages.
#include "resources/ids.h"
#include "tests/ResourceFile.h"

#include <filesystem>
#include <gtest/gtest.h>
#include <set>
#include <string>

namespace {

namespace fs = std::filesystem;

struct OverlayRow {
    const char* name;
    int topic;
    int dialogTemplate;
};
const OverlayRow overlays[] = {
#define OVERLAY(Class, icon, help, label, dialogTemplate, frame) {#Class, help, dialogTemplate},
#include "plugin_ui/Overlay.def"
#undef OVERLAY
};

std::set<std::string> linksIn(const std::string& text) {
    const std::string opening = "href=\"";
    std::set<std::string> links;
    for (std::size_t at = text.find(opening); at != std::string::npos; at = text.find(opening, at)) {
        at += opening.size();
        links.insert(text.substr(at, text.find('"', at) - at));
    }
    return links;
}

} // namespace

TEST(Help, everyGroupThatCanBeShownHasAPageThatTheContentsLeadTo) {
    for (const Language& language : languages) {
        const fs::path file = driverDir / language.file;
        const ResourceFile module(file);
        const std::set<std::string> contents = linksIn(readFile(file.parent_path() / "JT37HELP" / "contents.html"));
        for (const OverlayRow& row : overlays) {
            if (module.resource(row.dialogTemplate, RT_DIALOG).empty()) continue;
            EXPECT_TRUE(contents.contains(std::to_string(row.topic) + ".html")) << language.name << ' ' << row.name;
        }
    }
}

TEST(Help, everyLinkLeadsToAPage) {
    for (const Language& language : languages) {
        const fs::path help = (driverDir / language.file).parent_path() / "JT37HELP";
        for (const fs::directory_entry& page : fs::directory_iterator(help))
            for (const std::string& link : linksIn(readFile(page.path())))
                EXPECT_TRUE(fs::exists(help / link)) << page.path() << ' ' << link;
    }
}
