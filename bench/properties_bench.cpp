// Property evaluators through the shared library against the same formula written inline here:
// the inline version is the floor that a call through the exported surface can approach.
#include <benchmark/benchmark.h>

#include <cmath>
#include <memory>
#include <vector>

#include <quorvalib/quorvalib.h>

namespace {

using RecordPtr = std::unique_ptr<QrvMaterial, void (*)(QrvMaterial*)>;

RecordPtr defaultRecord(int visId, int pvtId, bool crystalline, int cpId) {
    return RecordPtr(QrvGetDefaultMaterial(visId, pvtId, crystalline, cpId, 1, 0),
                     QrvReleaseMaterial);
}

void setBlock(QrvMatParam& block, int model, const std::vector<double>& values) {
    delete[] block.Para;
    block.Model = model;
    block.Count = static_cast<int>(values.size());
    block.Para = new double[values.size()];
    for (std::size_t i = 0; i < values.size(); ++i)
        block.Para[i] = values[i];
}

// Temperatures and pressures cycled through so that no call is folded away; both sides of the
// two-domain transition are visited.
constexpr double kTemperatures[] = {25.0, 80.0, 140.0, 175.0, 190.0, 230.0, 260.0, 300.0};
constexpr double kPressures[] = {0.0, 1e8, 5e8, 1e9, 1.5e9, 2e8, 7e8, 1.2e9};
constexpr int kPoints = 8;

double inlineModifiedTait2(const double* p, double P, double t) {
    const double T = t + 273.15;
    const double d = T - p[8];
    const double Tt = p[8] + p[9] * P;
    double V0, B, Vt;
    if (T >= Tt) {
        V0 = p[0] + p[1] * d;
        B = p[2] * std::exp(-p[3] * d);
        Vt = 0;
    } else {
        V0 = p[4] + p[5] * d;
        B = p[6] * std::exp(-p[7] * d);
        Vt = p[10] * std::exp(p[11] * d - p[12] * P);
    }
    return V0 * (1 - 0.0894 * std::log(1 + P / B)) + Vt;
}

double inlineTaitC(const double* p, double P, double t, double x) {
    const double T = t + 273.15;
    return (1 - 0.0894 * std::log(1 + P / (p[2] * std::exp(-p[3] * T)))) * (p[0] + p[1] * T) *
           (1 - p[4] * x);
}

double inlineTable(const double* p, int n, double t) {
    if (n < 4 || p[1] > t) return p[0];
    if (t > p[n - 1]) return p[n - 2];
    int i = 0;
    while (i + 4 < n && !(t >= p[i + 1] && p[i + 3] >= t))
        i += 2;
    return (p[i + 2] - p[i]) * (t - p[i + 1]) / (p[i + 3] - p[i + 1]) + p[i];
}

const std::vector<double> kTaitC = {0.9057, 0.00053647, 1656600000.0, 0.0043988, 0.05};
const std::vector<double> kCpTable = {14420000.0, 55,  17260000.0, 100, 20700000.0, 150,
                                      22740000.0, 255, 23000000.0, 280, 23500000.0, 300,
                                      24000000.0, 320, 24400000.0, 340};

void BM_SpecificVolumeModel5(benchmark::State& state) {
    RecordPtr record = defaultRecord(1, 5, true, 1);
    int k = 0;
    for (auto _ : state) {
        benchmark::DoNotOptimize(
            QrvGetSpecificVolume(record.get(), kPressures[k], kTemperatures[k], 0.0));
        k = (k + 1) % kPoints;
    }
}
void BM_SpecificVolumeModel5Inline(benchmark::State& state) {
    RecordPtr record = defaultRecord(1, 5, true, 1);
    const double* p = record->PVT.Para;
    int k = 0;
    for (auto _ : state) {
        benchmark::DoNotOptimize(p);
        benchmark::DoNotOptimize(inlineModifiedTait2(p, kPressures[k], kTemperatures[k]));
        k = (k + 1) % kPoints;
    }
}

void BM_SpecificVolumeModel7(benchmark::State& state) {
    RecordPtr record = defaultRecord(1, 1, false, 1);
    setBlock(record->PVT, 7, kTaitC);
    int k = 0;
    for (auto _ : state) {
        benchmark::DoNotOptimize(
            QrvGetSpecificVolume(record.get(), kPressures[k], kTemperatures[k], 0.3));
        k = (k + 1) % kPoints;
    }
}
void BM_SpecificVolumeModel7Inline(benchmark::State& state) {
    const double* p = kTaitC.data();
    int k = 0;
    for (auto _ : state) {
        benchmark::DoNotOptimize(p);
        benchmark::DoNotOptimize(inlineTaitC(p, kPressures[k], kTemperatures[k], 0.3));
        k = (k + 1) % kPoints;
    }
}

void BM_HeatCapacity8Pairs(benchmark::State& state) {
    RecordPtr record = defaultRecord(1, 1, false, 1);
    setBlock(record->Cp, 4, kCpTable);
    int k = 0;
    for (auto _ : state) {
        benchmark::DoNotOptimize(QrvGetHeatCapacity(record.get(), kTemperatures[k]));
        k = (k + 1) % kPoints;
    }
}
void BM_HeatCapacity8PairsInline(benchmark::State& state) {
    const double* p = kCpTable.data();
    int n = static_cast<int>(kCpTable.size());
    int k = 0;
    for (auto _ : state) {
        // The count is read from the block at run time, as the library does: no unrolled walk.
        benchmark::DoNotOptimize(p);
        benchmark::DoNotOptimize(n);
        benchmark::DoNotOptimize(inlineTable(p, n, kTemperatures[k]));
        k = (k + 1) % kPoints;
    }
}

// The generated thermoset of viscosity id 12 carries its kinetics; temperatures around a cure
// temperature, conversions spread over the range.
constexpr double kCureTemperatures[] = {150.0, 160.0, 170.0, 175.0};
constexpr double kConversions[] = {0.0, 0.2, 0.5, 0.8};

void BM_ConversionIsothermal(benchmark::State& state) {
    RecordPtr record = defaultRecord(12, 1, false, 1);
    int k = 0;
    for (auto _ : state) {
        benchmark::DoNotOptimize(
            QrvGetConversion(record.get(), kCureTemperatures[k], 0.0, kConversions[k]));
        k = (k + 1) % 4;
    }
}
void BM_ConversionRamp(benchmark::State& state) {
    RecordPtr record = defaultRecord(12, 1, false, 1);
    int k = 0;
    for (auto _ : state) {
        benchmark::DoNotOptimize(
            QrvGetConversion(record.get(), kCureTemperatures[k], 1.0, kConversions[k]));
        k = (k + 1) % 4;
    }
}

// The cost of reaching the library at all: a field reader that does nothing but test and load.
void BM_CallIntoLibrary(benchmark::State& state) {
    RecordPtr record = defaultRecord(1, 1, false, 1);
    for (auto _ : state) {
        QrvMaterial* material = record.get();
        benchmark::DoNotOptimize(material);
        benchmark::DoNotOptimize(QrvGetFileVer(material));
    }
}

}  // namespace

BENCHMARK(BM_CallIntoLibrary);
BENCHMARK(BM_SpecificVolumeModel5);
BENCHMARK(BM_SpecificVolumeModel5Inline);
BENCHMARK(BM_SpecificVolumeModel7);
BENCHMARK(BM_SpecificVolumeModel7Inline);
BENCHMARK(BM_HeatCapacity8Pairs);
BENCHMARK(BM_HeatCapacity8PairsInline);
BENCHMARK(BM_ConversionIsothermal);
BENCHMARK(BM_ConversionRamp);
