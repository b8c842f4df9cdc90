// A driver for the fuzz targets without libFuzzer: every file named, and every file of every
// folder named, is handed once to the target's entry point. The regression tests and the
// valgrind round run the targets' oracles this way with any compiler. As under libFuzzer, a
// single allocation of more than 64 MB through new is a finding.
#include <cstdint>
#include <cstdio>
#include <cstdlib>
#include <filesystem>
#include <fstream>
#include <iterator>
#include <new>
#include <set>
#include <string>
#include <vector>

#include "support/replaced_new.h"

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size);

constexpr std::size_t kAllocationLimit = std::size_t{64} << 20;

void* qrvtest::allocate(std::size_t size) {
    if (size > kAllocationLimit) {
        std::fprintf(stderr, "replay: an allocation of %zu bytes passes the 64 MB limit\n", size);
        std::abort();
    }
    if (void* block = std::malloc(size ? size : 1)) return block;
    throw std::bad_alloc();
}

namespace {

void replay(const std::filesystem::path& path) {
    std::ifstream in(path, std::ios::binary);
    const std::vector<char> bytes((std::istreambuf_iterator<char>(in)),
                                  std::istreambuf_iterator<char>());
    std::printf("replay %s (%zu bytes)\n", path.string().c_str(), bytes.size());
    std::fflush(stdout);
    LLVMFuzzerTestOneInput(reinterpret_cast<const std::uint8_t*>(bytes.data()), bytes.size());
}

}  // namespace

int main(int argc, char** argv) {
    int replayed = 0;
    for (int i = 1; i < argc; ++i) {
        const std::filesystem::path path = argv[i];
        if (std::filesystem::is_directory(path)) {
            std::set<std::filesystem::path> files;  // in name order, the same on every machine
            for (const auto& entry : std::filesystem::directory_iterator(path))
                if (entry.is_regular_file()) files.insert(entry.path());
            for (const auto& file : files) {
                replay(file);
                ++replayed;
            }
        } else if (std::filesystem::is_regular_file(path)) {
            replay(path);
            ++replayed;
        } else {
            std::fprintf(stderr, "replay: no file %s\n", argv[i]);
            return 2;
        }
    }
    std::printf("replayed %d inputs\n", replayed);
    return 0;
}
