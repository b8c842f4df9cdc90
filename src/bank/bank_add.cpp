// Adding materials to a bank: a new bank is the lead word alone, and each material becomes one
// frame appended behind the last.
#include <quorvalib/bank.h>
#include <quorvalib/files.h>
#include <quorvalib/measured.h>

#include <cstdint>
#include <fstream>
#include <iterator>
#include <locale>
#include <memory>
#include <new>
#include <stdexcept>
#include <string>

#include "bank/bank_file.h"
#include "files/file_names.h"
#include "formats/bank_stream.h"
#include "formats/binary_stream.h"
#include "formats/mat_factory.h"
#include "measured/mtc_list.h"

namespace {

constexpr int kBankSource = 1000;  // every block in a bank carries this source

enum class When { NotNonPolymer, Always, ModelSet, Rim, RimAndModelSet };

struct BankBlock {
    QrvMatParam QrvMaterial::*block;
    int tag;
    When when;
};

// The blocks an entry is given, in order; the object keeps the tags that its class carries.
constexpr BankBlock kBlocks[] = {
    {&QrvMaterial::Vis, QRV_TAG_VIS, When::NotNonPolymer},
    {&QrvMaterial::PVT, QRV_TAG_PVT, When::NotNonPolymer},
    {&QrvMaterial::Temp, QRV_TAG_TEMP, When::NotNonPolymer},
    {&QrvMaterial::Cp, QRV_TAG_CP, When::Always},
    {&QrvMaterial::K, QRV_TAG_K, When::Always},
    {&QrvMaterial::Mech, QRV_TAG_MECH, When::Always},
    {&QrvMaterial::VE, QRV_TAG_VE, When::ModelSet},
    {&QrvMaterial::OP, QRV_TAG_OP, When::ModelSet},
    {&QrvMaterial::KN, QRV_TAG_KN, When::Rim},
    {&QrvMaterial::SI, QRV_TAG_SI, When::RimAndModelSet},
    {&QrvMaterial::CR, QRV_TAG_CR, When::ModelSet},
    {&QrvMaterial::PW, QRV_TAG_PW, When::ModelSet},
};

bool given(When when, const QrvMatParam& block, bool nonPolymer, bool rim) {
    switch (when) {
        case When::NotNonPolymer:
            return !nonPolymer;
        case When::Always:
            return true;
        case When::ModelSet:
            return block.Model != 0;
        case When::Rim:
            return rim;
        case When::RimAndModelSet:
            return rim && block.Model != 0;
    }
    return false;
}

// The object class of an entry: by FileType, and for a type below 1 by whether Vis holds values.
int bankObjType(const QrvMaterial& material) {
    if (material.FileType >= QRV_TYPE_METAL) return 2;
    if (material.FileType == QRV_TYPE_THERMOPLASTIC) return 0;
    if (material.FileType == QRV_TYPE_THERMOSET) return 1;
    return material.Vis.Count < 1 ? 2 : 0;
}

// The entry of a record, ready to append; null when the record cannot be written (a null header
// text, or a kept block whose count and values do not go together).
std::unique_ptr<CQrvMatBase> entryFor(const QrvMaterial& material, bool rim) {
    for (auto text : {material.Polymer, material.Producer, material.GradeName, material.Comment})
        if (!text) return nullptr;
    std::unique_ptr<CQrvMatBase> object = qrv::newObjectOfType(bankObjType(material), nullptr);
    const bool nonPolymer = object->GetObjType() == 2;
    std::string polymer = material.Polymer, producer = material.Producer,
                grade = material.GradeName, comment = material.Comment;
    object->SetPolymer(polymer);
    object->SetProducer(producer);
    object->SetGradeName(grade);
    object->SetComment(comment);
    object->SetBodyVer(material.FileVer);
    object->SetDateWord(material.LastEditDate);  // a bank keeps the edit date, not the measuring
    try {
        for (const BankBlock& step : kBlocks) {
            const QrvMatParam& block = material.*step.block;
            if (!given(step.when, block, nonPolymer, rim)) continue;
            object->SetParam(step.tag, kBankSource, block.Model, block.Count, block.Para);
        }
    } catch (const std::invalid_argument&) {
        return nullptr;  // a count above 0 with no values
    } catch (const std::bad_array_new_length&) {
        return nullptr;  // a negative count
    }
    if (material.VisRaw) object->SetVisRaw(material.VisRaw);
    if (material.PVTRaw) object->SetPVTRaw(material.PVTRaw);
    if (material.MTC) object->SetMTC(material.MTC);
    return object;
}

// Writes the lead word alone as a new bank, under the user's default locale (the one named by
// the environment), which is what the bank tools have always used for this step.
void createBank(const char* path) {
    std::locale saved;
    try {
        saved = std::locale::global(std::locale(""));
    } catch (const std::runtime_error&) {
        // The environment names a locale the system lacks: make the file under the present one.
    }
    {
        std::ofstream out(path, std::ios::out | std::ios::binary | std::ios::trunc);
        CQrvMemoryStream word;
        word.WriteInt(qrv::bank::kLeadWord);
        const std::string bytes = word.Bytes();
        out.write(bytes.data(), static_cast<std::streamsize>(bytes.size()));
    }
    std::locale::global(saved);
}

// Steps shared by both overloads: make the bank if need be and open it for appending.
bool openForAppend(const char* path, CQrvBankStream& bank) {
    if (!path) return false;
    if (!QrvFileExists(path, false) || qrv::bank::isEmptyFile(path)) createBank(path);
    if (qrv::bank::tooShortForBank(path)) return false;
    bank.SetFile(path, true);
    return bank.Open();
}

// Appends the record's entry; false when the record cannot be written or the write failed (the
// bank then holds what it held before).
bool append(CQrvBankStream& bank, const QrvMaterial& material, bool rim) {
    std::unique_ptr<CQrvMatBase> entry = entryFor(material, rim);
    if (!entry) return false;
    return bank.AppendMaterial(entry.get());
}

}  // namespace

MATIO_BankManipulator::MATIO_BankManipulator() = default;
MATIO_BankManipulator::~MATIO_BankManipulator() = default;

int MATIO_BankManipulator::AddMaterialsToBank(const char* bank, QrvMaterial* materials, int count) {
    if (count < 1) return 0;
    CQrvBankStream stream;
    if (!openForAppend(bank, stream)) return -1;
    if (!materials) return 1;
    bool allAdded = true;
    for (int i = 0; i < count; ++i) {
        const QrvMaterial& material = materials[i];
        if (!append(stream, material, material.FileType == QRV_TYPE_THERMOSET)) allAdded = false;
    }
    return allAdded ? 0 : 1;
}

int MATIO_BankManipulator::AddMaterialsToBank(const char* bank, char** names, int count) {
    if (count < 1) return 0;
    CQrvBankStream stream;
    if (!openForAppend(bank, stream)) return -1;
    if (!names) return 1;
    bool allAdded = true;
    for (int i = 0; i < count; ++i) {
        const char* name = names[i];
        if (!name) {
            allAdded = false;
            continue;
        }
        const bool rim = QrvIsRIM(name);
        std::unique_ptr<QrvMaterial, void (*)(QrvMaterial*)> material(
            rim ? QrvGetMaterialRIM(name) : QrvGetMaterial(name), QrvReleaseMaterial);
        if (!material || !append(stream, *material, rim)) allAdded = false;
    }
    return allAdded ? 0 : 1;
}
