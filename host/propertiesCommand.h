// kolma properties: the driver's sheets on the screen, or played by a script.
#pragma once

#include <string>

struct PropertiesRequest {
    std::u16string printer;
    std::u16string area; // the document's settings; empty for those that are kept with the printer
    std::u16string script;
    std::u16string pictureFolder;
    bool isDevice = false;
    bool isReadOnly = false;
    bool isFresh = false; // begins with the printer's defaults
    bool refusesPage = false;
};

// Returns when the sheet is closed. exitNotValid when the script found something else than it expects, exitUsage when
// it cannot be read as one. Raises failures with words.
int openProperties(const PropertiesRequest& request);
