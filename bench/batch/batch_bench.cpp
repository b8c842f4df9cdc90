// Batch evaluation per point on 10^6 points, against the floor: the same kernel compiled inline
// into a plain loop over the same arrays. Exact and fast batch calls per viscosity and PVT model;
// the fast ones on each instruction set the machine supports, the dispatch forced down to it.
// Run: build/bench/bench/quorvalib_batch_bench (see bench/README.md for the options used).
#include <benchmark/benchmark.h>

#include <quorvalib/quorvalib.h>

#include <cmath>
#include <memory>
#include <random>
#include <string>
#include <utility>
#include <vector>

#include "properties/batch/instruction_sets.h"
#include "properties/pvt_models.h"
#include "properties/viscosity_models.h"
#include "record/material_internal.h"

namespace {

constexpr int kPoints = 1000000;

struct Points {
    std::vector<double> g, t, P, x, out;
};

// Viscosity: shear rates log-uniform over 1 to 1e5 1/s, melt temperatures 200 to 300 C, pressures
// to 50 MPa (the Cross-WLF sample's T* = D2 + D3 P stays below the melt there), conversions
// below the gel points. PVT: 20 to 300 C (both sides of the transition), pressures to 150 MPa.
Points& points(bool pvt) {
    static Points sets[2];
    Points& p = sets[pvt];
    if (p.t.empty()) {
        std::mt19937 random(7);
        std::uniform_real_distribution<double> unit(0.0, 1.0);
        for (int i = 0; i < kPoints; ++i) {
            p.g.push_back(std::pow(10.0, 5 * unit(random)));
            p.t.push_back(pvt ? 20 + 280 * unit(random) : 200 + 100 * unit(random));
            p.P.push_back((pvt ? 1.5e9 : 5e8) * unit(random));
            p.x.push_back(0.4 * unit(random));
        }
        p.out.assign(kPoints, 0.0);
    }
    return p;
}

using MaterialPtr = std::unique_ptr<QrvMaterial, void (*)(QrvMaterial*)>;

MaterialPtr record(bool pvt, int id) {
    static const std::vector<double> kVis[] = {
        {},
        {1234.5},
        {0.429888, 498.746, 2332.14},
        {0.3036, 0.0001051, 6.484e-07, 12720.0, 2.4e-09},
        {0.27845, 876860.0, 1.1326e-06, 11642.0, 3.1e-09},
        {0.25883, 1026900.0, 4.7127e+14, 373.15, 2.0e-07, 30.5, 46.0},
        {},
        {},
        {},
        {},
        {0.69, 6.9179, 1.9442, 0.01682, 3570.21},
        {-13.72626, -45.23453, 11.03065, 8686.252, 17649.07, -4093.336, 0.5490999, 1.817284,
         -0.2455251, 0.45, 0.22},
        {1.0, 9.31, 1.893e-05, 0.03115, 8916.0, 0.4514, 0.0234},
        {0.85, 23220000.0, 25.85, 179.6, 5.13, 1.2, 0.682, 8570.0, 293.0, 0.0},
    };
    static const std::vector<double> kPvt[] = {
        {},
        {1.25},
        {0.85, 3.2e9, 2.6e5},
        {0.95, 6.5e-4, 2.0e9, 4.0e-3, 0.0894},
        {0.96, 5.8e-4, 1.9e9, 4.6e-3, 420.0, 1.5e-8, 0.07},
        {1.243223, 0.0008717028, 803245700.0, 0.005057665, 1.174659, 0.0006479683, 966552700.0,
         0.006852022, 448.5, 6.625e-09, 0.05328416, 0.1, 6.625e-10},
        {0.85, 3.2e9, 2.6e5, 0.4},
        {0.9057, 0.00053647, 1656600000.0, 0.0043988, 0.8},
    };
    MaterialPtr m(new QrvMaterial, QrvReleaseMaterial);
    QrvInitMaterial(m.get());
    QrvMatParam& block = pvt ? m->PVT : m->Vis;
    const std::vector<double>& values = pvt ? kPvt[id] : kVis[id];
    block.Model = id;
    block.Count = static_cast<int>(values.size());
    block.Para = new double[values.size()];
    for (std::size_t i = 0; i < values.size(); ++i)
        block.Para[i] = values[i];
    return m;
}

// The floor: the kernel of the model, known at compile time, inline in a plain loop.
template <int Id>
void viscosityFloor(benchmark::State& state) {
    auto m = record(false, Id);
    Points& p = points(false);
    const double* para = m->Vis.Para;
    constexpr auto kernel = qrv::viscosity::kModels[Id].evaluate;
    for (auto _ : state) {
        for (int i = 0; i < kPoints; ++i)
            p.out[i] = kernel(para, p.g[i], p.t[i], p.P[i], p.x[i]);
        benchmark::ClobberMemory();
    }
    state.SetItemsProcessed(state.iterations() * kPoints);
}

template <int Id>
void volumeFloor(benchmark::State& state) {
    auto m = record(true, Id);
    Points& p = points(true);
    const double* para = m->PVT.Para;
    constexpr auto kernel = qrv::pvt::kModels[Id].evaluate;
    for (auto _ : state) {
        for (int i = 0; i < kPoints; ++i)
            p.out[i] = kernel(para, p.P[i], p.t[i] + 273.15, p.x[i]);
        benchmark::ClobberMemory();
    }
    state.SetItemsProcessed(state.iterations() * kPoints);
}

using qrv::batch::InstructionSet;

// range(1) < 0: the exact form; otherwise the fast form limited to that instruction set.
// call(fast) makes one batch call over the 10^6 points.
template <typename Call>
void timeBatch(benchmark::State& state, Call call) {
    const int set = static_cast<int>(state.range(1));
    if (set > static_cast<int>(qrv::batch::widestSupported())) {
        state.SkipWithError("instruction set not supported here");
        return;
    }
    if (set >= 0) qrv::batch::limitInstructionSet(static_cast<InstructionSet>(set));
    for (auto _ : state) {
        call(set >= 0);
        benchmark::ClobberMemory();
    }
    qrv::batch::limitInstructionSet(InstructionSet::Avx512);
    state.SetItemsProcessed(state.iterations() * kPoints);
}

void viscosityBatch(benchmark::State& state) {
    auto m = record(false, static_cast<int>(state.range(0)));
    Points& p = points(false);
    timeBatch(state, [&](bool fast) {
        (fast ? QrvGetViscosityNFast : QrvGetViscosityN)(m.get(), kPoints, p.g.data(), p.t.data(),
                                                         p.P.data(), p.x.data(), p.out.data());
    });
}

void volumeBatch(benchmark::State& state) {
    auto m = record(true, static_cast<int>(state.range(0)));
    Points& p = points(true);
    timeBatch(state, [&](bool fast) {
        (fast ? QrvGetSpecificVolumeNFast : QrvGetSpecificVolumeN)(
            m.get(), kPoints, p.P.data(), p.t.data(), p.x.data(), p.out.data());
    });
}

// Exact (-1), then the fast form on SSE2 (0), AVX2 (1), AVX-512 (2).
void viscosityArgs(benchmark::internal::Benchmark* b) {
    for (int id : {1, 2, 3, 4, 5, 10, 11, 12, 13})
        for (int set : {-1, 0, 1, 2})
            b->Args({id, set});
}
void volumeArgs(benchmark::internal::Benchmark* b) {
    for (int id = 1; id <= 7; ++id)
        for (int set : {-1, 0, 1, 2})
            b->Args({id, set});
}

}  // namespace

BENCHMARK(viscosityFloor<1>);
BENCHMARK(viscosityFloor<2>);
BENCHMARK(viscosityFloor<3>);
BENCHMARK(viscosityFloor<4>);
BENCHMARK(viscosityFloor<5>);
BENCHMARK(viscosityFloor<10>);
BENCHMARK(viscosityFloor<11>);
BENCHMARK(viscosityFloor<12>);
BENCHMARK(viscosityFloor<13>);
BENCHMARK(viscosityBatch)->Apply(viscosityArgs)->ArgNames({"model", "set"});
BENCHMARK(volumeFloor<1>);
BENCHMARK(volumeFloor<2>);
BENCHMARK(volumeFloor<3>);
BENCHMARK(volumeFloor<4>);
BENCHMARK(volumeFloor<5>);
BENCHMARK(volumeFloor<6>);
BENCHMARK(volumeFloor<7>);
BENCHMARK(volumeBatch)->Apply(volumeArgs)->ArgNames({"model", "set"});
