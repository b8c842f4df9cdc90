// The size of HDF5's metadata cache for a run file the store has open.
//
// HDF5 starts a file's metadata cache at 2 MB and grows it as it fills. The store touches each
// object of a material once (made, written, closed; or opened, read, closed) and keeps only the
// run and category groups open, so a large cache holds thousands of headers, heaps and tree nodes
// that are never asked for again, and every lookup, flush and the final teardown walk them: with
// the default cache, adding 100 materials and reading them back took twice the time it takes
// with a 64 KiB one, for the same HDF5 calls and the same bytes in the file. A small cache only
// writes each object back earlier; objects and addresses stay where they were (the unused bytes
// between objects may differ, as they do between any two HDF5 writers).
//
// The cache belongs to the file, which HDF5 shares between every open of it in the process, so
// the size is set only when the store's open is the only one; when the store closes while
// another open of the file remains, the size that was there before is put back.
#ifndef QRV_PLATFORM_RSV_METADATA_CACHE_H
#define QRV_PLATFORM_RSV_METADATA_CACHE_H

#include <hdf5.h>

#include <cstddef>

namespace QRV3DRSVExTool {

constexpr std::size_t kMetadataCacheBytes = std::size_t{64} << 10;

class MetadataCacheSize {
public:
    // Sets the small fixed size on the newly opened file when nothing else has it open.
    void apply(hid_t file);
    // Before the store's close: puts the earlier size back if another open of the file remains.
    void release(hid_t file);

private:
    bool Applied = false;
    H5AC_cache_config_t Saved{};
};

}  // namespace QRV3DRSVExTool

#endif
