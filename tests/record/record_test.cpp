// The material record: construction, zero state, release, shallow assignment and the mechanical
// blocks derived from Mech.
#include <gtest/gtest.h>

#include <quorvalib/record.h>

#include <string>
#include <vector>

#include "record/array_free_tracker.h"
#include "record/material_internal.h"
#include "support/material_ptr.h"

using qrvtest::adopt;
using qrvtest::setBlock;

namespace {

QrvMaterial* newZeroRecord() {
    QrvMaterial* material = new QrvMaterial;
    QrvInitMaterial(material);
    return material;
}

std::vector<QrvMatParam QrvMaterial::*> allBlocks() {
    return {&QrvMaterial::Vis, &QrvMaterial::PVT,  &QrvMaterial::Cp,   &QrvMaterial::K,
            &QrvMaterial::EM,  &QrvMaterial::PR,   &QrvMaterial::CLTE, &QrvMaterial::Temp,
            &QrvMaterial::KN,  &QrvMaterial::Mech, &QrvMaterial::VE,   &QrvMaterial::OP,
            &QrvMaterial::SI,  &QrvMaterial::CR,   &QrvMaterial::PW};
}

}  // namespace

TEST(MatParam, StartsEmpty) {
    QrvMatParam block;
    EXPECT_EQ(block.Source, 0);
    EXPECT_EQ(block.Model, 0);
    EXPECT_EQ(block.Count, 0);
    EXPECT_EQ(block.Para, nullptr);
}

TEST(MatParam, AssignmentSharesTheArray) {
    QrvMatParam a;
    setBlock(a, 4, {1.0, 2.0});
    a.Source = 7;
    QrvMatParam b;
    b = a;
    EXPECT_EQ(b.Source, 7);
    EXPECT_EQ(b.Model, 4);
    EXPECT_EQ(b.Count, 2);
    EXPECT_EQ(b.Para, a.Para);
    b.Para = nullptr;  // only one of the two may free it
}

TEST(MatParam, DestructorLooksAtParaOnly) {
    auto* block = new QrvMatParam;
    block->Para = new double[3];
    block->Count = 0;  // Count plays no part
    qrvtest::watchArray(block->Para);
    delete block;
    EXPECT_EQ(qrvtest::watchedArrayFrees(), 1);
}

TEST(Record, ConstructorNullsPointersOnly) {
    QrvMaterial material;
    EXPECT_EQ(material.Polymer, nullptr);
    EXPECT_EQ(material.Producer, nullptr);
    EXPECT_EQ(material.GradeName, nullptr);
    EXPECT_EQ(material.Comment, nullptr);
    EXPECT_EQ(material.Source, nullptr);
    EXPECT_EQ(material.VisRaw, nullptr);
    EXPECT_EQ(material.PVTRaw, nullptr);
    EXPECT_EQ(material.MTC, nullptr);
    for (auto block : allBlocks())
        EXPECT_EQ((material.*block).Para, nullptr);
}

TEST(Record, ZeroStateAfterInit) {
    auto material = adopt(new QrvMaterial);
    material->FileType = 9;
    material->FileVer = 9012;
    material->LastEditDate = 5;
    material->MeasureDate = 6;
    material->Vis.Model = 3;
    material->PW.Source = 12;
    QrvInitMaterial(material.get());
    EXPECT_EQ(QrvGetFileType(material.get()), 1);
    EXPECT_EQ(QrvGetPolymer(material.get()), nullptr);
    EXPECT_EQ(material->FileVer, 0);
    EXPECT_EQ(material->LastEditDate, 0);
    EXPECT_EQ(material->MeasureDate, 0);
    for (auto block : allBlocks()) {
        const QrvMatParam& b = material.get()->*block;
        EXPECT_EQ(b.Source, 0);
        EXPECT_EQ(b.Model, 0);
        EXPECT_EQ(b.Count, 0);
        EXPECT_EQ(b.Para, nullptr);
    }
}

TEST(Record, InitRejectsNull) {
    EXPECT_THROW(QrvInitMaterial(nullptr), std::invalid_argument);
}

TEST(Record, ReleaseOfNullDoesNothing) {
    const long before = qrvtest::arrayNewsAndDeletes();
    QrvReleaseMaterial(nullptr);
    EXPECT_EQ(qrvtest::arrayNewsAndDeletes(), before);
    // The tracker sees the library's array frees: a record with one array frees one.
    QrvMaterial* material = newZeroRecord();
    material->Vis.Para = new double[2];
    const long withArray = qrvtest::arrayNewsAndDeletes();
    QrvReleaseMaterial(material);
    EXPECT_EQ(qrvtest::arrayNewsAndDeletes(), withArray + 1);
}

TEST(Record, ReleaseFreesAZeroLengthArrayOnce) {
    QrvMaterial* material = newZeroRecord();
    material->Vis.Para = new double[0];
    material->Vis.Count = 0;
    qrvtest::watchArray(material->Vis.Para);
    QrvReleaseMaterial(material);
    EXPECT_EQ(qrvtest::watchedArrayFrees(), 1);
}

