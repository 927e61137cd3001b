// Paths, and what a failed system call on one means in published error numbers.
#pragma once

#include "platform/types.h"

#include <string>

// The platform's form of a published path: UTF-8, '\' turned into '/'. Fails with ERROR_PATH_NOT_FOUND on an empty
// one and with ERROR_INVALID_NAME on what is no text.
std::string toPath(LPCWSTR path);
// The folder that a path lies in: "." for a bare name.
std::string folderOf(const std::string& path);
// The last part of a path.
std::string nameOf(const std::string& path);
// The path with every symbolic link followed. Fails as a call on the path would.
std::string resolvedPath(const std::string& path);
// Makes the folder and those above it, for this user only.
void makeFolders(const std::string& path);

// errno in published terms; `ofTransfer` stands for EIO.
DWORD errorOfErrno(int number, DWORD ofTransfer = ERROR_GEN_FAILURE) noexcept;
// Fails with errno's meaning for a call on a path: ENOENT tells a missing file from a missing folder.
[[noreturn]] void failOnPath(const std::string& path);
[[noreturn]] void failByErrno(DWORD ofTransfer = ERROR_GEN_FAILURE);
