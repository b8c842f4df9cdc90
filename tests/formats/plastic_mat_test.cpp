// The thermoplastic material object: sizes, bytes at every gate, round trips, the sample files,
// the tag semantics, the text twin and damaged streams.
#include <quorvalib/measured.h>

#include <gtest/gtest.h>

#include <cstdint>
#include <memory>
#include <new>
#include <stdexcept>
#include <string>
#include <vector>

#include "formats/binary_stream.h"
#include "formats/plastic_mat.h"
#include "frame_builder.h"
#include "measured/mtc_list.h"
#include "support/byte_builder.h"

using qrvtest::BlockData;
using qrvtest::Bytes;
using qrvtest::dataFile;
using qrvtest::expectObjectBlock;
using qrvtest::oneCurveForm;
using qrvtest::Sample;

namespace {

const int kVersions[] = {7101, 9005, 9006, 9007, 9008, 9009, 9010, 9011, 9012, 9999};

// The MTC form of one record with one section whose 21 parameters are 1..21.
std::string mtcForm() {
    Bytes b;
    b.word(1000).word(1).word(2).word(0).word(1);
    b.word(1).word(3).word(21);
    for (int k = 1; k <= 21; ++k)
        b.real(k);
    b.real(170.0);
    return b.str();
}

// Every carried block filled with its own values.
Sample fullSample(int version) {
    Sample s;
    s.objType = 0;
    s.bodyVer = version;
    s.typeWord = 1;
    s.dateWord = 20160601;
    s.texts = {"PLA", "Greenfield", "GB 3052D", "spoon grade", ""};
    for (int tag : {0, 1, 2, 3, 4, 6, 7, 8, 10, 11})
        s.blocks[tag] = BlockData{10 + tag, tag % 5, {tag + 0.5, -tag * 1e9, 1.0 / (tag + 3)}};
    s.blocks[7].values.clear();  // an empty carried block still stands in the stream
    s.sections["vis"] = oneCurveForm(21, 0.034, "ISO 11443", 190.0, {30, 300}, {2150, 980});
    s.sections["pvt"] = oneCurveForm(22, 0.002, "", 0.0, {30}, {0.801});
    s.sections["mtc"] = mtcForm();
    return s;
}

// Fills the measured sections of an object from the sample's forms, through the copy slots.
void fillSections(CQrvPlasticMat& object, const Sample& s) {
    CQrvMemoryStream visIn(s.sections.at("vis")), pvtIn(s.sections.at("pvt")),
        mtcIn(s.sections.at("mtc"));
    CQrvViscosityData vis(&visIn);
    CQrvPVTData pvt(&pvtIn);
    CQrvMTCList mtc(&mtcIn);
    vis.Read();
    pvt.Read();
    mtc.Read();
    object.SetVisRaw(&vis);
    object.SetPVTRaw(&pvt);
    object.SetMTC(&mtc);
}

}  // namespace

TEST(PlasticMat, EmptyAt7101Is124PlusTexts) {
    CQrvPlasticMat object(nullptr);
    EXPECT_EQ(object.GetObjType(), 0);
    object.SetBodyVer(7101);
    EXPECT_EQ(object.GetSize(), 124u);
    Sample s;
    s.bodyVer = 7101;
    s.texts = {"PP", "Acme", "G1", "note", ""};
    s.typeWord = 1;
    s.dateWord = 20041215;
    s.fill(object);
    EXPECT_EQ(object.GetSize(), 124u + 2 + 4 + 2 + 4);
    const std::string expected = s.frame(qrvtest::kPlasticBody);
    EXPECT_EQ(expected.size(), 4u + 124u + 12u);
    EXPECT_EQ(qrvtest::writtenBy(object), expected);
    EXPECT_EQ(object.GetObjSize(), 136);
    EXPECT_EQ(object.GetHeader().Lengths[1], 4);
}

