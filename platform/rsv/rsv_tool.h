// QRV3DRSVExTool: the run-file store. A run file is an HDF5 file that any HDF5 tool can read:
// groups are HDF5 groups, an array is a two-dimensional dataset of its element type, a table is a
// group marked with the attribute RSV_CLASS = "TABLE" whose items are its scalar attributes, and an
// attribute of a group or array is a scalar HDF5 attribute.
//
// The tool makes and owns every handle it gives out; CloseGroup, CloseTable and CloseArray give one
// back, and Close releases whatever is still open. A handle the tool did not make, or one already
// given back, is refused (-1) and never dereferenced. Every operation answers a failure value and
// nothing else: a null handle for the opens and creates, a non-zero (negative) int otherwise, and
// no HDF5 error text reaches stderr (the library's printing is switched off around each call and
// put back afterwards, so a host that uses HDF5 itself keeps its own setting; error_silence.h).
#ifndef QRV_PLATFORM_RSV_RSV_TOOL_H
#define QRV_PLATFORM_RSV_RSV_TOOL_H

#include <cstddef>
#include <map>
#include <memory>
#include <optional>
#include <string>
#include <vector>

#include "rsv/error_silence.h"
#include "rsv/h5_attributes.h"
#include "rsv/h5_handle.h"
#include "rsv/member_counts.h"
#include "rsv/metadata_cache.h"

namespace QRV3DRSVExTool {

// Element type codes of CreateArray and AddCompoundDataTypeMember.
constexpr int kTypeInt32 = 3;
constexpr int kTypeDouble = 8;
// Compound type handles are numbered from here, apart from the element type codes, since both
// travel in the same argument of CreateArray.
constexpr int kFirstCompoundHandle = 1024;

// Anything that can carry attributes: a group or an array.
class CRSVObject {
public:
    virtual ~CRSVObject();
    virtual hid_t ObjectId() const = 0;
};

class CRSVGroup : public CRSVObject {
public:
    // key: which group this is, when the tool knows it already.
    CRSVGroup(H5Group group, std::optional<GroupKey> key)
        : Group(std::move(group)), KeyKnown(key.has_value()), KeyValue(std::move(key)) {}
    hid_t ObjectId() const override { return Group.get(); }

    // Direct sub-groups (tables not counted) and direct arrays; 0 when the group cannot be read.
    // The group is walked once while its file is open; see member_counts.h.
    size_t GetGroupCount();
    size_t GetArrayCount();

    // Which group this is, whatever path reached it; asked of HDF5 once per handle.
    const std::optional<GroupKey>& Key();

private:
    H5Group Group;
    bool KeyKnown = false;
    std::optional<GroupKey> KeyValue;
};

class CRSVTable {
public:
    // shapes: the tool's attribute dataspace and text types, which outlive its tables.
    CRSVTable(H5Group group, AttributeShapes& shapes) : Group(std::move(group)), Shapes(shapes) {}

    // Store an item, replacing one of the same key: 0, or -1 for a null text or a key that HDF5
    // refuses (the marker key RSV_CLASS included).
    int SetItem(const std::string& key, int value);
    int SetItem(const std::string& key, double value);
    int SetItem(const std::string& key, const char* value);
    int SetItem(const std::string& key, const std::string& value);

    // Read an item: 0, or -1 with the output untouched when the output is null, the key is
    // missing, the item holds other than one value, or its kind differs (an integer item for int,
    // a real for double, a text for std::string; fixed or variable-length HDF5 text).
    int GetItem(const std::string& key, int* value);
    int GetItem(const std::string& key, double* value);
    int GetItem(const std::string& key, std::string* value);

private:
    H5Group Group;
    AttributeShapes& Shapes;
};

// What an array holds as the tool found or made it: the element type to transfer in and its shape.
// Asked of HDF5 once, when the array is opened or created.
struct ArrayLayout {
    H5Type OwnedType;  // a type made for this array (compound, unusual numbers); may be invalid
    hid_t MemoryType;  // OwnedType, or one of HDF5's predefined native types
    int ElementType;   // kTypeInt32, kTypeDouble or -1
    int Rank;
    hsize_t Dimensions[2];  // valid when Rank is 2
    hssize_t Elements;      // every element of the array, of any rank; -1 if unknown
};

class CRSVArray : public CRSVObject {
public:
    CRSVArray(H5Dataset dataset, ArrayLayout layout)
        : Dataset(std::move(dataset)), Layout(std::move(layout)) {}
    hid_t ObjectId() const override { return Dataset.get(); }

    // Whole array from or into a buffer laid out row after row in the array's element type: 0,
    // or -1 for a null buffer or an HDF5 failure. An empty array transfers nothing and gives 0.
    int WriteArray(const void* buffer);
    int ReadArray(void* buffer);

    // Rows and columns in the order CreateArray took them: 0, or -1 with both set to 0 for a
    // null output or a dataset that is not two-dimensional.
    int GetDimension(size_t* rows, size_t* columns);

    // kTypeInt32 or kTypeDouble for those element types as stored, -1 for any other (a text,
    // a compound, another width). Lets a reader refuse an array it would misread.
    int GetElementType() const;

private:
    H5Dataset Dataset;
    ArrayLayout Layout;
};

class CRSVTool {
public:
    CRSVTool();
    virtual ~CRSVTool();
    CRSVTool(const CRSVTool&) = delete;
    CRSVTool& operator=(const CRSVTool&) = delete;

