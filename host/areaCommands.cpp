#include "host/areaCommands.h"

#include "host/AreaFile.h"
#include "host/ExitCode.h"
#include "host/PlugIn.h"
#include "host/PrinterHandle.h"
#include "host/output.h"
#include "jtcore/Services/formatMessage.h"

int runAreaCommand(unsigned mode, const std::u16string& printer, const std::u16string& input,
                   const std::u16string& output) {
    const bool hasInput = mode != OEMDM_DEFAULT;
    const KolmaDmType in = hasInput ? readAreaFile(input) : absentArea();
    KolmaDmType out = hasInput ? readAreaFileIfThere(output) : absentArea();
    if (hasInput && !hasOurHeader(in))
        printError(formatMessage(u"The area in \"%s\" is not of this driver and counts as absent.", input));
    const PrinterHandle handle(printer);
    PlugIn().runDevMode(mode, handle.get(), hasInput ? &in : nullptr, out);
    writeAreaFile(output, out);
    return exitDone;
}