TEST(PlasticMat, EachGateAddsItsSection) {
    // 9008 a 12-byte OP block, 9009 two raw sections of 20, 9010 an MTC section of 8, 9011 and
    // 9012 a 12-byte block each; nothing else changes the size.
    const std::pair<int, unsigned> sizes[] = {{7101, 124}, {9005, 124}, {9007, 124},
                                              {9008, 136}, {9009, 176}, {9010, 184},
                                              {9011, 196}, {9012, 208}, {9999, 208}};
    for (const auto& [version, size] : sizes) {
        CQrvPlasticMat object(nullptr);
        Sample s;
        s.bodyVer = version;
        s.fill(object);
        EXPECT_EQ(object.GetSize(), size) << version;
        EXPECT_EQ(qrvtest::writtenBy(object), s.frame(qrvtest::kPlasticBody)) << version;
    }
}

TEST(PlasticMat, FilledObjectMatchesTheLayoutAtEveryGate) {
    for (int version : kVersions) {
        const Sample s = fullSample(version);
        CQrvPlasticMat object(nullptr);
        s.fill(object);
        fillSections(object, s);
        const std::string expected = s.frame(qrvtest::kPlasticBody);
        EXPECT_EQ(qrvtest::writtenBy(object), expected) << version;
        EXPECT_EQ(object.GetSize() + 4, expected.size()) << version;
        EXPECT_EQ(qrvtest::wordAt(expected, 0), object.GetObjSize());
    }
}

TEST(PlasticMat, RoundTripAtEveryGate) {
    for (int version : kVersions) {
        const Sample s = fullSample(version);
        const std::string frame = s.frame(qrvtest::kPlasticBody);
        CQrvMemoryStream in(qrvtest::readerPart(frame));
        CQrvPlasticMat object(&in);
        ASSERT_TRUE(object.Read());
        EXPECT_FALSE(in.Failed()) << version;
        EXPECT_EQ(in.BytesLeft(), 0u) << version;
        EXPECT_EQ(object.GetBodyVer(), version);
        EXPECT_EQ(object.GetTypeWord(), 1);
        EXPECT_EQ(object.GetDateWord(), 20160601);
        EXPECT_EQ(object.GetPolymer(), "PLA");
        EXPECT_EQ(object.GetComment(), "spoon grade");
        for (const auto& [tag, data] : s.blocks) {
            const bool present = (tag != 8 || version >= 9008) && (tag != 10 || version >= 9011) &&
                                 (tag != 11 || version >= 9012);
            expectObjectBlock(object, tag, present ? data : BlockData{});
        }
        CQrvViscosityData vis;
        CQrvViscosityData* target = &vis;
        object.GetVisRaw(&target);
        EXPECT_EQ(vis.GetCurveCount(), version >= 9009 ? 1 : 0) << version;
        CQrvMTCList mtc;
        object.GetMTC(&mtc);
        EXPECT_EQ(mtc.GetRecordCount(), version >= 9010 ? 1 : 0) << version;
        EXPECT_EQ(qrvtest::writtenBy(object), frame) << version;

        // The plain Write goes to the object's own stream.
        CQrvMemoryStream out;
        CQrvPlasticMat writer(&out);
        s.fill(writer);
        fillSections(writer, s);
        EXPECT_TRUE(writer.Write());
        EXPECT_EQ(out.Bytes(), frame);
    }
}

TEST(PlasticMat, SampleFilesReadAndWriteBackUnchanged) {
    for (const char* name : {"sample_thermoplastic_9012.mtr", "sample_thermoplastic_9008.mtr",
                             "sample_default_3_2.mtr"}) {
        const std::string file = dataFile(name);
        ASSERT_GT(file.size(), 12u) << name;
        EXPECT_EQ(qrvtest::wordAt(file, 0), 9051);
        EXPECT_EQ(qrvtest::wordAt(file, 8), 0);  // ObjType
        CQrvMemoryStream in(file.substr(12));
        CQrvPlasticMat object(&in);
        ASSERT_TRUE(object.Read());
        EXPECT_FALSE(in.Failed()) << name;
        EXPECT_EQ(in.BytesLeft(), 0u) << name;
        EXPECT_EQ(qrvtest::writtenBy(object), file.substr(4)) << name;
    }
}

