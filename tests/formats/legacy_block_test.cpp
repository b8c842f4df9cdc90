// The old fixed-block material file: texts, block codes, the values run and the version gates.
#include <gtest/gtest.h>

#include <cstdint>
#include <cstring>
#include <string>
#include <vector>

#include "formats/legacy_block.h"
#include "record/material_internal.h"
#include "support/fixture.h"
#include "support/material_ptr.h"

using qrvtest::values;

namespace {

// A 2624-byte block laid out by hand: little-endian words and doubles at their offsets.
class Block {
public:
    Block() : bytes_(2624, 0) {}

    Block& word(int offset, std::int32_t value) {
        auto u = static_cast<std::uint32_t>(value);
        for (int i = 0; i < 4; ++i)
            bytes_[offset + i] = static_cast<unsigned char>(u >> (8 * i));
        return *this;
    }
    Block& version(std::int32_t v) { return word(0, v); }
    // Codes in the order Vis, PVT, Cp, K, fifth, Temp, VE.
    Block& code(int slot, std::int32_t c) { return word(12 + 4 * slot, c); }
    Block& text(const std::string& run) {
        std::memcpy(&bytes_[64], run.data(), run.size());
        return *this;
    }
    Block& value(int index, double v) {
        std::uint64_t bits;
        std::memcpy(&bits, &v, 8);
        for (int i = 0; i < 8; ++i) {
            bytes_[576 + 8 * index + i] = static_cast<unsigned char>(bits >> (8 * i));
        }
        return *this;
    }
    // Fills value i with i + 0.5, so that each block's values tell where they came from.
    Block& numberedValues() {
        for (int i = 0; i < 256; ++i)
            value(i, i + 0.5);
        return *this;
    }
    const void* data() const { return bytes_.data(); }

private:
    std::vector<unsigned char> bytes_;
};

qrvtest::MaterialPtr load(const Block& block, bool isRIM = false) {
    auto material = qrvtest::adopt(new QrvMaterial);
    QrvInitMaterial(material.get());
    QrvMaterialFromBlock(material.get(), block.data(), isRIM);
    return material;
}

// The usual seven codes: Vis 2 values, PVT 3, Cp 1, K 1, fifth 7 (Mech model 0), Temp 2, VE 2.
Block typical(std::int32_t versionWord) {
    Block b;
    b.version(versionWord).numberedValues().text("P$Pr$G$C$S$");
    b.code(0, 10000402).code(1, 10000103).code(2, 10000101).code(3, 10000101);
    b.code(4, 10000007).code(5, 10000202).code(6, 21000102);
    return b;
}

std::vector<double> run(int first, int count) {
    std::vector<double> v;
    for (int i = first; i < first + count; ++i)
        v.push_back(i + 0.5);
    return v;
}

}  // namespace

TEST(LegacyBlock, VersionWordWithoutTypeDigit) {
    auto m = load(Block()
                      .version(7101)
                      .code(0, 10000100)
                      .code(1, 10000100)
                      .code(2, 10000100)
                      .code(3, 10000100)
                      .code(4, 10000100)
                      .code(5, 10000100));
    EXPECT_EQ(m->FileType, 0);
    EXPECT_EQ(m->FileVer, 7101);
}

TEST(LegacyBlock, VersionWordOfAThermoset) {
    auto m = load(typical(29000), /*isRIM=*/true);
    EXPECT_EQ(m->FileType, 2);
    EXPECT_EQ(m->FileVer, 9000);
}

TEST(LegacyBlock, FiveTextsAndDates) {
    Block b = typical(17101);
    b.word(4, 20011231).word(8, 19990101).text("PA66$Maker Inc$Grade 7$a comment$Archive$");
    auto m = load(b);
    EXPECT_EQ(m->LastEditDate, 20011231);
    EXPECT_EQ(m->MeasureDate, 19990101);
    EXPECT_STREQ(m->Polymer, "PA66");
    EXPECT_STREQ(m->Producer, "Maker Inc");
    EXPECT_STREQ(m->GradeName, "Grade 7");
    EXPECT_STREQ(m->Comment, "a comment");
    // Besides run files and the bank calls, this is the only way Source gets a value.
    EXPECT_STREQ(m->Source, "Archive");
}

TEST(LegacyBlock, FourSeparatorsLeaveTheTailAsSource) {
    Block b = typical(17101);
    b.text("A$B$C$D$tail without end");
    auto m = load(b);
    EXPECT_STREQ(m->Comment, "D");
    EXPECT_STREQ(m->Source, "tail without end");
}

