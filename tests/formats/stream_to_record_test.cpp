// From a material file into a record: the type correction, which blocks move for which class and
// body version and in which form, the density of a non-polymer's comment, and the measured data.
// Each case is a frame written to a real file and loaded through the entry points.
#include <gtest/gtest.h>

#include <quorvalib/files.h>
#include <quorvalib/measured.h>

#include <string>
#include <vector>

#include "formats/conversions.h"
#include "formats/frame_builder.h"
#include "formats/plastic_mat.h"
#include "record/material_internal.h"
#include "support/byte_builder.h"
#include "support/material_ptr.h"
#include "support/temp_files.h"

using qrvtest::BlockData;
using qrvtest::Bytes;
using qrvtest::MaterialPtr;
using qrvtest::Sample;

namespace {

const std::vector<qrvtest::Documented>& bodyOf(int objType) {
    return objType == 1   ? qrvtest::kRIMBody
           : objType == 2 ? qrvtest::kNonPolyBody
                          : qrvtest::kPlasticBody;
}

// Writes the sample as a one-frame file and loads it, as a thermoset load when rim is set.
MaterialPtr load(const Sample& sample, bool rim = false) {
    qrvtest::TempFolder folder;
    const std::string path = folder.path("material.mtr");
    qrvtest::writeFile(path, Bytes().word(9051).str() + sample.frame(bodyOf(sample.objType)));
    return qrvtest::adopt(rim ? QrvGetMaterialRIM(path.c_str()) : QrvGetMaterial(path.c_str()));
}

Sample named(int objType, int typeWord, const std::string& polymer, int version = 7101) {
    Sample s;
    s.objType = objType;
    s.typeWord = typeWord;
    s.bodyVer = version;
    s.texts = {polymer, "Producer", "Grade", "Comment", "stored source"};
    return s;
}

Sample metalWithComment(const std::string& comment) {
    Sample s = named(2, 3, "Metal");
    s.texts[3] = comment;
    return s;
}

void expectEmpty(const QrvMatParam& block, const char* name) {
    EXPECT_EQ(block.Source, 0) << name;
    EXPECT_EQ(block.Model, 0) << name;
    EXPECT_EQ(block.Count, 0) << name;
    EXPECT_EQ(block.Para, nullptr) << name;
}

void expectBlock(const QrvMatParam& block, const BlockData& data, const char* name) {
    EXPECT_EQ(block.Source, data.source) << name;
    EXPECT_EQ(block.Model, data.model) << name;
    ASSERT_EQ(block.Count, static_cast<int>(data.values.size())) << name;
    ASSERT_NE(block.Para, nullptr) << name;
    for (std::size_t i = 0; i < data.values.size(); ++i)
        EXPECT_EQ(block.Para[i], data.values[i]) << name << " " << i;
}

const BlockData kMech{14, 0, {0.36, 0.37, 3.5e10, 3.6e10, 1.29e10, 7.4e-05, 7.5e-05}};

}  // namespace

TEST(StreamToRecord, KeywordMetalOverridesTheTypeWordUnlessThermoset) {
    auto plain = load(named(0, 1, "Metal"));
    ASSERT_NE(plain, nullptr);
    EXPECT_EQ(plain->FileType, 3);
    auto rim = load(named(0, 1, "Metal"), true);
    ASSERT_NE(rim, nullptr);
    EXPECT_EQ(rim->FileType, 1);
    auto coolant = load(named(2, 6, "Coolant"));
    ASSERT_NE(coolant, nullptr);
    EXPECT_EQ(coolant->FileType, 4);
}

TEST(StreamToRecord, KeywordMustMatchWholly) {
    for (const char* polymer : {"Metals", "Metal ", "metal", "Coolant oil", "Meta"}) {
        auto material = load(named(2, 8, polymer));
        ASSERT_NE(material, nullptr);
        EXPECT_EQ(material->FileType, 8) << polymer;
    }
}

TEST(StreamToRecord, TypeWordIsTheTypeForAnyOtherName) {
    auto chip = load(named(2, 6, "Die"));
    ASSERT_NE(chip, nullptr);
    EXPECT_EQ(chip->FileType, 6);
    auto bank = load(named(0, 0, "PP"));
    ASSERT_NE(bank, nullptr);
    EXPECT_EQ(bank->FileType, 0);
    auto bankRim = load(named(1, 0, "PP"), true);
    ASSERT_NE(bankRim, nullptr);
    EXPECT_EQ(bankRim->FileType, 2);
    auto typed = load(named(1, 7, "EP"), true);
    ASSERT_NE(typed, nullptr);
    EXPECT_EQ(typed->FileType, 7);  // only a type word of 0 is corrected
    // A non-polymer frame as a bank add writes it: type word 0, and a name that is no keyword.
    auto die = load(named(2, 0, "Die"));
    ASSERT_NE(die, nullptr);
    EXPECT_EQ(die->FileType, 0);
    auto metal = load(named(2, 0, "Metal"));
    ASSERT_NE(metal, nullptr);
    EXPECT_EQ(metal->FileType, 3);
}

