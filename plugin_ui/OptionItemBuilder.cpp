#include "plugin_ui/OptionItemBuilder.h"

#include "jtcore/Services/ResourceLibrary.h"
#include "platform/heap.h"

namespace {

constexpr int stringSize = 512; // characters with the terminator
constexpr BYTE level = 1;

template <typename Record>
constexpr WORD recordSize = static_cast<WORD>(sizeof(Record));

} // namespace

void* OptionItemBuilder::allocateBytes(std::size_t size) const {
    void* block = HeapAlloc(heap_, HEAP_ZERO_MEMORY, size);
    if (!block) throw std::bad_alloc();
    return block;
}

LPWSTR OptionItemBuilder::loadString(std::uint16_t id) const {
    auto* text = allocate<char16_t>(stringSize);
    ResourceLibrary().getString(id, text, stringSize);
    return toWide(text);
}

void OptionItemBuilder::fill(OPTITEM& item, const OptionRow& row, LONG selection) const {
    constexpr WORD count = 2;
    auto* params = allocate<OPTPARAM>(count);
    for (std::size_t i = 0; i < count; ++i) {
        params[i].cbSize = recordSize<OPTPARAM>;
        params[i].pData = loadString(row.choices[i].textId);
        params[i].IconID = row.choices[i].iconId;
    }
    auto* type = allocate<OPTTYPE>();
    type->cbSize = recordSize<OPTTYPE>;
    type->Type = row.type;
    type->Count = count;
    type->pOptParam = params;
    type->Style = row.style;
    item.cbSize = recordSize<OPTITEM>;
    item.Level = level;
    item.Flags = OPTIF_CALLBACK;
    item.pName = loadString(row.nameId);
    item.Sel = selection;
    item.pOptType = type;
}
