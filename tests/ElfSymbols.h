// The dynamic symbols of a shared object, as its file has them.
#pragma once

#include <elf.h>

#include <cstring>
#include <fstream>
#include <iterator>
#include <set>
#include <stdexcept>
#include <string>
#include <vector>

class ElfSymbols {
public:
    explicit ElfSymbols(const std::string& path) {
        std::ifstream file(path, std::ios::binary);
        bytes_.assign(std::istreambuf_iterator<char>(file), {});
        if (bytes_.size() < sizeof(Elf64_Ehdr)) throw std::runtime_error("no shared object: " + path);
        const auto header = at<Elf64_Ehdr>(0);
        for (std::size_t i = 0; i < header.e_shnum; ++i) {
            const auto section = at<Elf64_Shdr>(header.e_shoff + i * header.e_shentsize);
            if (section.sh_type == SHT_DYNSYM)
                collect(section, at<Elf64_Shdr>(header.e_shoff + section.sh_link * header.e_shentsize));
        }
    }

    const std::set<std::string>& exported() const { return exported_; }
    const std::set<std::string>& imported() const { return imported_; }

private:
    template <typename Structure>
    Structure at(std::size_t offset) const {
        Structure structure{};
        std::memcpy(&structure, &bytes_.at(offset + sizeof structure - 1) - (sizeof structure - 1), sizeof structure);
        return structure;
    }

    void collect(const Elf64_Shdr& symbols, const Elf64_Shdr& strings) {
        for (std::size_t offset = 0; offset < symbols.sh_size; offset += symbols.sh_entsize) {
            const auto symbol = at<Elf64_Sym>(symbols.sh_offset + offset);
            const std::string name = &bytes_.at(strings.sh_offset + symbol.st_name);
            if (!name.empty()) (symbol.st_shndx == SHN_UNDEF ? imported_ : exported_).insert(name);
        }
    }

    std::vector<char> bytes_;
    std::set<std::string> exported_;
    std::set<std::string> imported_;
};
