// Taking entries out of a bank: into a caller's record by class, with the type table of the
// non-polymer entries and the version gates of the thermoplastic ones; and into files of their own.
#include <gtest/gtest.h>

#include <quorvalib/bank.h>
#include <quorvalib/files.h>
#include <quorvalib/measured.h>

#include <climits>
#include <string>

#include "bank/bank_support.h"
#include "support/fixture.h"

using qrvtest::Bytes;
using qrvtest::fileBytes;
using qrvtest::kUntouched;

namespace {

// A bank in folder holding the given records, one entry each, in order.
std::string bankOf(const qrvtest::TempFolder& folder, std::initializer_list<QrvMaterial*> records,
                   const char* name = "bank.qbk") {
    const std::string bank = folder.path(name);
    for (QrvMaterial* record : records)
        EXPECT_EQ(qrvtest::addOne(bank, *record), 0);
    return bank;
}

int extract(const std::string& bank, int index, QrvMaterial& record) {
    MATIO_BankManipulator banks;
    return banks.ExtractPlasticMaterialFromBank(bank.c_str(), index, record);
}

void expectEmptyBlock(const QrvMatParam& block) {
    EXPECT_EQ(block.Source, 0);
    EXPECT_EQ(block.Model, 0);
    EXPECT_EQ(block.Count, 0);
    EXPECT_EQ(block.Para, nullptr);
}

}  // namespace

TEST(BankExtract, SampleBankGivesTheDescribedRecords) {
    const nlohmann::json description = qrvtest::readJson("sample_bank.json");
    const std::string bank = qrvtest::dataPath("sample_bank.qbk");
    for (nlohmann::json call : description.at("extract")) {
        SCOPED_TRACE(call.at("call").get<std::string>());
        nlohmann::json& want = call.at("record");
        for (const char* field : {"FileType", "FileVer", "LastEditDate", "MeasureDate"})
            if (want.at(field).is_string()) want[field] = kUntouched;
        const std::string text = call.at("call").get<std::string>();
        const int index = std::stoi(text.substr(text.find("bank, ") + 6));
        QrvMaterial record;
        qrvtest::markNumbers(record);
        EXPECT_EQ(extract(bank, index, record), call.at("return").get<int>());
        qrvtest::expectMaterial(record, want);
    }
}

TEST(BankExtract, IndexOutsideTheBankOrNoBank) {
    qrvtest::TempFolder folder;
    const std::string empty = folder.path("empty.qbk");
    qrvtest::writeFile(empty, Bytes().word(9051).str());
    QrvMaterial record;
    qrvtest::markNumbers(record);
    EXPECT_EQ(extract(empty, 0, record), -2);
    EXPECT_EQ(extract(empty, -1, record), -2);
    const std::string sample = qrvtest::dataPath("sample_bank.qbk");
    for (int index : {3, 4, -1, INT_MIN, INT_MAX})
        EXPECT_EQ(extract(sample, index, record), -2) << index;
    EXPECT_EQ(extract(folder.path("absent.qbk"), 0, record), -1);
    MATIO_BankManipulator banks;
    EXPECT_EQ(banks.ExtractPlasticMaterialFromBank(nullptr, 0, record), -1);
    EXPECT_EQ(record.FileType, kUntouched);
    EXPECT_EQ(record.Polymer, nullptr);
    expectEmptyBlock(record.Vis);
}

