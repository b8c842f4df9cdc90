// Measured curve families: access, the range errors, axis limits, stored form and reading.
#include <quorvalib/measured.h>

#include <gtest/gtest.h>

#include <cstdint>
#include <limits>
#include <stdexcept>
#include <string>
#include <vector>

#include "formats/binary_stream.h"
#include "measured/checked_vector.h"
#include "support/byte_builder.h"

using qrvtest::Bytes;

namespace {

// Expects fn to throw exception type E with exactly the given text.
template <typename E, typename Fn>
void expectThrowText(Fn fn, const std::string& text) {
    try {
        fn();
        ADD_FAILURE() << "no exception";
    } catch (const E& e) {
        EXPECT_EQ(std::string(e.what()), text);
    }
}

std::string written(const CQrvMatRawData& data) {
    CQrvMemoryStream out;
    EXPECT_TRUE(data.Write(out));
    return out.Bytes();
}

void addCurve(CQrvMatRawData& data, double condition, const std::vector<double>& x,
              const std::vector<double>& y) {
    data.AddCurve(condition, static_cast<int>(x.size()), x.data(), y.data());
}

// A stored form with Source 21, FitError 0.034, standard "ISO 11443" and two curves.
Bytes sampleForm() {
    Bytes b;
    b.word(21).real(0.034).word(2).text("ISO 11443");
    b.real(190.0).word(3).reals({30, 300, 3000}).reals({2150, 980, 205});
    b.real(210.0).word(1).reals({30}).reals({1320});
    return b;
}

}  // namespace

TEST(RawData, NewObjectIsEmpty) {
    CQrvViscosityData data;
    EXPECT_EQ(data.GetSource(), 0);
    EXPECT_EQ(data.GetFitError(), 0.0);
    EXPECT_EQ(data.GetMeasureStandard(), "");
    EXPECT_EQ(data.GetCurveCount(), 0);
    EXPECT_EQ(data.GetDataSize(), 20u);
}

TEST(RawData, EmptyStoredFormIsTwentyBytesPlusText) {
    CQrvMemoryStream in(Bytes().word(5).real(1.5).word(0).text("DIN").str());
    CQrvPVTData data(&in);
    ASSERT_TRUE(data.Read());
    EXPECT_EQ(data.GetDataSize(), 20u + 3u);
    EXPECT_EQ(written(data), Bytes().word(5).real(1.5).word(0).text("DIN").str());
}

TEST(RawData, AddCurveCopiesTheFirstCountValues) {
    CQrvViscosityData data;
    std::vector<double> x{1, 2, 3, 4}, y{10, 20, 30, 40};
    data.AddCurve(200.0, 3, x.data(), y.data());
    x[0] = 99;  // the object holds its own copy
    double condition = 0;
    int points = 0;
    double* px = nullptr;
    double* py = nullptr;
    ASSERT_TRUE(data.GetCurve(0, condition, points, px, py));
    EXPECT_EQ(condition, 200.0);
    ASSERT_EQ(points, 3);
    EXPECT_EQ(std::vector<double>(px, px + 3), (std::vector<double>{1, 2, 3}));
    EXPECT_EQ(std::vector<double>(py, py + 3), (std::vector<double>{10, 20, 30}));
    EXPECT_EQ(data.GetCondition(0), 200.0);
}

TEST(RawData, AddCurveWithCountBelowOneAppendsAnEmptyCurve) {
    CQrvViscosityData data;
    data.AddCurve(1.0, 0, nullptr, nullptr);
    data.AddCurve(2.0, -4, nullptr, nullptr);
    EXPECT_EQ(data.GetCurveCount(), 2);
    double condition = 0;
    int points = 7;
    double* px = nullptr;
    double* py = nullptr;
    ASSERT_TRUE(data.GetCurve(1, condition, points, px, py));
    EXPECT_EQ(condition, 2.0);
    EXPECT_EQ(points, 0);
    EXPECT_EQ(data.GetDataSize(), 20u + 12u + 12u);
}

