// kolma_capc: makes one capability resource from the authored data, or says what is wrong with them.
//
//     kolma_capc --data FOLDER --family FILE --form 1|2 --out FILE [--text FILE]
//
// Exit code 1: faults in the data, one a line on standard error, and nothing written. 2: wrong usage. 3: failure.
#include "resources/capabilities/tool/composeCapabilities.h"

#include <CLI/CLI.hpp>

#include <fstream>
#include <iostream>

namespace {

constexpr int exitFaults = 1;
constexpr int exitUsage = 2;
constexpr int exitFailure = 3;

struct Arguments {
    std::filesystem::path data;
    std::filesystem::path family;
    int form = 1;
    std::filesystem::path out;
    std::filesystem::path text;
};

void write(const std::filesystem::path& path, const ByteBuffer& bytes) {
    std::ofstream stream(path, std::ios::binary | std::ios::trunc);
    stream.write(reinterpret_cast<const char*>(bytes.getData()), static_cast<std::streamsize>(bytes.getSize()));
    if (!stream.flush()) throw std::runtime_error("cannot write " + path.string());
}

int run(const Arguments& arguments) {
    FaultList faults;
    const auto form = static_cast<TicketForm>(arguments.form);
    const AttrNodeList capabilities = composeCapabilities(arguments.data, arguments.family, form, faults);
    for (const std::string& line : faults.lines())
        std::cerr << line << '\n';
    if (!faults.isEmpty()) return exitFaults;
    write(arguments.out, toCapabilityResource(capabilities));
    if (!arguments.text.empty()) write(arguments.text, toCapabilityText(capabilities));
    return 0;
}

} // namespace

int main(int argc, char** argv) {
    CLI::App app("Composes, checks and compresses the capabilities of one printer family.");
    Arguments arguments;
    app.add_option("--data", arguments.data, "The folder of the authored data")->required();
    app.add_option("--family", arguments.family, "The family's file")->required();
    app.add_option("--form", arguments.form, "The ticket form, 2 being the older one")
        ->required()
        ->check(CLI::Range(1, 2));
    app.add_option("--out", arguments.out, "The resource to write")->required();
    app.add_option("--text", arguments.text, "Writes the capability file too, as text");
    try {
        app.parse(argc, argv);
    } catch (const CLI::ParseError& error) {
        const int code = app.exit(error);
        return code == 0 ? 0 : exitUsage;
    }
    try {
        return run(arguments);
    } catch (const std::exception& failure) {
        std::cerr << failure.what() << '\n';
        return exitFailure;
    }
}