TEST(PlasticMat, SampleFileFieldsAreThoseOfTheFile) {
    CQrvMemoryStream in(dataFile("sample_thermoplastic_9012.mtr").substr(12));
    CQrvPlasticMat object(&in);
    object.Read();
    EXPECT_EQ(object.GetBodyVer(), 9012);
    EXPECT_EQ(object.GetTypeWord(), 1);
    EXPECT_EQ(object.GetDateWord(), 20160601);
    EXPECT_EQ(object.GetPolymer(), "PLA");
    EXPECT_EQ(object.GetProducer(), "Greenfield Bioplastics");
    EXPECT_EQ(object.GetGradeName(), "GB 3052D");
    EXPECT_EQ(object.GetComment(), "spoon grade");
    EXPECT_EQ(object.GetSourceText(), "");
    expectObjectBlock(object, 0,
                      {11, 5, {0.01, 204026.1, 7.63e+17, 432.0627, 0.0, 36.10003, 1.094729}});
    expectObjectBlock(object, 3, {12, 2, {19000.0, 30.0, 22000.0, 230.0}});
    expectObjectBlock(object, 8, {16, 1, {1.455, 0.0003}});
    expectObjectBlock(object, 10, {17, 1, {0.37, 0.0022}});
    expectObjectBlock(object, 11, {18, 7, {5.0, 2.7, 0.25, 720000000000.0, 5.5e-06}});

    CQrvViscosityData vis;
    CQrvPVTData pvt;
    CQrvViscosityData* visTarget = &vis;
    CQrvPVTData* pvtTarget = &pvt;
    object.GetVisRaw(&visTarget);
    object.GetPVTRaw(&pvtTarget);
    EXPECT_EQ(vis.GetSource(), 21);
    EXPECT_EQ(vis.GetFitError(), 0.034);
    EXPECT_EQ(vis.GetMeasureStandard(), "ISO 11443 capillary");
    ASSERT_EQ(vis.GetCurveCount(), 2);
    double condition = 0;
    int points = 0;
    double* x = nullptr;
    double* y = nullptr;
    ASSERT_TRUE(vis.GetCurve(1, condition, points, x, y));
    EXPECT_EQ(condition, 210.0);
    ASSERT_EQ(points, 4);
    EXPECT_EQ(x[3], 30000.0);
    EXPECT_EQ(y[3], 24.5);
    EXPECT_EQ(pvt.GetMeasureStandard(), "ISO 17744 piston");
    EXPECT_EQ(pvt.GetCondition(1), 1000000000.0);

    CQrvMTCList mtc;
    object.GetMTC(&mtc);
    EXPECT_EQ(mtc.GetVersion(), 1000);
    ASSERT_EQ(mtc.GetRecordCount(), 1);
    const QRV_MTC* record = mtc.GetRecord(0);
    EXPECT_EQ(record->Version, 2);
    ASSERT_EQ(record->SectionCount, 2);
    EXPECT_EQ(record->Sections[1].MaxParameterNum, 4);
    EXPECT_EQ(record->Sections[1].Parameters[3], 11.0);
    EXPECT_EQ(record->IntervalTemperature[1], 210.0);
}

TEST(PlasticMat, HigherVersionReadsTheRichestLayoutAndLeavesTheRest) {
    const Sample s = fullSample(9999);
    const std::string frame = s.frame(qrvtest::kPlasticBody) + std::string(20, '\x55');
    CQrvMemoryStream in(qrvtest::readerPart(frame));
    CQrvPlasticMat object(&in);
    object.Read();
    EXPECT_FALSE(in.Failed());
    EXPECT_EQ(in.BytesLeft(), 20u);
    expectObjectBlock(object, 11, s.blocks.at(11));
}

