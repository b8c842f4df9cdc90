// Material: loading, generating and saving, the header fields and texts, the content text and the
// report.
#include "material.h"

#include <quorvalib/defaults.h>
#include <quorvalib/files.h>
#include <quorvalib/frmout.h>
#include <quorvalib/manipulator.h>
#include <quorvalib/record.h>
#include <quorvalib/registry.h>
#include <quorvalib/vocabulary.h>

#include <pybind11/stl.h>

#include <cstdlib>
#include <cstring>
#include <filesystem>
#include <optional>
#include <system_error>

#include "failures.h"

namespace py = pybind11;

namespace qrvpy {

RecordPtr newRecord() {
    RecordPtr record(new QrvMaterial);
    record->FileType = 0;
    record->FileVer = 0;
    record->LastEditDate = 0;
    record->MeasureDate = 0;
    return record;
}

Material::Material(RecordPtr record, std::string origin)
    : record_(std::move(record)), origin_(std::move(origin)) {}

py::object text(const char* value) {
    if (!value) return py::none();
    return py::reinterpret_steal<py::object>(PyUnicode_DecodeFSDefault(value));
}

std::string copied(const char* value) {
    return value ? std::string(value) : std::string();
}

int unitSystem(int system) {
    if (system < 0 || system > 2)
        failValue("unit system " + std::to_string(system) + ": 0 base, 1 SI or 2 English");
    return system;
}

namespace {

// The bytes of a Python str as the library takes text: encoded as file names are.
std::string bytesOf(const py::str& value) {
    py::object encoded = py::reinterpret_steal<py::object>(PyUnicode_EncodeFSDefault(value.ptr()));
    if (!encoded) throw py::error_already_set();
    return std::string(PyBytes_AsString(encoded.ptr()),
                       static_cast<std::size_t>(PyBytes_Size(encoded.ptr())));
}

// Replaces a text field of the record by a fresh array of length plus 1, as the library keeps
// every text; None leaves the field null.
void setText(QrvMaterial& record, char* QrvMaterial::*field, const std::optional<py::str>& value) {
    char* fresh = nullptr;
    if (value) {
        const std::string bytes = bytesOf(*value);
        if (bytes.find('\0') != std::string::npos) failValue("a text of a material holds no NUL");
        fresh = new char[bytes.size() + 1];
        std::memcpy(fresh, bytes.c_str(), bytes.size() + 1);
    }
    delete[](record.*field);
    record.*field = fresh;
}

Material load(const std::string& path) {
    RecordPtr record(QrvGetMaterial(path.c_str()));
    if (!record) failLoad(path, "material file");
    return Material(std::move(record), path);
}

Material generate(int vis, int pvt, bool crystalline, int cp, int k, int filler) {
    return Material(RecordPtr(QrvGetDefaultMaterial(vis, pvt, crystalline, cp, k, filler)),
                    "generated");
}

// Saves as the library's own callers do: the thermoset form for a name ending in "mtx".
void save(const Material& material, const std::string& path) {
    const bool thermoset = QrvIsRIM(path.c_str());
    const int code = thermoset ? QrvSaveMaterialRIM(path.c_str(), material.record())
                               : QrvSaveMaterial(path.c_str(), material.record());
    check(Operation::Save, code, path);
    // The thermoset save does not look at its open; a missing file is its failure.
    std::error_code ignored;
    if (thermoset && !std::filesystem::exists(path, ignored))
        failOs(path, "the file could not be opened for writing");
}

// A folder of its own below the temporary folder, removed with everything in it at the end.
class TemporaryFolder {
public:
    TemporaryFolder() {
        std::string pattern =
            (std::filesystem::temp_directory_path() / "quorvalib-XXXXXX").string();
        if (!::mkdtemp(pattern.data())) failOs(pattern, "no temporary folder");
        path_ = pattern;
    }
    ~TemporaryFolder() {
        std::error_code ignored;
        std::filesystem::remove_all(path_, ignored);
    }
    TemporaryFolder(const TemporaryFolder&) = delete;
    TemporaryFolder& operator=(const TemporaryFolder&) = delete;
    const std::filesystem::path& path() const { return path_; }

private:
    std::filesystem::path path_;
};

// Sets one process-wide registry setting for the length of a report and puts the earlier answer
// back afterwards (withdrawing the setting when there was none).
class UnitSystemSetting {
public:
    explicit UnitSystemSetting(std::optional<int> system) : active_(system.has_value()) {
        if (!active_) return;
        had_ = QRVGetReleaseVersionUnit(previous_);
        QRVSetReleaseVersionUnit(unitSystem(*system));
    }
    ~UnitSystemSetting() {
        if (active_) QRVSetReleaseVersionUnit(had_ ? previous_ : -1);
    }
    UnitSystemSetting(const UnitSystemSetting&) = delete;
    UnitSystemSetting& operator=(const UnitSystemSetting&) = delete;

private:
    bool active_;
    bool had_ = false;
    int previous_ = 0;
};

class InstallFolderSetting {
public:
    explicit InstallFolderSetting(const std::optional<std::string>& folder)
        : active_(folder.has_value()) {
        if (!active_) return;
        char buffer[4096];
        had_ = QRVGetInstallFolderPath(nullptr, buffer, sizeof buffer);
        if (had_) previous_ = buffer;
        QRVSetInstallFolderPath(folder->c_str());
    }
    ~InstallFolderSetting() {
        if (active_) QRVSetInstallFolderPath(had_ ? previous_.c_str() : nullptr);
    }
    InstallFolderSetting(const InstallFolderSetting&) = delete;
    InstallFolderSetting& operator=(const InstallFolderSetting&) = delete;

private:
    bool active_;
    bool had_ = false;
    std::string previous_;
};

// The report is a call of MATIO_Manipulator, which holds only what it loaded itself: the material
// goes to a file of a private folder and the manipulator loads it from there.
std::string report(const Material& material, const std::string& module,
                   const std::optional<std::string>& materialFile, std::optional<int> system,
                   const std::optional<std::string>& installFolder) {
    TemporaryFolder folder;
    const bool thermoset = QrvIsRIM(material.record());
    const std::string path = (folder.path() / (thermoset ? "report.mtx" : "report.mtr")).string();
    save(material, path);
    MATIO_Manipulator manipulator;
    if (!manipulator.GetMaterial(path.c_str()))
        failValue(material.origin() + ": the material does not load back for its report");
    UnitSystemSetting systemSetting(system);
    InstallFolderSetting folderSetting(installFolder);
    QRVFrmOut_StringStream stream;
    const std::string shownFile = materialFile ? *materialFile : material.origin();
    if (!manipulator.GetLogString(module.c_str(), shownFile.c_str(), stream))
        failValue(material.origin() + ": the report could not be printed");
    return stream.str();
}

std::string content(const Material& material, std::optional<bool> thermoset) {
    QrvMaterial* record = material.record();
    const char* dump = QrvGetContent(record, thermoset ? *thermoset : QrvIsRIM(record));
    if (!dump)
        failValue(material.origin() +
                  ": the content text cannot be formed (a line over 255 characters, a text over "
                  "3071, or a block with values missing)");
    return dump;
}

// The text fields, as properties that read and write the record.
struct TextField {
    const char* name;
    char* QrvMaterial::*field;
    const char* doc;
};

constexpr TextField kTexts[] = {
    {"polymer", &QrvMaterial::Polymer, "Polymer family name (str, None when the record has none)."},
    {"producer", &QrvMaterial::Producer, "Producer name (str or None)."},
    {"grade_name", &QrvMaterial::GradeName, "Trade name of the grade (str or None)."},
    {"comment", &QrvMaterial::Comment, "Free comment text (str or None)."},
    {"source", &QrvMaterial::Source, "Source text of the data (str or None)."},
};

struct IntField {
    const char* name;
    int QrvMaterial::*field;
    const char* doc;
};

constexpr IntField kInts[] = {
    {"file_type", &QrvMaterial::FileType,
     "FileType code: 1 thermoplastic, 2 thermoset, 3 metal, 4 coolant, 6 chip, 7 lead frame, 8 "
     "substrate, 9 wire, 10 fluid."},
    {"version", &QrvMaterial::FileVer, "Body version of the material (FileVer)."},
    {"last_edit_date", &QrvMaterial::LastEditDate, "Last edit date as yyyymmdd (int)."},
    {"measure_date", &QrvMaterial::MeasureDate, "Measurement date as yyyymmdd (int)."},
};

}  // namespace

py::class_<Material> bindMaterial(py::module_& module) {
    py::class_<Material> material(module, "Material", R"(A material record of the library.

Made by Material.load (a material file), Material.generate (a default material of chosen
models), by taking an entry out of a Bank or a run file. The record belongs to the library and
is released when the object goes. Values are in the library's base units: degree C, g/(cm.sec),
dyne/cm^2, cc/g, g/cc, erg/(g.oC), erg/(sec.cm.oC).)");

    material.def_static("load", &load, py::arg("path"),
                        R"(Loads the material file at path (".mtr", ".mtx"; the old ".mat" and
".emc" are read from the name ending in "mtr" or "mtx").

Raises FileNotFoundError when the file does not exist, ValueError when the name is shorter
than 5 characters, the file is empty or is not a material file the library reads.)");
    material.def_static("generate", &generate, py::arg("vis") = 4, py::arg("pvt") = 5,
                        py::arg("crystalline") = false, py::arg("cp") = 3, py::arg("k") = 2,
                        py::arg("filler") = 1,
                        R"(A default material for the given model ids, filled with sample data.

vis of 10 or above makes a thermoset (its FileType stays 1, as the library generates it); an
id without sample data leaves its block empty.)");
    material.def("save", &save, py::arg("path"),
                 R"(Saves the material as a current-form file; a name ending in "mtx" is saved
in the thermoset form. An existing file at path is replaced.

Raises ValueError when the name is shorter than 5 characters or the material cannot be
written (a missing text, a block whose values are missing), OSError when the file cannot be
opened for writing.)");

