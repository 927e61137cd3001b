#pragma once

#include <cstdint>

// Hears of a change in a subject. The subject says who it is by its id, so that one observer may watch several.
class Observer {
public:
    virtual ~Observer() = default;
    virtual void handleSubjectUpdate(std::uint16_t subjectId) = 0;
};
