// Run files by structure: HDF5's own parser makes no promise about crafted bytes, so this target
// never hands it any. It writes a valid run file with two sample materials through the library,
// then lets the input pick nodes of it (groups, arrays and the attributes of the "Summary"
// tables) and, through the HDF5 C library, removes them or puts mistyped, misshapen or oversized
// nodes in their place, or adds material groups. The file is then read with GetMaterialCount
// and GetMaterial. Each record that comes back is stored into a fresh run file, behind the
// records before it, and read again, and must come back equal but for what a run file does not
// keep.
//
// The input is a sequence of four-byte steps: node, action and two parameter bytes.
#include <hdf5.h>

#include <algorithm>
#include <climits>
#include <cstdint>
#include <cstdio>
#include <cstdlib>
#include <fstream>
#include <iterator>
#include <string>
#include <vector>

#include <quorvalib/files.h>
#include <quorvalib/runfile.h>

#include "fuzz_files.h"
#include "record_compare.h"

namespace {

constexpr int kRun1Plastic = 65536 + 4096;

std::string bytesOf(const std::string& path) {
    std::ifstream in(path, std::ios::binary);
    return std::string(std::istreambuf_iterator<char>(in), std::istreambuf_iterator<char>());
}

// A node the input can pick: an object (attribute empty) or an attribute of an object.
struct Node {
    std::string Object;
    std::string Attribute;
};

herr_t collectAttribute(hid_t, const char* name, const H5A_info_t*, void* nodes) {
    auto& list = *static_cast<std::vector<Node>*>(nodes);
    list.push_back({list.back().Object, name});
    return 0;
}

herr_t collectObject(hid_t root, const char* name, const H5L_info_t*, void* nodes) {
    auto& list = *static_cast<std::vector<Node>*>(nodes);
    const std::string path = std::string("/") + name;
    list.push_back({path, ""});
    const std::size_t at = list.size();
    H5Aiterate_by_name(root, name, H5_INDEX_NAME, H5_ITER_INC, nullptr, collectAttribute, nodes,
                       H5P_DEFAULT);
    // Keep the object itself in front of its attributes.
    std::rotate(list.begin() + static_cast<std::ptrdiff_t>(at - 1),
                list.begin() + static_cast<std::ptrdiff_t>(at), list.end());
    std::rotate(list.begin() + static_cast<std::ptrdiff_t>(at - 1), list.end() - 1, list.end());
    return 0;
}

// The base file's bytes and its nodes in a fixed order, made once.
struct Base {
    std::string Bytes;
    std::vector<Node> Nodes;
};

const Base& base() {
    static const Base made = [] {
        const std::string path = qrvfuzz::folder() + "base.rsv";
        {
            MATIO_RSVManipulator run(path.c_str());
            for (const char* sample :
                 {"sample_thermoplastic_9012.mtr", "sample_thermoset_9018.mtx"}) {
                QrvMaterial* material =
                    QrvGetMaterial((QRV_FUZZ_DATA_DIR "/" + std::string(sample)).c_str());
                if (!material) std::abort();
                run.AddMaterial(material, sample, kRun1Plastic);
                QrvReleaseMaterial(material);
            }
        }
        Base result;
        result.Bytes = bytesOf(path);
        hid_t file = H5Fopen(path.c_str(), H5F_ACC_RDONLY, H5P_DEFAULT);
        H5Lvisit(file, H5_INDEX_NAME, H5_ITER_INC, collectObject, &result.Nodes);
        H5Fclose(file);
        if (result.Nodes.empty()) std::abort();
        return result;
    }();
    return made;
}

std::string parentOf(const std::string& path) {
    const std::size_t slash = path.rfind('/');
    return slash == 0 ? "/" : path.substr(0, slash);
}

std::string leafOf(const std::string& path) {
    return path.substr(path.rfind('/') + 1);
}

constexpr int kNumbers[] = {-1, 0, 1, 2, 3, 21, 22, 1000, 9012, 65535, INT_MAX, INT_MIN};

// A value of the chosen kind written as an attribute or a dataset named leaf under location.
void putValue(hid_t location, const std::string& leaf, bool attribute, int kind, int a, int b) {
    hid_t type = -1, space = -1;
    std::vector<unsigned char> bytes;
    hid_t create = H5Pcreate(H5P_DATASET_CREATE);
    switch (kind) {
        case 0: {  // an integer where anything else was, or a damaged count
            type = H5Tcopy(H5T_NATIVE_INT);
            space = H5Screate(H5S_SCALAR);
            const int value = kNumbers[a % std::size(kNumbers)];
            bytes.assign(reinterpret_cast<const unsigned char*>(&value),
                         reinterpret_cast<const unsigned char*>(&value) + sizeof value);
            break;
        }
        case 1: {  // a double: a NaN, an infinity or a plain number
            type = H5Tcopy(H5T_NATIVE_DOUBLE);
            space = H5Screate(H5S_SCALAR);
            const double values[] = {0.0, -1.0, 1e308, 1.0 / 0.0, 0.0 / 0.0, 2.5};
            const double value = values[a % std::size(values)];
            bytes.assign(reinterpret_cast<const unsigned char*>(&value),
                         reinterpret_cast<const unsigned char*>(&value) + sizeof value);
            break;
        }
        case 2: {  // a fixed text, unterminated or long
            type = H5Tcopy(H5T_C_S1);
            const std::size_t length = 1 + static_cast<std::size_t>(a) * (b % 8 == 0 ? 250 : 1);
            H5Tset_size(type, length);
            H5Tset_strpad(type, b % 2 ? H5T_STR_NULLPAD : H5T_STR_SPACEPAD);
            space = H5Screate(H5S_SCALAR);
            bytes.assign(length, static_cast<unsigned char>('A' + b % 26));
            break;
        }
        case 3: {  // an array of doubles of any shape, up to three dimensions
            type = H5Tcopy(H5T_NATIVE_DOUBLE);
            const int rank = 1 + a % 3;
            hsize_t dims[3] = {static_cast<hsize_t>(b % 5), static_cast<hsize_t>(b / 5 % 40 + 1),
                               2};
            space = H5Screate_simple(rank, dims, nullptr);
            bytes.assign(static_cast<std::size_t>(H5Sget_simple_extent_npoints(space)) * 8, 0x40);
            break;
        }
        default: {  // oversized: a huge declared array whose storage is never written
            type = H5Tcopy(H5T_NATIVE_DOUBLE);
            hsize_t dims[2] = {static_cast<hsize_t>(1 + a % 3), hsize_t{1} << (16 + b % 24)};
            if (attribute) dims[1] = 8000;  // an attribute's data lies in the header: keep it small
            space = H5Screate_simple(2, dims, nullptr);
            hsize_t chunk[2] = {1, 1024};
            H5Pset_chunk(create, 2, chunk);
            break;
        }
    }
    const bool write = !bytes.empty() || (attribute && kind == 4);
    if (attribute) {
        if (kind == 4)
            bytes.assign(static_cast<std::size_t>(H5Sget_simple_extent_npoints(space)) * 8, 0);
        hid_t made = H5Acreate2(location, leaf.c_str(), type, space, H5P_DEFAULT, H5P_DEFAULT);
        if (made >= 0 && write) H5Awrite(made, type, bytes.data());
        if (made >= 0) H5Aclose(made);
    } else {
        hid_t made =
            H5Dcreate2(location, leaf.c_str(), type, space, H5P_DEFAULT, create, H5P_DEFAULT);
        if (made >= 0 && write && kind != 4)
            H5Dwrite(made, type, H5S_ALL, H5S_ALL, H5P_DEFAULT, bytes.data());
        if (made >= 0) H5Dclose(made);
    }
    H5Pclose(create);
    H5Sclose(space);
    H5Tclose(type);
}

// One step: action 0 removes the node, 1 to 5 put a value of kind action - 1 in its place, 6
// puts an empty group in the place of an array (or an array in the place of a group), 7 adds a
// numbered material group beside the others.
void apply(hid_t file, const Node& node, int action, int a, int b) {
    const bool attribute = !node.Attribute.empty();
    if (action == 7) {
        const std::string group = "/Vantrell/Run1/Material/Material " + std::to_string(a % 12);
        if (H5Lexists(file, group.c_str(), H5P_DEFAULT) <= 0) {
            hid_t made = H5Gcreate2(file, group.c_str(), H5P_DEFAULT, H5P_DEFAULT, H5P_DEFAULT);
            if (made >= 0) H5Gclose(made);
        }
        return;
    }
    if (H5Lexists(file, parentOf(node.Object).c_str(), H5P_DEFAULT) <= 0 && node.Object != "/")
        return;
    if (H5Lexists(file, node.Object.c_str(), H5P_DEFAULT) <= 0) return;
    if (attribute) {
        hid_t object = H5Oopen(file, node.Object.c_str(), H5P_DEFAULT);
        if (object < 0) return;
        if (H5Aexists(object, node.Attribute.c_str()) > 0)
            H5Adelete(object, node.Attribute.c_str());
        if (action >= 1 && action <= 5) putValue(object, node.Attribute, true, action - 1, a, b);
        H5Oclose(object);
        return;
    }
    H5O_info_t info;
    if (H5Oget_info_by_name(file, node.Object.c_str(), &info, H5P_DEFAULT) < 0) return;
    H5Ldelete(file, node.Object.c_str(), H5P_DEFAULT);
    hid_t parent = H5Oopen(file, parentOf(node.Object).c_str(), H5P_DEFAULT);
    if (parent < 0) return;
    const std::string leaf = leafOf(node.Object);
    if (action >= 1 && action <= 5) putValue(parent, leaf, false, action - 1, a, b);
    if (action == 6) {
        if (info.type == H5O_TYPE_GROUP) {
            putValue(parent, leaf, false, 3, a, b);
        } else {
            hid_t made = H5Gcreate2(parent, leaf.c_str(), H5P_DEFAULT, H5P_DEFAULT, H5P_DEFAULT);
            if (made >= 0) H5Gclose(made);
        }
    }
    H5Oclose(parent);
}

// What a second run file gives back of a record the first gave: the record itself, for a run file
// keeps its own form (texts present, Source words at the default, the unstored blocks empty). One
// second file takes every record of an input, each behind the ones before it, as a run file of
// several materials does: an HDF5 file set up and torn down costs more than all the rest of a
// record's trip.
class StoredAgain {
public:
    StoredAgain() : Run(freshPath()) {}