// What a thermoplastic keeps through a bank: the texts but not Source, one date for both, the
// values with source 1000, EM, PR and CLTE rebuilt, no KN.
TEST(BankExtract, ThermoplasticRoundTripKeepsAndLoses) {
    qrvtest::TempFolder folder;
    auto original = qrvtest::thermoplasticRecord(9012);
    const std::string bank = bankOf(folder, {original.get()});
    QrvMaterial record;
    qrvtest::markNumbers(record);
    ASSERT_EQ(extract(bank, 0, record), 1);
    EXPECT_EQ(record.FileType, QRV_TYPE_THERMOPLASTIC);
    EXPECT_EQ(record.FileVer, 9012);
    EXPECT_EQ(record.LastEditDate, 20240314);
    EXPECT_EQ(record.MeasureDate, 20240314);  // the measuring date is lost
    EXPECT_STREQ(record.Polymer, "PLA");
    EXPECT_STREQ(record.GradeName, "GB 2003D");
    EXPECT_STREQ(record.Comment, "sheet grade");
    EXPECT_STREQ(record.Source, "");  // the Source text is lost
    for (QrvMatParam QrvMaterial::*block :
         {&QrvMaterial::Vis, &QrvMaterial::PVT, &QrvMaterial::Cp, &QrvMaterial::K,
          &QrvMaterial::Mech, &QrvMaterial::Temp, &QrvMaterial::VE, &QrvMaterial::OP,
          &QrvMaterial::CR, &QrvMaterial::PW}) {
        EXPECT_EQ((record.*block).Source, 1000);
        EXPECT_EQ((record.*block).Model, ((*original).*block).Model);
        EXPECT_EQ(qrvtest::values(record.*block), qrvtest::values((*original).*block));
    }
    expectEmptyBlock(record.KN);
    EXPECT_EQ(qrvtest::values(record.EM), std::vector<double>{3.5e10});
    EXPECT_EQ(qrvtest::values(record.PR), std::vector<double>{0.36});
    EXPECT_EQ(qrvtest::values(record.CLTE), std::vector<double>{7.4e-5});
    ASSERT_NE(record.VisRaw, nullptr);
    ASSERT_NE(record.PVTRaw, nullptr);
    EXPECT_EQ(record.VisRaw->GetCurveCount(), 0);
    ASSERT_NE(record.MTC, nullptr);
}

TEST(BankExtract, EntryKeepsTypeWordZero) {
    qrvtest::TempFolder folder;
    auto original = qrvtest::thermoplasticRecord(9012);
    const std::string bank = bankOf(folder, {original.get()});
    EXPECT_EQ(qrvtest::wordAt(qrvtest::frameOf(fileBytes(bank), 0), 16), 0);         // type word
    EXPECT_EQ(qrvtest::wordAt(qrvtest::frameOf(fileBytes(bank), 0), 20), 20240314);  // date
}

TEST(BankExtract, OldThermoplasticHasNoMeasuredDataAndEmptyLateBlocks) {
    qrvtest::TempFolder folder;
    auto original = qrvtest::thermoplasticRecord(9008);
    const std::string bank = bankOf(folder, {original.get()});
    QrvMaterial record;
    ASSERT_EQ(extract(bank, 0, record), 1);
    EXPECT_EQ(record.FileVer, 9008);
    EXPECT_EQ(record.VisRaw, nullptr);
    EXPECT_EQ(record.PVTRaw, nullptr);
    EXPECT_EQ(record.MTC, nullptr);
    expectEmptyBlock(record.CR);
    expectEmptyBlock(record.PW);
    EXPECT_EQ(qrvtest::values(record.OP), (std::vector<double>{1.455, 3e-4}));
}

TEST(BankExtract, VersionGatesOfTheThermoplastic) {
    qrvtest::TempFolder folder;
    auto v9010 = qrvtest::thermoplasticRecord(9010);
    auto v9011 = qrvtest::thermoplasticRecord(9011);
    const std::string bank = bankOf(folder, {v9010.get(), v9011.get()});
    QrvMaterial at9010, at9011;
    ASSERT_EQ(extract(bank, 0, at9010), 1);
    ASSERT_EQ(extract(bank, 1, at9011), 1);
    EXPECT_NE(at9010.MTC, nullptr);
    expectEmptyBlock(at9010.CR);
    EXPECT_EQ(qrvtest::values(at9011.CR), (std::vector<double>{1.0, 2.0}));
    expectEmptyBlock(at9011.PW);
}

TEST(BankExtract, BlockOfCountZeroGetsAnArrayOfLengthZero) {
    qrvtest::TempFolder folder;
    auto metal = qrvtest::metalRecord();
    qrvtest::setBlock(metal->K, 1, {});
    const std::string bank = bankOf(folder, {metal.get()});
    QrvMaterial record;
    ASSERT_EQ(extract(bank, 0, record), -3);
    EXPECT_EQ(record.K.Model, 1);
    EXPECT_EQ(record.K.Count, 0);
    EXPECT_NE(record.K.Para, nullptr);
}

