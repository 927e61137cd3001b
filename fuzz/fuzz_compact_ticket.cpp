// Any bytes as the settings text of a state: it is read, or it is refused with a failure of the family. What was read
// can be written and read again, and what the quick way reads, the library reads alike.
#include "jtcore/AnlXlate/SmallJtifTranslator.h"
#include "jtcore/JtifParse/KolmaXmlDataStream.h"
#include "jtcore/JtifParse/compactText.h"
#include "jtcore/Services/KolmaException.h"

#include <cstdint>
#include <cstdlib>

namespace {

// A failure of the library on what the quick way has read leaves as an exception, and ends the run.
void holdAgainstTheLibrary(const ByteBuffer& text) {
    AttrNodeList quick;
    if (!readCompactText(text, quick)) return;
    AttrNodeList library;
    KolmaXmlDataStream stream(XmlDataType::compactTicket);
    stream.setBuffer(text.getData(), text.getSize());
    stream.read(library);
    if (!quick.equals(library)) std::abort();
}

} // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    holdAgainstTheLibrary(ByteBuffer(data, size));
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
