// The user's file of stocks: the library, and which stocks of library and printer are favourites.
//
// The file is read once, by the constructor, and replaced in one step by write(). Where the current file is missing an
// older one is read in its place; that one is never written.
#pragma once

#include "jtcore/Attributes/AttrNodeList.h"
#include "jtcore/Stock/StockList.h"

#include <memory>
#include <string>
#include <vector>

class StockPreferences {
public:
    // A missing file is no failure. One that is there and cannot be read, or holds what this program could not carry
    // over into the next file, raises JtifParseException or what the making of a value raises: there is then no
    // object by which it could be overwritten. Raises what User::getProfileDirectoryPath() raises.
    StockPreferences();

    // The file that the constructor reads; empty when there is none. Raises as the constructor does for the profile.
    static std::u16string findFile();

    // The file that was read or written; empty when there is none yet.
    const std::u16string& getFilePath() const noexcept { return filePath_; }

    // The library with its favourites marked. Without a file it is a first one, of common sizes.
    StockList getUserStocks() const;
    // Marks the favourites among the printer's stocks. Those that are not there are kept for the next file.
    void markPrinterFavorites(StockList& printerStocks);

    // Replaces the file. Stocks of a job are not stored. A failure raises JtifParseException and leaves the earlier
    // file as it was; what stood to be written is the content from then on.
    void write(const StockList& stocks);

private:
    // A favourite that the printer does not have at present.
    struct Favorite {
        std::u16string text;
        std::u16string syntaxName;
    };

    // Marks what the attribute names among the stocks, and returns what was not found there.
    std::vector<Favorite> markFavorites(std::u16string_view attribute, StockList& stocks) const;
    AttrNodeList makeContent(const StockList& stocks) const;

    std::u16string filePath_;
    std::unique_ptr<AttrNodeList> content_; // null when there was no file
    std::vector<Favorite> pendingPrinterFavorites_;
};
