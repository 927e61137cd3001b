// The program's operator new: it counts, and can be told to fail. To be included by one source file of a program. The
// module under test uses it too.
#pragma once

#include <atomic>
#include <cstdlib>
#include <new>

namespace allocations {

inline std::atomic<long> made{0};
// When not negative: this many succeed, then one fails, or all from there on.
inline std::atomic<long> left{-1};
inline std::atomic<bool> onlyOneFails{true};

inline void* take(std::size_t size) noexcept {
    ++made;
    if (left >= 0 && left-- <= 0) {
        left = onlyOneFails ? -1 : 0;
        return nullptr;
    }
    return std::malloc(size ? size : 1);
}

inline void* takeOrThrow(std::size_t size) {
    void* memory = take(size);
    return memory ? memory : throw std::bad_alloc();
}

} // namespace allocations

// Not inlined, since a compiler that saw malloc in one and free in the other would warn of the pair.
[[gnu::noinline]] void* operator new(std::size_t size) { return allocations::takeOrThrow(size); }
[[gnu::noinline]] void* operator new[](std::size_t size) { return allocations::takeOrThrow(size); }
[[gnu::noinline]] void* operator new(std::size_t size, const std::nothrow_t&) noexcept {
    return allocations::take(size);
}
[[gnu::noinline]] void* operator new[](std::size_t size, const std::nothrow_t&) noexcept {
    return allocations::take(size);
}
[[gnu::noinline]] void operator delete(void* memory) noexcept { std::free(memory); }
[[gnu::noinline]] void operator delete[](void* memory) noexcept { std::free(memory); }
[[gnu::noinline]] void operator delete(void* memory, std::size_t) noexcept { std::free(memory); }
[[gnu::noinline]] void operator delete[](void* memory, std::size_t) noexcept { std::free(memory); }
[[gnu::noinline]] void operator delete(void* memory, const std::nothrow_t&) noexcept { std::free(memory); }
[[gnu::noinline]] void operator delete[](void* memory, const std::nothrow_t&) noexcept { std::free(memory); }
