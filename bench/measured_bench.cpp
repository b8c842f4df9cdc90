// Measured data through the exported surface: copying a curve family, its axis limits, and adding
// and removing MTC records on a record.
#include <quorvalib/quorvalib.h>

#include <benchmark/benchmark.h>

#include <vector>

namespace {

// Ten curves of thirty points, the size of a rich measured file.
void fill(CQrvMatRawData& data) {
    std::vector<double> x(30), y(30);
    for (int i = 0; i < 30; ++i) {
        x[i] = 10.0 * (i + 1);
        y[i] = 1000.0 / (i + 1);
    }
    for (int c = 0; c < 10; ++c)
        data.AddCurve(180.0 + 10 * c, 30, x.data(), y.data());
}

void BM_RawCurveCopy(benchmark::State& state) {
    CQrvViscosityData source;
    fill(source);
    CQrvViscosityData destination;
    for (auto _ : state) {
        source.CopyTo(&destination);
        benchmark::DoNotOptimize(destination.GetCurveCount());
    }
}
BENCHMARK(BM_RawCurveCopy);

void BM_RawCurveAxisLimits(benchmark::State& state) {
    CQrvViscosityData data;
    fill(data);
    for (auto _ : state)
        benchmark::DoNotOptimize(data.GetMaxX() + data.GetMinX() + data.GetMaxY() + data.GetMinY());
}
BENCHMARK(BM_RawCurveAxisLimits);

void BM_AddAndRemoveMTC(benchmark::State& state) {
    QrvMaterial* material = QrvGetDefaultMaterial(4, 5, false, 3, 2, 1);
    QrvMTCSection sections[5] = {};
    double temperatures[5] = {150, 170, 190, 210, 230};
    for (auto& section : sections)
        section.MaxParameterNum = 4;
    QRV_MTC record{2, 0, 5, sections, temperatures};
    for (auto _ : state) {
        QrvAddMTCData(material, &record, 1);
        QrvRemoveAllMTC(material);
    }
    QrvReleaseMaterial(material);
}
BENCHMARK(BM_AddAndRemoveMTC);

}  // namespace