TEST(RawData, AddCurveRefusesNullPoints) {
    CQrvViscosityData data;
    const double y[] = {1.0};
    EXPECT_THROW(data.AddCurve(1.0, 1, nullptr, y), std::invalid_argument);
    EXPECT_THROW(data.AddCurve(1.0, 1, y, nullptr), std::invalid_argument);
    EXPECT_EQ(data.GetCurveCount(), 0);
}

TEST(RawData, GetConditionOutsideThrowsTheRangeError) {
    CQrvPVTData data;
    addCurve(data, 0.0, {1}, {2});
    expectThrowText<std::out_of_range>([&] { data.GetCondition(1); },
                                       "invalid vector<T> subscript");
    expectThrowText<std::out_of_range>([&] { data.GetCondition(-1); },
                                       "invalid vector<T> subscript");
}

TEST(RawData, GetCurveAtTheCountThrowsAndAboveItReturnsFalse) {
    CQrvViscosityData data;
    addCurve(data, 5.0, {1, 2}, {3, 4});
    double condition = -1;
    int points = -1;
    double* px = nullptr;
    double* py = nullptr;
    expectThrowText<std::out_of_range>([&] { data.GetCurve(1, condition, points, px, py); },
                                       "invalid vector<T> subscript");
    EXPECT_FALSE(data.GetCurve(2, condition, points, px, py));
    EXPECT_EQ(condition, -1);
    EXPECT_EQ(points, -1);
    EXPECT_EQ(px, nullptr);
    EXPECT_THROW(data.GetCurve(-1, condition, points, px, py), std::out_of_range);

    CQrvViscosityData empty;
    EXPECT_THROW(empty.GetCurve(0, condition, points, px, py), std::out_of_range);
    EXPECT_FALSE(empty.GetCurve(1, condition, points, px, py));
}

TEST(RawData, AppendBeyondTheLimitThrowsTheLengthError) {
    std::vector<int> items;
    qrv::checkedAppend(items, 1, 2);
    qrv::checkedAppend(items, 2, 2);
    expectThrowText<std::length_error>([&] { qrv::checkedAppend(items, 3, 2); },
                                       "vector<T> too long");
    EXPECT_EQ(items.size(), 2u);
    EXPECT_EQ(qrv::kMaxMeasuredItems, 2147483647u);
}

TEST(RawData, ViscosityLimitsLieOnDecades) {
    CQrvViscosityData data;
    addCurve(data, 200, {30, 300, 3000}, {2150, 980, 205});
    EXPECT_EQ(data.GetMaxX(), 10000.0);
    EXPECT_EQ(data.GetMinX(), 10.0);
    EXPECT_EQ(data.GetMaxY(), 10000.0);
    EXPECT_EQ(data.GetMinY(), 100.0);

    CQrvViscosityData exact;
    addCurve(exact, 200, {1000}, {0.5});
    EXPECT_EQ(exact.GetMaxX(), 1000.0);
    EXPECT_EQ(exact.GetMinX(), 1000.0);
    EXPECT_EQ(exact.GetMaxY(), 1.0);
    EXPECT_EQ(exact.GetMinY(), 0.1);
}

TEST(RawData, PVTLimitsLieOnFiftiesAndHundredths) {
    CQrvPVTData data;
    addCurve(data, 0, {30, 301}, {0.934, 0.951});
    EXPECT_EQ(data.GetMaxX(), 350.0);
    EXPECT_EQ(data.GetMinX(), 0.0);
    EXPECT_EQ(data.GetMinY(), 0.93);
    EXPECT_EQ(data.GetMaxY(), 0.96);
    addCurve(data, 1e8, {120}, {0.8});
    EXPECT_EQ(data.GetMinX(), 0.0);
    EXPECT_EQ(data.GetMinY(), 0.8);
}

