// Simulation run files: materials stored in a run and read back.
#include <quorvalib/runfile.h>

#include <pybind11/stl.h>
#include <pybind11/stl/filesystem.h>

#include <climits>
#include <filesystem>
#include <memory>
#include <optional>
#include <string>
#include <system_error>

#include "failures.h"
#include "material.h"

namespace py = pybind11;

namespace qrvpy {
namespace {

constexpr int kRunStep = 65536;     // a RunItemId's run is the id divided by this
constexpr int kPlasticItem = 4096;  // the item class of the plastic of a run

// Holds a MATIO_RSVManipulator and the record it keeps from its last GetMaterial. A record that
// GetMaterial returns stays the manipulator's until its next GetMaterial, which leaves it to the
// caller; so each read here reads twice and hands the first record to Python, and a record the
// manipulator kept is released here when a later read leaves it behind.
class RunFile {
public:
    explicit RunFile(const std::filesystem::path& path) : path_(path.string()) {
        std::error_code ignored;
        const bool existed = std::filesystem::exists(path_, ignored);
        if (existed && std::filesystem::is_regular_file(path_, ignored) &&
            std::filesystem::file_size(path_, ignored) == 0)
            failValue(path_ + ": an empty file is not a run file");
        store_ = std::make_unique<MATIO_RSVManipulator>(path_.c_str());
        if (!existed && !std::filesystem::exists(path_, ignored))
            failOs(path_, "the run file could not be created");
    }

    const std::string& path() const { return path_; }

    void add(const Material& material, const std::string& label, int run) {
        if (run < 1 || run >= INT_MAX / kRunStep)
            failValue("run " + std::to_string(run) + " out of range");
        MATIO_RSVManipulator& store = open();
        if (!store.AddMaterial(material.record(), label.c_str(), run * kRunStep + kPlasticItem))
            failOs(path_,
                   "the material could not be stored (not an HDF5 run file, or held by another "
                   "process)");
        kept_ = nullptr;  // AddMaterial ended it
    }

    int size() { return open().GetMaterialCount(); }

    Material at(int index) {
        MATIO_RSVManipulator& store = open();
        const int position = index < 0 ? index + store.GetMaterialCount() : index;
        QrvMaterial* first = position >= 0 ? store.GetMaterial(position) : nullptr;
        if (!first)
            throw py::index_error(path_ + ": no material " + std::to_string(index) + " in run 1");
        QrvReleaseMaterial(kept_);  // left to us by this read
        kept_ = store.GetMaterial(position);
        return Material(RecordPtr(first), path_ + " run 1 material " + std::to_string(position));
    }

    void close() {
        store_.reset();
        kept_ = nullptr;
    }

private:
    MATIO_RSVManipulator& open() {
        if (!store_) failValue(path_ + ": the run file is closed");
        return *store_;
    }

    std::string path_;
    std::unique_ptr<MATIO_RSVManipulator> store_;
    QrvMaterial* kept_ = nullptr;  // owned by *store_, which releases it
};

}  // namespace

void bindRunFiles(py::module_& module) {
    py::class_<RunFile>(module, "RunFile",
                        R"(A simulation run file (HDF5), holding its own copy of every
material a run uses. It is created when missing and stays open until close() or the end of a
with block.

add() stores a material in a run, len() counts and run_file[i] reads back the materials of
run 1, as the library reads them: a material with MTC data comes back with FileVer 9010, the
blocks' origin codes, EM, PR, CLTE and SI are not stored.)")
        .def(py::init<const std::filesystem::path&>(), py::arg("path"),
             "Creates the run file at path, or opens it when it exists. Raises ValueError for an "
             "empty file and OSError when it cannot be created.")
        .def_property_readonly("path", &RunFile::path, "The run file.")
        .def("add", &RunFile::add, py::arg("material"), py::arg("label") = "", py::arg("run") = 1,
             R"(Stores material as the next "Material <n>" of run run (1 or above), with a
description row set naming label. Raises ValueError for a run below 1, OSError when the file is
not a run file the library can write.)")
        .def("__len__", &RunFile::size, "Number of materials in run 1.")
        .def("__getitem__", &RunFile::at, py::arg("index"),
             "Material index (negative counts from the end) of run 1 as a new Material. Raises "
             "IndexError outside them.")
        .def("close", &RunFile::close, "Closes the file; later calls raise ValueError.")
        .def("__enter__", [](RunFile& self) -> RunFile& { return self; })
        .def("__exit__", [](RunFile& self, py::args) { self.close(); })
        .def("__repr__",
             [](const RunFile& self) { return "<quorvalib.RunFile " + self.path() + ">"; });
}

}  // namespace qrvpy
