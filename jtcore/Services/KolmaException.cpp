#include "jtcore/Services/KolmaException.h"

#include "jtcore/Services/text.h"
#include "jtcore/Services/trace.h"

#include <utility>

namespace {

// What a raising site has said of the next raise. Each thread has its own, so that two failures at one moment cannot
// take each other's place in the source.
struct PendingRaise {
    const char* file = "";
    std::int32_t line = 0;
    std::uint32_t traceClass = traceClassDefault;
};

thread_local constinit PendingRaise pending;

} // namespace

KolmaException::KolmaException(std::u16string message)
    : file_(pending.file),
      line_(pending.line),
      traceClass_(pending.traceClass),
      message_(std::move(message)),
      narrowMessage_(toUtf8(message_)) {
    pending = {};
    traceRaise(file_, line_, traceClass_, message_);
}

KolmaException::~KolmaException() = default;

const char* KolmaException::what() const noexcept { return narrowMessage_.c_str(); }

std::u16string KolmaException::getFile() const { return fromUtf8(file_); }

void KolmaException::setFileAndLine(const char* file, std::int32_t line) noexcept {
    pending.file = file;
    pending.line = line;
}

void KolmaException::setTraceClass(std::uint32_t traceClass) noexcept { pending.traceClass = traceClass; }
