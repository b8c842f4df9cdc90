// Adding materials to a bank: the new bank's lead word, the class of each entry, the header and
// blocks an entry is given, both overloads and their result codes.
#include <gtest/gtest.h>

#include <quorvalib/bank.h>
#include <quorvalib/files.h>

#include <cstdlib>
#include <locale>
#include <optional>
#include <string>
#include <vector>

#include "bank/bank_support.h"
#include "formats/bank_stream.h"
#include "support/fixture.h"

using qrvtest::BlockData;
using qrvtest::Bytes;
using qrvtest::fileBytes;
using qrvtest::Sample;

namespace {

// The frame a thermoplastic record of thermoplasticRecord() must become: type word 0, the edit
// date, no Source text, every block at source 1000, and the object's own empty measured sections.
Sample expectedThermoplastic(int version) {
    Sample s;
    s.objType = 0;
    s.bodyVer = version;
    s.typeWord = 0;
    s.dateWord = 20240314;
    s.texts = {"PLA", "Greenfield", "GB 2003D", "sheet grade", ""};
    s.blocks[0] = {1000, 5, {0.01, 204026.1, 7.63e17, 432.06, 0.0, 36.1, 1.09}};
    s.blocks[1] = {1000, 1, {0.9}};
    s.blocks[2] = {1000, 1, {2e7}};
    s.blocks[3] = {1000, 1, {2e4}};
    s.blocks[4] = {1000, 1, {2e9, 0.35, 0.01}};
    s.blocks[6] = {1000, 0, {0.36, 0.36, 3.5e10, 3.5e10, 1.29e10, 7.4e-5, 7.4e-5}};
    s.blocks[7] = {1000, 2, {190, 205, 220, 25, 35, 50, 55, 88}};
    s.blocks[8] = {1000, 1, {1.455, 3e-4}};
    s.blocks[10] = {1000, 2, {1.0, 2.0}};
    s.blocks[11] = {1000, 3, {4.0}};
    return s;
}

std::string leadWord() {
    return Bytes().word(9051).str();
}

int objTypeOfEntry(const std::string& bank, int index) {
    return qrvtest::wordAt(qrvtest::frameOf(fileBytes(bank), index), 4);
}

}  // namespace

TEST(BankAdd, NewBankIsTheLeadWordAndOneFrame) {
    qrvtest::TempFolder folder;
    const std::string bank = folder.path("new.qbk");
    auto record = qrvtest::thermoplasticRecord(9012);
    ASSERT_EQ(qrvtest::addOne(bank, *record), 0);
    const std::string bytes = fileBytes(bank);
    ASSERT_GE(bytes.size(), 4u);
    EXPECT_EQ(bytes.substr(0, 4), std::string("\x5B\x23\x00\x00", 4));  // 9051 = 0x235B
    EXPECT_EQ(bytes, leadWord() + expectedThermoplastic(9012).frame(qrvtest::kPlasticBody));
}

TEST(BankAdd, NewBankUnderALocaleTheSystemLacksIsMadeUnderThePresentOne) {
    // The environment names a locale that does not exist, so the user's default cannot be made.
    const char* held = std::getenv("LC_ALL");
    const std::optional<std::string> before =
        held ? std::optional<std::string>(held) : std::nullopt;
    ::setenv("LC_ALL", "xx_NOWHERE.NO-SUCH-CODESET", 1);
    const std::locale present = std::locale::global(std::locale::classic());
    qrvtest::TempFolder folder;
    const std::string bank = folder.path("new.qbk");
    auto record = qrvtest::thermoplasticRecord(9012);
    const int result = qrvtest::addOne(bank, *record);
    const std::string global = std::locale().name();
    std::locale::global(present);
    if (before)
        ::setenv("LC_ALL", before->c_str(), 1);
    else
        ::unsetenv("LC_ALL");
    EXPECT_EQ(result, 0);
    EXPECT_EQ(global, "C");  // left as it was
    EXPECT_EQ(fileBytes(bank),
              leadWord() + expectedThermoplastic(9012).frame(qrvtest::kPlasticBody));
}

TEST(BankAdd, RecordsAreNotChanged) {
    qrvtest::TempFolder folder;
    auto record = qrvtest::thermoplasticRecord(9012);
    const double* vis = record->Vis.Para;
    ASSERT_EQ(qrvtest::addOne(folder.path("b.qbk"), *record), 0);
    EXPECT_EQ(record->Vis.Para, vis);
    EXPECT_EQ(record->Vis.Source, 7);
    EXPECT_EQ(record->MeasureDate, 20190101);
    EXPECT_STREQ(record->Source, "lab 4");
}