TEST(LegacyBlock, AdjacentSeparatorsGiveAnEmptyAllocatedText) {
    Block b = typical(17101);
    b.text("A$$C$D$E$");
    auto m = load(b);
    ASSERT_NE(m->Producer, nullptr);
    EXPECT_EQ(m->Producer[0], '\0');
    EXPECT_STREQ(m->GradeName, "C");
}

TEST(LegacyBlock, RunWithoutSeparatorGivesNoTextAtAll) {
    Block b = typical(17101);
    b.text("only one field");
    auto m = load(b);
    for (const char* text : {m->Polymer, m->Producer, m->GradeName, m->Comment, m->Source}) {
        ASSERT_NE(text, nullptr);
        EXPECT_STREQ(text, "");
    }
}

TEST(LegacyBlock, TextRunFilledToItsLastByteStaysBounded) {
    Block b = typical(17101);
    b.text("x$" + std::string(510, 'y'));  // 512 bytes, no terminator inside the run
    auto m = load(b);
    EXPECT_STREQ(m->Polymer, "x");
    EXPECT_EQ(std::string(m->Producer), std::string(510, 'y'));
}

TEST(LegacyBlock, ValuesFollowOneAnotherInCodeOrder) {
    auto m = load(typical(17101));
    EXPECT_EQ(m->Vis.Source, 1000);
    EXPECT_EQ(m->Vis.Model, 4);
    EXPECT_EQ(values(m->Vis), run(0, 2));
    EXPECT_EQ(values(m->PVT), run(2, 3));
    EXPECT_EQ(values(m->Cp), run(5, 1));
    EXPECT_EQ(values(m->K), run(6, 1));
    EXPECT_EQ(m->Mech.Model, 0);
    EXPECT_EQ(values(m->Mech), run(7, 7));
    EXPECT_EQ(values(m->Temp), run(14, 2));
    EXPECT_EQ(m->KN.Para, nullptr);
    // EM, PR and CLTE are built from Mech (model 0: indices 2, 0, 5).
    EXPECT_EQ(values(m->EM), std::vector<double>{9.5});
    EXPECT_EQ(values(m->PR), std::vector<double>{7.5});
    EXPECT_EQ(values(m->CLTE), std::vector<double>{12.5});
    EXPECT_EQ(m->EM.Source, 1000);
}

TEST(LegacyBlock, ViscoelasticBlockOnlyAt9005AndFrom9007) {
    for (int word : {19005, 19007, 19050, 29999}) {
        SCOPED_TRACE(word);
        auto m = load(typical(word));
        EXPECT_EQ(m->VE.Source, 2100);
        EXPECT_EQ(m->VE.Model, 1);
        EXPECT_EQ(values(m->VE), run(16, 2));
    }
    for (int word : {19006, 19004, 17101}) {
        SCOPED_TRACE(word);
        auto m = load(typical(word));
        EXPECT_EQ(m->VE.Source, 0);
        EXPECT_EQ(m->VE.Count, 0);
        EXPECT_EQ(m->VE.Para, nullptr);
    }
}

TEST(LegacyBlock, EmptyViscoelasticBlockKeepsItsSplitFieldsWithoutArray) {
    Block b = typical(19005);
    b.code(6, 30000500);
    auto m = load(b);
    EXPECT_EQ(m->VE.Source, 3000);
    EXPECT_EQ(m->VE.Model, 5);
    EXPECT_EQ(m->VE.Count, 0);
    EXPECT_EQ(m->VE.Para, nullptr);
    b.code(6, 0);  // "00000": count -528, left as split, nothing allocated
    auto n = load(b);
    EXPECT_EQ(n->VE.Model, -48);
    EXPECT_EQ(n->VE.Count, -528);
    EXPECT_EQ(n->VE.Para, nullptr);
}

TEST(LegacyBlock, EmptyBlockGetsAZeroLengthArray) {
    Block b = typical(17101);
    b.code(2, 10000100);
    auto m = load(b);
    EXPECT_EQ(m->Cp.Count, 0);
    EXPECT_NE(m->Cp.Para, nullptr);  // freed by the block's destructor on release
    EXPECT_EQ(values(m->K), run(5, 1));
}

TEST(LegacyBlock, ThermosetLoadIgnoresTempAndViscoelasticCodes) {
    for (std::int32_t junk : {0, -1, 99999999, 12}) {
        SCOPED_TRACE(junk);
        Block b = typical(29005);
        b.code(5, junk).code(6, junk);
        auto m = load(b, /*isRIM=*/true);
        EXPECT_EQ(values(m->KN), run(7, 7));
        EXPECT_EQ(m->KN.Source, 1000);
        for (const QrvMatParam* empty : {&m->Mech, &m->Temp, &m->VE, &m->EM, &m->PR, &m->CLTE}) {
            EXPECT_EQ(empty->Source, 0);
            EXPECT_EQ(empty->Model, 0);
            EXPECT_EQ(empty->Count, 0);
            EXPECT_EQ(empty->Para, nullptr);
        }
    }
}

