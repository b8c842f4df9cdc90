// Scalar HDF5 attributes, the storage of table items and of object attributes.
#ifndef QRV_PLATFORM_RSV_H5_ATTRIBUTES_H
#define QRV_PLATFORM_RSV_H5_ATTRIBUTES_H

#include <hdf5.h>

#include <cstddef>
#include <map>
#include <optional>
#include <string>

#include "rsv/h5_handle.h"

namespace QRV3DRSVExTool {

// A table is a group that carries this text attribute with this value; its items are its other
// attributes.
constexpr const char* kTableMarker = "RSV_CLASS";
constexpr const char* kTableClass = "TABLE";

// The dataspace and the text types of scalar attributes, made once per open file rather than once
// per attribute; the tool keeps one and gives it to its tables.
class AttributeShapes {
public:
    // False when HDF5 refuses the scalar dataspace.
    bool make();
    void reset();

    hid_t scalar() const { return Scalar.get(); }
    // A zero-terminated fixed-length text type of bytes bytes (the terminator included). Types
    // of up to kKeptTextBytes are kept; a longer one is made into longer and given back from there.
    // Negative when HDF5 refuses.
    hid_t text(std::size_t bytes, H5Type& longer);

private:
    static constexpr std::size_t kKeptTextBytes = 256;

    H5Space Scalar;
    std::map<std::size_t, H5Type> Texts;
};

// Writes a scalar attribute (32-bit integer, binary64 or a zero-terminated fixed-length text),
// replacing one of the same name: 0, or -1.
int writeScalarAttribute(hid_t object, const std::string& name, int value, AttributeShapes& shapes);
int writeScalarAttribute(hid_t object, const std::string& name, double value,
                         AttributeShapes& shapes);
int writeScalarAttribute(hid_t object, const std::string& name, const char* value,
                         AttributeShapes& shapes);

// Reads an attribute that holds exactly one value of the matching class: 0, or -1 with the output
// untouched.
int readScalarAttribute(hid_t object, const std::string& name, int* value);
int readScalarAttribute(hid_t object, const std::string& name, double* value);
int readScalarAttribute(hid_t object, const std::string& name, std::string* value);

// Whether the open group is a table: its marker is there and holds the text kTableClass. Nothing
// when HDF5 cannot tell (it refuses to read a text marker); isMarkedTable takes that for no.
std::optional<bool> tableMark(hid_t group);
bool isMarkedTable(hid_t group);

}  // namespace QRV3DRSVExTool

#endif
