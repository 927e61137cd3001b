// The tool that makes the capability resources: every fault in the data is told, by file and key.
#include "tests/TemporaryFolder.h"

#include "resources/capabilities/tool/composeCapabilities.h"

#include <gtest/gtest.h>
#include <string>
#include <vector>

namespace {

const std::filesystem::path dataFolder = std::filesystem::path(KOLMA_SOURCE_DIR) / "resources/capabilities";

std::string joined(const std::vector<std::string>& lines) {
    std::string text;
    for (const std::string& line : lines)
        text += line + "\n";
    return text;
}

struct PlantedFault {
    const char* what;
    const char* file; // under the folder of the data
    const char* find;
    const char* replacement;
    const char* family;
    TicketForm form;
    const char* told; // file, key and reason, as they must be said
};

constexpr auto newer = TicketForm::current;
constexpr auto older = TicketForm::rendo2x;
constexpr const char* mono = "07-monochrome-production.json";
constexpr const char* color = "01-color-production.json";
constexpr const char* signature = "14-signature-booklets.json";

constexpr PlantedFault plantedFaults[] = {
    {"a syntax fault", "shared/job.json", "\"job-basics\": {", "\"job-basics\": [", mono, newer, "job.json: "},
    {"a key twice", "shared/job.json", "\"copies-supported\":", "\"sides-supported\":", mono, newer,
     "job.json: sides-supported: stands twice"},
    {"an unknown capability", "shared/job.json", "\"copies-supported\":", "\"copys-supported\":", mono, newer,
     "job.json: copys-supported: is no capability"},
    {"a limit of the model", "shared/job.json", "\"copies-supported\": {\"range\": [1, 9999]}",
     "\"job-name-allowable-char-limit\": 40", mono, newer,
     "job.json: job-name-allowable-char-limit: is stated by the printer model"},
    {"a derived list", "shared/job.json", "\"copies-supported\": {\"range\": [1, 9999]}", "\"media-col-supported\": []",
     mono, newer, "job.json: media-col-supported: follows from the other statements"},
    {"an unknown keyword", "shared/job.json", "\"two-sided-long-edge\"", "\"duplex\"", mono, newer,
     "job.json: sides-supported: \"duplex\" is no value of sides"},
    {"an unknown number", "shared/finishing.json", "[14]", "[15]", mono, newer,
     "finishing.json: finishings-supported: 15 is no value of finishings"},
    {"a name where none is taken", "shared/job.json", "\"two-sided-long-edge\"", "{\"name\": \"both\"}", mono, newer,
     "job.json: sides-supported: takes no names"},
    {"a range that ends before it starts", "shared/job.json", "[1, 9999]", "[9999, 1]", mono, newer,
     "job.json: copies-supported: the range [9999,1] ends before it starts"},
    {"false", "shared/job.json", "\"page-ranges-supported\": true", "\"page-ranges-supported\": false", mono, newer,
     "job.json: page-ranges-supported: says true or is left out"},
    {"a value twice", "shared/finishing.json", "[20, 21, 22,", "[20, 22, 22,", mono, newer,
     "finishing.json: finishings-supported: \"22\" is listed twice"},
    {"a default that is not allowed", "shared/job.json", "\"copies-supported\": {\"range\": [1, 9999]}",
     "\"copies-supported\": {\"range\": [2, 9999]}", mono, newer,
     "07-monochrome-production.json: copies-supported: a job starts with 1, which is not allowed"},
    {"a default whose feature is missing", "families/01-color-production.json", "\"rotation\", ", "", color, newer,
     "01-color-production.json: page-rotation-supported: is missing: a job starts with rotate-0"},
    {"a required member without a default", "families/01-color-production.json", "\"set\": {",
     "\"set\": {\"imposition-template-supported\": [\"none\", \"signature\"],", color, newer,
     "01-color-production.json: imposition-template-supported: the printer requires the attribute"},
    {"a required member where nothing is left open", "families/14-signature-booklets.json", "\"set\": {",
     "\"set\": {\"media-weight-metric-supported\": [{\"range\": [60, 200]}],", signature, newer,
     "14-signature-booklets.json: media-weight-metric-supported: the printer requires the attribute"},
    {"an unknown member", "shared/pages.json", "\"insert-count\", \"media\"", "\"insert-number\", \"media\"", mono,
     newer, "pages.json: insert-sheet-supported: \"insert-number\" is no attribute of a job"},
    {"a member that the printer lacks", "families/07-monochrome-production.json", "\"set\": {",
     "\"set\": {\"insert-sheet-supported\": [\"insert-count\", \"trapping\"],", mono, newer,
     "07-monochrome-production.json: insert-sheet-supported: trapping is not supported by the printer"},
    {"a stock without its size in an entry", "shared/pages.json",
     "\"insert-count\", \"media\", \"media-col\", \"media-size\"", "\"insert-count\", \"media\", \"media-col\"", mono,
     newer, "07-monochrome-production.json: insert-sheet-supported: names media-col without media-size"},
    {"a fixed size first", "families/07-monochrome-production.json",
     "{\"custom\": {\"x\": [17800, 47000], \"y\": [25400, 36400]}},", "", mono, newer,
     "07-monochrome-production.json: media-size-supported: the range of custom sizes stands first"},
    {"another range than the model's", "families/07-monochrome-production.json", "[17800, 47000]", "[17800, 46000]",
     mono, newer,
     "07-monochrome-production.json: media-size-supported: the range of custom sizes is not that of the printer model"},
    {"a size beyond the range", "families/07-monochrome-production.json", "\"jis-b5\",", "\"a5\",", mono, newer,
     "07-monochrome-production.json: media-size-supported: 14800 x 21000 is beyond the printer's range"},
    {"an unknown size", "families/07-monochrome-production.json", "\"jis-b5\",", "\"b6\",", mono, newer,
     "07-monochrome-production.json: media-size-supported: \"b6\" is no size of sizes.json"},
    {"a stock that is too heavy", "shared/stocks.json", "\"media-size\": \"letter\", \"media-weight-metric\": 105}",
     "\"media-size\": \"letter\", \"media-weight-metric\": 405}", mono, newer,
     "07-monochrome-production.json: letter-105: media-weight-metric 405 is none that the printer takes"},
    {"a stock of a color that is not listed", "families/07-monochrome-production.json", "\"letter-105\"",
     "\"book-letter-cream\"", mono, newer,
     "07-monochrome-production.json: book-letter-cream: media-color cream is none that the printer takes"},
    {"two stocks that differ in the name alone", "shared/stocks.json",
     "\"media-size\": \"letter\", \"media-weight-metric\": 105}",
     "\"media-size\": \"letter\", \"media-weight-metric\": 75}", mono, newer,
     "07-monochrome-production.json: stocks: \"letter-105\" and \"letter-75\" differ in nothing but the name"},
    {"two stocks of one name", "shared/stocks.json", "Letter 28 lb white text", "Letter 20 lb white bond", mono, newer,
     "another stock is called \"Letter 20 lb white bond\" too"},
    {"an unknown stock", "families/07-monochrome-production.json", "\"letter-105\"", "\"letter-106\"", mono, newer,
     "07-monochrome-production.json: stocks: \"letter-106\" is no stock of stocks.json"},
    {"an unknown member of a stock", "shared/stocks.json", "\"media-hole-count\": 0", "\"media-holes\": 0", mono, newer,
     "stocks.json: letter-75: \"media-holes\" is no member of a stock"},
    {"too few stocks", "families/14-signature-booklets.json", "\"stocks\": [",
     "\"stocks\": [\"letter-75\"], \"stock-sets\": [", signature, newer,
     "14-signature-booklets.json: stocks: lists 1 stocks"},
    {"an unknown block", "families/07-monochrome-production.json", "\"tape-binder\"", "\"tape\"", mono, newer,
     "07-monochrome-production.json: takes: there is no block \"tape\""},
    {"an unknown section", "families/07-monochrome-production.json", "\"takes\":", "\"take\":", mono, newer,
     "07-monochrome-production.json: take: is no section of a family"},
    {"one range from two blocks", "families/07-monochrome-production.json", "\"image-shift\",",
     "\"image-shift\", \"image-shift-small\",", mono, newer,
     "job.json: x-side1-image-shift-supported: is stated in job.json already"},
    {"nothing to remove", "families/07-monochrome-production.json", "\"invoice-white\"",
     "\"executive-white\", \"ledger-white\", \"iso-a0-white\"", mono, newer,
     "07-monochrome-production.json: media-supported: \"iso-a0-white\" is not listed"},
    {"a family that nobody knows", "families/07-monochrome-production.json", "\"family\": 7", "\"family\": 77", mono,
     newer, "07-monochrome-production.json: family: there is no family 77"},
    {"a feature that the model leaves no room for", "families/07-monochrome-production.json", "\"operator-message\"",
     "\"operator-message\", \"phone-number\"", mono, newer,
     "07-monochrome-production.json: job-phone-number-supported: the printer model leaves no character for it"},
    {"pages past the last", "families/14-signature-booklets.json",
     "\"force-front-side-supported\": {\"range\": [1, 9999]}",
     "\"force-front-side-supported\": {\"range\": [1, 10000]}", signature, newer,
     "14-signature-booklets.json: force-front-side-supported: goes beyond page 9999"},
    {"a user's value without a limit", "shared/media.json",
     "\"user-defined-values-supported\": [\"media\", \"media-key\"]",
     "\"user-defined-values-supported\": [\"media\", \"output-bin\"]", mono, newer,
     "07-monochrome-production.json: user-defined-values-supported: there is no limit to the length of a value of "
     "output-bin"},
    {"one coating", "shared/media.json", "\"media-back-coating-supported\"", "\"media-tooth-supported\"", color, newer,
     "media-back-coating-supported: is missing: it goes with media-front-coating-supported"},
    {"a default that the older form takes away", "shared/older-form.json", "\"job-hold-until-supported\",",
     "\"job-hold-until-supported\", \"sides-supported\",", mono, older,
     "07-monochrome-production.json: sides-supported: is missing: a job starts with one-sided"},
    {"a kept thing that nobody takes", "families/09-monochrome-tape-binding.json", "\"media-grain-supported\"",
     "\"sides-supported\"", "09-monochrome-tape-binding.json", older,
     "older/keep: sides-supported is not taken away by the older form"},
};

} // namespace

