// Scalar HDF5 attributes, the storage of table items and of object attributes.
#ifndef QRV_PLATFORM_RSV_H5_ATTRIBUTES_H
#define QRV_PLATFORM_RSV_H5_ATTRIBUTES_H

#include <hdf5.h>

#include <string>

namespace QRV3DRSVExTool {

// A table is a group that carries this text attribute with this value; its items are its other
// attributes.
constexpr const char* kTableMarker = "RSV_CLASS";
constexpr const char* kTableClass = "TABLE";

// Writes a scalar attribute (32-bit integer, binary64 or a zero-terminated fixed-length text),
// replacing one of the same name: 0, or -1. scalar is a scalar dataspace, made once by the caller.
int writeScalarAttribute(hid_t object, const std::string& name, int value, hid_t scalar);
int writeScalarAttribute(hid_t object, const std::string& name, double value, hid_t scalar);
int writeScalarAttribute(hid_t object, const std::string& name, const char* value, hid_t scalar);

// Reads an attribute that holds exactly one value of the matching class: 0, or -1 with the output
// untouched.
int readScalarAttribute(hid_t object, const std::string& name, int* value);
int readScalarAttribute(hid_t object, const std::string& name, double* value);
int readScalarAttribute(hid_t object, const std::string& name, std::string* value);

}  // namespace QRV3DRSVExTool

#endif
