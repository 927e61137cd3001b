// What the host asks of the private area of a document: default, convert and merge. Each works on whole areas of
// KolmaDevMode::getDevModeSize() bytes and raises what stops it; in and out may be the same area. Whoever calls makes
// the out area usable after a raise.
#pragma once

class Printer;

class PrivateAreaOperations {
public:
    // The printer is borrowed for the object's life.
    explicit PrivateAreaOperations(Printer& printer) noexcept : printer_(printer) {}

    // Writes the printer's default settings.
    void makeDefault(void* areaOut);

    // Carries the settings of `areaIn` into `areaOut`. When they cannot be read `areaOut` keeps its own, or gets the
    // initial ones when it had none. Raises on an `areaOut` that has a valid header and cannot be read.
    void convert(const void* areaIn, void* areaOut);

    // Brings `areaIn` into `areaOut`, checked against what the printer can do. Areas of equal settings leave `areaOut`
    // bit for bit. Raises on an area that has a valid header and cannot be read.
    void merge(const void* areaIn, void* areaOut);

private:
    Printer& printer_;
};
