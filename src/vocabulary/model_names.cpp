// Names of the fitted models of each block, one table per call.
#include <quorvalib/vocabulary.h>

#include "vocabulary/label_table.h"
#include "vocabulary/name_text.h"

using qrv::ModelName;
using qrv::nameOf;
using qrv::requireMaterial;
using qrv::setNameText;

namespace {

// Viscosity ids are told per material family: a thermoset names only the Newtonian fluid and
// its cure-dependent models, a thermoplastic the melt models.
struct VisModelName {
    int model;
    const char* thermoplastic;  // null: no such model for a thermoplastic
    const char* thermoset;      // null: no such model for a thermoset
};

constexpr VisModelName kVisModelNames[] = {
    {1, "Newtonian fluid", "Newtonian fluid"},   {2, "Power Law Model", nullptr},
    {3, "Modified Cross Model 1", nullptr},      {4, "Modified Cross Model 2", nullptr},
    {5, "Modified Cross Model 3", nullptr},      {6, "Carreau Model", nullptr},
    {7, "Carreau-Yasuda Model", nullptr},        {8, "HB Modified Cross Model 3", nullptr},
    {10, nullptr, "Castro Macosko Model"},       {11, nullptr, "Power-law Castro Macosko Model"},
    {12, nullptr, "Cross Castro Macosko Model"}, {13, nullptr, "Herschel-Bulkely Model"},
};

constexpr ModelName kPVTModelNames[] = {
    {1, "Constant density"},      {2, "Spencer-Gilmore Model"}, {3, "Tait Model"},
    {4, "Modified Tait Model 1"}, {5, "Modified Tait Model 2"}, {6, "Spencer-Gilmore-C Model"},
    {7, "Tait-C Model"},
};

constexpr ModelName kCpModelNames[] = {
    {1, "Constant Cp"},
    {2, "CAE_Cp Model 1"},
    {3, "CAE_Cp Model 2"},
    {4, "Tabulated Data"},
};

// Id 4 has an evaluator class but no name: it is told as unknown.
constexpr ModelName kKModelNames[] = {
    {1, "Constant K"},
    {2, "CAE_K Model 1"},
    {3, "Tabulated Data"},
};

constexpr ModelName kConvModelNames[] = {
    {2, "Combined Model"},
    {3, "Modified Combined Model"},
    {4, "Deng-Isayev-Law Model"},
};

constexpr ModelName kMechModelNames[] = {
    {0, "Isotropic pure polymer"},
    {1, "Anisotropic pure polymer"},
    {2, "Fiber-reinforced polymer(Experimental)"},
    {3, "Fiber-reinforced polymer(Theoretical,Customize)"},
    {4, "Fiber-reinforced polymer(Theoretical,E-glass)"},
    {5, "Fiber-reinforced polymer(Theoretical,T300)"},
    {6, "Flake-reinforced polymer"},
    {7, "Powder-reinforced polymer"},
};

constexpr ModelName kVEModelNames[] = {
    {1, "White-Metzner Model"},
    {2, "White-Metzner Model(Modified)"},
    {3, "PTT Model"},
    {4, "Giesekus Model"},
    {5, "Oldroyd-B Model"},
    {6, "K-BKZ: Wagner Model"},
    {7, "PTT Model(Multi-Mode)"},
    {8, "Giesekus Model(Multi-Mode)"},
};

constexpr ModelName kCrystallinityModelNames[] = {
    {0, "None"},
    {1, "Nakamura model"},
};

// Non-polymer types carry no fitted viscosity or PVT model.
bool isNonPlastic(const QrvMaterial& m) {
    return m.FileType >= QRV_TYPE_METAL;
}

}  // namespace

const char* QrvGetVisModelName(QrvMaterial* material) {
    const QrvMaterial& m = requireMaterial(material, "QrvGetVisModelName");
    if (isNonPlastic(m)) return setNameText("Non-plastic");
    const bool thermoset = m.FileType == QRV_TYPE_THERMOSET;
    for (const VisModelName& row : kVisModelNames) {
        const char* name = thermoset ? row.thermoset : row.thermoplastic;
        if (row.model == m.Vis.Model && name) return setNameText(name);
    }
    return setNameText("Unknown viscosity model");
}

const char* QrvGetPVTModelName(QrvMaterial* material) {
    const QrvMaterial& m = requireMaterial(material, "QrvGetPVTModelName");
    if (isNonPlastic(m)) return setNameText("Non-plastic");
    return setNameText(nameOf(kPVTModelNames, m.PVT.Model, "Unknown PVT model"));
}

const char* QrvGetCpModelName(QrvMaterial* material) {
    const QrvMaterial& m = requireMaterial(material, "QrvGetCpModelName");
    return setNameText(nameOf(kCpModelNames, m.Cp.Model, "Unknown Cp model"));
}

const char* QrvGetKModelName(QrvMaterial* material) {
    const QrvMaterial& m = requireMaterial(material, "QrvGetKModelName");
    return setNameText(nameOf(kKModelNames, m.K.Model, "Unknown K model"));
}

const char* QrvGetConvModelName(QrvMaterial* material) {
    const QrvMaterial& m = requireMaterial(material, "QrvGetConvModelName");
    if (m.FileType != QRV_TYPE_THERMOSET) return setNameText("Non-thermosetting plastics");
    return setNameText(nameOf(kConvModelNames, m.KN.Model, "Unknown Conversion model"));
}

const char* QrvGetMechModelName(QrvMaterial* material) {
    const QrvMaterial& m = requireMaterial(material, "QrvGetMechModelName");
    // The misspelling is the text callers have always matched on.
    if (m.Mech.Count == 0) return setNameText("No mechancial data");
    return setNameText(nameOf(kMechModelNames, m.Mech.Model, "Unknown mechanical model"));
}

const char* QrvGetVEModelName(QrvMaterial* material) {
    const QrvMaterial& m = requireMaterial(material, "QrvGetVEModelName");
    if (m.VE.Count == 0) return setNameText("No viscoelastic data");
    return setNameText(nameOf(kVEModelNames, m.VE.Model, "Unknown viscoelastic model"));
}

const char* QrvGetCrystallinityModelName(QrvMaterial* material) {
    const QrvMaterial& m = requireMaterial(material, "QrvGetCrystallinityModelName");
    return setNameText(nameOf(kCrystallinityModelNames, m.CR.Model, "Unknown crystallinity model"));
}
