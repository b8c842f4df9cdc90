// Where each value of the Mech block sits, by mechanical model and by material family. Every
// index in Mech.Para that the getters read comes from this one table. The labels name the places
// for whoever reads the table; they are not the texts of the parameter-name calls or of a report,
// which keep their own literals (model 0, for one, is named at indices 1, 3 and 6 only there).
//
// Models: 0 Isotropic pure polymer, 1 Anisotropic pure polymer, 2 Fiber-reinforced
// polymer(Experimental), 3 Theoretical,Customize, 4 Theoretical,E-glass, 5 Theoretical,T300,
// 6 Flake-reinforced polymer, 7 Powder-reinforced polymer. Moduli in dyne/cm^2, thermal
// expansions in 1/K.
//
// A thermoset (FileType 2) keeps a melt and a solid thermal expansion where a thermoplastic keeps
// one, so every later index of its layout moves. Every other FileType reads the thermoplastic
// layout. Model 0 fills only the first seven places (its pairs are equal); model 1 fills nine on a
// thermoset, seven on a thermoplastic. Flake and powder records read the same places on either
// family.
#ifndef QRV_PROPERTIES_MECH_LAYOUT_H
#define QRV_PROPERTIES_MECH_LAYOUT_H

#include <climits>

#include <quorvalib/record.h>

