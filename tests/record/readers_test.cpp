// Field readers, type tests and the material type text.
#include <gtest/gtest.h>

#include <quorvalib/record.h>

#include "record/material_internal.h"
#include "support/material_ptr.h"

using qrvtest::makeRecord;

TEST(Readers, NullRecordGivesZeroAndNull) {
    EXPECT_EQ(QrvGetFileVer(nullptr), 0);
    EXPECT_EQ(QrvGetFileType(nullptr), 0);
    EXPECT_EQ(QrvGetLastEditDate(nullptr), 0);
    EXPECT_EQ(QrvGetMeasureDate(nullptr), 0);
    EXPECT_EQ(QrvGetPolymer(nullptr), nullptr);
    EXPECT_EQ(QrvGetProducer(nullptr), nullptr);
    EXPECT_EQ(QrvGetGradeName(nullptr), nullptr);
    EXPECT_EQ(QrvGetComment(nullptr), nullptr);
    EXPECT_EQ(QrvGetSource(nullptr), nullptr);
}

TEST(Readers, GiveTheFieldsWithoutCopy) {
    auto material = makeRecord(3);
    material->FileVer = 9012;
    material->LastEditDate = 20231231;
    material->MeasureDate = 19991231;
    material->Polymer = qrv::newText("Metal");
    material->Producer = qrv::newText("Mill");
    material->GradeName = qrv::newText("P20");
    material->Comment = qrv::newText("7.8");
    material->Source = qrv::newText("Legacy");
    QrvMaterial* m = material.get();
    EXPECT_EQ(QrvGetFileVer(m), 9012);
    EXPECT_EQ(QrvGetFileType(m), 3);
    EXPECT_EQ(QrvGetLastEditDate(m), 20231231);
    EXPECT_EQ(QrvGetMeasureDate(m), 19991231);
    EXPECT_EQ(QrvGetPolymer(m), m->Polymer);
    EXPECT_EQ(QrvGetProducer(m), m->Producer);
    EXPECT_EQ(QrvGetGradeName(m), m->GradeName);
    EXPECT_EQ(QrvGetComment(m), m->Comment);
    EXPECT_EQ(QrvGetSource(m), m->Source);
    EXPECT_STREQ(QrvGetGradeName(m), "P20");
}

TEST(TypeTests, NullRecordIsNoType) {
    EXPECT_FALSE(QrvIsThermoplastic(nullptr));
    EXPECT_FALSE(QrvIsRIM(static_cast<QrvMaterial*>(nullptr)));
    EXPECT_FALSE(QrvIsThermoset(nullptr));
    EXPECT_FALSE(QrvIsMetal(nullptr));
    EXPECT_FALSE(QrvIsCoolant(nullptr));
    EXPECT_FALSE(QrvIsIC_Chip(nullptr));
    EXPECT_FALSE(QrvIsIC_LeadFrame(nullptr));
    EXPECT_FALSE(QrvIsIC_Substrate(nullptr));
    EXPECT_FALSE(QrvIsIC_Wire(nullptr));
}

// Each row: the FileType, the test that answers true for it (none outside the listed codes), and
// the type text.
struct TypeRow {
    int code;
    const char* expectedTrue;
    const char* text;
};

TEST(TypeTests, EachCodeAnswersItsOwnTestAndText) {
    const TypeRow rows[] = {
        {-3, "thermoplastic", "Unknown Type"},
        {0, "thermoplastic", "Unknown Type"},
        {1, "thermoplastic", "Thermoplastic"},
        {2, "thermoset", "Thermosetting plastic"},
        {3, "metal", "Metal"},
        {4, "coolant", "Coolant"},
        {5, "", "Unknown Type"},
        {6, "chip", "Chip"},
        {7, "leadframe", "Lead Frame"},
        {8, "substrate", "Substrate"},
        {9, "wire", "Wire"},
        {10, "", "Fluid"},
        {11, "", "Unknown Type"},
        {1000, "", "Unknown Type"},
    };
    for (const TypeRow& row : rows) {
        SCOPED_TRACE(row.code);
        auto material = makeRecord(row.code);
        QrvMaterial* m = material.get();
        const std::string expected = row.expectedTrue;
        EXPECT_EQ(QrvIsThermoplastic(m), expected == "thermoplastic");
        EXPECT_EQ(QrvIsRIM(m), expected == "thermoset");
        EXPECT_EQ(QrvIsThermoset(m), expected == "thermoset");
        EXPECT_EQ(QrvIsMetal(m), expected == "metal");
        EXPECT_EQ(QrvIsCoolant(m), expected == "coolant");
        EXPECT_EQ(QrvIsIC_Chip(m), expected == "chip");
        EXPECT_EQ(QrvIsIC_LeadFrame(m), expected == "leadframe");
        EXPECT_EQ(QrvIsIC_Substrate(m), expected == "substrate");
        EXPECT_EQ(QrvIsIC_Wire(m), expected == "wire");
        EXPECT_STREQ(QrvGetMaterialType(m), row.text);
    }
}

TEST(TypeText, NullRecordIsFail) {
    EXPECT_STREQ(QrvGetMaterialType(nullptr), "fail");
}

// The text lives in one shared buffer that the next naming call overwrites.
TEST(TypeText, NextCallOverwritesTheSharedText) {
    auto metal = makeRecord(3);
    auto wire = makeRecord(9);
    const char* first = QrvGetMaterialType(metal.get());
    EXPECT_STREQ(first, "Metal");
    const char* second = QrvGetMaterialType(wire.get());
    EXPECT_STREQ(second, "Wire");
    EXPECT_EQ(first, second);
}
