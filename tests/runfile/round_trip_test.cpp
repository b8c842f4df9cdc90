// Materials written into a run file and read back, field by field against the samples' JSON
// descriptions with the differences a run file makes.
#include <gtest/gtest.h>

#include <quorvalib/measured.h>
#include <quorvalib/runfile.h>

#include <climits>
#include <string>

#include "runfile/run_file_support.h"
#include "support/temp_files.h"

namespace {

using namespace qrvtest;

class RoundTripTest : public ::testing::Test {
protected:
    TempFolder folder;
    std::string file = folder.path("run.rsv");
};

void expectRoundTrip(const Sample& sample, const std::string& file) {
    SCOPED_TRACE(sample.File);
    MaterialPtr material = loadSample(sample);
    ASSERT_NE(material, nullptr);
    MATIO_RSVManipulator manipulator(file.c_str());
    ASSERT_TRUE(manipulator.AddMaterial(material.get(), "Part", kRun1Plastic));
    ASSERT_EQ(manipulator.GetMaterialCount(), 1);
    QrvMaterial* back = manipulator.GetMaterial(0);  // owned by the manipulator
    ASSERT_NE(back, nullptr);
    expectMaterial(*back, afterRunFile(sampleRecord(sample)));
}

TEST_F(RoundTripTest, ThermoplasticWithCurvesAndMTCComesBackAsVersion9010) {
    expectRoundTrip(kThermoplastic, file);
    // The stored version itself is the sample's.
    RawFile raw(file);
    hid_t table = H5Gopen2(raw.id(), "/Vantrell/Run1/Material/Material 1/Summary", H5P_DEFAULT);
    int version = 0;
    hid_t attribute = H5Aopen(table, "Version", H5P_DEFAULT);
    H5Aread(attribute, H5T_NATIVE_INT, &version);
    H5Aclose(attribute);
    H5Gclose(table);
    EXPECT_EQ(version, 9012);
}

TEST_F(RoundTripTest, ThermosetWithoutMTCKeepsItsStoredVersion) {
    expectRoundTrip(kThermoset, file);
}

TEST_F(RoundTripTest, MetalComesBack) {
    expectRoundTrip(kMetal, file);
}

TEST_F(RoundTripTest, StoredLayoutOfTheThermoplastic) {
    MaterialPtr material = loadSample(kThermoplastic);
    {
        MATIO_RSVManipulator manipulator(file.c_str());
        ASSERT_TRUE(manipulator.AddMaterial(material.get(), "Part", kRun1Plastic));
    }
    RawFile raw(file);
    const std::string m = "/Vantrell/Run1/Material/Material 1/";
    // An array for each block with parameters, none for an empty one.
    const std::pair<const char*, const QrvMatParam*> blocks[] = {
        {"Vis Para", &material->Vis},   {"PVT Para", &material->PVT},  {"Cp Para", &material->Cp},
        {"K Para", &material->K},       {"VE Para", &material->VE},    {"OP Para", &material->OP},
        {"MECH Para", &material->Mech}, {"KN Para", &material->KN},    {"CR Para", &material->CR},
        {"PW para", &material->PW},     {"TEMP Para", &material->Temp}};
    int stored = 0;
    for (const auto& [array, block] : blocks) {
        SCOPED_TRACE(array);
        EXPECT_EQ(raw.exists(m + array), block->Count > 0);
        stored += block->Count > 0;
    }
    EXPECT_GE(stored, 8);
    EXPECT_TRUE(raw.exists(m + "PW para"));
    EXPECT_FALSE(raw.exists(m + "PW Para"));  // small p
    EXPECT_FALSE(raw.exists(m + "EM Para"));
    EXPECT_EQ(raw.dimensions(m + "Vis Para"), (std::vector<hsize_t>{1, 7}));
    EXPECT_EQ(raw.dimensions(m + "Vis Raw Data/Condition"), (std::vector<hsize_t>{1, 2}));
    EXPECT_EQ(raw.dimensions(m + "Vis Raw Data/Curve 1 XY")[0], 2u);
    EXPECT_TRUE(raw.exists(m + "PVT Raw Data/Curve 2 XY"));
    EXPECT_EQ(raw.dimensions(m + "MTC 1/Interval Temperature"), (std::vector<hsize_t>{1, 2}));
    EXPECT_EQ(raw.dimensions(m + "MTC 1/Section 2/Parameters"), (std::vector<hsize_t>{1, 4}));
    EXPECT_TRUE(raw.exists(m + "MTC 1/Section 1/MTC Model"));
    EXPECT_FALSE(raw.exists(m + "MTC 2"));
    EXPECT_EQ(raw.intAttribute(m + "Vis Raw Data/Summary", "Source"), 21);
    EXPECT_EQ(raw.textAttribute(m + "Vis Raw Data/Summary", "Measure Standard"),
              "ISO 11443 capillary");
    EXPECT_EQ(raw.intAttribute(m + "MTC 1/Section 2/MTC Model", "Max Parameter num"), 4);
}

TEST_F(RoundTripTest, AnEmptyMaterialHasOnlyItsSummary) {
    MaterialPtr material = makeRecord();
    material->VisRaw = new CQrvViscosityData;  // no curves: no raw group
    material->PVTRaw = new CQrvPVTData;
    {
        MATIO_RSVManipulator manipulator(file.c_str());
        ASSERT_TRUE(manipulator.AddMaterial(material.get(), "Empty", kRun1Plastic));
    }
    RawFile raw(file);
    EXPECT_EQ(raw.links("/Vantrell/Run1/Material/Material 1"), 1u);
    EXPECT_TRUE(raw.exists("/Vantrell/Run1/Material/Material 1/Summary"));
    EXPECT_EQ(raw.textAttribute("/Vantrell/Run1/Material/Material 1/Summary", "Polymer"), "");
}

TEST_F(RoundTripTest, AnMTCRecordWithoutIntervalsHasAnEmptyTemperatureArray) {
    MaterialPtr material = makeRecord();
    QRV_MTC record{3, 2, 0, nullptr, nullptr};
    QrvAddMTCData(material.get(), &record, 1);
    MATIO_RSVManipulator manipulator(file.c_str());
    ASSERT_TRUE(manipulator.AddMaterial(material.get(), "Empty MTC", kRun1Plastic));
    {
        RawFile raw(file);
        const std::string mtc = "/Vantrell/Run1/Material/Material 1/MTC 1";
        EXPECT_EQ(raw.dimensions(mtc + "/Interval Temperature"), (std::vector<hsize_t>{1, 0}));
        EXPECT_EQ(raw.links(mtc), 2u);  // Summary and the temperatures, no section
        EXPECT_EQ(raw.intAttribute(mtc + "/Summary", "Security Level"), 2);
    }
    QrvMaterial* back = manipulator.GetMaterial(0);
    ASSERT_NE(back, nullptr);
    int version = 0, count = 0;
    QrvGetMTCInfo(back, version, count);
    ASSERT_EQ(count, 1);
    EXPECT_EQ(QrvGetMTCData(back, 0)->SectionCount, 0);
    EXPECT_EQ(QrvGetMTCData(back, 0)->Version, 3);
    EXPECT_EQ(QrvGetMTCData(back, 0)->SecurityLevel, 2);
}

TEST_F(RoundTripTest, MaterialsAreNumberedPerRunAndOnlyRunOneIsRead) {
    MaterialPtr plastic = loadSample(kThermoplastic);
    MaterialPtr thermoset = loadSample(kThermoset);
    MaterialPtr metal = loadSample(kMetal);
    MATIO_RSVManipulator manipulator(file.c_str());
    ASSERT_TRUE(manipulator.AddMaterial(metal.get(), "Insert", kRun2Plastic));
    ASSERT_TRUE(manipulator.AddMaterial(plastic.get(), "Part", kRun1Plastic));
    ASSERT_TRUE(manipulator.AddMaterial(thermoset.get(), "Lid", kRun1Plastic + 7));
    EXPECT_EQ(manipulator.GetMaterialCount(), 2);
    QrvMaterial* second = manipulator.GetMaterial(1);
    ASSERT_NE(second, nullptr);
    EXPECT_STREQ(second->Polymer, "Epoxy");
    {
        RawFile raw(file);
        EXPECT_TRUE(raw.exists("/Vantrell/Run2/Material/Material 1"));
        EXPECT_FALSE(raw.exists("/Vantrell/Run2/Material/Material 2"));
        EXPECT_TRUE(raw.exists("/Vantrell/Run1/Material/Material 2"));
    }
    MaterialPtr runTwoOnly = loadSample(kMetal);
    const std::string other = folder.path("run2.rsv");
    MATIO_RSVManipulator onlyRunTwo(other.c_str());
    ASSERT_TRUE(onlyRunTwo.AddMaterial(runTwoOnly.get(), "Insert", kRun2Plastic));
    EXPECT_EQ(onlyRunTwo.GetMaterialCount(), 0);
    EXPECT_EQ(onlyRunTwo.GetMaterial(0), nullptr);
}

TEST_F(RoundTripTest, AnExistingFileIsOpenedAndMaterialsGoBehind) {
    MaterialPtr plastic = loadSample(kThermoplastic);
    MaterialPtr metal = loadSample(kMetal);
    {
        MATIO_RSVManipulator first(file.c_str());
        ASSERT_TRUE(first.AddMaterial(plastic.get(), "Part", kRun1Plastic));
    }
    MATIO_RSVManipulator second(file.c_str());
    ASSERT_TRUE(second.AddMaterial(metal.get(), "Insert", kRun1Plastic));
    ASSERT_EQ(second.GetMaterialCount(), 2);
    QrvMaterial* back = second.GetMaterial(1);
    ASSERT_NE(back, nullptr);
    EXPECT_EQ(back->FileType, QRV_TYPE_METAL);
    EXPECT_STREQ(second.GetMaterial(0)->Polymer, "PLA");
    QrvReleaseMaterial(back);  // the second call left the first record to the caller
}

TEST_F(RoundTripTest, IndexesOutsideTheMaterialsGiveNull) {
    MaterialPtr plastic = loadSample(kThermoplastic);
    MATIO_RSVManipulator manipulator(file.c_str());
    EXPECT_EQ(manipulator.GetMaterialCount(), 0);
    EXPECT_EQ(manipulator.GetMaterial(0), nullptr);
    ASSERT_TRUE(manipulator.AddMaterial(plastic.get(), "Part", kRun1Plastic));
    EXPECT_EQ(manipulator.GetMaterial(manipulator.GetMaterialCount()), nullptr);
    EXPECT_EQ(manipulator.GetMaterial(-1), nullptr);  // "Material 0"
    EXPECT_EQ(manipulator.GetMaterial(-2), nullptr);
    EXPECT_EQ(manipulator.GetMaterial(INT_MAX), nullptr);
    EXPECT_EQ(manipulator.GetMaterial(INT_MIN), nullptr);
    EXPECT_NE(manipulator.GetMaterial(0), nullptr);
}

// Under the leak checker this fails if the record of GetMaterial is not ended by the next
// AddMaterial, and under the address checker if the caller's material were freed instead.
TEST_F(RoundTripTest, AddingAfterAGetEndsTheRecordItReturned) {
    MaterialPtr plastic = loadSample(kThermoplastic);
    MATIO_RSVManipulator manipulator(file.c_str());
    ASSERT_TRUE(manipulator.AddMaterial(plastic.get(), "Part", kRun1Plastic));
    ASSERT_NE(manipulator.GetMaterial(0), nullptr);
    ASSERT_TRUE(manipulator.AddMaterial(plastic.get(), "Part", kRun1Plastic));
    EXPECT_STREQ(plastic->Polymer, "PLA");  // the caller's material is only borrowed
    EXPECT_EQ(manipulator.GetMaterialCount(), 2);
}

TEST_F(RoundTripTest, RunsBelowOneStoreNothing) {
    MaterialPtr plastic = loadSample(kThermoplastic);
    MATIO_RSVManipulator manipulator(file.c_str());
    EXPECT_FALSE(manipulator.AddMaterial(plastic.get(), "Part", 4096));    // run 0
    EXPECT_FALSE(manipulator.AddMaterial(plastic.get(), "Part", -65537));  // run -1
    EXPECT_FALSE(manipulator.AddMaterial(nullptr, "Part", kRun1Plastic));
    EXPECT_EQ(manipulator.GetMaterialCount(), 0);
}

}  // namespace
