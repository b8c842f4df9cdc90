// The statistics table and its file reader: the sample file against its JSON description, then
// files written here for each rule of the format and for damaged input.
#include <gtest/gtest.h>
#include <nlohmann/json.hpp>

#include <cmath>
#include <string>

#include "report/stat_data.h"
#include "support/fixture.h"
#include "support/temp_files.h"

using qrvtest::TempFolder;
using qrvtest::writeFile;

namespace {

// A table read from path for one class.
struct Table {
    Table(const std::string& path, const std::string& polymer) : filePath(path) {
        data.FilePath = filePath.c_str();
        data.ReadFile(polymer);
    }
    std::string filePath;
    CQrvStatData data;
};

// A table read from a file holding text.
struct TextTable {
    TextTable(const std::string& text, const std::string& polymer) {
        writeFile(folder.path("StatData.sta"), text);
        table = std::make_unique<Table>(folder.path("StatData.sta"), polymer);
    }
    CQrvStatData& data() { return table->data; }
    TempFolder folder;
    std::unique_ptr<Table> table;
};

// A double against its JSON value; null stands for a value no block filled (NaN here).
void expectNumber(double actual, const nlohmann::json& expected) {
    if (expected.is_null())
        EXPECT_TRUE(std::isnan(actual)) << actual;
    else
        EXPECT_EQ(actual, expected.get<double>());
}

void expectRange(const StatRange& actual, const nlohmann::json& expected) {
    if (expected.is_null()) {
        EXPECT_TRUE(std::isnan(actual.High) && std::isnan(actual.Low));
        return;
    }
    EXPECT_EQ(actual.High, expected["High"].get<double>());
    EXPECT_EQ(actual.Low, expected["Low"].get<double>());
}

void expectSample(const StatSample& actual, const nlohmann::json& expected) {
    if (expected.is_null()) {
        for (double v : {actual.Condition, actual.Min, actual.Max, actual.Mean, actual.Std})
            EXPECT_TRUE(std::isnan(v));
        return;
    }
    EXPECT_EQ(actual.Condition, expected["Condition"].get<double>());
    EXPECT_EQ(actual.Min, expected["Min"].get<double>());
    EXPECT_EQ(actual.Max, expected["Max"].get<double>());
    EXPECT_EQ(actual.Mean, expected["Mean"].get<double>());
    EXPECT_EQ(actual.Std, expected["Std"].get<double>());
}

template <typename T, std::size_t N>
void expectCounts(const T (&actual)[N], const nlohmann::json& expected) {
    ASSERT_EQ(expected.size(), N);
    for (std::size_t i = 0; i < N; ++i)
        EXPECT_EQ(actual[i], expected[i].get<int>()) << "row " << i;
}

template <typename Row, std::size_t N, typename Expect>
void expectRows(const Row (&actual)[N], const nlohmann::json& expected, Expect expect) {
    ASSERT_EQ(expected.size(), N);
    for (std::size_t i = 0; i < N; ++i) {
        SCOPED_TRACE("row " + std::to_string(i));
        expect(actual[i], expected[i]);
    }
}

void expectTable(const CQrvStatData& s, const nlohmann::json& j) {
    expectNumber(s.VisTemperature, j["VisTemperature"]);
    expectNumber(s.PVTPressure, j["PVTPressure"]);
    expectCounts(s.VisModeCount, j["VisModeCount"]);
    expectCounts(s.PVTModeCount, j["PVTModeCount"]);
    expectCounts(s.MechCount, j["MechCount"]);
    EXPECT_EQ(s.CpCount, j["CpCount"].get<int>());
    EXPECT_EQ(s.KCount, j["KCount"].get<int>());
    EXPECT_EQ(s.TempCount, j["TempCount"].get<int>());
    EXPECT_EQ(s.VisCount, j["VisCount"].get<int>());
    EXPECT_EQ(s.PVTCount, j["PVTCount"].get<int>());
    auto rangeRows = [](const auto& row, const nlohmann::json& e) {
        expectRows(row, e, expectRange);
    };
    expectRows(s.VisRange, j["VisRange"], rangeRows);
    expectRows(s.PVTRange, j["PVTRange"], rangeRows);
    expectRows(s.MechRange, j["MechRange"], rangeRows);
    expectRows(s.TempRange, j["TempRange"], expectRange);
    expectRows(s.VisSample, j["VisSample"], expectSample);
    expectRows(s.PVTSample, j["PVTSample"], expectSample);
    expectRows(s.CpSample, j["CpSample"], expectSample);
    expectRows(s.KSample, j["KSample"], expectSample);
}

}  // namespace