TEST(RawData, LimitsWithoutPointsRoundTheStarts) {
    CQrvViscosityData visc;
    CQrvPVTData pvt;
    visc.AddCurve(1, 0, nullptr, nullptr);  // a curve without points takes no part
    EXPECT_EQ(visc.GetMaxX(), 0.0);         // 10^ceil(log10 0) = 10^-inf
    EXPECT_EQ(visc.GetMinX(), 1e9);
    EXPECT_EQ(pvt.GetMaxX(), 0.0);
    EXPECT_EQ(pvt.GetMaxY(), 0.0);
    EXPECT_EQ(pvt.GetMinX(), 1e9);
    EXPECT_EQ(pvt.GetMinY(), 1e9);
}

TEST(RawData, ClearAndCopyTo) {
    CQrvMemoryStream in(sampleForm().str());
    CQrvViscosityData source(&in);
    ASSERT_TRUE(source.Read());

    CQrvViscosityData destination;
    addCurve(destination, 1, {1}, {1});
    addCurve(destination, 2, {1}, {1});
    addCurve(destination, 3, {1}, {1});
    ASSERT_TRUE(source.CopyTo(&destination));
    EXPECT_EQ(destination.GetSource(), 21);
    EXPECT_EQ(destination.GetFitError(), 0.034);
    EXPECT_EQ(destination.GetMeasureStandard(), "ISO 11443");
    EXPECT_EQ(destination.GetCurveCount(), 2);
    EXPECT_EQ(destination.GetCondition(1), 210.0);
    EXPECT_EQ(written(destination), sampleForm().str());
    EXPECT_FALSE(source.CopyTo(nullptr));

    EXPECT_TRUE(destination.Clear());
    EXPECT_EQ(destination.GetSource(), 0);
    EXPECT_EQ(destination.GetFitError(), 0.0);
    EXPECT_EQ(destination.GetMeasureStandard(), "");
    EXPECT_EQ(destination.GetCurveCount(), 0);
}

TEST(RawData, StoredFormMatchesTheLayout) {
    CQrvMemoryStream in(sampleForm().str());
    CQrvPVTData data(&in);
    ASSERT_TRUE(data.Read());
    EXPECT_FALSE(in.Failed());
    EXPECT_EQ(data.GetSource(), 21);
    EXPECT_EQ(data.GetFitError(), 0.034);
    EXPECT_EQ(data.GetMeasureStandard(), "ISO 11443");
    ASSERT_EQ(data.GetCurveCount(), 2);
    EXPECT_EQ(data.GetDataSize(), 20u + 9u + (12u + 16u * 3u) + (12u + 16u * 1u));
    EXPECT_EQ(data.GetDataSize(), sampleForm().size());
    EXPECT_EQ(written(data), sampleForm().str());

    // The plain Write goes to the object's own stream.
    CQrvMemoryStream out;
    CQrvPVTData copy(&out);
    data.CopyTo(&copy);
    EXPECT_TRUE(copy.Write());
    EXPECT_EQ(out.Bytes(), sampleForm().str());
}

TEST(RawData, WithoutAStreamReadAndWriteFail) {
    CQrvViscosityData data;
    EXPECT_FALSE(data.Read());
    EXPECT_FALSE(data.Write());
}

TEST(RawData, ReadingAppendsBehindTheCurvesHeld) {
    CQrvMemoryStream in(sampleForm().str());
    CQrvViscosityData data(&in);
    addCurve(data, 1, {1}, {1});
    addCurve(data, 2, {2}, {2});
    ASSERT_TRUE(data.Read());
    ASSERT_EQ(data.GetCurveCount(), 4);
    EXPECT_EQ(data.GetCondition(0), 1.0);
    EXPECT_EQ(data.GetCondition(1), 2.0);
    EXPECT_EQ(data.GetCondition(2), 190.0);
    EXPECT_EQ(data.GetCondition(3), 210.0);
    EXPECT_EQ(data.GetSource(), 21);
}

TEST(RawData, EmbeddedNulShortensTheStandard) {
    Bytes b;
    b.word(3).real(0.5).word(1).text(std::string("ISO\0XYZ", 7));
    b.real(7.0).word(1).reals({8}).reals({9});
    CQrvMemoryStream in(b.str());
    CQrvViscosityData data(&in);
    ASSERT_TRUE(data.Read());
    EXPECT_EQ(data.GetMeasureStandard(), "ISO");
    ASSERT_EQ(data.GetCurveCount(), 1);
    EXPECT_EQ(data.GetCondition(0), 7.0);
    EXPECT_FALSE(in.Failed());
}

