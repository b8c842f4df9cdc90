// HDF5 handles as values: one move-only owner per handle kind, closing with that kind's own close
// call. The store holds these, never a bare hid_t, so an early return cannot leak a handle.
#ifndef QRV_PLATFORM_RSV_H5_HANDLE_H
#define QRV_PLATFORM_RSV_H5_HANDLE_H

#include <hdf5.h>

#include <utility>

namespace QRV3DRSVExTool {

template <herr_t (*CloseHandle)(hid_t)>
class H5Handle {
public:
    H5Handle() = default;
    explicit H5Handle(hid_t id) : id_(id) {}
    ~H5Handle() { reset(); }
    H5Handle(H5Handle&& other) noexcept : id_(std::exchange(other.id_, H5I_INVALID_HID)) {}
    H5Handle& operator=(H5Handle&& other) noexcept {
        if (this != &other) {
            reset();
            id_ = std::exchange(other.id_, H5I_INVALID_HID);
        }
        return *this;
    }
    H5Handle(const H5Handle&) = delete;
    H5Handle& operator=(const H5Handle&) = delete;

    // HDF5 answers a negative id for a failed open or create.
    bool valid() const { return id_ >= 0; }
    explicit operator bool() const { return valid(); }
    hid_t get() const { return id_; }

    void reset() {
        if (valid()) CloseHandle(id_);
        id_ = H5I_INVALID_HID;
    }

private:
    hid_t id_ = H5I_INVALID_HID;
};

using H5File = H5Handle<H5Fclose>;
using H5Group = H5Handle<H5Gclose>;
using H5Dataset = H5Handle<H5Dclose>;
using H5Type = H5Handle<H5Tclose>;
using H5Space = H5Handle<H5Sclose>;
using H5Attribute = H5Handle<H5Aclose>;
using H5PropertyList = H5Handle<H5Pclose>;

}  // namespace QRV3DRSVExTool

#endif
