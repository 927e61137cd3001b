#include "resources/capabilities/tool/ValueReader.h"

#include "jtcore/Attributes/AttrValueFactory.h"
#include "jtcore/Attributes/IppBoolean.h"
#include "jtcore/Attributes/IppList.h"
#include "jtcore/Attributes/PrimitiveInteger.h"
#include "jtcore/FeatureSettings/FeatureDataBase.h"
#include "jtcore/FeatureSettings/FeatureValueDataBase.h"
#include "jtcore/Services/text.h"

#include <cstdio>
#include <limits>

namespace {

std::unique_ptr<AttrValue> makeInteger(std::int32_t value) { return std::make_unique<IppInteger>(value); }

bool isInt32(const Json& value) {
    if (!value.is_number_integer()) return false;
    const auto number = value.get<std::int64_t>();
    return number >= std::numeric_limits<std::int32_t>::min() && number <= std::numeric_limits<std::int32_t>::max();
}

std::optional<IntRange> readBounds(const Json& json, const Place& place, FaultList& faults) {
    if (!json.is_array() || json.size() != 2 || !isInt32(json[0]) || !isInt32(json[1])) {
        faults.add(place, "a range is two whole numbers, not " + show(json));
        return {};
    }
    const IntRange range{json[0], json[1]};
    if (range.lower <= range.upper) return range;
    faults.add(place, "the range " + show(json) + " ends before it starts");
    return {};
}

std::unique_ptr<AttrValue> readRange(const Json& json, const Place& place, FaultList& faults) {
    if (!json.is_object() || json.size() != 1 || !json.contains("range")) {
        faults.add(place, "should be {\"range\": [lower, upper]}, not " + show(json));
        return nullptr;
    }
    const auto range = readBounds(json["range"], place, faults);
    return range ? makeRange(*range) : nullptr;
}

std::unique_ptr<AttrValue> readTrue(const Json& json, const Place& place, FaultList& faults) {
    if (json == true) return std::make_unique<IppBoolean>(true);
    faults.add(place, "says true or is left out, and is not " + show(json));
    return nullptr;
}

// "600x600dpi": the dots across the web, then along it.
std::unique_ptr<AttrValue> readResolution(const Json& json, const Place& place, FaultList& faults) {
    const std::string text = json.is_string() ? json.get<std::string>() : std::string();
    int across = 0;
    int along = 0;
    int end = 0;
    const bool isRead = std::sscanf(text.c_str(), "%5dx%5ddpi%n", &across, &along, &end) == 2;
    if (!isRead || static_cast<std::size_t>(end) != text.size() || across < 10 || along < 10) {
        faults.add(place, "a resolution reads like \"600x600dpi\", not " + show(json));
        return nullptr;
    }
    constexpr std::int32_t perInch = 3;
    AttrNodeList members;
    members.addNode(u"cross-feed", makeInteger(across));
    members.addNode(u"feed-direction", makeInteger(along));
    members.addNode(u"units", makeInteger(perInch));
    return std::make_unique<IppList>(std::move(members), u"resolution");
}

bool hasSyntax(const SyntaxList& syntaxes, AVTE type) {
    for (const Syntax& syntax : syntaxes)
        if (syntax.type == type) return true;
    return false;
}

std::unique_ptr<AttrValue> readName(const std::string& text, const Place& place, FaultList& faults) {
    if (!text.empty() && text.front() != ' ' && text.back() != ' ')
        return AttrValueFactory::createAttrValue(u"name", fromUtf8(text));
    faults.add(place, "the name \"" + text + "\" is empty, or has blanks at an end");
    return nullptr;
}

std::unique_ptr<AttrValue> readUri(const std::string& text, const Place& place, FaultList& faults) {
    const std::size_t colon = text.find(':');
    const bool hasScheme = colon != 0 && colon != std::string::npos && colon + 1 < text.size();
    if (hasScheme && text.find_first_of(" \t\r\n") == std::string::npos)
        return AttrValueFactory::createAttrValue(u"uri", fromUtf8(text));
    faults.add(place, "\"" + text + "\" is no URI");
    return nullptr;
}

// The text of a value of the vocabulary; numbers are written without quotes.
std::optional<std::string> vocabularyText(const Json& json, AVTE type) {
    if (type == AVTE::enumeration || type == AVTE::integer) {
        if (isInt32(json)) return std::to_string(json.get<std::int32_t>());
        return {};
    }
    if (json.is_string()) return json.get<std::string>();
    return {};
}

} // namespace

