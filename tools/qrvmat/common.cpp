#include "common.h"

#include <filesystem>
#include <map>
#include <system_error>

namespace qrvmat {

void requireFile(const std::string& path) {
    std::error_code error;
    if (std::filesystem::is_directory(path, error)) throw Failure(path, "is a folder, not a file");
    if (!std::filesystem::exists(path, error)) throw Failure(path, "no such file");
}

MaterialPtr loadMaterial(const std::string& path) {
    requireFile(path);
    MaterialPtr material(QrvIsRIM(path.c_str()) ? QrvGetMaterialRIM(path.c_str())
                                                : QrvGetMaterial(path.c_str()));
    if (!material) {
        throw Failure(path,
                      "not a readable material file (too short, damaged, or of an unknown "
                      "object class)");
    }
    return material;
}

void saveMaterial(const std::string& path, QrvMaterial* material) {
    const int result = QrvIsRIM(path.c_str()) ? QrvSaveMaterialRIM(path.c_str(), material)
                                              : QrvSaveMaterial(path.c_str(), material);
    switch (result) {
        case 1:
            return;
        case 0:
            throw Failure(path, "cannot be opened for writing");
        case -3:
            throw Failure(path, "the name is too short for a material file (5 characters or more)");
        default:
            throw Failure(path,
                          "the material cannot be written (a missing text or parameter array)");
    }
}

void addUnitsOption(CLI::App& command, int& unitSystem) {
    const std::map<std::string, int> systems{{"base", 0}, {"si", 1}, {"english", 2}};
    command
        .add_option("--units", unitSystem,
                    "Unit system of the values shown (default: the "
                    "installation's QUORVANE_UNIT_SYSTEM, else base)")
        ->transform(CLI::CheckedTransformer(systems, CLI::ignore_case));
}

int installedUnitSystem() {
    int system = 0;
    return QRVGetReleaseVersionUnit(system) ? system : 0;
}

std::string textOf(const char* value) {
    return value ? value : "";
}

Table entryTable() {
    return {{"index", "type", "polymer", "producer", "grade"}, {}};
}

void addEntry(Table& table, int index, QrvMaterial* material) {
    table.rows.push_back({index, textOf(QrvGetMaterialType(material)), textOf(material->Polymer),
                          textOf(material->Producer), textOf(material->GradeName)});
}

}  // namespace qrvmat
