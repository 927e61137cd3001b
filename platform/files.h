// Files. A path takes '/' and '\' as separators alike; text that is no UTF-16 (an unpaired surrogate) is refused with
// ERROR_INVALID_NAME. A file handle is for regular files only: a folder, a pipe or a device is refused at once with
// ERROR_ACCESS_DENIED, so nothing here ever waits for another program.
#pragma once

#include "platform/types.h"

#ifdef _WIN32

#include <windows.h>

#else

inline constexpr DWORD GENERIC_READ = 0x80000000;
inline constexpr DWORD GENERIC_WRITE = 0x40000000;

// Read and checked for form only: other programs are never locked out.
inline constexpr DWORD FILE_SHARE_READ = 1;
inline constexpr DWORD FILE_SHARE_WRITE = 2;
inline constexpr DWORD FILE_SHARE_DELETE = 4;

inline constexpr DWORD CREATE_NEW = 1;
inline constexpr DWORD CREATE_ALWAYS = 2;
inline constexpr DWORD OPEN_EXISTING = 3;
inline constexpr DWORD OPEN_ALWAYS = 4;
inline constexpr DWORD TRUNCATE_EXISTING = 5;

inline constexpr DWORD FILE_ATTRIBUTE_READONLY = 0x01;
inline constexpr DWORD FILE_ATTRIBUTE_DIRECTORY = 0x10;
inline constexpr DWORD FILE_ATTRIBUTE_NORMAL = 0x80;
inline constexpr DWORD INVALID_FILE_ATTRIBUTES = 0xFFFFFFFF;
inline constexpr DWORD INVALID_FILE_SIZE = 0xFFFFFFFF;

inline constexpr DWORD MOVEFILE_REPLACE_EXISTING = 1;
inline constexpr DWORD MOVEFILE_WRITE_THROUGH = 8;
inline constexpr DWORD REPLACEFILE_WRITE_THROUGH = 1;
inline constexpr DWORD REPLACEFILE_IGNORE_MERGE_ERRORS = 2;

union LARGE_INTEGER {
    struct {
        DWORD LowPart;
        LONG HighPart;
    } u;
    LONGLONG QuadPart;
};
using PLARGE_INTEGER = LARGE_INTEGER*;

struct OVERLAPPED;
using LPOVERLAPPED = OVERLAPPED*;

extern "C" {

// INVALID_HANDLE_VALUE on failure. CREATE_NEW fails with ERROR_FILE_EXISTS on whatever bears the name, a dangling
// symbolic link too.
KOLMA_PLATFORM_API HANDLE WINAPI CreateFileW(LPCWSTR lpFileName, DWORD dwDesiredAccess, DWORD dwShareMode,
                                             LPSECURITY_ATTRIBUTES lpSecurityAttributes, DWORD dwCreationDisposition,
                                             DWORD dwFlagsAndAttributes, HANDLE hTemplateFile);
// The low half of the size, the high half in *lpFileSizeHigh (may be null). INVALID_FILE_SIZE is a failure only when
// the last error says so, as published: a file of 2^32 - 1 bytes has that low half too.
KOLMA_PLATFORM_API DWORD WINAPI GetFileSize(HANDLE hFile, LPDWORD lpFileSizeHigh);
KOLMA_PLATFORM_API BOOL WINAPI GetFileSizeEx(HANDLE hFile, PLARGE_INTEGER lpFileSize);
// Reads until the wanted number or the end of the file. lpOverlapped must be null.
KOLMA_PLATFORM_API BOOL WINAPI ReadFile(HANDLE hFile, LPVOID lpBuffer, DWORD nNumberOfBytesToRead,
                                        LPDWORD lpNumberOfBytesRead, LPOVERLAPPED lpOverlapped);
// Writes all or fails; *lpNumberOfBytesWritten tells how far it came in both cases. lpOverlapped must be null.
KOLMA_PLATFORM_API BOOL WINAPI WriteFile(HANDLE hFile, LPCVOID lpBuffer, DWORD nNumberOfBytesToWrite,
                                         LPDWORD lpNumberOfBytesWritten, LPOVERLAPPED lpOverlapped);
// When it has succeeded the bytes are on the medium.
KOLMA_PLATFORM_API BOOL WINAPI FlushFileBuffers(HANDLE hFile);
// Files and tokens. A handle is gone after this call, also when it fails because late bytes did not reach the medium.
KOLMA_PLATFORM_API BOOL WINAPI CloseHandle(HANDLE hObject);

KOLMA_PLATFORM_API BOOL WINAPI DeleteFileW(LPCWSTR lpFileName);
// One step: at no moment is there neither file or half of one under the new name. Without MOVEFILE_REPLACE_EXISTING an
// existing target gives ERROR_ALREADY_EXISTS. With MOVEFILE_WRITE_THROUGH the move is on the medium at return.
KOLMA_PLATFORM_API BOOL WINAPI MoveFileExW(LPCWSTR lpExistingFileName, LPCWSTR lpNewFileName, DWORD dwFlags);
// Puts the replacement in the replaced file's place in one step, on the medium at return. The new file has the mode
// and, as far as the user may give it, the owner and group of the old one; a symbolic link stays and the file behind
// it is replaced. A read-only replaced file gives ERROR_ACCESS_DENIED. The old file is kept under lpBackupFileName
// (may be null; an earlier backup of that name goes). A failure leaves the replaced file as it was, except that of the
// last flush: the new file stands then, but may not outlive a loss of power.
KOLMA_PLATFORM_API BOOL WINAPI ReplaceFileW(LPCWSTR lpReplacedFileName, LPCWSTR lpReplacementFileName,
                                            LPCWSTR lpBackupFileName, DWORD dwReplaceFlags, LPVOID lpExclude,
                                            LPVOID lpReserved);
KOLMA_PLATFORM_API DWORD WINAPI GetFileAttributesW(LPCWSTR lpFileName);
}

#endif
