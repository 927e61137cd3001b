#include "plugin_ui/chooseCapabilityFile.h"

#include "jtcore/Services/KolmaException.h"
#include "jtcore/Services/ResourceData.h"
#include "jtcore/Services/ResourceLibrary.h"
#include "jtcore/Services/UserMessage.h"
#include "platform/common_dialogs.h"
#include "resources/ids.h"

#include <cstring>

namespace {

// Room for every path that a system can have, so that one that is too long for us can be told from none.
constexpr DWORD pathRoom = 32768;

// Ended by an empty pair, whatever the resource ends with.
std::u16string loadFilter(const ResourceLibrary& library) {
    ResourceData data(IDR_CAPABILITY_FILE_FILTER);
    library.loadRawData(data);
    std::u16string filter(data.getResourceSize() / sizeof(char16_t) + 2, u'\0');
    std::memcpy(filter.data(), data.getResourceData(), data.getResourceSize() / sizeof(char16_t) * sizeof(char16_t));
    return filter;
}

// An empty path on cancel.
std::u16string runDialog(HWND window, const std::u16string& preset) {
    const ResourceLibrary library;
    const std::u16string filter = loadFilter(library);
    const std::u16string extension = library.getString(IDS_CAPABILITY_FILE_EXTENSION);
    std::u16string path = preset.substr(0, pathRoom - 1);
    path.resize(pathRoom);
    OPENFILENAMEW dialog{};
    dialog.lStructSize = sizeof dialog;
    dialog.hwndOwner = window;
    dialog.lpstrFilter = toWide(filter);
    dialog.nFilterIndex = 1;
    dialog.lpstrFile = toWide(path.data());
    dialog.nMaxFile = pathRoom;
    dialog.Flags = OFN_FILEMUSTEXIST | OFN_HIDEREADONLY | OFN_EXPLORER | OFN_DONTADDTORECENT;
    dialog.lpstrDefExt = toWide(extension);
    if (GetOpenFileNameW(&dialog)) return path.substr(0, path.find(u'\0'));
    if (const DWORD error = CommDlgExtendedError(); error != 0)
        raise<ResourceAcquisitionException>(
            u"chooseCapabilityFile(): The file dialog could not be shown. Error: %ld.\r\n", error);
    return {};
}

} // namespace

bool chooseCapabilityFile(HWND window, std::u16string& fileName) {
    std::u16string path = runDialog(window, fileName);
    if (path.empty()) return false;
    if (path.size() > maximumCapabilityPath) {
        UserMessage(window, IDS_CAPTION_PRINTER_PROPERTIES, IDS_CAPABILITY_FILE_PATH_TOO_LONG).show();
        return false;
    }
    fileName = std::move(path);
    return true;
}
