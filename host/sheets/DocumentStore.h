// Where the settings of a document lie between two openings of its sheet: a file, or with the printer.
#pragma once

#include "jtcore/AnlXlate/PersistentLayout.h"
#include "platform/types.h"

#include <optional>
#include <string>

class DocumentStore {
public:
    // With an empty path the settings are kept with the printer.
    DocumentStore(HANDLE printer, std::u16string path) : printer_(printer), path_(std::move(path)) {}

    // Nothing when none are kept. Raises for a file that cannot be read, and for one that has not an area's size.
    std::optional<KolmaDmType> load() const;

    // Replaces what was kept in one step; bytes that are kept already are not written again. Raises, with words, on
    // failure; what was kept is then as it was.
    void save(const KolmaDmType& area);

    // For the user: what a sentence calls the place.
    std::u16string describe() const;

private:
    std::optional<KolmaDmType> loadFromPrinter() const;
    void saveWithPrinter(const KolmaDmType& area) const;

    HANDLE printer_;
    std::u16string path_;
    std::optional<KolmaDmType> saved_;
};