    // A new run file with its root group /Vantrell/, left open read-write; 0, or -1 when the file
    // exists (it is not touched) or cannot be made. The three numbers are accepted and not used.
    // A file already open in this tool is closed first.
    int Create(const std::string& path, unsigned int major, unsigned int minor, unsigned int flags);
    // An existing run file, read-write: 0, or -1 when it is missing, not HDF5, not writable, or
    // held open by another process (HDF5's file lock; the call fails at once, it does not wait).
    int Open(const std::string& path);
    // Releases every handle still open, then the file. A closed tool stays closed.
    void Close();

    // /Vantrell/Run<run>/. When missing it is made, with Entity/ and Description/ in it, if the
    // file is open and run >= 1; otherwise null.
    CRSVGroup* OpenGroup(int run);
    // Category 1 Entity/, 2 Material/, 7 Description/ of the run; null when missing or for any
    // other category. Never creates.
    CRSVGroup* OpenGroup(int run, int category);
    // A sub-group by a relative path that may end in "/" and descends at "/" and at "\"; null
    // when missing, empty or not a group.
    CRSVGroup* OpenGroup(CRSVGroup* parent, std::string path);
    // A new sub-group (missing intermediate groups of a path are made too), returned open; null
    // when it exists already or the parent is null.
    CRSVGroup* CreateGroup(CRSVGroup* parent, std::string name);
    int CloseGroup(CRSVGroup* group);

    // Null for a null group, an existing name, or (OpenTable) a node that is not a table.
    CRSVTable* CreateTable(CRSVGroup* group, const std::string& name);
    CRSVTable* OpenTable(CRSVGroup* group, const std::string& name);
    int CloseTable(CRSVTable* table);

    // Element type kTypeInt32, kTypeDouble or a completed compound handle; null for any other
    // type, a null group or an existing name. OpenArray answers null for a missing name or a node
    // that is not an array.
    CRSVArray* CreateArray(CRSVGroup* group, const std::string& name, int type, size_t rows,
                           size_t columns);
    CRSVArray* OpenArray(CRSVGroup* group, const std::string& name);
    int CloseArray(CRSVArray* array);

    // A compound type of size bytes: its handle (kFirstCompoundHandle or above), or -1 for a
    // size of 0. Members may be added until EndCreateCompoundDataType; each answers 0, or -1 for
    // an unknown or completed handle, an unknown member type or a member outside the size.
    int BeginCreateCompoundDataType(size_t size);
    int AddCompoundDataTypeMember(int handle, const std::string& name, int type, size_t offset);
    int AddCompoundDataTypeFixedLengthStringMember(int handle, const std::string& name,
                                                   size_t offset, size_t length);
    int EndCreateCompoundDataType(int handle);

    // A scalar attribute on a group or an array, replacing one of the same name: 0, or -1 for a
    // null object or text.
    int WriteAttribute(CRSVObject* object, const std::string& name, int value);
    int WriteAttribute(CRSVObject* object, const std::string& name, const char* value);

private:
    // A compound type under construction or complete. A completed type equal to one completed
    // before is not kept twice: its handle then stands for the earlier one (the manipulator builds
    // the same description row for every material it adds).
    struct Compound {
        H5Type Type;
        bool Complete;
        std::optional<size_t> SameAs;  // index of the equal earlier type
    };

    CRSVGroup* keep(H5Group group, std::optional<GroupKey> key = std::nullopt);
    // The run group or a category group at path: null when missing. The group stays open in the
    // tool while the file is (see WellKnown); each call gives a handle of its own.
    CRSVGroup* openWellKnown(const std::string& path);
    // The newly opened file becomes the tool's; false (and the file closed) when the tool's own
    // HDF5 objects cannot be made.
    bool adopt(H5File file);
    const Compound* compound(int handle) const;
    // Keeps the member counts exact after the store made a member at path below parent.
    void made(CRSVGroup* parent, const std::string& path, MemberKind kind);
    void forgetCounts();

    H5File File;
    std::optional<unsigned long> FileNumber;  // HDF5's number of the open file
    // Made once per open file rather than once per item or group.
    AttributeShapes Shapes;       // the dataspace and text types of attributes
    H5PropertyList MakeParents;   // link creation that makes missing intermediate groups
    MetadataCacheSize CacheSize;  // metadata_cache.h
    bool Writable = false;
    std::vector<std::unique_ptr<CRSVGroup>> Groups;
    // The run and category groups that every AddMaterial and GetMaterial opens again, by path,
    // held open from their first open to Close: a handle to one shares HDF5's open group instead
    // of walking the path anew. The store never removes a group, so a path found once stays
    // valid; one removed or replaced through the HDF5 C API while the tool holds the file open
    // would be missed, as the member counts would (member_counts.h).
    struct Pinned {
        H5Group Group;
        std::optional<GroupKey> Key;
    };
    std::map<std::string, Pinned> WellKnown;
    std::vector<std::unique_ptr<CRSVTable>> Tables;
    std::vector<std::unique_ptr<CRSVArray>> Arrays;
    std::vector<Compound> Compounds;
    std::vector<size_t> DistinctCompounds;  // the completed ones that hold their own type
};

}  // namespace QRV3DRSVExTool

#endif
