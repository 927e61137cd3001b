// The general parsers that our readers are held against, each set up as its documentation advises for speed.
#pragma once

#include "jtcore/Services/ByteBuffer.h"

#include <cstddef>

enum class DomUse { keptParser, newParser };

// Xerces-C into a DOM tree. With the DTD's grammar cached before, and validating; or without any DTD.
// The tree is built and thrown away. Returns the number of child elements of the root, so that no work is left out.
std::size_t parseWithDom(const ByteBuffer& text, bool validate, DomUse use);
// Xerces-C, one call for each element. The well-formed scanner where nothing is validated.
std::size_t parseWithSax2(const ByteBuffer& text, bool validate);
// pugixml, into its own tree.
std::size_t parseWithPugixml(const ByteBuffer& text);
// zlib into a buffer of the right size, and back.
ByteBuffer inflateBare(const ByteBuffer& block, std::size_t originalSize);
std::size_t deflateBare(const ByteBuffer& text);
