// From a record into a saved file: the exact bytes for each class at each version gate, built here
// from the documented layout, and the records that cannot be written.
#include <gtest/gtest.h>

#include <quorvalib/files.h>
#include <quorvalib/measured.h>

#include <stdexcept>
#include <string>
#include <vector>

#include "formats/conversions.h"
#include "formats/frame_builder.h"
#include "formats/nonpoly_mat.h"
#include "formats/plastic_mat.h"
#include "formats/rim_mat.h"
#include "record/material_internal.h"
#include "support/byte_builder.h"
#include "support/material_ptr.h"
#include "support/temp_files.h"

using qrvtest::BlockData;
using qrvtest::Bytes;
using qrvtest::MaterialPtr;
using qrvtest::oneCurveForm;
using qrvtest::Sample;
using qrvtest::setBlock;

namespace {

// Every one of the fifteen blocks filled with values of its own, so that a block that should not
// be written would show.
MaterialPtr fullRecord(int fileType, int fileVer) {
    MaterialPtr m = qrvtest::adopt(new QrvMaterial);
    QrvInitMaterial(m.get());
    m->FileType = fileType;
    m->FileVer = fileVer;
    m->LastEditDate = 20250101;  // never written
    m->MeasureDate = 20240615;
    m->Polymer = qrv::newText("PLA");
    m->Producer = qrv::newText("Greenfield");
    m->GradeName = qrv::newText("GB 1");
    m->Comment = qrv::newText("a comment");
    m->Source = qrv::newText("never written");
    int n = 0;
    for (auto member : qrv::kBlocks) {
        ++n;
        setBlock(m.get()->*member, n, {n + 0.25, -n * 1e6, 1.0 / n});
        (m.get()->*member).Source = 100 + n;
    }
    return m;
}

BlockData blockOf(const QrvMatParam& block) {
    return {block.Source, block.Model, qrvtest::values(block)};
}

const std::string kNoCurves = Bytes().word(0).real(0.0).word(0).word(0).str();

void addMeasuredData(QrvMaterial& m) {
    m.VisRaw = new CQrvViscosityData();
    const double vx[] = {30, 300}, vy[] = {2150, 980};
    m.VisRaw->AddCurve(190.0, 2, vx, vy);
    m.PVTRaw = new CQrvPVTData();
    const double px[] = {30}, py[] = {0.801};
    m.PVTRaw->AddCurve(0.0, 1, px, py);
    QRV_MTC record{};
    QrvMTCSection section{};
    double temperature = 170.0;
    section.Attribute = 1;
    section.ModelId = 3;
    section.MaxParameterNum = 2;
    section.Parameters[0] = 0.41;
    section.Parameters[1] = 7.0;
    section.Parameters[2] = 99.0;  // beyond MaxParameterNum: not copied
    record.Version = 2;
    record.SecurityLevel = 5;
    record.SectionCount = 1;
    record.Sections = &section;
    record.IntervalTemperature = &temperature;
    const int fileVer = m.FileVer;
    QrvAddMTCData(&m, &record, 1);
    m.FileVer = fileVer;
}

std::string mtcForm() {
    Bytes b;
    b.word(1000).word(1).word(2).word(5).word(1).word(1).word(3).word(2).real(0.41).real(7.0);
    for (int k = 2; k < 21; ++k)
        b.real(0.0);
    b.real(170.0);
    return b.str();
}

// The header part of the expected frame: what the record's texts and words become.
Sample expectedHeader(const QrvMaterial& m, int objType) {
    Sample s;
    s.objType = objType;
    s.bodyVer = m.FileVer;
    s.typeWord = m.FileType;
    s.dateWord = m.MeasureDate;
    s.texts = {m.Polymer, m.Producer, m.GradeName, m.Comment, ""};
    return s;
}

std::string saved(QrvMaterial* m, bool rim = false) {
    qrvtest::TempFolder folder;
    const std::string path = folder.path("saved.mtr");
    const int result = rim ? QrvSaveMaterialRIM(path.c_str(), m) : QrvSaveMaterial(path.c_str(), m);
    EXPECT_EQ(result, 1);
    return qrvtest::fileBytes(path);
}

std::string lead() {
    return Bytes().word(9051).str();
}

}  // namespace

