// One kind of paper: a name, where it comes from, and the settings that describe it.
//
// Tickets, the printer's list of media and the user's library all speak of the same paper; matches() and compare() are
// how one is recognised in another. A stock that was taken into use has a logical id, which stands as a private
// attribute beside its description, in the stock's own settings and wherever a job uses it. It lives in memory only.
//
// A stock is used by one thread at a time; the counter of the ids may be used by several.
#pragma once

#include "jtcore/FeatureSettings/FeatureSettings.h"
#include "platform/types.h"

#include <cstdint>
#include <memory>
#include <string>
#include <string_view>

class Capabilities;
class PrinterDefaults;

// Where a stock comes from.
enum class StockType : std::uint32_t {
    job = 1,     // only in the settings of a job; never stored
    user = 2,    // the user's library
    printer = 3, // the printer's list; of it only the favourite mark is stored
};

// What the name of a stock stands for.
enum class StockNameKind : std::uint32_t {
    media = 1, // the attribute media; there is no media-col
    key = 2,   // media-key of a media-col that describes the stock; media-key itself is not in the settings
};

// How alike two stocks are, from least to most.
enum class StockMatch : std::int32_t {
    none = 0,
    sameMedia = 1, // described alike, and one of them has no name
    sameName = 2,  // of one name, and described alike
    sameId = 3,    // the same element
};

// The weightiest respect in which two stocks differ, from least to most.
enum class StockDifference : std::int32_t {
    none = 0,
    logicalId = 1,
    type = 2,
    name = 3,
    media = 4,
    nameKind = 5,
};

class Stock {
public:
    static constexpr std::u16string_view logicalIdAttribute = u"private-stock-logical-id";

    // Copies the settings, also those of a view. The logical id is 0 for none.
    Stock(std::uint32_t logicalId, FeatureValue name, StockType type, StockNameKind nameKind,
          const FeatureSettings& settings);

    // The stock that a level of settings uses, or null. A collection wins over a name. Never raises on what the
    // settings hold: a name that no table row can be had for counts as none, and what should be a collection and is not
    // is left out.
    static std::unique_ptr<Stock> fromSettings(const FeatureSettings& settings, StockType type);

    std::uint32_t getLogicalId() const noexcept { return logicalId_; }
    FeatureValue getName() const noexcept { return name_; }
    bool isNamed() const noexcept { return name_.isSet(); }
    StockType getType() const noexcept { return type_; }
    bool isFavorite() const noexcept { return isFavorite_; }
    StockNameKind getNameKind() const noexcept { return nameKind_; }
    // The stock's own, not a copy.
    FeatureSettings& getSettings() noexcept { return settings_; }
    const FeatureSettings& getSettings() const noexcept { return settings_; }

    void setType(StockType type) noexcept { type_ = type; }
    void setFavorite(bool isFavorite) noexcept { isFavorite_ = isFavorite; }
    // Of a stock that is a mere name, this is also its media.
    void setName(FeatureValue name);
    // A mere name loses its description, and a description its media.
    void setNameKind(StockNameKind kind);
    // The id also goes into the settings; 0 takes it out.
    void setLogicalId(std::uint32_t logicalId);
    // An id that no stock of this process has had.
    void assignNewLogicalId();

    // The name as the user reads it, and behind it where the stock comes from. Raises what the resource module raises,
    // and UnknownCaseException for a type that is none.
    std::u16string getDisplayString() const;

    // Makes a level of settings use this stock in place of what it used.
    void applyTo(FeatureSettings& level) const;
    void applyTo(AttrNodeList* level) const;
    static void clearFrom(FeatureSettings& level);
    // Takes media, media-col and the logical id over. A media-col that the source lacks, or has empty, leaves the
    // target's as it is.
    static void copyMedia(const FeatureSettings& source, FeatureSettings& target);
    // 0 when there is none. Only a private attribute counts: one that came with a document is not ours.
    static std::uint32_t getLogicalIdOf(const FeatureSettings& settings);

    // The members of a media-col, with the name as media-key: the form of a stock in a media database. Replaces the
    // list; a stock without name and description leaves it empty.
    void writeToMediaDatabase(AttrNodeList& out) const;

    StockMatch matches(const Stock& other) const;
    StockDifference compare(const Stock& other) const;
    // Whether everything agrees that describes the paper itself; names do not count. Two missing attributes agree.
    bool hasSameMedia(const Stock& other) const;

    // Whether the feature is part of a description: media, media-col, or a member of it at any depth.
    static bool isStockFeature(const FeatureId& feature);

    // Holds the stock against the printer before it goes into a job, at the top of the job or in that feature. If the
    // printer cannot do it, the user is told; if he goes on, the stock is repaired with the defaults, becomes one of
    // the job, and the result is true. False, and the stock as it was, if he does not. Raises what the validation, the
    // report and the repair raise.
    bool checkStock(const Capabilities& capabilities, const PrinterDefaults& defaults, Feature feature, HWND window);

private:
    std::uint32_t logicalId_;
    FeatureValue name_;
    StockType type_;
    bool isFavorite_ = false;
    StockNameKind nameKind_;
    FeatureSettings settings_; // owns its list
};
