// kolma devmode default, convert, merge: the module's own operations on a private area.
#pragma once

#include <string>

// The mode is OEMDM_DEFAULT, OEMDM_CONVERT or OEMDM_MERGE; `input` is not used with the first. With the other two the
// output file, when it is there, is the outgoing area. Raises failures with words; the output file is then as it was.
int runAreaCommand(unsigned mode, const std::u16string& printer, const std::u16string& input,
                   const std::u16string& output);
