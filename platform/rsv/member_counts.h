// How many sub-groups and arrays a group of a run file holds, kept so that numbering the n-th
// material of a run does not walk the n - 1 before it.
//
// A group is walked once (its members' object headers are read to tell groups, tables and arrays
// apart); afterwards the store's own creates keep the two counts exact. The counts are kept per
// open file and shared by every tool of the process that has the same file open (HDF5 gives them
// one file, so a material one tool adds is counted by the others), and they are dropped when the
// last of those tools closes the file: a file changed between opens by any other program is
// walked afresh. A member made or removed through the HDF5 C API on a file that a tool holds open
// at that moment is not seen until every tool has closed it.
#ifndef QRV_PLATFORM_RSV_MEMBER_COUNTS_H
#define QRV_PLATFORM_RSV_MEMBER_COUNTS_H

#include <hdf5.h>

#include <cstddef>
#include <map>
#include <mutex>
#include <optional>
#include <utility>

namespace QRV3DRSVExTool {

enum class MemberKind { Group, Array };

// A group as HDF5 knows it whatever path it was reached by: the number of its open file and the
// address of its object header.
struct GroupKey {
    unsigned long File;
    haddr_t Address;
};

// The key of an open group or file (for a file, its root group); nothing when HDF5 cannot tell.
std::optional<GroupKey> groupKey(hid_t object);

// Direct members of the group: sub-groups other than tables, or arrays. Walks the group; nothing
// when it cannot be read. complete (unless null) tells whether every member's header was read;
// a member whose header HDF5 refused is not counted.
std::optional<std::size_t> walkMembers(hid_t group, MemberKind kind, bool* complete = nullptr);

class MemberCounts {
public:
    // The one set of counts of the process.
    static MemberCounts& shared();

    // A tool has the file open, or has closed it; the last close drops the file's counts.
    void opened(unsigned long file);
    void closed(unsigned long file);

    // The count of the group, walked on first use; 0 when the group cannot be read. A group of
    // unknown key, or of a file no tool has open, is walked every time, and so is one whose walk
    // could not read a member's header (a refusal of HDF5 is not remembered).
    std::size_t count(const std::optional<GroupKey>& key, hid_t group, MemberKind kind);
    // The store has made one member of that kind directly in the group.
    void added(const GroupKey& key, MemberKind kind);
    // Whether any count of the file is kept: without one, nothing needs updating.
    bool keepsAny(unsigned long file);
    // The store has made something whose effect on the counts it does not follow (several levels
    // of a path at once, a group turned into a table): the file's counts are walked again.
    void forget(unsigned long file);

private:
    struct Counts {
        std::optional<std::size_t> Groups;
        std::optional<std::size_t> Arrays;
    };
    using Key = std::pair<unsigned long, haddr_t>;

    void dropFile(unsigned long file);  // with the lock held

    std::mutex Lock;
    std::map<unsigned long, int> OpenTools;  // file number -> tools that have it open
    std::map<Key, Counts> Kept;
};

}  // namespace QRV3DRSVExTool

#endif
