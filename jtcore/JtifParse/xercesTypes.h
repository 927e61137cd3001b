// The library's types that stand in interfaces of this folder, by name only.
#pragma once

#include <xercesc/util/XercesDefs.hpp>

XERCES_CPP_NAMESPACE_BEGIN
class DOMDocument;
class DOMElement;
XERCES_CPP_NAMESPACE_END

using DomDocument = XERCES_CPP_NAMESPACE::DOMDocument;
using DomElement = XERCES_CPP_NAMESPACE::DOMElement;
