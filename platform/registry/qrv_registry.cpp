// Install folder and unit system: a setting made in the process, else the environment.
#include <quorvalib/registry.h>

#include <cstdlib>
#include <cstring>
#include <string>

namespace {

std::string& installFolder() {
    static std::string folder;
    return folder;
}

int& unitSystemSetting() {
    static int unitSystem = -1;
    return unitSystem;
}

}  // namespace

bool QRVGetInstallFolderPath(const char*, char* buffer, int length) {
    std::string folder = installFolder();
    if (folder.empty()) {
        const char* variable = std::getenv("QUORVANE_INSTALL_DIR");
        if (variable) folder = variable;
    }
    if (folder.empty() || !buffer) return false;
    if (folder.back() != '/') folder += '/';
    if (length < 0 || folder.size() >= static_cast<std::size_t>(length)) return false;
    std::memcpy(buffer, folder.c_str(), folder.size() + 1);
    return true;
}

void QRVSetInstallFolderPath(const char* folder) {
    installFolder() = folder ? folder : "";
}

bool QRVGetReleaseVersionUnit(int& unitSystem) {
    if (unitSystemSetting() >= 0) {
        unitSystem = unitSystemSetting();
        return true;
    }
    const char* variable = std::getenv("QUORVANE_UNIT_SYSTEM");
    if (!variable || variable[0] < '0' || variable[0] > '2' || variable[1] != '\0') return false;
    unitSystem = variable[0] - '0';
    return true;
}

void QRVSetReleaseVersionUnit(int unitSystem) {
    unitSystemSetting() = unitSystem < 0 ? -1 : unitSystem;
}
