#include "host/PlugIn.h"

#include "host/commandFailure.h"
#include "host/moduleEntry.h"
#include "host/sheets/HostServices.h"
#include "jtcore/Services/getDriverFilePath.h"

namespace {

constexpr std::u16string_view moduleFile = u"" KOLMA_MODULE_FILE;
constexpr DWORD ourSignature = KolmaDmFields::signature;
constexpr DWORD oldestVersion = 0x03070001;

using GetClassObject = HRESULT(WINAPI*)(REFCLSID, REFIID, LPVOID*);

DWORD getInfo(IPrintOemUI& object, DWORD what) {
    DWORD answer = 0;
    DWORD needed = 0;
    const HRESULT result = object.GetInfo(what, &answer, sizeof answer, &needed);
    return result == S_OK && needed == sizeof answer ? answer : 0;
}

} // namespace

PlugIn::PlugIn() {
    const std::u16string path = getDriverFilePath(nullptr, moduleFile);
    module_ = LoadLibraryExW(toWide(path), nullptr, LOAD_WITH_ALTERED_SEARCH_PATH);
    if (!module_)
        raise<InWords<UnknownCaseException>>(u"The driver module \"%s\" could not be loaded (error %u).", path,
                                             GetLastError());
    try {
        createObject();
        checkObject();
    } catch (...) {
        release();
        throw;
    }
}

PlugIn::~PlugIn() { release(); }

void PlugIn::release() noexcept {
    if (object_) object_->Release();
    FreeLibrary(module_);
}

void PlugIn::createObject() {
    auto getClassObject = getModuleEntry<GetClassObject>(module_, "DllGetClassObject");
    void* factory = nullptr;
    if (!getClassObject || getClassObject(CLSID_OEMUI, IID_IClassFactory, &factory) != S_OK)
        raise<InWords<UnknownCaseException>>(u"The driver module offers no class factory.");
    void* object = nullptr;
    const HRESULT result = static_cast<IClassFactory*>(factory)->CreateInstance(nullptr, IID_IPrintOemUI, &object);
    static_cast<IClassFactory*>(factory)->Release();
    if (result != S_OK)
        raise<InWords<UnknownCaseException>>(u"The driver module made no plug-in object (0x%08x).", result);
    object_ = static_cast<IPrintOemUI*>(object);
}

void PlugIn::checkObject() {
    OEMDMPARAM size{};
    size.cbSize = sizeof size;
    if (getInfo(*object_, OEMGI_GETSIGNATURE) != ourSignature || getInfo(*object_, OEMGI_GETVERSION) < oldestVersion ||
        object_->DevMode(OEMDM_SIZE, &size) != S_OK || size.cbBufSize != sizeof(KolmaDmType))
        raise<InWords<UnknownCaseException>>(u"The driver module is not one that this program knows.");
    object_->PublishDriverInterface(&HostServices::instance());
}

void PlugIn::runDevMode(DWORD mode, HANDLE printer, const KolmaDmType* in, KolmaDmType& out) {
    KolmaDmType incoming = in ? *in : KolmaDmType();
    OEMDMPARAM param{};
    param.cbSize = sizeof param;
    param.hPrinter = printer;
    param.pOEMDMIn = in ? &incoming : nullptr;
    param.pOEMDMOut = &out;
    param.cbBufSize = sizeof out;
    const HRESULT result = object_->DevMode(mode, &param);
    if (result != S_OK)
        raise<InWords<UnknownCaseException>>(u"The driver module refused the operation (0x%08x, error %u).", result,
                                             GetLastError());
}
