// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once
// Memory that runs out when a test wants it to. It replaces the allocation of the whole test program, so one
// of its files includes this.
#include <cstdlib>
#include <new>

namespace test {
inline long allocationsLeft = -1; ///< -1: memory never runs out
}

// Every allocation of this test program passes here; one of them can be made to fail.
void* operator new(std::size_t size) {
    if (test::allocationsLeft == 0)
        throw std::bad_alloc();
    if (test::allocationsLeft > 0)
        --test::allocationsLeft;
    if (void* memory = std::malloc(size == 0 ? 1 : size))
        return memory;
    throw std::bad_alloc();
}
// The library sorts in memory that it asks for this way; what it gets must come from where it is freed.
void* operator new(std::size_t size, const std::nothrow_t&) noexcept {
    try {
        return operator new(size);
    } catch (const std::bad_alloc&) {
        return nullptr;
    }
}
void operator delete(void* memory) noexcept {
    std::free(memory);
}
void operator delete(void* memory, std::size_t) noexcept {
    std::free(memory);
}
