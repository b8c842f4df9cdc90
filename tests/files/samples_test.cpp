// The sample files loaded through the entry points and checked field by field against their JSON
// descriptions, written back, and loaded at every length they could have been cut to.
#include <gtest/gtest.h>

#include <quorvalib/defaults.h>
#include <quorvalib/files.h>
#include <quorvalib/measured.h>

#include <filesystem>
#include <iterator>
#include <memory>
#include <string>
#include <vector>

#include "formats/bank_stream.h"
#include "formats/binary_stream.h"
#include "formats/conversions.h"
#include "formats/mat_factory.h"
#include "record/material_internal.h"
#include "support/fixture.h"
#include "support/material_ptr.h"
#include "support/temp_files.h"

namespace {

using qrvtest::adopt;

struct SampleFile {
    const char* file;
    const char* json;
};

constexpr SampleFile kSamples[] = {
    {"sample_thermoplastic_9012.mtr", "sample_thermoplastic_9012.json"},
    {"sample_thermoplastic_9008.mtr", "sample_thermoplastic_9008.json"},
    {"sample_default_3_2.mtr", "sample_default_3_2.json"},
    {"sample_thermoset_9018.mtx", "sample_thermoset_9018.json"},
    {"sample_metal.mtr", "sample_metal.json"},
    {"sample_coolant.mtr", "sample_coolant.json"},
    {"sample_chip.mtr", "sample_chip.json"},
    {"sample_legacy.mtr", "sample_legacy.json"},
};

std::string sampleBytes(const std::string& name) {
    return qrvtest::fileBytes(qrvtest::dataPath(name));
}

// The little-endian word at offset of a file's bytes.
std::int32_t wordAt(const std::string& bytes, std::size_t offset) {
    std::uint32_t value = 0;
    for (int i = 3; i >= 0; --i)
        value =
            value << 8 | static_cast<unsigned char>(bytes[offset + static_cast<std::size_t>(i)]);
    return static_cast<std::int32_t>(value);
}

// Two records hold the same: header fields, texts, every block (with the same null or non-null
// array), the measured curves and the MTC records.
void expectSameRawData(CQrvMatRawData* a, CQrvMatRawData* b, const char* field) {
    SCOPED_TRACE(field);
    ASSERT_EQ(a == nullptr, b == nullptr);
    if (!a) return;
    EXPECT_EQ(a->GetSource(), b->GetSource());
    EXPECT_EQ(a->GetFitError(), b->GetFitError());
    EXPECT_EQ(a->GetMeasureStandard(), b->GetMeasureStandard());
    ASSERT_EQ(a->GetCurveCount(), b->GetCurveCount());
    for (int c = 0; c < a->GetCurveCount(); ++c) {
        double conditionA = 0, conditionB = 0;
        int pointsA = -1, pointsB = -2;
        double *xA = nullptr, *yA = nullptr, *xB = nullptr, *yB = nullptr;
        ASSERT_TRUE(a->GetCurve(c, conditionA, pointsA, xA, yA));
        ASSERT_TRUE(b->GetCurve(c, conditionB, pointsB, xB, yB));
        EXPECT_EQ(conditionA, conditionB);
        ASSERT_EQ(pointsA, pointsB);
        for (int i = 0; i < pointsA; ++i) {
            EXPECT_EQ(xA[i], xB[i]);
            EXPECT_EQ(yA[i], yB[i]);
        }
    }
}

void expectSameRecord(QrvMaterial& a, QrvMaterial& b) {
    EXPECT_EQ(a.FileType, b.FileType);
    EXPECT_EQ(a.FileVer, b.FileVer);
    EXPECT_EQ(a.LastEditDate, b.LastEditDate);
    EXPECT_EQ(a.MeasureDate, b.MeasureDate);
    for (auto text : qrv::kTexts) {
        ASSERT_EQ(a.*text == nullptr, b.*text == nullptr);
        if (a.*text) {
            EXPECT_STREQ(a.*text, b.*text);
        }
    }
    for (auto member : qrv::kBlocks) {
        const QrvMatParam& x = a.*member;
        const QrvMatParam& y = b.*member;
        EXPECT_EQ(x.Source, y.Source);
        EXPECT_EQ(x.Model, y.Model);
        ASSERT_EQ(x.Count, y.Count);
        ASSERT_EQ(x.Para == nullptr, y.Para == nullptr);
        for (int i = 0; x.Para && i < x.Count; ++i)
            EXPECT_EQ(x.Para[i], y.Para[i]) << i;
    }
    expectSameRawData(a.VisRaw, b.VisRaw, "VisRaw");
    expectSameRawData(a.PVTRaw, b.PVTRaw, "PVTRaw");
    ASSERT_EQ(a.MTC == nullptr, b.MTC == nullptr);
    if (!a.MTC) return;
    int versionA = -1, countA = -1, versionB = -2, countB = -2;
    QrvGetMTCInfo(&a, versionA, countA);
    QrvGetMTCInfo(&b, versionB, countB);
    EXPECT_EQ(versionA, versionB);
    ASSERT_EQ(countA, countB);
    for (int r = 0; r < countA; ++r) {
        const QRV_MTC* x = QrvGetMTCData(&a, r);
        const QRV_MTC* y = QrvGetMTCData(&b, r);
        EXPECT_EQ(x->Version, y->Version);
        EXPECT_EQ(x->SecurityLevel, y->SecurityLevel);
        ASSERT_EQ(x->SectionCount, y->SectionCount);
        for (int i = 0; i < x->SectionCount; ++i) {
            EXPECT_EQ(x->Sections[i].ModelId, y->Sections[i].ModelId);
            EXPECT_EQ(x->Sections[i].MaxParameterNum, y->Sections[i].MaxParameterNum);
            for (std::size_t k = 0; k < std::size(x->Sections[i].Parameters); ++k)
                EXPECT_EQ(x->Sections[i].Parameters[k], y->Sections[i].Parameters[k]) << k;
            EXPECT_EQ(x->IntervalTemperature[i], y->IntervalTemperature[i]);
        }
    }
}

}  // namespace

