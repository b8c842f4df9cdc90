// Arrays and the compound element types built for them.
#include "rsv/h5_attributes.h"
#include "rsv/rsv_tool.h"

namespace QRV3DRSVExTool {

namespace {

// The memory type of an element type code; the file holds the same little-endian layout.
H5Type codeType(int code) {
    if (code == kTypeInt32) return H5Type(H5Tcopy(H5T_NATIVE_INT32));
    if (code == kTypeDouble) return H5Type(H5Tcopy(H5T_NATIVE_DOUBLE));
    return H5Type();
}

// Negative when HDF5 fails: a failed H5Dget_space leaves nothing to count.
hssize_t elementCount(hid_t dataset) {
    return H5Sget_simple_extent_npoints(H5Space(H5Dget_space(dataset)).get());
}

}  // namespace

const CRSVTool::Compound* CRSVTool::compound(int handle) const {
    const long index = static_cast<long>(handle) - kFirstCompoundHandle;
    if (index < 0 || index >= static_cast<long>(Compounds.size())) return nullptr;
    return &Compounds[static_cast<size_t>(index)];
}

CRSVArray* CRSVTool::CreateArray(CRSVGroup* group, const std::string& name, int type, size_t rows,
                                 size_t columns) {
    ErrorSilence silence;
    if (!group || name.empty()) return nullptr;
    H5Type memoryType = codeType(type);
    if (!memoryType) {
        const Compound* built = compound(type);
        if (!built || !built->Complete) return nullptr;
        memoryType = H5Type(H5Tcopy(built->Type.get()));
    }
    // A type or space HDF5 failed to make fails the create.
    const hsize_t dimensions[2] = {rows, columns};
    H5Space space(H5Screate_simple(2, dimensions, nullptr));
    H5Dataset dataset(H5Dcreate2(group->ObjectId(), name.c_str(), memoryType.get(), space.get(),
                                 H5P_DEFAULT, H5P_DEFAULT, H5P_DEFAULT));
    if (!dataset) return nullptr;
    Arrays.push_back(std::make_unique<CRSVArray>(std::move(dataset), std::move(memoryType)));
    return Arrays.back().get();
}

CRSVArray* CRSVTool::OpenArray(CRSVGroup* group, const std::string& name) {
    ErrorSilence silence;
    if (!group || name.empty()) return nullptr;
    H5Dataset dataset(H5Dopen2(group->ObjectId(), name.c_str(), H5P_DEFAULT));
    if (!dataset) return nullptr;
    H5Type stored(H5Dget_type(dataset.get()));
    H5Type memoryType(H5Tget_native_type(stored.get(), H5T_DIR_ASCEND));  // fails without a type
    if (!memoryType) return nullptr;
    Arrays.push_back(std::make_unique<CRSVArray>(std::move(dataset), std::move(memoryType)));
    return Arrays.back().get();
}

int CRSVTool::BeginCreateCompoundDataType(size_t size) {
    ErrorSilence silence;
    if (size == 0) return -1;
    H5Type type(H5Tcreate(H5T_COMPOUND, size));
    if (!type) return -1;
    Compounds.push_back(Compound{std::move(type), false});
    return kFirstCompoundHandle + static_cast<int>(Compounds.size() - 1);
}

int CRSVTool::AddCompoundDataTypeMember(int handle, const std::string& name, int type,
                                        size_t offset) {
    ErrorSilence silence;
    const Compound* built = compound(handle);
    if (!built || built->Complete) return -1;
    // An unknown type code gives no member type, and the insert fails.
    return H5Tinsert(built->Type.get(), name.c_str(), offset, codeType(type).get()) < 0 ? -1 : 0;
}

int CRSVTool::AddCompoundDataTypeFixedLengthStringMember(int handle, const std::string& name,
                                                         size_t offset, size_t length) {
    ErrorSilence silence;
    const Compound* built = compound(handle);
    // A length of 0 gives no text type, and the insert fails.
    if (!built || built->Complete) return -1;
    return H5Tinsert(built->Type.get(), name.c_str(), offset, textType(length).get()) < 0 ? -1 : 0;
}

int CRSVTool::EndCreateCompoundDataType(int handle) {
    const Compound* built = compound(handle);
    if (!built || built->Complete) return -1;
    Compounds[static_cast<size_t>(handle - kFirstCompoundHandle)].Complete = true;
    return 0;
}

namespace {

// Moves the whole array through one HDF5 call; an empty array moves nothing and needs no buffer.
template <typename Buffer, typename Transfer>
int transferWhole(hid_t dataset, Buffer buffer, Transfer transfer) {
    ErrorSilence silence;
    const hssize_t count = elementCount(dataset);
    if (count == 0) return 0;
    if (!buffer || count < 0) return -1;
    return transfer() < 0 ? -1 : 0;
}

}  // namespace

int CRSVArray::WriteArray(const void* buffer) {
    return transferWhole(Dataset.get(), buffer, [&] {
        return H5Dwrite(Dataset.get(), MemoryType.get(), H5S_ALL, H5S_ALL, H5P_DEFAULT, buffer);
    });
}

int CRSVArray::ReadArray(void* buffer) {
    return transferWhole(Dataset.get(), buffer, [&] {
        return H5Dread(Dataset.get(), MemoryType.get(), H5S_ALL, H5S_ALL, H5P_DEFAULT, buffer);
    });
}

int CRSVArray::GetDimension(size_t* rows, size_t* columns) {
    ErrorSilence silence;
    if (!rows || !columns) return -1;
    *rows = 0;
    *columns = 0;
    H5Space space(H5Dget_space(Dataset.get()));
    hsize_t dimensions[2] = {0, 0};
    if (H5Sget_simple_extent_ndims(space.get()) != 2 ||
        H5Sget_simple_extent_dims(space.get(), dimensions, nullptr) != 2)
        return -1;
    *rows = static_cast<size_t>(dimensions[0]);
    *columns = static_cast<size_t>(dimensions[1]);
    return 0;
}

int CRSVArray::GetElementType() const {
    ErrorSilence silence;
    const H5T_class_t kind = H5Tget_class(MemoryType.get());
    const size_t size = H5Tget_size(MemoryType.get());
    if (kind == H5T_FLOAT && size == 8) return kTypeDouble;
    if (kind == H5T_INTEGER && size == 4 && H5Tget_sign(MemoryType.get()) == H5T_SGN_2)
        return kTypeInt32;
    return -1;
}

}  // namespace QRV3DRSVExTool
