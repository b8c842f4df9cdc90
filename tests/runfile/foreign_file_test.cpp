// Run files written by another program through the HDF5 C library: texts stored with variable
// length, which this library never writes, and an MTC record whose temperature row claims far
// more sections than the file holds.
#include <gtest/gtest.h>
#include <hdf5.h>

#include <quorvalib/measured.h>
#include <quorvalib/runfile.h>

#include <string>
#include <vector>

#include "runfile/allocation_count.h"
#include "support/material_ptr.h"
#include "support/temp_files.h"

namespace {

using qrvtest::values;

// A new HDF5 file written through the C library alone, as a foreign writer would.
class ForeignFile {
public:
    explicit ForeignFile(const std::string& path)
        : file_(H5Fcreate(path.c_str(), H5F_ACC_TRUNC, H5P_DEFAULT, H5P_DEFAULT)) {}
    ~ForeignFile() {
        for (hid_t group : groups_)
            H5Gclose(group);
        H5Fclose(file_);
    }
    ForeignFile(const ForeignFile&) = delete;
    ForeignFile& operator=(const ForeignFile&) = delete;
    bool valid() const { return file_ >= 0; }

    // The group at an absolute path, made with its parents; kept open until the file closes.
    hid_t group(const std::string& path) {
        hid_t links = H5Pcreate(H5P_LINK_CREATE);
        H5Pset_create_intermediate_group(links, 1);
        const hid_t made = H5Gcreate2(file_, path.c_str(), links, H5P_DEFAULT, H5P_DEFAULT);
        H5Pclose(links);
        groups_.push_back(made);
        return made;
    }

    // A group that the store takes for a table: its marker attribute, as variable-length text.
    hid_t table(const std::string& path) {
        const hid_t made = group(path);
        variableText(made, "RSV_CLASS", "TABLE");
        return made;
    }

    static void variableText(hid_t object, const char* name, const char* value) {
        hid_t type = H5Tcopy(H5T_C_S1);
        H5Tset_size(type, H5T_VARIABLE);
        attribute(object, name, type, H5Screate(H5S_SCALAR), &value);
        H5Tclose(type);
    }

    static void variableTexts(hid_t object, const char* name, std::vector<const char*> texts) {
        hid_t type = H5Tcopy(H5T_C_S1);
        H5Tset_size(type, H5T_VARIABLE);
        const hsize_t count[1] = {texts.size()};
        attribute(object, name, type, H5Screate_simple(1, count, nullptr), texts.data());
        H5Tclose(type);
    }

    // Fixed length without a terminator: the bytes fill the whole size.
    static void paddedText(hid_t object, const char* name, const std::string& value) {
        hid_t type = H5Tcopy(H5T_C_S1);
        H5Tset_size(type, value.size());
        H5Tset_strpad(type, H5T_STR_NULLPAD);
        attribute(object, name, type, H5Screate(H5S_SCALAR), value.data());
        H5Tclose(type);
    }

    static void integer(hid_t object, const char* name, int value) {
        attribute(object, name, H5T_NATIVE_INT, H5Screate(H5S_SCALAR), &value);
    }

    // A 1 x n array of doubles; without values it is chunked and never written, so that a huge
    // one costs nothing on disk and reads as zeros.
    static void doubles(hid_t group, const char* name, hsize_t columns, const double* row) {
        const hsize_t shape[2] = {1, columns};
        hid_t space = H5Screate_simple(2, shape, nullptr);
        hid_t create = H5Pcreate(H5P_DATASET_CREATE);
        if (!row) {
            const hsize_t chunk[2] = {1, 4096};
            H5Pset_chunk(create, 2, chunk);
        }
        hid_t set =
            H5Dcreate2(group, name, H5T_IEEE_F64LE, space, H5P_DEFAULT, create, H5P_DEFAULT);
        if (row) H5Dwrite(set, H5T_NATIVE_DOUBLE, H5S_ALL, H5S_ALL, H5P_DEFAULT, row);
        H5Dclose(set);
        H5Pclose(create);
        H5Sclose(space);
    }

private:
    static void attribute(hid_t object, const char* name, hid_t type, hid_t space,
                          const void* value) {
        hid_t made = H5Acreate2(object, name, type, space, H5P_DEFAULT, H5P_DEFAULT);
        H5Awrite(made, type, value);
        H5Aclose(made);
        H5Sclose(space);
    }

