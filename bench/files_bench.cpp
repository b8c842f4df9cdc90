// Loading a material file against the floor of reading its bytes: the thermoplastic sample with
// every block, two measured curve families and MTC data, copied to a temporary file.
#include <quorvalib/quorvalib.h>

#include <benchmark/benchmark.h>

#include <unistd.h>

#include <cstdio>
#include <filesystem>
#include <fstream>
#include <iterator>
#include <string>
#include <vector>

namespace {

// The sample copied once into the temporary folder, removed at the end of the run.
class SampleCopy {
public:
    SampleCopy() {
        path_ = (std::filesystem::temp_directory_path() /
                 ("quorvalib_bench_" + std::to_string(::getpid()) + ".mtr"))
                    .string();
        std::filesystem::copy_file(
            std::string(QRV_BENCH_DATA_DIR) + "/sample_thermoplastic_9012.mtr", path_,
            std::filesystem::copy_options::overwrite_existing);
    }
    ~SampleCopy() { std::remove(path_.c_str()); }
    const char* path() const { return path_.c_str(); }

private:
    std::string path_;
};

const SampleCopy& sample() {
    static const SampleCopy copy;
    return copy;
}

// The floor: open the file and read all its bytes into memory.
void BM_ReadFileBytes(benchmark::State& state) {
    const char* path = sample().path();
    for (auto _ : state) {
        std::ifstream in(path, std::ios::binary);
        std::vector<char> bytes((std::istreambuf_iterator<char>(in)),
                                std::istreambuf_iterator<char>());
        benchmark::DoNotOptimize(bytes.data());
    }
}
BENCHMARK(BM_ReadFileBytes);

void BM_LoadAndReleaseMaterial(benchmark::State& state) {
    const char* path = sample().path();
    for (auto _ : state) {
        QrvMaterial* material = QrvGetMaterial(path);
        benchmark::DoNotOptimize(material);
        QrvReleaseMaterial(material);
    }
}
BENCHMARK(BM_LoadAndReleaseMaterial);

}  // namespace
