// Naming calls and the content dump, against the floor of any naming call: assigning a literal
// to a string.
#include <benchmark/benchmark.h>
#include <quorvalib/quorvalib.h>

#include <string>

namespace {

struct Material {
    QrvMaterial* record = QrvGetDefaultMaterial(5, 3, false, 2, 2, 1);
    ~Material() { QrvReleaseMaterial(record); }
};

void BM_AssignLiteral(benchmark::State& state) {
    std::string text;
    for (auto _ : state) {
        text = "Modified Cross Model 3 - (D2)";
        benchmark::DoNotOptimize(text.data());
    }
}
BENCHMARK(BM_AssignLiteral);

void BM_VisParaName(benchmark::State& state) {
    Material m;
    int index = 0;
    for (auto _ : state) {
        benchmark::DoNotOptimize(QrvGetVisParaName(m.record, index));
        index = (index + 1) % 7;
    }
}
BENCHMARK(BM_VisParaName);

void BM_VEParaNameNumbered(benchmark::State& state) {
    Material m;
    m.record->VE.Model = 6;
    int unitId = 0;
    int index = 5;
    for (auto _ : state) {
        benchmark::DoNotOptimize(QrvGetVEParaName(m.record, index, unitId));
        index = index == 16 ? 5 : index + 1;
    }
}
BENCHMARK(BM_VEParaNameNumbered);

void BM_Content(benchmark::State& state) {
    Material m;
    for (auto _ : state)
        benchmark::DoNotOptimize(QrvGetContent(m.record, false));
}
BENCHMARK(BM_Content);

}  // namespace