TEST(PlasticMat, UnknownTagsAreIgnored) {
    CQrvPlasticMat object(nullptr);
    object.SetBodyVer(9012);
    const double values[] = {1, 2, 3};
    for (int tag : {5, 9, -1, 12, 100}) {
        const std::uint32_t size = object.GetSize();
        object.SetParam(tag, 1, 1, 3, values);
        EXPECT_EQ(object.GetSize(), size) << tag;
        int source = 7, model = 8, count = 9;
        object.GetParamInfo(tag, &source, &model, &count);
        EXPECT_EQ(source, 7);
        EXPECT_EQ(model, 8);
        EXPECT_EQ(count, 9);
        EXPECT_EQ(object.GetParamValue(tag, 0), -1.0);
        EXPECT_EQ(object.GetParamArray(tag), nullptr);
    }
}

TEST(PlasticMat, CarriedTagSemantics) {
    CQrvPlasticMat object(nullptr);
    EXPECT_EQ(object.GetParamArray(0), nullptr);  // empty until set
    const double values[] = {1.5, 2.5};
    object.SetParam(0, 3, 4, 2, values);
    double* array = object.GetParamArray(0);
    ASSERT_NE(array, nullptr);
    EXPECT_EQ(array, object.GetParamArray(0));  // the block's own array, not a copy
    array[1] = 9.0;
    EXPECT_EQ(object.GetParamValue(0, 1), 9.0);
    EXPECT_EQ(object.GetParamValue(0, 2), 0.0);
    EXPECT_EQ(object.GetParamValue(0, -1), 0.0);

    object.SetParam(1, 5, 6, 0, nullptr);  // a zero-length array, values not read
    EXPECT_NE(object.GetParamArray(1), nullptr);
    EXPECT_EQ(object.GetParamValue(1, 0), 0.0);

    EXPECT_THROW(object.SetParam(0, 1, 1, -1, values), std::bad_array_new_length);
    EXPECT_THROW(object.SetParam(0, 1, 1, 2, nullptr), std::invalid_argument);
    int source = 0, model = 0, count = 0;
    object.GetParamInfo(0, &source, &model, &count);
    EXPECT_EQ(source, 3);
    EXPECT_EQ(model, 4);
    EXPECT_EQ(count, 2);
    object.GetParamInfo(0, nullptr, &model, nullptr);  // null outputs are skipped
    EXPECT_EQ(model, 4);
}

// Taking a block's array hands over the very array that was set, with its values, and leaves the
// block empty but for its source and model; a tag the class does not carry gives nothing.
TEST(PlasticMat, TakingAnArrayEmptiesTheBlock) {
    CQrvPlasticMat object(nullptr);
    const double values[] = {1.5, 2.5};
    object.SetParam(6, 3, 4, 2, values);
    const double* own = object.GetParamArray(6);
    std::unique_ptr<double[]> taken = object.TakeParamArray(6);
    ASSERT_EQ(taken.get(), own);
    EXPECT_EQ(taken[0], 1.5);
    EXPECT_EQ(taken[1], 2.5);
    int source = 0, model = 0, count = -1;
    object.GetParamInfo(6, &source, &model, &count);
    EXPECT_EQ(source, 3);
    EXPECT_EQ(model, 4);
    EXPECT_EQ(count, 0);
    EXPECT_EQ(object.GetParamArray(6), nullptr);
    EXPECT_EQ(object.GetParamValue(6, 0), 0.0);
    EXPECT_EQ(object.TakeParamArray(6), nullptr);  // nothing left to take
    EXPECT_EQ(object.TakeParamArray(5), nullptr);  // KN is not a thermoplastic's
    EXPECT_EQ(object.TakeParamArray(12), nullptr);
}

TEST(PlasticMat, TextSettersTakeTheString) {
    CQrvPlasticMat object(nullptr);
    std::string polymer = "PP", producer = "Acme", grade = "G", comment = "c";
    object.SetPolymer(polymer);
    object.SetProducer(producer);
    object.SetGradeName(grade);
    object.SetComment(comment);
    EXPECT_TRUE(polymer.empty() && producer.empty() && grade.empty() && comment.empty());
    EXPECT_EQ(object.GetPolymer(), "PP");
    EXPECT_EQ(object.GetProducer(), "Acme");
    EXPECT_EQ(object.GetGradeName(), "G");
    EXPECT_EQ(object.GetComment(), "c");
}

