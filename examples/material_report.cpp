// Prints the material report of a generated thermoplastic of the class "PLA", judged against a
// statistics file, once in the base units and once in SI units.
//
//   material_report <install folder>
//
// The install folder holds Bank/System/StatData.sta. The generated material is saved to the
// temporary folder and loaded into a MATIO_Manipulator, as a caller would hold a material file.
#include <quorvalib/quorvalib.h>

#include <cstdio>
#include <cstring>
#include <filesystem>
#include <memory>
#include <string>

namespace {

using MaterialPtr = std::unique_ptr<QrvMaterial, void (*)(QrvMaterial*)>;

void setPolymer(QrvMaterial& material, const char* name) {
    delete[] material.Polymer;
    material.Polymer = new char[std::strlen(name) + 1];
    std::strcpy(material.Polymer, name);
}

}  // namespace

int main(int argc, char** argv) {
    if (argc != 2) {
        std::fprintf(stderr, "usage: material_report <install folder>\n");
        return 2;
    }
    QRVSetInstallFolderPath(argv[1]);

    MaterialPtr generated(QrvGetDefaultMaterial(5, 5, true, 3, 2, 0), QrvReleaseMaterial);
    if (!generated) return 1;
    setPolymer(*generated, "PLA");
    const std::string name = "quorvalib_demo_pla.mtr";
    const std::string path = (std::filesystem::temp_directory_path() / name).string();
    if (QrvSaveMaterial(path.c_str(), generated.get()) != 1) {
        std::fprintf(stderr, "cannot write %s\n", path.c_str());
        return 1;
    }
    MATIO_Manipulator manipulator;
    const bool loaded = manipulator.GetMaterial(path.c_str());
    std::filesystem::remove(path);
    if (!loaded) return 1;

    const struct {
        int system;
        const char* title;
    } systems[] = {{0, "base units"}, {1, "SI units"}};
    for (const auto& units : systems) {
        QRVSetReleaseVersionUnit(units.system);
        QRVFrmOut_StringStream report;
        if (!manipulator.GetLogString("Filling", name.c_str(), report)) return 1;
        std::printf("== Material report for the filling analysis, %s\n%s\n", units.title,
                    report.str().c_str());
    }
    return 0;
}
