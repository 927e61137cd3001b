// The stocks that a user of a printer can choose from.
#pragma once

#include <string>

// Returns the exit code. Raises, with words, when there is no such printer.
int listStocks(const std::u16string& printer, bool json);
