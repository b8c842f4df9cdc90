// Material banks (list, take out, add, export) and the lists of metals on offer.
#include <quorvalib/bank.h>
#include <quorvalib/record.h>

#include <pybind11/stl.h>
#include <pybind11/stl/filesystem.h>

#include <filesystem>
#include <string>
#include <vector>

#include "failures.h"
#include "material.h"

namespace py = pybind11;

namespace qrvpy {
namespace {

constexpr int kEntryCopied = 1;        // a thermoplastic entry
constexpr int kOtherEntryCopied = -3;  // a thermoset or non-polymer entry
constexpr int kNoSuchEntry = -2;

class Bank {
public:
    explicit Bank(const std::filesystem::path& path) : path_(path.string()) {}
    const std::string& path() const { return path_; }

    // The entry at index, taken out into a new record: nullptr past the last entry.
    RecordPtr take(int index) const {
        requireExists(path_, "bank");
        RecordPtr record = newRecord();
        MATIO_BankManipulator bank;
        const int code = bank.ExtractPlasticMaterialFromBank(path_.c_str(), index, *record);
        if (code == kNoSuchEntry) return nullptr;
        if (code != kEntryCopied && code != kOtherEntryCopied)
            check(Operation::Extract, code, path_, entry(index));
        return record;
    }

    int size() const {
        int count = 0;
        while (take(count))
            ++count;
        return count;
    }

    Material at(int index) const {
        const int position = index < 0 ? index + size() : index;
        RecordPtr record = position >= 0 ? take(position) : nullptr;
        if (!record) check(Operation::Extract, kNoSuchEntry, path_, entry(index));
        return Material(std::move(record), path_ + "[" + std::to_string(position) + "]");
    }

    py::list list() const {
        py::list entries;
        for (int index = 0;; ++index) {
            RecordPtr record = take(index);
            if (!record) break;
            py::dict row;
            row["index"] = index;
            row["type"] = copied(QrvGetMaterialType(record.get()));
            row["polymer"] = text(record->Polymer);
            row["producer"] = text(record->Producer);
            row["grade_name"] = text(record->GradeName);
            entries.append(row);
        }
        return entries;
    }

    // Materials and material files, one at a time and in order; files are looked for first, so
    // that a missing one leaves the bank untouched.
    void add(const py::iterable& items) const {
        std::vector<py::object> all;
        for (py::handle item : items) {
            if (!py::isinstance<Material>(item)) {
                const std::string name = py::str(py::module_::import("os").attr("fspath")(item));
                requireExists(name, "material file");
            }
            all.push_back(py::reinterpret_borrow<py::object>(item));
        }
        MATIO_BankManipulator bank;
        int worst = 0;
        for (const py::object& item : all) {
            int code;
            if (py::isinstance<Material>(item)) {
                code = bank.AddMaterialsToBank(path_.c_str(), item.cast<Material&>().record(), 1);
            } else {
                std::string name = py::str(py::module_::import("os").attr("fspath")(item));
                char* names[] = {name.data()};
                code = bank.AddMaterialsToBank(path_.c_str(), names, 1);
            }
            check(Operation::AddToBank, code < 0 ? code : 0, path_);
            if (code > worst) worst = code;
        }
        check(Operation::AddToBank, worst, path_);
    }

