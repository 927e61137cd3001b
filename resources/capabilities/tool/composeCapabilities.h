// From the authored data of one family to what the resource module carries.
#pragma once

#include "resources/capabilities/tool/FaultList.h"

#include "jtcore/Attributes/AttrNodeList.h"
#include "jtcore/Printer/TicketForm.h"
#include "jtcore/Services/ByteBuffer.h"

#include <filesystem>

// Composes and checks. The list is only to be used when no fault was told. REQUIRES: dataFolder has the folder shared.
AttrNodeList composeCapabilities(const std::filesystem::path& dataFolder, const std::filesystem::path& familyFile,
                                 TicketForm form, FaultList& faults);

// The text of the capability file.
ByteBuffer toCapabilityText(const AttrNodeList& capabilities);

// The text in the compressed form of the resource; the same bytes for the same list. Raises CompressionException.
ByteBuffer toCapabilityResource(const AttrNodeList& capabilities);
