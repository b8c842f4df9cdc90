// Member counts of run-file groups, which the store walks once per open file and then keeps: they
// must stay what a fresh walk would give after the store's own creates, across close and reopen,
// when other programs changed the file in between, and when two manipulators share one file.
#include <gtest/gtest.h>

#include <hdf5.h>

#include <quorvalib/runfile.h>

#include <string>

#include "rsv/rsv_tool.h"
#include "rsv/run_vocabulary.h"
#include "runfile/run_file_support.h"
#include "support/temp_files.h"

namespace {

using namespace QRV3DRSVExTool;
using namespace qrvtest;

const char* const kMaterials = "/Vantrell/Run1/Material";
const char* const kDescriptions = "/Vantrell/Run1/Description/Material";

// Changes a closed run file through the HDF5 C library, as another program would.
class Editor {
public:
    explicit Editor(const std::string& path) : raw_(path, H5F_ACC_RDWR), file_(raw_.id()) {}
    bool open() const { return file_ >= 0; }

    void group(const std::string& path) {
        H5Gclose(H5Gcreate2(file_, path.c_str(), H5P_DEFAULT, H5P_DEFAULT, H5P_DEFAULT));
    }
    // A group marked as a table, the way the store marks its tables.
    void table(const std::string& path) {
        hid_t group = H5Gcreate2(file_, path.c_str(), H5P_DEFAULT, H5P_DEFAULT, H5P_DEFAULT);
        hid_t type = H5Tcopy(H5T_C_S1);
        H5Tset_size(type, 6);
        hid_t space = H5Screate(H5S_SCALAR);
        hid_t marker = H5Acreate2(group, "RSV_CLASS", type, space, H5P_DEFAULT, H5P_DEFAULT);
        H5Awrite(marker, type, "TABLE");
        H5Aclose(marker);
        H5Sclose(space);
        H5Tclose(type);
        H5Gclose(group);
    }
    void array(const std::string& path) {
        const hsize_t dims[2] = {1, 1};
        const double value = 1.0;
        hid_t space = H5Screate_simple(2, dims, nullptr);
        hid_t set = H5Dcreate2(file_, path.c_str(), H5T_NATIVE_DOUBLE, space, H5P_DEFAULT,
                               H5P_DEFAULT, H5P_DEFAULT);
        H5Dwrite(set, H5T_NATIVE_DOUBLE, H5S_ALL, H5S_ALL, H5P_DEFAULT, &value);
        H5Dclose(set);
        H5Sclose(space);
    }
    void softLink(const std::string& target, const std::string& path) {
        H5Lcreate_soft(target.c_str(), file_, path.c_str(), H5P_DEFAULT, H5P_DEFAULT);
    }

private:
    RawFile raw_;
    hid_t file_;
};

class MemberCountTest : public ::testing::Test {
protected:
    // count copies of the material added to run 1 through one manipulator, which then closes.
    void addMaterials(QrvMaterial* material, int count) {
        MATIO_RSVManipulator writer(file.c_str());
        for (int i = 0; i < count; ++i)
            ASSERT_TRUE(writer.AddMaterial(material, "Part", kRun1Plastic));
    }

