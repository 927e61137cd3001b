// The syntaxes that the tables know: the name as it stands in a document, and the value type that goes with it.
#pragma once

#include "jtcore/Attributes/AttrValue.h"
#include "jtcore/FeatureSettings/FixedList.h"

#include <string_view>

struct Syntax {
    std::u16string_view name;
    AVTE type = AVTE::null;
};

// The first entry is the syntax of a new value.
using SyntaxList = FixedList<Syntax, 3>;

// The names that the table rows use.
namespace syntax {
inline constexpr Syntax integer{u"integer", AVTE::integer};
inline constexpr Syntax enumeration{u"enum", AVTE::enumeration};
inline constexpr Syntax name{u"name", AVTE::name};
inline constexpr Syntax keyword{u"keyword", AVTE::keyword};
inline constexpr Syntax boolean{u"boolean", AVTE::boolean};
inline constexpr Syntax text{u"text", AVTE::text};
inline constexpr Syntax mimeMediaType{u"mimeMediaType", AVTE::mimeMediaType};
inline constexpr Syntax uri{u"uri", AVTE::uri};
inline constexpr Syntax collection{u"collection", AVTE::list};
inline constexpr Syntax rangeOfInteger{u"rangeOfInteger", AVTE::list};
inline constexpr Syntax resolution{u"resolution", AVTE::list};
} // namespace syntax
