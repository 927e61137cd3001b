// A fresh folder for one test, removed with all that is in it.
#pragma once

#include "jtcore/Services/text.h"

#include <cstdlib>
#include <filesystem>
#include <fstream>
#include <iterator>
#include <stdexcept>
#include <string>
#include <utility>

class TemporaryFolder {
public:
    TemporaryFolder() {
        std::string name = (std::filesystem::temp_directory_path() / "kolma-test-XXXXXX").string();
        if (mkdtemp(name.data()) == nullptr) throw std::runtime_error("no temporary folder");
        path_ = name;
    }
    ~TemporaryFolder() {
        std::error_code ignored;
        std::filesystem::remove_all(path_, ignored);
    }
    TemporaryFolder(const TemporaryFolder&) = delete;
    TemporaryFolder& operator=(const TemporaryFolder&) = delete;

    const std::filesystem::path& path() const { return path_; }
    std::u16string operator/(const std::string& name) const { return fromUtf8((path_ / name).string()); }

    void write(const std::string& name, const std::string& content) const {
        std::ofstream(path_ / name, std::ios::binary) << content;
    }
    // "(missing)" when there is no such file.
    std::string content(const std::string& name) const {
        std::ifstream file(path_ / name, std::ios::binary);
        if (!file) return "(missing)";
        return {std::istreambuf_iterator<char>(file), {}};
    }
    std::size_t entries() const {
        auto all = std::filesystem::directory_iterator(path_);
        return static_cast<std::size_t>(std::distance(begin(all), end(all)));
    }

private:
    std::filesystem::path path_;
};

// An environment variable for as long as the object lives; null takes it away.
class EnvironmentVariable {
public:
    EnvironmentVariable(const char* name, const char* value) : name_(name) {
        const char* before = std::getenv(name);
        had_ = before != nullptr;
        if (had_) before_ = before;
        set(value);
    }
    ~EnvironmentVariable() { set(had_ ? before_.c_str() : nullptr); }
    EnvironmentVariable(const EnvironmentVariable&) = delete;
    EnvironmentVariable& operator=(const EnvironmentVariable&) = delete;

private:
    void set(const char* value) {
        if (value != nullptr)
            setenv(name_.c_str(), value, 1);
        else
            unsetenv(name_.c_str());
    }

    std::string name_;
    std::string before_;
    bool had_;
};