TEST(RecordToStream, ThermoplasticBytesAtEveryGate) {
    for (int version : {7101, 9004, 9005, 9006, 9007, 9008, 9009, 9010, 9011, 9012, 9999}) {
        SCOPED_TRACE(version);
        MaterialPtr m = fullRecord(1, version);
        addMeasuredData(*m);
        Sample want = expectedHeader(*m, 0);
        for (int tag : {0, 1, 2, 3, 6, 7, 8, 10, 11}) {
            const QrvMatParam* block = tag == 0    ? &m->Vis
                                       : tag == 1  ? &m->PVT
                                       : tag == 2  ? &m->Cp
                                       : tag == 3  ? &m->K
                                       : tag == 6  ? &m->Mech
                                       : tag == 7  ? &m->Temp
                                       : tag == 8  ? &m->OP
                                       : tag == 10 ? &m->CR
                                                   : &m->PW;
            want.blocks[tag] = blockOf(*block);
        }
        // VE stands in every body but is filled only at 9005 and from 9007.
        if (version == 9005 || version >= 9007) want.blocks[4] = blockOf(m->VE);
        want.sections["vis"] = oneCurveForm(0, 0.0, "", 190.0, {30, 300}, {2150, 980});
        want.sections["pvt"] = oneCurveForm(0, 0.0, "", 0.0, {30}, {0.801});
        want.sections["mtc"] = mtcForm();
        EXPECT_EQ(saved(m.get()), lead() + want.frame(qrvtest::kPlasticBody));
    }
}

TEST(RecordToStream, ThermosetBytesAtEveryGate) {
    for (int version : {7101, 9012, 9014, 9015, 9016, 9017, 9018, 9999}) {
        SCOPED_TRACE(version);
        MaterialPtr m = fullRecord(2, version);
        Sample want = expectedHeader(*m, 1);
        want.blocks[0] = blockOf(m->Vis);
        want.blocks[1] = blockOf(m->PVT);
        want.blocks[2] = blockOf(m->Cp);
        want.blocks[3] = blockOf(m->K);
        want.blocks[5] = blockOf(m->KN);
        want.blocks[6] = blockOf(m->Mech);  // the frame builder leaves out what the gates drop
        want.blocks[7] = blockOf(m->Temp);
        want.blocks[9] = blockOf(m->SI);
        want.blocks[11] = blockOf(m->PW);
        const std::string bytes = lead() + want.frame(qrvtest::kRIMBody);
        EXPECT_EQ(saved(m.get()), bytes);
        EXPECT_EQ(saved(m.get(), true), bytes);  // the thermoset flag changes nothing
    }
}

TEST(RecordToStream, NonPolymerBytesForEveryType) {
    for (int fileType : {0, 3, 4, 5, 6, 7, 8, 9, 10, -2}) {
        for (int version : {7101, 9999}) {
            SCOPED_TRACE(fileType);
            MaterialPtr m = fullRecord(fileType, version);
            Sample want = expectedHeader(*m, 2);
            want.blocks[2] = blockOf(m->Cp);
            want.blocks[3] = blockOf(m->K);
            want.blocks[6] = blockOf(m->Mech);
            EXPECT_EQ(saved(m.get()), lead() + want.frame(qrvtest::kNonPolyBody));
        }
    }
}

TEST(RecordToStream, ChipComesBackWithItsType) {
    qrvtest::TempFolder folder;
    MaterialPtr m = fullRecord(6, 7101);
    const std::string path = folder.path("chip.mtr");
    ASSERT_EQ(QrvSaveMaterial(path.c_str(), m.get()), 1);
    const std::string bytes = qrvtest::fileBytes(path);
    EXPECT_EQ(qrvtest::wordAt(bytes, 8), 2);  // ObjType: non-polymer
    auto back = qrvtest::adopt(QrvGetMaterial(path.c_str()));
    ASSERT_NE(back, nullptr);
    EXPECT_EQ(back->FileType, 6);
    EXPECT_EQ(back->Vis.Para, nullptr);  // a non-polymer file has no Vis
    EXPECT_EQ(qrvtest::values(back->Mech), qrvtest::values(m->Mech));
}

