// Table items of the store when HDF5 refuses a call of the read or the write: a read answers 0
// with the value or -1 with the output untouched, a write 0 or -1, and a refused write leaves the
// table able to take the item afterwards. Items written by another program as variable-length
// texts are read too, and texts longer than the store keeps types for.
#include <gtest/gtest.h>
#include <hdf5.h>

#include <string>

#include "rsv/rsv_tool.h"
#include "rsvfault/fault_points.h"
#include "support/temp_files.h"

namespace {

using namespace qrvtest;
using namespace QRV3DRSVExTool;

// Longer than the text types the store keeps made (256 bytes with the terminator).
const std::string kLongText = std::string(300, 'L') + " end";

void textAttribute(hid_t object, const char* name, const char* value, bool variable) {
    hid_t type = H5Tcopy(H5T_C_S1);
    H5Tset_size(type, variable ? H5T_VARIABLE : std::string(value).size() + 1);
    hid_t space = H5Screate(H5S_SCALAR);
    hid_t attribute = H5Acreate2(object, name, type, space, H5P_DEFAULT, H5P_DEFAULT);
    if (variable)
        H5Awrite(attribute, type, &value);
    else
        H5Awrite(attribute, type, value);
    H5Aclose(attribute);
    H5Sclose(space);
    H5Tclose(type);
}

template <typename Number>
void numberAttribute(hid_t object, const char* name, hid_t fileType, hid_t memoryType,
                     Number value) {
    hid_t space = H5Screate(H5S_SCALAR);
    hid_t attribute = H5Acreate2(object, name, fileType, space, H5P_DEFAULT, H5P_DEFAULT);
    H5Awrite(attribute, memoryType, &value);
    H5Aclose(attribute);
    H5Sclose(space);
}

class RefusedItemTest : public ::testing::Test {
protected:
    void SetUp() override {
        ::testing::internal::CaptureStderr();
        // A table /Vantrell/Run1/T as another program writes one.
        hid_t raw = H5Fcreate(file.c_str(), H5F_ACC_EXCL, H5P_DEFAULT, H5P_DEFAULT);
        ASSERT_GE(raw, 0);
        hid_t links = H5Pcreate(H5P_LINK_CREATE);
        H5Pset_create_intermediate_group(links, 1);
        hid_t table = H5Gcreate2(raw, "/Vantrell/Run1/T", links, H5P_DEFAULT, H5P_DEFAULT);
        textAttribute(table, "RSV_CLASS", "TABLE", false);
        textAttribute(table, "Variable", "PP-H 400", true);
        textAttribute(table, "Fixed", "PLA", false);
        textAttribute(table, "Long", kLongText.c_str(), false);
        numberAttribute(table, "Number", H5T_STD_I32LE, H5T_NATIVE_INT, 9012);
        numberAttribute(table, "Real", H5T_IEEE_F64LE, H5T_NATIVE_DOUBLE, 0.25);
        H5Gclose(table);
        H5Pclose(links);
        H5Fclose(raw);
    }
    void TearDown() override {
        HDF5Faults::disarm();
        EXPECT_EQ(::testing::internal::GetCapturedStderr(), "");
    }

    // Runs use(table) with HDF5 refusing calls of it, on an opened table of the file.
    template <typename Use>
    long eachRefusal(Refusal mode, Use use) {
        return everyFaultPoint(mode, [&](long k) {
            const long baseline = openIds();
            {
                CRSVTool tool;
                ASSERT_EQ(tool.Open(file), 0);
                CRSVTable* table = tool.OpenTable(tool.OpenGroup(1), "T");
                ASSERT_NE(table, nullptr);
                HDF5Faults::arm(k, mode);
                use(*table);
                HDF5Faults::disarm();
            }
            EXPECT_EQ(openIds(), baseline);
        });
    }

