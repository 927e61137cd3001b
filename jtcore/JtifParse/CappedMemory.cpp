#include "jtcore/JtifParse/CappedMemory.h"

#include <xercesc/util/OutOfMemoryException.hpp>
#include <xercesc/util/PlatformUtils.hpp>

#include <functional>
#include <new>
#include <utility>

using XERCES_CPP_NAMESPACE::OutOfMemoryException;

namespace {

// Smaller blocks are left to the system, which is good at them; large ones it would take back and clear each time.
constexpr std::size_t spareMinimum = 8U * 1024;
constexpr std::size_t spareMaximum = 2U * 1024 * 1024;

} // namespace

CappedMemory::CappedMemory(std::size_t limit, std::size_t reserved)
    : reserve_(std::make_unique_for_overwrite<std::byte[]>(reserved)), reserveSize_(reserved), limit_(limit) {}

CappedMemory::~CappedMemory() {
    for (Block* chain : {first_, spare_})
        while (chain != nullptr)
            ::operator delete(std::exchange(chain, chain->next));
}

void* CappedMemory::allocate(XMLSize_t size) {
    if (inUse_ > limit_ || size > limit_ - inUse_) throw OutOfMemoryException();
    if (void* reserved = takeReserved(size)) return reserved;
    Block* block = takeSpare(size);
    if (block == nullptr) {
        void* memory = ::operator new(sizeof(Block) + size, std::nothrow);
        if (memory == nullptr) throw OutOfMemoryException();
        block = new (memory) Block{nullptr, nullptr, size};
    }
    link(*block);
    return block + 1;
}

void CappedMemory::deallocate(void* memory) {
    if (memory == nullptr || isReserved(memory)) return;
    auto* block = static_cast<Block*>(memory) - 1;
    (block->previous != nullptr ? block->previous->next : first_) = block->next;
    if (block->next != nullptr) block->next->previous = block->previous;
    inUse_ -= block->size;
    if (!keepSpare(*block)) ::operator delete(block);
}

void CappedMemory::link(Block& block) noexcept {
    block.previous = nullptr;
    block.next = first_;
    if (first_ != nullptr) first_->previous = &block;
    first_ = &block;
    inUse_ += block.size;
}

CappedMemory::Block* CappedMemory::takeSpare(std::size_t size) noexcept {
    if (size < spareMinimum) return nullptr;
    for (Block** at = &spare_; *at != nullptr; at = &(*at)->next) {
        if ((*at)->size != size) continue;
        spareSize_ -= size;
        return std::exchange(*at, (*at)->next);
    }
    return nullptr;
}

bool CappedMemory::keepSpare(Block& block) noexcept {
    if (block.size < spareMinimum || block.size > spareMaximum - spareSize_) return false;
    block.next = spare_;
    spare_ = &block;
    spareSize_ += block.size;
    return true;
}

void* CappedMemory::takeReserved(std::size_t size) noexcept {
    constexpr std::size_t alignment = alignof(std::max_align_t);
    std::size_t left = reserveSize_ - reserveUsed_;
    if (size > left || left - size < alignment) return nullptr;
    void* memory = reserve_.get() + reserveUsed_;
    reserveUsed_ += (size + alignment - 1) / alignment * alignment;
    return memory;
}

bool CappedMemory::isReserved(const void* memory) const noexcept {
    return std::less_equal<>()(reserve_.get(), memory) && std::less<>()(memory, reserve_.get() + reserveSize_);
}

XERCES_CPP_NAMESPACE::MemoryManager* CappedMemory::getExceptionMemoryManager() {
    return XERCES_CPP_NAMESPACE::XMLPlatformUtils::fgMemoryManager;
}
