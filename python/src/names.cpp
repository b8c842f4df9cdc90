// Unit labels and conversions, the installation settings and the version calls.
#include <quorvalib/registry.h>
#include <quorvalib/version.h>

#include <pybind11/stl.h>

#include <optional>
#include <string>

#include "broadcast.h"
#include "material.h"
#include "units/unit.h"

namespace py = pybind11;

namespace qrvpy {
namespace {

std::string unitLabel(int unitId, int system) {
    CQrvUnit units;
    units.SetSystem(unitSystem(system));
    return units.GetLabel(unitId);
}

py::object convert(py::object values, int unitId, int system, bool toBase) {
    CQrvUnit units;
    units.SetSystem(unitSystem(system));
    Broadcast points({values}, {false});
    double* out = points.output();
    inPieces(points.size(), [&](std::size_t at, int count) {
        for (int i = 0; i < count; ++i) {
            const std::size_t p = at + static_cast<std::size_t>(i);
            out[p] = points.input(0)[p];
            units.Convert(&out[p], unitId, toBase);
        }
    });
    return points.result();
}

int mapUnitId(int unitId) {
    CQrvUnit units;
    units.MapUnitId(&unitId);
    return unitId;
}

std::optional<std::string> installFolder() {
    char buffer[4096];
    if (!QRVGetInstallFolderPath(nullptr, buffer, sizeof buffer)) return std::nullopt;
    return std::string(buffer);
}

std::optional<int> releaseUnitSystem() {
    int system = 0;
    if (!QRVGetReleaseVersionUnit(system)) return std::nullopt;
    return system;
}

}  // namespace

void bindNames(py::module_& module) {
    module.attr("BASE") = 0;
    module.attr("SI") = 1;
    module.attr("ENGLISH") = 2;
    module.def("unit_label", &unitLabel, py::arg("unit_id"), py::arg("unit_system"),
               R"(The label of unit id unit_id in unit_system (0 base, 1 SI, 2 English), trailing
blanks kept: "" for an unknown id. A negative id names a report item and is mapped first.)");
    module.def(
        "convert_from_base",
        [](py::object values, int unitId, int system) {
            return convert(values, unitId, system, false);
        },
        py::arg("values"), py::arg("unit_id"), py::arg("unit_system"),
        R"(Values (a number or an array of any shape) of unit id unit_id converted from the
base units to unit_system; the same shape back. Temperature (id 1) is an offset scale.)");
    module.def(
        "convert_to_base",
        [](py::object values, int unitId, int system) {
            return convert(values, unitId, system, true);
        },
        py::arg("values"), py::arg("unit_id"), py::arg("unit_system"),
        "The reverse of convert_from_base.");
    module.def("map_unit_id", &mapUnitId, py::arg("unit_id"),
               "The dimension id of a report item's negative id; other ids come back as they are.");

    module.def(
        "set_install_folder",
        [](std::optional<std::string> folder) {
            QRVSetInstallFolderPath(folder ? folder->c_str() : nullptr);
        },
        py::arg("folder"),
        R"(Sets the install folder below which the report finds Bank/System/StatData.sta;
None withdraws the setting (the environment variable QUORVANE_INSTALL_DIR applies again).)");
    module.def("install_folder", &installFolder,
               "The install folder (ending in '/'), or None when none is set.");
    module.def(
        "set_unit_system", [](int system) { QRVSetReleaseVersionUnit(system); },
        py::arg("unit_system"),
        R"(Sets the unit system of reports (0 base, 1 SI, 2 English); a negative value withdraws
the setting (QUORVANE_UNIT_SYSTEM applies again).)");
    module.def("unit_system", &releaseUnitSystem,
               "The unit system of reports, or None when none is set.");

    module.def("library_version", &GetDLLVersion,
               "The material body version the library writes by default.");
    module.def(
        "build_date", [] { return Get_Quorvalib_Dll_Ver(); },
        "The build date of the library as yyyymmdd.");
}

}  // namespace qrvpy
