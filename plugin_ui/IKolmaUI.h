// The COM face of the plug-in, as the host calls it. Every operation returns a result and nothing else; E_FAIL comes
// with a last error where the operation says so.
#pragma once

#include "platform/driver_host.h"
#include "plugin_ui/DocumentSheetSession.h"
#include "plugin_ui/IKolmaPlugIn.h"
#include "plugin_ui/PageLock.h"
#include "plugin_ui/moduleState.h"

#include <memory>

// NOLINTNEXTLINE(cppcoreguidelines-virtual-class-destructor): nobody but Release() may delete it
class IKolmaUI final : public IPrintOemUI, public IKolmaPlugIn, public PageLock {
public:
    // The four bytes KLMA.
    static constexpr DWORD signature = 0x4B4C4D41;
    static constexpr DWORD version = 0x03070001;

    // The creator holds the first reference.
    IKolmaUI() noexcept = default;

    HRESULT STDMETHODCALLTYPE QueryInterface(REFIID riid, void** ppv) override;
    ULONG STDMETHODCALLTYPE AddRef() override;
    ULONG STDMETHODCALLTYPE Release() override;

    // Signature and version, four bytes each. Last error 87 on an unknown mode or a null pcbNeeded, 122 on a buffer
    // that is too small. There is no publisher information: E_FAIL, and the last error as it was.
    HRESULT STDMETHODCALLTYPE GetInfo(DWORD dwMode, PVOID pBuffer, DWORD cbSize, PDWORD pcbNeeded) override;
    // Always succeeds with a usable area, unless an argument is missing or the mode unknown: E_FAIL with 87.
    HRESULT STDMETHODCALLTYPE DevMode(DWORD dwMode, POEMDMPARAM param) override;
    // Keeps the host's services for the life of the object; a second call changes nothing.
    HRESULT STDMETHODCALLTYPE PublishDriverInterface(IUnknown* pIUnknown) override;
    // S_OK also after a failure, which is shown to the user; the host then has no items of ours. E_FAIL with 87 on an
    // unknown mode.
    HRESULT STDMETHODCALLTYPE CommonUIProp(DWORD dwMode, POEMCUIPPARAM param) override;
    // 1, or -1 after a failure, which is shown to the user. E_FAIL with 87 on a bad info. One sheet at a time.
    HRESULT STDMETHODCALLTYPE DocumentPropertySheets(PPROPSHEETUI_INFO info, LPARAM lParam) override;
    // Adds no page. E_FAIL with 87 on a bad info.
    HRESULT STDMETHODCALLTYPE DevicePropertySheets(PPROPSHEETUI_INFO info, LPARAM lParam) override;
    HRESULT STDMETHODCALLTYPE DevQueryPrintEx(POEMUIOBJ poemuiobj, PDEVQUERYPRINT_INFO pDQPInfo, PDEVMODE pPublicDM,
                                              PVOID pOEMDM) override;
    HRESULT STDMETHODCALLTYPE DeviceCapabilities(POEMUIOBJ poemuiobj, HANDLE hPrinter, PWSTR pDeviceName,
                                                 WORD wCapability, PVOID pOutput, PDEVMODE pPublicDM, PVOID pOEMDM,
                                                 DWORD dwOld, DWORD* dwResult) override;
    HRESULT STDMETHODCALLTYPE UpgradePrinter(DWORD dwLevel, PBYTE pDriverUpgradeInfo) override;
    HRESULT STDMETHODCALLTYPE PrinterEvent(PWSTR pPrinterName, INT iDriverEvent, DWORD dwFlags, LPARAM lParam) override;
    HRESULT STDMETHODCALLTYPE DriverEvent(DWORD dwDriverEvent, DWORD dwLevel, LPBYTE pDriverInfo,
                                          LPARAM lParam) override;
    // Names the profile file of the device, in a buffer of at least 32 bytes (last error 122).
    HRESULT STDMETHODCALLTYPE QueryColorProfile(HANDLE hPrinter, POEMUIOBJ poemuiobj, PDEVMODE pPublicDM, PVOID pOEMDM,
                                                ULONG ulQueryMode, void* pvProfileData, ULONG* pcbProfileData,
                                                FLONG* pflProfileData) override;
    HRESULT STDMETHODCALLTYPE FontInstallerDlgProc(HWND hWnd, UINT usMsg, WPARAM wParam, LPARAM lParam) override;
    HRESULT STDMETHODCALLTYPE UpdateExternalFonts(HANDLE hPrinter, HANDLE hHeap, PWSTR pwstrCartridges) override;

    // The page of the session, when there is one.
    void lockPage() override;
    void unlockPage() override;

private:
    ~IKolmaUI() override;

    void tellItems(DWORD mode, OEMCUIPPARAM& param);
    HRESULT runDocumentSheet(PROPSHEETUI_INFO& info, LPARAM lParam);
    void openSession(const OEMUIPSPARAM* param);

    LiveObject liveObject_;
    LONG volatile references_ = 1;
    IPrintOemDriverUI* hostServices_ = nullptr;
    std::unique_ptr<DocumentSheetSession> session_;
};
