// The thermoset and non-polymer material objects: their own block sets and gates, sizes, round
// trips, the sample files and the tags they refuse.
#include <gtest/gtest.h>

#include <cstdint>
#include <string>
#include <vector>

#include "formats/binary_stream.h"
#include "formats/nonpoly_mat.h"
#include "formats/plastic_mat.h"
#include "formats/rim_mat.h"
#include "frame_builder.h"
#include "support/byte_builder.h"

using qrvtest::BlockData;
using qrvtest::Bytes;
using qrvtest::dataFile;
using qrvtest::expectObjectBlock;
using qrvtest::Sample;

namespace {

Sample filledSample(int objType, int version, const std::vector<int>& tags) {
    Sample s;
    s.objType = objType;
    s.bodyVer = version;
    s.typeWord = objType == 1 ? 2 : 3;
    s.dateWord = 20200315;
    s.texts = {objType == 1 ? "Epoxy" : "Metal", "Kobari", "KC-6600", "D=7.85 g/cc", ""};
    for (int tag : tags)
        s.blocks[tag] = BlockData{30 + tag, 1 + tag % 3, {tag * 1.25, 1e-3 * tag}};
    return s;
}

const std::vector<int> kRIMTags = {0, 1, 2, 3, 5, 6, 7, 9, 11};
const std::vector<int> kNonPolyTags = {2, 3, 6};

}  // namespace

TEST(RIMMat, BlockCountFollowsItsOwnGates) {
    // Nine blocks at 9018, eight at 9017, seven at 9016, six at 9015, five below; 9008 to 9012
    // mean nothing here.
    const std::pair<int, unsigned> blocks[] = {{9018, 9}, {9999, 9}, {9017, 8},
                                               {9016, 7}, {9015, 6}, {9014, 5},
                                               {9012, 5}, {9008, 5}, {7101, 5}};
    for (const auto& [version, count] : blocks) {
        CQrvRIMMat object(nullptr);
        EXPECT_EQ(object.GetObjType(), 1);
        Sample s;
        s.objType = 1;
        s.bodyVer = version;
        s.fill(object);
        EXPECT_EQ(object.GetSize(), 32u + 8u + 12u * count) << version;
        EXPECT_EQ(qrvtest::writtenBy(object), s.frame(qrvtest::kRIMBody)) << version;
    }
}

TEST(RIMMat, RoundTripAtEveryGate) {
    for (int version : {7101, 9012, 9014, 9015, 9016, 9017, 9018, 9999}) {
        const Sample s = filledSample(1, version, kRIMTags);
        CQrvRIMMat writer(nullptr);
        s.fill(writer);
        const std::string frame = s.frame(qrvtest::kRIMBody);
        EXPECT_EQ(qrvtest::writtenBy(writer), frame) << version;

        CQrvMemoryStream in(qrvtest::readerPart(frame));
        CQrvRIMMat object(&in);
        ASSERT_TRUE(object.Read());
        EXPECT_FALSE(in.Failed());
        EXPECT_EQ(in.BytesLeft(), 0u);
        EXPECT_EQ(object.GetPolymer(), "Epoxy");
        const std::pair<int, int> gates[] = {{6, 9015}, {7, 9016}, {9, 9017}, {11, 9018}};
        for (int tag : kRIMTags) {
            bool present = true;
            for (const auto& [gatedTag, from] : gates)
                if (tag == gatedTag && version < from) present = false;
            expectObjectBlock(object, tag, present ? s.blocks.at(tag) : BlockData{});
        }
        EXPECT_EQ(qrvtest::writtenBy(object), frame) << version;
    }
}

TEST(RIMMat, SampleFileReadsAndWritesBackUnchanged) {
    const std::string file = dataFile("sample_thermoset_9018.mtx");
    EXPECT_EQ(qrvtest::wordAt(file, 8), 1);
    CQrvMemoryStream in(file.substr(12));
    CQrvRIMMat object(&in);
    object.Read();
    EXPECT_FALSE(in.Failed());
    EXPECT_EQ(in.BytesLeft(), 0u);
    EXPECT_EQ(object.GetBodyVer(), 9018);
    EXPECT_EQ(object.GetTypeWord(), 2);
    EXPECT_EQ(object.GetProducer(), "Kobari Chemical");
    expectObjectBlock(object, 1, {31, 1, {1.98}});
    expectObjectBlock(object, 9, {36, 1, {170.0, 2.8}});
    EXPECT_EQ(object.GetParamValue(5, 0), 0.342);
    EXPECT_EQ(object.GetParamValue(11, 0), 80.0);
    EXPECT_EQ(qrvtest::writtenBy(object), file.substr(4));
}

