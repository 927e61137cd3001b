// The feature values that come up at run time. Rows are added, never changed and never taken away.
#pragma once

#include "jtcore/FeatureSettings/FeatureValueDataBase.h"

#include <atomic>
#include <list>
#include <map>
#include <shared_mutex>
#include <string>
#include <string_view>
#include <utility>

class RunTimeValues {
public:
    // The rows of this process.
    static RunTimeValues& instance();

    // Null where there is no such row. No lock is taken while the process has no run-time row.
    const FeatureValueInfo* find(ValueEnum number) const;
    const FeatureValueInfo* find(Feature feature, std::u16string_view text) const;
    const FeatureValueInfo* findByAbbreviation(std::u16string_view abbreviation) const;

    // As the operations of FeatureValueDataBase.
    const FeatureValueInfo& add(const FeatureValueInfo& row);
    const FeatureValueInfo& addNew(FeatureValueInfo row);
    const FeatureValueInfo& findOrAddNew(const FeatureValueInfo& row);

private:
    // A row and the storage of its texts.
    struct Entry {
        explicit Entry(const FeatureValueInfo& row);
        std::u16string text;
        std::u16string abbreviation;
        std::u16string syntaxName;
        FeatureValueInfo info;
    };
    using Rows = std::list<Entry>;
    // Ordered maps: no choice of texts makes them slow.
    using ByNumber = std::map<ValueEnum, const FeatureValueInfo*>;
    using ByText = std::map<std::pair<Feature, std::u16string_view>, const FeatureValueInfo*>;
    using ByAbbreviation = std::map<std::u16string_view, const FeatureValueInfo*>;

    bool isEmpty() const noexcept { return !hasRows_.load(std::memory_order_acquire); }

    // REQUIRES of all below: the caller holds the lock for writing.
    const FeatureValueInfo& addNewLocked(FeatureValueInfo row);
    void refuseKnownText(const FeatureValueInfo& row) const;
    void refuseKnownNumber(const FeatureValueInfo& row) const;
    void refuseBeyondBounds(const FeatureValueInfo& row) const;
    const FeatureValueInfo& commit(const FeatureValueInfo& row);

    mutable std::shared_mutex lock_;
    std::atomic<bool> hasRows_ = false;
    Rows rows_;
    ByNumber byNumber_;
    ByText byText_;
    ByAbbreviation byAbbreviation_;
};
