// Flat property evaluators and value queries. Every value is in the base units of the library:
// temperature in degree C, viscosity in g/(cm.sec), pressure in dyne/cm^2, shear rate in 1/sec,
// specific volume in cc/g, density in g/cc, heat capacity in erg/(g.oC), conductivity in
// erg/(sec.cm.oC), moduli in dyne/cm^2, thermal expansions in 1/K; conversion is a fraction from
// 0 to 1. They keep no state and are reentrant on a record nobody changes.
// Threads: any number, also on the same record, while no thread changes it.
#ifndef QUORVALIB_PROPERTIES_H
#define QUORVALIB_PROPERTIES_H

#include <quorvalib/export.h>
#include <quorvalib/record.h>

// Melt viscosity from the fitted model of the Vis block.
//
// Evaluated ids: 1 Newtonian, 2 Power Law, 3 to 5 Modified Cross 1 to 3, 10 Castro Macosko,
// 11 Power-law Castro Macosko, 12 Cross Castro Macosko, 13 Herschel-Bulkely. FileType is not
// read: the id alone picks the formula. No range check is made on the arguments; a division by
// zero or a negative base passes its IEEE result through.
//
// Returns -1.0 for a null record, and 0.0 when the model cannot be evaluated here: an id
// outside 1..13, the named but unevaluated ids 6 to 9, or a block whose Para is null or holds
// fewer values than the formula reads (1, 3, 5, 5, 7 for ids 1 to 5; 5, 11, 7, 9 for ids 10 to
// 13). 0.0 is therefore "not evaluable", never a viscosity.
QRV_API double QrvGetViscosity(QrvMaterial* material, double shearRate, double temperature,
                               double pressure, double conversion);

// ---- PVT -------------------------------------------------------------------------------------

// Specific volume from the fitted model of the PVT block; T = temperature + 273.15 in kelvin.
//
// Ids: 1 Constant density (V = 1/V0: the value stored is a density), 2 Spencer-Gilmore
// V0 + R T/(P + P0), 3 Tait b1 e^(-b2 T) (1 - C ln(1 + P/(b3 e^(b4 T)))), 4 Modified Tait 1
// (1 - C ln(1 + P/(b3 e^(-b4 d)))) (b1 + b2 d) with d = T - b5 - b6 P, 5 Modified Tait 2 (two
// domains split at T = b5 + b6 P, a tie on the melt side; d = T - b5), 6 Spencer-Gilmore-C
// V0 + (1 - Zeta x) R T/(P + P0), 7 Tait-C (1 - 0.0894 ln(1 + P/(b3 e^(-b4 T)))) (b1 + b2 T)
// (1 - Zeta x). Conversion enters ids 6 and 7 only. No range check is made on the arguments.
//
// Returns -1.0 for a null record and 0.0 when the model cannot be evaluated: an id outside 1..7,
// or a PVT block whose Para is null or holds fewer values than the formula reads (1, 3, 5, 7, 13,
// 4, 5 for ids 1 to 7).
QRV_API double QrvGetSpecificVolume(QrvMaterial* material, double pressure, double temperature,
                                    double conversion);

// 1.0 / QrvGetSpecificVolume of the same arguments. Returns 0.0 for a null record (unlike the
// volume's -1.0), and +infinity where the volume is 0.0 (a model that cannot be evaluated, or a
// Tait-C volume at conversion 1/Zeta).
QRV_API double QrvGetDensity(QrvMaterial* material, double pressure, double temperature,
                             double conversion);

// ---- Heat capacity and thermal conductivity ---------------------------------------------------

// Piecewise-linear interpolation over the value-temperature pairs of the Cp (K) block:
// Para = c1, T1, c2, T2, ...; Count is the number of doubles. The model id is not read.
// Count below 4: Para[0] for any temperature. Below T1: c1; above the last temperature: the last
// value. Otherwise the first segment that brackets the temperature (an inner table point belongs
// to the lower one), or the last segment when none does, by
// (c[i+1] - c[i]) (t - T[i]) / (T[i+1] - T[i]) + c[i].
//
// Returns -1.0 for a null record, for a block with a null Para or Count below 1, and for an odd
// Count whose walk reaches the last, incomplete pair (its temperature would lie past the array).
QRV_API double QrvGetHeatCapacity(QrvMaterial* material, double temperature);
QRV_API double QrvGetThermalConductivity(QrvMaterial* material, double temperature);