TEST(Record, ReleaseFreesEveryArrayAndText) {
    QrvMaterial* material = newZeroRecord();
    material->Polymer = qrv::newText("PP");
    material->Producer = qrv::newText("Maker");
    material->GradeName = qrv::newText("G");
    material->Comment = qrv::newText("c");
    material->Source = qrv::newText("s");
    for (auto block : allBlocks())
        setBlock(material->*block, 1, {1.0, 2.0});
    qrvtest::watchArray(material->CR.Para);
    QrvReleaseMaterial(material);  // the leak checker of the sanitizer run sees the rest
    EXPECT_EQ(qrvtest::watchedArrayFrees(), 1);
}

TEST(Record, ReleaseFreesCountedBlocksInOrderThenTheRestThroughTheDestructors) {
    // Release frees, in the order Vis, PVT, ..., PW, each array of a block with Count 1 or more;
    // an array left with Count 0 is freed afterwards by the block destructors, which run from PW
    // back to Vis.
    QrvMaterial* material = newZeroRecord();
    setBlock(material->Vis, 1, {1.0});      // Count 1: freed in the first pass, first
    setBlock(material->KN, 1, {1.0, 2.0});  // Count 2: freed in the first pass, second
    material->PW.Para = new double[0];      // Count 0: left to the destructors
    material->Cp.Para = new double[0];      // likewise, freed after PW's
    const void* vis = material->Vis.Para;
    const void* kn = material->KN.Para;
    const void* pw = material->PW.Para;
    const void* cp = material->Cp.Para;
    qrvtest::startFreeLog();
    QrvReleaseMaterial(material);
    const std::vector<const void*> expected = {vis, kn, pw, cp};
    EXPECT_EQ(qrvtest::freeLog(), expected);
}

TEST(Record, BlockOfNoValuesHasNoArray) {
    QrvMatParam block;
    EXPECT_EQ(qrv::allocateBlock(block, 1000, 3, 0), nullptr);
    EXPECT_EQ(block.Para, nullptr);
    EXPECT_EQ(block.Source, 1000);
    EXPECT_EQ(block.Model, 3);
    EXPECT_EQ(block.Count, 0);
    double* values = qrv::allocateBlock(block, 1, 2, 2);
    ASSERT_NE(values, nullptr);
    EXPECT_EQ(qrvtest::lastArrayBytes(), 2 * sizeof(double));
    EXPECT_EQ(values[0], 0.0);
    EXPECT_EQ(values[1], 0.0);
}

TEST(Record, TextsAreFreshArraysOfLengthPlusOne) {
    char* text = qrv::newText("PP");
    EXPECT_EQ(qrvtest::lastArrayBytes(), 3u);
    EXPECT_STREQ(text, "PP");
    delete[] text;
    // No text gives an empty one.
    text = qrv::newText(nullptr);
    EXPECT_EQ(qrvtest::lastArrayBytes(), 1u);
    EXPECT_STREQ(text, "");
    delete[] text;
    // A buffer size only ever enlarges the array; what lies past the text is zero.
    text = qrv::newText("PP", 8);
    EXPECT_EQ(qrvtest::lastArrayBytes(), 8u);
    EXPECT_EQ(std::string(text, 8), std::string("PP\0\0\0\0\0\0", 8));
    delete[] text;
    text = qrv::newText("Polymer", 3);
    EXPECT_EQ(qrvtest::lastArrayBytes(), 8u);
    EXPECT_STREQ(text, "Polymer");
    delete[] text;
}

TEST(Record, StackRecordFreesThroughItsDestructor) {
    const double* watched = nullptr;
    {
        QrvMaterial material;
        QrvInitMaterial(&material);
        material.Comment = qrv::newText("kept on the stack");
        setBlock(material.PW, 2, {3.0});
        watched = material.PW.Para;
        qrvtest::watchArray(watched);
    }
    EXPECT_EQ(qrvtest::watchedArrayFrees(), 1);
}

// Assignment gives no deep copy: the two records share every text and array, so releasing both
// would free each of them twice. Only one is released here.
TEST(Record, AssignmentIsShallow) {
    auto original = adopt(newZeroRecord());
    original->FileType = 2;
    original->FileVer = 9018;
    original->LastEditDate = 20200101;
    original->MeasureDate = 20200202;
    original->Polymer = qrv::newText("EP");
    setBlock(original->KN, 2, {0.5, 1.5});

    QrvMaterial copy;
    copy = *original;
    EXPECT_EQ(copy.FileType, 2);
    EXPECT_EQ(copy.FileVer, 9018);
    EXPECT_EQ(copy.LastEditDate, 20200101);
    EXPECT_EQ(copy.MeasureDate, 20200202);
    EXPECT_EQ(copy.Polymer, original->Polymer);
    EXPECT_EQ(copy.KN.Para, original->KN.Para);
    EXPECT_EQ(copy.KN.Count, 2);
    EXPECT_EQ(copy.KN.Model, 2);

    qrvtest::watchArray(original->KN.Para);
    QrvInitMaterial(&copy);  // forget the shared pointers so that only the original frees them
    original.reset();
    EXPECT_EQ(qrvtest::watchedArrayFrees(), 1);
}