std::unique_ptr<AttrValue> makeRange(const IntRange& range) {
    AttrNodeList members;
    members.addNode(u"lower-bound", makeInteger(range.lower));
    members.addNode(u"upper-bound", makeInteger(range.upper));
    return std::make_unique<IppList>(std::move(members), u"rangeOfInteger");
}

std::optional<IntRange> rangeOf(const AttrValue& value) {
    IntRange range;
    if (!value.isRangeOfInteger() || !value.getRangeOfIntegerValues(range.lower, range.upper)) return {};
    return range;
}

std::unique_ptr<AttrValue> makeSize(const PaperSize& size) {
    AttrNodeList members;
    members.addNode(u"x-dimension", makeInteger(size.x));
    members.addNode(u"y-dimension", makeInteger(size.y));
    return std::make_unique<IppList>(std::move(members), u"collection");
}

std::unique_ptr<AttrValue> readFeatureValue(const Json& json, Feature feature, const SyntaxList& syntaxes,
                                            const Place& place, FaultList& faults) {
    const bool takesNames = hasSyntax(syntaxes, AVTE::name);
    if (json.is_object() && json.size() == 1 && json.contains("name") && json["name"].is_string()) {
        if (takesNames) return readName(json["name"], place, faults);
        faults.add(place, "takes no names: " + show(json));
        return nullptr;
    }
    const Syntax& first = syntaxes[0];
    const auto text = vocabularyText(json, first.type);
    if (text && first.type == AVTE::name) return readName(*text, place, faults);
    if (text && first.type == AVTE::uri) return readUri(*text, place, faults);
    if (text && FeatureValueDataBase::isValue(feature, fromUtf8(*text)))
        return AttrValueFactory::createAttrValue(first.name, fromUtf8(*text));
    faults.add(place, show(json) + " is no value of " + toUtf8(FeatureDataBase::describe(feature)));
    return nullptr;
}

std::unique_ptr<AttrValue> ValueReader::read(const CapabilitySchema& schema, const Json& json,
                                             const Place& place) const {
    switch (schema.kind) {
    case StatementKind::supported:
        return readTrue(json, place, *faults_);
    case StatementKind::range:
    case StatementKind::rangeSet:
        return readRange(json, place, *faults_);
    case StatementKind::memberSet:
    case StatementKind::userSet:
        return readMember(json, place);
    case StatementKind::sizeSet:
        return readPaperSize(json, place);
    case StatementKind::valueSet:
        if (schema.feature == Feature::printerResolution) return readResolution(json, place, *faults_);
        return readFeatureValue(json, schema.feature, schema.row->syntaxes, place, *faults_);
    default:
        return nullptr;
    }
}

std::unique_ptr<AttrValue> ValueReader::readMember(const Json& json, const Place& place) const {
    const std::string name = json.is_string() ? json.get<std::string>() : std::string();
    if (FeatureDataBase::isFeature(fromUtf8(name)))
        return AttrValueFactory::createAttrValue(u"keyword", fromUtf8(name));
    faults_->add(place, show(json) + " is no attribute of a job");
    return nullptr;
}

std::unique_ptr<AttrValue> ValueReader::readPaperSize(const Json& json, const Place& place) const {
    if (json.is_object() && json.size() == 1 && json.contains("custom")) return readCustomSize(json["custom"], place);
    const PaperSize* size = json.is_string() ? sizes_->find(json.get<std::string>()) : nullptr;
    if (size) return makeSize(*size);
    faults_->add(place, show(json) + " is no size of sizes.json");
    return nullptr;
}

std::unique_ptr<AttrValue> ValueReader::readCustomSize(const Json& json, const Place& place) const {
    if (!json.is_object() || json.size() != 2 || !json.contains("x") || !json.contains("y")) {
        faults_->add(place, "a custom size is {\"x\": [lower, upper], \"y\": [lower, upper]}, not " + show(json));
        return nullptr;
    }
    const auto x = readBounds(json["x"], place, *faults_);
    const auto y = readBounds(json["y"], place, *faults_);
    if (!x || !y) return nullptr;
    AttrNodeList members;
    members.addNode(u"x-dimension", makeRange(*x));
    members.addNode(u"y-dimension", makeRange(*y));
    return std::make_unique<IppList>(std::move(members), u"collection");
}
