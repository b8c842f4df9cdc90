// Writes two generated materials (a thermoplastic and a thermoset) into a new run file, reads
// them back and prints what came back. The file's path is given as the only argument, so that a
// script can show it with any HDF5 tool afterwards.
#include <quorvalib/quorvalib.h>

#include <cstdio>
#include <filesystem>
#include <memory>
#include <system_error>

namespace {

using MaterialPtr = std::unique_ptr<QrvMaterial, void (*)(QrvMaterial*)>;

constexpr int kRun1Plastic = 65536 + 4096;  // run 1, the plastic item

}  // namespace

int main(int argc, char** argv) {
    if (argc != 2) {
        std::fprintf(stderr, "usage: run_file <new run file>\n");
        return 2;
    }
    std::error_code ignored;
    std::filesystem::remove(argv[1], ignored);

    MaterialPtr plastic(QrvGetDefaultMaterial(4, 5, false, 3, 2, 1), QrvReleaseMaterial);
    MaterialPtr thermoset(QrvGetDefaultMaterial(12, 0, false, 0, 0, 0), QrvReleaseMaterial);
    if (!plastic || !thermoset) return 1;
    thermoset->FileType = QRV_TYPE_THERMOSET;

    MATIO_RSVManipulator run(argv[1]);
    if (!run.AddMaterial(plastic.get(), "Cavity", kRun1Plastic) ||
        !run.AddMaterial(thermoset.get(), "Encapsulant", kRun1Plastic)) {
        std::fprintf(stderr, "run_file: cannot write %s\n", argv[1]);
        return 1;
    }
    std::printf("run file %s holds %d materials in run 1\n", argv[1], run.GetMaterialCount());
    for (int i = 0; i < run.GetMaterialCount(); ++i) {
        QrvMaterial* back = run.GetMaterial(i);  // kept by the manipulator
        std::printf(
            "  Material %d: %-22s Vis model %2d with %d parameters, viscosity %.4g Pa.s"
            " at 1000 1/s and 230 C\n",
            i + 1, QrvGetMaterialType(back), back->Vis.Model, back->Vis.Count,
            QrvGetViscosity(back, 1000.0, 230.0, 0.0, 0.0) / 10.0);
        if (i + 1 < run.GetMaterialCount()) QrvReleaseMaterial(back);
    }
    return 0;
}
