// Counts how often one watched array is handed to operator delete[], and all array allocations
// and frees. The test program replaces
// the global array allocation functions (array_free_tracker.cpp) so that the library's frees are
// seen too.
#ifndef QRV_TESTS_RECORD_ARRAY_FREE_TRACKER_H
#define QRV_TESTS_RECORD_ARRAY_FREE_TRACKER_H

#include <cstddef>
#include <vector>

namespace qrvtest {

void watchArray(const void* pointer);
int watchedArrayFrees();
// Number of array allocations and frees of any array so far, so that a call can be seen to
// allocate or free nothing.
long arrayNewsAndDeletes();
// Bytes asked for by the latest array allocation.
std::size_t lastArrayBytes();
// From startFreeLog on, the arrays handed to operator delete[], in order (the first 64).
void startFreeLog();
std::vector<const void*> freeLog();

}  // namespace qrvtest

#endif
