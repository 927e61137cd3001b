#include "resources/capabilities/tool/Composition.h"

#include "jtcore/Attributes/PrimitiveInteger.h"
#include "jtcore/Services/text.h"

#include <algorithm>

namespace {

constexpr const char* whereSupported = "where-supported";

// Two values that a reader of the document could not tell apart.
bool isSame(const AttrValue& one, const AttrValue& other) {
    if (one.isPrimitiveString() && other.isPrimitiveString()) return one.getIppValue() == other.getIppValue();
    return one.equals(other);
}

std::vector<std::unique_ptr<AttrValue>>::iterator findValue(Statement& statement, const AttrValue& value) {
    return std::ranges::find_if(statement.values, [&](const auto& other) { return isSame(*other, value); });
}

std::string describe(const AttrValue& value) {
    if (const auto range = rangeOf(value))
        return "[" + std::to_string(range->lower) + ", " + std::to_string(range->upper) + "]";
    return value.isList() ? "an entry" : "\"" + toUtf8(value.getIppValue()) + "\"";
}

} // namespace

void Composition::join(const std::string& name, const Json& json, const std::string& file) {
    const CapabilitySchema* schema = findWritten(name, file);
    if (!schema) return;
    Statement statement = read(*schema, json, file);
    const auto found = statements_.find(name);
    if (found == statements_.end())
        statements_.emplace(name, std::move(statement));
    else if (schema->isList() && !statement.isWhereSupported && !found->second.isWhereSupported)
        append(found->second, std::move(statement));
    else
        faults_->add({file, name}, "is stated in " + found->second.file + " already");
}

void Composition::replace(const std::string& name, const Json& json, const std::string& file) {
    if (const CapabilitySchema* schema = findWritten(name, file)) {
        statements_.erase(name);
        statements_.emplace(name, read(*schema, json, file));
    }
}

void Composition::remove(const std::string& name, const Json& json, const std::string& file, bool mustBeThere) {
    if (!findWritten(name, file)) return;
    const Place place{file, name};
    const auto found = statements_.find(name);
    if (found == statements_.end()) {
        if (mustBeThere) faults_->add(place, "is not stated, so there is nothing to remove");
        return;
    }
    if (json == "all") return drop(name);
    if (!json.is_array()) return faults_->add(place, "removes \"all\" or a list of values, not " + show(json));
    for (const Json& value : json)
        removeValue(found->second, value, place, mustBeThere);
    found->second.file = file;
}

void Composition::keepSupported(const std::function<bool(std::u16string_view)>& isSupported) {
    for (auto& [name, statement] : statements_) {
        if (!statement.isWhereSupported && statement.schema->kind != StatementKind::userSet) continue;
        std::erase_if(statement.values, [&](const auto& value) { return !isSupported(value->getIppValue()); });
    }
}

const Statement* Composition::find(const std::string& name) const {
    const auto found = statements_.find(name);
    return found == statements_.end() ? nullptr : &found->second;
}

const CapabilitySchema* Composition::findWritten(const std::string& name, const std::string& file) const {
    const CapabilitySchema* schema = CapabilitySchema::find(name);
    const Place place{file, name};
    if (!schema)
        faults_->add(place, "is no capability");
    else if (schema->kind == StatementKind::byModel)
        faults_->add(place, "is stated by the printer model, not by the data");
    else if (schema->kind == StatementKind::derived)
        faults_->add(place, "follows from the other statements and is not written");
    return schema && schema->isWritten() ? schema : nullptr;
}

Statement Composition::read(const CapabilitySchema& schema, const Json& json, const std::string& file) const {
    Statement statement{&schema, {}, false, file};
    const Place place{file, schema.name};
    const Json* content = &json;
    if (schema.kind == StatementKind::memberSet && json.is_object() && json.contains(whereSupported)) {
        statement.isWhereSupported = true;
        content = &json[whereSupported];
    }
    if (content->is_array() != schema.isList()) {
        faults_->add(place,
                     std::string(schema.isList() ? "should be a list" : "holds one value") + ", not " + show(json));
        return statement;
    }
    Statement more{&schema, {}, statement.isWhereSupported, file};
    for (const Json& value : schema.isList() ? *content : Json::array({json})) {
        if (auto read = reader_->read(schema, value, place)) more.values.push_back(std::move(read));
    }
    append(statement, std::move(more));
    return statement;
}

void Composition::append(Statement& statement, Statement&& more) const {
    for (auto& value : more.values) {
        if (findValue(statement, *value) != statement.values.end())
            faults_->add({more.file, statement.schema->name}, describe(*value) + " is listed twice");
        else
            statement.values.push_back(std::move(value));
    }
    statement.file = more.file;
}

void Composition::removeValue(Statement& statement, const Json& json, const Place& place, bool mustBeThere) const {
    const auto value = reader_->read(*statement.schema, json, place);
    if (!value) return;
    const auto found = findValue(statement, *value);
    if (found != statement.values.end())
        statement.values.erase(found);
    else if (mustBeThere)
        faults_->add(place, describe(*value) + " is not listed, so there is nothing to remove");
}

bool allows(const Statement& statement, const AttrValue& value) {
    if (statement.schema->kind == StatementKind::supported) return true;
    return std::ranges::any_of(statement.values, [&](const auto& allowed) {
        const auto range = rangeOf(*allowed);
        const PrimitiveInteger* number = value.asPrimitiveInteger();
        return range && number ? range->contains(number->getValue()) : isSame(*allowed, value);
    });
}
