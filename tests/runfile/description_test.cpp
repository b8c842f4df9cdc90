// Description rows, run type and mesh attribute, read back through the HDF5 C library.
#include <gtest/gtest.h>

#include <quorvalib/properties.h>
#include <quorvalib/runfile.h>
#include <quorvalib/vocabulary.h>

#include <cstdio>
#include <string>
#include <utility>
#include <vector>

#include "properties/mech_layout.h"
#include "rsv/rsv_tool.h"
#include "rsv/run_vocabulary.h"
#include "runfile/description.h"
#include "runfile/run_file_support.h"
#include "support/temp_files.h"

namespace {

using namespace qrvtest;
using Rows = std::vector<std::pair<int, std::string>>;

const char* const kResult0 = "/Vantrell/Run1/Description/Material/Result0";
const char* const kResult1 = "/Vantrell/Run1/Description/Material/Result1";

std::string lg(double value) {
    char buffer[64];
    std::snprintf(buffer, sizeof buffer, "%lg", value);
    return buffer;
}

// The rows a polymer has, from its fields and the flat text calls, in ID order.
Rows polymerRows(QrvMaterial* m, const std::string& label, bool thermoset) {
    const std::string name = std::string(m->Polymer) + "(" + m->Producer + " " + m->GradeName +
                             ")" + (QrvGetFiberPercent(m) > 0.0 ? "+Fiber" : "");
    Rows rows = {{0, m->Polymer},
                 {1, name},
                 {2, label},
                 {3, thermoset ? "Thermosetting plastic" : "Thermoplastic"},
                 {4, m->Polymer},
                 {5, m->Producer},
                 {6, m->GradeName},
                 {7, QrvGetMFIString(m)},
                 {8, lg(QrvGetFiberPercent(m))},
                 {9, QrvGetVisModelName(m)},
                 {10, QrvGetPVTModelName(m)},
                 {11, QrvGetCpModelName(m)},
                 {12, QrvGetKModelName(m)},
                 {13, QrvGetMechModelName(m)}};
    if (thermoset) rows.emplace_back(14, QrvGetMechModelName(m));
    rows.emplace_back(15, lg(QrvGetMeltTempMin(m)) + " - " + lg(QrvGetMeltTempMax(m)));
    rows.emplace_back(16, lg(QrvGetMoldTempMin(m)) + " - " + lg(QrvGetMoldTempMax(m)));
    rows.emplace_back(17, lg(QrvGetEjectTemp(m)));
    rows.emplace_back(18, lg(QrvGetFreezeTemp(m)));
    rows.emplace_back(19, QrvGetVEModelName(m));
    rows.emplace_back(20, QrvHasOpticData(m) ? "YES" : "NO");
    return rows;
}

class DescriptionTest : public ::testing::Test {
protected:
    Rows describe(const Sample& sample, const char* label) {
        MaterialPtr material = loadSample(sample);
        {
            MATIO_RSVManipulator manipulator(file.c_str());
            EXPECT_TRUE(manipulator.AddMaterial(material.get(), label, kRun1Plastic));
        }
        RawFile raw(file);
        return raw.description(kResult0);
    }

