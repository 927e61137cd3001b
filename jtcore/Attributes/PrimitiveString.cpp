#include "jtcore/Attributes/PrimitiveString.h"

bool PrimitiveString::equals(const AttrValue& other) const {
    return other.getValueType() == getValueType() && other.asPrimitiveString()->getValue() == value_;
}
