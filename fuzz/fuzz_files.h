// Files of the fuzz targets: one private folder per process and a whole-file write.
#ifndef QRV_FUZZ_FUZZ_FILES_H
#define QRV_FUZZ_FUZZ_FILES_H

#include <stdlib.h>

#include <cstdint>
#include <cstdio>
#include <string>

namespace qrvfuzz {

// A fresh folder below /tmp, made once; the path ends in '/'.
inline const std::string& folder() {
    static const std::string path = [] {
        char name[] = "/tmp/qrv_fuzz_XXXXXX";
        return std::string(mkdtemp(name)) + "/";
    }();
    return path;
}

inline void write(const std::string& path, const std::uint8_t* data, std::size_t size) {
    std::FILE* file = std::fopen(path.c_str(), "wb");
    if (!file) return;
    std::fwrite(data, 1, size, file);
    std::fclose(file);
}

}  // namespace qrvfuzz

#endif