TEST(BankAdd, SameMaterialTwiceGivesTwoEntries) {
    qrvtest::TempFolder folder;
    const std::string bank = folder.path("twice.qbk");
    auto record = qrvtest::thermoplasticRecord(9010);
    ASSERT_EQ(qrvtest::addOne(bank, *record), 0);
    ASSERT_EQ(qrvtest::addOne(bank, *record), 0);
    const std::string frame = expectedThermoplastic(9010).frame(qrvtest::kPlasticBody);
    EXPECT_EQ(fileBytes(bank), leadWord() + frame + frame);
}

TEST(BankAdd, CountBelowOneTouchesNothing) {
    qrvtest::TempFolder folder;
    const std::string bank = folder.path("none.qbk");
    auto record = qrvtest::thermoplasticRecord();
    MATIO_BankManipulator banks;
    EXPECT_EQ(banks.AddMaterialsToBank(bank.c_str(), record.get(), 0), 0);
    EXPECT_EQ(banks.AddMaterialsToBank(bank.c_str(), record.get(), -3), 0);
    char* names[] = {nullptr};
    EXPECT_EQ(banks.AddMaterialsToBank(bank.c_str(), names, 0), 0);
    EXPECT_FALSE(qrvtest::fileExists(bank));
}

TEST(BankAdd, NullRecordArrayMakesTheBankAndAddsNothing) {
    qrvtest::TempFolder folder;
    const std::string bank = folder.path("empty.qbk");
    MATIO_BankManipulator banks;
    EXPECT_EQ(banks.AddMaterialsToBank(bank.c_str(), static_cast<QrvMaterial*>(nullptr), 2), 1);
    EXPECT_EQ(fileBytes(bank), leadWord());
    EXPECT_EQ(banks.AddMaterialsToBank(bank.c_str(), static_cast<char**>(nullptr), 2), 1);
    EXPECT_EQ(fileBytes(bank), leadWord());
}

TEST(BankAdd, ThermosetEntryKeepsItsOwnBlocks) {
    qrvtest::TempFolder folder;
    const std::string bank = folder.path("rim.qbk");
    auto record = qrvtest::thermosetRecord();
    ASSERT_EQ(qrvtest::addOne(bank, *record), 0);
    Sample s;
    s.objType = 1;
    s.bodyVer = 9018;
    s.dateWord = 20230505;
    s.texts = {"Epoxy", "Kobari Chemical", "KC-6600", "green moulding compound", ""};
    s.blocks[0] = {1000, 13, {1, 2, 3, 4, 5, 6, 7, 8, 9, 10}};
    s.blocks[1] = {1000, 1, {0.55}};
    s.blocks[2] = {1000, 2, {1e7, 20, 1.2e7, 200}};
    s.blocks[3] = {1000, 1, {3e4}};
    s.blocks[5] = {1000, 2, {0.3, 1.1, 2.2, 3.3, 4.4, 5.5, 6.6}};
    s.blocks[6] = {1000, 0, {0.3, 0.3, 2e10, 2e10, 8e9, 2e-5, 2e-5}};
    s.blocks[7] = {1000, 2, {1, 2, 3, 4, 5, 6, 7, 8}};
    s.blocks[9] = {1000, 1, {170.0, 2.8}};
    s.blocks[11] = {1000, 1, {9.0}};
    EXPECT_EQ(fileBytes(bank), leadWord() + s.frame(qrvtest::kRIMBody));
}

TEST(BankAdd, ThermosetSIOfModelZeroIsNotGiven) {
    qrvtest::TempFolder folder;
    const std::string bank = folder.path("rim.qbk");
    auto record = qrvtest::thermosetRecord();
    record->SI.Model = 0;
    ASSERT_EQ(qrvtest::addOne(bank, *record), 0);
    CQrvBankStream stream;
    ASSERT_TRUE(stream.OpenFile(bank.c_str(), false));
    CQrvMatBase* entry = stream.LoadMaterial(0);
    ASSERT_NE(entry, nullptr);
    qrvtest::expectObjectBlock(*entry, QRV_TAG_SI, BlockData{});
}

