// The text of capability files, statement by statement.
#pragma once

#include <initializer_list>
#include <string>

inline std::string abil(const std::string& statements) {
    return R"(<?xml version="1.0" encoding="UTF-8"?><abil version="1.0">)" + statements + "</abil>";
}

inline std::string element(const std::string& name, const std::string& syntax, const std::string& content) {
    return "<" + name + " syntax=\"" + syntax + "\">" + content + "</" + name + ">";
}

inline std::string range(const std::string& name, const std::string& lower, const std::string& upper) {
    return element(name, "rangeOfInteger",
                   element("lower-bound", "integer", lower) + element("upper-bound", "integer", upper));
}

inline std::string setOf(const std::string& name, const std::string& syntax,
                         std::initializer_list<const char*> values) {
    std::string content;
    for (const char* value : values)
        content += element("value", syntax, value);
    return element(name, "1setOf", content);
}

inline const std::string goodFile =
    abil(setOf("job-creation-attributes-supported", "keyword", {"copies", "sides"}) +
         range("copies-supported", "1", "77") + setOf("sides-supported", "keyword", {"one-sided"}));
