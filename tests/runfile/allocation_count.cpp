// The global operator new and delete of the run-file test program: malloc and free, as the
// standard library's own, with a count of the requests while a CountAllocations lives.
#include "runfile/allocation_count.h"
#include "support/replaced_new.h"

#include <atomic>
#include <cstdlib>
#include <new>

namespace {

std::atomic<bool> counting{false};
std::atomic<std::size_t> largest{0};
std::atomic<std::size_t> total{0};

}  // namespace

namespace qrvtest {

CountAllocations::CountAllocations() {
    largest = 0;
    total = 0;
    counting = true;
}

CountAllocations::~CountAllocations() {
    counting = false;
}

Allocations CountAllocations::sofar() const {
    return Allocations{largest.load(), total.load()};
}

void* allocate(std::size_t size) {
    if (counting.load(std::memory_order_relaxed)) {
        total.fetch_add(size, std::memory_order_relaxed);
        std::size_t seen = largest.load(std::memory_order_relaxed);
        while (size > seen && !largest.compare_exchange_weak(seen, size)) {
        }
    }
    if (void* block = std::malloc(size ? size : 1)) return block;
    throw std::bad_alloc();
}

}  // namespace qrvtest