TEST(RecordToStream, ThermosetBelow9015LosesMech) {
    qrvtest::TempFolder folder;
    MaterialPtr m = fullRecord(2, 9014);
    const std::string path = folder.path("rim.mtx");
    ASSERT_EQ(QrvSaveMaterialRIM(path.c_str(), m.get()), 1);
    auto back = qrvtest::adopt(QrvGetMaterial(path.c_str()));
    ASSERT_NE(back, nullptr);
    EXPECT_EQ(back->Mech.Count, 0);
    EXPECT_EQ(back->Mech.Para, nullptr);
    EXPECT_EQ(qrvtest::values(back->KN), qrvtest::values(m->KN));
}

TEST(RecordToStream, MissingCurvesWriteEmptySections) {
    MaterialPtr m = fullRecord(1, 9009);
    m->PVTRaw = new CQrvPVTData();  // present but without a curve
    Sample want = expectedHeader(*m, 0);
    want.blocks[0] = blockOf(m->Vis);
    want.blocks[1] = blockOf(m->PVT);
    want.blocks[2] = blockOf(m->Cp);
    want.blocks[3] = blockOf(m->K);
    want.blocks[4] = blockOf(m->VE);
    want.blocks[6] = blockOf(m->Mech);
    want.blocks[7] = blockOf(m->Temp);
    want.blocks[8] = blockOf(m->OP);
    want.sections["vis"] = kNoCurves;
    want.sections["pvt"] = kNoCurves;
    EXPECT_EQ(saved(m.get()), lead() + want.frame(qrvtest::kPlasticBody));
}

TEST(RecordToStream, EmptyBlockGoesOutAsZerosOnlyByAGuardedMove) {
    MaterialPtr m = fullRecord(1, 9007);
    setBlock(m->VE, 3, {});
    m->VE.Source = 1000;
    setBlock(m->Vis, 4, {});
    m->Vis.Source = 1000;
    const std::string bytes = saved(m.get());
    Sample want = expectedHeader(*m, 0);
    want.blocks[0] = {1000, 4, {}};  // plain: as it stands
    want.blocks[1] = blockOf(m->PVT);
    want.blocks[2] = blockOf(m->Cp);
    want.blocks[3] = blockOf(m->K);
    want.blocks[4] = {0, 0, {}};  // guarded: zeros
    want.blocks[6] = blockOf(m->Mech);
    want.blocks[7] = blockOf(m->Temp);
    EXPECT_EQ(bytes, lead() + want.frame(qrvtest::kPlasticBody));
}

// A thermoset moves SI as it stands: with Count 0 its Source and Model still go out, as a block
// of three words and no values.
TEST(RecordToStream, EmptyScorchBlockOfAThermosetGoesOutAsItStands) {
    MaterialPtr m = fullRecord(2, 9017);
    setBlock(m->SI, 6, {});
    m->SI.Source = 1000;
    const std::string bytes = saved(m.get());
    Sample want = expectedHeader(*m, 1);
    for (int tag : {0, 1, 2, 3})
        want.blocks[tag] = blockOf(m.get()->*qrv::kBlocks[tag]);
    want.blocks[5] = blockOf(m->KN);
    want.blocks[6] = blockOf(m->Mech);
    want.blocks[7] = blockOf(m->Temp);
    want.blocks[9] = {1000, 6, {}};
    EXPECT_EQ(bytes, lead() + want.frame(qrvtest::kRIMBody));
    const std::string siBlock = Bytes().word(1000).word(6).word(0).str();
    EXPECT_EQ(bytes.substr(bytes.size() - siBlock.size()), siBlock);  // SI is last at 9017
}

TEST(RecordToStream, RecordIsNotChanged) {
    MaterialPtr m = fullRecord(1, 9012);
    addMeasuredData(*m);
    const std::vector<double> vis = qrvtest::values(m->Vis);
    double* para = m->Vis.Para;
    saved(m.get());
    EXPECT_EQ(m->FileVer, 9012);
    EXPECT_EQ(m->LastEditDate, 20250101);
    EXPECT_STREQ(m->Polymer, "PLA");
    EXPECT_STREQ(m->Source, "never written");
    EXPECT_EQ(m->Vis.Para, para);
    EXPECT_EQ(qrvtest::values(m->Vis), vis);
    EXPECT_EQ(m->VisRaw->GetCurveCount(), 1);
}

