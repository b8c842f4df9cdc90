// HDF5's error printing around the run-file calls: off for every failure inside a call, including
// those after the first store operation of a call has ended, and the host's own handler in place
// again between calls.
#include <gtest/gtest.h>

#include <hdf5.h>

#include <quorvalib/runfile.h>

#include <string>

#include "runfile/run_file_support.h"
#include "support/temp_files.h"

namespace {

using namespace qrvtest;

// A host's own error handler, which counts how often HDF5 calls it.
int reported = 0;
herr_t countReport(hid_t /*stack*/, void* /*data*/) {
    ++reported;
    return 0;
}

class ErrorPrintTest : public ::testing::Test {
protected:
    void SetUp() override {
        H5Eget_auto2(H5E_DEFAULT, &savedHandler, &savedData);
        H5Eset_auto2(H5E_DEFAULT, countReport, &marker);
        reported = 0;
    }
    void TearDown() override { H5Eset_auto2(H5E_DEFAULT, savedHandler, savedData); }

    // Whether the host's handler is the one HDF5 has now.
    bool hostHandlerInPlace() const {
        H5E_auto2_t handler = nullptr;
        void* data = nullptr;
        H5Eget_auto2(H5E_DEFAULT, &handler, &data);
        return handler == countReport && data == &marker;
    }

    // A failure of the host's own, which its handler must see.
    void failOnce() const {
        const hid_t missing =
            H5Fopen(folder.path("missing.h5").c_str(), H5F_ACC_RDONLY, H5P_DEFAULT);
        if (missing >= 0) H5Fclose(missing);
    }

    TempFolder folder;
    int marker = 0;
    H5E_auto2_t savedHandler = nullptr;
    void* savedData = nullptr;
};

TEST_F(ErrorPrintTest, TheHostsHandlerSeesItsOwnFailuresOnly) {
    failOnce();
    ASSERT_EQ(reported, 1);  // the handler is live
    reported = 0;

    MaterialPtr material = loadSample(kThermoplastic);
    ASSERT_NE(material, nullptr);
    const std::string file = folder.path("run.rsv");
    {
        MATIO_RSVManipulator writer(file.c_str());
        EXPECT_TRUE(hostHandlerInPlace());
        // A missing category group, a missing run group and missing arrays are probed inside.
        ASSERT_TRUE(writer.AddMaterial(material.get(), "Part", kRun1Plastic));
        EXPECT_TRUE(hostHandlerInPlace());
    }
    EXPECT_TRUE(hostHandlerInPlace());
    {
        // Create fails on the existing file before Open takes over; a read probes past the last
        // "MTC" group and past blocks without parameters long after its first store operation.
        MATIO_RSVManipulator reader(file.c_str());
        EXPECT_TRUE(hostHandlerInPlace());
        EXPECT_NE(reader.GetMaterial(0), nullptr);
        EXPECT_TRUE(hostHandlerInPlace());
        EXPECT_EQ(reader.GetMaterial(7), nullptr);
        EXPECT_EQ(reader.GetMaterialCount(), 1);
        EXPECT_TRUE(hostHandlerInPlace());
    }
    {
        MATIO_RSVManipulator broken(folder.path("no/such/folder/run.rsv").c_str());
        EXPECT_EQ(broken.GetMaterialCount(), 0);
    }
    EXPECT_TRUE(hostHandlerInPlace());
    EXPECT_EQ(reported, 0);

    failOnce();
    EXPECT_EQ(reported, 1);
}

}  // namespace
