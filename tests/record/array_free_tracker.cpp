#include "record/array_free_tracker.h"

#include <cstdlib>
#include <new>

namespace {

const void* gWatched = nullptr;
int gFrees = 0;
long gArrayEvents = 0;
std::size_t gLastBytes = 0;
// A fixed buffer: the log is written from inside operator delete[], where nothing may allocate.
constexpr int kLogSize = 64;
const void* gFreeLog[kLogSize] = {};
int gLogged = -1;  // -1: not logging

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

std::size_t lastArrayBytes() {
    return gLastBytes;
}

void startFreeLog() {
    gLogged = 0;
}

std::vector<const void*> freeLog() {
    const int count = gLogged < 0 ? 0 : gLogged;
    gLogged = -1;
    return std::vector<const void*>(gFreeLog, gFreeLog + count);
}

}  // namespace qrvtest

void* operator new[](std::size_t size) {
    ++gArrayEvents;
    gLastBytes = size;
    if (void* p = std::malloc(size ? size : 1)) return p;
    throw std::bad_alloc();
}

void operator delete[](void* pointer) noexcept {
    if (pointer) ++gArrayEvents;
    if (pointer && pointer == gWatched) ++gFrees;
    if (pointer && gLogged >= 0 && gLogged < kLogSize) gFreeLog[gLogged++] = pointer;
    std::free(pointer);
}

void operator delete[](void* pointer, std::size_t) noexcept {
    operator delete[](pointer);
}
