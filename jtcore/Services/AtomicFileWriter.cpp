#include "jtcore/Services/AtomicFileWriter.h"

#include "jtcore/Services/formatMessage.h"
#include "jtcore/Services/quietly.h"
#include "platform/files.h"

#include <algorithm>
#include <chrono>
#include <random>
#include <thread>
#include <utility>

namespace {

// Virus scanners and indexers hold a fresh file for a moment.
constexpr int replaceAttempts = 5;
constexpr auto replacePause = std::chrono::milliseconds(20);
constexpr int nameAttempts = 8;
constexpr std::size_t writeStep = std::size_t{1} << 30U;

bool isThere(const std::u16string& path) { return GetFileAttributesW(toWide(path)) != INVALID_FILE_ATTRIBUTES; }

// Surely not there, which is more than not to be seen.
bool isMissing(const std::u16string& path) { return !isThere(path) && GetLastError() == ERROR_FILE_NOT_FOUND; }

// Beside the target, so that it can take its place by a mere change of names, and short, so that a long name of the
// target cannot make it too long.
std::u16string makeTemporaryName(const std::u16string& path) {
    std::random_device device;
    std::u16string_view folder = std::u16string_view(path).substr(0, path.find_last_of(u"\\/") + 1);
    return formatMessage(u"%s.kolma-%08x%08x.tmp", folder, device(), device());
}

// After a replacement that failed. While both files stand under their own names nothing has happened, and the backup
// may be half a copy; otherwise it is the old file, and goes back.
void takeBack(const std::u16string& path, const std::u16string& temporary, const std::u16string& backup) {
    if (isMissing(path) || isMissing(temporary))
        MoveFileExW(toWide(backup), toWide(path), MOVEFILE_REPLACE_EXISTING | MOVEFILE_WRITE_THROUGH);
    if (isThere(path)) DeleteFileW(toWide(backup));
}

// 0 or the error number.
DWORD replaceExisting(const std::u16string& path, const std::u16string& temporary) {
    std::u16string backup = temporary + u".old";
    DWORD error = ERROR_SHARING_VIOLATION;
    for (int attempt = 0; attempt < replaceAttempts && error == ERROR_SHARING_VIOLATION; ++attempt) {
        if (attempt != 0) std::this_thread::sleep_for(replacePause);
        if (ReplaceFileW(toWide(path), toWide(temporary), toWide(backup), 0, nullptr, nullptr)) {
            DeleteFileW(toWide(backup));
            return ERROR_SUCCESS;
        }
        error = GetLastError();
        takeBack(path, temporary, backup);
    }
    return error;
}

} // namespace

AtomicFileWriter::AtomicFileWriter(std::u16string path) : path_(std::move(path)) {}

AtomicFileWriter::~AtomicFileWriter() {
    handle_.close();
    quietly([this] {
        if (!temporary_.empty()) DeleteFileW(toWide(temporary_));
    });
}

bool AtomicFileWriter::open() { return isTargetWritable() && createTemporary(); }

bool AtomicFileWriter::write(const void* data, std::size_t size) {
    lastWritten_ = 0;
    if (error_ != 0) return false;
    const auto* bytes = static_cast<const std::uint8_t*>(data);
    while (lastWritten_ < size) {
        auto step = static_cast<DWORD>(std::min(size - lastWritten_, writeStep));
        DWORD written = 0;
        bool done = WriteFile(handle_.get(), bytes + lastWritten_, step, &written, nullptr) != FALSE;
        lastWritten_ += written;
        if (!done) return fail(GetLastError());
        if (written != step) return fail(ERROR_WRITE_FAULT);
    }
    return true;
}

bool AtomicFileWriter::commit() {
    if (error_ != 0) return false;
    if (!FlushFileBuffers(handle_.get())) return fail(GetLastError());
    if (!handle_.close()) return fail(GetLastError());
    if (DWORD error = replaceTarget(); error != ERROR_SUCCESS) return fail(error);
    temporary_.clear();
    return true;
}

bool AtomicFileWriter::isTargetWritable() {
    DWORD attributes = GetFileAttributesW(toWide(path_));
    if (attributes == INVALID_FILE_ATTRIBUTES) {
        DWORD error = GetLastError();
        return error == ERROR_FILE_NOT_FOUND || fail(error);
    }
    if ((attributes & (FILE_ATTRIBUTE_READONLY | FILE_ATTRIBUTE_DIRECTORY)) != 0) return fail(ERROR_ACCESS_DENIED);
    FileHandle target(CreateFileW(toWide(path_), GENERIC_WRITE, FILE_SHARE_READ | FILE_SHARE_WRITE | FILE_SHARE_DELETE,
                                  nullptr, OPEN_EXISTING, FILE_ATTRIBUTE_NORMAL, nullptr));
    return target.isOpen() || fail(GetLastError());
}

bool AtomicFileWriter::createTemporary() {
    DWORD error = ERROR_FILE_EXISTS;
    for (int attempt = 0; attempt < nameAttempts && error == ERROR_FILE_EXISTS; ++attempt) {
        std::u16string name = makeTemporaryName(path_);
        handle_ = FileHandle(CreateFileW(toWide(name), GENERIC_WRITE, FILE_SHARE_READ, nullptr, CREATE_NEW,
                                         FILE_ATTRIBUTE_NORMAL, nullptr));
        if (handle_.isOpen()) {
            temporary_ = std::move(name);
            return true;
        }
        error = GetLastError();
        // It may have been made before it was refused; nobody else makes a file of that name.
        if (error != ERROR_FILE_EXISTS) DeleteFileW(toWide(name));
    }
    return fail(error);
}

DWORD AtomicFileWriter::replaceTarget() {
    if (isThere(path_)) return replaceExisting(path_, temporary_);
    return MoveFileExW(toWide(temporary_), toWide(path_), MOVEFILE_WRITE_THROUGH) ? ERROR_SUCCESS : GetLastError();
}

bool AtomicFileWriter::fail(DWORD error) {
    // A failure without a number is a failure still.
    error_ = error != ERROR_SUCCESS ? error : ERROR_GEN_FAILURE;
    return false;
}

DWORD replaceFile(const std::u16string& path, const ByteBuffer& bytes) {
    AtomicFileWriter writer(path);
    if (writer.open() && writer.write(bytes.getData(), bytes.getSize())) writer.commit();
    return writer.lastError();
}
