#include "jtcore/JtifParse/JtXMLInterface.h"

#include "jtcore/JtifParse/XmlPanic.h"
#include "jtcore/JtifParse/XmlParserPool.h"
#include "jtcore/Services/JtifParseException.h"

#include <xercesc/util/OutOfMemoryException.hpp>
#include <xercesc/util/PlatformUtils.hpp>
#include <xercesc/util/XMLException.hpp>

using namespace XERCES_CPP_NAMESPACE;

namespace {

// The library's own handler ends the process.
class ThrowingPanicHandler final : public PanicHandler {
public:
    void panic(const PanicReasons reason) override { throw XmlPanic{getPanicReasonString(reason)}; }
};

template <typename Words>
[[noreturn]] void raiseInitialization(const Words& words) {
    raiseJtifParse(JtifParseCode::XMLEXCEPTION_DURING_JTXML_INITIALIZATION,
                   u"JtXMLInterface::JtXMLInterface(): Error during Xerces-c initialization. Exception message is "
                   u"%s\r\n",
                   words);
}

} // namespace

OwnedCriticalResource JtXMLInterface::resource_("JtXMLInterface");
bool JtXMLInterface::terminated_ = false;

JtXMLInterface& JtXMLInterface::Instance() {
    // Never destroyed: a document may still be open when the process ends.
    static JtXMLInterface* instance = nullptr;
    Lock lock;
    if (terminated_)
        raiseJtifParse(JtifParseCode::ATTEMPT_TO_INIT_JTXML_AFTER_TERMINATION,
                       u"JtXMLInterface::Instance(): XML system already terminated once. Process can't create another "
                       u"one!\r\n");
    if (instance == nullptr) instance = new JtXMLInterface;
    return *instance;
}

JtXMLInterface::JtXMLInterface() : parsers_(std::make_unique<XmlParserPool>()) {
    static ThrowingPanicHandler panicHandler;
    // What a start that failed has left behind cannot be told; the library is not tried again. Shortage of memory
    // that met only us is.
    terminated_ = true;
    try {
        XMLPlatformUtils::Initialize("en_US", nullptr, &panicHandler);
    } catch (const XMLException& fault) {
        raiseInitialization(fault.getMessage());
    } catch (const OutOfMemoryException&) {
        raiseInitialization("out of memory");
    } catch (const XmlPanic& panic) {
        raiseInitialization(panic.reason);
    }
    terminated_ = false;
}

JtXMLInterface::~JtXMLInterface() = default;