TEST(CapabilityTool, plantedFaultsAreToldByFileAndKey) {
    for (const PlantedFault& planted : plantedFaults) {
        SCOPED_TRACE(planted.what);
        const TemporaryFolder folder;
        std::filesystem::copy(dataFolder, folder.path(), std::filesystem::copy_options::recursive);
        std::string content = folder.content(planted.file);
        const std::size_t at = content.find(planted.find);
        ASSERT_NE(at, content.npos) << "nothing to plant in " << planted.file;
        folder.write(planted.file, content.replace(at, std::string(planted.find).size(), planted.replacement));
        FaultList faults;
        const auto composed =
            composeCapabilities(folder.path(), folder.path() / "families" / planted.family, planted.form, faults);
        EXPECT_NE(joined(faults.lines()).find(planted.told), std::string::npos) << joined(faults.lines());
        EXPECT_TRUE(composed.isEmpty());
    }
}

TEST(CapabilityTool, aFileThatIsMissingIsAFaultAndNoCrash) {
    FaultList faults;
    EXPECT_TRUE(composeCapabilities(dataFolder, dataFolder / "families/99-none.json", newer, faults).isEmpty());
    EXPECT_NE(joined(faults.lines()).find("99-none.json: cannot be read"), std::string::npos) << joined(faults.lines());
}
