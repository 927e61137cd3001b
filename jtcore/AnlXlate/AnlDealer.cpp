#include "jtcore/AnlXlate/AnlDealer.h"

#include <utility>

AnlDealer::AnlDealer(ByteBuffer state) noexcept : state_(std::move(state)) {}

void AnlDealer::validateDataToBeStored(const ByteBuffer&) const {}

std::unique_ptr<AttrNodeList> AnlDealer::createAttrNodeList() const {
    auto list = std::make_unique<AttrNodeList>();
    getAttrNodeList(*list);
    return list;
}

void AnlDealer::setAttrNodeList(const AttrNodeList& list) {
    ByteBuffer state;
    anlToBuffer(list, state);
    setState(std::move(state));
}

void AnlDealer::setState(ByteBuffer state) {
    validateDataToBeStored(state);
    state_ = std::move(state);
}
