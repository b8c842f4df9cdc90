// The fifteen property blocks of a material as Python values: model id and name, parameter
// names, values as a numpy array and their units in a chosen unit system.
#include <quorvalib/properties.h>
#include <quorvalib/vocabulary.h>

#include <pybind11/numpy.h>
#include <pybind11/stl.h>

#include <cstring>
#include <string>
#include <vector>

#include "failures.h"
#include "material.h"
#include "report/report_units.h"
#include "units/unit.h"

namespace py = pybind11;

namespace qrvpy {
namespace {

constexpr int kTemperatureUnit = 1;

// One block as handed to Python: a copy, independent of the record once made.
struct Block {
    std::string name;
    int source = 0;
    int model = 0;
    std::string modelName;
    std::vector<std::string> parameterNames;
    py::array_t<double> values;
    std::vector<int> unitIds;
    std::vector<std::string> units;
    int unitSystem = 0;
};

using ModelNameOf = const char* (*)(QrvMaterial*);
using ParaNameOf = const char* (*)(QrvMaterial*, int);
using ParaNameUnitOf = const char* (*)(QrvMaterial*, int, int&);
using UnitOf = int (*)(const QrvMaterial&, int);

int visUnit(const QrvMaterial& m, int i) {
    return qrv::report::viscosityUnitId(m.FileType == QRV_TYPE_THERMOSET, m.Vis.Model, i);
}
int pvtUnit(const QrvMaterial& m, int i) {
    return qrv::report::pvtUnitId(m.PVT.Model, i);
}
int curingUnit(const QrvMaterial& m, int i) {
    return qrv::report::curingUnitId(m.KN.Model, i);
}
int mechUnit(const QrvMaterial& m, int i) {
    return qrv::report::mechanicalUnitId(m.FileType == QRV_TYPE_THERMOSET, m.Mech.Model, i);
}

// How each block is named and in which units its values are, as the report shows them. Blocks
// with no naming call have empty parameter names and values without a unit (id 0); the heat
// capacity and conductivity tables are value-temperature pairs.
struct BlockRow {
    const char* name;
    QrvMatParam QrvMaterial::*block;
    ModelNameOf modelName = nullptr;
    ParaNameOf paraName = nullptr;
    ParaNameUnitOf paraNameUnit = nullptr;
    UnitOf unitOf = nullptr;
    const char* pairMark = nullptr;  // "Cp": names "<model> - (Cp0)", "<model> - (T0)", ...
    int pairUnit = 0;
};

const BlockRow kBlocks[] = {
    {"Vis", &QrvMaterial::Vis, QrvGetVisModelName, QrvGetVisParaName, nullptr, visUnit},
    {"PVT", &QrvMaterial::PVT, QrvGetPVTModelName, QrvGetPVTParaName, nullptr, pvtUnit},
    {"Cp", &QrvMaterial::Cp, QrvGetCpModelName, nullptr, nullptr, nullptr, "Cp", 4},
    {"K", &QrvMaterial::K, QrvGetKModelName, nullptr, nullptr, nullptr, "K", 5},
    {"EM", &QrvMaterial::EM},
    {"PR", &QrvMaterial::PR},
    {"CLTE", &QrvMaterial::CLTE},
    {"Temp", &QrvMaterial::Temp},
    {"KN", &QrvMaterial::KN, QrvGetConvModelName, QrvGetConvParaName, nullptr, curingUnit},
    {"Mech", &QrvMaterial::Mech, QrvGetMechModelName, QrvGetMechParaName, nullptr, mechUnit},
    {"VE", &QrvMaterial::VE, QrvGetVEModelName, nullptr, QrvGetVEParaName},
    {"OP", &QrvMaterial::OP},
    {"SI", &QrvMaterial::SI},
    {"CR", &QrvMaterial::CR, QrvGetCrystallinityModelName, nullptr, QrvGetCrystallinityParaName},
    {"PW", &QrvMaterial::PW},
};

const BlockRow& rowOf(const std::string& name) {
    for (const BlockRow& row : kBlocks) {
        if (name == row.name) return row;
    }
    std::string known;
    for (const BlockRow& row : kBlocks)
        known += std::string(known.empty() ? "" : ", ") + row.name;
    failValue("no block '" + name + "'; the blocks are " + known);
}

int valueCount(const QrvMatParam& block) {
    return block.Para && block.Count > 0 ? block.Count : 0;
}

Block blockOf(const Material& material, const BlockRow& row, int system) {
    QrvMaterial* record = material.record();
    const QrvMatParam& param = record->*(row.block);
    Block block;
    block.name = row.name;
    block.source = param.Source;
    block.model = param.Model;
    block.unitSystem = unitSystem(system);
    // Each name is copied at once: the next naming call overwrites the shared text.
    if (row.modelName) block.modelName = copied(row.modelName(record));
    const int count = valueCount(param);
    CQrvUnit units;
    units.SetSystem(system);
    block.values = py::array_t<double>(count);
    double* values = block.values.mutable_data();
    int namedUnit = 0;  // the unit calls leave it as it was where they have no label
    for (int i = 0; i < count; ++i) {
        std::string name;
        int unitId = 0;
        if (row.paraName) {
            name = copied(row.paraName(record, i));
            unitId = row.unitOf(*record, i);
        } else if (row.paraNameUnit) {
            name = copied(row.paraNameUnit(record, i, namedUnit));
            unitId = namedUnit;
        } else if (row.pairMark) {
            const bool isValue = i % 2 == 0;
            name = block.modelName + " - (" + (isValue ? row.pairMark : "T") +
                   std::to_string(i / 2) + ")";
            unitId = isValue ? row.pairUnit : kTemperatureUnit;
        }
        block.parameterNames.push_back(std::move(name));
        block.unitIds.push_back(unitId);
        block.units.push_back(units.GetLabel(unitId));
        values[i] = units.ConvertFromBase(param.Para[i], unitId);
    }
    return block;
}

Block block(const Material& material, const std::string& name, int system) {
    return blockOf(material, rowOf(name), system);
}

py::dict blocks(const Material& material, int system) {
    py::dict all;
    for (const BlockRow& row : kBlocks)
        all[row.name] = blockOf(material, row, system);
    return all;
}

// Replaces a block's model and values (in base units) by a fresh array, as the library keeps them.
void setBlock(Material& material, const std::string& name, int model,
              const py::array_t<double, py::array::c_style | py::array::forcecast>& values,
              std::optional<int> source) {
    QrvMatParam& param = material.record()->*(rowOf(name).block);
    if (values.ndim() > 1) failValue("the values of a block are one-dimensional");
    const py::ssize_t count = values.size();
    if (count > 1 << 20) failValue("a block holds at most 1048576 values");
    double* fresh = count > 0 ? new double[static_cast<std::size_t>(count)] : nullptr;
    if (count > 0)
        std::memcpy(fresh, values.data(), static_cast<std::size_t>(count) * sizeof(double));
    delete[] param.Para;
    param.Para = fresh;
    param.Count = static_cast<int>(count);
    param.Model = model;
    if (source) param.Source = *source;
}

// The names and units of a model as a block of count zeros of a made-up record: the record is
// a thermoset when thermoset is set, and the block holds values so that the name calls name the
// model rather than "no data".
Block modelInfo(const std::string& name, int model, int count, bool thermoset, int system) {
    if (count < 0 || count > 1 << 20) failValue("count " + std::to_string(count) + " out of range");
    const BlockRow& row = rowOf(name);
    RecordPtr record = newRecord();
    record->FileType = thermoset ? QRV_TYPE_THERMOSET : QRV_TYPE_THERMOPLASTIC;
    QrvMatParam& param = record.get()->*(row.block);
    param.Model = model;
    param.Count = count > 0 ? count : 1;
    param.Para = new double[static_cast<std::size_t>(param.Count)]();
    Material material(std::move(record), "model " + std::to_string(model));
    Block block = blockOf(material, row, system);
    if (count == 0) {
        block.parameterNames.clear();
        block.unitIds.clear();
        block.units.clear();
        block.values = py::array_t<double>(0);
    }
    return block;
}

}  // namespace

void bindBlocks(py::module_& module, py::class_<Material>& material) {
    py::class_<Block>(module, "Block", R"(One property block of a material, copied out of it.

name is the block ("Vis", "PVT", "Cp", ...), model its model id and model_name the library's
name of it. values holds the block's parameters converted to the unit system unit_system, with
the labels in units and the unit ids in unit_ids (0 for values without a unit). parameter_names
are the library's labels, as the report shows them.)")
        .def_readonly("name", &Block::name, "Block name, e.g. 'Vis'.")
        .def_readonly("source", &Block::source, "Origin code of the block's data.")
        .def_readonly("model", &Block::model, "Model id.")
        .def_readonly("model_name", &Block::modelName, "Model name ('' for unnamed blocks).")
        .def_readonly("parameter_names", &Block::parameterNames, "Label of each value.")
        .def_readonly("values", &Block::values, "The values, numpy float64, in unit_system.")
        .def_readonly("unit_ids", &Block::unitIds, "Unit id of each value.")
        .def_readonly("units", &Block::units, "Unit label of each value in unit_system.")
        .def_readonly("unit_system", &Block::unitSystem, "0 base, 1 SI, 2 English.")
        .def("__len__", [](const Block& self) { return self.values.size(); })
        .def("__repr__", [](const Block& self) {
            return "<quorvalib.Block " + self.name + " model " + std::to_string(self.model) + " '" +
                   self.modelName + "', " + std::to_string(self.values.size()) + " values>";
        });

    material.def("block", &block, py::arg("name"), py::arg("unit_system") = 0,
                 R"(The block name ("Vis", "PVT", "Cp", "K", "EM", "PR", "CLTE", "Temp", "KN",
"Mech", "VE", "OP", "SI", "CR", "PW") with its values in unit_system (0 base, 1 SI,
2 English). Raises ValueError for an unknown block or unit system.)");
    material.def("blocks", &blocks, py::arg("unit_system") = 0,
                 "Every block, in record order, as a dict from block name to Block.");
    material.def("set_block", &setBlock, py::arg("name"), py::arg("model"), py::arg("values"),
                 py::arg("source") = py::none(),
                 R"(Replaces the model id and the values (base units) of the block name; source,
when given, replaces its origin code. Raises ValueError for an unknown block or values that are
not one-dimensional.)");
    module.def("model_info", &modelInfo, py::arg("block"), py::arg("model"), py::arg("count") = 0,
               py::arg("thermoset") = false, py::arg("unit_system") = 0,
               R"(The model name, the first count parameter names and their units of model id
model of block ("Vis", "PVT", "Cp", "K", "KN", "Mech", "VE", "CR"), as a Block of zeros.
thermoset names the thermoset models (viscosity ids 1 and 10 to 13, the cure models). Where the
library has no label for an index it answers the text of its previous naming call; that text
is kept here as it comes.)");
    module.def(
        "model_name",
        [](const std::string& name, int model, bool thermoset) {
            return modelInfo(name, model, 0, thermoset, 0).modelName;
        },
        py::arg("block"), py::arg("model"), py::arg("thermoset") = false,
        "The library's name of model id model of block (see model_info).");
}

}  // namespace qrvpy