TEST(StatData, ConstructionClearsEveryCount) {
    const CQrvStatData s;
    for (int c : s.VisModeCount)
        EXPECT_EQ(c, 0);
    for (int c : s.PVTModeCount)
        EXPECT_EQ(c, 0);
    for (int c : s.MechCount)
        EXPECT_EQ(c, 0);
    EXPECT_EQ(s.CpCount, 0);
    EXPECT_EQ(s.KCount, 0);
    EXPECT_EQ(s.TempCount, 0);
    EXPECT_EQ(s.VisCount, 0);
    EXPECT_EQ(s.PVTCount, 0);
    EXPECT_EQ(s.FilePath, nullptr);
}

TEST(StatData, SampleFileMatchesItsDescription) {
    const nlohmann::json description = qrvtest::readJson("StatData.json");
    for (const auto& [polymer, expected] : description["classes"].items()) {
        SCOPED_TRACE(polymer);
        const Table table(qrvtest::dataPath("StatData.sta"), polymer);
        expectTable(table.data, expected);
    }
}

TEST(StatData, MissingFileLeavesTheTableEmpty) {
    TempFolder folder;
    const Table table(folder.path("absent.sta"), "PLA");
    expectTable(table.data, qrvtest::readJson("StatData.json")["classes"]["ABS"]);
}

TEST(StatData, NullPathReadsNothing) {
    CQrvStatData s;
    s.ReadFile("PLA");
    EXPECT_EQ(s.CpCount, 0);
}

TEST(StatData, ClassWithOnlyAHeatCapacityBlock) {
    TextTable t("PP [CP]\n21\n10 1 2 3 4\n20 5 6 7 8\n30 9 10 11 12\n\n[EOF]\n", "PP");
    const CQrvStatData& s = t.data();
    EXPECT_EQ(s.CpCount, 21);
    EXPECT_EQ(s.CpSample[0].Condition, 10);
    EXPECT_EQ(s.CpSample[2].Std, 12);
    EXPECT_EQ(s.CpSample[1].Min, 5);
    EXPECT_EQ(s.KCount, 0);
    EXPECT_EQ(s.VisCount, 0);
    EXPECT_EQ(s.PVTCount, 0);
    EXPECT_EQ(s.TempCount, 0);
    for (int c : s.VisModeCount)
        EXPECT_EQ(c, 0);
    EXPECT_TRUE(std::isnan(s.KSample[0].Mean));
}

TEST(StatData, RangesAreStoredHighFirst) {
    TextTable t("PP [Vis_Mode]\n2 25\n0.2 0.9\n1 2\n3 4\n\n[EOF]\n", "PP");
    const CQrvStatData& s = t.data();
    EXPECT_EQ(s.VisModeCount[2], 25);
    EXPECT_EQ(s.VisRange[2][0].Low, 0.2);
    EXPECT_EQ(s.VisRange[2][0].High, 0.9);
    EXPECT_EQ(s.VisRange[2][2].High, 4);
    EXPECT_TRUE(std::isnan(s.VisRange[2][3].High));
    EXPECT_EQ(s.VisModeCount[3], 0);  // a model without a block keeps its count
}

TEST(StatData, ClassWordDiffersInCase) {
    TextTable t("pp [CP]\n21\n1 2 3 4 5\n\nPp [K]\n22\n1 2 3 4 5\n\n[EOF]\n", "PP");
    EXPECT_EQ(t.data().CpCount, 0);
    EXPECT_EQ(t.data().KCount, 0);
}