    material.def_property_readonly("origin", &Material::origin,
                                   "Where the material came from: its file, bank entry or "
                                   "'generated'.");
    for (const TextField& field : kTexts) {
        char* QrvMaterial::*member = field.field;
        material.def_property(
            field.name, [member](const Material& self) { return text(self.record()->*member); },
            [member](Material& self, std::optional<py::str> value) {
                setText(*self.record(), member, value);
            },
            field.doc);
    }
    for (const IntField& field : kInts) {
        int QrvMaterial::*member = field.field;
        material.def_property(
            field.name, [member](const Material& self) { return self.record()->*member; },
            [member](Material& self, int value) { self.record()->*member = value; }, field.doc);
    }
    material.def_property_readonly(
        "type", [](const Material& self) { return copied(QrvGetMaterialType(self.record())); },
        R"(The type text by FileType: "Thermoplastic", "Thermosetting plastic", "Metal",
"Coolant", "Chip", "Lead Frame", "Substrate", "Wire", "Fluid", else "Unknown Type".)");
    material.def_property_readonly(
        "mfi", [](const Material& self) { return copied(QrvGetMFIString(self.record())); },
        R"(The melt-flow text of the comment, from "MFI" to "/10min", else "Unavailable".)");
    material.def("content", &content, py::arg("thermoset") = py::none(),
                 R"(The plain dump of the header, texts and main blocks.

thermoset picks the thermoset dump (KN instead of Mech and Temp); None follows the FileType.
Raises ValueError when the dump cannot be formed whole.)");
    material.def("report", &report, py::arg("module") = "Filling",
                 py::arg("material_file") = py::none(), py::arg("unit_system") = py::none(),
                 py::arg("install_folder") = py::none(),
                 R"(The material report for an analysis module ("Filling", "Packing",
"Cooling", "Warpage", "RIMFilling", ... ; an unknown module prints the root line alone).

material_file is the file name the report shows (the origin by default). unit_system (0 base,
1 SI, 2 English) and install_folder (below which Bank/System/StatData.sta holds the statistics
of the data check) replace the installation's settings for this call only; None keeps them.
The report is made of what a material file of the material's version keeps: the material is
saved to a private temporary file and loaded back first. Raises ValueError when the material
cannot be saved.)");
    material.def("__repr__", [](const Material& self) {
        const QrvMaterial* record = self.record();
        auto shown = [](const char* value) { return value ? std::string(value) : "None"; };
        return "<quorvalib.Material " + copied(QrvGetMaterialType(self.record())) + " '" +
               shown(record->Polymer) + "' '" + shown(record->GradeName) + "' from " +
               self.origin() + ">";
    });
    return material;
}

}  // namespace qrvpy
