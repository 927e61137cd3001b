// The media database of one printer for one session: the user's library, the stocks of the printer, and those that the
// job in hand uses, in one list. It keeps job and list in step: every stock of the job is one of the list, and a change
// to the list reaches every place of the job that uses it.
//
// A Stock* given to an operation need not be of the list: it stands for the best match in it, and for itself when there
// is none. It is never null. Pointers and references returned hold until that stock is removed.
//
// Belongs to the thread of the session.
#pragma once

#include "jtcore/Stock/StockPreferences.h"

#include <cstddef>
#include <vector>

class StockInformation {
public:
    // Reads the user's file and joins it with the printer's stocks: every stock has a logical id and a name from then
    // on. The capabilities must outlive the object. Raises what StockPreferences raises.
    explicit StockInformation(const Capabilities& capabilities);
    StockInformation(const StockInformation&) = delete;
    StockInformation& operator=(const StockInformation&) = delete;

    // All stocks, not a copy.
    StockList& getStocks() noexcept { return stocks_; }
    const StockList& getStocks() const noexcept { return stocks_; }

    // The job from now on, null for none; it must outlive this binding. Does what refresh() does.
    void setSettings(FeatureSettings* settings);
    // Brings job and list in step: each level that uses a stock gets that of the list, a stock that the list does not
    // know joins it, and what uses what is counted anew.
    void rebuildUsage();
    // The same, and removes the stocks of type job that the job does not use.
    void refresh();

    // How many levels of the job use the stock.
    std::size_t getUseCount(const Stock* stock);
    bool isInUse(const Stock* stock) { return getUseCount(stock) != 0; }
    // Whether a cover, an insert or the like uses it.
    bool isUsedInNestedFeature(const Stock* stock);

    bool isNameUsed(FeatureValue name) const;
    bool isNameUsed(FeatureValue name, StockType type) const;
    // The first number that no stock bears and no earlier call has given. It is kept free until releaseName(). Raises
    // UnknownFeatureRequestException when the table of values is full.
    FeatureValue generateName();
    void releaseName(FeatureValue name);

    // Appends a copy with an id of its own, and with a generated name if it has none.
    Stock& addStock(const Stock& stock);
    // Takes the given stock's state over into the list and from there into the job. The stock of the list keeps its id
    // if the given one has none.
    Stock& updateStock(Stock* stock);
    // A user's stock that the job uses stays in the list as a stock of the job.
    void removeStock(Stock* stock);
    // Wherever the job uses the one it uses the other from now on.
    void replaceStock(Stock* oldStock, Stock* newStock);
    void setFavorite(Stock* stock, bool isFavorite);

    // Null when the settings use no stock, or one that the list does not know.
    Stock* findStockForSettings(const FeatureSettings& settings);
    // The stock of the list that matches best: a user's before a printer's before a job's, then the first. Null when
    // none matches.
    Stock* findBestMatch(const Stock& stock);

    // Stores library and favourites. Raises what StockPreferences::write() raises; the earlier file then stands.
    void save() { preferences_.write(stocks_); }
    const StockPreferences& getPreferences() const noexcept { return preferences_; }

    // The user's stocks, the printer's, the job's; uses the list's own cursor. getNextStockByType() raises
    // NodeAccessOutOfBoundsException at the end.
    void rewindByType();
    bool hasMoreStocksByType() const noexcept { return nextByType_ != nullptr; }
    Stock& getNextStockByType();

private:
    // How the job uses one stock of the list.
    struct Usage {
        const Stock* stock;
        std::size_t count;
        std::vector<Feature> features; // sorted, each once; noParentFeature for the top of the job
    };

    Stock* resolve(const Stock* stock);
    const Usage* findUsage(const Stock* stock) const;
    void recordUse(const Stock& stock, Feature feature);
    void dropUsage(const Stock& stock);
    void nameStock(Stock& stock);
    // Out of the list, with its use and its name. Returns the position behind it.
    StockList::Position dropStock(Stock& stock);
    // Makes each level that uses the stock of that id use the replacement.
    void applyWhereUsed(std::uint32_t logicalId, const Stock& replacement, bool isNewUse = false);
    void findNextByType();

    const Capabilities& capabilities_;
    std::vector<FeatureValue> generatedNames_;
    Stock* nextByType_ = nullptr;
    std::size_t type_ = 0; // that nextByType_ was found in, by its place in the order of the types
    StockPreferences preferences_;
    StockList stocks_;
    FeatureSettings* settings_ = nullptr;
    std::vector<Usage> usage_;
};
