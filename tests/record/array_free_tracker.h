// Counts how often one watched array is handed to operator delete[], and all array allocations
// and frees. The test program replaces
// the global array allocation functions (array_free_tracker.cpp) so that the library's frees are
// seen too.
#ifndef QRV_TESTS_RECORD_ARRAY_FREE_TRACKER_H
#define QRV_TESTS_RECORD_ARRAY_FREE_TRACKER_H

namespace qrvtest {

void watchArray(const void* pointer);
int watchedArrayFrees();
// Number of array allocations and frees of any array so far, so that a call can be seen to
// allocate or free nothing.
long arrayNewsAndDeletes();

}  // namespace qrvtest

#endif
