// Expected material frames, built in the tests from the documented layout: ObjSize, ObjType,
// BodyVer, the header, and the body items present at the version, each written out by hand.
#ifndef QRV_TESTS_FORMATS_FRAME_BUILDER_H
#define QRV_TESTS_FORMATS_FRAME_BUILDER_H

#include <gtest/gtest.h>

#include <array>
#include <cstdint>
#include <map>
#include <string>
#include <vector>

#include "formats/binary_stream.h"
#include "formats/mat_base.h"
#include "support/byte_builder.h"

namespace qrvtest {

struct BlockData {
    int source = 0;
    int model = 0;
    std::vector<double> values;
};

// An item of a documented body: a block tag, or a measured section ("vis", "pvt", "mtc").
struct Documented {
    int tag;  // -1 for a section
    const char* section;
    int fromVersion;  // 0: always
};

// Body orders as the format documents them.
inline const std::vector<Documented> kPlasticBody = {
    {0, "", 0},        {1, "", 0},     {2, "", 0},    {3, "", 0},        {4, "", 0},
    {6, "", 0},        {7, "", 0},     {8, "", 9008}, {-1, "vis", 9009}, {-1, "pvt", 9009},
    {-1, "mtc", 9010}, {10, "", 9011}, {11, "", 9012}};
inline const std::vector<Documented> kRIMBody = {{0, "", 0},    {1, "", 0},    {2, "", 0},
                                                 {3, "", 0},    {5, "", 0},    {6, "", 9015},
                                                 {7, "", 9016}, {9, "", 9017}, {11, "", 9018}};
inline const std::vector<Documented> kNonPolyBody = {{2, "", 0}, {3, "", 0}, {6, "", 0}};

struct Sample {
    int objType = 0;
    int bodyVer = 7101;
    int reserved = 0;
    int typeWord = 0;
    int dateWord = 0;
    std::array<std::string, 5> texts;  // Polymer, Producer, GradeName, Comment, SourceText
    std::map<int, BlockData> blocks;   // by tag; a missing tag is an empty block
    std::map<std::string, std::string> sections;  // stored forms of "vis", "pvt", "mtc"

    // Positions of every count and length word in the frame last built, with the size of the
    // items each counts (1 for text bytes), and the tag of the block (or -1).
    struct CountWord {
        std::size_t at;
        std::int64_t itemBytes;
        int tag;
    };
    mutable std::vector<CountWord> countWords;
    // Byte offset in the frame where each block tag starts.
    mutable std::map<int, std::size_t> blockAt;

    std::string frame(const std::vector<Documented>& body) const {
        countWords.clear();
        blockAt.clear();
        Bytes b;
        b.word(0).word(objType).word(bodyVer);
        b.word(reserved).word(typeWord).word(dateWord);
        for (const std::string& text : texts) {
            countWords.push_back({b.mark(), 1, -1});
            b.text(text);
        }
        for (const Documented& item : body) {
            if (item.fromVersion != 0 && bodyVer < item.fromVersion) continue;
            if (item.tag >= 0) {
                auto found = blocks.find(item.tag);
                const BlockData data = found == blocks.end() ? BlockData{} : found->second;
                blockAt[item.tag] = b.mark();
                b.word(data.source).word(data.model);
                countWords.push_back({b.mark(), 8, item.tag});
                b.word(static_cast<std::int64_t>(data.values.size())).reals(data.values);
            } else {
                auto found = sections.find(item.section);
                b.raw(found == sections.end() ? emptySection(item.section) : found->second);
            }
        }
        b.patch(0, static_cast<std::int64_t>(b.size()) - 4);
        return b.str();
    }

    static std::string emptySection(const std::string& name) {
        if (name == "mtc") return Bytes().word(0).word(0).str();
        return Bytes().word(0).real(0.0).word(0).word(0).str();
    }

    // Fills a material object with this sample's header and blocks.
    void fill(CQrvMatBase& object) const {
        object.SetBodyVer(bodyVer);
        object.SetTypeWord(typeWord);
        object.SetDateWord(dateWord);
        std::string polymer = texts[0], producer = texts[1], grade = texts[2], comment = texts[3];
        object.SetPolymer(polymer);
        object.SetProducer(producer);
        object.SetGradeName(grade);
        object.SetComment(comment);
        for (const auto& [tag, data] : blocks)
            object.SetParam(tag, data.source, data.model, static_cast<int>(data.values.size()),
                            data.values.data());
    }
};

inline std::string writtenBy(CQrvMatBase& object) {
    CQrvMemoryStream out;
    object.WriteTo(out);
    return out.Bytes();
}

// The stream positioned where an object's own reader starts: behind ObjSize and ObjType.
inline std::string readerPart(const std::string& frame) {
    return frame.substr(8);
}

// A sample file of tests/data as bytes.
inline std::string dataFile(const char* name) {
    return readFile(std::string(QRV_TEST_DATA_DIR) + "/" + name);
}

// The stored form of a raw curve section with one curve, byte by byte.
inline std::string oneCurveForm(int source, double fitError, const std::string& standard,
                                double condition, const std::vector<double>& x,
                                const std::vector<double>& y) {
    return Bytes()
        .word(source)
        .real(fitError)
        .word(1)
        .text(standard)
        .real(condition)
        .word(static_cast<std::int64_t>(x.size()))
        .reals(x)
        .reals(y)
        .str();
}

// The block of tag in an object against its expected source, model and values.
inline void expectObjectBlock(CQrvMatBase& object, int tag, const BlockData& data) {
    int source = -9, model = -9, count = -9;
    object.GetParamInfo(tag, &source, &model, &count);
    EXPECT_EQ(source, data.source) << tag;
    EXPECT_EQ(model, data.model) << tag;
    ASSERT_EQ(count, static_cast<int>(data.values.size())) << tag;
    for (int i = 0; i < count; ++i)
        EXPECT_EQ(object.GetParamValue(tag, i), data.values[i]) << tag;
}

}  // namespace qrvtest

#endif
