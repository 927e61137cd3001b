#include "host/outputFile.h"

#include "host/commandFailure.h"
#include "jtcore/Services/AtomicFileWriter.h"

void writeOutputFile(const std::u16string& path, const ByteBuffer& bytes) {
    if (const DWORD error = replaceFile(path, bytes))
        raise<InWords<WriteFileException>>(u"The file \"%s\" could not be written (error %u). It is as it was.", path,
                                           error);
}
