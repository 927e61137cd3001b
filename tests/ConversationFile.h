// A conversation of tests/conversations, with what the test has to set up and to look at afterwards. Lines that begin
// with "#:" tell that; for the script itself they are comments:
//
//     #: driver NAME         the printer's driver
//     #: ticket FILE         the document's settings come of that ticket, a file of the tree
//     #: area FILE           they are that private area; without either they are the printer's defaults
//     #: options WORDS       for kolma properties; in place of --devmode and the document when they have --device
//     #: exit CODE           0 when nothing is said
//     #: out PATTERN         what is printed, * standing for anything; a line each for several
//     #: error PATTERN       what is on the standard error, which is else empty
//     #: stores ID JSON      what the document has afterwards; ID is an attribute, members behind "/", or a field of
//                            its record; "nothing" for one that must not be there
//     #: unchanged           the document is as it was, byte for byte, or as absent as it was
//     #: without FILE        the driver is one whose folder lacks that file
//     #: fault CALL …        a published call that fails in the driver, as tests/faultyCalls.cpp tells
//     #: copy FROM TO        a file is put there before the conversation
//     #: remove FILE         it is taken away before the conversation
//     #: again               the same document is opened again; what follows is another conversation
//
// In every line {folder} stands for the test's own folder and {source} for the tree.
#pragma once

#include <string>
#include <utility>
#include <vector>

struct ConversationPart {
    std::string script;
    std::vector<std::string> options;
    int exitCode = 0;
    std::vector<std::string> out;
    std::vector<std::string> error;
    std::vector<std::pair<std::string, std::string>> stores;
    bool isUnchanged = false;
    std::vector<std::string> without;
    std::string faults; // a line each
    std::vector<std::pair<std::string, std::string>> copies;
    std::vector<std::string> removals;
};

struct ConversationFile {
    std::string driver = "Kolma Lindor 63 PS3 C3";
    std::string ticket;
    std::string area;
    std::vector<ConversationPart> parts;
};

// Throws std::runtime_error for a line after "#:" that means nothing.
ConversationFile readConversation(const std::string& path, const std::string& folder);
