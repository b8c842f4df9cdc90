// The file, its groups and tables.
#include "rsv/rsv_tool.h"

#include "rsv/h5_attributes.h"
#include "rsv/run_vocabulary.h"

#include <algorithm>
#include <cstdio>

namespace QRV3DRSVExTool {

namespace {

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

// Opens a group at path below location; invalid when missing or not a group.
H5Group openGroupAt(hid_t location, const std::string& path) {
    if (path.empty()) return H5Group();
    // H5Gopen2 itself refuses a dataset or a missing name.
    return H5Group(H5Gopen2(location, path.c_str(), H5P_DEFAULT));
}

H5PropertyList makeParentsList() {
    H5PropertyList links(H5Pcreate(H5P_LINK_CREATE));
    if (!links || H5Pset_create_intermediate_group(links.get(), 1) < 0) return H5PropertyList();
    return links;
}

// links: a link creation list that makes missing intermediate groups.
H5Group createGroupAt(hid_t location, const std::string& path, hid_t links) {
    if (path.empty()) return H5Group();
    return H5Group(H5Gcreate2(location, path.c_str(), links, H5P_DEFAULT, H5P_DEFAULT));
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

}  // namespace

CRSVObject::~CRSVObject() = default;

size_t CRSVGroup::GetGroupCount() {
    ErrorSilence silence;
    return MemberCounts::shared().count(Key(), Group.get(), MemberKind::Group);
}

size_t CRSVGroup::GetArrayCount() {
    ErrorSilence silence;
    return MemberCounts::shared().count(Key(), Group.get(), MemberKind::Array);
}

const std::optional<GroupKey>& CRSVGroup::Key() {
    if (!KeyKnown) {
        KeyValue = groupKey(Group.get());
        KeyKnown = true;
    }
    return KeyValue;
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
    if (!file || !adopt(std::move(file))) return -1;
    if (!createGroupAt(File.get(), "Vantrell", MakeParents.get())) {
        Close();
        return -1;
    }
    return 0;
}

int CRSVTool::Open(const std::string& path) {
    ErrorSilence silence;
    Close();
    // HDF5 opens an empty file for writing as though it were a new one; only a file that carries
    // the HDF5 signature is a run file.
    if (H5Fis_hdf5(path.c_str()) <= 0) return -1;
    H5File file(H5Fopen(path.c_str(), H5F_ACC_RDWR, H5P_DEFAULT));
    if (!file || !adopt(std::move(file))) return -1;
    return 0;
}

bool CRSVTool::adopt(H5File file) {
    H5PropertyList makeParents = makeParentsList();
    if (!makeParents || !Shapes.make()) return false;  // the file closes with its handle
    CacheSize.apply(file.get());
    File = std::move(file);
    Writable = true;
    MakeParents = std::move(makeParents);
    if (const std::optional<GroupKey> root = groupKey(File.get())) {
        FileNumber = root->File;
        MemberCounts::shared().opened(*FileNumber);
    }
    return true;
}

void CRSVTool::Close() {
    ErrorSilence silence;
    Arrays.clear();
    Tables.clear();
    Groups.clear();
    WellKnown.clear();
    Compounds.clear();
    DistinctCompounds.clear();
    Shapes.reset();
    MakeParents.reset();
    if (File) CacheSize.release(File.get());
    File.reset();
    Writable = false;
    if (FileNumber) MemberCounts::shared().closed(*FileNumber);
    FileNumber.reset();
}

void CRSVTool::made(CRSVGroup* parent, const std::string& path, MemberKind kind) {
    if (!FileNumber || !MemberCounts::shared().keepsAny(*FileNumber)) return;
    // A path of several levels may have made intermediate groups too.
    if (path.find('/') != std::string::npos) return forgetCounts();
    if (const std::optional<GroupKey>& key = parent->Key())
        MemberCounts::shared().added(*key, kind);
}

void CRSVTool::forgetCounts() {
    if (FileNumber) MemberCounts::shared().forget(*FileNumber);
}

CRSVGroup* CRSVTool::keep(H5Group group, std::optional<GroupKey> key) {
    if (!group) return nullptr;
    Groups.push_back(std::make_unique<CRSVGroup>(std::move(group), std::move(key)));
    return Groups.back().get();
}

CRSVGroup* CRSVTool::openWellKnown(const std::string& path) {
    auto pinned = WellKnown.find(path);
    if (pinned == WellKnown.end()) {
        H5Group group = openGroupAt(File.get(), path);
        if (!group) return nullptr;
        std::optional<GroupKey> key = groupKey(group.get());
        pinned = WellKnown.emplace(path, Pinned{std::move(group), key}).first;
    }
    // One more HDF5 reference to the pinned group, which the handle's own close gives back.
    const hid_t id = pinned->second.Group.get();
    if (H5Iinc_ref(id) < 0) return keep(openGroupAt(File.get(), path));
    return keep(H5Group(id), pinned->second.Key);
}

CRSVGroup* CRSVTool::OpenGroup(int run) {
    ErrorSilence silence;
    if (!File) return nullptr;
    const std::string path = runPath(run);
    if (CRSVGroup* known = openWellKnown(path)) return known;
    H5Group group;
    if (Writable && run >= 1) {
        group = createGroupAt(File.get(), path, MakeParents.get());
        forgetCounts();  // a new run below /Vantrell/ and its two groups
        if (!group || !createGroupAt(group.get(), "Entity", MakeParents.get()) ||
            !createGroupAt(group.get(), "Description", MakeParents.get()))
            return nullptr;
    }
    return group ? openWellKnown(path) : nullptr;
}

CRSVGroup* CRSVTool::OpenGroup(int run, int category) {
    ErrorSilence silence;
    if (!File) return nullptr;
    const char* tail = category == kCategoryEntity        ? "/Entity"
                       : category == kCategoryMaterial    ? "/Material"
                       : category == kCategoryDescription ? "/Description"
                                                          : nullptr;
    if (!tail) return nullptr;
    return openWellKnown(runPath(run, tail));
}

CRSVGroup* CRSVTool::OpenGroup(CRSVGroup* parent, std::string path) {
    ErrorSilence silence;
    if (!parent) return nullptr;
    H5Group group = openGroupAt(parent->ObjectId(), relativePath(std::move(path)));
    if (group && isMarkedTable(group.get())) return nullptr;
    return keep(std::move(group));
}

CRSVGroup* CRSVTool::CreateGroup(CRSVGroup* parent, std::string name) {
    ErrorSilence silence;
    if (!parent) return nullptr;
    const std::string path = relativePath(std::move(name));
    H5Group group = createGroupAt(parent->ObjectId(), path, MakeParents.get());
    if (group) made(parent, path, MemberKind::Group);
    return keep(std::move(group));
}

int CRSVTool::CloseGroup(CRSVGroup* group) {
    ErrorSilence silence;
    return release(Groups, group);
}

CRSVTable* CRSVTool::CreateTable(CRSVGroup* group, const std::string& name) {
    ErrorSilence silence;
    if (!group) return nullptr;
    const std::string path = relativePath(name);
    H5Group table = createGroupAt(group->ObjectId(), path, MakeParents.get());
    if (!table) return nullptr;
    const bool marked = writeScalarAttribute(table.get(), kTableMarker, kTableClass, Shapes) == 0;
    // Tables are not counted, but intermediate groups of a path are, and so is a group left
    // without its marker.
    if (!marked || path.find('/') != std::string::npos) forgetCounts();
    if (!marked) return nullptr;
    Tables.push_back(std::make_unique<CRSVTable>(std::move(table), Shapes));
    return Tables.back().get();
}

CRSVTable* CRSVTool::OpenTable(CRSVGroup* group, const std::string& name) {
    ErrorSilence silence;
    if (!group) return nullptr;
    H5Group table = openGroupAt(group->ObjectId(), relativePath(name));
    if (!table || !isMarkedTable(table.get())) return nullptr;
    Tables.push_back(std::make_unique<CRSVTable>(std::move(table), Shapes));
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

namespace {

// An object's attribute is often written again (the run's "Material Type" with every material
// added): the old one is removed before the new one is made, rather than found by a failed create.
void removeOld(hid_t object, const std::string& name) {
    if (H5Aexists(object, name.c_str()) > 0) H5Adelete(object, name.c_str());
}

}  // namespace

int CRSVTool::WriteAttribute(CRSVObject* object, const std::string& name, int value) {
    ErrorSilence silence;
    if (!object) return -1;
    removeOld(object->ObjectId(), name);
    const int result = writeScalarAttribute(object->ObjectId(), name, value, Shapes);
    if (name == kTableMarker) forgetCounts();  // a table's marker replaced: a group again
    return result;
}

int CRSVTool::WriteAttribute(CRSVObject* object, const std::string& name, const char* value) {
    ErrorSilence silence;
    if (!object || !value) return -1;
    removeOld(object->ObjectId(), name);
    const int result = writeScalarAttribute(object->ObjectId(), name, value, Shapes);
    if (name == kTableMarker)
        forgetCounts();  // a group may have become a table, or stopped being one
    return result;
}

// Table items are the table group's attributes; the marker is not an item.
namespace {

template <typename Value>
int setItem(hid_t table, const std::string& key, Value value, AttributeShapes& shapes) {
    ErrorSilence silence;
    if (key == kTableMarker) return -1;
    return writeScalarAttribute(table, key, value, shapes);
}

template <typename Value>
int getItem(hid_t table, const std::string& key, Value* value) {
    ErrorSilence silence;
    if (key == kTableMarker) return -1;
    return readScalarAttribute(table, key, value);
}

}  // namespace

int CRSVTable::SetItem(const std::string& key, int value) {
    return setItem(Group.get(), key, value, Shapes);
}
int CRSVTable::SetItem(const std::string& key, double value) {
    return setItem(Group.get(), key, value, Shapes);
}
int CRSVTable::SetItem(const std::string& key, const char* value) {
    return setItem(Group.get(), key, value, Shapes);
}
int CRSVTable::SetItem(const std::string& key, const std::string& value) {
    return setItem(Group.get(), key, value.c_str(), Shapes);
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
