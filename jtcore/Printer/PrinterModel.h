// What is known about a printer before any capability file has been read. A small value that never changes.
#pragma once

#include "jtcore/FeatureSettings/Feature.h"
#include "jtcore/FeatureSettings/FeatureId.h"
#include "jtcore/Printer/PrinterTables.h"
#include "jtcore/Printer/TicketForm.h"

#include <cstddef>
#include <cstdint>
#include <memory>
#include <string_view>
#include <vector>

class FeatureSettings;
class Settings;

class PrinterModel {
public:
    // The model of an installed driver. Raises IndexOutOfBoundsException when the name is none of ours.
    static std::unique_ptr<PrinterModel> createFromDriverName(std::u16string_view driverName);
    // Raises IndexOutOfBoundsException when there is no such model.
    PrinterModel(std::int32_t model, PrinterLanguage language);

    std::unique_ptr<PrinterModel> clone() const { return std::make_unique<PrinterModel>(*this); }

    std::int32_t getModel() const noexcept { return model_; }
    PrinterLanguage getLanguage() const noexcept { return language_; }
    // The whole row of the printer's family.
    const PrinterFamilyInfo& getFamily() const noexcept { return printerFamilies()[familyRow_]; }

    // The resource that holds the capabilities the printer comes with.
    std::int32_t getCapabilityResourceId(TicketForm form) const noexcept;
    // Writes what the model says into a list of capabilities, over what stands there, and appends the features that the
    // model does not have whatever a capability file says. Raises AttributeTypeMismatchException when one of these
    // capabilities stands there in another shape.
    void applyCapabilities(Settings& capabilities, std::vector<FeatureId>& unsupported) const;
    // Adds the model's part of the settings that a job starts with.
    void applyModelDefaults(FeatureSettings& settings, TicketForm form) const;
    // Whether a job may leave the feature unset. The parent is the collection that the feature stands in, or
    // noParentFeature.
    bool isUnspecifiedAllowed(Feature feature, Feature parent, TicketForm form) const noexcept;
    // Whether a job that is printed and saved may be saved as TIFF.
    bool isTiffAllowedWithPrintSave() const noexcept;

    bool hasTicketFormChoice() const noexcept { return getFamily().hasTicketFormChoice; }
    bool separateCoversAllowed() const noexcept { return getFamily().separateCoversAllowed; }
    bool multipleMediaAllowed() const noexcept { return getFamily().multipleMediaAllowed; }
    bool unspecifiedAllowed() const noexcept { return getFamily().unspecifiedAllowed; }
    bool embeddedSpacesAllowed() const noexcept { return getFamily().embeddedSpacesAllowed; }
    std::int32_t pageLimit() const noexcept { return getFamily().pageLimit; }
    std::int32_t jobNameLimit() const noexcept { return getFamily().jobNameLimit; }
    std::int32_t jobNameCharacters() const noexcept { return getFamily().jobNameCharacters; }
    std::int32_t accountLimit() const noexcept { return getFamily().accountLimit; }
    std::int32_t accountMinimum() const noexcept { return getFamily().accountMinimum; }
    std::int32_t accountCharacters() const noexcept { return getFamily().accountCharacters; }
    std::int32_t senderNameLimit() const noexcept { return getFamily().senderNameLimit; }
    std::int32_t recipientNameLimit() const noexcept { return getFamily().recipientNameLimit; }
    std::int32_t sheetMessageLimit() const noexcept { return getFamily().sheetMessageLimit; }
    std::int32_t operatorMessageLimit() const noexcept { return getFamily().operatorMessageLimit; }
    std::int32_t phoneNumberLimit() const noexcept { return getFamily().phoneNumberLimit; }
    std::int32_t mediaColorLimit() const noexcept { return getFamily().mediaColorLimit; }
    std::int32_t imageShiftPrecision() const noexcept { return getFamily().imageShiftPrecision; }

    // The position of a row in its table. Each raises IndexOutOfBoundsException when there is none.
    static std::size_t getDriverInfoIndex(std::u16string_view driverName);
    static std::size_t getModelInfoIndex(std::int32_t model);
    static std::size_t getFamilyInfoIndex(std::int32_t family);

private:
    std::int32_t model_;
    PrinterLanguage language_;
    std::size_t modelRow_;
    std::size_t familyRow_;
};
