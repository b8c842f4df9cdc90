// The global operator new and delete of a test program, defined by the one file of the program
// that includes this header: every request goes to qrvtest::allocate, which that file defines
// (with malloc underneath, so that free releases every block), and every release to free.
#ifndef QRV_TESTS_SUPPORT_REPLACED_NEW_H
#define QRV_TESTS_SUPPORT_REPLACED_NEW_H

#include <cstddef>
#include <cstdlib>
#include <new>

namespace qrvtest {
void* allocate(std::size_t size);
}  // namespace qrvtest

void* operator new(std::size_t size) {
    return qrvtest::allocate(size);
}
void* operator new[](std::size_t size) {
    return qrvtest::allocate(size);
}
void operator delete(void* block) noexcept {
    std::free(block);
}
void operator delete[](void* block) noexcept {
    std::free(block);
}
void operator delete(void* block, std::size_t) noexcept {
    std::free(block);
}
void operator delete[](void* block, std::size_t) noexcept {
    std::free(block);
}

#endif