TEST(BankExtract, ThermosetRoundTripKeepsAndLoses) {
    qrvtest::TempFolder folder;
    auto original = qrvtest::thermosetRecord();
    const std::string bank = bankOf(folder, {original.get()});
    QrvMaterial record;
    qrvtest::markNumbers(record);
    ASSERT_EQ(extract(bank, 0, record), -3);
    EXPECT_EQ(record.FileType, QRV_TYPE_THERMOSET);
    EXPECT_EQ(record.FileVer, kUntouched);
    EXPECT_EQ(record.LastEditDate, kUntouched);
    EXPECT_EQ(record.MeasureDate, kUntouched);
    EXPECT_STREQ(record.Producer, "Kobari Chemical");
    EXPECT_STREQ(record.Source, "");
    for (QrvMatParam QrvMaterial::*block :
         {&QrvMaterial::Vis, &QrvMaterial::PVT, &QrvMaterial::Cp, &QrvMaterial::K, &QrvMaterial::KN,
          &QrvMaterial::Mech, &QrvMaterial::Temp, &QrvMaterial::SI}) {
        EXPECT_EQ((record.*block).Source, 1000);
        EXPECT_EQ(qrvtest::values(record.*block), qrvtest::values((*original).*block));
    }
    expectEmptyBlock(record.PW);  // kept in the bank, not taken out
    expectEmptyBlock(record.EM);  // not rebuilt
    EXPECT_EQ(record.VisRaw, nullptr);
    EXPECT_EQ(record.PVTRaw, nullptr);
    EXPECT_EQ(record.MTC, nullptr);
}

TEST(BankExtract, MetalRoundTripKeepsAndLoses) {
    qrvtest::TempFolder folder;
    auto original = qrvtest::metalRecord();
    const std::string bank = bankOf(folder, {original.get()});
    QrvMaterial record;
    qrvtest::markNumbers(record);
    ASSERT_EQ(extract(bank, 0, record), -3);
    EXPECT_EQ(record.FileType, QRV_TYPE_METAL);
    EXPECT_EQ(record.FileVer, kUntouched);
    EXPECT_EQ(record.MeasureDate, kUntouched);
    EXPECT_STREQ(record.Polymer, "Metal");
    EXPECT_STREQ(record.Comment, "Austenitic D=7.99 g/cc");
    EXPECT_EQ(qrvtest::values(record.Cp), std::vector<double>{5e6});
    EXPECT_EQ(record.Cp.Source, 1000);
    EXPECT_EQ(qrvtest::values(record.Mech), qrvtest::values(original->Mech));
    expectEmptyBlock(record.Vis);  // a non-polymer entry has none
    expectEmptyBlock(record.PVT);  // the density stays in the comment
    expectEmptyBlock(record.EM);
}

TEST(BankExtract, NonPolymerTypeComesFromTheFirstText) {
    qrvtest::TempFolder folder;
    struct Kind {
        const char* text;
        int expected;
    };
    const Kind kinds[] = {{"Metal", 3},          {"Coolant", 4},       {"Chip", 6},
                          {"Lead Frame", 7},     {"Substrate", 8},     {"Wire", 9},
                          {"Fluid", kUntouched}, {"metal", kUntouched}};
    const std::string bank = folder.path("kinds.qbk");
    for (const Kind& kind : kinds) {
        auto record = qrvtest::metalRecord("grade", "", QRV_TYPE_COOLANT, kind.text);
        ASSERT_EQ(qrvtest::addOne(bank, *record), 0);
    }
    for (int i = 0; i < static_cast<int>(std::size(kinds)); ++i) {
        QrvMaterial record;
        qrvtest::markNumbers(record);
        EXPECT_EQ(extract(bank, i, record), -3);
        EXPECT_EQ(record.FileType, kinds[i].expected) << kinds[i].text;
        EXPECT_STREQ(record.Polymer, kinds[i].text);
    }
}

TEST(BankExtract, UnknownClassGivesMinusOne) {
    qrvtest::TempFolder folder;
    const std::string bank = folder.path("odd.qbk");
    qrvtest::writeFile(bank, Bytes().word(9051).word(8).word(7).word(9012).str());
    QrvMaterial record;
    qrvtest::markNumbers(record);
    MATIO_BankManipulator banks;
    EXPECT_EQ(banks.ExtractPlasticMaterialFromBank(bank.c_str(), 0, record), -1);
    EXPECT_EQ(banks.ExportPlasticMaterialFromBank(bank.c_str(), 0, folder.path("o.mtr").c_str()),
              -1);
    EXPECT_EQ(record.FileType, kUntouched);
    EXPECT_FALSE(qrvtest::fileExists(folder.path("o.mtr")));
}

