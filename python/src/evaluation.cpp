// Property evaluation over numpy arrays: the inputs broadcast against each other, handed to the
// library's batch calls in one go, the result shaped as the broadcast inputs.
#include <quorvalib/batch.h>
#include <quorvalib/properties.h>
#include <quorvalib/vocabulary.h>

#include <pybind11/numpy.h>

#include <string>
#include <vector>

#include "broadcast.h"
#include "failures.h"
#include "material.h"

namespace py = pybind11;

namespace qrvpy {
namespace {

// The four-input and three-input batch calls share one signature each between their forms.
using ViscosityCall = int (*)(QrvMaterial*, int, const double*, const double*, const double*,
                              const double*, double*);
using VolumeCall = int (*)(QrvMaterial*, int, const double*, const double*, const double*, double*);
using TableCall = int (*)(QrvMaterial*, int, const double*, double*);

// A model the library cannot evaluate gives its failure value at every point; the binding asks
// once, through the scalar call, before evaluating, and raises instead.
void requireViscosity(const Material& material) {
    // 0.0 is never a viscosity: it is the library's "cannot be evaluated".
    QrvMaterial* record = material.record();
    if (QrvGetViscosity(record, 1000.0, 200.0, 0.0, 0.0) == 0.0)
        failValue(material.origin() + ": viscosity model " + std::to_string(record->Vis.Model) +
                  " (" + copied(QrvGetVisModelName(record)) + ") with " +
                  std::to_string(record->Vis.Count) + " values cannot be evaluated");
}

void requirePvt(const Material& material) {
    // At no pressure and no conversion every model gives a volume above 0 for real data.
    QrvMaterial* record = material.record();
    if (QrvGetSpecificVolume(record, 0.0, 25.0, 0.0) == 0.0)
        failValue(material.origin() + ": PVT model " + std::to_string(record->PVT.Model) + " (" +
                  copied(QrvGetPVTModelName(record)) + ") with " +
                  std::to_string(record->PVT.Count) + " values cannot be evaluated");
}

void requireTable(const Material& material, const QrvMatParam& block, const char* what) {
    if (!block.Para || block.Count < 1)
        failValue(material.origin() + ": the material holds no " + what + " table");
}

py::object viscosity(const Material& material, py::object shearRate, py::object temperature,
                     py::object pressure, py::object conversion, bool fast) {
    requireViscosity(material);
    Broadcast points({shearRate, temperature, pressure, conversion}, {false, false, true, true});
    const ViscosityCall call = fast ? QrvGetViscosityNFast : QrvGetViscosityN;
    double* out = points.output();
    inPieces(points.size(), [&](std::size_t at, int count) {
        auto in = [&](std::size_t i) { return points.input(i) ? points.input(i) + at : nullptr; };
        call(material.record(), count, in(0), in(1), in(2), in(3), out + at);
    });
    return points.result();
}

py::object volumeLike(const Material& material, VolumeCall call, py::object pressure,
                      py::object temperature, py::object conversion) {
    requirePvt(material);
    Broadcast points({pressure, temperature, conversion}, {false, false, true});
    double* out = points.output();
    inPieces(points.size(), [&](std::size_t at, int count) {
        auto in = [&](std::size_t i) { return points.input(i) ? points.input(i) + at : nullptr; };
        call(material.record(), count, in(0), in(1), in(2), out + at);
    });
    return points.result();
}

py::object table(const Material& material, TableCall call, py::object temperature) {
    Broadcast points({temperature}, {false});
    double* out = points.output();
    inPieces(points.size(), [&](std::size_t at, int count) {
        call(material.record(), count, points.input(0) + at, out + at);
    });
    return points.result();
}

// The cure conversion has no batch call: the scalar call runs over the points here, in C++.
py::object conversion(const Material& material, py::object temperature, py::object heatingRate,
                      py::object start) {
    const QrvMatParam& kn = material.record()->KN;
    if (!kn.Para || kn.Count < 6)
        failValue(material.origin() + ": the material holds no cure kinetics (KN) parameters");
    Broadcast points({temperature, heatingRate, start}, {false, false, false});
    double* out = points.output();
    inPieces(points.size(), [&](std::size_t at, int count) {
        for (int i = 0; i < count; ++i) {
            const std::size_t p = at + static_cast<std::size_t>(i);
            out[p] = QrvGetConversion(material.record(), points.input(0)[p], points.input(1)[p],
                                      points.input(2)[p]);
        }
    });
    return points.result();
}

constexpr const char* kArrays = R"(

Arguments are numbers or arrays of any shape that numpy broadcasts together; the result has the
broadcast shape (a float when every argument is a number). fast=True uses the vectorised batch
form (within 1e-14 relative of the exact one); the default gives the scalar call's result bit for
bit. Raises ValueError when the block's model cannot be evaluated or the shapes do not broadcast.)";

std::string doc(const char* head) {
    return std::string(head) + kArrays;
}

}  // namespace

void bindEvaluation(py::module_& module, py::class_<Material>& material) {
    (void)module;
    material.def("viscosity", &viscosity, py::arg("shear_rate"), py::arg("temperature"),
                 py::arg("pressure") = 0.0, py::arg("conversion") = 0.0, py::kw_only(),
                 py::arg("fast") = false,
                 doc("Viscosity in g/(cm.sec) at shear rate (1/sec), temperature (degree C), "
                     "pressure (dyne/cm^2) and cure conversion (0 to 1).")
                     .c_str());
    material.def(
        "specific_volume",
        [](const Material& self, py::object p, py::object t, py::object x, bool fast) {
            return volumeLike(self, fast ? QrvGetSpecificVolumeNFast : QrvGetSpecificVolumeN, p, t,
                              x);
        },
        py::arg("pressure"), py::arg("temperature"), py::arg("conversion") = 0.0, py::kw_only(),
        py::arg("fast") = false,
        doc("Specific volume in cc/g at pressure (dyne/cm^2), temperature (degree C) and "
            "conversion.")
            .c_str());
    material.def(
        "density",
        [](const Material& self, py::object p, py::object t, py::object x, bool fast) {
            return volumeLike(self, fast ? QrvGetDensityNFast : QrvGetDensityN, p, t, x);
        },
        py::arg("pressure"), py::arg("temperature"), py::arg("conversion") = 0.0, py::kw_only(),
        py::arg("fast") = false,
        doc("Density in g/cc (1 / specific volume) at pressure (dyne/cm^2), temperature "
            "(degree C) and conversion.")
            .c_str());
    material.def(
        "heat_capacity",
        [](const Material& self, py::object t, bool fast) {
            requireTable(self, self.record()->Cp, "heat capacity");
            return table(self, fast ? QrvGetHeatCapacityNFast : QrvGetHeatCapacityN, t);
        },
        py::arg("temperature"), py::kw_only(), py::arg("fast") = false,
        doc("Heat capacity in erg/(g.oC) at temperature (degree C), interpolated in the Cp "
            "table. An odd-length table whose walk reaches its incomplete last pair gives the "
            "library's -1.0 at those points.")
            .c_str());
    material.def(
        "thermal_conductivity",
        [](const Material& self, py::object t, bool fast) {
            requireTable(self, self.record()->K, "thermal conductivity");
            return table(self, fast ? QrvGetThermalConductivityNFast : QrvGetThermalConductivityN,
                         t);
        },
        py::arg("temperature"), py::kw_only(), py::arg("fast") = false,
        doc("Thermal conductivity in erg/(sec.cm.oC) at temperature (degree C), interpolated in "
            "the K table; as heat_capacity.")
            .c_str());
    material.def(
        "conversion",
        [](const Material& self, py::object t, py::object rate, py::object start, bool fast) {
            (void)fast;  // the cure step has one form
            return conversion(self, t, rate, start);
        },
        py::arg("temperature"), py::arg("heating_rate"), py::arg("conversion"), py::kw_only(),
        py::arg("fast") = false,
        doc("Cure conversion after one step from conversion at temperature (degree C) and "
            "heating rate (oC/min; below 1e-10 an isothermal step). The step has no vectorised "
            "form: fast is accepted and changes nothing.")
            .c_str());
}

}  // namespace qrvpy
