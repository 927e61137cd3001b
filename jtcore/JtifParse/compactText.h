// The quick way through our own compact tickets.
//
// A state is read each time a document is opened, and nearly always holds text that this system has written. These two
// read and write exactly that text, in one pass and without the XML library. Whatever is not in the plain form that our
// writer gives, or would fail, they leave to the library: a caller who goes there on `false` never sees a difference.
#pragma once

#include "jtcore/Attributes/AttrNodeList.h"
#include "jtcore/Services/ByteBuffer.h"

// Appends the attributes to the list. False, and the list as it was, when the text is not in our writer's form.
bool readCompactText(const ByteBuffer& text, AttrNodeList& list);

// Appends the text to the bytes. False, and the bytes as they were, when the list holds what XML cannot carry.
bool writeCompactText(const AttrNodeList& list, ByteBuffer& text);
