// Files of the fuzz targets: one private folder per process, the process's locale and a
// whole-file write.
#ifndef QRV_FUZZ_FUZZ_FILES_H
#define QRV_FUZZ_FUZZ_FILES_H

#include <stdlib.h>

#include <cstdint>
#include <cstdio>
#include <cstdlib>
#include <filesystem>
#include <locale>
#include <stdexcept>
#include <string>
#include <system_error>

namespace qrvfuzz {

// A fresh folder, made once and removed again when the process ends; the path ends in '/'.
// Every input writes, saves and reloads files there, and on a disk file system creating and
// deleting those files costs more than all the rest of an input: the folder lies in memory, below
// /dev/shm, where the system has it, and below TMPDIR or /tmp otherwise.
inline const std::string& folder() {
    struct Made {
        std::string Path;
        Made() {
            const char* const bases[] = {"/dev/shm", std::getenv("TMPDIR"), "/tmp"};
            for (const char* base : bases) {
                if (!base || !*base) continue;
                std::string name = std::string(base) + "/qrv_fuzz_XXXXXX";
                if (mkdtemp(name.data())) {
                    Path = name + "/";
                    return;
                }
            }
            std::abort();  // nowhere to write: every target needs files
        }
        ~Made() {
            std::error_code ignored;
            std::filesystem::remove_all(Path, ignored);
        }
    };
    static const Made made;
    return made.Path;
}

// Runs the process under the system's default locale, as a program that sets its locale at start
// does, once: the library then finds that locale in force at every file open and has none to
// switch to and back (the switch itself is tested by the unit tests).
inline void useSystemLocale() {
    static const bool done = [] {
        try {
            std::locale::global(std::locale(""));
        } catch (const std::runtime_error&) {
            // The environment names a locale the system lacks: the opens switch, as before.
        }
        return true;
    }();
    (void)done;
}

inline void write(const std::string& path, const std::uint8_t* data, std::size_t size) {
    std::FILE* file = std::fopen(path.c_str(), "wb");
    if (!file) return;
    std::fwrite(data, 1, size, file);
    std::fclose(file);
}

}  // namespace qrvfuzz

#endif
