// Every conversation of tests/conversations, played by kolma on the sheets themselves.
#include "host/conversation/textPattern.h"
#include "jtcore/Services/text.h"
#include "tests/ConversationFile.h"
#include "tests/Process.h"

#include <gmock/gmock.h>
#include <nlohmann/json.hpp>

#include <algorithm>
#include <cctype>

namespace {

using nlohmann::json;

std::vector<std::string> allConversations() {
    std::vector<std::string> names;
    for (const auto& entry : std::filesystem::directory_iterator(KOLMA_SOURCE_DIR "/tests/conversations"))
        if (entry.path().extension() == ".play") names.push_back(entry.path().stem().string());
    std::sort(names.begin(), names.end());
    return names;
}

std::string nameOf(const testing::TestParamInfo<std::string>& info) {
    std::string name = info.param;
    for (char& c : name)
        if (!std::isalnum(static_cast<unsigned char>(c))) c = '_';
    return name;
}

const json* findAttribute(const json& list, const std::string& id) {
    for (const json& attribute : list)
        if (attribute.value("id", "") == id) return &attribute["value"];
    return nullptr;
}

// "media-col/media-color", or a field of the record. Null when it is not there.
const json* find(const json& area, const std::string& path) {
    if (area.contains(path) && path != "attributes") return &area[path];
    const json* list = &area["attributes"];
    for (std::size_t at = 0; list;) {
        const std::size_t end = path.find('/', at);
        list = list->is_array() ? findAttribute(*list, path.substr(at, end - at)) : nullptr;
        if (end == std::string::npos) break;
        at = end + 1;
    }
    return list;
}

bool matches(const std::string& pattern, const std::string& text) {
    return matchesPattern(foldBlanks(fromUtf8(pattern)), foldBlanks(fromUtf8(text)));
}

class Conversation : public testing::TestWithParam<std::string> {
protected:
    Conversation()
        : data_("XDG_DATA_HOME", (folder_.path() / "data").c_str()),
          config_("XDG_CONFIG_HOME", (folder_.path() / "config").c_str()),
          home_("HOME", folder_.path().c_str()),
          display_("DISPLAY", nullptr),
          wayland_("WAYLAND_DISPLAY", nullptr),
          platform_("QT_QPA_PLATFORM", nullptr) {}

    static ProcessResult kolma(std::vector<std::string> words, const std::string& program = builtProgram) {
        words.insert(words.begin(), program);
        return runProcess(words);
    }

    // A program whose driver lacks these files.
    std::string programWithout(const std::vector<std::string>& files) const {
        namespace fs = std::filesystem;
        const fs::path root = folder_.path() / "lacking";
        const fs::path driver = root / "lib/kolma/3";
        fs::remove_all(root);
        fs::create_directories(driver);
        fs::create_directories(root / "bin");
        for (const auto& file : fs::directory_iterator(KOLMA_BUILD_DIR "/lib/kolma/3"))
            fs::create_symlink(file.path(), driver / file.path().filename());
        for (const std::string& file : files)
            if (!fs::remove(driver / file)) throw std::runtime_error("the driver has no " + file);
        // The platform goes by the place of its own library.
        fs::remove(driver / platformLibrary);
        fs::copy_file(fs::path(KOLMA_BUILD_DIR "/lib/kolma/3") / platformLibrary, driver / platformLibrary);
        fs::copy_file(builtProgram, root / "bin/kolma");
        return root / "bin/kolma";
    }

    static void setUpFiles(const ConversationPart& part) {
        for (const auto& [from, to] : part.copies)
            std::filesystem::copy_file(from, to, std::filesystem::copy_options::overwrite_existing);
        for (const std::string& file : part.removals)
            ASSERT_TRUE(std::filesystem::remove_all(file) > 0) << file;
    }

