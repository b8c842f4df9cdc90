// Any bytes as a bank: every entry taken out into a record and into a file, the metal list read
// from it as system and as user bank, and one material appended behind it. Taking out and
// listing never change the bank's bytes; the append keeps them as its first bytes. The record
// taken out must come back equal from a file it is saved to, and the file an entry is exported
// to must load as the record taken out, but for what the export documents as its own.
#include <cstdint>
#include <cstdio>
#include <cstdlib>
#include <filesystem>
#include <fstream>
#include <iterator>
#include <string>

#include <quorvalib/bank.h>
#include <quorvalib/files.h>

#include "fuzz_files.h"
#include "record/material_internal.h"
#include "record_compare.h"

namespace {

const std::string& root() {
    static const std::string path = [] {
        const std::string made = qrvfuzz::folder() + "banks";
        std::filesystem::create_directories(made + "/Bank/System");
        std::filesystem::create_directories(made + "/Quorvane R13.0/Material/UserBank");
        return made;
    }();
    return path;
}

std::string bytesOf(const std::string& path) {
    std::ifstream in(path, std::ios::binary);
    return std::string(std::istreambuf_iterator<char>(in), std::istreambuf_iterator<char>());
}

// The entry at index taken out, saved, exported and loaded back; a bank of fewer entries ends
// the walk (false).
bool entryRoundTrip(MATIO_BankManipulator& banks, const std::string& bank, int index) {
    const std::string saved = root() + "/saved.mtr";
    const std::string exported = root() + "/exported.mtr";
    // The constructor leaves the type, version and dates undefined, and a thermoset or
    // non-polymer entry keeps them as they came in: they start at 0 here.
    auto* taken = new QrvMaterial;
    taken->FileType = taken->FileVer = taken->LastEditDate = taken->MeasureDate = 0;
    const int kind = banks.ExtractPlasticMaterialFromBank(bank.c_str(), index, *taken);
    if (kind == 1 || kind == -3) {
        const bool thermoset = taken->FileType == QRV_TYPE_THERMOSET;
        auto load = thermoset ? QrvGetMaterialRIM : QrvGetMaterial;
        // A material file keeps one date, the measuring date, and no Source text: LastEditDate
        // loads as 0 and Source as null.
        qrvfuzz::Compared inFile;
        inFile.LastEditDate = false;
        inFile.SourceText = false;
        // A non-polymer entry comes out with its texts, Cp, K and Mech; its file rebuilds PVT
        // from the comment and EM, PR and CLTE from Mech. A thermoset entry keeps FileVer as it
        // came in, 0, so its file leaves out the blocks of later body versions (Mech, Temp, SI,
        // PW).
        inFile.CommonOnly = kind == -3;
        inFile.EmptyLateBlocksZeroed = true;
        inFile.KeywordTypes = !thermoset;
        // Taking out keeps measured data without curves, which a file load drops.
        inFile.NoCurvesIsNone = true;
        // Taking out copies VE and OP whatever the body version; a material file has VE only at
        // 9005 and from 9007, and OP from 9008.
        const int version = taken->FileVer;
        if (version != 9005 && version < 9007) inFile.Skipped.push_back(&QrvMaterial::VE);
        if (version < 9008) inFile.Skipped.push_back(&QrvMaterial::OP);
        qrvfuzz::trip() = "of an entry taken out and saved";
        if ((thermoset ? QrvSaveMaterialRIM : QrvSaveMaterial)(saved.c_str(), taken) == 1) {
            QrvMaterial* again = load(saved.c_str());
            if (!again) qrvfuzz::differs("load", "a saved entry does not load");
            qrvfuzz::compareRecords(*taken, *again, inFile);
            QrvReleaseMaterial(again);
        }
        if (banks.ExportPlasticMaterialFromBank(bank.c_str(), index, exported.c_str()) == kind) {
            QrvMaterial* file = load(exported.c_str());
            if (!file) qrvfuzz::differs("load", "an exported entry does not load");
            qrvfuzz::trip() = "of an exported entry";
            qrvfuzz::Compared parts = inFile;
            // The export gives every class FileVer and both dates, and a non-polymer of an
            // unknown first text FileType 1; taking out keeps them as they came in for all
            // but a thermoplastic.
            parts.Header = kind == 1;
            // The export leaves EM, PR and CLTE empty where taking out rebuilds them from Mech.
            parts.UnstoredBlocks = false;
            qrvfuzz::compareRecords(*taken, *file, parts);
            QrvReleaseMaterial(file);
        }
    }
    QrvReleaseMaterial(taken);
    return kind != -2;
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    qrvfuzz::useSystemLocale();
    const std::string bank = root() + "/Bank/System/Metal.qbk";
    const std::string user = root() + "/Quorvane R13.0/Material/UserBank/user.qbk";
    qrvfuzz::write(bank, data, size);
    qrvfuzz::write(user, data, size);
    const std::string input(reinterpret_cast<const char*>(data), size);

    MATIO_BankManipulator banks;
    entryRoundTrip(banks, bank, -1);
    for (int index = 0; index < 16 && entryRoundTrip(banks, bank, index); ++index) {
    }
    MATIO_QrvNonPolyMat metals;
    metals.GetMetalMatBank(root().c_str(), root().c_str(), false);
    for (int i = 0; i < metals.GetMatBankCount(); ++i)
        metals.GetDensity(i);
    if (bytesOf(bank) != input) std::abort();  // reading never writes

    QrvMaterial* material = new QrvMaterial;
    QrvInitMaterial(material);
    material->Polymer = qrv::newText("Metal");
    material->Producer = qrv::newText("P");
    material->GradeName = qrv::newText("G");
    material->Comment = qrv::newText("D=1 g/cc");
    banks.AddMaterialsToBank(bank.c_str(), material, 1);
    QrvReleaseMaterial(material);
    if (bytesOf(bank).compare(0, size, input) != 0) std::abort();  // only ever appended to
    return 0;
}
