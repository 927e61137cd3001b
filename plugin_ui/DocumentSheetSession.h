// One showing of the document's sheet, from the host's PROPSHEETUI_REASON_INIT to PROPSHEETUI_REASON_DESTROY: the media
// database, the context, the settings being edited and the page. On OK it writes the settings into the host's area,
// and nobody else does.
//
// Belongs to the host's user interface thread.
#pragma once

#include "jtcore/Services/ResourceLibrary.h"
#include "platform/driver_host.h"

#include <memory>

class KolmaDevMode;
class KolmaSettingsPropertySheetPage;
class Printer;
class PropertySheetInterface;
class StockInformation;
struct UIContext;

class DocumentSheetSession {
public:
    // The printer is borrowed for the object's life. Raises ResourceLibraryConstructionException.
    explicit DocumentSheetSession(Printer& printer);
    DocumentSheetSession(const DocumentSheetSession&) = delete;
    DocumentSheetSession& operator=(const DocumentSheetSession&) = delete;
    ~DocumentSheetSession();

    // Each reason of the host's; unknown ones are ignored. Raises what the operation raises.
    void handleReason(PROPSHEETUI_INFO& info, LPARAM lParam);

    // Builds everything and adds the page. A raise leaves what was built, to be destroyed with the session or built
    // anew; a session that has its page raises UnknownCaseException and goes on as it is.
    void initialize(const PROPSHEETUI_INFO& info, const OEMUIPSPARAM& param);
    // Stores the settings if the user accepted and the caller wants them. A raise leaves the host's area as it was.
    void setResult(PROPSHEETUI_INFO& info, const SETRESULT_INFO& result);

    // Read-only on and off. A user without permission stays locked out.
    void lockPage();
    void unlockPage();

private:
    void close() noexcept;
    void setReadOnly(bool readOnly);
    void store(const OEMUIPSPARAM& param);

    ResourceLibrary resourceLibrary_;
    Printer& printer_;
    bool hasPermission_ = true;
    // In this order, since each is used by those behind it.
    std::unique_ptr<StockInformation> stockInformation_;
    std::unique_ptr<UIContext> context_;
    std::unique_ptr<KolmaDevMode> settings_;
    std::unique_ptr<PropertySheetInterface> sheet_;
    std::unique_ptr<KolmaSettingsPropertySheetPage> page_;
};
