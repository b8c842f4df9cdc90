// Scalar HDF5 attributes, the storage of table items and of object attributes, and the switch
// that keeps HDF5's error printing off during a store operation.
#ifndef QRV_PLATFORM_RSV_H5_ATTRIBUTES_H
#define QRV_PLATFORM_RSV_H5_ATTRIBUTES_H

#include <hdf5.h>

#include <string>

#include "rsv/h5_handle.h"

namespace QRV3DRSVExTool {

// HDF5 prints its error stack on stderr by default. Each store operation turns that off for its
// duration and puts back whatever the process had set, so a host using HDF5 keeps its setting.
class ErrorSilence {
public:
    ErrorSilence();
    ~ErrorSilence();
    ErrorSilence(const ErrorSilence&) = delete;
    ErrorSilence& operator=(const ErrorSilence&) = delete;

private:
    H5E_auto2_t Handler = nullptr;
    void* Data = nullptr;
};

// Writes a scalar attribute (32-bit integer, binary64 or a zero-terminated fixed-length text),
// replacing one of the same name: 0, or -1.
int writeScalarAttribute(hid_t object, const std::string& name, int value);
int writeScalarAttribute(hid_t object, const std::string& name, double value);
int writeScalarAttribute(hid_t object, const std::string& name, const char* value);

// A C text type of length bytes (H5T_VARIABLE for texts of any length), zero-terminated; an
// invalid handle when HDF5 refuses it.
H5Type textType(size_t length);

// Reads an attribute that holds exactly one value of the matching class: 0, or -1 with the output
// untouched.
int readScalarAttribute(hid_t object, const std::string& name, int* value);
int readScalarAttribute(hid_t object, const std::string& name, double* value);
int readScalarAttribute(hid_t object, const std::string& name, std::string* value);

}  // namespace QRV3DRSVExTool

#endif
