// What the printer driver user interface host publishes: the plug-in's interface, the host's services for it, and the
// structures that the two hand each other.
#pragma once

#include "platform/com.h"
#include "platform/driver_sheets.h"
#include "platform/types.h"

#ifdef _WIN32

#include <prcomoem.h>

#else

// The public part of the document settings; the driver's private part follows dmSize bytes behind its begin, and the
// plug-in's area lies in there. A printer has no use for the display's half of the published union, which is left out.
struct DEVMODEW {
    WCHAR dmDeviceName[32];
    WORD dmSpecVersion;
    WORD dmDriverVersion;
    WORD dmSize;
    WORD dmDriverExtra;
    DWORD dmFields;
    SHORT dmOrientation;
    SHORT dmPaperSize;
    SHORT dmPaperLength;
    SHORT dmPaperWidth;
    SHORT dmScale;
    SHORT dmCopies;
    SHORT dmDefaultSource;
    SHORT dmPrintQuality;
    SHORT dmColor;
    SHORT dmDuplex;
    SHORT dmYResolution;
    SHORT dmTTOption;
    SHORT dmCollate;
    WCHAR dmFormName[32];
    WORD dmLogPixels;
    DWORD dmBitsPerPel;
    DWORD dmPelsWidth;
    DWORD dmPelsHeight;
    DWORD dmNup;
    DWORD dmDisplayFrequency;
    DWORD dmICMMethod;
    DWORD dmICMIntent;
    DWORD dmMediaType;
    DWORD dmDitherType;
    DWORD dmReserved1;
    DWORD dmReserved2;
    DWORD dmPanningWidth;
    DWORD dmPanningHeight;
};
static_assert(sizeof(DEVMODEW) == 220);
using PDEVMODEW = DEVMODEW*;
using LPDEVMODEW = DEVMODEW*;
using DEVMODE = DEVMODEW;
using PDEVMODE = DEVMODEW*;

inline constexpr WORD DM_SPECVERSION = 0x0401;

// What the caller of a document properties sheet wants done (OEMUIPSPARAM::dwFlags).
inline constexpr DWORD DM_UPDATE = 0x01;
inline constexpr DWORD DM_COPY = 0x02;
inline constexpr DWORD DM_PROMPT = 0x04;
inline constexpr DWORD DM_MODIFY = 0x08;
inline constexpr DWORD DM_ADVANCED = 0x10;
inline constexpr DWORD DM_NOPERMISSION = 0x20;
inline constexpr DWORD DM_USER_DEFAULT = 0x40;
inline constexpr DWORD DM_IN_BUFFER = DM_MODIFY;
inline constexpr DWORD DM_IN_PROMPT = DM_PROMPT;
inline constexpr DWORD DM_OUT_BUFFER = DM_COPY;
inline constexpr DWORD DM_OUT_DEFAULT = DM_UPDATE;

// GetInfo.
inline constexpr DWORD OEMGI_GETSIGNATURE = 1;
inline constexpr DWORD OEMGI_GETINTERFACEVERSION = 2;
inline constexpr DWORD OEMGI_GETVERSION = 3;
inline constexpr DWORD OEMGI_GETPUBLISHERINFO = 4;

// DevMode.
inline constexpr DWORD OEMDM_SIZE = 1;
inline constexpr DWORD OEMDM_DEFAULT = 2;
inline constexpr DWORD OEMDM_CONVERT = 3;
inline constexpr DWORD OEMDM_MERGE = 4;

// CommonUIProp.
inline constexpr DWORD OEMCUIP_DOCPROP = 1;
inline constexpr DWORD OEMCUIP_PRNPROP = 2;

// QueryColorProfile.
inline constexpr ULONG QCP_DEVICEPROFILE = 0;
inline constexpr ULONG QCP_SOURCEPROFILE = 1;
inline constexpr FLONG QCP_PROFILEMEMORY = 1;
inline constexpr FLONG QCP_PROFILEDISK = 2;

// The front of every plug-in's private area.
struct OEM_DMEXTRAHEADER {
    DWORD dwSize;
    DWORD dwSignature;
    DWORD dwVersion;
};
using POEM_DMEXTRAHEADER = OEM_DMEXTRAHEADER*;
static_assert(sizeof(OEM_DMEXTRAHEADER) == 12);

struct OEMDMPARAM {
    DWORD cbSize;
    PVOID pdriverobj;
    HANDLE hPrinter;
    HANDLE hModule;
    PDEVMODE pPublicDMIn;
    PDEVMODE pPublicDMOut;
    PVOID pOEMDMIn;
    PVOID pOEMDMOut;
    DWORD cbBufSize;
};
using POEMDMPARAM = OEMDMPARAM*;

struct OEMUIPROCS;
using POEMUIPROCS = OEMUIPROCS*;
struct OEMUIOBJ {
    DWORD cbSize;
    POEMUIPROCS pOemUIProcs;
};
using POEMUIOBJ = OEMUIOBJ*;

struct OEMCUIPPARAM;
using POEMCUIPPARAM = OEMCUIPPARAM*;
using OEMCUIPCALLBACK = LONG(APIENTRY*)(PCPSUICBPARAM, POEMCUIPPARAM);

struct OEMCUIPPARAM {
    DWORD cbSize;
    POEMUIOBJ poemuiobj;
    HANDLE hPrinter;
    PWSTR pPrinterName;
    HANDLE hModule;
    HANDLE hOEMHeap;
    PDEVMODE pPublicDM;
    PVOID pOEMDM;
    DWORD dwFlags;
    POPTITEM pDrvOptItems;
    DWORD cDrvOptItems;
    POPTITEM pOEMOptItems;
    DWORD cOEMOptItems;
    PVOID pOEMUserData;
    OEMCUIPCALLBACK OEMCUIPCallback;
};

