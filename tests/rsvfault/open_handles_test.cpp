// How many HDF5 handles the run-file code holds while it works. Each group and array it opens is
// given back as soon as it is read or written, so the open handles stay at the depth of the path
// it is at, however many property blocks a material has; a handle left open until the file
// closes would pile up with every block.
#include <gtest/gtest.h>
#include <hdf5.h>

#include <quorvalib/runfile.h>

#include <string>

#include "rsv/rsv_tool.h"
#include "rsvfault/hdf5_faults.h"
#include "runfile/run_file_support.h"
#include "support/temp_files.h"

namespace {

using namespace qrvtest;

class OpenHandlesTest : public ::testing::Test {
protected:
    void SetUp() override {
        material = loadSample(kThermoplastic);
        ASSERT_NE(material, nullptr);
        // Nothing open before: the counts below are the store's alone.
        ASSERT_EQ(H5Fget_obj_count(H5F_OBJ_ALL, H5F_OBJ_GROUP | H5F_OBJ_DATASET), 0);
    }
    // The watch costs two counts per HDF5 call: the refusal loops of this program go without.
    void TearDown() override { HDF5Faults::stopWatching(); }

    TempFolder folder;
    std::string file = folder.path("run.rsv");
    MaterialPtr material{nullptr, QrvReleaseMaterial};
};

// The sample thermoplastic has some thirty arrays in a dozen groups. Its deepest node is the
// table /Vantrell/Run1/Material/Material 1/MTC 1/Section 1/MTC Model (a table is a group): with
// the run or category group the store holds open, six groups and no array; an array lies at most
// five groups deep.
constexpr long kDeepestGroups = 6;

TEST_F(OpenHandlesTest, StoringAMaterialHoldsOneArrayAtATime) {
    MATIO_RSVManipulator run(file.c_str());
    HDF5Faults::watchOpenObjects();
    ASSERT_TRUE(run.AddMaterial(material.get(), "Part", kRun1Plastic));
    EXPECT_LE(HDF5Faults::peakOpenDatasets(), 1);
    EXPECT_LE(HDF5Faults::peakOpenGroups(), kDeepestGroups);
    EXPECT_GE(HDF5Faults::peakOpenGroups(), 3);  // the watch saw the store at work
}

TEST_F(OpenHandlesTest, ReadingAMaterialBackHoldsOneArrayAtATime) {
    {
        MATIO_RSVManipulator writer(file.c_str());
        ASSERT_TRUE(writer.AddMaterial(material.get(), "Part", kRun1Plastic));
    }
    MATIO_RSVManipulator run(file.c_str());
    HDF5Faults::watchOpenObjects();
    EXPECT_EQ(run.GetMaterialCount(), 1);
    QrvMaterial* back = run.GetMaterial(0);
    ASSERT_NE(back, nullptr);
    EXPECT_GT(back->Vis.Count, 0);  // the arrays were read
    EXPECT_LE(HDF5Faults::peakOpenDatasets(), 1);
    EXPECT_LE(HDF5Faults::peakOpenGroups(), kDeepestGroups);
    EXPECT_GE(HDF5Faults::peakOpenGroups(), 3);
}

// Attribute text types are made once per size and kept while the file is open, up to texts of 256
// bytes with their terminator; a longer one gets a type of its own, given back after the write,
// so that a file of many long texts of different lengths does not pile up types.
TEST(KeptTextTypes, UpTo256BytesATypeIsKeptALongerOneIsGivenBack) {
    TempFolder folder;
    const long before = HDF5Faults::transientIds();
    {
        QRV3DRSVExTool::CRSVTool tool;
        ASSERT_EQ(tool.Create(folder.path("run.rsv"), 4, 13, 0), 0);
        QRV3DRSVExTool::CRSVTable* table = tool.CreateTable(tool.OpenGroup(1), "Texts");
        ASSERT_NE(table, nullptr);
        const long open = HDF5Faults::transientIds();
        EXPECT_EQ(table->SetItem("long", std::string(256, 'x')), 0);  // 257 bytes
        EXPECT_EQ(HDF5Faults::transientIds(), open);
        EXPECT_EQ(table->SetItem("kept", std::string(255, 'y')), 0);  // 256 bytes
        EXPECT_EQ(HDF5Faults::transientIds(), open + 1);
        EXPECT_EQ(table->SetItem("again", std::string(255, 'z')), 0);  // the same type again
        EXPECT_EQ(HDF5Faults::transientIds(), open + 1);
        std::string back;
        EXPECT_EQ(table->GetItem("long", &back), 0);
        EXPECT_EQ(back, std::string(256, 'x'));
    }
    EXPECT_EQ(HDF5Faults::transientIds(), before);
}

}  // namespace
