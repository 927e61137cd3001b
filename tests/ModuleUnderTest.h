// The driver's module as a host has it: loaded from the folder of the driver, called through its two entries.
#pragma once

#include "platform/driver_host.h"
#include "platform/spooler.h"
#include "tests/TemporaryFolder.h"
#include "tests/stateBuilder.h"

#include <dlfcn.h>

#include <stdexcept>
#include <string>

// Stores of their own for a test program. One stands before everything else of the program.
class OwnStores {
public:
    OwnStores()
        : data_("XDG_DATA_HOME", (folder_.path() / "data").c_str()),
          config_("XDG_CONFIG_HOME", (folder_.path() / "config").c_str()) {}

private:
    TemporaryFolder folder_;
    EnvironmentVariable data_;
    EnvironmentVariable config_;
};

class ModuleUnderTest {
public:
    static std::string path() { return KOLMA_BUILD_DIR "/lib/kolma/3/libjtui37.so"; }

    ModuleUnderTest() : handle_(dlopen(path().c_str(), RTLD_NOW | RTLD_LOCAL)) {
        if (!handle_) throw std::runtime_error(dlerror());
        getClassObject = entry<GetClassObject*>("DllGetClassObject");
        canUnloadNow = entry<CanUnloadNow*>("DllCanUnloadNow");
    }

    IClassFactory* createFactory() const {
        void* factory = nullptr;
        return getClassObject(CLSID_OEMUI, IID_IClassFactory, &factory) == S_OK ? static_cast<IClassFactory*>(factory)
                                                                                : nullptr;
    }

    // Null when the module makes none.
    IPrintOemUI* createObject() const {
        IClassFactory* factory = createFactory();
        void* object = nullptr;
        if (!factory || factory->CreateInstance(nullptr, IID_IPrintOemUI, &object) != S_OK) object = nullptr;
        if (factory) factory->Release();
        return static_cast<IPrintOemUI*>(object);
    }

    using GetClassObject = HRESULT(REFCLSID, REFIID, LPVOID*);
    using CanUnloadNow = HRESULT();
    GetClassObject* getClassObject;
    CanUnloadNow* canUnloadNow;

private:
    template <typename Function>
    Function entry(const char* name) const {
        return reinterpret_cast<Function>(dlsym(handle_, name));
    }

    void* handle_;
};

// One plug-in object, released with this one.
class PlugInObject {
public:
    explicit PlugInObject(const ModuleUnderTest& module) : object_(module.createObject()) {
        if (!object_) throw std::runtime_error("the module made no object");
    }
    ~PlugInObject() { object_->Release(); }
    PlugInObject(const PlugInObject&) = delete;
    PlugInObject& operator=(const PlugInObject&) = delete;

    IPrintOemUI* operator->() const { return object_; }
    IPrintOemUI* get() const { return object_; }

    HRESULT devMode(DWORD mode, HANDLE printer, const void* in, void* out) const {
        OEMDMPARAM param{};
        param.cbSize = sizeof param;
        param.hPrinter = printer;
        param.pOEMDMIn = const_cast<void*>(in);
        param.pOEMDMOut = out;
        return object_->DevMode(mode, &param);
    }

private:
    IPrintOemUI* object_;
};

// A printer of the store, removed at the end.
class TestPrinter {
public:
    explicit TestPrinter(std::u16string driver, std::u16string name = u"Press 1") {
        PRINTER_INFO_2W info{};
        info.pPrinterName = toWide(name.data());
        info.pDriverName = toWide(driver.data());
        handle = AddPrinterW(nullptr, 2, reinterpret_cast<LPBYTE>(&info));
        if (!handle) throw std::runtime_error("no printer");
    }
    ~TestPrinter() {
        DeletePrinter(handle);
        ClosePrinter(handle);
    }
    TestPrinter(const TestPrinter&) = delete;
    TestPrinter& operator=(const TestPrinter&) = delete;

    HANDLE handle;
};

// An area whose settings say this number of copies.
inline Area areaWithCopies(std::int32_t copies) {
    KolmaDevMode settings;
    settings.setAttrNodeList(list().integer(u"copies", copies).keyword(u"sides", u"one-sided"));
    return exported(settings);
}

inline Area absentArea() { return Area(KolmaDevMode::getDevModeSize(), 0); }

// The header is good, and a byte in the middle of the compressed block is not.
inline Area corruptArea() {
    Area area = areaWithCopies(99);
    area[16 + 8 + 12] ^= 0xFF;
    return area;
}

// What the next operation would find: -2 when it could not read the area, -1 when the area is not valid, 0 when it says
// nothing of copies.
inline std::int32_t copiesOf(const Area& area) {
    if (!KolmaDevMode::isValidArea(area.data())) return -1;
    try {
        std::int32_t copies = 0;
        listOf(KolmaDevMode(area.data())).JtifAttrToLong(copies, u"copies");
        return copies;
    } catch (const std::exception&) {
        return -2;
    }
}