namespace qrv::mech {

// What a place holds, named for the getter that reads it where one does.
enum class Value {
    Poisson,  // v12, or the polymer's Poisson's ratio
    PoissonV23,
    Modulus,  // E1, or the polymer's modulus
    ModulusE2,
    ShearModulus,
    Clte,         // thermoplastic: a1, or the polymer's expansion
    ClteA2,       // thermoplastic: a2
    ClteA1Melt,   // thermoset: a1 (or the polymer's expansion) of the melt
    ClteA1Solid,  // thermoset: a1 (or the polymer's expansion) of the solid
    ClteA2Melt,
    ClteA2Solid,
    PolymerDensity,
    FiberLengthDiameter,
    InteractionCoefficient,
    FiberPercent,
    FiberDensity,
    FiberPoisson,
    FiberModulusE1,
    FiberModulusE2,
    FiberShearModulus,
    FiberClteA1,
    FiberClteA2,
    FillerPercent,
    FillerDensity,
    FillerPoisson,
    FillerModulus,
    FillerClte,
    FlakeAspectRatio,
};

enum class Family { Thermoplastic, Thermoset, Either };

struct Place {
    Family family;
    int firstModel, lastModel;
    int index;
    Value value;
    const char* label;  // null for a place that only the getters read (see the table's end)
};

constexpr Family T = Family::Thermoplastic;
constexpr Family S = Family::Thermoset;
constexpr Family E = Family::Either;

// Looked up first match first: the last rows cover thermoset ids past the pure layouts.
inline constexpr Place kLayout[] = {
    // Pure and experimental polymer, models 0, 1, 2.
    {E, 0, 2, 0, Value::Poisson, "Poisson's ratio v12"},
    {E, 0, 2, 1, Value::PoissonV23, "Poisson's ratio v23"},
    {E, 0, 2, 2, Value::Modulus, "Modulus E1"},
    {E, 0, 2, 3, Value::ModulusE2, "Modulus E2"},
    {E, 0, 2, 4, Value::ShearModulus, "Shear Modulus G"},
    {T, 0, 2, 5, Value::Clte, "CLTE a1"},
    {T, 0, 2, 6, Value::ClteA2, "CLTE a2"},
    {T, 2, 2, 7, Value::FiberLengthDiameter, "Fiber Length/Diameter"},
    {T, 2, 2, 8, Value::InteractionCoefficient, "Interaction Coefficient"},
    {T, 2, 2, 9, Value::FiberPercent, "Fiber Weight Percentage"},
    {S, 0, 2, 5, Value::ClteA1Melt, "CLTE a1 of melting"},
    {S, 0, 2, 6, Value::ClteA1Solid, "CLTE a1 of solid"},
    {S, 1, 2, 7, Value::ClteA2Melt, "CLTE a2 of melting"},
    {S, 1, 2, 8, Value::ClteA2Solid, "CLTE a2 of solid"},
    {S, 2, 2, 9, Value::FiberLengthDiameter, "Fiber Length/Diameter"},
    {S, 2, 2, 10, Value::InteractionCoefficient, "Interaction Coefficient"},
    {S, 2, 2, 11, Value::FiberPercent, "Fiber Weight Percentage"},

    // Theoretical fibre composites, models 3, 4, 5.
    {E, 3, 5, 0, Value::PolymerDensity, "Polymer density"},
    {E, 3, 5, 1, Value::Poisson, "Polymer Poisson's ratio"},
    {E, 3, 5, 2, Value::Modulus, "Polymer Modulus E"},
    {T, 3, 5, 3, Value::Clte, "Polymer CLTE"},
    {T, 3, 5, 4, Value::FiberPercent, "Fiber Weight Percentage"},
    {T, 3, 5, 5, Value::FiberDensity, "Fiber density"},
    {T, 3, 5, 6, Value::FiberPoisson, "Fiber Poisson's ratio"},
    {T, 3, 5, 7, Value::FiberModulusE1, "Fiber Modulus E1"},
    {T, 3, 5, 8, Value::FiberModulusE2, "Fiber Modulus E2"},
    {T, 3, 5, 9, Value::FiberShearModulus, "Fiber Shear Modulus G"},
    {T, 3, 5, 10, Value::FiberClteA1, "Fiber CLTE a1"},
    {T, 3, 5, 11, Value::FiberClteA2, "Fiber CLTE a2"},
    {T, 3, 5, 12, Value::FiberLengthDiameter, "Fiber Length/Diameter"},
    {T, 3, 5, 13, Value::InteractionCoefficient, "Interaction Coefficient"},
    {S, 3, 5, 3, Value::ClteA1Melt, "Polymer CLTE(melting)"},
    {S, 3, 5, 4, Value::ClteA1Solid, "Polymer CLTE(solid)"},
    {S, 3, 5, 5, Value::FiberPercent, "Fiber Weight Percentage"},
    {S, 3, 5, 6, Value::FiberDensity, "Fiber density"},
    {S, 3, 5, 7, Value::FiberPoisson, "Fiber Poisson's ratio"},
    {S, 3, 5, 8, Value::FiberModulusE1, "Fiber Modulus E1"},
    {S, 3, 5, 9, Value::FiberModulusE2, "Fiber Modulus E2"},
    {S, 3, 5, 10, Value::FiberShearModulus, "Fiber Shear Modulus G"},
    {S, 3, 5, 11, Value::FiberClteA1, "Fiber CLTE a1"},
    {S, 3, 5, 12, Value::FiberClteA2, "Fiber CLTE a2"},
    {S, 3, 5, 13, Value::FiberLengthDiameter, "Fiber Length/Diameter"},
    {S, 3, 5, 14, Value::InteractionCoefficient, "Interaction Coefficient"},

    // Flake (6) and powder (7) filled polymer.
    {E, 6, 7, 0, Value::PolymerDensity, "Polymer density"},
    {E, 6, 7, 1, Value::Poisson, "Polymer Poisson's ratio"},
    {E, 6, 7, 2, Value::Modulus, "Polymer Modulus E"},
    {E, 6, 7, 3, Value::Clte, "Polymer CLTE"},
    {E, 6, 7, 4, Value::FillerPercent, "filler weight percentage"},
    {E, 6, 7, 5, Value::FillerDensity, "filler density"},
    {E, 6, 7, 6, Value::FillerPoisson, "filler Poisson's ratio"},
    {E, 6, 7, 7, Value::FillerModulus, "filler Modulus E"},
    {E, 6, 7, 8, Value::FillerClte, "filler CLTE"},
    {E, 6, 6, 9, Value::FlakeAspectRatio, "Flake aspect ratio (D/T)"},

    // A thermoset of any id past the pure layouts (flake, powder, unknown ids too) has its melt
    // and solid expansions read at 3 and 4, whatever else its layout puts there.
    {S, INT_MIN, INT_MAX, 3, Value::ClteA1Melt, nullptr},
    {S, INT_MIN, INT_MAX, 4, Value::ClteA1Solid, nullptr},
};

inline bool isThermosetLayout(const QrvMaterial& material) {
    return material.FileType == QRV_TYPE_THERMOSET;
}

// Index of value in the layout of model on the given family, or -1 when it has no place there.
constexpr int indexOf(Value value, bool thermoset, int model) {
    for (const Place& place : kLayout) {
        const bool familyMatches =
            place.family == Family::Either || (place.family == S) == thermoset;
        if (place.value == value && familyMatches && place.firstModel <= model &&
            model <= place.lastModel)
            return place.index;
    }
    return -1;
}

// Mech.Para[index of value] of the record's own layout, or missing when the layout has no such
// place or the block does not reach it (null Para, Count too small).
inline double read(const QrvMaterial& material, Value value, double missing) {
    const QrvMatParam& mech = material.Mech;
    const int index = indexOf(value, isThermosetLayout(material), mech.Model);
    if (index < 0 || !mech.Para || mech.Count <= index) return missing;
    return mech.Para[index];
}

}  // namespace qrv::mech

#endif
