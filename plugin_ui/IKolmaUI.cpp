#include "plugin_ui/IKolmaUI.h"

#include "jtcore/AnlXlate/KolmaDevMode.h"
#include "plugin_ui/hostBoundary.h"

#include <cstring>

namespace {

HRESULT failWith(DWORD error) {
    SetLastError(error);
    return E_FAIL;
}

bool isKnownDevMode(DWORD mode) { return mode >= OEMDM_SIZE && mode <= OEMDM_MERGE; }

bool hasItsAreas(DWORD mode, const OEMDMPARAM& param) {
    return param.pOEMDMOut && (mode == OEMDM_DEFAULT || param.pOEMDMIn);
}

bool isUsable(const PROPSHEETUI_INFO* info) { return info && info->Version == PROPSHEETUI_INFO_VERSION; }

} // namespace

IKolmaUI::~IKolmaUI() {
    if (!hostServices_) return;
    hostBoundary(ULONG{0}, [this] { return hostServices_->Release(); });
}

HRESULT IKolmaUI::QueryInterface(REFIID riid, void** ppv) {
    if (!ppv) return E_POINTER;
    *ppv = nullptr;
    if (riid != IID_IUnknown && riid != IID_IPrintOemUI) return E_NOINTERFACE;
    AddRef();
    *ppv = static_cast<IPrintOemUI*>(this);
    return S_OK;
}

ULONG IKolmaUI::AddRef() { return static_cast<ULONG>(InterlockedIncrement(&references_)); }

ULONG IKolmaUI::Release() {
    const LONG left = InterlockedDecrement(&references_);
    if (left == 0) delete static_cast<IKolmaPlugIn*>(this);
    return static_cast<ULONG>(left);
}

HRESULT IKolmaUI::GetInfo(DWORD dwMode, PVOID pBuffer, DWORD cbSize, PDWORD pcbNeeded) {
    return hostBoundary(E_FAIL, [&] {
        if (!pcbNeeded) return failWith(ERROR_INVALID_PARAMETER);
        if (dwMode == OEMGI_GETPUBLISHERINFO) {
            *pcbNeeded = 8;
            return E_FAIL;
        }
        if (dwMode != OEMGI_GETSIGNATURE && dwMode != OEMGI_GETVERSION) return failWith(ERROR_INVALID_PARAMETER);
        const DWORD answer = dwMode == OEMGI_GETSIGNATURE ? signature : version;
        *pcbNeeded = sizeof answer;
        if (cbSize < sizeof answer || !pBuffer) return failWith(ERROR_INSUFFICIENT_BUFFER);
        std::memcpy(pBuffer, &answer, sizeof answer);
        return S_OK;
    });
}

HRESULT IKolmaUI::DevMode(DWORD dwMode, POEMDMPARAM param) {
    return hostBoundary(E_FAIL, [&] {
        if (!param || !isKnownDevMode(dwMode)) return failWith(ERROR_INVALID_PARAMETER);
        if (dwMode == OEMDM_SIZE) {
            param->cbBufSize = KolmaDevMode::getDevModeSize();
            return S_OK;
        }
        if (!hasItsAreas(dwMode, *param)) return failWith(ERROR_INVALID_PARAMETER);
        runDevMode(dwMode, *param);
        return S_OK;
    });
}

HRESULT IKolmaUI::PublishDriverInterface(IUnknown* pIUnknown) {
    return hostBoundary(E_FAIL, [&] {
        if (hostServices_) return S_OK;
        void* services = nullptr;
        if (!pIUnknown || pIUnknown->QueryInterface(IID_IPrintOemDriverUI, &services) < 0) return E_FAIL;
        hostServices_ = static_cast<IPrintOemDriverUI*>(services);
        return hostServices_ ? S_OK : E_FAIL;
    });
}

HRESULT IKolmaUI::DevicePropertySheets(PPROPSHEETUI_INFO info, LPARAM) {
    return hostBoundary(E_FAIL, [&] { return isUsable(info) ? S_OK : failWith(ERROR_INVALID_PARAMETER); });
}

HRESULT IKolmaUI::DocumentPropertySheets(PPROPSHEETUI_INFO info, LPARAM lParam) {
    return hostBoundary(HRESULT{-1}, [&] {
        return isUsable(info) ? runDocumentSheet(*info, lParam) : failWith(ERROR_INVALID_PARAMETER);
    });
}

HRESULT IKolmaUI::QueryColorProfile(HANDLE, POEMUIOBJ, PDEVMODE, PVOID, ULONG ulQueryMode, void* pvProfileData,
                                    ULONG* pcbProfileData, FLONG* pflProfileData) {
    static constexpr char16_t profile[] = u"OEMPROFILE.icm";
    static constexpr ULONG reportedSize = 32;
    static_assert(sizeof profile <= reportedSize);
    return hostBoundary(E_FAIL, [&] {
        if (ulQueryMode != QCP_DEVICEPROFILE) return E_FAIL;
        if (!pcbProfileData || !pflProfileData) return failWith(ERROR_INVALID_PARAMETER);
        const ULONG room = *pcbProfileData;
        *pcbProfileData = reportedSize;
        if (!pvProfileData || room < reportedSize) return failWith(ERROR_INSUFFICIENT_BUFFER);
        std::memcpy(pvProfileData, profile, sizeof profile);
        *pflProfileData = QCP_PROFILEDISK;
        return S_OK;
    });
}

HRESULT IKolmaUI::PrinterEvent(PWSTR, INT, DWORD, LPARAM) { return S_OK; }

HRESULT IKolmaUI::DevQueryPrintEx(POEMUIOBJ, PDEVQUERYPRINT_INFO, PDEVMODE, PVOID) { return E_NOTIMPL; }

HRESULT IKolmaUI::DeviceCapabilities(POEMUIOBJ, HANDLE, PWSTR, WORD, PVOID, PDEVMODE, PVOID, DWORD, DWORD*) {
    return E_NOTIMPL;
}

HRESULT IKolmaUI::UpgradePrinter(DWORD, PBYTE) { return E_NOTIMPL; }

HRESULT IKolmaUI::DriverEvent(DWORD, DWORD, LPBYTE, LPARAM) { return E_NOTIMPL; }

HRESULT IKolmaUI::FontInstallerDlgProc(HWND, UINT, WPARAM, LPARAM) { return E_NOTIMPL; }

HRESULT IKolmaUI::UpdateExternalFonts(HANDLE, HANDLE, PWSTR) { return E_NOTIMPL; }