TEST(StreamToRecord, HeaderFieldsAndWhatTheStreamDoesNotCarry) {
    Sample s = named(0, 1, "PLA", 9003);
    s.dateWord = 20230405;
    auto material = load(s);
    ASSERT_NE(material, nullptr);
    EXPECT_EQ(material->FileVer, 9003);
    EXPECT_EQ(material->MeasureDate, 20230405);
    EXPECT_EQ(material->LastEditDate, 0);
    EXPECT_EQ(material->Source, nullptr);  // the stream's source text is not taken
    EXPECT_STREQ(material->Polymer, "PLA");
    EXPECT_STREQ(material->Producer, "Producer");
    EXPECT_STREQ(material->GradeName, "Grade");
    EXPECT_STREQ(material->Comment, "Comment");
}

TEST(StreamToRecord, LongTextsAreCutTo511Characters) {
    Sample s = named(0, 1, std::string(600, 'p'));
    s.texts[1] = std::string(512, 'r');
    s.texts[2] = std::string(511, 'g');
    s.texts[3] = std::string(5000, 'c');
    auto material = load(s);
    ASSERT_NE(material, nullptr);
    EXPECT_EQ(std::string(material->Polymer), std::string(511, 'p'));
    EXPECT_EQ(std::string(material->Producer), std::string(511, 'r'));
    EXPECT_EQ(std::string(material->GradeName), std::string(511, 'g'));
    EXPECT_EQ(std::string(material->Comment), std::string(511, 'c'));
}

TEST(StreamToRecord, FullMoveOfAnEmptyBlockLeavesAZeroLengthArray) {
    Sample s = named(0, 1, "PP", 9007);
    s.blocks[0] = {5, 2, {}};
    s.blocks[4] = {6, 3, {}};
    auto material = load(s);
    ASSERT_NE(material, nullptr);
    EXPECT_EQ(material->Vis.Source, 5);
    EXPECT_EQ(material->Vis.Model, 2);
    EXPECT_EQ(material->Vis.Count, 0);
    EXPECT_NE(material->Vis.Para, nullptr);
    // The guarded move keeps what was read but makes no array.
    EXPECT_EQ(material->VE.Source, 6);
    EXPECT_EQ(material->VE.Model, 3);
    EXPECT_EQ(material->VE.Count, 0);
    EXPECT_EQ(material->VE.Para, nullptr);
}

TEST(StreamToRecord, ViscoelasticBlockAt9005AndFrom9007Only) {
    const BlockData ve{13, 1, {2e9, 0.35, 0.01}};
    for (int version : {9004, 9005, 9006, 9007, 9100}) {
        Sample s = named(0, 1, "PP", version);
        s.blocks[4] = ve;
        auto material = load(s);
        ASSERT_NE(material, nullptr);
        if (version == 9005 || version >= 9007) {
            expectBlock(material->VE, ve, "VE");
        } else {
            expectEmpty(material->VE, "VE");
        }
    }
}

TEST(StreamToRecord, ThermoplasticBlocksByVersion) {
    const BlockData op{16, 1, {1.455, 3e-4}}, cr{17, 1, {0.37, 0.0022}}, pw{18, 7, {5, 2.7}};
    for (int version : {7101, 9008, 9010, 9011, 9012, 20000}) {
        SCOPED_TRACE(version);
        Sample s = named(0, 1, "PP", version);
        s.blocks[0] = {11, 5, {0.01, 2e5}};
        s.blocks[6] = kMech;
        s.blocks[7] = {15, 2, {190, 205}};
        s.blocks[8] = op;
        s.blocks[10] = cr;
        s.blocks[11] = pw;
        auto material = load(s);
        ASSERT_NE(material, nullptr);
        expectBlock(material->Vis, s.blocks[0], "Vis");
        expectBlock(material->Mech, kMech, "Mech");
        expectBlock(material->Temp, s.blocks[7], "Temp");
        expectBlock(material->EM, {1000, 1, {3.5e10}}, "EM");
        expectBlock(material->PR, {1000, 1, {0.36}}, "PR");  // Mech model 0: index 0
        expectBlock(material->CLTE, {1000, 1, {7.4e-05}}, "CLTE");
        expectEmpty(material->KN, "KN");
        expectEmpty(material->SI, "SI");
        if (version >= 9008) {
            expectBlock(material->OP, op, "OP");
        } else {
            expectEmpty(material->OP, "OP");
        }
        if (version >= 9011) {
            expectBlock(material->CR, cr, "CR");
        } else {
            expectEmpty(material->CR, "CR");
        }
        if (version >= 9012) {
            expectBlock(material->PW, pw, "PW");
        } else {
            expectEmpty(material->PW, "PW");
        }
        // An MTC list from 9010 on, also when empty; curves only when there are some.
        EXPECT_EQ(material->MTC != nullptr, version >= 9010);
        EXPECT_EQ(material->VisRaw, nullptr);
        EXPECT_EQ(material->PVTRaw, nullptr);
    }
}

