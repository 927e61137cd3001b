// The states that were read or made in this process lately, with what is in them. A host asks for the same few
// documents over and over, and to prove a state readable is to read it whole: here it is read once.
//
// A state is known by its bytes, all of them. What is kept never changes and may be used by any thread. Few states are
// kept, and no long ones: what has not been asked for longest goes first.
#pragma once

#include "jtcore/AnlXlate/StateParts.h"
#include "jtcore/Attributes/AttrNodeList.h"

#include <memory>

struct ProvenState {
    ByteBuffer state;
    StateParts parts;
    std::shared_ptr<const AttrNodeList> list; // null while nobody has read it
};

class ProvenStates {
public:
    static constexpr std::size_t maximumCount = 8;
    // Of a state's text. A list takes ten times the memory of its text.
    static constexpr std::size_t maximumTextSize = 16U * 1024;

    // Null for a state that is not known.
    static std::shared_ptr<const ProvenState> find(const ByteBuffer& state) noexcept;
    // Nothing happens when the state is too long, or there is no memory. REQUIRES: the state was made of these parts,
    // or they and the list were read from it.
    static void add(const ByteBuffer& state, const StateParts& parts,
                    const std::shared_ptr<const AttrNodeList>& list = nullptr) noexcept;
};
