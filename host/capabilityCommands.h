// kolma capabilities: what a printer can do. The work is done in the module of the ticket commands.
#pragma once

#include <string>

// With an abilFile the answers go into that file as a capability file, and nothing is shown.
int showCapabilities(const std::u16string& printer, bool json, const std::u16string& abilFile);
int importCapabilities(const std::u16string& printer, const std::u16string& file);
int clearCapabilities(const std::u16string& printer);
