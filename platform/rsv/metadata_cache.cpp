#include "rsv/metadata_cache.h"

namespace QRV3DRSVExTool {

namespace {

// Other opens of the same file in this process.
bool sharedWithOthers(hid_t file) {
    return H5Fget_obj_count(file, H5F_OBJ_FILE) != 1;
}

}  // namespace

void MetadataCacheSize::apply(hid_t file) {
    Applied = false;
    if (sharedWithOthers(file)) return;
    Saved = H5AC_cache_config_t{};
    Saved.version = H5AC__CURR_CACHE_CONFIG_VERSION;
    if (H5Fget_mdc_config(file, &Saved) < 0) return;
    H5AC_cache_config_t small = Saved;
    small.set_initial_size = 1;
    small.initial_size = kMetadataCacheBytes;
    small.min_size = kMetadataCacheBytes;
    small.max_size = kMetadataCacheBytes;
    small.incr_mode = H5C_incr__off;
    small.flash_incr_mode = H5C_flash_incr__off;
    small.decr_mode = H5C_decr__off;
    // A size HDF5 refuses leaves its own in place; the store works either way.
    Applied = H5Fset_mdc_config(file, &small) >= 0;
}

void MetadataCacheSize::release(hid_t file) {
    if (Applied && sharedWithOthers(file)) H5Fset_mdc_config(file, &Saved);
    Applied = false;
}

}  // namespace QRV3DRSVExTool