// An entry written by a later version, with bytes this library does not know at its end, between
// two ordinary entries: its ObjSize carries the walk past it.
TEST(BankExtract, EntryOfALaterVersionIsSteppedOver) {
    qrvtest::TempFolder folder;
    auto first = qrvtest::thermoplasticRecord(9012, "first");
    auto last = qrvtest::thermoplasticRecord(9012, "last");
    const std::string ordinary = folder.path("ordinary.qbk");
    ASSERT_EQ(qrvtest::addOne(ordinary, *first), 0);
    ASSERT_EQ(qrvtest::addOne(ordinary, *last), 0);
    const std::string bytes = fileBytes(ordinary);

    qrvtest::Sample later;
    later.objType = 0;
    later.bodyVer = 9999;
    later.texts = {"PET", "Future", "next", "", ""};
    later.blocks[0] = {1000, 1, {42.0}};
    later.blocks[11] = {1000, 1, {11.0}};
    std::string frame = later.frame(qrvtest::kPlasticBody) + std::string(24, '\x5A');
    frame = Bytes().word(static_cast<std::int64_t>(frame.size()) - 4).str() + frame.substr(4);

    const std::string bank = folder.path("mixed.qbk");
    qrvtest::writeFile(
        bank, bytes.substr(0, 4) + qrvtest::frameOf(bytes, 0) + frame + qrvtest::frameOf(bytes, 1));
    QrvMaterial middle, end;
    ASSERT_EQ(extract(bank, 1, middle), 1);
    EXPECT_EQ(middle.FileVer, 9999);
    EXPECT_STREQ(middle.GradeName, "next");
    EXPECT_EQ(qrvtest::values(middle.PW), std::vector<double>{11.0});  // read as the newest layout
    ASSERT_EQ(extract(bank, 2, end), 1);
    EXPECT_STREQ(end.GradeName, "last");
    EXPECT_EQ(qrvtest::values(end.Vis), qrvtest::values(last->Vis));
    QrvMaterial none;
    EXPECT_EQ(extract(bank, 3, none), -2);
}

// Export: the entry saved as a file of its own.

TEST(BankExport, ThermoplasticIsSavedWithItsDate) {
    qrvtest::TempFolder folder;
    auto original = qrvtest::thermoplasticRecord(9012);
    const std::string bank = bankOf(folder, {original.get()});
    const std::string before = fileBytes(bank);
    const std::string out = folder.path("out.mtr");
    MATIO_BankManipulator banks;
    ASSERT_EQ(banks.ExportPlasticMaterialFromBank(bank.c_str(), 0, out.c_str()), 1);
    EXPECT_EQ(fileBytes(bank), before);  // the bank is only read
    qrvtest::MaterialPtr loaded = qrvtest::adopt(QrvGetMaterial(out.c_str()));
    ASSERT_NE(loaded, nullptr);
    EXPECT_EQ(loaded->FileVer, 9012);
    EXPECT_EQ(loaded->MeasureDate, 20240314);  // a saved file carries the entry's one date
    EXPECT_EQ(loaded->Vis.Source, 1000);
    EXPECT_EQ(qrvtest::values(loaded->CR), (std::vector<double>{1.0, 2.0}));
    EXPECT_EQ(qrvtest::values(loaded->PW), std::vector<double>{4.0});
}

TEST(BankExport, OldThermoplasticSavesItsEmptyLateBlocks) {
    qrvtest::TempFolder folder;
    auto original = qrvtest::thermoplasticRecord(9008);
    const std::string bank = bankOf(folder, {original.get()});
    const std::string out = folder.path("old.mtr");
    MATIO_BankManipulator banks;
    ASSERT_EQ(banks.ExportPlasticMaterialFromBank(bank.c_str(), 0, out.c_str()), 1);
    qrvtest::MaterialPtr loaded = qrvtest::adopt(QrvGetMaterial(out.c_str()));
    ASSERT_NE(loaded, nullptr);
    EXPECT_EQ(loaded->FileVer, 9008);
    EXPECT_EQ(loaded->CR.Count, 0);
    EXPECT_EQ(loaded->PW.Count, 0);
    EXPECT_EQ(loaded->VisRaw, nullptr);
}

