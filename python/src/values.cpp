// The single values of a material: process temperatures, mechanical, fibre and filler values, the
// values of a non-plastic, and the tests of its type and of the blocks it holds.
#include <quorvalib/properties.h>
#include <quorvalib/record.h>

#include <pybind11/stl.h>

#include <optional>
#include <utility>

#include "material.h"

namespace py = pybind11;

namespace qrvpy {
namespace {

// A value whose miss value is -1.0 in the library; Python gets None for it.
struct MissableValue {
    const char* name;
    double (*get)(QrvMaterial*);
    const char* doc;
};

constexpr MissableValue kValues[] = {
    {"no_flow_temperature", QrvGetNoFlowTemperature, "Temperature at which flow stops, degree C."},
    {"melt_temp_min", QrvGetMeltTempMin, "Lowest melt temperature, degree C."},
    {"melt_temp_max", QrvGetMeltTempMax, "Highest melt temperature, degree C."},
    {"mold_temp_min", QrvGetMoldTempMin, "Lowest mould temperature, degree C."},
    {"mold_temp_max", QrvGetMoldTempMax, "Highest mould temperature, degree C."},
    {"eject_temp", QrvGetEjectTemp, "Ejection temperature, degree C."},
    {"freeze_temp", QrvGetFreezeTemp, "Freeze temperature, degree C."},
    {"elastic_modulus", QrvGetElasticModulus, "Polymer modulus, dyne/cm^2."},
    {"fiber_aspect_ratio", QrvGetFiberAspectRatio, "Fibre length/diameter."},
    {"filler_aspect_ratio", QrvGetFillerAspectRatio, "Fibre, flake (D/T) or powder (1.0) ratio."},
    {"linear_shrinkage", QrvGetLinearShrinkage,
     "Cube root of the volume change in percent between 25 C, 0 and 250 C, 1e9 dyne/cm^2 "
     "(NaN when the volume falls)."},
    {"clte_a1_melt", QrvGetCLTEa1_Melt, "Thermoset a1 expansion of the melt, 1/K."},
    {"clte_a1_solid", QrvGetCLTEa1_Solid, "Thermoset a1 expansion of the solid, 1/K."},
    {"clte_a2_melt", QrvGetCLTEa2_Melt, "Thermoset a2 expansion of the melt, 1/K."},
    {"clte_a2_solid", QrvGetCLTEa2_Solid, "Thermoset a2 expansion of the solid, 1/K."},
    {"nonplastic_cp", QrvGetNonPlastic_Cp, "Heat capacity of a non-plastic, erg/(g.oC)."},
    {"nonplastic_k", QrvGetNonPlastic_K, "Conductivity of a non-plastic, erg/(sec.cm.oC)."},
    {"nonplastic_pr", QrvGetNonPlastic_PR, "Poisson's ratio of a non-plastic."},
    {"nonplastic_em", QrvGetNonPlastic_EM, "Modulus of a non-plastic, dyne/cm^2."},
    {"nonplastic_clte", QrvGetNonPlastic_CLTE, "Thermal expansion of a non-plastic, 1/K."},
    {"nonplastic_density", QrvGetNonPlastic_Density,
     "Density of a non-plastic from 'D=<n>g/cc' in its comment, g/cc (0.0 when the comment "
     "has no 'D=')."},
};

std::optional<double> present(double value) {
    if (value == -1.0) return std::nullopt;
    return value;
}

// The yes-or-no questions about a record: its type by FileType, and the blocks it holds.
struct Test {
    const char* name;
    bool (*test)(QrvMaterial*);
    const char* doc;
};

constexpr const char* kTypeDoc = "Type test on FileType (below 2 counts as thermoplastic).";
constexpr const char* kHoldsDoc = "Whether the material holds these data.";

constexpr Test kTests[] = {
    {"is_thermoplastic", QrvIsThermoplastic, kTypeDoc},
    {"is_thermoset", QrvIsThermoset, kTypeDoc},
    {"is_metal", QrvIsMetal, kTypeDoc},
    {"is_coolant", QrvIsCoolant, kTypeDoc},
    {"is_chip", QrvIsIC_Chip, kTypeDoc},
    {"is_lead_frame", QrvIsIC_LeadFrame, kTypeDoc},
    {"is_substrate", QrvIsIC_Substrate, kTypeDoc},
    {"is_wire", QrvIsIC_Wire, kTypeDoc},
    {"has_viscoelastic_data", QrvHasViscoelasticData, kHoldsDoc},
    {"has_optic_data", QrvHasOpticData, kHoldsDoc},
    {"has_crystallinity_data", QrvHasCrystallinityData, kHoldsDoc},
    {"thermoset_has_mech", QrvThermosetHasMech, kHoldsDoc},
    {"thermoset_has_scorch_index", QrvThermosetHasScorchIndex, kHoldsDoc},
    {"has_stress_strain_data", QrvHasStressStrainData, kHoldsDoc},
};

std::pair<double, double> stressStrain(const Material& material, int index) {
    double stress = 0.0;
    double strain = 0.0;
    QrvGetStressStrainData(material.record(), index, stress, strain);
    return {stress, strain};
}

}  // namespace

void bindValues(py::class_<Material>& material) {
    for (const MissableValue& value : kValues) {
        auto get = value.get;
        const std::string doc = std::string(value.doc) +
                                " None where the library gives its miss value -1.0 (no such "
                                "value for this material).";
        material.def_property_readonly(
            value.name, [get](const Material& self) { return present(get(self.record())); },
            doc.c_str());
    }
    for (const Test& test : kTests) {
        auto call = test.test;
        material.def_property_readonly(
            test.name, [call](const Material& self) { return call(self.record()); }, test.doc);
    }
    material.def_property_readonly(
        "fiber_percent", [](const Material& self) { return QrvGetFiberPercent(self.record()); },
        "Fibre weight percentage (0.0 without fibres).");
    material.def_property_readonly(
        "filler_percent", [](const Material& self) { return QrvGetFillerPercent(self.record()); },
        "Fibre or filler weight percentage (0.0 without filler).");
    material.def_property_readonly(
        "filler_type", [](const Material& self) { return QrvGetFillerType(self.record()); },
        "0 none, 1 fibre, 2 flake, 3 powder.");
    material.def_property_readonly(
        "fiber_type",
        [](const Material& self) { return std::string(QrvGetFiberType(self.record())); },
        "Text of the mechanical model's fibre kind.");
    material.def(
        "is_constant_model",
        [](const Material& self, int which) { return QrvIsConstantModel(self.record(), which); },
        py::arg("which"), "which: 1 Vis, 2 PVT, 3 Cp, 4 K. True when that block's model is 1.");
    material.def(
        "constant_model_value",
        [](const Material& self, int which) {
            return present(QrvGetConstantModelValue(self.record(), which));
        },
        py::arg("which"),
        "The value of a constant block (which as is_constant_model); None for another model.");
    material.def_property_readonly(
        "stress_strain_count",
        [](const Material& self) { return QrvGetStressStrainSet(self.record()); },
        "Number of stress-strain pairs of a wire (0 for other materials).");
    material.def("stress_strain", &stressStrain, py::arg("index"),
                 "(stress, strain) pair index of a wire. Raises ValueError for an index whose "
                 "places lie outside the Mech block.");
}

}  // namespace qrvpy