// Single values of a non-plastic record (FileType 2 or above; the model ids are not read):
// Cp.Para[0], K.Para[0], and Mech.Para[0] (Poisson's ratio), [2] (modulus), [5] (thermal
// expansion). Each returns -1.0 for a null record, a FileType below 2, or a block whose Para is
// null or too short for the place read.
QRV_API double QrvGetNonPlastic_Cp(QrvMaterial* material);
QRV_API double QrvGetNonPlastic_K(QrvMaterial* material);
QRV_API double QrvGetNonPlastic_PR(QrvMaterial* material);
QRV_API double QrvGetNonPlastic_EM(QrvMaterial* material);
QRV_API double QrvGetNonPlastic_CLTE(QrvMaterial* material);

// The density written in Comment as "D=<number>g/cc" or "D=<number>g/cm3".
// Returns -1.0 for a null record or a FileType below 2; 0.0 when Comment holds no "D=" (or is
// null); -1.0 when no unit stands behind the mark, or the number is not above 0.0.
QRV_API double QrvGetNonPlastic_Density(QrvMaterial* material);

// ---- Cure conversion ----------------------------------------------------------------------------

// The conversion after one fixed step from `conversion`, by the cure rate
// (A e^(-Ta/T) + B e^(-Tb/T) x^m) (1 - x)^n of KN.Para = m, n, A, B, Ta, Tb (the model id is not
// read; x is clamped to [1e-12, 0.999999999999] inside the rate). A heating rate below 1e-10
// (negative ones too) integrates a time of 0.5 at constant temperature by implicit midpoint steps
// and clamps the result to [0, 1]; any other rate integrates a rise of 0.1 degree by Simpson's
// rule and caps the result at 1.0 only. Steps are limited so that conversion moves at most 0.001
// each; iterations stop at their limits (2000 and 1000; 100) with their last value.
//
// Returns 0.0 for a null record and for a KN block with a null Para or fewer than six values.
// In the ramp a substep count too large for an int (or not a number), or of exactly INT_MAX (one
// more wraps), skips the step and the conversion is returned as given. Below that the ramp runs
// about 0.1 r / (0.001 beta) substeps, each of up to 100 rounds: a very small heating rate with a
// fast cure makes one call cost up to two billion rate evaluations.
QRV_API double QrvGetConversion(QrvMaterial* material, double temperature, double heatingRate,
                                double conversion);

// The temperature at which flow stops: Temp.Para[7] (the freeze temperature), except for a record
// older than body version 9006 with the two-domain Tait model (PVT.Model 5), which gives its
// transition temperature PVT.Para[8] - 273.15.
// Returns -1.0 for a null record and when the value read lies outside a null or short block.
QRV_API double QrvGetNoFlowTemperature(QrvMaterial* material);

// ---- Blocks held --------------------------------------------------------------------------------

// False for a null record. True when the block holds values (Para not null, Count above 0);
// crystallinity also needs a CR.Model other than 0, the two thermoset tests a FileType of 2.
QRV_API bool QrvHasViscoelasticData(QrvMaterial* material);
QRV_API bool QrvHasOpticData(QrvMaterial* material);
QRV_API bool QrvHasCrystallinityData(QrvMaterial* material);
QRV_API bool QrvThermosetHasMech(QrvMaterial* material);
QRV_API bool QrvThermosetHasScorchIndex(QrvMaterial* material);
// A wire (FileType 9) with at least eight Mech values. False for a null record.
QRV_API bool QrvHasStressStrainData(QrvMaterial* material);

// which: 1 Vis, 2 PVT, 3 Cp, 4 K. True when that block's Model is 1 (constant).
// False for a null record and for any other which.
QRV_API bool QrvIsConstantModel(QrvMaterial* material, int which);
// Para[0] of a constant block. Returns 0.0 for a null record; -1.0 for another model, for any
// other which, and for a constant block with a null Para or Count below 1.
QRV_API double QrvGetConstantModelValue(QrvMaterial* material, int which);

// ---- Mechanical, fibre and filler values ------------------------------------------------------
//
// Mech.Para is laid out by Mech.Model (0 Isotropic pure, 1 Anisotropic pure, 2 Fiber-reinforced
// (Experimental), 3 to 5 Theoretical fibre, 6 Flake-reinforced, 7 Powder-reinforced) and by
// family: a thermoset (FileType 2) keeps a melt and a solid expansion where a thermoplastic keeps
// one, so every later place moves. Each getter below returns its miss value also when Mech.Para
// is null or too short for the place it reads.

