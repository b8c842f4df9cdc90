#include "rsv/member_counts.h"

#include "rsv/h5_attributes.h"

#include <limits>

namespace QRV3DRSVExTool {

namespace {

struct WalkRequest {
    MemberKind Kind;
    std::size_t Count;
    bool Complete;  // every member that exists was told apart
};

herr_t countMember(hid_t group, const char* name, const H5L_info_t* link, void* data) {
    auto* request = static_cast<WalkRequest*>(data);
    // The object's header tells its kind without opening it; a soft or external link that leads
    // nowhere counts as nothing. A member whose header HDF5 could not read this time leaves the
    // count short: it is given, but not kept.
    H5O_info_t object{};
    if (H5Oget_info_by_name2(group, name, &object, H5O_INFO_BASIC | H5O_INFO_NUM_ATTRS,
                             H5P_DEFAULT) < 0) {
        if (link->type == H5L_TYPE_HARD) request->Complete = false;
        return 0;
    }
    if (request->Kind == MemberKind::Array) {
        request->Count += object.type == H5O_TYPE_DATASET;
    } else if (object.type == H5O_TYPE_GROUP) {
        // Only a group with attributes can be a table; most groups have none, and are not opened.
        bool table = false;
        if (object.num_attrs > 0) {
            H5Group member(H5Gopen2(group, name, H5P_DEFAULT));
            const std::optional<bool> marked = member ? tableMark(member.get()) : std::nullopt;
            if (!marked) request->Complete = false;
            table = marked.value_or(false);
        }
        request->Count += !table;
    }
    return 0;
}

}  // namespace

std::optional<GroupKey> groupKey(hid_t object) {
    H5O_info_t info{};
    if (H5Oget_info2(object, &info, H5O_INFO_BASIC) < 0) return std::nullopt;
    return GroupKey{info.fileno, info.addr};
}

std::optional<std::size_t> walkMembers(hid_t group, MemberKind kind, bool* complete) {
    WalkRequest request{kind, 0, true};
    hsize_t index = 0;
    if (H5Literate(group, H5_INDEX_NAME, H5_ITER_NATIVE, &index, countMember, &request) < 0)
        return std::nullopt;
    if (complete) *complete = request.Complete;
    return request.Count;
}

MemberCounts& MemberCounts::shared() {
    // Never destroyed: a tool that a host keeps in a static object closes its file after the
    // library's own statics are gone.
    static MemberCounts* const counts = new MemberCounts;
    return *counts;
}

void MemberCounts::opened(unsigned long file) {
    std::lock_guard<std::mutex> hold(Lock);
    ++OpenTools[file];
}

void MemberCounts::closed(unsigned long file) {
    std::lock_guard<std::mutex> hold(Lock);
    auto tools = OpenTools.find(file);
    if (tools == OpenTools.end() || --tools->second > 0) return;
    OpenTools.erase(tools);
    dropFile(file);
}

std::size_t MemberCounts::count(const std::optional<GroupKey>& key, hid_t group, MemberKind kind) {
    // The walk runs under the lock, so that a member another tool adds meanwhile is not lost
    // between the walk and keeping its result.
    std::lock_guard<std::mutex> hold(Lock);
    if (!key || OpenTools.count(key->File) == 0) return walkMembers(group, kind).value_or(0);
    Counts& counts = Kept[Key{key->File, key->Address}];
    std::optional<std::size_t>& kept = kind == MemberKind::Group ? counts.Groups : counts.Arrays;
    if (kept) return *kept;
    // A walk that fails, or that could not tell every member apart, is not kept.
    bool complete = false;
    const std::optional<std::size_t> walked = walkMembers(group, kind, &complete);
    if (walked && complete) kept = walked;
    return walked.value_or(0);
}

void MemberCounts::added(const GroupKey& key, MemberKind kind) {
    std::lock_guard<std::mutex> hold(Lock);
    auto found = Kept.find(Key{key.File, key.Address});
    if (found == Kept.end()) return;
    std::optional<std::size_t>& kept =
        kind == MemberKind::Group ? found->second.Groups : found->second.Arrays;
    if (kept) ++*kept;
}

bool MemberCounts::keepsAny(unsigned long file) {
    std::lock_guard<std::mutex> hold(Lock);
    auto first = Kept.lower_bound(Key{file, 0});
    return first != Kept.end() && first->first.first == file;
}

void MemberCounts::forget(unsigned long file) {
    std::lock_guard<std::mutex> hold(Lock);
    dropFile(file);
}

void MemberCounts::dropFile(unsigned long file) {
    Kept.erase(Kept.lower_bound(Key{file, 0}),
               Kept.upper_bound(Key{file, std::numeric_limits<haddr_t>::max()}));
}

}  // namespace QRV3DRSVExTool