TEST(BankExport, ThermosetAndMetalGiveMinusThreeOnAGoodSave) {
    qrvtest::TempFolder folder;
    auto rim = qrvtest::thermosetRecord();
    auto metal = qrvtest::metalRecord();
    const std::string bank = bankOf(folder, {rim.get(), metal.get()});
    MATIO_BankManipulator banks;
    const std::string rimOut = folder.path("epoxy.mtx"), metalOut = folder.path("steel.mtr");
    ASSERT_EQ(banks.ExportPlasticMaterialFromBank(bank.c_str(), 0, rimOut.c_str()), -3);
    ASSERT_EQ(banks.ExportPlasticMaterialFromBank(bank.c_str(), 1, metalOut.c_str()), -3);
    qrvtest::MaterialPtr loadedRim = qrvtest::adopt(QrvGetMaterial(rimOut.c_str()));
    ASSERT_NE(loadedRim, nullptr);
    EXPECT_EQ(loadedRim->FileType, QRV_TYPE_THERMOSET);
    EXPECT_EQ(loadedRim->FileVer, 9018);  // an export sets the version of every class
    EXPECT_EQ(qrvtest::values(loadedRim->KN), qrvtest::values(rim->KN));
    EXPECT_EQ(loadedRim->PW.Count, 0);  // left behind in the bank
    qrvtest::MaterialPtr loadedMetal = qrvtest::adopt(QrvGetMaterial(metalOut.c_str()));
    ASSERT_NE(loadedMetal, nullptr);
    EXPECT_EQ(loadedMetal->FileType, QRV_TYPE_METAL);
    EXPECT_EQ(loadedMetal->FileVer, 7101);
    EXPECT_EQ(loadedMetal->MeasureDate, 20220707);
    EXPECT_EQ(qrvtest::values(loadedMetal->PVT), std::vector<double>{7.99});
}

TEST(BankExport, UnknownNonPolymerKindIsSavedAsType1) {
    qrvtest::TempFolder folder;
    auto fluid = qrvtest::metalRecord("Water", "", QRV_TYPE_FLUID, "Fluid");
    const std::string bank = bankOf(folder, {fluid.get()});
    const std::string out = folder.path("water.mtr");
    MATIO_BankManipulator banks;
    ASSERT_EQ(banks.ExportPlasticMaterialFromBank(bank.c_str(), 0, out.c_str()), -3);
    // Saved as FileType 1, so the file holds a thermoplastic frame.
    EXPECT_EQ(qrvtest::wordAt(fileBytes(out), 8), 0);
    EXPECT_EQ(qrvtest::wordAt(fileBytes(out), 20), 1);
}

TEST(BankExport, IndexOutsideWritesNoFile) {
    qrvtest::TempFolder folder;
    const std::string sample = qrvtest::dataPath("sample_bank.qbk");
    const std::string out = folder.path("none.mtr");
    MATIO_BankManipulator banks;
    EXPECT_EQ(banks.ExportPlasticMaterialFromBank(sample.c_str(), 3, out.c_str()), -2);
    EXPECT_EQ(banks.ExportPlasticMaterialFromBank(sample.c_str(), -1, out.c_str()), -2);
    EXPECT_EQ(banks.ExportPlasticMaterialFromBank(folder.path("x.qbk").c_str(), 0, out.c_str()),
              -1);
    EXPECT_FALSE(qrvtest::fileExists(out));
}

TEST(BankExport, FailedSaveGivesMinusFour) {
    qrvtest::TempFolder folder;
    const std::string sample = qrvtest::dataPath("sample_bank.qbk");
    const std::string before = fileBytes(sample);
    MATIO_BankManipulator banks;
    const std::string nowhere = folder.path("no/such/folder/out.mtr");
    for (int index : {0, 1, 2}) {
        EXPECT_EQ(banks.ExportPlasticMaterialFromBank(sample.c_str(), index, nowhere.c_str()),
                  index == 1 ? -3 : -4)
            << index;  // a thermoset save never notices a failed open
        EXPECT_EQ(banks.ExportPlasticMaterialFromBank(sample.c_str(), index, "a.b"), -4);
        EXPECT_EQ(banks.ExportPlasticMaterialFromBank(sample.c_str(), index, nullptr), -4);
    }
    EXPECT_FALSE(qrvtest::fileExists(nowhere));
    EXPECT_EQ(fileBytes(sample), before);
}