    void check(QrvMaterial& first) {
        qrvfuzz::trip() = "of a record stored again";
        if (!Run.AddMaterial(&first, "again", kRun1Plastic))
            qrvfuzz::differs("store", "AddMaterial");
        QrvMaterial* second = Run.GetMaterial(Stored++);
        if (!second) qrvfuzz::differs("store", "the stored material does not read");
        // The record stays the manipulator's: the next AddMaterial or its end frees it.

        // A run file stores measured data only when it has curves.
        qrvfuzz::Compared parts;
        parts.NoCurvesIsNone = true;
        qrvfuzz::compareRecords(first, *second, parts);
    }

private:
    // The file of the input before is removed first, so that every input starts a new one.
    static const char* freshPath() {
        static const std::string path = qrvfuzz::folder() + "again.rsv";
        std::remove(path.c_str());
        return path.c_str();
    }

    MATIO_RSVManipulator Run;
    int Stored = 0;
};

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    H5Eset_auto2(H5E_DEFAULT, nullptr, nullptr);
    // Every file open makes HDF5 allocate a metadata cache of about half a megabyte, a fixed-size
    // structure of its "regular" free lists. With those lists allowed to hold a few such blocks,
    // HDF5 keeps the block for the next open instead of handing it back and asking the
    // sanitizer's allocator for fresh, page-faulted memory each time: about a fifth more inputs
    // per second. The array and block lists keep HDF5's own limits (4 MB and 256 kB, 16 MB and
    // 1 MB): they hold one freed block per size, and the sizes follow the fuzzed shapes, so
    // unlimited they would grow towards the memory limit. HDF5 is not instrumented, so nothing
    // the sanitizers watch changes.
    static const herr_t limited =
        H5set_free_list_limits(16 << 20, 4 << 20, 4 << 20, 256 << 10, 16 << 20, 1 << 20);
    (void)limited;
    const Base& made = base();
    const std::string path = qrvfuzz::folder() + "input.rsv";
    {
        std::ofstream out(path, std::ios::binary | std::ios::trunc);
        out << made.Bytes;
    }
    hid_t file = H5Fopen(path.c_str(), H5F_ACC_RDWR, H5P_DEFAULT);
    if (file < 0) std::abort();
    for (std::size_t at = 0; at + 4 <= size && at < 4 * 64; at += 4)
        apply(file, made.Nodes[data[at] % made.Nodes.size()], data[at + 1] % 8, data[at + 2],
              data[at + 3]);
    H5Fclose(file);

    MATIO_RSVManipulator run(path.c_str());
    const int count = run.GetMaterialCount();
    // The manipulator keeps the record of its last GetMaterial; a later one that gives a record
    // leaves the earlier record to the caller.
    QrvMaterial* held = nullptr;
    StoredAgain again;
    for (int index = -1; index <= count && index < 8; ++index) {
        QrvMaterial* material = run.GetMaterial(index);
        if (!material) continue;
        QrvReleaseMaterial(held);
        held = material;
        again.check(*material);
    }
    return 0;
}