TEST(PlasticMat, EmbeddedNulShortensAHeaderText) {
    Sample s = fullSample(7101);
    s.texts[0] = std::string("PL\0A", 4);
    s.texts[4] = "from a bank";
    const std::string frame = s.frame(qrvtest::kPlasticBody);
    CQrvMemoryStream in(qrvtest::readerPart(frame));
    CQrvPlasticMat object(&in);
    object.Read();
    EXPECT_FALSE(in.Failed());
    EXPECT_EQ(object.GetPolymer(), "PL");
    EXPECT_EQ(object.GetHeader().Lengths[0], 4);  // as read, until the next size computation
    EXPECT_EQ(object.GetProducer(), "Greenfield");
    EXPECT_EQ(object.GetSourceText(), "from a bank");
    expectObjectBlock(object, 7, s.blocks.at(7));
    EXPECT_EQ(object.GetSize() + 4, frame.size() - 2);
    EXPECT_EQ(object.GetHeader().Lengths[0], 2);

    // Written with its NUL, a text keeps every byte.
    CQrvPlasticMat writer(nullptr);
    std::string polymer("A\0B", 3);
    writer.SetPolymer(polymer);
    writer.SetBodyVer(7101);
    EXPECT_EQ(writer.GetSize(), 127u);
    EXPECT_EQ(qrvtest::writtenBy(writer).substr(24, 7), std::string("\x03\0\0\0A\0B", 7));
}

TEST(PlasticMat, ReadingPastTheEndKeepsTheFields) {
    const Sample next = fullSample(9012);
    Sample before = fullSample(9012);
    for (auto& [tag, data] : before.blocks)
        data = BlockData{-tag, 99, {42.0}};
    const std::string frame = next.frame(qrvtest::kPlasticBody);
    for (std::size_t cut = 8; cut < frame.size(); cut += 3) {
        CQrvMemoryStream in(frame.substr(8, cut - 8));
        CQrvPlasticMat object(&in);
        before.fill(object);
        ASSERT_NO_THROW(object.Read());
        EXPECT_TRUE(in.Failed());
        for (const auto& [tag, at] : next.blockAt) {
            // A block whose bytes all stand before the cut is replaced; one that starts behind the
            // cut keeps what it held.
            const std::size_t end = at + 12 + 8 * next.blocks.at(tag).values.size();
            if (end <= cut)
                expectObjectBlock(object, tag, next.blocks.at(tag));
            else if (at >= cut)
                expectObjectBlock(object, tag, before.blocks.at(tag));
        }
        // Whatever it holds, the object measures what it writes.
        EXPECT_EQ(object.GetSize() + 4, qrvtest::writtenBy(object).size());
    }
}

TEST(PlasticMat, BadCountsAndLengthsFailTheStreamAtEveryPosition) {
    const Sample s = fullSample(9012);
    const std::string frame = s.frame(qrvtest::kPlasticBody);
    const auto words = s.countWords;
    ASSERT_EQ(words.size(), 5u + 10u);
    for (const auto& word : words) {
        const std::int64_t left = static_cast<std::int64_t>(frame.size() - word.at - 4);
        for (std::int64_t bad : {std::int64_t{-1}, std::int64_t{-2147483647 - 1},
                                 std::int64_t{2147483647}, left / word.itemBytes + 1}) {
            Bytes damaged;
            damaged.raw(frame).patch(word.at, bad);
            CQrvMemoryStream in(qrvtest::readerPart(damaged.str()));
            CQrvPlasticMat object(&in);
            ASSERT_NO_THROW(EXPECT_TRUE(object.Read()));
            EXPECT_TRUE(in.Failed()) << word.at << " " << bad;
            for (const auto& [tag, at] : s.blockAt) {
                if (at + 8 < word.at)
                    expectObjectBlock(object, tag, s.blocks.at(tag));
                else if (at + 8 == word.at) {
                    // The damaged count: Source and Model are read, Count and array stay.
                    int source = 0, model = 0, count = -1;
                    object.GetParamInfo(tag, &source, &model, &count);
                    EXPECT_EQ(source, s.blocks.at(tag).source);
                    EXPECT_EQ(count, 0);
                    EXPECT_EQ(object.GetParamArray(tag), nullptr);
                } else {
                    expectObjectBlock(object, tag, BlockData{});
                    EXPECT_EQ(object.GetParamArray(tag), nullptr);
                }
            }
        }
    }
}