TEST(Record, FileTypeZeroIsThermoplasticOfUnknownType) {
    auto material = adopt(newZeroRecord());
    material->FileType = 0;
    EXPECT_TRUE(QrvIsThermoplastic(material.get()));
    EXPECT_STREQ(QrvGetMaterialType(material.get()), "Unknown Type");
}

TEST(MechBlocks, ModelTwoTakesIndicesZeroTwoFive) {
    auto material = adopt(newZeroRecord());
    setBlock(material->Mech, 2, {10, 11, 12, 13, 14, 15, 16});
    QrvBuildMechBlocks(material.get());
    for (const QrvMatParam* block : {&material->EM, &material->PR, &material->CLTE}) {
        EXPECT_EQ(block->Source, 1000);
        EXPECT_EQ(block->Model, 1);
        EXPECT_EQ(block->Count, 1);
        ASSERT_NE(block->Para, nullptr);
    }
    EXPECT_EQ(material->EM.Para[0], 12.0);
    EXPECT_EQ(material->PR.Para[0], 10.0);
    EXPECT_EQ(material->CLTE.Para[0], 15.0);
}

TEST(MechBlocks, ModelThreeTakesIndicesOneTwoThree) {
    auto material = adopt(newZeroRecord());
    setBlock(material->Mech, 3, {20, 21, 22, 23});
    QrvBuildMechBlocks(material.get());
    EXPECT_EQ(material->EM.Para[0], 22.0);
    EXPECT_EQ(material->PR.Para[0], 21.0);
    EXPECT_EQ(material->CLTE.Para[0], 23.0);
}

TEST(MechBlocks, NullRecordIsIgnored) {
    // A record build allocates the three derived arrays; a null record allocates none.
    auto material = adopt(newZeroRecord());
    setBlock(material->Mech, 0, {1, 2, 3, 4, 5, 6, 7});
    const long before = qrvtest::arrayNewsAndDeletes();
    QrvBuildMechBlocks(material.get());
    EXPECT_EQ(qrvtest::arrayNewsAndDeletes(), before + 3);
    QrvBuildMechBlocks(nullptr);
    EXPECT_EQ(qrvtest::arrayNewsAndDeletes(), before + 3);
}

// A Mech block too short for its layout would be read past its end: the derived blocks stay as
// they were.
TEST(MechBlocks, ShortMechLeavesDerivedBlocksAlone) {
    auto material = adopt(newZeroRecord());
    setBlock(material->Mech, 1, {1, 2, 3, 4, 5});  // model up to 2 reads index 5
    QrvBuildMechBlocks(material.get());
    EXPECT_EQ(material->EM.Para, nullptr);
    EXPECT_EQ(material->PR.Count, 0);
    setBlock(material->Mech, 4, {1, 2, 3});  // model above 2 reads index 3
    QrvBuildMechBlocks(material.get());
    EXPECT_EQ(material->CLTE.Para, nullptr);
    setBlock(material->Mech, 0, {});
    QrvBuildMechBlocks(material.get());
    EXPECT_EQ(material->EM.Para, nullptr);
}

TEST(Digits, FileVersionAndType) {
    EXPECT_EQ(QrvSplitFileVer(19051), 9051);
    EXPECT_EQ(QrvSplitFileType(19051), 1);
    EXPECT_EQ(QrvSplitFileVer(9051), 9051);  // printed "09051"
    EXPECT_EQ(QrvSplitFileType(9051), 0);
    EXPECT_EQ(QrvSplitFileVer(19005), 9005);
    EXPECT_EQ(QrvSplitFileVer(219005), 1900);  // a sixth digit onward is ignored
    EXPECT_EQ(QrvSplitFileType(219005), 2);
    EXPECT_EQ(QrvSplitFileVer(0), 0);
}

TEST(Digits, BlockCodeOfEightDigits) {
    int source = -1, model = -1, count = -1;
    QrvSplitBlockCode(10000203u, &source, &model, &count);
    EXPECT_EQ(source, 1000);
    EXPECT_EQ(model, 2);
    EXPECT_EQ(count, 3);
    QrvSplitBlockCode(99991299u, &source, &model, &count);
    EXPECT_EQ(source, 9999);
    EXPECT_EQ(model, 12);
    EXPECT_EQ(count, 99);
}

// Fewer than eight digits leave zero bytes where digits are read; each counts as 0 - '0'.
TEST(Digits, ShortBlockCodeGivesNegativeModelAndCount) {
    int source = -1, model = -1, count = -1;
    QrvSplitBlockCode(0u, &source, &model, &count);  // "00000"
    EXPECT_EQ(source, 0);
    EXPECT_EQ(model, -48);
    EXPECT_EQ(count, -528);
    QrvSplitBlockCode(123456u, &source, &model, &count);  // "123456"
    EXPECT_EQ(source, 1234);
    EXPECT_EQ(model, 56);
    EXPECT_EQ(count, -528);
    QrvSplitBlockCode(1234567u, &source, &model, &count);  // "1234567"
    EXPECT_EQ(model, 56);
    EXPECT_EQ(count, 70 - 48);
}
