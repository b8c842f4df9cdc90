// Any bytes as a bank: every entry taken out into a record and into a file, the metal list read
// from it as system and as user bank, and one material appended behind it. Taking out and
// listing never change the bank's bytes; the append keeps them as its first bytes.
#include <unistd.h>

#include <cstdint>
#include <cstdio>
#include <cstdlib>
#include <filesystem>
#include <fstream>
#include <iterator>
#include <string>

#include <quorvalib/bank.h>
#include <quorvalib/files.h>

#include "record/material_internal.h"

namespace {

const std::string& root() {
    static const std::string path = [] {
        char name[] = "/tmp/qrv_bank_fuzz_XXXXXX";
        const std::string made = mkdtemp(name);
        std::filesystem::create_directories(made + "/Bank/System");
        std::filesystem::create_directories(made + "/Quorvane R13.0/Material/UserBank");
        return made;
    }();
    return path;
}

void write(const std::string& path, const std::uint8_t* data, std::size_t size) {
    std::FILE* file = std::fopen(path.c_str(), "wb");
    if (!file) return;
    std::fwrite(data, 1, size, file);
    std::fclose(file);
}

std::string bytesOf(const std::string& path) {
    std::ifstream in(path, std::ios::binary);
    return std::string(std::istreambuf_iterator<char>(in), std::istreambuf_iterator<char>());
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    const std::string bank = root() + "/Bank/System/Metal.qbk";
    const std::string user = root() + "/Quorvane R13.0/Material/UserBank/user.qbk";
    const std::string out = root() + "/out.mtr";
    write(bank, data, size);
    write(user, data, size);
    const std::string input(reinterpret_cast<const char*>(data), size);

    MATIO_BankManipulator banks;
    for (int index : {-1, 0, 1, 2, 3}) {
        QrvMaterial record;
        banks.ExtractPlasticMaterialFromBank(bank.c_str(), index, record);
        banks.ExportPlasticMaterialFromBank(bank.c_str(), index, out.c_str());
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