    void setUp(const ConversationFile& file) const {
        const ProcessResult added = kolma({"printer", "add", "press", "--driver", file.driver});
        ASSERT_EQ(added.exitCode, 0) << added.error;
        if (!file.area.empty()) std::filesystem::copy_file(file.area, area());
        if (file.ticket.empty()) return;
        const ProcessResult made = kolma({"devmode", "from-ticket", KOLMA_SOURCE_DIR "/" + file.ticket, "-o", area()});
        ASSERT_EQ(made.exitCode, 0) << made.error;
    }

    void play(const ConversationPart& part, std::size_t number) const {
        const std::string script = (folder_.path() / ("part" + std::to_string(number) + ".play")).string();
        std::ofstream(script) << part.script;
        setUpFiles(part);
        const std::string before = documentContent();
        std::vector<std::string> words{"properties", "press", "--play", script, "--shots", folder_.path().string()};
        words.insert(words.end(), part.options.begin(), part.options.end());
        const bool isDevice = std::find(words.begin(), words.end(), "--device") != words.end();
        if (!isDevice) words.insert(words.end(), {"--devmode", area()});
        const ProcessResult result = playWithFaults(part, words);
        ASSERT_EQ(result.exitCode, part.exitCode) << result.error << result.out;
        for (const std::string& pattern : part.out)
            EXPECT_TRUE(matches(pattern, result.out)) << pattern << "\nagainst\n" << result.out;
        for (const std::string& pattern : part.error)
            EXPECT_TRUE(matches(pattern, result.error)) << pattern << "\nagainst\n" << result.error;
        EXPECT_TRUE(!part.error.empty() || result.error.empty()) << result.error;
        EXPECT_TRUE(!part.isUnchanged || documentContent() == before) << "the document changed";
        checkStored(part);
    }

    ProcessResult playWithFaults(const ConversationPart& part, const std::vector<std::string>& words) const {
        const bool hasFaults = !part.faults.empty();
        const EnvironmentVariable faults("KOLMA_FAULTS", hasFaults ? part.faults.c_str() : nullptr);
        const EnvironmentVariable library("LD_PRELOAD", hasFaults ? KOLMA_FAULTS_FILE : nullptr);
        return kolma(words, part.without.empty() ? builtProgram : programWithout(part.without));
    }

    void checkStored(const ConversationPart& part) const {
        if (part.stores.empty()) return;
        const ProcessResult shown = kolma({"devmode", "show", "--json", area()});
        ASSERT_EQ(shown.exitCode, 0) << shown.error;
        const json stored = json::parse(shown.out);
        for (const auto& [id, expected] : part.stores) {
            const json* found = find(stored, id);
            EXPECT_EQ(found ? found->dump() : "nothing",
                      expected == "nothing" ? expected : json::parse(expected).dump())
                << id;
        }
    }

    std::string folder() const { return folder_.path().string(); }

private:
    static constexpr const char* builtProgram = KOLMA_BUILD_DIR "/bin/kolma";
    static constexpr const char* platformLibrary = "libkolmaplatform.so";

    std::string documentContent() const {
        return std::filesystem::exists(area()) ? folder_.content("document.area") : "absent";
    }
    std::string area() const { return (folder_.path() / "document.area").string(); }

    TemporaryFolder folder_;
    EnvironmentVariable data_;
    EnvironmentVariable config_;
    EnvironmentVariable home_;
    EnvironmentVariable display_;
    EnvironmentVariable wayland_;
    EnvironmentVariable platform_;
};

} // namespace

TEST_P(Conversation, goesAsExpected) {
    const ConversationFile file =
        readConversation(KOLMA_SOURCE_DIR "/tests/conversations/" + GetParam() + ".play", folder());
    ASSERT_NO_FATAL_FAILURE(setUp(file));
    for (std::size_t i = 0; i < file.parts.size() && !HasFailure(); ++i) {
        SCOPED_TRACE("part " + std::to_string(i + 1));
        play(file.parts[i], i + 1);
    }
}

INSTANTIATE_TEST_SUITE_P(Sheets, Conversation, testing::ValuesIn(allConversations()), nameOf);