TEST(BankAdd, MetalEntryHasCpKAndMechOnly) {
    qrvtest::TempFolder folder;
    const std::string bank = folder.path("metal.qbk");
    auto record = qrvtest::metalRecord();
    ASSERT_EQ(qrvtest::addOne(bank, *record), 0);
    Sample s;
    s.objType = 2;
    s.bodyVer = 7101;
    s.dateWord = 20220707;
    s.texts = {"Metal", "Hallam Steel", "Stainless 316L", "Austenitic D=7.99 g/cc", ""};
    s.blocks[2] = {1000, 1, {5e6}};
    s.blocks[3] = {1000, 1, {1.63e6}};
    s.blocks[6] = {1000, 0, {0.27, 0.28, 1.93e12, 1.93e12, 7.6e11, 1.6e-5, 1.7e-5}};
    EXPECT_EQ(fileBytes(bank), leadWord() + s.frame(qrvtest::kNonPolyBody));
}

TEST(BankAdd, ClassFollowsFileType) {
    qrvtest::TempFolder folder;
    const std::string bank = folder.path("classes.qbk");
    auto fluid = qrvtest::metalRecord("Water", "", QRV_TYPE_FLUID, "Fluid");
    auto typeZeroWithVis = qrvtest::thermoplasticRecord();
    typeZeroWithVis->FileType = 0;
    auto typeZeroWithoutVis = qrvtest::metalRecord();
    typeZeroWithoutVis->FileType = 0;
    qrvtest::setBlock(typeZeroWithoutVis->Vis, 0, {});
    auto negativeType = qrvtest::thermoplasticRecord();
    negativeType->FileType = -4;
    auto chip = qrvtest::metalRecord("Die", "", QRV_TYPE_IC_CHIP, "Chip");
    // One viscosity value is enough to make a record of type 0 a thermoplastic.
    auto typeZeroWithOneVis = qrvtest::thermoplasticRecord();
    typeZeroWithOneVis->FileType = 0;
    qrvtest::setBlock(typeZeroWithOneVis->Vis, 1, {1.0e3});
    for (QrvMaterial* m : {fluid.get(), typeZeroWithVis.get(), typeZeroWithoutVis.get(),
                           negativeType.get(), chip.get(), typeZeroWithOneVis.get()})
        ASSERT_EQ(qrvtest::addOne(bank, *m), 0);
    EXPECT_EQ(objTypeOfEntry(bank, 0), 2);  // a fluid is stored like a metal
    EXPECT_EQ(objTypeOfEntry(bank, 1), 0);
    EXPECT_EQ(objTypeOfEntry(bank, 2), 2);
    EXPECT_EQ(objTypeOfEntry(bank, 3), 0);
    EXPECT_EQ(objTypeOfEntry(bank, 4), 2);
    EXPECT_EQ(objTypeOfEntry(bank, 5), 0);
}

TEST(BankAdd, ByNameTheThermosetBlocksGoByTheName) {
    qrvtest::TempFolder folder;
    auto record = qrvtest::thermosetRecord();
    const std::string asRim = folder.path("epoxy.mtx");
    const std::string asPlain = folder.path("epoxy.mtr");
    ASSERT_EQ(QrvSaveMaterialRIM(asRim.c_str(), record.get()), 1);
    ASSERT_EQ(QrvSaveMaterial(asPlain.c_str(), record.get()), 1);
    const std::string bank = folder.path("names.qbk");
    std::string a = asRim, b = asPlain;
    char* names[] = {&a[0], &b[0]};
    MATIO_BankManipulator banks;
    ASSERT_EQ(banks.AddMaterialsToBank(bank.c_str(), names, 2), 0);

    CQrvBankStream stream;
    ASSERT_TRUE(stream.OpenFile(bank.c_str(), false));
    ASSERT_EQ(stream.GetMaterialCount(), 2);
    CQrvMatBase* rim = stream.LoadMaterial(0);
    ASSERT_NE(rim, nullptr);
    EXPECT_EQ(rim->GetObjType(), 1);
    qrvtest::expectObjectBlock(*rim, QRV_TAG_KN, {1000, 2, {0.3, 1.1, 2.2, 3.3, 4.4, 5.5, 6.6}});
    qrvtest::expectObjectBlock(*rim, QRV_TAG_SI, {1000, 1, {170.0, 2.8}});
    // The same thermoset read from a plain name is still a thermoset entry, without KN and SI.
    CQrvMatBase* plain = stream.LoadMaterial(1);
    ASSERT_NE(plain, nullptr);
    EXPECT_EQ(plain->GetObjType(), 1);
    qrvtest::expectObjectBlock(*plain, QRV_TAG_KN, BlockData{});
    qrvtest::expectObjectBlock(*plain, QRV_TAG_SI, BlockData{});
    qrvtest::expectObjectBlock(*plain, QRV_TAG_VIS, {1000, 13, {1, 2, 3, 4, 5, 6, 7, 8, 9, 10}});
}

