#include "host/tickets/FeatureLabels.h"

#include "jtcore/FeatureSettings/FeatureDataBase.h"
#include "jtcore/FeatureSettings/FeatureValueDataBase.h"
#include "jtcore/Services/KolmaException.h"

FeatureLabels::FeatureLabels() {
    try {
        library_.emplace();
    } catch (const ResourceLibraryConstructionException&) {
        library_.reset();
    }
}

std::u16string FeatureLabels::ofFeature(std::u16string_view attribute) const {
    const FeatureInfo* feature = FeatureDataBase::find(attribute);
    return feature ? load(feature->labelId) : std::u16string();
}

std::u16string FeatureLabels::ofValue(std::u16string_view attribute, std::u16string_view value) const {
    const FeatureInfo* feature = FeatureDataBase::find(attribute);
    const FeatureValueInfo* row = feature ? FeatureValueDataBase::find(feature->number, value) : nullptr;
    return row ? load(row->labelId) : std::u16string();
}

std::u16string FeatureLabels::load(std::uint16_t id) const {
    if (!library_ || id == 0) return {};
    try {
        return library_->getString(id);
    } catch (const ResourceAcquisitionException&) {
        return {};
    }
}