TEST(SampleFiles, EachLoadsAsItsDescriptionSays) {
    qrvtest::TempFolder folder;
    for (const SampleFile& sample : kSamples) {
        SCOPED_TRACE(sample.file);
        const nlohmann::json description = qrvtest::readJson(sample.json);
        ASSERT_EQ(description.at("load").at("call").get<std::string>(),
                  std::string("QrvGetMaterial(\"") + sample.file + "\")");
        const std::string path = folder.path(sample.file);
        qrvtest::writeFile(path, sampleBytes(sample.file));
        auto material = adopt(QrvGetMaterial(path.c_str()));
        ASSERT_NE(material, nullptr);
        qrvtest::expectMaterial(*material, description.at("load").at("record"));
    }
}

TEST(SampleFiles, DefaultMaterialSavesToTheSampleBytes) {
    qrvtest::TempFolder folder;
    auto material = adopt(QrvGetDefaultMaterial(3, 2, true, 2, 1, 5));
    ASSERT_NE(material, nullptr);
    const std::string path = folder.path("default.mtr");
    ASSERT_EQ(QrvSaveMaterial(path.c_str(), material.get()), 1);
    EXPECT_EQ(qrvtest::fileBytes(path), sampleBytes("sample_default_3_2.mtr"));
}

// A file that this library wrote, with an empty source text, goes through a record and back
// unchanged: the conversions move exactly what the body carries at its version.
TEST(SampleFiles, CurrentFormSamplesSaveBackByteForByte) {
    qrvtest::TempFolder folder;
    for (const SampleFile& sample : kSamples) {
        const std::string name = sample.file;
        if (name == "sample_legacy.mtr") continue;
        SCOPED_TRACE(name);
        const std::string original = sampleBytes(name);
        const std::string in = folder.path(name);
        qrvtest::writeFile(in, original);
        auto material = adopt(QrvGetMaterial(in.c_str()));
        ASSERT_NE(material, nullptr);
        const std::string out = folder.path("again_" + name);
        const int saved = QrvIsRIM(name.c_str()) ? QrvSaveMaterialRIM(out.c_str(), material.get())
                                                 : QrvSaveMaterial(out.c_str(), material.get());
        ASSERT_EQ(saved, 1);
        EXPECT_EQ(qrvtest::fileBytes(out), original);
    }
}

