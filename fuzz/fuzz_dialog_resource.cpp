// Any bytes as a dialog template: refused, or whole; and what is handed out is taken again for the same template, alone
// and joined.
#include "jtcore/Services/DialogResource.h"
#include "jtcore/Services/KolmaException.h"

#include <cstdint>
#include <cstdlib>
#include <vector>

namespace {

using Bytes = std::vector<std::uint8_t>;

Bytes handedOut(const DialogResource& resource) {
    const std::uint8_t* data = resource.getResourceData();
    return {data, data + resource.getResourceSize()};
}

DialogResource loaded(const Bytes& bytes, bool hidden) {
    DialogResource resource(1, hidden);
    resource.resourceLoaded(resourceTypeDialog, bytes.size(), bytes.data());
    return resource;
}

void require(bool holds) {
    if (!holds) std::abort();
}

void checkAgain(const DialogResource& resource) {
    const Bytes whole = handedOut(resource);
    require(handedOut(loaded(whole, false)) == whole);
    require(loaded(whole, true).getItemCount() == resource.getItemCount());
}

} // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    try {
        // A copy of just that size, so that the sanitizer sees where it ends.
        DialogResource resource = loaded(Bytes(data, data + size), false);
        checkAgain(resource);
        const std::size_t count = resource.getItemCount();
        resource + resource;
        require(resource.getItemCount() == 2 * count);
        checkAgain(resource);
    } catch (const ResourceAcquisitionException&) {
        return 0;
    } catch (const ExceededNumberOfDlgItems&) {
        return 0;
    }
    return 0;
}