TEST(StatData, PolymerWithABlankNeverMatches) {
    TextTable t("PP H [CP]\n21\n1 2 3 4 5\n\n[EOF]\n", "PP H");
    EXPECT_EQ(t.data().CpCount, 0);
}

TEST(StatData, ClassWordAloneOrWithoutMarkerIsIgnored) {
    // "PP" alone keeps its line end and is not the class; "PP note" holds no marker.
    TextTable t("PP\n21\nPP note\n22\n[EOF]\n", "PP");
    EXPECT_EQ(t.data().CpCount, 0);
    EXPECT_EQ(t.data().KCount, 0);
}

TEST(StatData, LineWithTwoMarkersRunsBothBlocksInOrder) {
    // [K] stands first on the line but [CP] is served first.
    TextTable t("PP [K] [CP]\n21\n1 2 3 4 5\n\n22\n6 7 8 9 10\n\n[EOF]\n", "PP");
    EXPECT_EQ(t.data().CpCount, 21);
    EXPECT_EQ(t.data().CpSample[0].Condition, 1);
    EXPECT_EQ(t.data().KCount, 22);
    EXPECT_EQ(t.data().KSample[0].Condition, 6);
}

TEST(StatData, OtherClassMarkerIsSkippedAndItsDataReadAsLines) {
    // The data line of the other class begins with "PP": the main loop reads it as an opening
    // line of PP, which holds the [K] marker.
    TextTable t("PE [CP]\n21\nPP [K]\n23\n1 2 3 4 5\n\n[EOF]\n", "PP");
    EXPECT_EQ(t.data().CpCount, 0);
    EXPECT_EQ(t.data().KCount, 23);
}

TEST(StatData, EndMarkInsideABlockDoesNotStopIt) {
    TextTable t(
        "PP [CP]\n21\n1 2 3 4 5\n[EOF] 7\n6 7 8 9 10\n\nPP [K]\n22\n\n[EOF]\nPP [PVT]\n1 30\n",
        "PP");
    const CQrvStatData& s = t.data();
    EXPECT_EQ(s.CpSample[1].Condition, 6);
    EXPECT_EQ(s.KCount, 22);
    EXPECT_EQ(s.PVTCount, 0);  // behind the end mark the main loop reads
}

TEST(StatData, DataLineThatDoesNotScanIsSkipped) {
    TextTable t("PP [CP]\n21\n1 2 3 4 5\nno numbers here\n1 2 3\n6 7 8 9 10\n\n[EOF]\n", "PP");
    EXPECT_EQ(t.data().CpSample[1].Condition, 6);
    EXPECT_TRUE(std::isnan(t.data().CpSample[2].Condition));
}

TEST(StatData, RepeatedBlockOverwritesFromTheFirstRow) {
    TextTable t("PP [CP]\n21\n1 2 3 4 5\n6 7 8 9 10\n\nPP [CP]\n25\n11 12 13 14 15\n\n[EOF]\n",
                "PP");
    EXPECT_EQ(t.data().CpCount, 25);
    EXPECT_EQ(t.data().CpSample[0].Condition, 11);
    EXPECT_EQ(t.data().CpSample[1].Condition, 6);
}

TEST(StatData, LongLineIsTakenInPieces) {
    // 99 characters with the line end fit; the 120-character line is read as two lines, the
    // second of which ("PP [K]") opens a block.
    const std::string pad(114, 'x');
    const std::string fits = "PP [CP] " + std::string(90, 'y') + "\n";
    ASSERT_EQ(fits.size(), 99u);
    TextTable t(fits + "21\n1 2 3 4 5\n\n" + pad.substr(0, 99) + "PP [K]\n22\n1 2 3 4 5\n\n[EOF]\n",
                "PP");
    EXPECT_EQ(t.data().CpCount, 21);
    EXPECT_EQ(t.data().KCount, 22);
}

TEST(StatData, LongLineOfAnotherMarkerIsCutBeforeTheMarker) {
    // The marker stands beyond the first 99 characters and so lies on the second piece, whose
    // class word is not PP.
    TextTable t("PP " + std::string(100, 'z') + " [CP]\n21\n1 2 3 4 5\n\n[EOF]\n", "PP");
    EXPECT_EQ(t.data().CpCount, 0);
}

