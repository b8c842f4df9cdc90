// Saves a generated material to a file in the temporary folder (or at the path given), loads it
// back and prints what the file gave: the header fields, the viscosity block and a row of
// viscosities beside those of the material that was saved.
#include <quorvalib/quorvalib.h>

#include <cstdint>
#include <cstdio>
#include <filesystem>
#include <memory>
#include <string>
#include <system_error>

namespace {

using MaterialPtr = std::unique_ptr<QrvMaterial, void (*)(QrvMaterial*)>;

constexpr double kShearRates[] = {1.0, 10.0, 100.0, 1000.0, 10000.0, 100000.0};
constexpr double kTemperature = 230.0;

void printRow(const char* label, QrvMaterial* material) {
    std::printf("%-10s", label);
    for (double rate : kShearRates)
        // The library works in g/(cm.s); 1 Pa.s is 10 g/(cm.s).
        std::printf("%12.4g", QrvGetViscosity(material, rate, kTemperature, 0.0, 0.0) / 10.0);
    std::printf("\n");
}

}  // namespace

// With a path argument the file is written there and kept, for the Python example that follows.
int main(int argc, char** argv) {
    MaterialPtr generated(QrvGetDefaultMaterial(3, 2, true, 2, 1, 5), QrvReleaseMaterial);
    if (!generated) {
        std::fprintf(stderr, "no default material\n");
        return 1;
    }
    const bool keep = argc > 1;
    const std::string path =
        keep ? argv[1]
             : (std::filesystem::temp_directory_path() / "quorvalib_demo_material.mtr").string();
    const int saved = QrvSaveMaterial(path.c_str(), generated.get());
    std::error_code ignored;
    const std::uintmax_t size = std::filesystem::file_size(path, ignored);
    std::printf("QrvSaveMaterial(\"%s\") = %d, %ju bytes\n", path.c_str(), saved,
                saved == 1 ? size : std::uintmax_t{0});

    MaterialPtr loaded(QrvGetMaterial(path.c_str()), QrvReleaseMaterial);
    if (!keep) std::filesystem::remove(path, ignored);
    if (saved != 1 || !loaded) {
        std::fprintf(stderr, "the material did not come back\n");
        return 1;
    }

    QrvMaterial* m = loaded.get();
    std::printf("type        %s (FileType %d), body version %d\n", QrvGetMaterialType(m),
                QrvGetFileType(m), QrvGetFileVer(m));
    std::printf("polymer     %s\nproducer    %s\ngrade       %s\ncomment     %s\n",
                QrvGetPolymer(m), QrvGetProducer(m), QrvGetGradeName(m), QrvGetComment(m));
    std::printf("measured    %d, last edit %d (a material file keeps no edit date)\n",
                QrvGetMeasureDate(m), QrvGetLastEditDate(m));
    std::printf("viscosity   model %d, %d parameters:", m->Vis.Model, m->Vis.Count);
    for (int i = 0; i < m->Vis.Count; ++i)
        std::printf(" %g", m->Vis.Para[i]);
    std::printf("\n\nviscosity in Pa.s at %.0f C\n%-10s", kTemperature, "rate 1/s");
    for (double rate : kShearRates)
        std::printf("%12.0e", rate);
    std::printf("\n");
    printRow("saved", generated.get());
    printRow("loaded", m);
    return 0;
}
