// Printers, the data that is kept for each of them, and where the driver lies. Printer names compare without case.
#pragma once

#include "platform/driver_host.h"
#include "platform/registry.h"
#include "platform/types.h"

#ifdef _WIN32

#include <winspool.h>

#else

inline constexpr DWORD PRINTER_ACCESS_ADMINISTER = 0x00000004;
inline constexpr DWORD PRINTER_ACCESS_USE = 0x00000008;
inline constexpr DWORD PRINTER_ALL_ACCESS = 0x000F000C;

inline constexpr DWORD PRINTER_ENUM_LOCAL = 2;
inline constexpr DWORD PRINTER_ENUM_ICON8 = 0x00800000;
inline constexpr DWORD PRINTER_ATTRIBUTE_LOCAL = 0x00000040;

struct PRINTER_DEFAULTSW {
    LPWSTR pDatatype;
    LPDEVMODEW pDevMode;
    DWORD DesiredAccess;
};
using LPPRINTER_DEFAULTSW = PRINTER_DEFAULTSW*;

struct PRINTER_INFO_1W {
    DWORD Flags;
    LPWSTR pDescription;
    LPWSTR pName;
    LPWSTR pComment;
};

struct PRINTER_INFO_2W {
    LPWSTR pServerName;
    LPWSTR pPrinterName;
    LPWSTR pShareName;
    LPWSTR pPortName;
    LPWSTR pDriverName;
    LPWSTR pComment;
    LPWSTR pLocation;
    LPDEVMODEW pDevMode;
    LPWSTR pSepFile;
    LPWSTR pPrintProcessor;
    LPWSTR pDatatype;
    LPWSTR pParameters;
    PSECURITY_DESCRIPTOR pSecurityDescriptor;
    DWORD Attributes;
    DWORD Priority;
    DWORD DefaultPriority;
    DWORD StartTime;
    DWORD UntilTime;
    DWORD Status;
    DWORD cJobs;
    DWORD AveragePPM;
};

struct PRINTER_INFO_4W {
    LPWSTR pPrinterName;
    LPWSTR pServerName;
    DWORD Attributes;
};

struct DRIVER_INFO_1W {
    LPWSTR pName;
};

struct DRIVER_INFO_2W {
    DWORD cVersion;
    LPWSTR pName;
    LPWSTR pEnvironment;
    LPWSTR pDriverPath;
    LPWSTR pDataFile;
    LPWSTR pConfigFile;
};

extern "C" {

// ERROR_INVALID_PRINTER_NAME when there is no such printer. A caller that asks for access (pDefault) without
// PRINTER_ACCESS_ADMINISTER may not change the printer's data; one that asks for nothing in particular may.
KOLMA_PLATFORM_API BOOL WINAPI OpenPrinterW(LPWSTR pPrinterName, LPHANDLE phPrinter, LPPRINTER_DEFAULTSW pDefault);
KOLMA_PLATFORM_API BOOL WINAPI ClosePrinter(HANDLE hPrinter);

// The three calls on printer data return an error number. Value names compare without case.
// GetPrinterDataW: ERROR_MORE_DATA when the buffer (may be null with nSize 0) is too small, *pcbNeeded being the size;
// ERROR_FILE_NOT_FOUND and *pcbNeeded 0 when the value is not there.
KOLMA_PLATFORM_API DWORD WINAPI GetPrinterDataW(HANDLE hPrinter, LPWSTR pValueName, LPDWORD pType, LPBYTE pData,
                                                DWORD nSize, LPDWORD pcbNeeded);
KOLMA_PLATFORM_API DWORD WINAPI SetPrinterDataW(HANDLE hPrinter, LPWSTR pValueName, DWORD Type, LPBYTE pData,
                                                DWORD cbData);
KOLMA_PLATFORM_API DWORD WINAPI DeletePrinterDataW(HANDLE hPrinter, LPWSTR pValueName);

// Levels 1 and 2, the strings lying behind the structure. ERROR_INSUFFICIENT_BUFFER and the size in *pcbNeeded when the
// buffer is too small. Environments: none, "Windows NT x86", "Windows x64", all with the same answer.
KOLMA_PLATFORM_API BOOL WINAPI GetPrinterDriverW(HANDLE hPrinter, LPWSTR pEnvironment, DWORD Level, LPBYTE pDriverInfo,
                                                 DWORD cbBuf, LPDWORD pcbNeeded);
// The folder whose subfolder "3" holds the driver's files, without a separator at the end. Level 1.
KOLMA_PLATFORM_API BOOL WINAPI GetPrinterDriverDirectoryW(LPWSTR pName, LPWSTR pEnvironment, DWORD Level,
                                                          LPBYTE pDriverDirectory, DWORD cbBuf, LPDWORD pcbNeeded);

// Level 2, of which pPrinterName and pDriverName are kept. The result is an open handle with all access, null on
// failure (ERROR_PRINTER_ALREADY_EXISTS, ERROR_UNKNOWN_PRINTER_DRIVER for an empty driver name).
KOLMA_PLATFORM_API HANDLE WINAPI AddPrinterW(LPWSTR pName, DWORD Level, LPBYTE pPrinter);
// Removes the printer with its data. The handle must still be closed; every other use of it, and of other handles to
// that printer, gives ERROR_PRINTER_DELETED.
KOLMA_PLATFORM_API BOOL WINAPI DeletePrinter(HANDLE hPrinter);
// Levels 1, 2 and 4, in the order of the names.
KOLMA_PLATFORM_API BOOL WINAPI EnumPrintersW(DWORD Flags, LPWSTR Name, DWORD Level, LPBYTE pPrinterEnum, DWORD cbBuf,
                                             LPDWORD pcbNeeded, LPDWORD pcReturned);
}

#endif
