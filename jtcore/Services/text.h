// UTF-8 stands only at the edges (files, terminal, narrow literals); inside all text is UTF-16.
#pragma once

#include <string>
#include <string_view>

// A byte sequence that is not UTF-8 comes out as U+FFFD.
std::u16string fromUtf8(std::string_view text);

// An unpaired surrogate comes out as U+FFFD.
std::string toUtf8(std::u16string_view text);