TEST(StatData, FileWithoutEndMarkEnds) {
    TextTable t("PP [CP]\n21\n1 2 3 4 5\n", "PP");
    EXPECT_EQ(t.data().CpCount, 21);
    EXPECT_EQ(t.data().CpSample[0].Std, 5);
}

TEST(StatData, BlockWhoseLastLineHoldsABlankEndsAtTheFileEnd) {
    TextTable t("PP [Vis_Mode]\n1 40\n1 2 ", "PP");
    EXPECT_EQ(t.data().VisModeCount[1], 40);
    EXPECT_EQ(t.data().VisRange[1][0].High, 2);
}

TEST(StatData, HeaderAtTheFileEnd) {
    TextTable t("PP [CP]", "PP");
    EXPECT_EQ(t.data().CpCount, 0);
}

TEST(StatData, ModelIdsOutsideTheTablesAreIgnored) {
    TextTable t(
        "PP [Vis_Mode]\n7 40\n1 2\n\nPP [PVT_Mode]\n-1 40\n1 2\n\nPP [Mechanical]\n4 40\n"
        "1 2\n\nPP [Vis_Mode]\n6 41\n3 4\n\n[EOF]\n",
        "PP");
    const CQrvStatData& s = t.data();
    for (int c : s.PVTModeCount)
        EXPECT_EQ(c, 0);
    for (int c : s.MechCount)
        EXPECT_EQ(c, 0);
    EXPECT_EQ(s.VisModeCount[6], 41);
    EXPECT_EQ(s.VisRange[6][0].High, 4);
    for (int m = 0; m < 6; ++m)
        EXPECT_EQ(s.VisModeCount[m], 0);
}

TEST(StatData, RowsStopAtTheArraySize) {
    std::string text = "PP [Viscosity]\n250 30\n";
    for (int i = 1; i <= 9; ++i)
        text += std::to_string(i) + " 1 2 3 4\n";
    text += "\nPP [Temperature]\n0 33\n";
    for (int i = 1; i <= 12; ++i)
        text += "0 " + std::to_string(i) + "\n";
    text += "\nPP [K]\n24\n1 2 3 4 5\n\n[EOF]\n";
    TextTable t(text, "PP");
    const CQrvStatData& s = t.data();
    EXPECT_EQ(s.VisTemperature, 250);
    EXPECT_EQ(s.VisSample[4].Condition, 5);
    EXPECT_EQ(s.TempCount, 33);
    EXPECT_EQ(s.TempRange[7].High, 8);
    EXPECT_EQ(s.KCount, 24);  // the block after the long ones is still found
}

TEST(StatData, NumbersThatDoNotParseLeaveTheirFields) {
    TextTable t("PP [Viscosity]\nhot many\n1 2 3 4 5\n\nPP [CP]\nabc\n1e999 2 3 4 5\n\n[EOF]\n",
                "PP");
    const CQrvStatData& s = t.data();
    EXPECT_TRUE(std::isnan(s.VisTemperature));
    EXPECT_EQ(s.VisCount, 0);
    EXPECT_EQ(s.VisSample[0].Std, 5);
    EXPECT_EQ(s.CpCount, 0);
    EXPECT_TRUE(std::isinf(s.CpSample[0].Condition));
}

TEST(StatData, RandomBytesAndOneEndlessLine) {
    std::string noise;
    unsigned state = 12345;
    for (int i = 0; i < 20000; ++i) {
        state = state * 1103515245u + 12345u;
        noise += static_cast<char>(state >> 16);
    }
    TextTable random(noise, "PP");
    EXPECT_EQ(random.data().CpCount, 0);

    TextTable endless("PP [CP]\n21\n" + std::string(100000, ' '), "PP");
    EXPECT_EQ(endless.data().CpCount, 21);
    EXPECT_TRUE(std::isnan(endless.data().CpSample[0].Condition));
}