struct OEMUIPSPARAM {
    DWORD cbSize;
    POEMUIOBJ poemuiobj;
    HANDLE hPrinter;
    PWSTR pPrinterName;
    HANDLE hModule;
    HANDLE hOEMHeap;
    PDEVMODE pPublicDM;
    PVOID pOEMDM;
    PVOID pOEMUserData;
    DWORD dwFlags;
    PVOID pOemEntry;
};
using POEMUIPSPARAM = OEMUIPSPARAM*;

struct DEVQUERYPRINT_INFO;
using PDEVQUERYPRINT_INFO = DEVQUERYPRINT_INFO*;

// {ABCE80D7-9F46-11D1-882A-00C04FB961EC}: every user interface plug-in has this class id.
inline constexpr CLSID CLSID_OEMUI = {0xABCE80D7, 0x9F46, 0x11D1, {0x88, 0x2A, 0x00, 0xC0, 0x4F, 0xB9, 0x61, 0xEC}};
// {C6A7A9D0-774C-11D1-947F-00A0C90640B8}
inline constexpr IID IID_IPrintOemUI = {0xC6A7A9D0, 0x774C, 0x11D1, {0x94, 0x7F, 0x00, 0xA0, 0xC9, 0x06, 0x40, 0xB8}};
// {92B05D50-78BC-11D1-9480-00A0C90640B8}
inline constexpr IID IID_IPrintOemDriverUI = {
    0x92B05D50, 0x78BC, 0x11D1, {0x94, 0x80, 0x00, 0xA0, 0xC9, 0x06, 0x40, 0xB8}};

struct IPrintOemCommon : IUnknown {
    virtual HRESULT STDMETHODCALLTYPE GetInfo(DWORD dwMode, PVOID pBuffer, DWORD cbSize, PDWORD pcbNeeded) = 0;
    virtual HRESULT STDMETHODCALLTYPE DevMode(DWORD dwMode, POEMDMPARAM pOemDMParam) = 0;

protected:
    ~IPrintOemCommon() = default;
};

// The plug-in, as the host calls it.
struct IPrintOemUI : IPrintOemCommon {
    virtual HRESULT STDMETHODCALLTYPE PublishDriverInterface(IUnknown* pIUnknown) = 0;
    virtual HRESULT STDMETHODCALLTYPE CommonUIProp(DWORD dwMode, POEMCUIPPARAM pOemCUIPParam) = 0;
    virtual HRESULT STDMETHODCALLTYPE DocumentPropertySheets(PPROPSHEETUI_INFO pPSUIInfo, LPARAM lParam) = 0;
    virtual HRESULT STDMETHODCALLTYPE DevicePropertySheets(PPROPSHEETUI_INFO pPSUIInfo, LPARAM lParam) = 0;
    virtual HRESULT STDMETHODCALLTYPE DevQueryPrintEx(POEMUIOBJ poemuiobj, PDEVQUERYPRINT_INFO pDQPInfo,
                                                      PDEVMODE pPublicDM, PVOID pOEMDM) = 0;
    virtual HRESULT STDMETHODCALLTYPE DeviceCapabilities(POEMUIOBJ poemuiobj, HANDLE hPrinter, PWSTR pDeviceName,
                                                         WORD wCapability, PVOID pOutput, PDEVMODE pPublicDM,
                                                         PVOID pOEMDM, DWORD dwOld, DWORD* dwResult) = 0;
    virtual HRESULT STDMETHODCALLTYPE UpgradePrinter(DWORD dwLevel, PBYTE pDriverUpgradeInfo) = 0;
    virtual HRESULT STDMETHODCALLTYPE PrinterEvent(PWSTR pPrinterName, INT iDriverEvent, DWORD dwFlags,
                                                   LPARAM lParam) = 0;
    virtual HRESULT STDMETHODCALLTYPE DriverEvent(DWORD dwDriverEvent, DWORD dwLevel, LPBYTE pDriverInfo,
                                                  LPARAM lParam) = 0;
    virtual HRESULT STDMETHODCALLTYPE QueryColorProfile(HANDLE hPrinter, POEMUIOBJ poemuiobj, PDEVMODE pPublicDM,
                                                        PVOID pOEMDM, ULONG ulQueryMode, void* pvProfileData,
                                                        ULONG* pcbProfileData, FLONG* pflProfileData) = 0;
    virtual HRESULT STDMETHODCALLTYPE FontInstallerDlgProc(HWND hWnd, UINT usMsg, WPARAM wParam, LPARAM lParam) = 0;
    virtual HRESULT STDMETHODCALLTYPE UpdateExternalFonts(HANDLE hPrinter, HANDLE hHeap, PWSTR pwstrCartridges) = 0;

protected:
    ~IPrintOemUI() = default;
};

// The host's services for the plug-in.
struct IPrintOemDriverUI : IUnknown {
    virtual HRESULT STDMETHODCALLTYPE DrvGetDriverSetting(PVOID pci, LPCSTR Feature, PVOID pOutput, DWORD cbSize,
                                                          PDWORD pcbNeeded, PDWORD pdwOptionsReturned) = 0;
    virtual HRESULT STDMETHODCALLTYPE DrvUpgradeRegistrySetting(HANDLE hPrinter, LPCSTR pFeature, LPCSTR pOption) = 0;
    virtual HRESULT STDMETHODCALLTYPE DrvUpdateUISetting(PVOID pci, PVOID pOptItem, DWORD dwPreviousSelection,
                                                         DWORD dwMode) = 0;

protected:
    ~IPrintOemDriverUI() = default;
};

#endif