namespace {

// A measured-viscosity section of one curve of two points at 190 degree C.
std::string oneViscosityCurve() {
    return Bytes()
        .word(21)
        .real(0.5)
        .word(1)
        .text("std")
        .real(190.0)
        .word(2)
        .reals({30, 300})
        .reals({2150, 980})
        .str();
}

}  // namespace

// Measured curves come with body version 9009, the MTC list a version later.
TEST(StreamToRecord, MeasuredCurvesFrom9009) {
    Sample s = named(0, 1, "PP", 9009);
    s.sections["vis"] = oneViscosityCurve();
    auto material = load(s);
    ASSERT_NE(material, nullptr);
    ASSERT_NE(material->VisRaw, nullptr);
    EXPECT_EQ(material->VisRaw->GetCurveCount(), 1);
    EXPECT_EQ(material->MTC, nullptr);
}

TEST(StreamToRecord, MeasuredCurvesAndMTCData) {
    Sample s = named(0, 1, "PP", 9010);
    s.sections["vis"] = oneViscosityCurve();
    Bytes mtc;
    mtc.word(1000).word(1).word(2).word(1).word(1);
    mtc.word(4).word(9).word(2);
    for (int k = 1; k <= 21; ++k)
        mtc.real(k * 0.5);
    mtc.real(175.0);
    s.sections["mtc"] = mtc.str();
    auto material = load(s);
    ASSERT_NE(material, nullptr);
    ASSERT_NE(material->VisRaw, nullptr);
    EXPECT_EQ(material->VisRaw->GetSource(), 21);
    EXPECT_EQ(material->VisRaw->GetFitError(), 0.5);
    EXPECT_EQ(material->VisRaw->GetMeasureStandard(), "std");
    ASSERT_EQ(material->VisRaw->GetCurveCount(), 1);
    double condition = 0;
    int points = 0;
    double *x = nullptr, *y = nullptr;
    ASSERT_TRUE(material->VisRaw->GetCurve(0, condition, points, x, y));
    EXPECT_EQ(condition, 190.0);
    ASSERT_EQ(points, 2);
    EXPECT_EQ(x[1], 300.0);
    EXPECT_EQ(y[0], 2150.0);
    EXPECT_EQ(material->PVTRaw, nullptr);  // its section holds no curve
    int version = 0, count = 0;
    QrvGetMTCInfo(material.get(), version, count);
    EXPECT_EQ(version, 1000);
    ASSERT_EQ(count, 1);
    const QRV_MTC* record = QrvGetMTCData(material.get(), 0);
    EXPECT_EQ(record->Version, 2);
    EXPECT_EQ(record->SecurityLevel, 1);
    ASSERT_EQ(record->SectionCount, 1);
    EXPECT_EQ(record->Sections[0].ModelId, 9);
    EXPECT_EQ(record->Sections[0].MaxParameterNum, 2);
    EXPECT_EQ(record->Sections[0].Parameters[1], 1.0);
    EXPECT_EQ(record->IntervalTemperature[0], 175.0);
}

TEST(StreamToRecord, ThermosetBlocksByTheirOwnGates) {
    const BlockData kn{1000, 2, {0.342, 1.14}}, temp{1, 2, {80, 90}};
    const BlockData si{9, 1, {170.0, 2.8}}, pw{10, 7, {5, 2.7}};
    for (int version : {9012, 9014, 9015, 9016, 9017, 9018, 9999}) {
        SCOPED_TRACE(version);
        Sample s = named(1, 2, "EP", version);
        s.blocks[0] = {1, 13, {0.85, 2.3e7}};
        s.blocks[5] = kn;
        s.blocks[6] = kMech;
        s.blocks[7] = temp;
        s.blocks[9] = si;
        s.blocks[11] = pw;
        auto material = load(s, true);
        ASSERT_NE(material, nullptr);
        EXPECT_EQ(material->FileType, 2);
        expectBlock(material->Vis, s.blocks[0], "Vis");
        expectBlock(material->KN, kn, "KN");
        if (version >= 9015) {
            expectBlock(material->Mech, kMech, "Mech");
            expectBlock(material->EM, {1000, 1, {3.5e10}}, "EM");
        } else {
            expectEmpty(material->Mech, "Mech");
            expectEmpty(material->EM, "EM");
            expectEmpty(material->PR, "PR");
            expectEmpty(material->CLTE, "CLTE");
        }
        if (version >= 9016) {
            expectBlock(material->Temp, temp, "Temp");
        } else {
            expectEmpty(material->Temp, "Temp");
        }
        if (version >= 9017) {
            expectBlock(material->SI, si, "SI");
        } else {
            expectEmpty(material->SI, "SI");
        }
        if (version >= 9018) {
            expectBlock(material->PW, pw, "PW");
        } else {
            expectEmpty(material->PW, "PW");
        }
        expectEmpty(material->VE, "VE");
        expectEmpty(material->OP, "OP");
        expectEmpty(material->CR, "CR");
        EXPECT_EQ(material->MTC, nullptr);
    }
}