TEST(RawData, ReadingPastTheEndKeepsTheFields) {
    const std::string full = sampleForm().str();
    CQrvMemoryStream first(full);
    CQrvViscosityData data(&first);
    ASSERT_TRUE(data.Read());
    for (std::size_t cut : {std::size_t{0}, std::size_t{2}, std::size_t{12}, std::size_t{14},
                            std::size_t{20}, std::size_t{25}, std::size_t{30}}) {
        CQrvViscosityData copy;
        data.CopyTo(&copy);
        Bytes b;
        b.word(77).real(9.5).word(1).text("NEW").real(5.0).word(1).reals({1}).reals({2});
        CQrvMemoryStream in(b.str().substr(0, cut));
        CQrvViscosityData target(&in);
        copy.CopyTo(&target);
        ASSERT_TRUE(target.Read());
        EXPECT_TRUE(in.Failed());
        EXPECT_EQ(target.GetSource(), cut >= 4 ? 77 : 21) << cut;
        EXPECT_EQ(target.GetFitError(), cut >= 12 ? 9.5 : 0.034) << cut;
        // The count of one curve needs 12 bytes behind it, so below 28 bytes it fails the stream
        // before the text; at 30 the text is read and the curve is cut short.
        EXPECT_EQ(target.GetMeasureStandard(), cut >= 28 ? "NEW" : "ISO 11443") << cut;
        EXPECT_EQ(target.GetCurveCount(), 2) << cut;  // the partial curve is not appended
    }
}

// Every count and length word of a stored form, replaced by a negative, a huge and a
// just-too-large value, fails the stream, keeps the field and appends nothing further.
TEST(RawData, BadCountsAndLengthsFailTheStream) {
    Bytes base;
    base.word(21).real(0.034);
    const std::size_t curveCountAt = base.mark();
    base.word(2);
    const std::size_t lengthAt = base.mark();
    base.text("ISO");
    base.real(190.0);
    const std::size_t firstPointsAt = base.mark();
    base.word(2).reals({1, 2}).reals({3, 4});
    base.real(210.0);
    const std::size_t secondPointsAt = base.mark();
    base.word(1).reals({5}).reals({6});
    const std::string good = base.str();

    struct Position {
        std::size_t at;
        std::uint64_t itemBytes;
        int curvesKept;  // curves appended before the bad word
        bool textRead;
    };
    const Position positions[] = {{curveCountAt, 12, 0, false},
                                  {lengthAt, 1, 0, false},
                                  {firstPointsAt, 16, 0, true},
                                  {secondPointsAt, 16, 1, true}};
    for (const Position& position : positions) {
        const std::int64_t left = static_cast<std::int64_t>(good.size() - position.at - 4);
        const std::int64_t justTooLarge = left / static_cast<std::int64_t>(position.itemBytes) + 1;
        for (std::int64_t bad : {std::int64_t{-1}, std::int64_t{-2147483647 - 1},
                                 std::int64_t{2147483647}, justTooLarge}) {
            Bytes damaged;
            damaged.raw(good).patch(position.at, bad);
            CQrvMemoryStream in(damaged.str());
            CQrvViscosityData data(&in);
            addCurve(data, 1, {1}, {1});
            ASSERT_NO_THROW(EXPECT_TRUE(data.Read()));
            EXPECT_TRUE(in.Failed()) << position.at << " " << bad;
            EXPECT_EQ(data.GetSource(), 21);
            EXPECT_EQ(data.GetMeasureStandard(), position.textRead ? "ISO" : "");
            EXPECT_EQ(data.GetCurveCount(), 1 + position.curvesKept) << position.at << " " << bad;
        }
    }
    // The unchanged form reads completely.
    CQrvMemoryStream in(good);
    CQrvViscosityData data(&in);
    data.Read();
    EXPECT_FALSE(in.Failed());
    EXPECT_EQ(data.GetCurveCount(), 2);
}
