// The material type text and the melt-flow text of the comment, both on the shared name text.
#include <gtest/gtest.h>

#include <climits>
#include <map>
#include <string>

#include "vocabulary/test_record.h"

using vocabulary_test::TestRecord;

namespace {

TEST(MaterialType, EveryCode) {
    const std::map<int, std::string> texts = {{1, "Thermoplastic"}, {2, "Thermosetting plastic"},
                                              {3, "Metal"},         {4, "Coolant"},
                                              {6, "Chip"},          {7, "Lead Frame"},
                                              {8, "Substrate"},     {9, "Wire"},
                                              {10, "Fluid"}};
    for (int code : {INT_MIN, -1, 0, 1, 2, 3, 4, 5, 6, 7, 8, 9, 10, 11, 12, 100, INT_MAX}) {
        TestRecord r;
        r->FileType = code;
        const auto found = texts.find(code);
        EXPECT_EQ(QrvGetMaterialType(r.get()),
                  found == texts.end() ? "Unknown Type" : found->second)
            << code;
    }
}

TEST(MaterialType, CodeFiveAndZeroAreUnknown) {
    TestRecord r;
    r->FileType = 5;
    EXPECT_STREQ(QrvGetMaterialType(r.get()), "Unknown Type");
    r->FileType = 0;
    EXPECT_STREQ(QrvGetMaterialType(r.get()), "Unknown Type");
}

TEST(MaterialType, NullRecordGivesFail) {
    EXPECT_STREQ(QrvGetMaterialType(nullptr), "fail");
}

TEST(MaterialType, SharesTheNameText) {
    TestRecord r;
    r->FileType = 3;
    const char* type = QrvGetMaterialType(r.get());
    EXPECT_STREQ(type, "Metal");
    r->Cp.Model = 2;
    QrvGetCpModelName(r.get());
    EXPECT_STREQ(type, "CAE_Cp Model 1");
}

std::string mfiOf(const std::string& comment) {
    TestRecord r;
    r.text(&QrvMaterial::Comment, comment);
    return QrvGetMFIString(r.get());
}

TEST(MFIString, WholeCommentWhenItIsTheIndex) {
    EXPECT_EQ(mfiOf("MFI 12 g/10min"), "MFI 12 g/10min");
}

TEST(MFIString, OnlyThePartFromMFIToTheUnit) {
    EXPECT_EQ(mfiOf("Grade for caps; MFI 12 g/10min (230C/2.16kg), food contact"),
              "MFI 12 g/10min");
    EXPECT_EQ(mfiOf("MFI/10min"), "MFI/10min");
    EXPECT_EQ(mfiOf("xMFIMFI 3/10min/10min"), "MFIMFI 3/10min");
}

TEST(MFIString, UnitBeforeMFIGivesUnavailable) {
    EXPECT_EQ(mfiOf("20 g/10min, MFI unknown"), "Unavailable");
    // The first "/10min" decides, even when another one follows the "MFI".
    EXPECT_EQ(mfiOf("5 g/10min then MFI 12 g/10min"), "Unavailable");
}

TEST(MFIString, MissingMarksGiveUnavailable) {
    EXPECT_EQ(mfiOf(""), "Unavailable");
    EXPECT_EQ(mfiOf("MFI 12 g/10 min"), "Unavailable");
    EXPECT_EQ(mfiOf("12 g/10min"), "Unavailable");
    EXPECT_EQ(mfiOf("mfi 12 g/10min"), "Unavailable");
    EXPECT_EQ(mfiOf("MF I 12 g/10min"), "Unavailable");
}

TEST(MFIString, NullRecordGivesFail) {
    EXPECT_STREQ(QrvGetMFIString(nullptr), "fail");
}

TEST(MFIString, NullCommentGivesUnavailable) {
    TestRecord r;
    ASSERT_EQ(r->Comment, nullptr);
    EXPECT_STREQ(QrvGetMFIString(r.get()), "Unavailable");
}

TEST(MFIString, LeavesTheCommentAsItWas) {
    TestRecord r;
    r.text(&QrvMaterial::Comment, "a MFI 1/10min b");
    const char* mfi = QrvGetMFIString(r.get());
    EXPECT_STREQ(mfi, "MFI 1/10min");
    EXPECT_STREQ(r->Comment, "a MFI 1/10min b");
    EXPECT_EQ(mfi, qrv::nameText());
}

}  // namespace
