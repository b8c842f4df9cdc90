// Throughput over threads: 10^6 points of one shared record split over 1, 2 and the machine's
// core count of threads. Each thread evaluates its own contiguous part of the points and writes
// its own part of the results; the record is shared read-only. Items per second of real time
// against the one-thread figure of the same run show whether anything on the evaluation path
// (a lock, a shared counter, a written cache line) keeps the threads from scaling.
#include <benchmark/benchmark.h>

#include <algorithm>
#include <cmath>
#include <cstddef>
#include <cstdint>
#include <memory>
#include <string>
#include <thread>
#include <vector>

#include <quorvalib/quorvalib.h>

namespace {

constexpr std::size_t kPointCount = 1000000;

struct Points {
    std::vector<double> shearRate, temperature, pressure;
    std::vector<double> meltTemperature;  // the temperatures held at 180 degree C and above
};

// Conditions of a filling simulation: shear rates of 1 to 10^5 1/s, 180 to 300 degree C for the
// melt and 20 to 300 degree C for the volume (both sides of the two-domain transition), 0 to
// 1.5e9 dyne/cm^2.
const Points& points() {
    static const Points all = [] {
        Points p;
        p.shearRate.resize(kPointCount);
        p.temperature.resize(kPointCount);
        p.pressure.resize(kPointCount);
        p.meltTemperature.resize(kPointCount);
        for (std::size_t i = 0; i < kPointCount; ++i) {
            const double u = static_cast<double>((i * 7919) % kPointCount) / kPointCount;
            const double v = static_cast<double>((i * 104729) % kPointCount) / kPointCount;
            p.shearRate[i] = std::pow(10.0, 5.0 * u);
            p.temperature[i] = 20.0 + 280.0 * v;
            p.pressure[i] = 1.5e9 * u * v;
            p.meltTemperature[i] = std::max(p.temperature[i], 180.0);
        }
        return p;
    }();
    return all;
}

// Modified Cross model 3 (the Cross-WLF form) and the two-domain Tait model.
QrvMaterial* sharedRecord() {
    static const std::unique_ptr<QrvMaterial, void (*)(QrvMaterial*)> record(
        QrvGetDefaultMaterial(5, 5, true, 2, 2, 0), QrvReleaseMaterial);
    return record.get();
}

// One way of evaluating the points [begin, end) into out: one line per call, so a batch call is
// added to the comparison by one line.
struct Evaluation {
    const char* name;
    void (*run)(QrvMaterial* record, const Points& p, std::size_t begin, std::size_t end,
                double* out);
};

const Evaluation kEvaluations[] = {
    {"ViscosityScalar",
     [](QrvMaterial* r, const Points& p, std::size_t begin, std::size_t end, double* out) {
         for (std::size_t i = begin; i < end; ++i)
             out[i] = QrvGetViscosity(r, p.shearRate[i], p.meltTemperature[i], 0.0, 0.0);
     }},
    {"ViscosityBatch",
     [](QrvMaterial* r, const Points& p, std::size_t begin, std::size_t end, double* out) {
         QrvGetViscosityN(r, static_cast<int>(end - begin), &p.shearRate[begin],
                          &p.meltTemperature[begin], nullptr, nullptr, out + begin);
     }},
    {"ViscosityBatchFast",
     [](QrvMaterial* r, const Points& p, std::size_t begin, std::size_t end, double* out) {
         QrvGetViscosityNFast(r, static_cast<int>(end - begin), &p.shearRate[begin],
                              &p.meltTemperature[begin], nullptr, nullptr, out + begin);
     }},
    {"SpecificVolumeScalar",
     [](QrvMaterial* r, const Points& p, std::size_t begin, std::size_t end, double* out) {
         for (std::size_t i = begin; i < end; ++i)
             out[i] = QrvGetSpecificVolume(r, p.pressure[i], p.temperature[i], 0.0);
     }},
    {"SpecificVolumeBatch",
     [](QrvMaterial* r, const Points& p, std::size_t begin, std::size_t end, double* out) {
         QrvGetSpecificVolumeN(r, static_cast<int>(end - begin), &p.pressure[begin],
                               &p.temperature[begin], nullptr, out + begin);
     }},
    {"SpecificVolumeBatchFast",
     [](QrvMaterial* r, const Points& p, std::size_t begin, std::size_t end, double* out) {
         QrvGetSpecificVolumeNFast(r, static_cast<int>(end - begin), &p.pressure[begin],
                                   &p.temperature[begin], nullptr, out + begin);
     }},
};

void runThreaded(benchmark::State& state, const Evaluation* evaluation) {
    static std::vector<double> results(kPointCount);
    const Points& p = points();
    QrvMaterial* record = sharedRecord();
    const std::size_t threads = static_cast<std::size_t>(state.threads());
    const std::size_t index = static_cast<std::size_t>(state.thread_index());
    const std::size_t begin = kPointCount * index / threads;
    const std::size_t end = kPointCount * (index + 1) / threads;
    for (auto _ : state) {
        evaluation->run(record, p, begin, end, results.data());
        benchmark::ClobberMemory();
    }
    state.SetItemsProcessed(state.iterations() * static_cast<std::int64_t>(end - begin));
}

// 1, 2 and the core count of threads, each count once.
const bool kRegistered = [] {
    points();
    sharedRecord();
    std::vector<int> counts = {1, 2, static_cast<int>(std::thread::hardware_concurrency())};
    std::sort(counts.begin(), counts.end());
    counts.erase(std::unique(counts.begin(), counts.end()), counts.end());
    for (const Evaluation& evaluation : kEvaluations) {
        auto* b = benchmark::RegisterBenchmark((std::string("Threads/") + evaluation.name).c_str(),
                                               runThreaded, &evaluation);
        for (int count : counts)
            if (count >= 1) b->Threads(count);
        b->UseRealTime()->Unit(benchmark::kMillisecond);
    }
    return true;
}();

}  // namespace