TEST(LegacyBlock, NullRecordReturnsAtOnce) {
    Block b = typical(17101);
    EXPECT_NO_THROW(QrvMaterialFromBlock(nullptr, b.data(), false));
}

TEST(LegacyBlock, ShortCodeFailsInsteadOfAllocatingANegativeCount) {
    Block b = typical(17101);
    b.code(1, 123456);  // six digits: the count reads two zero bytes, -528
    auto material = qrvtest::adopt(new QrvMaterial);
    QrvInitMaterial(material.get());
    EXPECT_THROW(QrvMaterialFromBlock(material.get(), b.data(), false), std::invalid_argument);
    EXPECT_EQ(values(material->Vis), run(0, 2));  // what was read before stays
    b.code(1, 0);
    auto other = qrvtest::adopt(new QrvMaterial);
    QrvInitMaterial(other.get());
    EXPECT_THROW(QrvMaterialFromBlock(other.get(), b.data(), false), std::invalid_argument);
}

TEST(LegacyBlock, CountsPastTheValuesRunFail) {
    Block b = typical(17101);
    for (int slot = 0; slot < 7; ++slot)
        b.code(slot, 10000199);  // 99 values each
    auto material = qrvtest::adopt(new QrvMaterial);
    QrvInitMaterial(material.get());
    EXPECT_THROW(QrvMaterialFromBlock(material.get(), b.data(), false), std::invalid_argument);
    EXPECT_EQ(material->PVT.Count, 99);  // 198 values fit; the third block would not
    // Exactly 256 values fit.
    Block full = typical(17101);
    full.code(0, 10000199)
        .code(1, 10000199)
        .code(2, 10000158)
        .code(3, 10000100)
        .code(4, 10000000)
        .code(5, 10000000);
    auto m = load(full);
    EXPECT_EQ(values(m->Cp), run(198, 58));
    // One more is the 257th, which would lie in the next block's first bytes.
    full.code(2, 10000159);
    auto past = qrvtest::adopt(new QrvMaterial);
    QrvInitMaterial(past.get());
    EXPECT_THROW(QrvMaterialFromBlock(past.get(), full.data(), false), std::invalid_argument);
}

TEST(BlockText, FieldsOfARun) {
    EXPECT_STREQ(QrvBlockText("a$bb$ccc$", 1), "a");
    EXPECT_STREQ(QrvBlockText("a$bb$ccc$", 2), "bb");
    EXPECT_STREQ(QrvBlockText("a$bb$ccc$", 3), "ccc");
    EXPECT_STREQ(QrvBlockText("a$bb$ccc$", 4), "");
    EXPECT_STREQ(QrvBlockText("a$bb$ccc", 3), "ccc");  // the last field may lack its '$'
    // A field holds at most 511 characters, the buffer's last place is its terminator.
    const std::string longField = "a$" + std::string(600, 'x') + "$b";
    EXPECT_EQ(std::string(QrvBlockText(longField.c_str(), 2)), std::string(511, 'x'));
    EXPECT_STREQ(QrvBlockText("abc", 1), "");  // a run with no '$' gives nothing
    EXPECT_STREQ(QrvBlockText("", 1), "");
    EXPECT_STREQ(QrvBlockText("$x$", 1), "");
    EXPECT_STREQ(QrvBlockText("a$b$", 0), "");
    EXPECT_STREQ(QrvBlockText("a$b$", -3), "");
    EXPECT_STREQ(QrvBlockText(nullptr, 1), "");
}

TEST(BlockText, EachCallOverwritesTheLast) {
    const char* first = QrvBlockText("one$two$", 1);
    const char* second = QrvBlockText("one$two$", 2);
    EXPECT_EQ(first, second);
    EXPECT_STREQ(first, "two");
}

TEST(LegacyBlock, SampleFileDecodesAsDescribed) {
    const auto bytes = qrvtest::readBytes(qrvtest::dataPath("sample_legacy.mtr"));
    ASSERT_EQ(bytes.size(), 2624u);
    const auto expected = qrvtest::readJson("sample_legacy.json");
    auto material = qrvtest::adopt(new QrvMaterial);
    QrvInitMaterial(material.get());
    QrvMaterialFromBlock(material.get(), bytes.data(), false);
    qrvtest::expectRecord(*material, expected.at("load").at("record"));
    EXPECT_EQ(material->VisRaw, nullptr);
    EXPECT_EQ(material->MTC, nullptr);
}
