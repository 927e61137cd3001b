// Builds small resource modules byte by byte, well formed or broken in a chosen place.
#pragma once

#include <cstdint>
#include <cstring>
#include <map>
#include <string>
#include <tuple>
#include <utility>
#include <vector>

class PeBuilder {
public:
    using Bytes = std::vector<std::uint8_t>;

    // A type or name: a number, or a text when it is not empty.
    struct Name {
        Name(int value) : number(value) {}
        Name(const char16_t* value) : text(value) {}
        int number = 0;
        std::u16string text;
        bool operator<(const Name& other) const {
            return text.empty() == other.text.empty() ? std::tie(text, number) < std::tie(other.text, other.number)
                                                      : !text.empty();
        }
    };

    PeBuilder& add(const Name& type, const Name& name, int language, Bytes data) {
        types_[type][name].emplace_back(language, std::move(data));
        return *this;
    }

    // The block that holds the given strings from its first id on.
    static Bytes strings(const std::vector<std::u16string>& texts) {
        Bytes block;
        for (std::size_t i = 0; i < 16; ++i) {
            std::u16string text = i < texts.size() ? texts[i] : u"";
            put(block, text.size(), 2);
            for (char16_t unit : text)
                put(block, unit, 2);
        }
        return block;
    }

    // The resource section, counted from its own address.
    Bytes section() const {
        Bytes tables;
        Bytes tail;
        std::size_t tableSize = sizeOfTables();
        std::size_t dataStart = tableSize + 16 * leaves();
        std::size_t entry = tableSize;
        std::size_t next = 16 + 8 * types_.size();
        writeHeader(tables, types_);
        for (const auto& [type, names] : types_) {
            put(tables, nameValue(type, dataStart, tail), 4);
            put(tables, next | 0x80000000U, 4);
            next += 16 + 8 * names.size();
        }
        for (const auto& [type, names] : types_) {
            writeHeader(tables, names);
            for (const auto& [name, languages] : names) {
                put(tables, nameValue(name, dataStart, tail), 4);
                put(tables, next | 0x80000000U, 4);
                next += 16 + 8 * languages.size();
            }
        }
        Bytes entries;
        for (const auto& [type, names] : types_)
            for (const auto& [name, languages] : names) {
                put(tables, 0, 14);
                put(tables, languages.size(), 2);
                for (const auto& [language, data] : languages) {
                    put(tables, static_cast<std::size_t>(language), 4);
                    put(tables, entry, 4);
                    entry += 16;
                    tail.resize((tail.size() + 3) / 4 * 4);
                    put(entries, address + dataStart + tail.size(), 4);
                    put(entries, data.size(), 4);
                    put(entries, 0, 8);
                    tail.insert(tail.end(), data.begin(), data.end());
                }
            }
        tables.insert(tables.end(), entries.begin(), entries.end());
        tables.insert(tables.end(), tail.begin(), tail.end());
        return tables;
    }

    Bytes module() const { return module(section()); }

    // A module round any section: headers of 64 bits, one section.
    static Bytes module(const Bytes& section) {
        Bytes out = {'M', 'Z'};
        out.resize(0x3C);
        put(out, 0x40, 4);
        put(out, 0x00004550, 4);
        put(out, 0x8664, 2);
        put(out, 1, 2);
        put(out, 0, 12);
        put(out, 240, 2);
        put(out, 0x2022, 2);
        std::size_t optional = out.size();
        put(out, 0x20B, 2);
        out.resize(optional + 108);
        put(out, 16, 4);
        out.resize(optional + 112 + 2 * 8);
        put(out, address, 4);
        put(out, section.size(), 4);
        out.resize(optional + 240);
        const char name[8] = {'.', 'r', 's', 'r', 'c'};
        out.insert(out.end(), name, name + 8);
        put(out, section.size(), 4);
        put(out, address, 4);
        put(out, section.size(), 4);
        put(out, out.size() + 20, 4);
        put(out, 0, 16);
        out.insert(out.end(), section.begin(), section.end());
        return out;
    }

    static void put(Bytes& out, std::size_t value, std::size_t size) {
        for (std::size_t i = 0; i < size; ++i)
            out.push_back(static_cast<std::uint8_t>(i < 8 ? value >> (8 * i) : 0));
    }

    static constexpr std::size_t address = 0x1000;

private:
    using Languages = std::vector<std::pair<int, Bytes>>;
    using Names = std::map<Name, Languages>;

    template <typename Entries>
    static void writeHeader(Bytes& out, const Entries& entries) {
        std::size_t named = 0;
        for (const auto& row : entries)
            named += row.first.text.empty() ? 0 : 1;
        put(out, 0, 12);
        put(out, named, 2);
        put(out, entries.size() - named, 2);
    }

    static std::size_t nameValue(const Name& name, std::size_t dataStart, Bytes& tail) {
        if (name.text.empty()) return static_cast<std::size_t>(name.number);
        std::size_t offset = dataStart + tail.size();
        put(tail, name.text.size(), 2);
        for (char16_t unit : name.text)
            put(tail, unit, 2);
        return offset | 0x80000000U;
    }

    std::size_t leaves() const {
        std::size_t count = 0;
        for (const auto& [type, names] : types_)
            for (const auto& [name, languages] : names)
                count += languages.size();
        return count;
    }

    std::size_t sizeOfTables() const {
        std::size_t size = 16 + 8 * types_.size();
        for (const auto& [type, names] : types_) {
            size += 16 + 8 * names.size();
            for (const auto& [name, languages] : names)
                size += 16 + 8 * languages.size();
        }
        return size;
    }

    std::map<Name, Names> types_;
};
