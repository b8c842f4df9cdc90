// The HDF5 functions the run-file store calls, defined in the test program so that the library
// linked into it calls these: each forwards to HDF5's own definition unless HDF5Faults refuses
// the call. Closing calls are not wrapped: a close that fails leaves nothing the store could do.
#include "rsvfault/hdf5_faults.h"

#include <hdf5.h>

#include <dlfcn.h>

#include <algorithm>
#include <cstdio>
#include <cstdlib>
#include <set>

namespace qrvtest {

namespace {

struct State {
    long RefuseAt = 0;  // 0: forward everything
    Refusal Mode = Refusal::Once;
    long Calls = 0;
    long Refusals = 0;
};

struct Peaks {
    bool Watching = false;
    long Groups = 0;
    long Datasets = 0;
};

Peaks& peaks() {
    static Peaks seen;
    return seen;
}

std::set<hid_t>& transient() {
    static std::set<hid_t> open;
    return open;
}

State& state() {
    static State current;
    return current;
}

// HDF5's own definition of a function, the next one after this program's in the lookup order.
template <typename Function>
Function nextDefinition(const char* name) {
    void* found = dlsym(RTLD_NEXT, name);
    if (!found) {
        std::fprintf(stderr, "hdf5_faults: HDF5 has no %s\n", name);
        std::abort();
    }
    return reinterpret_cast<Function>(found);
}

// Makes HDF5 itself fail one call, so that its error stack holds an error and HDF5 prints it
// when printing is on, as it would for a real refusal of the wrapped call.
void leaveAnError() {
    static const auto getRef = nextDefinition<decltype(&H5Iget_ref)>("H5Iget_ref");
    getRef(H5I_INVALID_HID);
}

}  // namespace

void HDF5Faults::arm(long k, Refusal mode) {
    state() = State{k, mode, 0, 0};
}

void HDF5Faults::disarm() {
    state().RefuseAt = 0;
}

long HDF5Faults::calls() {
    return state().Calls;
}

long HDF5Faults::refusals() {
    return state().Refusals;
}

long HDF5Faults::transientIds() {
    return static_cast<long>(transient().size());
}

hid_t HDF5Faults::made(hid_t id) {
    if (id >= 0) transient().insert(id);
    return id;
}

void HDF5Faults::closing(hid_t id) {
    transient().erase(id);
}

void HDF5Faults::watchOpenObjects() {
    peaks() = Peaks{true, 0, 0};
}

void HDF5Faults::stopWatching() {
    peaks().Watching = false;
}

long HDF5Faults::peakOpenGroups() {
    return peaks().Groups;
}

long HDF5Faults::peakOpenDatasets() {
    return peaks().Datasets;
}

namespace {

void notePeaks() {
    Peaks& seen = peaks();
    if (!seen.Watching) return;
    static const auto count = nextDefinition<decltype(&H5Fget_obj_count)>("H5Fget_obj_count");
    seen.Groups = std::max(seen.Groups, static_cast<long>(count(H5F_OBJ_ALL, H5F_OBJ_GROUP)));
    seen.Datasets = std::max(seen.Datasets, static_cast<long>(count(H5F_OBJ_ALL, H5F_OBJ_DATASET)));
}

}  // namespace

bool HDF5Faults::refuseThisCall() {
    notePeaks();
    State& now = state();
    if (now.RefuseAt <= 0) return false;
    const long call = ++now.Calls;
    const bool refused =
        call == now.RefuseAt || (now.Mode == Refusal::FromThenOn && call > now.RefuseAt);
    if (!refused) return false;
    ++now.Refusals;
    leaveAnError();
    return true;
}

}  // namespace qrvtest

