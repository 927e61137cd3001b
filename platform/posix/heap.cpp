#include "platform/heap.h"

#include "platform/posix/HandleTable.h"

#include <cstring>
#include <new>

namespace {

class Heap {
public:
    void* allocate(std::size_t size, bool zeroed) {
        std::lock_guard lock(mutex_);
        Block block(::operator new(size));
        if (zeroed) std::memset(block.get(), 0, size);
        void* address = block.get();
        blocks_.emplace(address, std::move(block));
        return address;
    }

    bool free(void* address) {
        std::lock_guard lock(mutex_);
        return blocks_.erase(address) != 0;
    }

private:
    struct Delete {
        void operator()(void* address) const { ::operator delete(address); }
    };
    using Block = std::unique_ptr<void, Delete>;

    std::mutex mutex_;
    std::map<void*, Block> blocks_;
};

HandleTable<Heap>& heaps() { return handleTable<HandleKind::heap, Heap>(); }

} // namespace

HANDLE WINAPI HeapCreate(DWORD, SIZE_T, SIZE_T) {
    return service<HANDLE>(nullptr, [] { return heaps().add(std::make_shared<Heap>()); });
}

BOOL WINAPI HeapDestroy(HANDLE hHeap) {
    return service<BOOL>(FALSE, [&] {
        require(heaps().remove(hHeap) != nullptr, ERROR_INVALID_HANDLE);
        return TRUE;
    });
}

LPVOID WINAPI HeapAlloc(HANDLE hHeap, DWORD dwFlags, SIZE_T dwBytes) {
    return service<LPVOID>(nullptr,
                           [&] { return heaps().get(hHeap)->allocate(dwBytes, (dwFlags & HEAP_ZERO_MEMORY) != 0); });
}

BOOL WINAPI HeapFree(HANDLE hHeap, DWORD, LPVOID lpMem) {
    return service<BOOL>(FALSE, [&] {
        auto heap = heaps().get(hHeap);
        require(lpMem == nullptr || heap->free(lpMem), ERROR_INVALID_PARAMETER);
        return TRUE;
    });
}