TEST(StreamToRecord, EmptyScorchAndPowderBlocksOfAThermosetAreCleared) {
    Sample s = named(1, 2, "EP", 9018);
    s.blocks[9] = {55, 3, {}};
    s.blocks[11] = {66, 4, {}};
    s.blocks[0] = {77, 8, {}};
    auto material = load(s, true);
    ASSERT_NE(material, nullptr);
    expectEmpty(material->SI, "SI");
    expectEmpty(material->PW, "PW");
    EXPECT_EQ(material->Vis.Source, 77);  // a full move keeps an empty block's fields
    EXPECT_NE(material->Vis.Para, nullptr);
}

// One value is already a block to keep: only a count of 0 or below clears it.
TEST(StreamToRecord, OneValueScorchAndPowderBlocksOfAThermosetAreKept) {
    const BlockData si{55, 3, {171.5}}, pw{66, 4, {2.25}};
    Sample s = named(1, 2, "EP", 9018);
    s.blocks[9] = si;
    s.blocks[11] = pw;
    auto material = load(s, true);
    ASSERT_NE(material, nullptr);
    expectBlock(material->SI, si, "SI");
    expectBlock(material->PW, pw, "PW");
}

TEST(StreamToRecord, NonPolymerBlocksAndDensity) {
    Sample s = metalWithComment("Steel D=7.85 g/cc at room temperature");
    s.blocks[2] = {1000, 1, {5e6}};
    s.blocks[3] = {1000, 1, {1.63e6}};
    s.blocks[6] = kMech;
    auto material = load(s);
    ASSERT_NE(material, nullptr);
    EXPECT_EQ(material->FileType, 3);
    expectBlock(material->Cp, s.blocks[2], "Cp");
    expectBlock(material->K, s.blocks[3], "K");
    expectBlock(material->Mech, kMech, "Mech");
    expectBlock(material->PR, {1000, 1, {0.36}}, "PR");
    expectBlock(material->PVT, {0, 1, {7.85}}, "PVT");
    expectEmpty(material->Vis, "Vis");
    expectEmpty(material->Temp, "Temp");
    expectEmpty(material->KN, "KN");
    EXPECT_EQ(material->MTC, nullptr);
    EXPECT_STREQ(material->Comment, "Steel D=7.85 g/cc at room temperature");
}

TEST(StreamToRecord, DensityTextForms) {
    struct Case {
        const char* comment;
        bool found;
        double density;
    };
    const Case cases[] = {
        {"D=2.7 g/cm3", true, 2.7},
        {"2.7 g/cc D=", false, 0.0},
        {"no density at all", false, 0.0},
        {"D=3.1", false, 0.0},
        {"8.9 g/cc", false, 0.0},
        {"D= about 7 g/cc", true, 0.0},  // a word before the number reads as 0.0, still stored
        {"D=1.5 g/cm3 or D=2 g/cc", true, 1.5},  // g/cc is looked for first, D= from the start
        {"d=4.5 g/cc", false, 0.0},              // case matters
        {"", false, 0.0},
    };
    for (const Case& c : cases) {
        SCOPED_TRACE(c.comment);
        auto material = load(metalWithComment(c.comment));
        ASSERT_NE(material, nullptr);
        if (c.found) {
            expectBlock(material->PVT, {0, 1, {c.density}}, "PVT");
        } else {
            expectEmpty(material->PVT, "PVT");
        }
    }
}

TEST(StreamToRecord, NullRecordOrObjectReturnsAtOnce) {
    CQrvPlasticMat object(nullptr);
    QrvMaterialFromStream(nullptr, &object, false);
    QrvMaterial material;
    QrvInitMaterial(&material);
    QrvMaterialFromStream(&material, nullptr, false);
    EXPECT_EQ(material.Polymer, nullptr);
    EXPECT_EQ(material.FileType, 1);
}
