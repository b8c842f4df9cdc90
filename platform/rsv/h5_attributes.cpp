#include "rsv/h5_attributes.h"

#include "rsv/h5_handle.h"

#include <cstring>
#include <vector>

namespace QRV3DRSVExTool {

ErrorSilence::ErrorSilence() {
    H5Eget_auto2(H5E_DEFAULT, &Handler, &Data);
    H5Eset_auto2(H5E_DEFAULT, nullptr, nullptr);
}

ErrorSilence::~ErrorSilence() {
    H5Eset_auto2(H5E_DEFAULT, Handler, Data);
}

namespace {

// A failed HDF5 call answers an invalid id, and every later call on that id fails in turn (HDF5's
// error printing is off during a store operation): so a chain of calls that can fail only when
// HDF5 itself does is checked once, at its last call, with the same result as a check per call.
int writeAttribute(hid_t object, const std::string& name, hid_t fileType, hid_t memoryType,
                   const void* value) {
    // An old attribute that cannot be deleted makes the create below fail.
    if (H5Aexists(object, name.c_str()) > 0) H5Adelete(object, name.c_str());
    H5Space space(H5Screate(H5S_SCALAR));
    H5Attribute attribute(
        H5Acreate2(object, name.c_str(), fileType, space.get(), H5P_DEFAULT, H5P_DEFAULT));
    return H5Awrite(attribute.get(), memoryType, value) < 0 ? -1 : 0;
}

// The attribute when it holds exactly one value of the given class; an invalid handle otherwise
// (a failed open gives no space and no class, and so fails the same tests).
H5Attribute openSingle(hid_t object, const std::string& name, H5T_class_t wanted,
                       H5Type* storedType) {
    if (H5Aexists(object, name.c_str()) <= 0) return H5Attribute();
    H5Attribute attribute(H5Aopen(object, name.c_str(), H5P_DEFAULT));
    H5Space space(H5Aget_space(attribute.get()));
    H5Type type(H5Aget_type(attribute.get()));
    if (H5Sget_simple_extent_npoints(space.get()) != 1 || H5Tget_class(type.get()) != wanted)
        return H5Attribute();
    *storedType = std::move(type);
    return attribute;
}

template <typename Number>
int readNumber(hid_t object, const std::string& name, Number* value, H5T_class_t wanted,
               hid_t memoryType) {
    if (!value) return -1;
    H5Type stored;
    H5Attribute attribute = openSingle(object, name, wanted, &stored);
    Number read{};
    if (!attribute || H5Aread(attribute.get(), memoryType, &read) < 0) return -1;
    *value = read;
    return 0;
}

}  // namespace

int writeScalarAttribute(hid_t object, const std::string& name, int value) {
    return writeAttribute(object, name, H5T_STD_I32LE, H5T_NATIVE_INT, &value);
}

int writeScalarAttribute(hid_t object, const std::string& name, double value) {
    return writeAttribute(object, name, H5T_IEEE_F64LE, H5T_NATIVE_DOUBLE, &value);
}

H5Type textType(size_t length) {
    H5Type type(H5Tcopy(H5T_C_S1));
    H5Tset_strpad(type.get(),
                  H5T_STR_NULLTERM);  // fails only without a copy, as the size then does
    if (H5Tset_size(type.get(), length) < 0) return H5Type();  // a length of 0 included
    return type;
}

int writeScalarAttribute(hid_t object, const std::string& name, const char* value) {
    if (!value) return -1;
    // A fixed-length text with its terminator, so that an empty text has a size of 1 too.
    H5Type type = textType(std::strlen(value) + 1);
    if (!type) return -1;
    return writeAttribute(object, name, type.get(), type.get(), value);
}

int readScalarAttribute(hid_t object, const std::string& name, int* value) {
    return readNumber(object, name, value, H5T_INTEGER, H5T_NATIVE_INT);
}

int readScalarAttribute(hid_t object, const std::string& name, double* value) {
    return readNumber(object, name, value, H5T_FLOAT, H5T_NATIVE_DOUBLE);
}

int readScalarAttribute(hid_t object, const std::string& name, std::string* value) {
    if (!value) return -1;
    H5Type stored;
    H5Attribute attribute = openSingle(object, name, H5T_STRING, &stored);
    if (!attribute) return -1;
    if (H5Tis_variable_str(stored.get()) > 0) {
        char* text = nullptr;
        if (H5Aread(attribute.get(), textType(H5T_VARIABLE).get(), &text) < 0) return -1;
        value->assign(text ? text : "");
        H5free_memory(text);
        return 0;
    }
    // Fixed length: read the bytes as stored and stop at the first zero, if any.
    // Texts of a table are short; a declared size beyond 1 MiB is taken for damage, not read.
    const size_t size = H5Tget_size(stored.get());
    if (size == 0 || size > (size_t{1} << 20)) return -1;
    std::vector<char> bytes(size + 1, '\0');
    if (H5Aread(attribute.get(), stored.get(), bytes.data()) < 0) return -1;
    value->assign(bytes.data(), strnlen(bytes.data(), size));
    return 0;
}

}  // namespace QRV3DRSVExTool
