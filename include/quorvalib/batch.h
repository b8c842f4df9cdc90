// Batch forms of the flat evaluators: one call for many points, such as every cell of a mesh.
//
// Each call takes the record, a point count and contiguous input arrays of that many values, and
// writes one result per point into a caller-owned output array. The record, model and length tests
// and the jump on the model id are made once per call, not per point.
//
// Exact forms (QrvGet...N): the result at every point is the scalar call's result at the same
// arguments, bit for bit, failure values included: a null record gives -1.0 at every point (0.0
// for the density), a model that cannot be evaluated 0.0 (+infinity for the density), exactly as
// the scalar calls of quorvalib/properties.h document them.
//
// Fast forms (QrvGet...NFast): the same formulas on vectors, with exp and log from SLEEF's vector
// functions (exp of at most 1.0 ulp error, taken as exp2 of an exponent carried in two doubles
// where the processor has a fused multiply-add; log of at most 3.5 ulp); a power a^b is exp(b ln a)
// with b ln a carried in two doubles, and the tangent of the power-law Castro-Macosko model stays
// the scalar one. The widest instruction set of the processor is chosen at run time (AVX-512, AVX2
// with FMA, else SSE2); points left over after the last full vector are computed by the exact
// form. Every result lies within 1e-14 relative of the exact form's. To keep that bound, points
// are computed by the exact form where the vector error would grow past it: a power whose base is
// not a positive normal number, whose value lies beyond e^+-700 or whose exponent exceeds 40 in
// size, and a Tait compression 1 - C ln(1 + P/B) below 0.1 (the volume under a tenth of its
// zero-pressure value, far beyond any pressure a moulding sees). Failure values are those of the
// exact form, and every point whose result is not a finite normal number (infinity,
// not-a-number, zero, a subnormal; so every point whose non-finite input carries into the result)
// is recomputed by the exact form and equals it bit for bit. Models whose formula needs no exp,
// log or pow (Newtonian, constant density, Spencer-Gilmore, Spencer-Gilmore-C, and the heat
// capacity and conductivity tables) give exactly the exact form's results.
//
// Common contract of every batch call:
// - count is the number of points. A count of 0 or below writes nothing and returns 0.
// - Arrays hold at least count values. pressure and conversion may be null: the value is then 0.0
//   at every point. Every other input array and the output array must not be null; when one is,
//   nothing is written and the call returns 0.
// - The output may be the very same array as an input (each result then replaces its own input);
//   an output that overlaps an input at any other offset gives unspecified results.
// - The return value is the number of results written: count, or 0 as above. A null record or an
//   unevaluable model is not a failure of the call: its failure values are written and count
//   returned.
// - No state is kept; the calls are reentrant on a record nobody changes.
#ifndef QUORVALIB_BATCH_H
#define QUORVALIB_BATCH_H

#include <quorvalib/export.h>
#include <quorvalib/record.h>

// QrvGetViscosity at count points: viscosity[i] from shearRate[i], temperature[i], pressure[i],
// conversion[i].
QRV_API int QrvGetViscosityN(QrvMaterial* material, int count, const double* shearRate,
                             const double* temperature, const double* pressure,
                             const double* conversion, double* viscosity);
QRV_API int QrvGetViscosityNFast(QrvMaterial* material, int count, const double* shearRate,
                                 const double* temperature, const double* pressure,
                                 const double* conversion, double* viscosity);

// QrvGetSpecificVolume at count points: volume[i] from pressure[i], temperature[i],
// conversion[i].
QRV_API int QrvGetSpecificVolumeN(QrvMaterial* material, int count, const double* pressure,
                                  const double* temperature, const double* conversion,
                                  double* volume);
QRV_API int QrvGetSpecificVolumeNFast(QrvMaterial* material, int count, const double* pressure,
                                      const double* temperature, const double* conversion,
                                      double* volume);

// QrvGetDensity at count points: density[i] from pressure[i], temperature[i], conversion[i].
QRV_API int QrvGetDensityN(QrvMaterial* material, int count, const double* pressure,
                           const double* temperature, const double* conversion, double* density);
QRV_API int QrvGetDensityNFast(QrvMaterial* material, int count, const double* pressure,
                               const double* temperature, const double* conversion,
                               double* density);

// QrvGetHeatCapacity and QrvGetThermalConductivity at count points: value[i] at temperature[i].
// The fast forms are the exact forms (the table walk has no transcendental call).
QRV_API int QrvGetHeatCapacityN(QrvMaterial* material, int count, const double* temperature,
                                double* heatCapacity);
QRV_API int QrvGetHeatCapacityNFast(QrvMaterial* material, int count, const double* temperature,
                                    double* heatCapacity);
QRV_API int QrvGetThermalConductivityN(QrvMaterial* material, int count, const double* temperature,
                                       double* conductivity);
QRV_API int QrvGetThermalConductivityNFast(QrvMaterial* material, int count,
                                           const double* temperature, double* conductivity);

#endif
