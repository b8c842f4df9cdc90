#include "rsv/h5_attributes.h"

#include <cstring>
#include <vector>

namespace QRV3DRSVExTool {

namespace {

int writeAttribute(hid_t object, const std::string& name, hid_t fileType, hid_t memoryType,
                   const void* value, hid_t scalar) {
    // Most items are new: the create is tried first, and only when it fails is an item of the
    // same name looked for and replaced.
    H5Attribute attribute(
        H5Acreate2(object, name.c_str(), fileType, scalar, H5P_DEFAULT, H5P_DEFAULT));
    if (!attribute) {
        if (H5Aexists(object, name.c_str()) <= 0 || H5Adelete(object, name.c_str()) < 0) return -1;
        attribute = H5Attribute(
            H5Acreate2(object, name.c_str(), fileType, scalar, H5P_DEFAULT, H5P_DEFAULT));
        if (!attribute) return -1;
    }
    return H5Awrite(attribute.get(), memoryType, value) < 0 ? -1 : 0;
}

// The attribute when it holds exactly one value of the given class; an invalid handle otherwise.
// A missing name fails in the open itself.
H5Attribute openSingle(hid_t object, const std::string& name, H5T_class_t wanted,
                       H5Type* storedType) {
    H5Attribute attribute(H5Aopen(object, name.c_str(), H5P_DEFAULT));
    if (!attribute) return H5Attribute();
    H5Space space(H5Aget_space(attribute.get()));
    H5Type type(H5Aget_type(attribute.get()));
    if (!space || !type || H5Sget_simple_extent_npoints(space.get()) != 1 ||
        H5Tget_class(type.get()) != wanted)
        return H5Attribute();
    *storedType = std::move(type);
    return attribute;
}

template <typename Number>
int readNumber(hid_t object, const std::string& name, Number* value, H5T_class_t wanted,
               hid_t memoryType) {
    if (!value) return -1;
    H5Attribute attribute(H5Aopen(object, name.c_str(), H5P_DEFAULT));
    if (!attribute) return -1;
    // One value of the class: its stored bytes are exactly one element of its type (a number
    // type has a fixed size; an empty or longer attribute, or a text, is refused).
    H5Type stored(H5Aget_type(attribute.get()));
    H5A_info_t info{};
    if (!stored || H5Tget_class(stored.get()) != wanted ||
        H5Aget_info(attribute.get(), &info) < 0 || info.data_size == 0 ||
        info.data_size != H5Tget_size(stored.get()))
        return -1;
    Number read{};
    if (H5Aread(attribute.get(), memoryType, &read) < 0) return -1;
    *value = read;
    return 0;
}

}  // namespace

bool AttributeShapes::make() {
    Scalar = H5Space(H5Screate(H5S_SCALAR));
    return Scalar.valid();
}

void AttributeShapes::reset() {
    Texts.clear();
    Scalar.reset();
}

hid_t AttributeShapes::text(std::size_t bytes, H5Type& longer) {
    auto kept = Texts.find(bytes);
    if (kept != Texts.end()) return kept->second.get();
    H5Type type(H5Tcopy(H5T_C_S1));
    if (!type || H5Tset_size(type.get(), bytes) < 0 ||
        H5Tset_strpad(type.get(), H5T_STR_NULLTERM) < 0)
        return H5I_INVALID_HID;
    if (bytes > kKeptTextBytes) {
        longer = std::move(type);
        return longer.get();
    }
    return Texts.emplace(bytes, std::move(type)).first->second.get();
}

int writeScalarAttribute(hid_t object, const std::string& name, int value,
                         AttributeShapes& shapes) {
    return writeAttribute(object, name, H5T_STD_I32LE, H5T_NATIVE_INT, &value, shapes.scalar());
}

int writeScalarAttribute(hid_t object, const std::string& name, double value,
                         AttributeShapes& shapes) {
    return writeAttribute(object, name, H5T_IEEE_F64LE, H5T_NATIVE_DOUBLE, &value, shapes.scalar());
}

int writeScalarAttribute(hid_t object, const std::string& name, const char* value,
                         AttributeShapes& shapes) {
    if (!value) return -1;
    // A fixed-length text with its terminator, so that an empty text has a size of 1 too.
    H5Type longer;
    const hid_t type = shapes.text(std::strlen(value) + 1, longer);
    if (type < 0) return -1;
    return writeAttribute(object, name, type, type, value, shapes.scalar());
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
    // A text whose kind HDF5 cannot tell is not read: read as a fixed one, a variable-length
    // text would give the bytes of HDF5's pointer to it, and leak the text.
    const htri_t variable = H5Tis_variable_str(stored.get());
    if (variable < 0) return -1;
    if (variable > 0) {
        H5Type memory(H5Tcopy(H5T_C_S1));
        char* text = nullptr;
        if (!memory || H5Tset_size(memory.get(), H5T_VARIABLE) < 0 ||
            H5Aread(attribute.get(), memory.get(), &text) < 0)
            return -1;
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

std::optional<bool> tableMark(hid_t group) {
    // Asked first whether the marker is there at all: most groups opened as groups have none,
    // and a failed read costs HDF5 an error stack.
    const htri_t marked = H5Aexists(group, kTableMarker);
    if (marked <= 0) return marked < 0 ? std::nullopt : std::optional<bool>(false);
    std::string marker;
    if (readScalarAttribute(group, kTableMarker, &marker) == 0) return marker == kTableClass;
    // Not read as a text: a marker of another class is no table's; a text that did not read
    // leaves it open.
    H5Attribute attribute(H5Aopen(group, kTableMarker, H5P_DEFAULT));
    H5Type type(attribute ? H5Aget_type(attribute.get()) : H5I_INVALID_HID);
    const H5T_class_t kind = type ? H5Tget_class(type.get()) : H5T_NO_CLASS;
    if (kind == H5T_NO_CLASS || kind == H5T_STRING) return std::nullopt;
    return false;
}

bool isMarkedTable(hid_t group) {
    return tableMark(group).value_or(false);
}

}  // namespace QRV3DRSVExTool