    TempFolder folder;
    std::string file = folder.path("run.rsv");
};

TEST_F(RefusedItemTest, ReadingTextsGivesTheTextOrLeavesTheOutputAlone) {
    const std::pair<const char*, std::string> items[] = {
        {"Variable", "PP-H 400"}, {"Fixed", "PLA"}, {"Long", kLongText}};
    for (const auto& [key, expected] : items) {
        for (Refusal mode : {Refusal::Once, Refusal::FromThenOn}) {
            const long points =
                eachRefusal(mode, [&, key = key, expected = expected](CRSVTable& table) {
                    std::string value = "untouched";
                    const int result = table.GetItem(key, &value);
                    EXPECT_TRUE(result == 0 || result == -1) << result;
                    EXPECT_EQ(value, result == 0 ? expected : "untouched") << key;
                });
            report((std::string("GetItem, text ") + key).c_str(), mode, points);
        }
    }
}

TEST_F(RefusedItemTest, ReadingNumbersGivesTheNumberOrLeavesTheOutputAlone) {
    for (Refusal mode : {Refusal::Once, Refusal::FromThenOn}) {
        const long points = eachRefusal(mode, [&](CRSVTable& table) {
            int number = -7;
            double real = -7.5;
            const int numberResult = table.GetItem("Number", &number);
            const int realResult = table.GetItem("Real", &real);
            EXPECT_EQ(number, numberResult == 0 ? 9012 : -7);
            EXPECT_EQ(real, realResult == 0 ? 0.25 : -7.5);
            EXPECT_TRUE(numberResult == -1 || numberResult == 0);
            EXPECT_TRUE(realResult == -1 || realResult == 0);
        });
        report("GetItem, integer and real", mode, points);
    }
}

TEST_F(RefusedItemTest, ACountMadeWhileHDF5RefusedIsNotKept) {
    {
        // Beside the table T: a group whose marker is no table's, and a plain group.
        CRSVTool tool;
        ASSERT_EQ(tool.Open(file), 0);
        CRSVGroup* run = tool.OpenGroup(1);
        tool.WriteAttribute(tool.CreateGroup(run, "Marked"), "RSV_CLASS", 3);
        ASSERT_NE(tool.CreateGroup(run, "Plain"), nullptr);
    }
    for (Refusal mode : {Refusal::Once, Refusal::FromThenOn}) {
        const long points = everyFaultPoint(mode, [&](long k) {
            const long baseline = openIds();
            {
                CRSVTool tool;
                ASSERT_EQ(tool.Open(file), 0);
                CRSVGroup* run = tool.OpenGroup(1);
                ASSERT_NE(run, nullptr);
                HDF5Faults::arm(k, mode);
                const size_t during = run->GetGroupCount();
                HDF5Faults::disarm();
                // Refused, the walk may take the table for a group, or miss a member.
                EXPECT_LE(during, 3u);
                EXPECT_EQ(run->GetGroupCount(), 2u);
            }
            EXPECT_EQ(openIds(), baseline);
        });
        report("GetGroupCount of a group with a table", mode, points);
    }
}

TEST_F(RefusedItemTest, ALongTextWrittenUnderRefusalsIsWrittenWholeAfterwards) {
    const std::string longer = kLongText + kLongText;
    for (Refusal mode : {Refusal::Once, Refusal::FromThenOn}) {
        const long points = eachRefusal(mode, [&](CRSVTable& table) {
            const int result = table.SetItem("Comment", longer);
            HDF5Faults::disarm();
            std::string back;
            if (result == 0) {
                EXPECT_EQ(table.GetItem("Comment", &back), 0);
                EXPECT_EQ(back, longer);
            }
            // The table takes the item once HDF5 no longer refuses, replacing what was left.
            EXPECT_EQ(table.SetItem("Comment", longer), 0);
            EXPECT_EQ(table.GetItem("Comment", &back), 0);
            EXPECT_EQ(back, longer);
        });
        report("SetItem, text of 609 bytes", mode, points);
    }
}

}  // namespace
