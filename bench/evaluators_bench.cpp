// The MaterialProperty viscosity classes through their base pointer, the way the data check and a
// caller that keeps one evaluator use them. Compare with ViscosityFlat/<id> and
// ViscosityInline/<id> of the same run: --benchmark_filter=Viscosity
#include <benchmark/benchmark.h>

#include <quorvalib/quorvalib.h>

#include <memory>

namespace {

using namespace MaterialProperty;

std::unique_ptr<CViscosity> evaluatorFor(int id, const double* p) {
    switch (id) {
        case 1:
            return std::make_unique<CVisNewtonian>(p);
        case 2:
            return std::make_unique<CVisPowerLaw>(p);
        case 3:
            return std::make_unique<CVisModifiedCross1>(p);
        case 4:
            return std::make_unique<CVisModifiedCross2>(p);
        default:
            return std::make_unique<CVisModifiedCross3>(p);
    }
}

void ViscosityClass(benchmark::State& state) {
    const int id = static_cast<int>(state.range(0));
    QrvMaterial* material = QrvGetDefaultMaterial(id, 1, false, 1, 1, 0);
    std::unique_ptr<CViscosity> evaluator = evaluatorFor(id, material->Vis.Para);
    QrvReleaseMaterial(material);
    CViscosity* base = evaluator.get();
    benchmark::DoNotOptimize(base);
    // The inputs of ViscosityFlat, minus the conversion the classes do not take.
    struct {
        double g = 1000.0, t = 230.0, P = 5e7;
    } in;
    for (auto _ : state) {
        benchmark::DoNotOptimize(in);
        benchmark::DoNotOptimize(base->Evaluate(in.g, in.t, in.P));
    }
}
BENCHMARK(ViscosityClass)->DenseRange(1, 5);

}  // namespace
