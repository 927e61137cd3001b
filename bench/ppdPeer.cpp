#include "bench/ppdPeer.h"

#include <cstdio>
#include <cstdlib>
#include <cups/cups.h>
#include <cups/ppd.h>
#include <string>
#include <unistd.h>

// The library's interface to printer descriptions is the one that resolves conflicts; it is marked as old.
#pragma GCC diagnostic ignored "-Wdeprecated-declarations"

namespace {

constexpr int optionCount = 100;
constexpr int constraintCount = 200;
constexpr int jobCount = 60;
constexpr int choiceCount = 6;

std::string option(int number) { return "Option" + std::to_string(number); }
std::string choice(int number) { return "Choice" + std::to_string(number); }

std::string description() {
    std::string text =
        "*PPD-Adobe: \"4.3\"\n*FormatVersion: \"4.3\"\n*FileVersion: \"1.0\"\n*LanguageVersion: English\n"
        "*LanguageEncoding: ISOLatin1\n*PCFileName: \"PEER.PPD\"\n*Manufacturer: \"Peer\"\n"
        "*Product: \"(Peer)\"\n*PSVersion: \"(3010) 0\"\n*ModelName: \"Peer\"\n*NickName: \"Peer\"\n"
        "*ShortNickName: \"Peer\"\n";
    for (int i = 0; i < optionCount; ++i) {
        text += "*OpenUI *" + option(i) + "/" + option(i) + ": PickOne\n*Default" + option(i) + ": " + choice(0) + "\n";
        for (int c = 0; c < choiceCount; ++c)
            text += "*" + option(i) + " " + choice(c) + "/" + choice(c) + ": \"\"\n";
        text += "*CloseUI: *" + option(i) + "\n";
    }
    for (int i = 0; i < constraintCount; ++i)
        text += "*UIConstraints: *" + option(i % optionCount) + " " + choice(1 + i % 5) + " *" +
                option((i * 7 + 3) % optionCount) + " " + choice(1 + i % 4) + "\n";
    return text;
}

ppd_file_t* openPrinter() {
    char path[] = "/tmp/kolma_bench_XXXXXX";
    int file = mkstemp(path);
    std::FILE* stream = fdopen(file, "w");
    std::fputs(description().c_str(), stream);
    std::fclose(stream);
    ppd_file_t* printer = ppdOpenFile(path);
    unlink(path);
    if (!printer) std::abort();
    return printer;
}

} // namespace

std::size_t markAndResolveJob() {
    static ppd_file_t* printer = openPrinter();
    cups_option_t* job = nullptr;
    int count = 0;
    for (int i = 0; i < jobCount; ++i)
        count = cupsAddOption(option(i).c_str(), choice(i % 8 == 0 ? 1 + i % 5 : 0).c_str(), count, &job);
    ppdMarkDefaults(printer);
    cupsMarkOptions(printer, count, job);
    cups_option_t* conflicts = nullptr;
    int conflictCount = cupsGetConflicts(printer, option(8).c_str(), choice(4).c_str(), &conflicts);
    cupsFreeOptions(conflictCount, conflicts);
    cupsResolveConflicts(printer, nullptr, nullptr, &count, &job);
    cupsFreeOptions(count, job);
    return static_cast<std::size_t>(count);
}
