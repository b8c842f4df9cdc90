#include "record/array_free_tracker.h"

#include <cstdlib>
#include <new>

namespace {

const void* gWatched = nullptr;
int gFrees = 0;
long gArrayEvents = 0;

}  // namespace

namespace qrvtest {

void watchArray(const void* pointer) {
    gWatched = pointer;
    gFrees = 0;
}

int watchedArrayFrees() {
    return gFrees;
}

long arrayNewsAndDeletes() {
    return gArrayEvents;
}

}  // namespace qrvtest

void* operator new[](std::size_t size) {
    ++gArrayEvents;
    if (void* p = std::malloc(size ? size : 1)) return p;
    throw std::bad_alloc();
}

void operator delete[](void* pointer) noexcept {
    if (pointer) ++gArrayEvents;
    if (pointer && pointer == gWatched) ++gFrees;
    std::free(pointer);
}

void operator delete[](void* pointer, std::size_t) noexcept {
    operator delete[](pointer);
}
