// Refusals of HDF5 calls on demand. This test program defines the HDF5 C functions that the
// run-file store calls; the library, linked into it, calls these definitions, which forward to
// HDF5's own (found with dlsym(RTLD_NEXT)) unless told to refuse the call. A refused call answers
// what HDF5 answers for a failure (a negative id or status, or the function's own error value)
// and leaves an error on HDF5's stack, so that HDF5 prints it unless the caller turned printing
// off.
//
// Calls are numbered from 1 after each arm(); the store's operations make them in a fixed order,
// so "refuse call k" for k = 1, 2, ... reaches every point at which the store talks to HDF5.
#ifndef QRV_TESTS_RSVFAULT_HDF5_FAULTS_H
#define QRV_TESTS_RSVFAULT_HDF5_FAULTS_H

#include <hdf5.h>

namespace qrvtest {

enum class Refusal {
    Once,       // call k fails, the later ones go through: HDF5 refusing one request
    FromThenOn  // call k and every later one fail: a disk that is full from then on
};

class HDF5Faults {
public:
    // Starts numbering calls anew; call k (1-based) is refused as the mode says.
    static void arm(long k, Refusal mode);
    // Forwards every call again; the counts of the last arm stay readable.
    static void disarm();
    // Calls seen and calls refused since the last arm.
    static long calls();
    static long refusals();

    // Datatypes, dataspaces and property lists made through the wrapped calls and not closed
    // yet. HDF5 1.10 counts the open ids of files, groups, datasets and attributes for a caller
    // (H5Fget_obj_count), not of these.
    static long transientIds();

    // The most groups and datasets open at once (in every file of the process), seen before
    // each wrapped call from watchOpenObjects() on: how many handles an operation holds while it
    // works.
    static void watchOpenObjects();
    static void stopWatching();
    static long peakOpenGroups();
    static long peakOpenDatasets();

    // Whether this call is refused; called by each wrapper before it forwards.
    static bool refuseThisCall();
    // The wrappers of the calls that make and close transient ids report them here.
    static hid_t made(hid_t id);
    static void closing(hid_t id);
};

}  // namespace qrvtest

#endif