// The legacy sample saved again becomes a current-form file of its old body version, 9005: the
// viscoelastic block survives, the source text does not.
TEST(SampleFiles, LegacySampleSavesAsCurrentFormWithItsOldVersion) {
    qrvtest::TempFolder folder;
    const std::string in = folder.path("old.mtr");
    qrvtest::writeFile(in, sampleBytes("sample_legacy.mtr"));
    auto material = adopt(QrvGetMaterial(in.c_str()));
    ASSERT_NE(material, nullptr);
    const std::string out = folder.path("new.mtr");
    ASSERT_EQ(QrvSaveMaterial(out.c_str(), material.get()), 1);
    const std::string bytes = qrvtest::fileBytes(out);
    ASSERT_GE(bytes.size(), 16u);
    EXPECT_EQ(wordAt(bytes, 0), 9051);
    EXPECT_EQ(wordAt(bytes, 8), 0);      // ObjType: thermoplastic
    EXPECT_EQ(wordAt(bytes, 12), 9005);  // BodyVer: FileVer is not raised
    auto back = adopt(QrvGetMaterial(out.c_str()));
    ASSERT_NE(back, nullptr);
    nlohmann::json expected = qrvtest::readJson("sample_legacy.json").at("load").at("record");
    expected["Source"] = nullptr;
    expected["LastEditDate"] = 0;
    qrvtest::expectMaterial(*back, expected);
}

TEST(SampleFiles, BankHoldsThreeFramesAsDescribed) {
    const nlohmann::json description = qrvtest::readJson("sample_bank.json");
    const std::string path = qrvtest::dataPath("sample_bank.qbk");
    CQrvBankStream bank;
    ASSERT_TRUE(bank.OpenFile(path.c_str(), false));
    ASSERT_EQ(bank.GetMaterialCount(), description.at("entry_count").get<int>());
    const nlohmann::json& frames = description.at("structure").at("Frames");
    ASSERT_EQ(static_cast<int>(frames.size()), 3);
    const std::string bytes = sampleBytes("sample_bank.qbk");
    EXPECT_EQ(wordAt(bytes, 0), description.at("structure").at("LeadWord").get<int>());
    for (int index = 0; index < 3; ++index) {
        SCOPED_TRACE(index);
        const nlohmann::json& frame = frames.at(static_cast<std::size_t>(index));
        const auto offset = frame.at("Offset").get<std::size_t>();
        EXPECT_EQ(wordAt(bytes, offset), frame.at("ObjSize").get<int>());
        CQrvMatBase* object = bank.LoadMaterial(index);
        ASSERT_NE(object, nullptr);
        EXPECT_EQ(object->GetObjType(), frame.at("ObjType").get<int>());
        EXPECT_EQ(object->GetBodyVer(), frame.at("BodyVer").get<int>());
        const nlohmann::json& header = frame.at("Header");
        EXPECT_EQ(object->GetTypeWord(), header.at("TypeWord").get<int>());
        EXPECT_EQ(object->GetDateWord(), header.at("DateWord").get<int>());
        EXPECT_EQ(object->GetPolymer(), header.at("Polymer").get<std::string>());
        EXPECT_EQ(object->GetProducer(), header.at("Producer").get<std::string>());
        EXPECT_EQ(object->GetGradeName(), header.at("GradeName").get<std::string>());
        EXPECT_EQ(object->GetComment(), header.at("Comment").get<std::string>());
        EXPECT_EQ(object->GetSourceText(), header.at("SourceText").get<std::string>());
        constexpr std::pair<const char*, int> kTags[] = {
            {"Vis", 0},  {"PVT", 1},  {"Cp", 2}, {"K", 3},  {"VE", 4},  {"KN", 5},
            {"Mech", 6}, {"Temp", 7}, {"OP", 8}, {"SI", 9}, {"CR", 10}, {"PW", 11}};
        for (const auto& [name, tag] : kTags) {
            if (!frame.at("Blocks").contains(name)) continue;
            SCOPED_TRACE(name);
            const nlohmann::json& block = frame.at("Blocks").at(name);
            int source = -7, model = -7, count = -7;
            object->GetParamInfo(tag, &source, &model, &count);
            EXPECT_EQ(source, block.at("Source").get<int>());
            EXPECT_EQ(model, block.at("Model").get<int>());
            const auto values = block.at("Para").get<std::vector<double>>();
            ASSERT_EQ(count, static_cast<int>(values.size()));
            for (int i = 0; i < count; ++i)
                EXPECT_EQ(object->GetParamValue(tag, i), values[static_cast<std::size_t>(i)]);
        }
    }
    // The thermoplastic entry brings its measured data into a record.
    auto material = adopt(new QrvMaterial);
    QrvInitMaterial(material.get());
    QrvMaterialFromStream(material.get(), bank.LoadMaterial(0), false);
    nlohmann::json measured = frames.at(0);
    qrvtest::expectRawData(material->VisRaw, measured.at("VisRaw"), "VisRaw");
    if (measured.at("PVTRaw").at("CurveCount").get<int>() == 0) {
        EXPECT_EQ(material->PVTRaw, nullptr);  // a family without curves is dropped
    }
    EXPECT_EQ(material->FileType, 0);  // TypeWord 0 of a bank entry
}

