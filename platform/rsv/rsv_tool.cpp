// The file, its groups and tables.
#include "rsv/rsv_tool.h"

#include "rsv/h5_attributes.h"
#include "rsv/run_vocabulary.h"

#include <algorithm>
#include <cstdio>

namespace QRV3DRSVExTool {

namespace {

constexpr const char* kTableMarker = "RSV_CLASS";
constexpr const char* kTableClass = "TABLE";

// A caller's relative path in HDF5's form: backslashes become "/", and leading and trailing
// slashes go. Empty when nothing is left.
std::string relativePath(std::string path) {
    std::replace(path.begin(), path.end(), '\\', '/');
    const size_t first = path.find_first_not_of('/');
    if (first == std::string::npos) return std::string();
    const size_t last = path.find_last_not_of('/');
    return path.substr(first, last - first + 1);
}

std::string runPath(int run, const char* tail = "") {
    char path[64];
    std::snprintf(path, sizeof path, "/Vantrell/Run%d%s", run, tail);
    return path;
}

bool isTable(hid_t group) {
    std::string marker;
    return readScalarAttribute(group, kTableMarker, &marker) == 0 && marker == kTableClass;
}

// Opens a group at path below location; invalid when missing or not a group.
H5Group openGroupAt(hid_t location, const std::string& path) {
    if (path.empty()) return H5Group();
    // H5Gopen2 itself refuses a dataset or a missing name.
    return H5Group(H5Gopen2(location, path.c_str(), H5P_DEFAULT));
}

H5Group createGroupAt(hid_t location, const std::string& path) {
    if (path.empty()) return H5Group();
    // A list HDF5 failed to make or set fails the create.
    H5PropertyList links(H5Pcreate(H5P_LINK_CREATE));
    H5Pset_create_intermediate_group(links.get(), 1);
    return H5Group(H5Gcreate2(location, path.c_str(), links.get(), H5P_DEFAULT, H5P_DEFAULT));
}

template <typename Handle>
int release(std::vector<std::unique_ptr<Handle>>& open, Handle* handle) {
    auto found = std::find_if(open.begin(), open.end(), [handle](const std::unique_ptr<Handle>& h) {
        return h.get() == handle;
    });
    if (handle == nullptr || found == open.end()) return -1;
    open.erase(found);
    return 0;
}

enum class NodeKind { Group, Array };

struct CountRequest {
    NodeKind Kind;
    size_t Count;
};

herr_t countNode(hid_t group, const char* name, const H5L_info_t* /*info*/, void* data) {
    auto* request = static_cast<CountRequest*>(data);
    // The object's header tells its kind without opening it; a dangling link counts as nothing.
    H5O_info_t object{};
    if (H5Oget_info_by_name2(group, name, &object, H5O_INFO_BASIC | H5O_INFO_NUM_ATTRS,
                             H5P_DEFAULT) < 0)
        return 0;
    if (request->Kind == NodeKind::Array) {
        request->Count += object.type == H5O_TYPE_DATASET;
    } else if (object.type == H5O_TYPE_GROUP) {
        // Only a group with attributes can be a table; most groups have none.
        const bool table =
            object.num_attrs > 0 && H5Aexists_by_name(group, name, kTableMarker, H5P_DEFAULT) > 0;
        request->Count += !table;
    }
    return 0;
}

size_t countNodes(hid_t group, NodeKind kind) {
    ErrorSilence silence;
    CountRequest request{kind, 0};
    hsize_t index = 0;
    if (H5Literate(group, H5_INDEX_NAME, H5_ITER_NATIVE, &index, countNode, &request) < 0) return 0;
    return request.Count;
}

}  // namespace

CRSVObject::~CRSVObject() = default;

size_t CRSVGroup::GetGroupCount() {
    return countNodes(Group.get(), NodeKind::Group);
}

size_t CRSVGroup::GetArrayCount() {
    return countNodes(Group.get(), NodeKind::Array);
}

CRSVTool::CRSVTool() = default;

CRSVTool::~CRSVTool() {
    Close();
}

int CRSVTool::Create(const std::string& path, unsigned int, unsigned int, unsigned int) {
    ErrorSilence silence;
    Close();
    // Exclusive creation: an existing file is neither truncated nor opened.
    H5File file(H5Fcreate(path.c_str(), H5F_ACC_EXCL, H5P_DEFAULT, H5P_DEFAULT));
    if (!file) return -1;
    if (!createGroupAt(file.get(), "Vantrell")) return -1;
    File = std::move(file);
    Writable = true;
    return 0;
}

int CRSVTool::Open(const std::string& path) {
    ErrorSilence silence;
    Close();
    // HDF5 opens an empty file for writing as though it were a new one; only a file that carries
    // the HDF5 signature is a run file.
    if (H5Fis_hdf5(path.c_str()) <= 0) return -1;
    H5File file(H5Fopen(path.c_str(), H5F_ACC_RDWR, H5P_DEFAULT));
    if (!file) return -1;
    File = std::move(file);
    Writable = true;
    return 0;
}

void CRSVTool::Close() {
    ErrorSilence silence;
    Arrays.clear();
    Tables.clear();
    Groups.clear();
    Compounds.clear();
    File.reset();
    Writable = false;
}

CRSVGroup* CRSVTool::keep(H5Group group) {
    if (!group) return nullptr;
    Groups.push_back(std::make_unique<CRSVGroup>(std::move(group)));
    return Groups.back().get();
}

CRSVGroup* CRSVTool::OpenGroup(int run) {
    ErrorSilence silence;
    if (!File) return nullptr;
    const std::string path = runPath(run);
    H5Group group = openGroupAt(File.get(), path);
    if (!group && Writable && run >= 1) {
        group = createGroupAt(File.get(), path);
        if (!group || !createGroupAt(group.get(), "Entity") ||
            !createGroupAt(group.get(), "Description"))
            return nullptr;
    }
    return keep(std::move(group));
}

CRSVGroup* CRSVTool::OpenGroup(int run, int category) {
    ErrorSilence silence;
    if (!File) return nullptr;
    const char* tail = category == kCategoryEntity        ? "/Entity"
                       : category == kCategoryMaterial    ? "/Material"
                       : category == kCategoryDescription ? "/Description"
                                                          : nullptr;
    if (!tail) return nullptr;
    return keep(openGroupAt(File.get(), runPath(run, tail)));
}

CRSVGroup* CRSVTool::OpenGroup(CRSVGroup* parent, std::string path) {
    ErrorSilence silence;
    if (!parent) return nullptr;
    H5Group group = openGroupAt(parent->ObjectId(), relativePath(std::move(path)));
    if (group && isTable(group.get())) return nullptr;
    return keep(std::move(group));
}

CRSVGroup* CRSVTool::CreateGroup(CRSVGroup* parent, std::string name) {
    ErrorSilence silence;
    if (!parent) return nullptr;
    return keep(createGroupAt(parent->ObjectId(), relativePath(std::move(name))));
}

int CRSVTool::CloseGroup(CRSVGroup* group) {
    ErrorSilence silence;
    return release(Groups, group);
}

CRSVTable* CRSVTool::CreateTable(CRSVGroup* group, const std::string& name) {
    ErrorSilence silence;
    if (!group) return nullptr;
    H5Group table = createGroupAt(group->ObjectId(), relativePath(name));
    if (!table || writeScalarAttribute(table.get(), kTableMarker, kTableClass) != 0) return nullptr;
    Tables.push_back(std::make_unique<CRSVTable>(std::move(table)));
    return Tables.back().get();
}

CRSVTable* CRSVTool::OpenTable(CRSVGroup* group, const std::string& name) {
    ErrorSilence silence;
    if (!group) return nullptr;
    H5Group table = openGroupAt(group->ObjectId(), relativePath(name));
    if (!table || !isTable(table.get())) return nullptr;
    Tables.push_back(std::make_unique<CRSVTable>(std::move(table)));
    return Tables.back().get();
}

int CRSVTool::CloseTable(CRSVTable* table) {
    ErrorSilence silence;
    return release(Tables, table);
}

int CRSVTool::CloseArray(CRSVArray* array) {
    ErrorSilence silence;
    return release(Arrays, array);
}

int CRSVTool::WriteAttribute(CRSVObject* object, const std::string& name, int value) {
    ErrorSilence silence;
    return object ? writeScalarAttribute(object->ObjectId(), name, value) : -1;
}

int CRSVTool::WriteAttribute(CRSVObject* object, const std::string& name, const char* value) {
    ErrorSilence silence;
    return object ? writeScalarAttribute(object->ObjectId(), name, value) : -1;
}

// Table items are the table group's attributes; the marker is not an item.
namespace {

template <typename Value>
int setItem(hid_t table, const std::string& key, Value value) {
    ErrorSilence silence;
    if (key == kTableMarker) return -1;
    return writeScalarAttribute(table, key, value);
}

template <typename Value>
int getItem(hid_t table, const std::string& key, Value* value) {
    ErrorSilence silence;
    if (key == kTableMarker) return -1;
    return readScalarAttribute(table, key, value);
}

}  // namespace

int CRSVTable::SetItem(const std::string& key, int value) {
    return setItem(Group.get(), key, value);
}
int CRSVTable::SetItem(const std::string& key, double value) {
    return setItem(Group.get(), key, value);
}
int CRSVTable::SetItem(const std::string& key, const char* value) {
    return setItem(Group.get(), key, value);
}
int CRSVTable::SetItem(const std::string& key, const std::string& value) {
    return setItem(Group.get(), key, value.c_str());
}
int CRSVTable::GetItem(const std::string& key, int* value) {
    return getItem(Group.get(), key, value);
}
int CRSVTable::GetItem(const std::string& key, double* value) {
    return getItem(Group.get(), key, value);
}
int CRSVTable::GetItem(const std::string& key, std::string* value) {
    return getItem(Group.get(), key, value);
}

}  // namespace QRV3DRSVExTool
