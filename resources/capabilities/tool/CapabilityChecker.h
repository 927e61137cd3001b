// The statements about everything but single stocks.
#pragma once

#include "resources/capabilities/tool/JobStart.h"
#include "resources/capabilities/tool/checkCapabilities.h"

#include "jtcore/Printer/PrinterModel.h"

#include <string>

class CapabilityChecker {
public:
    CapabilityChecker(const ComposedData& data, const PrinterModel& model, FaultList& faults);

    void check();

private:
    void checkLists();
    void checkNames();
    void checkName(const std::string& capability, Feature feature, const std::u16string& text);
    void checkPairs();
    void checkModelLimits();
    void checkPageRange(const std::string& name);
    void checkStorage();
    void checkUserDefined();
    void checkUserDefined(Feature feature, const std::string& name);
    void checkMembers();
    void checkMembers(const std::string& name, const Statement& statement);
    void checkSizes();
    void checkFixedSize(const AttrValue& entry, const AttrValue& custom);
    void checkJobStart();
    void checkStartValue(const StartValue& start);
    void checkStartSizes();
    void checkRequired();
    void checkRequired(Feature feature, Feature level);

    bool startsWith(Feature feature) const;
    void fault(const std::string& key, const std::string& text);

    ComposedData data_;
    const PrinterModel* model_;
    FaultList* faults_;
    std::vector<StartValue> jobStart_;
};

// The statement that says which values a feature takes. Null when there is none.
const Statement* findValues(const Composition& composition, Feature feature);
// The range of custom sizes and the fixed ones hold a size, whichever way round it lies.
bool allowsSize(const Statement& sizes, const PaperSize& size);
// "21600 x 27900".
std::string describe(const PaperSize& size);