    TempFolder folder;
    std::string file = folder.path("run.rsv");
};

TEST_F(MemberCountTest, CreatesOfTheStoreKeepTheCountsOfAWalkedGroup) {
    CRSVTool tool;
    ASSERT_EQ(tool.Create(file, 4, 13, 0), 0);
    CRSVGroup* group = tool.CreateGroup(tool.OpenGroup(1), "Material");
    ASSERT_NE(group, nullptr);
    // Walked while empty, then only kept.
    EXPECT_EQ(group->GetGroupCount(), 0u);
    EXPECT_EQ(group->GetArrayCount(), 0u);
    tool.CreateGroup(group, "A");
    tool.CreateGroup(group, "B/");
    tool.CloseTable(tool.CreateTable(group, "Summary"));  // a table is no group
    const double value = 2.0;
    tool.CreateArray(group, "X", kTypeDouble, 1, 1)->WriteArray(&value);
    // Another handle on the same group sees the same counts.
    CRSVGroup* again = tool.OpenGroup(1, kCategoryMaterial);
    EXPECT_EQ(again->GetGroupCount(), 2u);
    EXPECT_EQ(again->GetArrayCount(), 1u);
    // Two levels at once: "C" is a new direct member, "D" is not; below the existing "B" nothing
    // new is direct.
    tool.CreateGroup(group, "C\\D");
    EXPECT_EQ(again->GetGroupCount(), 3u);
    tool.CreateGroup(group, "B\\Inner");
    EXPECT_EQ(again->GetGroupCount(), 3u);
    // A table made two levels down leaves a plain group "E" on the way.
    tool.CreateTable(group, "E/Summary");
    EXPECT_EQ(group->GetGroupCount(), 4u);
    // A group marked as a table by its attribute is no longer counted.
    tool.WriteAttribute(tool.OpenGroup(group, "A"), "RSV_CLASS", "TABLE");
    EXPECT_EQ(group->GetGroupCount(), 3u);
    // Arrays made inside a sub-group are not direct members.
    tool.CreateArray(tool.OpenGroup(group, "B"), "Y", kTypeInt32, 1, 1);
    EXPECT_EQ(group->GetArrayCount(), 1u);
    tool.Close();

    // The same as HDF5's own listing: A (now a table), B, C, E, Summary and X.
    RawFile raw(file);
    EXPECT_EQ(raw.links(kMaterials), 6u);
}

TEST_F(MemberCountTest, AGroupReachedByTwoPathsHasOneCount) {
    {
        CRSVTool tool;
        ASSERT_EQ(tool.Create(file, 4, 13, 0), 0);
        tool.CreateGroup(tool.OpenGroup(1), "Material");
    }
    {
        Editor editor(file);
        ASSERT_TRUE(editor.open());
        editor.softLink(kMaterials, "/Vantrell/Run1/Alias");
    }
    CRSVTool tool;
    ASSERT_EQ(tool.Open(file), 0);
    CRSVGroup* alias = tool.OpenGroup(tool.OpenGroup(1), "Alias/");
    ASSERT_NE(alias, nullptr);
    EXPECT_EQ(alias->GetGroupCount(), 0u);
    tool.CreateGroup(tool.OpenGroup(1, kCategoryMaterial), "Material 1");
    EXPECT_EQ(alias->GetGroupCount(), 1u);
}

TEST_F(MemberCountTest, ADanglingLinkCountsAsNothingAndTheCountGoesOnPastIt) {
    {
        CRSVTool tool;
        ASSERT_EQ(tool.Create(file, 4, 13, 0), 0);
        ASSERT_NE(tool.CreateGroup(tool.OpenGroup(1), "Mixed"), nullptr);
    }
    {
        // Links to nothing first, by name and by order of creation, then the members.
        Editor editor(file);
        ASSERT_TRUE(editor.open());
        editor.softLink("/nowhere", "/Vantrell/Run1/Mixed/A");
        editor.group("/Vantrell/Run1/Mixed/B");
        editor.softLink("/nowhere/else", "/Vantrell/Run1/Mixed/C");
        editor.group("/Vantrell/Run1/Mixed/D");
        editor.array("/Vantrell/Run1/Mixed/E");
        editor.array("/Vantrell/Run1/Mixed/F");
    }
    CRSVTool tool;
    ASSERT_EQ(tool.Open(file), 0);
    CRSVGroup* mixed = tool.OpenGroup(tool.OpenGroup(1), "Mixed");
    ASSERT_NE(mixed, nullptr);
    EXPECT_EQ(mixed->GetGroupCount(), 2u);
    EXPECT_EQ(mixed->GetArrayCount(), 2u);
}

TEST_F(MemberCountTest, ACloseDropsTheCountsSoChangesBetweenOpensAreSeen) {
    CRSVTool tool;
    ASSERT_EQ(tool.Create(file, 4, 13, 0), 0);
    CRSVGroup* group = tool.CreateGroup(tool.OpenGroup(1), "Material");
    tool.CreateGroup(group, "Material 1");
    EXPECT_EQ(group->GetGroupCount(), 1u);
    tool.Close();
    {
        Editor editor(file);
        ASSERT_TRUE(editor.open());
        editor.group(std::string(kMaterials) + "/Extra");
        editor.array(std::string(kMaterials) + "/Loose");
    }
    ASSERT_EQ(tool.Open(file), 0);
    EXPECT_EQ(tool.OpenGroup(1, kCategoryMaterial)->GetGroupCount(), 2u);
    EXPECT_EQ(tool.OpenGroup(1, kCategoryMaterial)->GetArrayCount(), 1u);
}

// The numbers a run's materials and descriptions get, checked by name through HDF5 itself.
TEST_F(MemberCountTest, NumberingContinuesAfterAReopen) {
    MaterialPtr material = loadSample(kThermoplastic);
    ASSERT_NE(material, nullptr);
    addMaterials(material.get(), 3);
    {
        MATIO_RSVManipulator writer(file.c_str());
        EXPECT_EQ(writer.GetMaterialCount(), 3);
        for (int i = 0; i < 2; ++i)
            ASSERT_TRUE(writer.AddMaterial(material.get(), "Part", kRun1Plastic));
        EXPECT_EQ(writer.GetMaterialCount(), 5);
    }
    RawFile raw(file);
    for (int n = 1; n <= 5; ++n)
        EXPECT_TRUE(raw.exists(std::string(kMaterials) + "/Material " + std::to_string(n))) << n;
    for (int n = 0; n <= 4; ++n)
        EXPECT_TRUE(raw.exists(std::string(kDescriptions) + "/Result" + std::to_string(n))) << n;
    EXPECT_EQ(raw.links(kMaterials), 5u);
    EXPECT_EQ(raw.links(kDescriptions), 5u);
}

TEST_F(MemberCountTest, MembersAddedByAnotherProgramBetweenOpensAreCounted) {
    MaterialPtr material = loadSample(kThermoplastic);
    ASSERT_NE(material, nullptr);
    addMaterials(material.get(), 2);
    {
        // One more group and, not counted, a table and an array; one more array among the
        // descriptions.
        Editor editor(file);
        ASSERT_TRUE(editor.open());
        editor.group(std::string(kMaterials) + "/Extra");
        editor.table(std::string(kMaterials) + "/Notes");
        editor.array(std::string(kMaterials) + "/Loose");
        editor.array(std::string(kDescriptions) + "/Foreign");
    }
    MATIO_RSVManipulator writer(file.c_str());
    EXPECT_EQ(writer.GetMaterialCount(), 3);
    ASSERT_TRUE(writer.AddMaterial(material.get(), "Part", kRun1Plastic));
    EXPECT_EQ(writer.GetMaterialCount(), 4);
    RawFile raw(file);
    EXPECT_TRUE(raw.exists(std::string(kMaterials) + "/Material 4"));
    EXPECT_FALSE(raw.exists(std::string(kMaterials) + "/Material 3"));
    // Two results and the foreign array were there: the new description is number 3.
    EXPECT_TRUE(raw.exists(std::string(kDescriptions) + "/Result3"));
    EXPECT_FALSE(raw.exists(std::string(kDescriptions) + "/Result2"));
}

TEST_F(MemberCountTest, TwoManipulatorsOnOneFileNumberTheirMaterialsInTurn) {
    MaterialPtr material = loadSample(kThermoplastic);
    ASSERT_NE(material, nullptr);
    MATIO_RSVManipulator first(file.c_str());
    ASSERT_TRUE(first.AddMaterial(material.get(), "First", kRun1Plastic));
    MATIO_RSVManipulator second(file.c_str());
    EXPECT_EQ(second.GetMaterialCount(), 1);
    ASSERT_TRUE(second.AddMaterial(material.get(), "Second", kRun1Plastic));
    ASSERT_TRUE(first.AddMaterial(material.get(), "First", kRun1Plastic));
    EXPECT_EQ(first.GetMaterialCount(), 3);
    EXPECT_EQ(second.GetMaterialCount(), 3);
    // The labels of the three descriptions, in the order the materials were added.
    RawFile raw(file);
    EXPECT_EQ(raw.description(std::string(kDescriptions) + "/Result0").at(2).second, "First");
    EXPECT_EQ(raw.description(std::string(kDescriptions) + "/Result1").at(2).second, "Second");
    EXPECT_EQ(raw.description(std::string(kDescriptions) + "/Result2").at(2).second, "First");
}

}  // namespace
