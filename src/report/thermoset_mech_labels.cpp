// The thermoset Mech labels by model column and index, behind one shared static text.
#include "report/thermoset_mech_labels.h"

#include <cstddef>
#include <string>

namespace qrv::report {
namespace {

constexpr std::size_t kRows = 15;

// Columns: model 0, model 1, model 2, models 3 to 5. An empty entry is an index without a label
// in that model; "Elastic Modeulus" is spelt as the product has always shown it.
constexpr const char* kLabels[kRows][4] = {
    {"", "Poisson's ratio v12", "Poisson's ratio v12", "Polymer density"},
    {"Poisson Ratio", "Poisson's ratio v23", "Poisson's ratio v23", "Polymer Poisson's ratio"},
    {"", "Modulus E1(flow direction)", "Modulus E1(fiber direction)", "Polymer Modulus E"},
    {"Elastic Modeulus", "Modulus E2(transverse direction)", "Modulus E2(transverse direction)",
     "Polymer CLTE(melting)"},
    {"", "Shear Modulus G", "Shear Modulus G", "Polymer CLTE(solid)"},
    {"", "CLTE a1(flow direction of melting)", "CLTE a1(fiber direction of melting)",
     "Fiber Weight Percentage"},
    {"CLTE", "CLTE a1(flow direction of solid)", "CLTE a1(fiber direction of solid)",
     "Fiber density"},
    {"", "CLTE a2(transverse direction of melting)", "CLTE a2(transverse direction of melting)",
     "Fiber Poisson's ratio"},
    {"", "CLTE a2(transverse direction of solid)", "CLTE a2(transverse direction of solid)",
     "Fiber Modulus E1(fiber direction)"},
    {"", "", "Fiber Length/Diameter", "Fiber Modulus E2(transverse direction)"},
    {"", "", "Interaction Coefficient", "Fiber Shear Modulus G"},
    {"", "", "Fiber Weight Percentage", "Fiber CLTE a1(fiber direction)"},
    {"", "", "", "Fiber CLTE a2(transverse direction)"},
    {"", "", "", "Fiber Length/Diameter"},
    {"", "", "", "Interaction Coefficient"},
};

int columnOf(int model) {
    if (model >= 0 && model <= 2) return model;
    if (model >= 3 && model <= 5) return 3;
    return -1;
}

}  // namespace

const char* thermosetMechLabel(int model, int index) {
    static std::string text;
    const int column = columnOf(model);
    if (column >= 0 && index >= 0 && static_cast<std::size_t>(index) < kRows)
        text = kLabels[index][column];
    return text.c_str();
}

}  // namespace qrv::report