    TempFolder folder;
    std::string file = folder.path("run.rsv");
};

TEST_F(DescriptionTest, ThermoplasticFillsTwentyRowsWithoutId14) {
    const Rows stored = describe(kThermoplastic, "Cavity 1");
    MaterialPtr m = loadSample(kThermoplastic);
    Rows expected = polymerRows(m.get(), "Cavity 1", false);
    ASSERT_EQ(expected.size(), 20u);
    EXPECT_EQ(stored, expected);
    EXPECT_EQ(stored[1].second, "PLA(Greenfield Bioplastics GB 3052D)");  // fibre percent 0
    EXPECT_EQ(stored[13].first, 13);
    EXPECT_EQ(stored[14].first, 15);
}

TEST_F(DescriptionTest, ThermosetLeavesItsRowWithId20Out) {
    const Rows stored = describe(kThermoset, "Cavity 2");
    MaterialPtr m = loadSample(kThermoset);
    Rows expected = polymerRows(m.get(), "Cavity 2", true);
    ASSERT_EQ(expected.size(), 21u);
    expected.pop_back();  // ID 20 falls outside the 20 rows
    EXPECT_EQ(stored, expected);
    EXPECT_EQ(stored[14].first, 14);
    EXPECT_EQ(stored[14].second, stored[13].second);
    EXPECT_EQ(stored.back().first, 19);
}

TEST_F(DescriptionTest, MetalHasNineMeaningfulRowsAndClearedOnes) {
    const Rows stored = describe(kMetal, "Insert");
    MaterialPtr m = loadSample(kMetal);
    Rows expected = {{0, "Metal"},
                     {1, "Metal(Hallam Steel Stainless 316L)"},
                     {2, "Insert"},
                     {3, "Metal"},
                     {4, "Metal"},
                     {5, "Hallam Steel"},
                     {6, "Stainless 316L"},
                     {11, QrvGetCpModelName(m.get())},
                     {12, QrvGetKModelName(m.get())}};
    expected.resize(20, {0, ""});  // the rows a metal does not fill are cleared
    EXPECT_EQ(stored, expected);
}

TEST_F(DescriptionTest, TheSecondMaterialOfARunGetsNumberOne) {
    MaterialPtr plastic = loadSample(kThermoplastic);
    MaterialPtr metal = loadSample(kMetal);
    {
        MATIO_RSVManipulator manipulator(file.c_str());
        ASSERT_TRUE(manipulator.AddMaterial(plastic.get(), "first", kRun1Plastic));
        ASSERT_TRUE(manipulator.AddMaterial(metal.get(), "second", kRun1Plastic));
    }
    RawFile raw(file);
    EXPECT_EQ(raw.description(kResult0).at(2).second, "first");
    EXPECT_EQ(raw.description(kResult1).at(2).second, "second");
    EXPECT_EQ(raw.dimensions(kResult1), (std::vector<hsize_t>{20, 1}));
    // The run's type is that of the last material added: a metal.
    EXPECT_EQ(raw.intAttribute("/Vantrell/Run1", "Material Type"), -1);
}

TEST_F(DescriptionTest, RunTypeTellsThermoplasticAndThermoset) {
    MaterialPtr plastic = loadSample(kThermoplastic);
    MaterialPtr thermoset = loadSample(kThermoset);
    MATIO_RSVManipulator manipulator(file.c_str());
    ASSERT_TRUE(manipulator.AddMaterial(plastic.get(), "a", kRun1Plastic));
    ASSERT_TRUE(manipulator.AddMaterial(thermoset.get(), "b", kRun2Plastic));
    {
        RawFile raw(file);
        EXPECT_EQ(raw.intAttribute("/Vantrell/Run1", "Material Type"), 0);
        EXPECT_EQ(raw.intAttribute("/Vantrell/Run2", "Material Type"), 1);
    }
}

TEST_F(DescriptionTest, ALongTextRunsIntoTheNextRowAndIsCutThere) {
    const std::string label(200, 'L');  // reaches well into the text of the next row
    const Rows stored = describe(kThermoplastic, label.c_str());
    EXPECT_EQ(stored[2].first, 2);
    EXPECT_EQ(stored[2].second, std::string(128, 'L'));  // no room left for its terminator
    EXPECT_EQ(stored[3], (std::pair<int, std::string>{3, "Thermoplastic"}));
}

TEST_F(DescriptionTest, ALongTextInTheLastRowStopsAtTheEndOfTheRows) {
    Rows rows(20, {0, "x"});
    rows[19] = {19, std::string(500, 'V')};
    const std::vector<char> buffer = qrv::runfile::descriptionBuffer(rows);
    ASSERT_EQ(buffer.size(), 20u * 132);
    EXPECT_EQ(std::string(buffer.data() + 19 * 132 + 4), std::string(127, 'V'));
}

TEST_F(DescriptionTest, FibreAddsItsMarkOnlyAboveZero) {
    MaterialPtr material = makeRecord();
    material->Polymer = qrv::newText("PA66");
    material->Producer = qrv::newText("Maker");
    material->GradeName = qrv::newText("GF30");
    int model = 0, index = -1;
    for (; model < 20 && index < 0; ++model)
        index = qrv::mech::indexOf(qrv::mech::Value::FiberPercent, false, model);
    --model;
    ASSERT_GE(index, 0);
    std::vector<double> mech(static_cast<size_t>(index) + 1, 0.0);
    setBlock(material->Mech, model, mech);
    ASSERT_EQ(QrvGetFiberPercent(material.get()), 0.0);
    EXPECT_EQ(qrv::runfile::materialName(material.get()), "PA66(Maker GF30)");
    material->Mech.Para[index] = 30.0;
    ASSERT_GT(QrvGetFiberPercent(material.get()), 0.0);
    EXPECT_EQ(qrv::runfile::materialName(material.get()), "PA66(Maker GF30)+Fiber");
}

TEST_F(DescriptionTest, MeshAttributeGoesOnThePlasticOrThePartInsertChild) {
    MaterialPtr plastic = loadSample(kThermoplastic);
    QRV3DRSVExTool::CRSVTool tool;
    ASSERT_EQ(tool.Create(file, 4, 13, 0), 0);
    ASSERT_NE(tool.OpenGroup(1), nullptr);
    QRV3DRSVExTool::CRSVGroup* entity = tool.OpenGroup(1, QRV3DRSVExTool::kCategoryEntity);
    ASSERT_NE(tool.CreateGroup(entity, "Plastic\\Child0"), nullptr);
    ASSERT_NE(tool.CreateGroup(entity, "PartInsert\\Child5"), nullptr);
    ASSERT_NE(tool.CreateGroup(entity, "PartInsert\\Child6"), nullptr);
    qrv::runfile::writeMeshMaterialAttribute(tool, plastic.get(), 65536 + 4096);
    qrv::runfile::writeMeshMaterialAttribute(tool, plastic.get(), 65536 + 8192 + 5);
    qrv::runfile::writeMeshMaterialAttribute(tool, plastic.get(), 65536 + 3 * 4096);  // no entity
    qrv::runfile::writeMeshMaterialAttribute(tool, plastic.get(), 2 * 65536 + 4096);  // no run 2
    tool.Close();
    RawFile raw(file);
    const std::string name = "PLA(Greenfield Bioplastics GB 3052D)";
    EXPECT_EQ(raw.textAttribute("/Vantrell/Run1/Entity/Plastic/Child0", "Material"), name);
    EXPECT_EQ(raw.textAttribute("/Vantrell/Run1/Entity/PartInsert/Child5", "Material"), name);
    EXPECT_EQ(raw.textAttribute("/Vantrell/Run1/Entity/PartInsert/Child6", "Material"),
              "<missing>");
    EXPECT_FALSE(raw.exists("/Vantrell/Run2"));
}

TEST_F(DescriptionTest, AddMaterialDoesNotMarkTheMesh) {
    MaterialPtr plastic = loadSample(kThermoplastic);
    {
        QRV3DRSVExTool::CRSVTool tool;
        ASSERT_EQ(tool.Create(file, 4, 13, 0), 0);
        tool.OpenGroup(1);
        tool.CreateGroup(tool.OpenGroup(1, QRV3DRSVExTool::kCategoryEntity), "Plastic\\Child0");
    }
    {
        MATIO_RSVManipulator manipulator(file.c_str());
        ASSERT_TRUE(manipulator.AddMaterial(plastic.get(), "Part", kRun1Plastic));
    }
    RawFile raw(file);
    EXPECT_EQ(raw.textAttribute("/Vantrell/Run1/Entity/Plastic/Child0", "Material"), "<missing>");
    EXPECT_EQ(raw.description(kResult0).at(0).second, "PLA");
}

}  // namespace
