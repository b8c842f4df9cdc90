#include "bank/bank_file.h"

#include <sys/stat.h>

#include <memory>
#include <vector>

namespace qrv::bank {

namespace {

bool statOf(const char* path, struct stat& info) {
    return path && ::stat(path, &info) == 0;
}

}  // namespace

bool isEmptyFile(const char* path) {
    struct stat info {};
    return statOf(path, info) && S_ISREG(info.st_mode) && info.st_size == 0;
}

bool tooShortForBank(const char* path) {
    struct stat info {};
    if (!statOf(path, info)) return false;  // the open that follows reports it
    if (S_ISDIR(info.st_mode)) return true;
    return S_ISREG(info.st_mode) && info.st_size > 0 && info.st_size < 4;
}

void keepForProcess(QrvMaterial* material) {
    // Held in a type of the library's own, so that the vector's code is not exported.
    struct Kept {
        std::unique_ptr<QrvMaterial, void (*)(QrvMaterial*)> material;
    };
    static std::vector<Kept> kept;
    if (material) kept.push_back({{material, QrvReleaseMaterial}});
}

}  // namespace qrv::bank
