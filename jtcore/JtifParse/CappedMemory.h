// The memory of one parser: counted, limited, and given back whole at its end, whatever the library forgot of it.
#pragma once

#include <xercesc/framework/MemoryManager.hpp>

#include <cstddef>
#include <memory>

class CappedMemory final : public XERCES_CPP_NAMESPACE::MemoryManager {
public:
    explicit CappedMemory(std::size_t limit) noexcept : limit_(limit) {}
    // Takes `reserved` bytes at once, and serves from them first: that much can be asked for without a failure. Memory
    // given back to the reserve is not used again. Throws std::bad_alloc.
    CappedMemory(std::size_t limit, std::size_t reserved);
    // REQUIRES: nothing that lives here is used any more.
    ~CappedMemory() override;
    CappedMemory(const CappedMemory&) = delete;
    CappedMemory& operator=(const CappedMemory&) = delete;

    // Throws the library's OutOfMemoryException at the limit, and when the system has no more.
    void* allocate(XMLSize_t size) override;
    void deallocate(void* memory) override;
    // Failures outlive a parser, so their texts do not live here.
    XERCES_CPP_NAMESPACE::MemoryManager* getExceptionMemoryManager() override;

    std::size_t inUse() const noexcept { return inUse_; }
    // The bytes that may be in use at any one time.
    void setLimit(std::size_t limit) noexcept { limit_ = limit; }

private:
    struct alignas(std::max_align_t) Block {
        Block* previous;
        Block* next;
        std::size_t size;
    };

    Block* takeSpare(std::size_t size) noexcept;
    bool keepSpare(Block& block) noexcept;
    void link(Block& block) noexcept;
    void* takeReserved(std::size_t size) noexcept;
    bool isReserved(const void* memory) const noexcept;

    std::unique_ptr<std::byte[]> reserve_;
    std::size_t reserveSize_ = 0;
    std::size_t reserveUsed_ = 0;
    Block* first_ = nullptr;
    Block* spare_ = nullptr; // the large blocks of the last document, for the next one
    std::size_t spareSize_ = 0;
    std::size_t inUse_ = 0;
    std::size_t limit_;
};
