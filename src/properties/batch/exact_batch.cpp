// The exact batch forms: the scalar call's guards once, then one loop per model over the very
// kernel that the scalar call uses, so that every point agrees with it to the bit.
#include <quorvalib/batch.h>
#include <quorvalib/properties.h>

#include <array>
#include <utility>

#include "properties/batch/batch_call.h"
#include "properties/batch/batch_forms.h"
#include "properties/heat_table.h"
#include "properties/pvt_models.h"
#include "properties/viscosity_models.h"

namespace qrv::batch {
namespace {

using PointLoop = void (*)(const double* p, int n, const double* a, const double* t,
                           const double* b, const double* c, double* out);

// One loop per viscosity model: the kernel is a constant here, so the compiler sees its body.
template <int Id>
void viscosityLoop(const double* p, int n, const double* g, const double* t, const double* P,
                   const double* x, double* out) {
    constexpr viscosity::Evaluator evaluate = viscosity::kModels[Id].evaluate;
    if constexpr (viscosity::kModels[Id].valuesRead > 0) {  // an id with a formula
        withColumns(P, x, [&](auto pressure, auto conversion) {
            for (int i = 0; i < n; ++i)
                out[i] = evaluate(p, g[i], t[i], pressure[i], conversion[i]);
        });
    }
}

// One loop per PVT model; the temperature becomes kelvin exactly as the scalar call makes it.
template <int Id>
void volumeLoop(const double* p, int n, const double* P, const double* t, const double* x,
                const double*, double* out) {
    constexpr pvt::Evaluator evaluate = pvt::kModels[Id].evaluate;
    if constexpr (pvt::kModels[Id].valuesRead > 0) {  // an id with a formula
        withColumns(P, x, [&](auto pressure, auto conversion) {
            for (int i = 0; i < n; ++i)
                out[i] = evaluate(p, pressure[i], t[i] + pvt::kCelsiusToKelvin, conversion[i]);
        });
    }
}

template <template <int> class Loop, int... Id>
constexpr auto loopTable(std::integer_sequence<int, Id...>) {
    return std::array<PointLoop, sizeof...(Id)>{&Loop<Id>::run...};
}

template <int Id>
struct ViscosityLoop {
    static void run(const double* p, int n, const double* g, const double* t, const double* P,
                    const double* x, double* out) {
        viscosityLoop<Id>(p, n, g, t, P, x, out);
    }
};
template <int Id>
struct VolumeLoop {
    static void run(const double* p, int n, const double* P, const double* t, const double* x,
                    const double* unused, double* out) {
        volumeLoop<Id>(p, n, P, t, x, unused, out);
    }
};

// Indexed by model id, like the kernel tables.
constexpr auto kViscosityLoops =
    loopTable<ViscosityLoop>(std::make_integer_sequence<int, viscosity::kModelCount>{});
constexpr auto kVolumeLoops =
    loopTable<VolumeLoop>(std::make_integer_sequence<int, pvt::kModelCount>{});

}  // namespace

void viscosityPoints(int model, const double* p, int n, const double* g, const double* t,
                     const double* P, const double* x, double* out) {
    kViscosityLoops[model](p, n, g, t, P, x, out);
}

void volumePoints(int model, const double* p, int n, const double* P, const double* t,
                  const double* x, double* out) {
    kVolumeLoops[model](p, n, P, t, x, nullptr, out);
}

int viscosities(const QrvMaterial* material, int count, const double* g, const double* t,
                const double* P, const double* x, double* out, ViscosityPoints points) {
    if (!acceptable(count, out, {g, t})) return 0;
    if (!material) return fill(count, out, -1.0);
    if (!viscosity::evaluatorOf(material->Vis)) return fill(count, out, 0.0);
    points(material->Vis.Model, material->Vis.Para, count, g, t, P, x, out);
    return count;
}

int volumes(const QrvMaterial* material, int count, const double* P, const double* t,
            const double* x, double* out, VolumePoints points) {
    if (!acceptable(count, out, {t})) return 0;
    if (!material) return fill(count, out, -1.0);
    if (!pvt::evaluatorOf(material->PVT)) return fill(count, out, 0.0);
    points(material->PVT.Model, material->PVT.Para, count, P, t, x, out);
    return count;
}

int densities(const QrvMaterial* material, int count, const double* P, const double* t,
              const double* x, double* out, VolumePoints points) {
    // The scalar density is 1.0 over the scalar volume, with 0.0 of its own for a null record.
    if (!material) return acceptable(count, out, {t}) ? fill(count, out, 0.0) : 0;
    const int written = volumes(material, count, P, t, x, out, points);
    for (int i = 0; i < written; ++i)
        out[i] = 1.0 / out[i];
    return written;
}

int tableValues(const QrvMaterial* material, QrvMatParam QrvMaterial::*block, int count,
                const double* t, double* out) {
    if (!acceptable(count, out, {t})) return 0;
    if (!material) return fill(count, out, heat::kMissing);
    const QrvMatParam& values = material->*block;
    for (int i = 0; i < count; ++i)
        out[i] = heat::interpolate(values, t[i]);
    return count;
}

}  // namespace qrv::batch

using qrv::batch::viscosityPoints;
using qrv::batch::volumePoints;

int QrvGetViscosityN(QrvMaterial* material, int count, const double* shearRate,
                     const double* temperature, const double* pressure, const double* conversion,
                     double* viscosity) {
    return qrv::batch::viscosities(material, count, shearRate, temperature, pressure, conversion,
                                   viscosity, viscosityPoints);
}

int QrvGetSpecificVolumeN(QrvMaterial* material, int count, const double* pressure,
                          const double* temperature, const double* conversion, double* volume) {
    return qrv::batch::volumes(material, count, pressure, temperature, conversion, volume,
                               volumePoints);
}

int QrvGetDensityN(QrvMaterial* material, int count, const double* pressure,
                   const double* temperature, const double* conversion, double* density) {
    return qrv::batch::densities(material, count, pressure, temperature, conversion, density,
                                 volumePoints);
}

int QrvGetHeatCapacityN(QrvMaterial* material, int count, const double* temperature,
                        double* heatCapacity) {
    return qrv::batch::tableValues(material, &QrvMaterial::Cp, count, temperature, heatCapacity);
}

int QrvGetThermalConductivityN(QrvMaterial* material, int count, const double* temperature,
                               double* conductivity) {
    return qrv::batch::tableValues(material, &QrvMaterial::K, count, temperature, conductivity);
}
