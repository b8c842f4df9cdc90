// Loading a material file against the floor of reading its bytes: the thermoplastic sample with
// every block, two measured curve families and MTC data, copied to a temporary file.
#include <quorvalib/quorvalib.h>

#include <benchmark/benchmark.h>

#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

#include <clocale>
#include <cstdio>
#include <filesystem>
#include <fstream>
#include <iterator>
#include <locale>
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

// The floor: read all the file's bytes into memory the fastest ordinary way, as a load does it
// too: one open, one size query, one read into a buffer of that size, one close.
void BM_ReadFileBytes(benchmark::State& state) {
    const char* path = sample().path();
    for (auto _ : state) {
        const int descriptor = ::open(path, O_RDONLY | O_CLOEXEC);
        struct stat info {};
        ::fstat(descriptor, &info);
        std::vector<char> bytes(static_cast<std::size_t>(info.st_size));
        const ssize_t got = ::read(descriptor, bytes.data(), bytes.size());
        ::close(descriptor);
        benchmark::DoNotOptimize(got);
        benchmark::DoNotOptimize(bytes.data());
    }
}
BENCHMARK(BM_ReadFileBytes);

// The floor of the earlier figures: a file stream read through stream iterators into a vector
// that grows as it goes. Kept to compare with them.
void BM_ReadFileBytesByStream(benchmark::State& state) {
    const char* path = sample().path();
    for (auto _ : state) {
        std::ifstream in(path, std::ios::binary);
        std::vector<char> bytes((std::istreambuf_iterator<char>(in)),
                                std::istreambuf_iterator<char>());
        benchmark::DoNotOptimize(bytes.data());
    }
}
BENCHMARK(BM_ReadFileBytesByStream);

void BM_LoadAndReleaseMaterial(benchmark::State& state) {
    const char* path = sample().path();
    for (auto _ : state) {
        QrvMaterial* material = QrvGetMaterial(path);
        benchmark::DoNotOptimize(material);
        QrvReleaseMaterial(material);
    }
}
BENCHMARK(BM_LoadAndReleaseMaterial);

// The same load by a caller that already runs under the system's default locale (C++ global and C
// library alike): the open needs no switch, so the difference to the load above is what the
// switch costs.
void BM_LoadAndReleaseUnderSystemLocale(benchmark::State& state) {
    const char* path = sample().path();
    const std::string callersC = std::setlocale(LC_ALL, nullptr);
    const std::locale callers = std::locale::global(std::locale(""));
    for (auto _ : state) {
        QrvMaterial* material = QrvGetMaterial(path);
        benchmark::DoNotOptimize(material);
        QrvReleaseMaterial(material);
    }
    std::locale::global(callers);
    std::setlocale(LC_ALL, callersC.c_str());
}
BENCHMARK(BM_LoadAndReleaseUnderSystemLocale);

}  // namespace
