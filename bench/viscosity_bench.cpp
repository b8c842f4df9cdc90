// QrvGetViscosity per evaluated model against the same formula compiled inline here: the floor.
// Run: build/bench/bench/quorvalib_bench --benchmark_filter=Viscosity
#include <benchmark/benchmark.h>

#include <quorvalib/quorvalib.h>

#include <cmath>
#include <memory>

namespace {

struct Inputs {
    double g = 1000.0, t = 230.0, P = 5e7, x = 0.2;
};

using MaterialPtr = std::unique_ptr<QrvMaterial, void (*)(QrvMaterial*)>;

MaterialPtr sample(int visId) {
    return MaterialPtr(QrvGetDefaultMaterial(visId, 1, false, 1, 1, 0), QrvReleaseMaterial);
}

inline double kelvin(double t) {
    return t + 273.15;
}

// The formulas, straight, over the same parameter array.
inline double inlineFormula(int id, const double* p, const Inputs& in) {
    const double T = kelvin(in.t);
    switch (id) {
        case 1:
            return p[0];
        case 2:
            return p[1] * std::exp(p[2] / T) * std::pow(in.g, p[0] - 1);
        case 3: {
            const double e0 = p[2] * std::exp(p[3] / T + p[4] * in.P);
            return e0 / (1 + p[1] * std::pow(e0 * in.g, 1 - p[0]));
        }
        case 4: {
            const double e0 = p[2] * std::exp(p[3] / T + p[4] * in.P);
            return e0 / (1 + std::pow(e0 * in.g / p[1], 1 - p[0]));
        }
        case 5: {
            const double Ts = p[3] + p[4] * in.P;
            const double e0 =
                p[2] * std::exp(-p[5] * (T - Ts) / (p[4] * in.P + p[6] + in.t + 273.15 - Ts));
            return e0 / (1 + std::pow(e0 * in.g / p[1], 1 - p[0]));
        }
        case 10:
            return std::pow(p[0] / (p[0] - in.x), p[1] + p[2] * in.x) * p[3] * std::exp(p[4] / T);
        case 11: {
            const double tau = std::tan(std::acos(-1.0) * ((in.x - p[10]) / p[9]) * 0.5);
            const double a = p[0] + p[1] * in.x + p[2] * tau;
            const double b = p[3] + p[4] * in.x + p[5] * tau;
            double m = p[6] * std::exp(p[7] * in.x + p[8] * tau);
            m = 0.01 > m ? 0.01 : (m > 0.99 ? 0.99 : m);
            return std::exp(b / T + a) * std::pow(in.g, m - 1);
        }
        case 12: {
            const double f = p[3] * std::exp(p[4] / T);
            return f * std::pow(p[0] / (p[0] - in.x), p[1] + p[2] * in.x) /
                   (1 + std::pow(f * in.g / p[6], 1 - p[5]));
        }
        case 13:
            return p[1] * std::pow(p[6] / (p[6] - in.x), p[4] + p[5] * in.x) *
                       std::exp(-p[2] * (T - p[8]) / (p[3] + T - p[8])) * std::pow(in.g, p[0] - 1) +
                   p[7] * std::exp(p[5] / T) / in.g;
    }
    return 0.0;
}

void ViscosityFlat(benchmark::State& state) {
    const int id = static_cast<int>(state.range(0));
    auto material = sample(id);
    Inputs in;
    for (auto _ : state) {
        benchmark::DoNotOptimize(in);
        benchmark::DoNotOptimize(QrvGetViscosity(material.get(), in.g, in.t, in.P, in.x));
    }
}

void ViscosityInline(benchmark::State& state) {
    const int id = static_cast<int>(state.range(0));
    auto material = sample(id);
    const double* para = material->Vis.Para;
    Inputs in;
    for (auto _ : state) {
        benchmark::DoNotOptimize(in);
        benchmark::DoNotOptimize(para);
        benchmark::DoNotOptimize(inlineFormula(id, para, in));
    }
}

void allModels(benchmark::internal::Benchmark* b) {
    for (int id : {1, 2, 3, 4, 5, 10, 11, 12, 13})
        b->Arg(id);
}

}  // namespace

BENCHMARK(ViscosityInline)->Apply(allModels);
BENCHMARK(ViscosityFlat)->Apply(allModels);