// The measured sections' own count words, damaged inside a whole frame.
TEST(PlasticMat, BadSectionCountsFailTheStream) {
    const Sample s = fullSample(9012);
    const std::string frame = s.frame(qrvtest::kPlasticBody);
    const std::size_t visAt = s.blockAt.at(8) + 12 + 8 * 3;
    const std::size_t pvtAt = visAt + s.sections.at("vis").size();
    const std::size_t mtcAt = pvtAt + s.sections.at("pvt").size();
    // Curve count, text length and point count of both raw sections (the PVT standard is empty);
    // the record and section counts of the MTC section. Each with the size of what it counts.
    const std::pair<std::size_t, std::int64_t> positions[] = {
        {visAt + 12, 12}, {visAt + 16, 1},      {visAt + 20 + 9 + 8, 16}, {pvtAt + 12, 12},
        {pvtAt + 16, 1},  {pvtAt + 20 + 8, 16}, {mtcAt + 4, 12},          {mtcAt + 16, 188}};
    for (const auto& [at, itemBytes] : positions) {
        const std::int64_t left = static_cast<std::int64_t>(frame.size() - at - 4);
        for (std::int64_t bad :
             {std::int64_t{-1}, std::int64_t{2147483647}, left / itemBytes + 1}) {
            Bytes damaged;
            damaged.raw(frame).patch(at, bad);
            CQrvMemoryStream in(qrvtest::readerPart(damaged.str()));
            CQrvPlasticMat object(&in);
            ASSERT_NO_THROW(object.Read());
            EXPECT_TRUE(in.Failed()) << at << " " << bad;
            expectObjectBlock(object, 8, s.blocks.at(8));  // before the section
            expectObjectBlock(object, 10, BlockData{});    // behind it, untouched
        }
    }
}

TEST(PlasticMat, WithoutAStreamReadAndWriteFail) {
    CQrvPlasticMat object(nullptr);
    EXPECT_FALSE(object.Read());
    EXPECT_FALSE(object.Write());
    CQrvMemoryStream out;
    EXPECT_TRUE(object.WriteTo(out));
    EXPECT_EQ(out.Bytes().size(), 128u);
}

TEST(PlasticMat, MeasuredDataCopiesInAndOut) {
    CQrvPlasticMat object(nullptr);
    CQrvViscosityData vis;
    const double x[] = {1, 2}, y[] = {3, 4};
    vis.AddCurve(200, 2, x, y);
    object.SetVisRaw(&vis);
    vis.Clear();  // the object holds its own copy
    CQrvViscosityData out;
    out.AddCurve(1, 0, nullptr, nullptr);
    CQrvViscosityData* target = &out;
    object.GetVisRaw(&target);
    ASSERT_EQ(out.GetCurveCount(), 1);  // cleared, then copied
    EXPECT_EQ(out.GetCondition(0), 200.0);

    CQrvMTCList mtc;
    QRV_MTC record{5, 1, 0, nullptr, nullptr};
    mtc.SetVersion(1000);
    mtc.AddRecords(&record, 1);
    object.SetMTC(&mtc);
    CQrvMTCList back;
    object.GetMTC(&back);
    EXPECT_EQ(back.GetVersion(), 1000);
    ASSERT_EQ(back.GetRecordCount(), 1);
    EXPECT_EQ(back.GetRecord(0)->Version, 5);

    EXPECT_THROW(object.SetVisRaw(nullptr), std::invalid_argument);
    EXPECT_THROW(object.SetPVTRaw(nullptr), std::invalid_argument);
    EXPECT_THROW(object.SetMTC(nullptr), std::invalid_argument);
    EXPECT_THROW(object.GetMTC(nullptr), std::invalid_argument);
    EXPECT_THROW(object.GetVisRaw(nullptr), std::invalid_argument);
    CQrvPVTData* none = nullptr;
    EXPECT_THROW(object.GetPVTRaw(&none), std::invalid_argument);
}

