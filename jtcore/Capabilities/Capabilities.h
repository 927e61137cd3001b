// What one printer can do, and whether a job is within it.
//
// Built once for a printer from one source and the printer's model; from then on it is read only. No question changes
// anything, and all of them may be asked again. A statement that stands in the list in another shape than the table
// says (a number for a list, a text for a boolean) counts as missing where a question has an answer for that.
#pragma once

#include "jtcore/Capabilities/CapabilityIndex.h"
#include "jtcore/Capabilities/FactoryCapabilities.h"
#include "jtcore/FeatureSettings/CapabilityId.h"
#include "jtcore/FeatureSettings/FeatureSettings.h"
#include "platform/types.h"

#include <cstdint>
#include <memory>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

class ImportedCapabilities;
class PrinterDefaults;
class SettingsProblemList;
class SettingsProblemReporter;
class StockList;

class Capabilities {
public:
    // Of the imported file when the printer has one, and of the factory's resource otherwise; the two are never mixed.
    // The model's limits come on top of either. Raises what the source raises, and what applyModelLimits() raises.
    Capabilities(const PrinterModel& model, TicketForm form, const ImportedCapabilities& imported);
    // Of exactly this source.
    Capabilities(const PrinterModel& model, TicketForm form, const CapabilitySource& source);
    Capabilities(const Capabilities&) = delete;
    Capabilities& operator=(const Capabilities&) = delete;
    ~Capabilities();

    // What printers in general can do, with everything that the other one can do besides: for a stock that is looked at
    // without a printer's limits. Raises as the constructors.
    static std::unique_ptr<Capabilities> makeGenericCapabilities(const Capabilities& other);

    const PrinterModel& getPrinterModel() const noexcept { return model_; }
    TicketForm getTicketForm() const noexcept { return form_; }
    const Settings& getSettings() const noexcept { return capabilities_; }
    const AttrNodeList& getAttrNodeList() const noexcept { return capabilities_.getAttrNodeList(); }

    // Whether the job may have the feature: at its top level, by a statement of its own, or as a member of a collection
    // that it may have.
    bool isFeatureSupported(const FeatureId& feature) const;
    // Whether the collection may have the member, at whatever depth. False when no list of its members is known.
    bool isMemberSupported(const FeatureId& parent, const FeatureId& member) const;
    // False when nothing is said.
    bool isCapabilityTrue(const FeatureId& feature) const;
    // Whether the user may give a value of his own.
    bool isUserDefinedAllowed(const FeatureId& feature) const;
    // Whether the feature may stay unset. The parent is the collection it stands in, or noParentFeature.
    bool isUnspecifiedAllowed(const FeatureId& feature, Feature parent = noParentFeature) const;
    // True when nothing is said, all three.
    bool allowsEmbeddedSpaces(const FeatureId& feature) const;
    bool allowsSeparateCovers() const;
    bool allowsMultipleInsertMedia() const;

    // From the smallest lower to the largest upper bound of the allowed ranges; gaps between them are not told.
    // Each of these raises MissingCapabilityDataException when the capability is missing,
    // AttributeTypeMismatchException when it has another shape, and UnknownFeatureRequestException when the feature can
    // have none.
    void getFeatureCapabilities(const FeatureId& feature, std::int32_t& lower, std::int32_t& upper) const;
    std::int32_t getUpperLimit(const FeatureId& feature) const;
    std::int32_t getPrecision(const FeatureId& feature) const;
    std::int32_t getCharacterSetRestriction(const FeatureId& feature) const;
    StockSizeRange getStockSizeRange() const;

    // Appends the allowed values, "not set" among them where the feature may stay unset, and sorts the whole vector.
    // Values that the system cannot make sense of are left out.
    void getFeatureCapabilities(const FeatureId& feature, Feature parent, std::vector<FeatureValue>& values) const;
    // Appends no size where the size may stay unset, the named sizes that the printer takes in the order of their
    // table, and the custom size last. Raises as getStockSizeRange().
    void getSupportedStockSizes(Feature parent, std::vector<StockSize>& sizes) const;
    // Appends an empty one where the resolution may stay unset, and those that the printer has.
    void getSupportedResolutions(Feature parent, std::vector<Resolution>& resolutions) const;
    // The stocks that the printer knows; none when the capabilities tell of none.
    std::unique_ptr<StockList> getPrinterStocks() const;

    // Whether the attribute is a collection whose members count as features of their own, like a small job.
    bool isNestedFeature(std::u16string_view attributeId) const;

    // The top-level node "<attributeId>-supported", or null. The cost does not depend on the size of the list.
    const AttrNode* findSupported(std::u16string_view attributeId) const;
    const AttrNode* findSupported(Feature feature) const;
    // The top-level node that a row of the table is or lies in, or null, at the same cost.
    const AttrNode* findCapability(const CapabilityInfo& row) const;
    // The list inside a list capability; null when there is none.
    const AttrNodeList* getCapabilityList(const CapabilityId& id) const;
    // True when the list holds the id as a keyword "value" that is not private. False for a null list.
    static bool isKeywordInList(std::u16string_view attributeId, const AttrNodeList* list);
    // The same; for a list of these capabilities the cost does not depend on its length.
    bool hasKeyword(const AttrNodeList* list, std::u16string_view attributeId) const;
    // The features that a list of keywords names, in its order.
    std::vector<Feature> getListedFeatures(const AttrNodeList& list) const;

    // Validation. `problems` gets the settings' list as its root and one entry for each thing that the printer cannot
    // do; the settings stay as they are. True when there is none. Attributes that the tables do not know, capabilities
    // that are missing, and judgements that fail count as allowed.
    //
    // The feature is the collection that the settings are the members of, noParentFeature for a whole job. `required`
    // are the features that must be there; null finds them out.
    bool validateSettings(FeatureSettings& settings, SettingsProblemList& problems, Feature feature = noParentFeature,
                          const std::vector<FeatureId>* required = nullptr) const;
    // The same for the media and media-col of one stock.
    bool validateStock(FeatureSettings& settings, SettingsProblemList& problems, Feature feature) const;
    // Validates a whole job, and repairs it if the user agrees. False, and the settings as they were, when not.
    bool validateAndResolve(FeatureSettings& settings, const PrinterDefaults& defaults, bool& hadProblems,
                            SettingsProblemReporter& reporter) const;
    bool validateAndResolve(FeatureSettings& settings, const PrinterDefaults& defaults, bool& hadProblems, HWND window,
                            std::uint16_t titleId, const std::u16string& fileName, bool detailed) const;
    // Whether a value is one of those that a capability names. `userDefined` may be null.
    bool compareAttrValues(std::u16string_view attributeId, const AttrValue& tested, const AttrValue& supported,
                           const AttrNodeList* userDefined) const;

private:
    // The steps of the construction behind the loading.
    void finishLoading();
    void removeFeature(const FeatureId& feature);
    void adjustMedia();
    void appendKeyword(const CapabilityId& list, std::u16string_view keyword);
    void buildIndex();

    // The default when the capability has no row, is missing or is no boolean.
    bool readBoolean(Feature feature, CapabilityType type, bool defaultAnswer) const;
    bool isListed(Feature listOwner, CapabilityType listType, const FeatureId& feature) const;

    PrinterModel model_;
    TicketForm form_;
    FactoryCapabilities factory_;
    Settings capabilities_;
    std::vector<FeatureId> nestedFeatures_;
    std::optional<CapabilityIndex> index_; // of the finished list
};