TEST(RecordToStream, NullRecordOrObjectReturnsAtOnce) {
    CQrvPlasticMat object(nullptr);
    QrvMaterialToStream(nullptr, &object, false);
    EXPECT_EQ(object.GetPolymer(), "");
    EXPECT_EQ(object.GetSize(), CQrvPlasticMat(nullptr).GetSize());
    // With no object the record is left as it was: the same arrays holding the same values.
    MaterialPtr m = fullRecord(1, 9012);
    MaterialPtr same = fullRecord(1, 9012);
    const char* polymer = m->Polymer;
    const double* vis = m->Vis.Para;
    QrvMaterialToStream(m.get(), nullptr, true);
    EXPECT_EQ(m->Polymer, polymer);
    EXPECT_STREQ(m->Polymer, "PLA");
    EXPECT_EQ(m->Vis.Para, vis);
    for (auto member : qrv::kBlocks) {
        EXPECT_EQ((m.get()->*member).Source, (same.get()->*member).Source);
        EXPECT_EQ((m.get()->*member).Model, (same.get()->*member).Model);
        EXPECT_EQ(qrvtest::values(m.get()->*member), qrvtest::values(same.get()->*member));
    }
}

TEST(RecordToStream, UnwritableRecordsThrowBeforeTheObjectIsTouched) {
    struct Case {
        const char* what;
        int fileType, fileVer;
        void (*spoil)(QrvMaterial&);
    };
    const Case cases[] = {
        {"null polymer", 1, 7101,
         [](QrvMaterial& m) {
             delete[] m.Polymer;
             m.Polymer = nullptr;
         }},
        {"null comment", 3, 7101,
         [](QrvMaterial& m) {
             delete[] m.Comment;
             m.Comment = nullptr;
         }},
        {"plain count without values", 1, 7101,
         [](QrvMaterial& m) {
             delete[] m.Cp.Para;
             m.Cp.Para = nullptr;
         }},
        {"guarded count without values", 1, 9008,
         [](QrvMaterial& m) {
             delete[] m.OP.Para;
             m.OP.Para = nullptr;
         }},
        {"negative plain count", 2, 7101, [](QrvMaterial& m) { m.KN.Count = -1; }},
    };
    for (const Case& c : cases) {
        SCOPED_TRACE(c.what);
        MaterialPtr m = fullRecord(c.fileType, c.fileVer);
        c.spoil(*m);
        auto object = qrv::newObjectFor(c.fileType, nullptr);
        EXPECT_THROW(QrvMaterialToStream(m.get(), object.get(), false), std::invalid_argument);
        EXPECT_EQ(object->GetPolymer(), "");
        EXPECT_EQ(object->GetBodyVer(), 0);
    }
}

TEST(RecordToStream, WhatIsNotWrittenNeedsNothing) {
    // A null array in a block that the class does not write, or a negative count in a guarded
    // block, is no reason to refuse.
    MaterialPtr m = fullRecord(1, 9006);
    delete[] m->KN.Para;
    m->KN.Para = nullptr;
    delete[] m->VE.Para;
    m->VE.Para = nullptr;
    auto object = qrv::newObjectFor(1, nullptr);
    EXPECT_NO_THROW(QrvMaterialToStream(m.get(), object.get(), false));
    MaterialPtr n = fullRecord(1, 9008);
    delete[] n->OP.Para;
    n->OP.Para = nullptr;
    n->OP.Count = -4;
    auto other = qrv::newObjectFor(1, nullptr);
    EXPECT_NO_THROW(QrvMaterialToStream(n.get(), other.get(), false));
    int source = -1, model = -1, count = -1;
    other->GetParamInfo(8, &source, &model, &count);
    EXPECT_EQ(source, 0);
    EXPECT_EQ(count, 0);
}

TEST(RecordToStream, AnUnknownObjectClassMovesNoBlockAndSoRefusesNone) {
    // Negative counts and null arrays in every block: a reason for each of the three classes,
    // none for a class that carries no blocks.
    MaterialPtr m = fullRecord(1, 9999);
    for (auto member : qrv::kBlocks) {
        QrvMatParam& block = m.get()->*member;
        delete[] block.Para;
        block.Para = nullptr;
        block.Count = -1;
    }
    for (int objType : {0, 1, 2})
        EXPECT_NE(qrv::unwritableReason(*m, objType), nullptr) << objType;
    for (int objType : {-1, 3, 4, 1000})
        EXPECT_EQ(qrv::unwritableReason(*m, objType), nullptr) << objType;
}
