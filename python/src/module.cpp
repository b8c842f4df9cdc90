// The Python module quorvalib.
#include <pybind11/pybind11.h>

#include "failures.h"
#include "material.h"

namespace py = pybind11;

PYBIND11_MODULE(quorvalib, module) {
    module.doc() = R"(quorvalib: the material-data engine from Python, over numpy.

Material loads, generates and saves material files and evaluates every property over numpy
arrays; Bank reads and appends to material banks; metals lists the metals on offer; RunFile
stores materials in simulation run files; model_info, unit_label and convert_from_base tell
names and units. Values are in the library's base units (degree C, g/(cm.sec), dyne/cm^2, cc/g,
g/cc, erg/(g.oC), erg/(sec.cm.oC)). Failures raise FileNotFoundError, ValueError, IndexError or
OSError naming the file.)";
    qrvpy::registerFailures(module);
    py::class_<qrvpy::Material> material = qrvpy::bindMaterial(module);
    qrvpy::bindBlocks(module, material);
    qrvpy::bindEvaluation(module, material);
    qrvpy::bindValues(material);
    qrvpy::bindBanks(module);
    qrvpy::bindNames(module);
    qrvpy::bindRunFiles(module);
}
