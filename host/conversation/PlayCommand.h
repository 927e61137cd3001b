// One command of a conversation, as it was read.
#pragma once

#include <cstdint>
#include <string>
#include <vector>

enum class PlayVerb {
#define PLAY_VERB(name, arguments) name##_,
#include "host/conversation/playVerbs.def"
#undef PLAY_VERB
};

enum class PlayAspect {
    none,
#define PLAY_ASPECT(name, subject, arguments) name##_,
#include "host/conversation/playAspects.def"
#undef PLAY_ASPECT
};

// A control is called by its number or by its label; by neither when nothing was named.
struct ControlName {
    std::uint16_t id = 0;
    std::u16string label;

    bool isEmpty() const noexcept { return id == 0 && label.empty(); }
    bool operator==(const ControlName&) const = default;
};

struct KeyStroke {
    std::uint8_t key = 0; // a virtual key
    bool control = false;
    bool shift = false;
    bool alt = false;

    bool operator==(const KeyStroke&) const = default;
};

struct PlayCommand {
    PlayVerb verb{};
    unsigned line = 0;     // in the script, from 1
    std::u16string source; // the line itself
    PlayAspect aspect = PlayAspect::none;
    ControlName control;
    std::vector<std::u16string> texts;
    std::vector<int> numbers; // rows, a position, seconds, row and column
    int choice = 0;           // the result of a message box; the state of a check box: 0 off, 1 on, 2 mixed
    KeyStroke key;

    // The first text. REQUIRES: the verb takes one.
    const std::u16string& text() const { return texts.front(); }
};
