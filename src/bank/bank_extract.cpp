// Taking one entry out of a bank: into the caller's record (extraction) or into a material file
// of its own (export). Both walk the entry alike; the differences are the few points that
// Fill::Export switches.
#include <quorvalib/bank.h>
#include <quorvalib/files.h>
#include <quorvalib/measured.h>

#include <memory>
#include <string>

#include "bank/bank_file.h"
#include "formats/bank_stream.h"
#include "measured/mtc_list.h"
#include "record/material_internal.h"

namespace {

enum class Fill { Extract, Export };

// Result codes of both calls.
constexpr int kPlastic = 1;
constexpr int kNoBank = -1;
constexpr int kNoEntry = -2;
constexpr int kNotPlastic = -3;
constexpr int kSaveFailed = -4;

// The material's kind of a non-polymer entry, named by its first text.
struct KindName {
    const char* text;
    int fileType;
};
constexpr KindName kKinds[] = {
    {"Metal", QRV_TYPE_METAL},
    {"Coolant", QRV_TYPE_COOLANT},
    {"Lead Frame", QRV_TYPE_IC_LEADFRAME},
    {"Chip", QRV_TYPE_IC_CHIP},
    {"Wire", QRV_TYPE_IC_WIRE},
    {"Substrate", QRV_TYPE_IC_SUBSTRATE},
};

void copyBlock(QrvMatParam& block, CQrvMatBase& entry, int tag) {
    int source = 0, model = 0, count = 0;
    entry.GetParamInfo(tag, &source, &model, &count);
    block.Source = source;
    block.Model = model;
    block.Count = count;
    // A count of 0 gets an array of length 0, not a null one.
    block.Para = new double[count > 0 ? count : 0];
    for (int i = 0; i < count; ++i)
        block.Para[i] = entry.GetParamValue(tag, i);
}

struct TaggedBlock {
    QrvMatParam QrvMaterial::*block;
    int tag;
};

template <std::size_t N>
void copyBlocks(QrvMaterial& material, CQrvMatBase& entry, const TaggedBlock (&blocks)[N]) {
    for (const TaggedBlock& b : blocks)
        copyBlock(material.*b.block, entry, b.tag);
}

// The five header texts: the record's texts and the header's stand in the same order.
void copyTexts(QrvMaterial& material, const CQrvMatBase& entry) {
    for (int i = 0; i < CQrvMatHeader::TextFieldCount; ++i)
        material.*qrv::kTexts[i] = qrv::newText(entry.GetHeader().Texts[i].c_str());
}

// An entry keeps one date; both record dates get it.
void copyVersionAndDates(QrvMaterial& material, const CQrvMatBase& entry) {
    material.FileVer = entry.GetBodyVer();
    material.LastEditDate = entry.GetDateWord();
    material.MeasureDate = entry.GetDateWord();
}

void fillThermoplastic(QrvMaterial& material, CQrvMatBase& entry, Fill fill) {
    material.FileType = QRV_TYPE_THERMOPLASTIC;
    copyVersionAndDates(material, entry);
    copyTexts(material, entry);
    copyBlocks(material, entry,
               {{&QrvMaterial::Vis, QRV_TAG_VIS},
                {&QrvMaterial::PVT, QRV_TAG_PVT},
                {&QrvMaterial::Cp, QRV_TAG_CP},
                {&QrvMaterial::K, QRV_TAG_K},
                {&QrvMaterial::Mech, QRV_TAG_MECH}});
    if (fill == Fill::Extract) QrvBuildMechBlocks(&material);
    copyBlocks(material, entry,
               {{&QrvMaterial::Temp, QRV_TAG_TEMP},
                {&QrvMaterial::VE, QRV_TAG_VE},
                {&QrvMaterial::OP, QRV_TAG_OP}});
    const std::int32_t version = entry.GetBodyVer();
    if (version >= 9009) {
        material.VisRaw = new CQrvViscosityData(nullptr);
        material.PVTRaw = new CQrvPVTData(nullptr);
        entry.GetVisRaw(&material.VisRaw);
        entry.GetPVTRaw(&material.PVTRaw);
    }
    if (version >= 9010) {
        material.MTC = new CQrvMTCList(nullptr);
        entry.GetMTC(material.MTC);
    }
    // An export takes CR and PW whatever the version: an older entry gives its empty blocks.
    if (fill == Fill::Export || version >= 9011) copyBlock(material.CR, entry, QRV_TAG_CR);
    if (fill == Fill::Export || version >= 9012) copyBlock(material.PW, entry, QRV_TAG_PW);
}

void fillThermoset(QrvMaterial& material, CQrvMatBase& entry, Fill fill) {
    material.FileType = QRV_TYPE_THERMOSET;
    if (fill == Fill::Export) copyVersionAndDates(material, entry);
    copyTexts(material, entry);
    material.VisRaw = nullptr;
    material.PVTRaw = nullptr;
    // The entry's PW is left behind.
    copyBlocks(material, entry,
               {{&QrvMaterial::Vis, QRV_TAG_VIS},
                {&QrvMaterial::PVT, QRV_TAG_PVT},
                {&QrvMaterial::Cp, QRV_TAG_CP},
                {&QrvMaterial::K, QRV_TAG_K},
                {&QrvMaterial::Mech, QRV_TAG_MECH},
                {&QrvMaterial::Temp, QRV_TAG_TEMP},
                {&QrvMaterial::KN, QRV_TAG_KN},
                {&QrvMaterial::SI, QRV_TAG_SI}});
}

void fillNonPolymer(QrvMaterial& material, CQrvMatBase& entry, Fill fill) {
    // The first text names the kind of material; an unknown kind leaves FileType as it was.
    const std::string& kind = entry.GetHeader().Texts[CQrvMatHeader::Polymer];
    for (const KindName& known : kKinds)
        if (kind == known.text) material.FileType = known.fileType;
    if (fill == Fill::Export) copyVersionAndDates(material, entry);
    copyTexts(material, entry);
    copyBlocks(material, entry,
               {{&QrvMaterial::Cp, QRV_TAG_CP},
                {&QrvMaterial::K, QRV_TAG_K},
                {&QrvMaterial::Mech, QRV_TAG_MECH}});
}

// Opens the bank for reading and loads the entry at index. 0 with entry set, or the call's code.
int loadEntry(const char* path, int index, CQrvBankStream& bank, CQrvMatBase*& entry) {
    if (!path || !bank.OpenFile(path, false)) return kNoBank;
    if (index < 0 || index >= bank.GetMaterialCount()) return kNoEntry;
    entry = bank.LoadMaterial(index);
    return entry ? 0 : kNoBank;  // a class the library does not know
}

// Fills material by the entry's class; the call's code for a good end.
int fillFrom(QrvMaterial& material, CQrvMatBase& entry, Fill fill) {
    switch (entry.GetObjType()) {
        case 0:
            fillThermoplastic(material, entry, fill);
            return kPlastic;
        case 1:
            fillThermoset(material, entry, fill);
            return kNotPlastic;
        default:
            fillNonPolymer(material, entry, fill);
            return kNotPlastic;
    }
}

}  // namespace

int MATIO_BankManipulator::ExtractPlasticMaterialFromBank(const char* bank, int index,
                                                          QrvMaterial& material) {
    CQrvBankStream stream;
    CQrvMatBase* entry = nullptr;
    if (const int failed = loadEntry(bank, index, stream, entry)) return failed;
    return fillFrom(material, *entry, Fill::Extract);
}

int MATIO_BankManipulator::ExportPlasticMaterialFromBank(const char* bank, int index,
                                                         const char* output) {
    CQrvBankStream stream;
    CQrvMatBase* entry = nullptr;
    if (const int failed = loadEntry(bank, index, stream, entry)) return failed;
    std::unique_ptr<QrvMaterial, void (*)(QrvMaterial*)> material(new QrvMaterial,
                                                                  QrvReleaseMaterial);
    QrvInitMaterial(material.get());
    const int code = fillFrom(*material, *entry, Fill::Export);
    const bool thermoset = entry->GetObjType() == 1;
    const int saved = thermoset ? QrvSaveMaterialRIM(output, material.get())
                                : QrvSaveMaterial(output, material.get());
    if (saved == 1) return code;
    qrv::bank::keepForProcess(material.release());
    return kSaveFailed;
}