    hid_t file_;
    std::vector<hid_t> groups_;
};

constexpr const char* kMaterial = "/Vantrell/Run1/Material/Material 1";

class ForeignRunFileTest : public ::testing::Test {
protected:
    qrvtest::TempFolder folder;
    std::string path = folder.path("foreign.rsv");
};

TEST_F(ForeignRunFileTest, VariableLengthTextsReadAsTheirText) {
    {
        ForeignFile file(path);
        ASSERT_TRUE(file.valid());
        const hid_t material = file.group(kMaterial);
        const hid_t summary = file.table(std::string(kMaterial) + "/Summary");
        ForeignFile::variableText(summary, "Polymer", "PP-H 400");
        ForeignFile::variableText(summary, "Grade Name", "");
        ForeignFile::variableText(summary, "Producer", nullptr);  // a null text of the writer
        ForeignFile::variableTexts(summary, "Comment", {"two", "texts"});  // not one value
        ForeignFile::paddedText(summary, "Source", "Sample");              // no terminator
        ForeignFile::integer(summary, "Type", 2);
        ForeignFile::variableText(summary, "Version", "9012");  // a text for a number
        ForeignFile::integer(summary, "Vis Model", 10);
        const double vis[] = {0.69, 6.9179, 1.9442};
        ForeignFile::doubles(material, "Vis Para", 3, vis);
        // A link to nothing beside the material is no material.
        H5Lcreate_soft("/nowhere", material, "/Vantrell/Run1/Material/Material 2", H5P_DEFAULT,
                       H5P_DEFAULT);
    }
    MATIO_RSVManipulator manipulator(path.c_str());
    ASSERT_EQ(manipulator.GetMaterialCount(), 1);
    QrvMaterial* m = manipulator.GetMaterial(0);
    ASSERT_NE(m, nullptr);
    EXPECT_STREQ(m->Polymer, "PP-H 400");
    EXPECT_STREQ(m->GradeName, "");
    EXPECT_STREQ(m->Producer, "");
    EXPECT_STREQ(m->Comment, "");
    EXPECT_STREQ(m->Source, "Sample");
    EXPECT_EQ(m->FileType, 2);
    EXPECT_EQ(m->FileVer, 0);  // a text is not read as a number
    EXPECT_EQ(m->Vis.Model, 10);
    EXPECT_EQ(values(m->Vis), (std::vector<double>{0.69, 6.9179, 1.9442}));
}

// "MTC 1" claims a million sections in a temperature row that was never written, and holds one
// section group; "MTC 2" is whole. A section takes 3 ints and 21 doubles, so making room for the
// claimed sections would ask for at least 1,000,000 x 21 x 8 bytes = 168 MB at once; the row
// itself is 1,000,000 x 8 bytes = 8 MB, under the reader's array limit of 2^20 values.
TEST_F(ForeignRunFileTest, AnMTCRecordClaimingAMillionSectionsIsLeftOutWithoutItsMemory) {
    constexpr hsize_t kClaimed = 1000000;
    constexpr std::size_t kRowBytes = kClaimed * sizeof(double);
    {
        ForeignFile file(path);
        ASSERT_TRUE(file.valid());
        file.group(kMaterial);
        ForeignFile::integer(file.table(std::string(kMaterial) + "/Summary"), "Type", 1);
        for (const char* record : {"/MTC 1", "/MTC 2"}) {
            const std::string mtc = std::string(kMaterial) + record;
            const hid_t group = file.group(mtc);
            ForeignFile::integer(file.table(mtc + "/Summary"), "Version", 7);
            const bool whole = mtc.back() == '2';
            const double temperatures[] = {180.0};
            ForeignFile::doubles(group, "Interval Temperature", whole ? 1 : kClaimed,
                                 whole ? temperatures : nullptr);
            const hid_t section = file.group(mtc + "/Section 1");
            const hid_t model = file.table(mtc + "/Section 1/MTC Model");
            ForeignFile::integer(model, "Model ID", 4);
            ForeignFile::integer(model, "Max Parameter num", 2);
            const double parameters[] = {0.25, 1.5e6};
            ForeignFile::doubles(section, "Parameters", 2, parameters);
        }
    }
    MATIO_RSVManipulator manipulator(path.c_str());
    ASSERT_EQ(manipulator.GetMaterialCount(), 1);
    QrvMaterial* m = nullptr;
    qrvtest::Allocations asked{0, 0};
    {
        qrvtest::CountAllocations count;
        m = manipulator.GetMaterial(0);
        asked = count.sofar();
    }
    ASSERT_NE(m, nullptr);
    // Nothing beyond the row read and a little besides.
    EXPECT_LT(asked.Largest, 2 * kRowBytes);
    EXPECT_LT(asked.Total, 4 * kRowBytes);

    // MTC 1 misses its sections 2 to 1,000,000 and is left out; MTC 2 comes back.
    int version = 0, count = 0;
    QrvGetMTCInfo(m, version, count);
    ASSERT_EQ(count, 1);
    const QRV_MTC* record = QrvGetMTCData(m, 0);
    ASSERT_NE(record, nullptr);
    EXPECT_EQ(record->Version, 7);
    ASSERT_EQ(record->SectionCount, 1);
    EXPECT_EQ(record->IntervalTemperature[0], 180.0);
    EXPECT_EQ(record->Sections[0].ModelId, 4);
    EXPECT_EQ(record->Sections[0].Parameters[0], 0.25);
    EXPECT_EQ(record->Sections[0].Parameters[1], 1.5e6);
    EXPECT_EQ(record->Sections[0].Parameters[2], 0.0);
}

}  // namespace
