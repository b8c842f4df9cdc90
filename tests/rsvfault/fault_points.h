// Running an operation once for each of its HDF5 calls refused, and what is checked after each.
#ifndef QRV_TESTS_RSVFAULT_FAULT_POINTS_H
#define QRV_TESTS_RSVFAULT_FAULT_POINTS_H

#include <gtest/gtest.h>
#include <hdf5.h>

#include <cstdio>
#include <string>

#include "rsvfault/hdf5_faults.h"

namespace qrvtest {

// Every HDF5 id of the kinds a store makes that is open in the process: files, groups, datasets
// and attributes of any file, and the datatypes, dataspaces and property lists made since start.
inline long openIds() {
    return static_cast<long>(H5Fget_obj_count(H5F_OBJ_ALL, H5F_OBJ_ALL)) +
           HDF5Faults::transientIds();
}

inline const char* modeName(Refusal mode) {
    return mode == Refusal::Once ? "one call refused" : "every call refused from then on";
}

// Runs trial(k) for k = 1, 2, ... until the operation it arms completes without reaching call
// k; answers the number of calls that were refused one at a time (the operation's HDF5 calls).
template <typename Trial>
long everyFaultPoint(Refusal mode, Trial trial) {
    constexpr long kLimit = 20000;  // far above any operation's calls: a loop that never ends
    for (long k = 1; k <= kLimit; ++k) {
        SCOPED_TRACE(std::string(modeName(mode)) + ", call " + std::to_string(k));
        trial(k);
        HDF5Faults::disarm();
        if (HDF5Faults::refusals() == 0) return k - 1;
        if (::testing::Test::HasFailure()) return k;  // one refusal's failures are enough
    }
    ADD_FAILURE() << "the operation never completed";
    return kLimit;
}

inline void report(const char* operation, Refusal mode, long points) {
    std::printf("[ faults   ] %s, %s: %ld fault points\n", operation, modeName(mode), points);
    EXPECT_GT(points, 0);
}

}  // namespace qrvtest

#endif
