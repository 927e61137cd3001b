// What is wrong with the authored data. Everything found is kept, so that one run tells all of it.
#pragma once

#include <string>
#include <vector>

// Where a fault stands: the file, and the key in it (a capability, a stock, a section).
struct Place {
    std::string file;
    std::string key;
};

class FaultList {
public:
    void add(const Place& place, const std::string& text);

    bool isEmpty() const noexcept { return lines_.empty(); }
    // "file: key: what is wrong", in the order found.
    const std::vector<std::string>& lines() const noexcept { return lines_; }

private:
    std::vector<std::string> lines_;
};