TEST(RIMMat, RefusesTheThermoplasticTags) {
    CQrvRIMMat object(nullptr);
    object.SetBodyVer(9018);
    const std::uint32_t size = object.GetSize();
    const double values[] = {1.0};
    for (int tag : {4, 8, 10}) {
        object.SetParam(tag, 1, 1, 1, values);
        EXPECT_EQ(object.GetParamValue(tag, 0), -1.0) << tag;
        EXPECT_EQ(object.GetParamArray(tag), nullptr);
        int count = 5;
        object.GetParamInfo(tag, nullptr, nullptr, &count);
        EXPECT_EQ(count, 5);
    }
    EXPECT_EQ(object.GetSize(), size);
    object.SetParam(9, 1, 1, 1, values);
    EXPECT_EQ(object.GetParamValue(9, 0), 1.0);
}

TEST(RIMMat, HasNoTextFormAndNoMeasuredData) {
    const Sample s = filledSample(1, 9018, kRIMTags);
    CQrvMemoryStream in(std::string("1 2 1 3"));
    CQrvRIMMat object(&in);
    s.fill(object);
    CQrvMemoryStream out;
    EXPECT_TRUE(object.WriteText(out));
    EXPECT_EQ(out.Bytes(), "");
    EXPECT_TRUE(object.ReadText(out));
    EXPECT_EQ(in.BytesLeft(), 7u);
    expectObjectBlock(object, 0, s.blocks.at(0));

    CQrvViscosityData vis;
    const double x[] = {1.0};
    vis.AddCurve(1, 1, x, x);
    object.SetVisRaw(&vis);
    CQrvViscosityData out2;
    CQrvViscosityData* target = &out2;
    object.GetVisRaw(&target);
    EXPECT_EQ(out2.GetCurveCount(), 0);
    object.SetMTC(nullptr);  // the base ignores its argument
    EXPECT_EQ(object.GetSize() + 4, s.frame(qrvtest::kRIMBody).size());
}

TEST(RIMMat, BadCountsFailTheStreamAtEveryPosition) {
    const Sample s = filledSample(1, 9018, kRIMTags);
    const std::string frame = s.frame(qrvtest::kRIMBody);
    for (const auto& word : s.countWords) {
        const std::int64_t left = static_cast<std::int64_t>(frame.size() - word.at - 4);
        for (std::int64_t bad :
             {std::int64_t{-1}, std::int64_t{2147483647}, left / word.itemBytes + 1}) {
            Bytes damaged;
            damaged.raw(frame).patch(word.at, bad);
            CQrvMemoryStream in(qrvtest::readerPart(damaged.str()));
            CQrvRIMMat object(&in);
            ASSERT_NO_THROW(object.Read());
            EXPECT_TRUE(in.Failed());
            for (const auto& [tag, at] : s.blockAt)
                if (at + 8 < word.at)
                    expectObjectBlock(object, tag, s.blocks.at(tag));
                else if (at > word.at)
                    expectObjectBlock(object, tag, BlockData{});
        }
    }
}

TEST(NonPolyMat, EmptyMetalIs76PlusTexts) {
    CQrvNonPolyMat object(nullptr);
    EXPECT_EQ(object.GetObjType(), 2);
    EXPECT_EQ(object.GetSize(), 76u);
    Sample s;
    s.objType = 2;
    s.typeWord = 3;
    s.texts = {"Metal", "Hallam", "316L", "D=7.99 g/cc", ""};
    s.fill(object);
    EXPECT_EQ(object.GetSize(), 76u + 5 + 6 + 4 + 11);
    EXPECT_EQ(qrvtest::writtenBy(object), s.frame(qrvtest::kNonPolyBody));
}

TEST(NonPolyMat, VersionHasNoEffect) {
    for (int version : {0, 7101, 9008, 9012, 9018, 9999}) {
        const Sample s = filledSample(2, version, kNonPolyTags);
        CQrvNonPolyMat writer(nullptr);
        s.fill(writer);
        const std::string frame = s.frame(qrvtest::kNonPolyBody);
        EXPECT_EQ(frame.size(), 4u + 76u + 5 + 6 + 7 + 11 + 3 * 16);
        EXPECT_EQ(qrvtest::writtenBy(writer), frame) << version;
        CQrvMemoryStream in(qrvtest::readerPart(frame));
        CQrvNonPolyMat object(&in);
        object.Read();
        EXPECT_EQ(in.BytesLeft(), 0u);
        for (int tag : kNonPolyTags)
            expectObjectBlock(object, tag, s.blocks.at(tag));
        EXPECT_EQ(qrvtest::writtenBy(object), frame);
    }
}

