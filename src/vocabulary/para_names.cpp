// Labels of the parameters of each model, by Para index, one table per call. The tables also fix
// which Para position holds which parameter.
#include <quorvalib/vocabulary.h>

#include <initializer_list>
#include <string>

#include "vocabulary/label_table.h"
#include "vocabulary/name_text.h"

using qrv::findRow;
using qrv::keepNameText;
using qrv::labelAt;
using qrv::requireMaterial;
using qrv::setNameText;
using qrv::UnitLabel;

namespace {

// Labels of the models listed in `models`. An index with no label gives `otherIndex`, or keeps
// the previous text when that is null.
struct ParaRow {
    std::initializer_list<int> models;
    std::initializer_list<const char*> labels;
    const char* otherIndex = nullptr;
};

// The label of index in the row of model; unknownModel (null: keep the text) when no row serves
// the model.
template <std::size_t N>
const char* paraLabel(const ParaRow (&table)[N], int model, int index, const char* unknownModel) {
    const ParaRow* row = findRow(table, model);
    if (!row) return unknownModel ? setNameText(unknownModel) : keepNameText();
    if (const char* const* label = labelAt(row->labels, index)) return setNameText(*label);
    return row->otherIndex ? setNameText(row->otherIndex) : keepNameText();
}

// Viscosity ids are told per family, as their model names are.
enum class Family { Thermoplastic, Thermoset, Both };

struct VisParaRow {
    int model;
    Family family;
    std::initializer_list<const char*> labels;
    // Id whose labels are written after this row's, as a case that runs on into the next one:
    // they overwrite this row's labels wherever both have one. 0: none.
    int continuesWith = 0;
};

constexpr VisParaRow kVisParaNames[] = {
    {1, Family::Both, {"Newtonian fluid - (Eta0)"}},
    {2,
     Family::Thermoplastic,
     {"Power Law Model - (n)", "Power Law Model - (B)", "Power Law Model - (Tb)"}},
    {3,
     Family::Thermoplastic,
     {"Modified Cross Model 1 - (n)", "Modified Cross Model 1 - (C)",
      "Modified Cross Model 1 - (B)", "Modified Cross Model 1 - (Tb)",
      "Modified Cross Model 1 - (D)"}},
    {4,
     Family::Thermoplastic,
     {"Modified Cross Model 2 - (n)", "Modified Cross Model 2 - (Taus)",
      "Modified Cross Model 2 - (B)", "Modified Cross Model 2 - (Tb)",
      "Modified Cross Model 2 - (D)"}},
    {5,
     Family::Thermoplastic,
     {"Modified Cross Model 3 - (n)", "Modified Cross Model 3 - (Taus)",
      "Modified Cross Model 3 - (D1)", "Modified Cross Model 3 - (D2)",
      "Modified Cross Model 3 - (D3)", "Modified Cross Model 3 - (A1)",
      "Modified Cross Model 3 - (A2b)"}},
    {6,
     Family::Thermoplastic,
     {"Carreau Model - (n)", "Carreau Model - (Taus)", "Carreau Model - (B)",
      "Carreau Model - (Tb)", "Carreau Model - (D)"}},
    // Carreau-Yasuda runs on into id 8: its own labels never reach the caller, who reads the
    // short labels of id 8, also at indices 7 and 8. Kept as callers have always seen it.
    {7,
     Family::Thermoplastic,
     {"Carreau-Yasuda Model - (n)", "Carreau-Yasuda Model - (Taus)", "Carreau-Yasuda Model - (B)",
      "Carreau-Yasuda Model - (Tb)", "Carreau-Yasuda Model - (D)", "Carreau-Yasuda Model - (a)",
      "Carreau-Yasuda Model - (Eta_infinity)"},
     8},
    // Id 8 carries no model prefix.
    {8,
     Family::Thermoplastic,
     {"(n)", "(Taus)", "(D1)", "(D2)", "(D3)", "(A1)", "(A2b)", "(Tauy0)", "(Ty)"}},
    {10,
     Family::Thermoset,
     {"Castro Macosko Model - (Cg)", "Castro Macosko Model - (C1)", "Castro Macosko Model - (C2)",
      "Castro Macosko Model - (A)", "Castro Macosko Model - (Tb)"}},
    {11,
     Family::Thermoset,
     {"Power-law Castro Macosko Model - (a0)", "Power-law Castro Macosko Model - (a1)",
      "Power-law Castro Macosko Model - (a2)", "Power-law Castro Macosko Model - (b0)",
      "Power-law Castro Macosko Model - (b1)", "Power-law Castro Macosko Model - (b2)",
      "Power-law Castro Macosko Model - (c0)", "Power-law Castro Macosko Model - (c1)",
      "Power-law Castro Macosko Model - (c2)", "Power-law Castro Macosko Model - (Cg)",
      "Power-law Castro Macosko Model - (Ci)"}},
    {12,
     Family::Thermoset,
     {"Cross Castro Macosko Model - (Cg)", "Cross Castro Macosko Model - (C1)",
      "Cross Castro Macosko Model - (C2)", "Cross Castro Macosko Model - (A)",
      "Cross Castro Macosko Model - (Tb)", "Cross Castro Macosko Model - (n)",
      "Cross Castro Macosko Model - (Taus)"}},
    {13,
     Family::Thermoset,
     {"Herschel-Bulkely Model - (n)", "Herschel-Bulkely Model - (K00)",
      "Herschel-Bulkely Model - (CA)", "Herschel-Bulkely Model - (CB)",
      "Herschel-Bulkely Model - (C1)", "Herschel-Bulkely Model - (C2)",
      "Herschel-Bulkely Model - (Cg)", "Herschel-Bulkely Model - (Tauy0)",
      "Herschel-Bulkely Model - (Tg)", "Herschel-Bulkely Model - (Ty)"}},
};

const VisParaRow* findVisRow(int model, Family family) {
    for (const VisParaRow& row : kVisParaNames) {
        if (row.model == model && (row.family == family || row.family == Family::Both)) return &row;
    }
    return nullptr;
}

// An id outside 1 to 7 assigns the empty text.
constexpr const char* kPVTUnknownModel = "";
constexpr ParaRow kPVTParaNames[] = {
    {{1}, {"Constant density - (V0)"}},
    {{2},
     {"Spencer-Gilmore Model - (V0)", "Spencer-Gilmore Model - (P0)",
      "Spencer-Gilmore Model - (R)"}},
    {{3},
     {"Tait Model - (b1)", "Tait Model - (b2)", "Tait Model - (b3)", "Tait Model - (b4)",
      "Tait Model - (C)"}},
    {{4},
     {"Modified Tait Model 1 - (b1)", "Modified Tait Model 1 - (b2)",
      "Modified Tait Model 1 - (b3)", "Modified Tait Model 1 - (b4)",
      "Modified Tait Model 1 - (b5)", "Modified Tait Model 1 - (b6)",
      "Modified Tait Model 1 - (C)"}},
    {{5},
     {"Modified Tait Model 2 - (b1L)", "Modified Tait Model 2 - (b2L)",
      "Modified Tait Model 2 - (b3L)", "Modified Tait Model 2 - (b4L)",
      "Modified Tait Model 2 - (b1S)", "Modified Tait Model 2 - (b2S)",
      "Modified Tait Model 2 - (b3S)", "Modified Tait Model 2 - (b4S)",
      "Modified Tait Model 2 - (b5)", "Modified Tait Model 2 - (b6)",
      "Modified Tait Model 2 - (b7)", "Modified Tait Model 2 - (b8)",
      "Modified Tait Model 2 - (b9)"}},
    {{6},
     {"Spencer-Gilmore-C Model - (V0)", "Spencer-Gilmore-C Model - (P0)",
      "Spencer-Gilmore-C Model - (R)", "Spencer-Gilmore-C Model - (Zeta)"}},
    {{7},
     {"Tait-C Model - (b1)", "Tait-C Model - (b2)", "Tait-C Model - (b3)", "Tait-C Model - (b4)",
      "Tait-C Model - (Zeta)"}},
};

// A model other than 2, 3, 4 assigns the empty text.
constexpr const char* kConvUnknownModel = "";
constexpr ParaRow kConvParaNames[] = {
    {{2},
     {"Combined Model - (m)", "Combined Model - (n)", "Combined Model - (A)",
      "Combined Model - (B)", "Combined Model - (Ta)", "Combined Model - (Tb)",
      "Combined Model - (dH)"}},
    {{3},
     {"Modified Combined Model - (m)", "Modified Combined Model - (n)",
      "Modified Combined Model - (A)", "Modified Combined Model - (B)",
      "Modified Combined Model - (Ta)", "Modified Combined Model - (Tb)",
      "Modified Combined Model - (b0)", "Modified Combined Model - (Tdiff)",
      "Modified Combined Model - (Psi)", "Modified Combined Model - (T0)",
      "Modified Combined Model - (dH)"}},
    {{4},
     {"Deng-Isayev-Law Model - (t0)", "Deng-Isayev-Law Model - (T0)", "Deng-Isayev-Law Model - (n)",
      "Deng-Isayev-Law Model - (Ta)", "Deng-Isayev-Law Model - (k0)",
      "Deng-Isayev-Law Model - (dH)"}},
};

// Ids outside 0 to 7 keep the text. Id 0 labels three positions only and answers the empty text
// for every other index, past the end too; the misspelt "Modeulus" is the stored label.
constexpr const char* kMechUnknownModel = nullptr;
constexpr ParaRow kMechParaNames[] = {
    {{0}, {"", "Poisson Ratio", "", "Elastic Modeulus", "", "", "CLTE"}, ""},
    {{1},
     {"Poisson's ratio v12", "Poisson's ratio v23", "Modulus E1(flow direction)",
      "Modulus E2(transverse direction)", "Shear Modulus G", "CLTE a1(flow direction)",
      "CLTE a2(transverse direction)"}},
    {{2},
     {"Poisson's ratio v12", "Poisson's ratio v23", "Modulus E1(fiber direction)",
      "Modulus E2(transverse direction)", "Shear Modulus G", "CLTE a1(fiber direction)",
      "CLTE a2(transverse direction)", "Fiber Length/Diameter", "Interaction Coefficient",
      "Fiber Weight Percentage"}},
    {{3, 4, 5},
     {"Polymer density", "Polymer Poisson's ratio", "Polymer Modulus E", "Polymer CLTE",
      "Fiber Weight Percentage", "Fiber density", "Fiber Poisson's ratio",
      "Fiber Modulus E1(fiber direction)", "Fiber Modulus E2(transverse direction)",
      "Fiber Shear Modulus G", "Fiber CLTE a1(fiber direction)",
      "Fiber CLTE a2(transverse direction)", "Fiber Length/Diameter", "Interaction Coefficient"}},
    {{6},
     {"Polymer density", "Polymer Poisson's ratio", "Polymer Modulus E", "Polymer CLTE",
      "Flake weight percentage", "Flake density", "Flake Poisson's ratio", "Flake Modulus E",
      "Flake CLTE", "Flake aspect ratio (D/T)"}},
    {{7},
     {"Polymer density", "Polymer Poisson's ratio", "Polymer Modulus E", "Polymer CLTE",
      "Powder weight percentage", "Powder density", "Powder Poisson's ratio", "Powder Modulus E",
      "Powder CLTE"}},
};

// Multi-mode models list their modes after the fixed labels, two indices per mode: the modulus
// "g<mode>" first, then the relaxation time "Lambda<mode>", modes numbered from 1.
struct ModeRange {
    int firstIndex = 0;
    int modes = 0;
};
constexpr UnitLabel kModeModulus = {"g", 6};
constexpr UnitLabel kModeRelaxation = {"Lambda", 18};

// Labels with unit ids. An index with no label gives `otherIndex`, or changes nothing when its
// text is null.
struct UnitParaRow {
    std::initializer_list<int> models;
    std::initializer_list<UnitLabel> labels;
    UnitLabel otherIndex = {nullptr, 0};
    ModeRange modeRange = {};
};

// Ids outside 1 to 8 change nothing.
constexpr const char* kVEUnknownModel = nullptr;
constexpr UnitParaRow kVEParaNames[] = {
    {{1}, {}, {"G", 6}},
    {{2}, {{"Lambdas", 18}, {"m", 0}, {"k", 0}, {"A1", 0}, {"A2", 8}, {"Tf", 8}}},
    {{3}, {{"Eta0", 2}, {"Lambda0", 18}, {"Epsilon", 0}, {"A1", 0}, {"A2", 8}, {"Tf", 8}}},
    {{4}, {{"Eta0", 2}, {"Lambda0", 18}, {"Alpha", 0}, {"A1", 0}, {"A2", 8}, {"Tf", 8}}},
    {{5}, {{"Eta0", 2}, {"Lambda0", 18}, {"r", 0}, {"A1", 0}, {"A2", 8}, {"Tf", 8}}},
    {{6}, {{"Alpha", 0}, {"Beta", 0}, {"A1", 0}, {"A2", 8}, {"Tf", 8}}, {}, {5, 6}},
    {{7}, {{"Epsilon", 0}, {"A1", 0}, {"A2", 8}, {"Tf", 8}}, {}, {4, 6}},
    {{8}, {{"Alpha", 0}, {"A1", 0}, {"A2", 8}, {"Tf", 8}}, {}, {4, 6}},
};

// Another id assigns the empty text and leaves the unit id.
constexpr const char* kCrystallinityUnknownModel = "";
constexpr UnitParaRow kCrystallinityParaNames[] = {
    {{1},
     {{"Nakamura Model - (tm)", 31},
      {"Nakamura Model - (a)", 0},
      {"Nakamura Model - (1/tHalf0)", 32},
      {"Nakamura Model - (n)", 0},
      {"Nakamura Model - (Kg)", 33},
      {"Nakamura Model - (Tm)", 1},
      {"Nakamura Model - (Tg)", 1},
      {"Nakamura Model - (C1)", 1},
      {"Nakamura Model - (C2)", 34}}},
};

const char* tell(const UnitLabel& label, int& unitId) {
    unitId = label.unitId;
    return setNameText(label.text);
}

template <std::size_t N>
const char* unitParaLabel(const UnitParaRow (&table)[N], int model, int index, int& unitId,
                          const char* unknownModel) {
    const UnitParaRow* row = findRow(table, model);
    if (!row) return unknownModel ? setNameText(unknownModel) : keepNameText();
    if (const UnitLabel* label = labelAt(row->labels, index)) return tell(*label, unitId);
    const ModeRange& range = row->modeRange;
    // index is tested before the subtraction, which cannot then overflow.
    if (range.modes > 0 && index >= range.firstIndex &&
        index - range.firstIndex < 2 * range.modes) {
        const int offset = index - range.firstIndex;
        const UnitLabel& kind = offset % 2 == 0 ? kModeModulus : kModeRelaxation;
        const std::string text = kind.text + std::to_string(offset / 2 + 1);
        unitId = kind.unitId;
        return setNameText(text.c_str());
    }
    return row->otherIndex.text ? tell(row->otherIndex, unitId) : keepNameText();
}

}  // namespace