TEST(BankAdd, ByNameAPlasticObjectIgnoresTheThermosetBlocks) {
    qrvtest::TempFolder folder;
    auto record = qrvtest::thermoplasticRecord(9012);
    const std::string file = folder.path("pla.mtx");
    ASSERT_EQ(QrvSaveMaterialRIM(file.c_str(), record.get()), 1);
    const std::string bank = folder.path("names.qbk");
    std::string name = file;
    char* names[] = {&name[0]};
    MATIO_BankManipulator banks;
    ASSERT_EQ(banks.AddMaterialsToBank(bank.c_str(), names, 1), 0);
    CQrvBankStream stream;
    ASSERT_TRUE(stream.OpenFile(bank.c_str(), false));
    CQrvMatBase* entry = stream.LoadMaterial(0);
    ASSERT_NE(entry, nullptr);
    EXPECT_EQ(entry->GetObjType(), 0);
    EXPECT_EQ(entry->GetParamValue(QRV_TAG_KN, 0), -1.0);  // the class has no KN at all
    qrvtest::expectObjectBlock(*entry, QRV_TAG_VE, {1000, 1, {2e9, 0.35, 0.01}});
}

TEST(BankAdd, ByNameSkipsNullAndUnreadableNames) {
    qrvtest::TempFolder folder;
    auto record = qrvtest::metalRecord();
    const std::string file = folder.path("steel.mtr");
    ASSERT_EQ(QrvSaveMaterial(file.c_str(), record.get()), 1);
    std::string good = file, missing = folder.path("missing.mtr");
    char* names[] = {&good[0], nullptr, &missing[0], &good[0]};
    const std::string bank = folder.path("names.qbk");
    MATIO_BankManipulator banks;
    EXPECT_EQ(banks.AddMaterialsToBank(bank.c_str(), names, 4), 1);
    CQrvBankStream stream;
    ASSERT_TRUE(stream.OpenFile(bank.c_str(), false));
    EXPECT_EQ(stream.GetMaterialCount(), 2);
}

// The three entries of the sample bank, taken out and added to a new bank, give the sample's
// bytes again: the sample was written by adding.
TEST(BankAdd, ExtractedSampleEntriesAddBackToTheSampleBytes) {
    qrvtest::TempFolder folder;
    const std::string sample = qrvtest::dataPath("sample_bank.qbk");
    MATIO_BankManipulator banks;
    QrvMaterial records[3];
    EXPECT_EQ(banks.ExtractPlasticMaterialFromBank(sample.c_str(), 0, records[0]), 1);
    EXPECT_EQ(banks.ExtractPlasticMaterialFromBank(sample.c_str(), 1, records[1]), -3);
    EXPECT_EQ(banks.ExtractPlasticMaterialFromBank(sample.c_str(), 2, records[2]), -3);
    // Extraction leaves the version and date of the two others as they came in.
    records[1].FileVer = 9018;
    records[2].FileVer = 7101;
    records[1].LastEditDate = records[2].LastEditDate = 0;
    // Nor does it take a thermoset's PW: put back what the sample's frame holds.
    EXPECT_EQ(records[1].PW.Para, nullptr);
    const nlohmann::json pw = qrvtest::readJson("sample_bank.json")
                                  .at("structure")
                                  .at("Frames")
                                  .at(1)
                                  .at("Blocks")
                                  .at("PW");
    qrvtest::setBlock(records[1].PW, pw.at("Model").get<int>(),
                      pw.at("Para").get<std::vector<double>>());
    const std::string bank = folder.path("again.qbk");
    ASSERT_EQ(banks.AddMaterialsToBank(bank.c_str(), records, 3), 0);
    EXPECT_EQ(fileBytes(bank), fileBytes(sample));
}
