// The fast batch forms: the guarded fronts of the exact forms, then the vector loops of the widest
// instruction set the processor has, and the exact loop for the points after the last full vector
// (and for whole models that have no transcendental call).
#include <quorvalib/batch.h>

#include "properties/batch/batch_forms.h"
#include "properties/batch/instruction_sets.h"

namespace qrv::batch {
namespace {

const double* from(const double* column, int offset) {
    return column ? column + offset : nullptr;
}

void fastViscosityPoints(int model, const double* p, int n, const double* g, const double* t,
                         const double* P, const double* x, double* out) {
    const int done = activeForms().viscosity(model, p, n, g, t, P, x, out);
    viscosityPoints(model, p, n - done, g + done, t + done, from(P, done), from(x, done),
                    out + done);
}

void fastVolumePoints(int model, const double* p, int n, const double* P, const double* t,
                      const double* x, double* out) {
    const int done = activeForms().volume(model, p, n, P, t, x, out);
    volumePoints(model, p, n - done, from(P, done), t + done, from(x, done), out + done);
}

VectorForms formsOf(InstructionSet set) {
    switch (set) {
        case InstructionSet::Avx512:
            return avx512Forms();
        case InstructionSet::Avx2:
            return avx2Forms();
        case InstructionSet::Sse2:
            break;
    }
    return sse2Forms();
}

VectorForms gActive = formsOf(widestSupported());

}  // namespace

InstructionSet widestOf(CpuFeatures features) {
    if (features.avx512f) return InstructionSet::Avx512;
    if (features.avx2 && features.fma) return InstructionSet::Avx2;
    return InstructionSet::Sse2;
}

InstructionSet widestSupported() {
    __builtin_cpu_init();
    return widestOf({__builtin_cpu_supports("avx512f") != 0, __builtin_cpu_supports("avx2") != 0,
                     __builtin_cpu_supports("fma") != 0});
}

const VectorForms& activeForms() {
    return gActive;
}

void limitInstructionSet(InstructionSet widest) {
    const InstructionSet supported = widestSupported();
    gActive = formsOf(widest < supported ? widest : supported);
}

}  // namespace qrv::batch

using qrv::batch::fastViscosityPoints;
using qrv::batch::fastVolumePoints;

int QrvGetViscosityNFast(QrvMaterial* material, int count, const double* shearRate,
                         const double* temperature, const double* pressure,
                         const double* conversion, double* viscosity) {
    return qrv::batch::viscosities(material, count, shearRate, temperature, pressure, conversion,
                                   viscosity, fastViscosityPoints);
}

int QrvGetSpecificVolumeNFast(QrvMaterial* material, int count, const double* pressure,
                              const double* temperature, const double* conversion, double* volume) {
    return qrv::batch::volumes(material, count, pressure, temperature, conversion, volume,
                               fastVolumePoints);
}

int QrvGetDensityNFast(QrvMaterial* material, int count, const double* pressure,
                       const double* temperature, const double* conversion, double* density) {
    return qrv::batch::densities(material, count, pressure, temperature, conversion, density,
                                 fastVolumePoints);
}

int QrvGetHeatCapacityNFast(QrvMaterial* material, int count, const double* temperature,
                            double* heatCapacity) {
    return QrvGetHeatCapacityN(material, count, temperature, heatCapacity);
}

int QrvGetThermalConductivityNFast(QrvMaterial* material, int count, const double* temperature,
                                   double* conductivity) {
    return QrvGetThermalConductivityN(material, count, temperature, conductivity);
}
