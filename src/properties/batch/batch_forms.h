// The two layers of every batch call, shared by the exact and the fast forms: the guarded front
// (count, arrays, record, model) that writes the failure values, and the per-model point loops.
#ifndef QRV_PROPERTIES_BATCH_BATCH_FORMS_H
#define QRV_PROPERTIES_BATCH_BATCH_FORMS_H

#include <quorvalib/record.h>

namespace qrv::batch {

// Computes n points of an evaluable model (Para long enough for it). pressure and conversion may
// be null (0.0 at every point); temperature is in degree C.
using ViscosityPoints = void (*)(int model, const double* p, int n, const double* shearRate,
                                 const double* temperature, const double* pressure,
                                 const double* conversion, double* out);
using VolumePoints = void (*)(int model, const double* p, int n, const double* pressure,
                              const double* temperature, const double* conversion, double* out);

// The exact loops: each point through the scalar call's own kernel.
void viscosityPoints(int model, const double* p, int n, const double* shearRate,
                     const double* temperature, const double* pressure, const double* conversion,
                     double* out);
void volumePoints(int model, const double* p, int n, const double* pressure,
                  const double* temperature, const double* conversion, double* out);

// The guarded fronts: the number of results written (count, or 0 when nothing may be written),
// with the scalar call's failure value at every point for a null record or an unevaluable model,
// and `points` for the rest.
int viscosities(const QrvMaterial* material, int count, const double* shearRate,
                const double* temperature, const double* pressure, const double* conversion,
                double* out, ViscosityPoints points);
int volumes(const QrvMaterial* material, int count, const double* pressure,
            const double* temperature, const double* conversion, double* out, VolumePoints points);
int densities(const QrvMaterial* material, int count, const double* pressure,
              const double* temperature, const double* conversion, double* out,
              VolumePoints points);
// Heat capacity or conductivity: `block` is &QrvMaterial::Cp or &QrvMaterial::K.
int tableValues(const QrvMaterial* material, QrvMatParam QrvMaterial::*block, int count,
                const double* temperature, double* out);

}  // namespace qrv::batch

#endif
