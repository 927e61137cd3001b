// Any bytes as a job ticket: it is read, or it is refused with a failure of the family. What was read can be written,
// or the failure says why not, and what was written can be read.
#include "jtcore/AnlXlate/JtifTranslator.h"
#include "jtcore/Services/KolmaException.h"

#include <cstdint>
#include <cstdlib>

namespace {

template <typename Work>
bool succeeds(Work work) {
    try {
        work();
        return true;
    } catch (const KolmaException&) {
        return false;
    }
}

} // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    const JtifTranslator translator;
    AttrNodeList job;
    if (!succeeds([&] { translator.bufferToAnl(ByteBuffer(data, size), job); })) return 0;
    ByteBuffer written;
    if (!succeeds([&] { translator.anlToBuffer(job, written); })) return 0;
    AttrNodeList again;
    if (!succeeds([&] { translator.bufferToAnl(written, again); })) std::abort();
    if (again.getNumNodes() > job.getNumNodes()) std::abort();
    return 0;
}
