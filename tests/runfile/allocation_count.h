// Counts what the program asks of operator new while a CountAllocations lives, so that a test can
// tell that a reader did not allocate for a size a damaged file merely claims. The test program
// that includes this replaces the global operator new and delete (allocation_count.cpp).
#ifndef QRV_TESTS_RUNFILE_ALLOCATION_COUNT_H
#define QRV_TESTS_RUNFILE_ALLOCATION_COUNT_H

#include <cstddef>

namespace qrvtest {

struct Allocations {
    std::size_t Largest;  // the largest single request, in bytes
    std::size_t Total;    // all requests added up, in bytes
};

// One at a time: counting starts at construction and ends at destruction.
class CountAllocations {
public:
    CountAllocations();
    ~CountAllocations();
    CountAllocations(const CountAllocations&) = delete;
    CountAllocations& operator=(const CountAllocations&) = delete;

    Allocations sofar() const;
};

}  // namespace qrvtest

#endif
