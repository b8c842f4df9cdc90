// Arrays and the compound element types built for them.
#include "rsv/h5_attributes.h"
#include "rsv/rsv_tool.h"

namespace QRV3DRSVExTool {

namespace {

// The memory type of an element type code, one of HDF5's own; the file holds the same
// little-endian layout. Negative for any other code.
hid_t codeType(int code) {
    if (code == kTypeInt32) return H5T_NATIVE_INT32;
    if (code == kTypeDouble) return H5T_NATIVE_DOUBLE;
    return H5I_INVALID_HID;
}

// The code of a memory type: kTypeDouble for an 8-byte real, kTypeInt32 for a 4-byte signed
// integer, -1 otherwise.
int typeCode(hid_t type) {
    const H5T_class_t kind = H5Tget_class(type);
    const size_t size = H5Tget_size(type);
    if (kind == H5T_FLOAT && size == 8) return kTypeDouble;
    if (kind == H5T_INTEGER && size == 4 && H5Tget_sign(type) == H5T_SGN_2) return kTypeInt32;
    return -1;
}

// The memory type in which to read an array stored in type stored. An 8-byte real and a 4-byte
// signed integer, whatever their byte order, are read as the native double and int32; any other
// type as HDF5's native counterpart, which is made for the array.
void chooseMemoryType(hid_t stored, ArrayLayout& layout) {
    const int code = typeCode(stored);
    if (code >= 0) {
        layout.MemoryType = codeType(code);
        layout.ElementType = code;
        return;
    }
    layout.OwnedType = H5Type(H5Tget_native_type(stored, H5T_DIR_ASCEND));
    layout.MemoryType = layout.OwnedType.get();
    layout.ElementType = layout.OwnedType ? typeCode(layout.OwnedType.get()) : -1;
}

// Rank, dimensions and element count of a stored array; false when HDF5 cannot tell.
bool readShape(hid_t dataset, ArrayLayout& layout) {
    H5Space space(H5Dget_space(dataset));
    if (!space) return false;
    layout.Rank = H5Sget_simple_extent_ndims(space.get());
    if (layout.Rank == 2) {
        if (H5Sget_simple_extent_dims(space.get(), layout.Dimensions, nullptr) != 2) return false;
        layout.Elements = static_cast<hssize_t>(layout.Dimensions[0] * layout.Dimensions[1]);
    } else {
        layout.Elements = H5Sget_simple_extent_npoints(space.get());
    }
    return layout.Elements >= 0;
}

}  // namespace

const CRSVTool::Compound* CRSVTool::compound(int handle) const {
    const long index = static_cast<long>(handle) - kFirstCompoundHandle;
    if (index < 0 || index >= static_cast<long>(Compounds.size())) return nullptr;
    const Compound& found = Compounds[static_cast<size_t>(index)];
    return found.SameAs ? &Compounds[*found.SameAs] : &found;
}

CRSVArray* CRSVTool::CreateArray(CRSVGroup* group, const std::string& name, int type, size_t rows,
                                 size_t columns) {
    ErrorSilence silence;
    if (!group || name.empty()) return nullptr;
    ArrayLayout layout{H5Type(), codeType(type), type, 2, {rows, columns}, 0};
    if (layout.MemoryType < 0) {
        // A compound handle: its type lives until Close, which releases the arrays first.
        const Compound* built = compound(type);
        if (!built || !built->Complete) return nullptr;
        layout.MemoryType = built->Type.get();
        layout.ElementType = -1;
    }
    H5Space space(H5Screate_simple(2, layout.Dimensions, nullptr));
    if (!space) return nullptr;
    layout.Elements = H5Sget_simple_extent_npoints(space.get());
    H5Dataset dataset(H5Dcreate2(group->ObjectId(), name.c_str(), layout.MemoryType, space.get(),
                                 H5P_DEFAULT, H5P_DEFAULT, H5P_DEFAULT));
    if (!dataset) return nullptr;
    made(group, name, MemberKind::Array);
    Arrays.push_back(std::make_unique<CRSVArray>(std::move(dataset), std::move(layout)));
    return Arrays.back().get();
}

CRSVArray* CRSVTool::OpenArray(CRSVGroup* group, const std::string& name) {
    ErrorSilence silence;
    if (!group || name.empty()) return nullptr;
    H5Dataset dataset(H5Dopen2(group->ObjectId(), name.c_str(), H5P_DEFAULT));
    if (!dataset) return nullptr;
    ArrayLayout layout{H5Type(), H5I_INVALID_HID, -1, 0, {0, 0}, -1};
    H5Type stored(H5Dget_type(dataset.get()));
    if (!stored) return nullptr;
    chooseMemoryType(stored.get(), layout);
    if (layout.MemoryType < 0) return nullptr;
    // A shape HDF5 cannot tell leaves an array whose transfers and dimension fail.
    if (!readShape(dataset.get(), layout)) layout.Elements = -1;
    Arrays.push_back(std::make_unique<CRSVArray>(std::move(dataset), std::move(layout)));
    return Arrays.back().get();
}

int CRSVTool::BeginCreateCompoundDataType(size_t size) {
    ErrorSilence silence;
    if (size == 0) return -1;
    H5Type type(H5Tcreate(H5T_COMPOUND, size));
    if (!type) return -1;
    Compounds.push_back(Compound{std::move(type), false, std::nullopt});
    return kFirstCompoundHandle + static_cast<int>(Compounds.size() - 1);
}

int CRSVTool::AddCompoundDataTypeMember(int handle, const std::string& name, int type,
                                        size_t offset) {
    ErrorSilence silence;
    const Compound* built = compound(handle);
    const hid_t member = codeType(type);
    if (!built || built->Complete || member < 0) return -1;
    return H5Tinsert(built->Type.get(), name.c_str(), offset, member) < 0 ? -1 : 0;
}

int CRSVTool::AddCompoundDataTypeFixedLengthStringMember(int handle, const std::string& name,
                                                         size_t offset, size_t length) {
    ErrorSilence silence;
    const Compound* built = compound(handle);
    if (!built || built->Complete || length == 0) return -1;
    H5Type member(H5Tcopy(H5T_C_S1));
    if (!member || H5Tset_size(member.get(), length) < 0 ||
        H5Tset_strpad(member.get(), H5T_STR_NULLTERM) < 0)
        return -1;
    return H5Tinsert(built->Type.get(), name.c_str(), offset, member.get()) < 0 ? -1 : 0;
}

int CRSVTool::EndCreateCompoundDataType(int handle) {
    ErrorSilence silence;
    const Compound* built = compound(handle);
    if (!built || built->Complete) return -1;
    const size_t index = static_cast<size_t>(handle - kFirstCompoundHandle);
    Compound& completed = Compounds[index];
    completed.Complete = true;
    for (size_t earlier : DistinctCompounds) {
        if (H5Tequal(Compounds[earlier].Type.get(), completed.Type.get()) > 0) {
            completed.Type.reset();
            completed.SameAs = earlier;
            return 0;
        }
    }
    DistinctCompounds.push_back(index);
    return 0;
}

namespace {

// Moves the whole array through one HDF5 call; an empty array moves nothing and needs no buffer.
template <typename Buffer, typename Transfer>
int transferWhole(hssize_t count, Buffer buffer, Transfer transfer) {
    ErrorSilence silence;
    if (count == 0) return 0;
    if (!buffer || count < 0) return -1;
    return transfer() < 0 ? -1 : 0;
}

}  // namespace

int CRSVArray::WriteArray(const void* buffer) {
    return transferWhole(Layout.Elements, buffer, [&] {
        return H5Dwrite(Dataset.get(), Layout.MemoryType, H5S_ALL, H5S_ALL, H5P_DEFAULT, buffer);
    });
}

int CRSVArray::ReadArray(void* buffer) {
    return transferWhole(Layout.Elements, buffer, [&] {
        return H5Dread(Dataset.get(), Layout.MemoryType, H5S_ALL, H5S_ALL, H5P_DEFAULT, buffer);
    });
}

int CRSVArray::GetDimension(size_t* rows, size_t* columns) {
    if (!rows || !columns) return -1;
    *rows = 0;
    *columns = 0;
    if (Layout.Rank != 2 || Layout.Elements < 0) return -1;
    *rows = static_cast<size_t>(Layout.Dimensions[0]);
    *columns = static_cast<size_t>(Layout.Dimensions[1]);
    return 0;
}

int CRSVArray::GetElementType() const {
    return Layout.ElementType;
}

}  // namespace QRV3DRSVExTool