    void exportEntry(int index, const std::filesystem::path& output) const {
        requireExists(path_, "bank");
        MATIO_BankManipulator bank;
        const int code =
            bank.ExportPlasticMaterialFromBank(path_.c_str(), index, output.string().c_str());
        check(Operation::Export, code, path_, entry(index));
    }

private:
    static std::string entry(int index) { return "entry " + std::to_string(index); }
    std::string path_;
};

struct Metal {
    std::string name;
    double density, cp, k, em, pr, clte;
};

Metal metalOf(const MATIO_QrvNonPolyMat::CQrvNonPlastic& metal) {
    return {copied(metal.Name), metal.Density, metal.Cp, metal.K, metal.EM, metal.PR, metal.CLTE};
}

std::vector<Metal> metals(const std::filesystem::path& systemRoot,
                          const std::filesystem::path& userRoot, bool rim) {
    MATIO_QrvNonPolyMat list;
    const std::string system = systemRoot.string();
    const std::string user = userRoot.string();
    if (!list.GetMetalMatBank(system.c_str(), user.c_str(), rim))
        failNotFound(system, "neither the system metal bank below " + system +
                                 " nor the user bank below " + user + " can be opened");
    std::vector<Metal> all;
    for (int i = 0; i < list.GetMatBankCount(); ++i) {
        MATIO_QrvNonPolyMat::CQrvNonPlastic metal{};
        list.GetMat(i, metal);
        all.push_back(metalOf(metal));
    }
    return all;
}

Metal metalFromFile(const std::filesystem::path& path) {
    const std::string name = path.string();
    MATIO_QrvNonPolyMat list;
    MATIO_QrvNonPolyMat::CQrvNonPlastic metal{};
    if (!list.GetMetalFile(name.c_str(), metal)) {
        requireExists(name, "material file");
        failValue(name + ": not a metal material file");
    }
    return metalOf(metal);
}

}  // namespace

void bindBanks(py::module_& module) {
    py::class_<Bank>(module, "Bank", R"(A material bank file (".qbk"): many materials, one behind
the other, addressed by their position from 0. A bank is only ever appended to.

len(bank) counts the entries, bank[i] takes entry i out as a new Material, list() tells what
each entry is, add() appends materials or material files, export() writes one entry as a file.
Each call opens and closes the file by itself.)")
        .def(py::init<const std::filesystem::path&>(), py::arg("path"),
             "A bank at path; nothing is opened until a call needs it.")
        .def_property_readonly("path", &Bank::path, "The bank file.")
        .def("__len__", &Bank::size,
             "Number of entries. Raises FileNotFoundError for a missing bank.")
        .def("__getitem__", &Bank::at, py::arg("index"),
             R"(Entry index (negative counts from the end) as a new Material: a thermoplastic
with its measured data, a thermoset or a non-polymer as the library takes them out.
Raises IndexError past the entries, FileNotFoundError for a missing bank, ValueError for a
file that is not a bank or an entry of unknown class.)")
        .def("list", &Bank::list, "One dict per entry: index, type, polymer, producer, grade_name.")
        .def("add", &Bank::add, py::arg("materials"),
             R"(Appends each Material, or the material file each path names, in order; a bank
that does not exist is made. Raises FileNotFoundError (before anything is added) for a path
that does not exist, ValueError after the others were added when some could not be written,
OSError when the bank cannot be opened for update.)")
        .def("export", &Bank::exportEntry, py::arg("index"), py::arg("path"),
             R"(Writes entry index as a material file of its own (the thermoset form for a
thermoset entry). Raises IndexError, FileNotFoundError, ValueError as bank[index], OSError
when the file cannot be saved.)")
        .def("__repr__", [](const Bank& self) { return "<quorvalib.Bank " + self.path() + ">"; });

    py::class_<Metal>(module, "Metal", "One metal of a metal list: name and six values.")
        .def_readonly("name", &Metal::name, "Grade name.")
        .def_readonly("density", &Metal::density, "g/cc, from 'D=' in the comment (0.0 without).")
        .def_readonly("cp", &Metal::cp, "Heat capacity, erg/(g.oC).")
        .def_readonly("k", &Metal::k, "Conductivity, erg/(sec.cm.oC).")
        .def_readonly("em", &Metal::em, "Modulus, dyne/cm^2.")
        .def_readonly("pr", &Metal::pr, "Poisson's ratio.")
        .def_readonly("clte", &Metal::clte, "Thermal expansion, 1/K.")
        .def("__repr__", [](const Metal& self) { return "<quorvalib.Metal '" + self.name + "'>"; });

    module.def("metals", &metals, py::arg("system_root"), py::arg("user_root"),
               py::arg("rim") = false,
               R"(The metals on offer: every entry of system_root/Bank/System/Metal.qbk, then
the metals of user_root/Quorvane R13.0/Material/UserBank/user.qbk (user-rim.qbk when rim).
Raises FileNotFoundError when neither bank can be opened.)");
    module.def("metal_from_file", &metalFromFile, py::arg("path"),
               R"(The metal of a material file. Raises FileNotFoundError for a missing file and
ValueError when it is not a metal.)");
}

}  // namespace qrvpy
