// A holder of an attribute list in a translated form: the state.
#pragma once

#include "jtcore/AnlXlate/AnlTranslator.h"

#include <cstddef>
#include <memory>

class AnlDealer : public AnlTranslator {
public:
    // A new object of the same class with a copy of the state.
    virtual std::unique_ptr<AnlDealer> clone() const = 0;
    // False when the other is of another class, else whether the states are the same bytes.
    virtual bool equals(const AnlDealer& other) const = 0;
    // Called before a state is stored; a class that cannot keep this state raises.
    virtual void validateDataToBeStored(const ByteBuffer& state) const;
    // Raises when the state held cannot be read.
    virtual void validateState() const = 0;

    // Each raises what the translation raises; the list, or the state, is then as it was.
    void getAttrNodeList(AttrNodeList& list) const { bufferToAnl(state_, list); }
    std::unique_ptr<AttrNodeList> createAttrNodeList() const;
    void setAttrNodeList(const AttrNodeList& list);

    const ByteBuffer& getState() const noexcept { return state_; }
    std::size_t getStateSize() const noexcept { return state_.getSize(); }
    // Raises what validateDataToBeStored() raises; the state is then as it was.
    void setState(ByteBuffer state);

protected:
    AnlDealer() = default;
    explicit AnlDealer(ByteBuffer state) noexcept;
    AnlDealer(const AnlDealer&) = default;
    AnlDealer& operator=(const AnlDealer&) = default;

private:
    ByteBuffer state_;
};