// One wrapper per function: the failure value HDF5 documents for it, or the forwarded call.
#define QRV_FORWARD(function) \
    static const auto forward = qrvtest::nextDefinition<decltype(&function)>(#function)
#define QRV_REFUSE_OR_FORWARD(function, failure, ...) \
    QRV_FORWARD(function);                            \
    return qrvtest::HDF5Faults::refuseThisCall() ? failure : forward(__VA_ARGS__)
// The same for a call that makes a datatype, dataspace or property list.
#define QRV_REFUSE_OR_MAKE(function, ...)                          \
    QRV_FORWARD(function);                                         \
    return qrvtest::HDF5Faults::refuseThisCall() ? H5I_INVALID_HID \
                                                 : qrvtest::HDF5Faults::made(forward(__VA_ARGS__))
// A close, never refused.
#define QRV_CLOSE(function, id)       \
    QRV_FORWARD(function);            \
    qrvtest::HDF5Faults::closing(id); \
    return forward(id)

extern "C" {

hid_t H5Fcreate(const char* name, unsigned flags, hid_t fcpl, hid_t fapl) {
    QRV_REFUSE_OR_FORWARD(H5Fcreate, H5I_INVALID_HID, name, flags, fcpl, fapl);
}
hid_t H5Fopen(const char* name, unsigned flags, hid_t fapl) {
    QRV_REFUSE_OR_FORWARD(H5Fopen, H5I_INVALID_HID, name, flags, fapl);
}
htri_t H5Fis_hdf5(const char* name) {
    QRV_REFUSE_OR_FORWARD(H5Fis_hdf5, -1, name);
}
ssize_t H5Fget_obj_count(hid_t file, unsigned types) {
    QRV_REFUSE_OR_FORWARD(H5Fget_obj_count, -1, file, types);
}
herr_t H5Fget_mdc_config(hid_t file, H5AC_cache_config_t* config) {
    QRV_REFUSE_OR_FORWARD(H5Fget_mdc_config, -1, file, config);
}
herr_t H5Fset_mdc_config(hid_t file, H5AC_cache_config_t* config) {
    QRV_REFUSE_OR_FORWARD(H5Fset_mdc_config, -1, file, config);
}

hid_t H5Gcreate2(hid_t location, const char* name, hid_t lcpl, hid_t gcpl, hid_t gapl) {
    QRV_REFUSE_OR_FORWARD(H5Gcreate2, H5I_INVALID_HID, location, name, lcpl, gcpl, gapl);
}
hid_t H5Gopen2(hid_t location, const char* name, hid_t gapl) {
    QRV_REFUSE_OR_FORWARD(H5Gopen2, H5I_INVALID_HID, location, name, gapl);
}
herr_t H5Literate(hid_t group, H5_index_t index, H5_iter_order_t order, hsize_t* at,
                  H5L_iterate_t visit, void* data) {
    QRV_REFUSE_OR_FORWARD(H5Literate, -1, group, index, order, at, visit, data);
}
herr_t H5Oget_info2(hid_t location, H5O_info_t* info, unsigned fields) {
    QRV_REFUSE_OR_FORWARD(H5Oget_info2, -1, location, info, fields);
}
herr_t H5Oget_info_by_name2(hid_t location, const char* name, H5O_info_t* info, unsigned fields,
                            hid_t lapl) {
    QRV_REFUSE_OR_FORWARD(H5Oget_info_by_name2, -1, location, name, info, fields, lapl);
}
int H5Iinc_ref(hid_t id) {
    QRV_REFUSE_OR_FORWARD(H5Iinc_ref, -1, id);
}

hid_t H5Dcreate2(hid_t location, const char* name, hid_t type, hid_t space, hid_t lcpl, hid_t dcpl,
                 hid_t dapl) {
    QRV_REFUSE_OR_FORWARD(H5Dcreate2, H5I_INVALID_HID, location, name, type, space, lcpl, dcpl,
                          dapl);
}
hid_t H5Dopen2(hid_t location, const char* name, hid_t dapl) {
    QRV_REFUSE_OR_FORWARD(H5Dopen2, H5I_INVALID_HID, location, name, dapl);
}
hid_t H5Dget_type(hid_t dataset) {
    QRV_REFUSE_OR_MAKE(H5Dget_type, dataset);
}
hid_t H5Dget_space(hid_t dataset) {
    QRV_REFUSE_OR_MAKE(H5Dget_space, dataset);
}
herr_t H5Dwrite(hid_t dataset, hid_t memory, hid_t memorySpace, hid_t fileSpace, hid_t dxpl,
                const void* buffer) {
    QRV_REFUSE_OR_FORWARD(H5Dwrite, -1, dataset, memory, memorySpace, fileSpace, dxpl, buffer);
}
herr_t H5Dread(hid_t dataset, hid_t memory, hid_t memorySpace, hid_t fileSpace, hid_t dxpl,
               void* buffer) {
    QRV_REFUSE_OR_FORWARD(H5Dread, -1, dataset, memory, memorySpace, fileSpace, dxpl, buffer);
}

hid_t H5Acreate2(hid_t location, const char* name, hid_t type, hid_t space, hid_t acpl,
                 hid_t aapl) {
    QRV_REFUSE_OR_FORWARD(H5Acreate2, H5I_INVALID_HID, location, name, type, space, acpl, aapl);
}
herr_t H5Awrite(hid_t attribute, hid_t type, const void* buffer) {
    QRV_REFUSE_OR_FORWARD(H5Awrite, -1, attribute, type, buffer);
}
hid_t H5Aopen(hid_t object, const char* name, hid_t aapl) {
    QRV_REFUSE_OR_FORWARD(H5Aopen, H5I_INVALID_HID, object, name, aapl);
}
herr_t H5Aread(hid_t attribute, hid_t type, void* buffer) {
    QRV_REFUSE_OR_FORWARD(H5Aread, -1, attribute, type, buffer);
}
htri_t H5Aexists(hid_t object, const char* name) {
    QRV_REFUSE_OR_FORWARD(H5Aexists, -1, object, name);
}
herr_t H5Adelete(hid_t object, const char* name) {
    QRV_REFUSE_OR_FORWARD(H5Adelete, -1, object, name);
}
hid_t H5Aget_type(hid_t attribute) {
    QRV_REFUSE_OR_MAKE(H5Aget_type, attribute);
}
hid_t H5Aget_space(hid_t attribute) {
    QRV_REFUSE_OR_MAKE(H5Aget_space, attribute);
}
herr_t H5Aget_info(hid_t attribute, H5A_info_t* info) {
    QRV_REFUSE_OR_FORWARD(H5Aget_info, -1, attribute, info);
}

hid_t H5Tcopy(hid_t type) {
    QRV_REFUSE_OR_MAKE(H5Tcopy, type);
}
hid_t H5Tcreate(H5T_class_t kind, size_t size) {
    QRV_REFUSE_OR_MAKE(H5Tcreate, kind, size);
}
herr_t H5Tset_size(hid_t type, size_t size) {
    QRV_REFUSE_OR_FORWARD(H5Tset_size, -1, type, size);
}
herr_t H5Tset_strpad(hid_t type, H5T_str_t pad) {
    QRV_REFUSE_OR_FORWARD(H5Tset_strpad, -1, type, pad);
}
herr_t H5Tinsert(hid_t parent, const char* name, size_t offset, hid_t member) {
    QRV_REFUSE_OR_FORWARD(H5Tinsert, -1, parent, name, offset, member);
}
htri_t H5Tequal(hid_t first, hid_t second) {
    QRV_REFUSE_OR_FORWARD(H5Tequal, -1, first, second);
}
hid_t H5Tget_native_type(hid_t type, H5T_direction_t direction) {
    QRV_REFUSE_OR_MAKE(H5Tget_native_type, type, direction);
}
htri_t H5Tis_variable_str(hid_t type) {
    QRV_REFUSE_OR_FORWARD(H5Tis_variable_str, -1, type);
}
H5T_class_t H5Tget_class(hid_t type) {
    QRV_REFUSE_OR_FORWARD(H5Tget_class, H5T_NO_CLASS, type);
}
size_t H5Tget_size(hid_t type) {
    QRV_REFUSE_OR_FORWARD(H5Tget_size, 0, type);
}
H5T_sign_t H5Tget_sign(hid_t type) {
    QRV_REFUSE_OR_FORWARD(H5Tget_sign, H5T_SGN_ERROR, type);
}

hid_t H5Screate(H5S_class_t kind) {
    QRV_REFUSE_OR_MAKE(H5Screate, kind);
}
hid_t H5Screate_simple(int rank, const hsize_t dimensions[], const hsize_t limits[]) {
    QRV_REFUSE_OR_MAKE(H5Screate_simple, rank, dimensions, limits);
}
hssize_t H5Sget_simple_extent_npoints(hid_t space) {
    QRV_REFUSE_OR_FORWARD(H5Sget_simple_extent_npoints, -1, space);
}
int H5Sget_simple_extent_ndims(hid_t space) {
    QRV_REFUSE_OR_FORWARD(H5Sget_simple_extent_ndims, -1, space);
}
int H5Sget_simple_extent_dims(hid_t space, hsize_t dimensions[], hsize_t limits[]) {
    QRV_REFUSE_OR_FORWARD(H5Sget_simple_extent_dims, -1, space, dimensions, limits);
}

hid_t H5Pcreate(hid_t kind) {
    QRV_REFUSE_OR_MAKE(H5Pcreate, kind);
}
herr_t H5Pset_create_intermediate_group(hid_t list, unsigned make) {
    QRV_REFUSE_OR_FORWARD(H5Pset_create_intermediate_group, -1, list, make);
}

herr_t H5Tclose(hid_t type) {
    QRV_CLOSE(H5Tclose, type);
}
herr_t H5Sclose(hid_t space) {
    QRV_CLOSE(H5Sclose, space);
}
herr_t H5Pclose(hid_t list) {
    QRV_CLOSE(H5Pclose, list);
}

}  // extern "C"
