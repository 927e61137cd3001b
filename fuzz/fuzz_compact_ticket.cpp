// Any bytes as the settings text of a state: it is read, or it is refused with a failure of the family. What was read
// can be written and read again.
#include "jtcore/AnlXlate/SmallJtifTranslator.h"
#include "jtcore/Services/KolmaException.h"

#include <cstdint>
#include <cstdlib>

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    const SmallJtifTranslator translator;
    AttrNodeList job;
    try {
        translator.bufferToAnl(ByteBuffer(data, size), job);
    } catch (const KolmaException&) {
        return 0;
    }
    ByteBuffer written;
    translator.anlToBuffer(job, written);
    AttrNodeList again;
    translator.bufferToAnl(written, again);
    if (again.getNumNodes() > job.getNumNodes()) std::abort();
    return 0;
}