TEST(PlasticMat, WriteTextRunsHeaderAndBlocksTogether) {
    CQrvPlasticMat object(nullptr);
    Sample s;
    s.bodyVer = 7101;
    s.typeWord = 1;
    s.texts = {"PP", "Acme", "G1", "note", ""};
    s.blocks[0] = BlockData{1000, 3, {0.5, 2e+07}};
    s.blocks[8] = BlockData{1, 1, {7.0}};  // OP is in the text form only from 9008
    s.fill(object);
    CQrvMemoryStream out;
    EXPECT_TRUE(object.WriteText(out));
    const std::string commas20(20, ','), commas18(18, ',');
    const std::string empty = "0,0,0," + commas20;
    std::string expected = "PP0001,PP,Acme,G1,\"note\",\"\",";
    expected += "1000,3,2,0.5,2e+07," + commas18;
    for (int i = 0; i < 6; ++i)
        expected += empty;
    EXPECT_EQ(out.Bytes(), expected);

    object.SetBodyVer(9008);
    object.SetTypeWord(-1);  // the sign stands behind the padding
    CQrvMemoryStream out9008;
    object.WriteText(out9008);
    std::string expected9008 = "PP00-1,PP,Acme,G1,\"note\",\"\",";
    expected9008 += "1000,3,2,0.5,2e+07," + commas18;
    for (int i = 0; i < 6; ++i)
        expected9008 += empty;
    expected9008 += "1,1,1,7," + std::string(19, ',');
    EXPECT_EQ(out9008.Bytes(), expected9008);
}

TEST(PlasticMat, WriteTextPadsNoBlockOfTwentyValuesOrMore) {
    CQrvPlasticMat object(nullptr);
    std::vector<double> values(21, 1.0);
    object.SetParam(0, 0, 0, 21, values.data());
    CQrvMemoryStream out;
    object.WriteText(out);
    std::string block = "0,0,21,";
    for (int i = 0; i < 21; ++i)
        block += "1,";
    EXPECT_EQ(out.Bytes().substr(std::string("0000,,,,\"\",\"\",").size(), block.size() + 1),
              block + "0");
}

TEST(PlasticMat, ReadTextReadsSevenBlocksOfNumbers) {
    CQrvMemoryStream in(
        std::string("1 2 2 0.5 1.5\n3 4 0\n5 6 1 7\n0 0 0\n8 9 1 1e3\n"
                    "10 11 0\n12 13 2 1 2\n14 15 1 16"));
    CQrvPlasticMat object(&in);
    CQrvMemoryStream unused;
    EXPECT_TRUE(object.ReadText(unused));
    expectObjectBlock(object, 0, {1, 2, {0.5, 1.5}});
    expectObjectBlock(object, 1, {3, 4, {}});
    expectObjectBlock(object, 2, {5, 6, {7}});
    expectObjectBlock(object, 4, {8, 9, {1000}});
    expectObjectBlock(object, 7, {12, 13, {1, 2}});
    expectObjectBlock(object, 8, {});  // OP is not in the text form that is read
    EXPECT_EQ(in.BytesLeft(), std::string("\n14 15 1 16").size());

    // The output of WriteText, with its commas, is not readable by it.
    CQrvMemoryStream commas(std::string("1,2,2,0.5,1.5,"));
    CQrvPlasticMat other(&commas);
    other.ReadText(unused);
    EXPECT_TRUE(commas.Failed());
    expectObjectBlock(other, 0, {1, 0, {}});

    // A negative or too large count fails the stream and keeps the block.
    CQrvMemoryStream bad(std::string("1 2 -3 4 5"));
    CQrvPlasticMat third(&bad);
    third.ReadText(unused);
    EXPECT_TRUE(bad.Failed());
    expectObjectBlock(third, 0, {1, 2, {}});
    EXPECT_EQ(third.GetParamArray(0), nullptr);
}
