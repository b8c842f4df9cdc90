// The metadata cache size the store chooses for a run file: set only while the store alone has
// the file open, and what a host that opens the same file through HDF5 had or gets is its own
// again once the store is gone.
#include <gtest/gtest.h>

#include <hdf5.h>

#include <quorvalib/runfile.h>

#include <memory>
#include <string>

#include "runfile/run_file_support.h"
#include "support/temp_files.h"

namespace {

using namespace qrvtest;

H5AC_cache_config_t cacheConfig(hid_t file) {
    H5AC_cache_config_t config{};
    config.version = H5AC__CURR_CACHE_CONFIG_VERSION;
    EXPECT_GE(H5Fget_mdc_config(file, &config), 0);
    return config;
}

class MetadataCacheTest : public ::testing::Test {
protected:
    void SetUp() override {
        // HDF5's own default, from a file that the store never touches.
        hid_t plain =
            H5Fcreate(folder.path("plain.h5").c_str(), H5F_ACC_EXCL, H5P_DEFAULT, H5P_DEFAULT);
        ASSERT_GE(plain, 0);
        defaults = cacheConfig(plain);
        H5Fclose(plain);
        material = loadSample(kThermoplastic);
        ASSERT_NE(material, nullptr);
    }

    TempFolder folder;
    std::string file = folder.path("run.rsv");
    H5AC_cache_config_t defaults{};
    MaterialPtr material{nullptr, QrvReleaseMaterial};
};

TEST_F(MetadataCacheTest, AHostsOpenFileKeepsItsCache) {
    { MATIO_RSVManipulator(file.c_str()).AddMaterial(material.get(), "a", kRun1Plastic); }
    hid_t host = H5Fopen(file.c_str(), H5F_ACC_RDWR, H5P_DEFAULT);
    ASSERT_GE(host, 0);
    {
        MATIO_RSVManipulator manipulator(file.c_str());
        ASSERT_TRUE(manipulator.AddMaterial(material.get(), "b", kRun1Plastic));
        EXPECT_EQ(manipulator.GetMaterialCount(), 2);
        EXPECT_EQ(cacheConfig(host).max_size, defaults.max_size);
        EXPECT_EQ(cacheConfig(host).incr_mode, defaults.incr_mode);
    }
    EXPECT_EQ(cacheConfig(host).max_size, defaults.max_size);
    H5Fclose(host);
}

TEST_F(MetadataCacheTest, AHostThatOpensTheFileLaterGetsTheDefaultBackWhenTheStoreCloses) {
    auto manipulator = std::make_unique<MATIO_RSVManipulator>(file.c_str());
    ASSERT_TRUE(manipulator->AddMaterial(material.get(), "a", kRun1Plastic));
    hid_t host = H5Fopen(file.c_str(), H5F_ACC_RDWR, H5P_DEFAULT);
    ASSERT_GE(host, 0);
    // Meanwhile the file's one cache is the store's small one, of a fixed size (which size is a
    // matter of speed alone).
    const H5AC_cache_config_t during = cacheConfig(host);
    EXPECT_LT(during.max_size, defaults.max_size);
    EXPECT_EQ(during.min_size, during.max_size);
    EXPECT_EQ(during.initial_size, during.max_size);
    EXPECT_EQ(during.incr_mode, H5C_incr__off);
    EXPECT_EQ(during.flash_incr_mode, H5C_flash_incr__off);
    EXPECT_EQ(during.decr_mode, H5C_decr__off);
    manipulator.reset();
    const H5AC_cache_config_t after = cacheConfig(host);
    EXPECT_EQ(after.max_size, defaults.max_size);
    EXPECT_EQ(after.min_size, defaults.min_size);
    EXPECT_EQ(after.incr_mode, defaults.incr_mode);
    EXPECT_EQ(after.decr_mode, defaults.decr_mode);
    // The host's own work on the file goes on.
    EXPECT_GT(H5Lexists(host, "/Vantrell/Run1/Material", H5P_DEFAULT), 0);
    H5Fclose(host);
}

}  // namespace