// Polymer modulus (Mech.Para[2]) for Mech.Model 0 to 6. -1.0 for a null record, another model
// (a powder-filled record has none), or a missing value.
QRV_API double QrvGetElasticModulus(QrvMaterial* material);

// Thermal expansions of a thermoset: a1 of melt and solid at [5] and [6] for models 0 to 2, at [3]
// and [4] for any other model; a2 of melt and solid at [7] and [8] for models 1 and 2 only.
// -1.0 for a null record, a FileType other than 2, Mech.Count 0, a model without the value.
QRV_API double QrvGetCLTEa1_Melt(QrvMaterial* material);
QRV_API double QrvGetCLTEa1_Solid(QrvMaterial* material);
QRV_API double QrvGetCLTEa2_Melt(QrvMaterial* material);
QRV_API double QrvGetCLTEa2_Solid(QrvMaterial* material);

// Fibre weight percentage, models 2 to 5. 0.0 for a null record and for every other model.
QRV_API double QrvGetFiberPercent(QrvMaterial* material);
// Fibre or filler weight percentage, models 2 to 7. 0.0 for a null record and every other model,
// a pure polymer with a powder block included.
QRV_API double QrvGetFillerPercent(QrvMaterial* material);
// Fibre length/diameter, models 2 to 5. -1.0 for a null record and every other model.
QRV_API double QrvGetFiberAspectRatio(QrvMaterial* material);
// 1 fibre (models 2 to 5), 2 flake (6), 3 powder (7, or a pure polymer 0 or 1 whose PW block has
// a non-zero Model and Count), 0 none (anything else). Returns 0 for a null record.
QRV_API int QrvGetFillerType(QrvMaterial* material);
// By QrvGetFillerType: fibre gives QrvGetFiberAspectRatio, flake the flake aspect ratio (D/T,
// Mech.Para[9]), powder 1.0. -1.0 for no filler, a missing flake value and a null record.
QRV_API double QrvGetFillerAspectRatio(QrvMaterial* material);
// A fixed text by Mech.Model: "Isotropic pure polymer", "Anisotropic pure polymer",
// "Fiber(Customized,Experimental)", "Fiber(Customized,Predicted)", "Fiber(E-glass GF,Predicted)",
// "Fiber(T300 CF,Predicted)" for 0 to 5, "Non-Thermoplastic/No Fiber" for any other model, and
// "No Material" for a null record. The caller does not free it.
QRV_API const char* QrvGetFiberType(QrvMaterial* material);

// ((V2 - V1)/V1 100)^(1/3), the cube root of the volume change in percent between V1 at 0.0
// dyne/cm^2, 25 degree C and V2 at 1e9 dyne/cm^2, 250 degree C (conversion 0.0), by `pow` with
// 0.3333333333333333: NaN when V2 is below V1. -1.0 for a null record or a FileType above 2.
QRV_API double QrvGetLinearShrinkage(QrvMaterial* material);

// Process temperatures, Temp.Para[0], [2], [3], [5], [6], [7]. Each returns -1.0 for a null record
// and for a Temp block whose Para is null or too short.
QRV_API double QrvGetMeltTempMin(QrvMaterial* material);
QRV_API double QrvGetMeltTempMax(QrvMaterial* material);
QRV_API double QrvGetMoldTempMin(QrvMaterial* material);
QRV_API double QrvGetMoldTempMax(QrvMaterial* material);
QRV_API double QrvGetEjectTemp(QrvMaterial* material);
QRV_API double QrvGetFreezeTemp(QrvMaterial* material);

// Stress-strain data of a wire (FileType 9): seven fixed Mech values, then pairs.
// Number of pairs, (Mech.Count - 7)/2 truncated, for a wire (negative for fewer than seven values,
// as the formula gives); 0 for any other record and for a null record.
QRV_API int QrvGetStressStrainSet(QrvMaterial* material);
// Writes Mech.Para[2 index + 7] to stress and Mech.Para[2 index + 8] to strain. The index itself is
// not range-tested, the two places are: index -1, -2 and -3 read the fixed values Para[5] and [6],
// [3] and [4], [1] and [2]; index -4 and below, and any index whose second place is at or past
// Mech.Count, throw std::invalid_argument, as do a null record and a null Para. A throw leaves both
// outputs untouched.
QRV_API void QrvGetStressStrainData(QrvMaterial* material, int index, double& stress,
                                    double& strain);

#endif