// Every shorter length of every sample: nothing crashes or leaks (the sanitizer build checks),
// and the result is what the form allows. A current-form file needs its ObjSize and ObjType to
// give a record at all, and then holds what was read; an old block needs all its 2624 bytes.
TEST(SampleFiles, EveryTruncationLoadsSafely) {
    qrvtest::TempFolder folder;
    for (const SampleFile& sample : kSamples) {
        const std::string name = sample.file;
        SCOPED_TRACE(name);
        const std::string bytes = sampleBytes(name);
        const bool legacy = name == "sample_legacy.mtr";
        const std::int32_t bodyVer = legacy ? 0 : wordAt(bytes, 12);
        const std::string path = folder.path(name);
        qrvtest::writeFile(path, bytes);
        // From the longest cut down, each one a truncation of the file in place.
        for (std::size_t length = bytes.size(); length-- > 0;) {
            std::filesystem::resize_file(path, length);
            auto material = adopt(QrvGetMaterial(path.c_str()));
            if (legacy || length < 12) {
                ASSERT_EQ(material, nullptr) << length;
                continue;
            }
            ASSERT_NE(material, nullptr) << length;
            ASSERT_EQ(material->FileVer, length >= 16 ? bodyVer : 0) << length;
            ASSERT_NE(material->Polymer, nullptr) << length;
        }
    }
}

// A load hands the arrays of the object it has just read to the record instead of copying them.
// For every sample and every length it could be cut to, that gives the record the copying
// conversion gives from the same frame, and leaves the object's blocks empty.
TEST(SampleFiles, TakingTheObjectsArraysGivesTheRecordThatCopyingGives) {
    constexpr int kTags = 12;
    for (const SampleFile& sample : kSamples) {
        const std::string name = sample.file;
        if (name == "sample_legacy.mtr") continue;
        SCOPED_TRACE(name);
        const std::string bytes = sampleBytes(name);
        const bool rim = QrvIsRIM(name.c_str());
        for (std::size_t length = bytes.size(); length > 4; --length) {
            SCOPED_TRACE(length);
            CQrvByteReader first(bytes.data() + 4, length - 4);
            CQrvByteReader second(bytes.data() + 4, length - 4);
            std::unique_ptr<CQrvMatBase> copied = qrv::readFrame(first);
            std::unique_ptr<CQrvMatBase> taken = qrv::readFrame(second);
            ASSERT_EQ(copied == nullptr, taken == nullptr);
            if (!copied) continue;
            auto a = adopt(new QrvMaterial);
            auto b = adopt(new QrvMaterial);
            QrvInitMaterial(a.get());
            QrvInitMaterial(b.get());
            QrvMaterialFromStream(a.get(), copied.get(), rim);
            qrv::materialFromSpentObject(b.get(), taken.get(), rim);
            expectSameRecord(*a, *b);
            if (length != bytes.size()) continue;
            // The whole frame: every block that reached the record with values was taken.
            int left = 0, kept = 0;
            for (int tag = 0; tag < kTags; ++tag) {
                int count = 0;
                taken->GetParamInfo(tag, nullptr, nullptr, &count);
                left += count;
                copied->GetParamInfo(tag, nullptr, nullptr, &count);
                kept += count;
            }
            EXPECT_EQ(left, 0);
            EXPECT_GT(kept, 0);
        }
    }
}
