// Builds a small bank in the temporary folder from generated materials, lists its entries and
// takes one of them out again.
#include <quorvalib/quorvalib.h>

#include <cstdint>
#include <cstdio>
#include <filesystem>
#include <memory>
#include <string>

namespace {

using MaterialPtr = std::unique_ptr<QrvMaterial, void (*)(QrvMaterial*)>;

struct Generated {
    int visId, pvtId;
    bool crystalline;
    int cpId, kId, fillerId;
};

constexpr Generated kMaterials[] = {
    {2, 5, true, 2, 2, 1}, {3, 2, true, 2, 1, 5}, {4, 5, false, 3, 2, 3}, {11, 0, false, 0, 0, 0}};

const char* kindOf(int code) {
    switch (code) {
        case 1:
            return "thermoplastic";
        case -3:
            return "thermoset or non-polymer";
        default:
            return "?";
    }
}

}  // namespace

int main() {
    const std::string bank =
        (std::filesystem::temp_directory_path() / "quorvalib_demo_bank.qbk").string();
    std::filesystem::remove(bank);
    MATIO_BankManipulator banks;

    std::printf("Bank %s\n\nAdding generated materials:\n", bank.c_str());
    for (const Generated& g : kMaterials) {
        MaterialPtr material(
            QrvGetDefaultMaterial(g.visId, g.pvtId, g.crystalline, g.cpId, g.kId, g.fillerId),
            QrvReleaseMaterial);
        if (!material) continue;
        // Generated thermosets come as FileType 1; a bank files them by their type.
        if (g.visId >= 10) material->FileType = QRV_TYPE_THERMOSET;
        const int added = banks.AddMaterialsToBank(bank.c_str(), material.get(), 1);
        std::printf("  %-9s %-40s -> %d\n", material->Polymer, material->Comment, added);
    }

    // A bank has no directory: its entries are found by position until the index runs out.
    std::printf("\nEntries:\n  %-5s %-26s %-10s %-10s %s\n", "index", "kind", "polymer", "grade",
                "comment");
    int count = 0;
    for (;; ++count) {
        QrvMaterial entry;
        const int code = banks.ExtractPlasticMaterialFromBank(bank.c_str(), count, entry);
        if (code == -2) break;
        std::printf("  %-5d %-26s %-10s %-10s %s\n", count, kindOf(code), entry.Polymer,
                    entry.GradeName, entry.Comment);
    }
    std::printf("  %d entries, %ju bytes\n", count,
                static_cast<std::uintmax_t>(std::filesystem::file_size(bank)));

    QrvMaterial second;
    const int code = banks.ExtractPlasticMaterialFromBank(bank.c_str(), 1, second);
    std::printf(
        "\nEntry 1 taken out (result %d): %s, body version %d, Vis model %d with %d "
        "values,\n  viscosity at 1000 1/s and 230 C: %.4g Pa.s\n",
        code, QrvGetMaterialType(&second), second.FileVer, second.Vis.Model, second.Vis.Count,
        QrvGetViscosity(&second, 1000.0, 230.0, 0.0, 0.0) / 10.0);
    std::filesystem::remove(bank);
    return code == 1 ? 0 : 1;
}
