// Settings that know of single features: paper size, collections within collections, and the clean-up of tickets in
// older forms.
#pragma once

#include "jtcore/FeatureSettings/Settings.h"
#include "jtcore/FeatureSettings/StockSize.h"

class FeatureSettings : public Settings {
public:
    using Settings::Settings;
    std::unique_ptr<Settings> clone() const override { return std::make_unique<FeatureSettings>(*this); }

    static FeatureSettings view(AttrNodeList* list) { return FeatureSettings(list); }

    // No size unless both dimensions are there.
    StockSize getStockSize() const;
    // Stores the short edge as x-dimension, whatever way round the size stands; no size erases both dimensions.
    void setStockSize(const StockSize& size);

    // The members of a list-valued attribute: a copy, or a view of the list itself. Empty and owning when there is no
    // such attribute.
    FeatureSettings getCollection(const SettingId& id, std::size_t occurrence = 0) const;
    FeatureSettings getCollectionView(const SettingId& id, std::size_t occurrence = 0);
    // Replaces the members by a copy of the source's list; makes the attribute where it is missing.
    void setCollection(const SettingId& id, const Settings& source, std::size_t occurrence = 0);

    // Brings every page-overrides entry into the form that its readers count on: input-documents first, 1 to 1 where
    // it was missing, and pages second. True when an entry changed.
    bool normalizePageOverrides();
    // Folds the image shifts of older tickets, told without a side, into those of side 1 and, unless the job or the
    // exception is one-sided, side 2. True when anything changed.
    bool normalizeImageShift();
};