const char* QrvGetVisParaName(QrvMaterial* material, int index) {
    const QrvMaterial& m = requireMaterial(material, "QrvGetVisParaName");
    const Family family =
        m.FileType == QRV_TYPE_THERMOSET ? Family::Thermoset : Family::Thermoplastic;
    const char* text = nullptr;
    for (const VisParaRow* row = findVisRow(m.Vis.Model, family); row;
         row = row->continuesWith ? findVisRow(row->continuesWith, family) : nullptr) {
        if (const char* const* label = labelAt(row->labels, index)) text = *label;
    }
    return text ? setNameText(text) : keepNameText();
}

const char* QrvGetPVTParaName(QrvMaterial* material, int index) {
    const QrvMaterial& m = requireMaterial(material, "QrvGetPVTParaName");
    return paraLabel(kPVTParaNames, m.PVT.Model, index, kPVTUnknownModel);
}

const char* QrvGetConvParaName(QrvMaterial* material, int index) {
    const QrvMaterial& m = requireMaterial(material, "QrvGetConvParaName");
    return paraLabel(kConvParaNames, m.KN.Model, index, kConvUnknownModel);
}

const char* QrvGetMechParaName(QrvMaterial* material, int index) {
    const QrvMaterial& m = requireMaterial(material, "QrvGetMechParaName");
    return paraLabel(kMechParaNames, m.Mech.Model, index, kMechUnknownModel);
}

const char* QrvGetVEParaName(QrvMaterial* material, int index, int& unitId) {
    const QrvMaterial& m = requireMaterial(material, "QrvGetVEParaName");
    return unitParaLabel(kVEParaNames, m.VE.Model, index, unitId, kVEUnknownModel);
}

const char* QrvGetCrystallinityParaName(QrvMaterial* material, int index, int& unitId) {
    const QrvMaterial& m = requireMaterial(material, "QrvGetCrystallinityParaName");
    return unitParaLabel(kCrystallinityParaNames, m.CR.Model, index, unitId,
                         kCrystallinityUnknownModel);
}
