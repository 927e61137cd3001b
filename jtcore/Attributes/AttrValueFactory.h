// Makes the value that a pair of syntax name and text stands for.
#pragma once

#include "jtcore/Attributes/AttrValue.h"

class AttrValueFactory {
public:
    // AVTE::list for each of the four list syntaxes, AVTE::null for a name that is not known.
    static AVTE getSyntaxType(std::u16string_view syntaxName) noexcept { return syntaxTypeOf(syntaxName); }

    // A value of one of the single kinds, made by its constructor from text.
    // Raises UnknownCaseException for AVTE::null, AVTE::list and any other number.
    static std::unique_ptr<AttrValue> createSimpleAttrValue(AVTE type, std::u16string_view text);

    // A syntax that is not known gives an IppNull of that name, and the text is dropped.
    // Raises UnknownCaseException for a list syntax: a list has no text.
    static std::unique_ptr<AttrValue> createAttrValue(std::u16string_view syntaxName, std::u16string_view text);
};
