// The pieces of the report: the split of the warning text, the unit id tables and the thermoset
// mechanical labels.
#include <gtest/gtest.h>

#include <string>
#include <vector>

#include "report/report_units.h"
#include "report/thermoset_mech_labels.h"
#include "report/warnings.h"

namespace qrv::report {
namespace {

void expectLines(const std::string& text, const std::vector<WarningLine>& expected) {
    const std::vector<WarningLine> lines = splitWarnings(text);
    ASSERT_EQ(lines.size(), expected.size()) << text;
    for (std::size_t i = 0; i < lines.size(); ++i) {
        EXPECT_EQ(lines[i].label, expected[i].label);
        EXPECT_EQ(lines[i].text, expected[i].text);
    }
}

TEST(WarningSplit, ShortTextsAreOneLine) {
    expectLines("None", {{"Warning", "None"}});
    expectLines("", {{"Warning", ""}});
    expectLines("123456789", {{"Warning", "123456789"}});
}

TEST(WarningSplit, TenCharactersAreSplit) {
    // Only a text of fewer than 10 characters stays one line.
    expectLines("1. Twelve.", {{"Warning #1", "Twelve."}});
    expectLines("1. Seven.", {{"Warning", "1. Seven."}});
}

TEST(WarningSplit, EachSentenceLosesItsNumber) {
    expectLines("1. The first.2. The second one.3. The third 3*STD.",
                {{"Warning #1", "The first."},
                 {"Warning #2", "The second one."},
                 {"Warning #3", "The third 3*STD."}});
    expectLines("1. The values of parameter 2, 5 of PVT model are out.",
                {{"Warning #1", "The values of parameter 2, 5 of PVT model are out."}});
}

TEST(WarningSplit, TextsOutsideTheFormStayWhole) {
    expectLines("no numbers in here", {{"Warning", "no numbers in here"}});
    // A next number that stands before the sentence leaves the sentence empty, and one at the
    // very start ends the split.
    expectLines("2. late1. early", {{"Warning #1", ""}});
}

TEST(ReportUnits, Tables) {
    EXPECT_EQ(viscosityUnitId(false, 1, 0), -1);
    EXPECT_EQ(viscosityUnitId(false, 6, 2), -12);
    EXPECT_EQ(viscosityUnitId(false, 5, 6), -21);
    EXPECT_EQ(viscosityUnitId(false, 7, 4), 10);
    EXPECT_EQ(viscosityUnitId(false, 7, 6), 2);
    EXPECT_EQ(viscosityUnitId(false, 8, 4), 11);
    EXPECT_EQ(viscosityUnitId(false, 8, 7), 6);
    EXPECT_EQ(viscosityUnitId(false, 8, 9), 0);
    EXPECT_EQ(viscosityUnitId(false, 10, 0), 0);
    EXPECT_EQ(viscosityUnitId(true, 10, 1), -24);
    EXPECT_EQ(viscosityUnitId(true, 12, 6), -45);
    EXPECT_EQ(viscosityUnitId(true, 4, 0), 0);
    EXPECT_EQ(pvtUnitId(6, 3), -233);
    EXPECT_EQ(pvtUnitId(7, 4), -238);
    EXPECT_EQ(pvtUnitId(8, 0), 0);
    EXPECT_EQ(curingUnitId(3, 10), -260);
    EXPECT_EQ(curingUnitId(4, 5), -305);
    EXPECT_EQ(curingUnitId(9, 3), 9);
    EXPECT_EQ(curingUnitId(0, 3), 0);
    EXPECT_EQ(mechanicalUnitId(false, 1, 6), -167);
    EXPECT_EQ(mechanicalUnitId(false, 5, 13), -214);
    EXPECT_EQ(mechanicalUnitId(false, 6, 4), 16);
    EXPECT_EQ(mechanicalUnitId(false, 6, 9), 0);
    EXPECT_EQ(mechanicalUnitId(true, 2, 11), 16);
    EXPECT_EQ(mechanicalUnitId(true, 4, 5), 16);
    EXPECT_EQ(mechanicalUnitId(true, 3, 12), 7);
    EXPECT_EQ(mechanicalUnitId(true, 1, 8), 7);
}

TEST(ThermosetMechLabels, TableAndStaleText) {
    EXPECT_STREQ(thermosetMechLabel(0, 3), "Elastic Modeulus");
    EXPECT_STREQ(thermosetMechLabel(0, 2), "");
    EXPECT_STREQ(thermosetMechLabel(2, 9), "Fiber Length/Diameter");
    EXPECT_STREQ(thermosetMechLabel(5, 3), "Polymer CLTE(melting)");
    EXPECT_STREQ(thermosetMechLabel(4, 14), "Interaction Coefficient");
    const char* shared = thermosetMechLabel(1, 7);
    EXPECT_STREQ(shared, "CLTE a2(transverse direction of melting)");
    EXPECT_STREQ(thermosetMechLabel(1, 15), "CLTE a2(transverse direction of melting)");
    EXPECT_STREQ(thermosetMechLabel(6, 0), "CLTE a2(transverse direction of melting)");
    EXPECT_STREQ(thermosetMechLabel(3, -1), "CLTE a2(transverse direction of melting)");
    EXPECT_STREQ(thermosetMechLabel(3, 0), "Polymer density");
}

// The mechanical unit ids by index as the tables list them: for other types by runs from -161,
// -181 and -201 and a listed row for model 6; for thermosets a listed row per model.
TEST(ReportUnits, MechanicalTablesWhole) {
    for (int i = 0; i < 16; ++i) {
        SCOPED_TRACE(i);
        EXPECT_EQ(mechanicalUnitId(false, 0, i), -161 - i);
        EXPECT_EQ(mechanicalUnitId(false, 1, i), -161 - i);
        EXPECT_EQ(mechanicalUnitId(false, 2, i), -181 - i);
        for (int model : {3, 4, 5})
            EXPECT_EQ(mechanicalUnitId(false, model, i), -201 - i) << "model " << model;
    }
    // Model 6: i 0, 5: 12; i 1, 6, 9: 0; i 2, 7: 6; i 3, 8: 7; i 4: 16.
    const int flake[] = {12, 0, 6, 7, 16, 12, 0, 6, 7, 0};
    for (int i = 0; i < 10; ++i)
        EXPECT_EQ(mechanicalUnitId(false, 6, i), flake[i]) << i;
    struct Row {
        int model;
        std::vector<int> ids;
    };
    const Row thermoset[] = {
        // i 0, 1: 0; i 2, 3, 4: 6; i 5, 6: 7
        {0, {0, 0, 6, 6, 6, 7, 7}},
        // i 0, 1: 0; i 2, 3, 4: 6; i 5 to 8: 7
        {1, {0, 0, 6, 6, 6, 7, 7, 7, 7}},
        // i 0, 1, 9, 10: 0; i 2, 3, 4: 6; i 5 to 8: 7; i 11: 16
        {2, {0, 0, 6, 6, 6, 7, 7, 7, 7, 0, 0, 16}},
        // i 0, 6: 12; i 1, 7, 13, 14: 0; i 2, 8, 9, 10: 6; i 3, 4, 11, 12: 7; i 5: 16
        {3, {12, 0, 6, 7, 7, 16, 12, 0, 6, 6, 6, 7, 7, 0, 0}},
        {4, {12, 0, 6, 7, 7, 16, 12, 0, 6, 6, 6, 7, 7, 0, 0}},
        {5, {12, 0, 6, 7, 7, 16, 12, 0, 6, 6, 6, 7, 7, 0, 0}},
    };
    for (const Row& row : thermoset)
        for (std::size_t i = 0; i < row.ids.size(); ++i)
            EXPECT_EQ(mechanicalUnitId(true, row.model, static_cast<int>(i)), row.ids[i])
                << "thermoset model " << row.model << " index " << i;
}

}  // namespace
}  // namespace qrv::report