TEST(NonPolyMat, SampleFilesReadAndWriteBackUnchanged) {
    for (const char* name : {"sample_metal.mtr", "sample_coolant.mtr", "sample_chip.mtr"}) {
        const std::string file = dataFile(name);
        EXPECT_EQ(qrvtest::wordAt(file, 8), 2);
        CQrvMemoryStream in(file.substr(12));
        CQrvNonPolyMat object(&in);
        object.Read();
        EXPECT_FALSE(in.Failed()) << name;
        EXPECT_EQ(in.BytesLeft(), 0u) << name;
        EXPECT_EQ(qrvtest::writtenBy(object), file.substr(4)) << name;
    }
    CQrvMemoryStream in(dataFile("sample_metal.mtr").substr(12));
    CQrvNonPolyMat metal(&in);
    metal.Read();
    EXPECT_EQ(metal.GetPolymer(), "Metal");
    EXPECT_EQ(metal.GetComment(), "Austenitic D=7.99 g/cc");
    EXPECT_EQ(metal.GetTypeWord(), 3);
    expectObjectBlock(metal, 2, {41, 1, {5000000.0}});
    EXPECT_EQ(metal.GetParamValue(6, 2), 1930000000000.0);
}

TEST(NonPolyMat, CarriesOnlyItsThreeTags) {
    CQrvNonPolyMat object(nullptr);
    const double values[] = {2.0, 3.0};
    for (int tag : {0, 1, 4, 5, 7, 8, 9, 10, 11}) {
        object.SetParam(tag, 1, 1, 2, values);
        EXPECT_EQ(object.GetParamValue(tag, 0), -1.0) << tag;
        EXPECT_EQ(object.GetParamArray(tag), nullptr);
    }
    EXPECT_EQ(object.GetSize(), 76u);  // a Vis block of a metal never reaches a file
    object.SetParam(2, 1, 1, 2, values);
    EXPECT_EQ(object.GetParamValue(2, 1), 3.0);
    EXPECT_EQ(object.GetParamValue(2, 2), 0.0);
}

TEST(NonPolyMat, TextTwinHasTheHeaderAndThreeBlocks) {
    CQrvNonPolyMat object(nullptr);
    Sample s;
    s.objType = 2;
    s.typeWord = 3;
    s.texts = {"Metal", "Hallam", "316L", "D=7.99 g/cc", ""};
    s.blocks[2] = BlockData{41, 1, {5e6}};
    s.fill(object);
    CQrvMemoryStream out;
    EXPECT_TRUE(object.WriteText(out));
    const std::string empty = "0,0,0," + std::string(20, ',');
    EXPECT_EQ(out.Bytes(), "Metal0003,Metal,Hallam,316L,\"D=7.99 g/cc\",\"\",41,1,1,5e+06," +
                               std::string(19, ',') + empty + empty);

    CQrvMemoryStream in(std::string("41 1 1 5e6 42 2 2 1 2 43 3 0 99"));
    CQrvNonPolyMat reader(&in);
    CQrvMemoryStream unused;
    EXPECT_TRUE(reader.ReadText(unused));
    expectObjectBlock(reader, 2, {41, 1, {5e6}});
    expectObjectBlock(reader, 3, {42, 2, {1, 2}});
    expectObjectBlock(reader, 6, {43, 3, {}});
    EXPECT_EQ(in.BytesLeft(), 3u);
}

TEST(NonPolyMat, ReadingPastTheEndKeepsTheFields) {
    const Sample s = filledSample(2, 7101, kNonPolyTags);
    const std::string frame = s.frame(qrvtest::kNonPolyBody);
    Sample before = filledSample(2, 1, kNonPolyTags);
    for (auto& [tag, data] : before.blocks)
        data.values = {-1.0};
    before.texts = {"Old", "Old", "Old", "Old", ""};
    for (std::size_t cut = 8; cut < frame.size(); ++cut) {
        CQrvMemoryStream in(frame.substr(8, cut - 8));
        CQrvNonPolyMat object(&in);
        before.fill(object);
        ASSERT_NO_THROW(object.Read());
        EXPECT_TRUE(in.Failed());
        EXPECT_EQ(object.GetBodyVer(), cut >= 12 ? 7101 : 1) << cut;
        // Frame words to 12, header words to 24, then the length of "Metal" and its bytes.
        EXPECT_EQ(object.GetPolymer(), cut >= 33 ? "Metal" : "Old") << cut;
        for (const auto& [tag, at] : s.blockAt) {
            if (at + 12 + 16 <= cut)
                expectObjectBlock(object, tag, s.blocks.at(tag));
            else if (at >= cut)
                expectObjectBlock(object, tag, before.blocks.at(tag));
        }
    }
}
