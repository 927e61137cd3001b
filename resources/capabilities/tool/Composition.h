// The statements of one resource, put together from blocks and changes.
#pragma once

#include "resources/capabilities/tool/ValueReader.h"

#include <functional>
#include <map>
#include <memory>
#include <string>
#include <vector>

struct Statement {
    const CapabilitySchema* schema = nullptr;
    std::vector<std::unique_ptr<AttrValue>> values; // one, unless the capability is a list
    bool isWhereSupported = false;                  // its names stay only where the printer supports them
    std::string file;                               // the last one that had a say
};

class Composition {
public:
    Composition(const ValueReader& reader, FaultList& faults) : reader_(&reader), faults_(&faults) {}

    // A statement beside those that stand: lists are joined, anything else may be stated once.
    void join(const std::string& name, const Json& json, const std::string& file);
    // A statement in place of whatever stands.
    void replace(const std::string& name, const Json& json, const std::string& file);
    // Takes values from a list, or, with "all", the whole statement away. What is not there is a fault if asked.
    void remove(const std::string& name, const Json& json, const std::string& file, bool mustBeThere);
    void drop(const std::string& name) { statements_.erase(name); }

    // Leaves in the lists that ask for it the names that are supported.
    void keepSupported(const std::function<bool(std::u16string_view)>& isSupported);

    bool has(const std::string& name) const { return statements_.contains(name); }
    // Null when nothing is stated.
    const Statement* find(const std::string& name) const;
    // By name.
    const std::map<std::string, Statement>& statements() const noexcept { return statements_; }

    // Null, and a fault told, for a name that nobody knows or that is not for the data to state.
    const CapabilitySchema* findWritten(const std::string& name, const std::string& file) const;

private:
    Statement read(const CapabilitySchema& schema, const Json& json, const std::string& file) const;
    void append(Statement& statement, Statement&& more) const;
    void removeValue(Statement& statement, const Json& json, const Place& place, bool mustBeThere) const;

    const ValueReader* reader_;
    FaultList* faults_;
    std::map<std::string, Statement> statements_;
};

// True when the statement allows the value: it lists it, has it in a range, or just says true.
bool allows(const Statement& statement, const AttrValue& value);
