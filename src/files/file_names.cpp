#include "files/file_names.h"

#include <cctype>
#include <cstdio>
#include <cstring>
#include <memory>

#include <quorvalib/files.h>

namespace {

bool sameLetters(const char* text, const char* lower, std::size_t count) {
    for (std::size_t i = 0; i < count; ++i) {
        if (std::tolower(static_cast<unsigned char>(text[i])) != lower[i]) return false;
    }
    return true;
}

bool endsWith(const char* path, std::size_t length, const char* lowerTail) {
    return length >= 3 && sameLetters(path + length - 3, lowerTail, 3);
}

struct FileCloser {
    void operator()(std::FILE* file) const { std::fclose(file); }
};
using File = std::unique_ptr<std::FILE, FileCloser>;

}  // namespace

// Only the last "." of the whole path counts, and the three characters after it decide; with no
// "." the comparison starts at the first character, so "mtxdata" is a thermoset name too.
bool QrvIsRIM(const char* path) {
    if (!path) return false;
    const char* dot = std::strrchr(path, '.');
    const char* tail = dot ? dot + 1 : path;
    // Comparison stops at the first mismatch, so a terminating NUL ends it inside the text.
    return sameLetters(tail, "mtx", 3);
}

bool QrvMapFileName(const char* path, const char** mapped) {
    static char buffer[qrv::kFileNameBufferSize];
    if (mapped) *mapped = nullptr;
    if (!path) return false;
    const std::size_t length = std::strlen(path);
    if (length >= sizeof buffer) return false;
    std::memset(buffer, 0, sizeof buffer);
    std::memcpy(buffer, path, length);
    if (endsWith(path, length, "emc")) std::memcpy(buffer + length - 3, "mtx", 3);
    if (endsWith(path, length, "mat")) std::memcpy(buffer + length - 2, "tr", 2);
    if (mapped) *mapped = buffer;
    return true;
}

namespace qrv {

bool mapsToOtherName(const char* path) {
    if (!path) return false;
    const std::size_t length = std::strlen(path);
    return endsWith(path, length, "emc") || endsWith(path, length, "mat");
}

}  // namespace qrv

bool QrvFileExists(const char* path, bool removeIt) {
    if (!path) return false;
    {
        File file(std::fopen(path, "r"));
        if (!file) return false;
    }
    if (removeIt) std::remove(path);
    return true;
}

bool QrvFileHasContent(const char* path) {
    if (!path) return false;
    File file(std::fopen(path, "r"));
    if (!file || std::fseek(file.get(), 0, SEEK_END) != 0) return false;
    return std::ftell(file.get()) > 0;
}
