// qrvmat report and check, run as processes, against the report texts written out by hand.
#include "qrvmat/tool_process.h"

namespace qrvtest {
namespace {

class Reports : public ToolTest {
protected:
    std::string reportData(const std::string& name) { return dataPath("report/" + name); }
    std::string statistics() { return reportData("Bank/System/StatData.sta"); }
    // The generated thermoplastic of the written-out reports, saved as generated.mtr.
    void generate() {
        ASSERT_EQ(tool({"default", "--vis", "4", "--pvt", "2", "--cp", "2", "--k", "2", "--filler",
                        "0", "generated.mtr"})
                      .code,
                  0);
    }
};

TEST_F(Reports, ReportsEqualTheWrittenOutTexts) {
    generate();
    const struct {
        const char* units;
        const char* expected;
    } systems[] = {{"base", "thermoplastic_filling_base.txt"},
                   {"si", "thermoplastic_filling_si.txt"},
                   {"english", "thermoplastic_filling_english.txt"}};
    for (const auto& system : systems) {
        SCOPED_TRACE(system.units);
        const ToolRun run = tool({"report", "generated.mtr", "--module", "Filling", "--install",
                                  reportData(""), "--units", system.units});
        ASSERT_EQ(run.code, 0) << run.err;
        EXPECT_EQ(run.out, readFile(reportData(system.expected)));
    }
    ToolRun run = tool({"report", dataPath("sample_thermoset_9018.mtx"), "--module", "RIMFilling",
                        "--install", reportData(""), "--units", "si"});
    ASSERT_EQ(run.code, 0) << run.err;
    EXPECT_EQ(run.out, readFile(reportData("thermoset_rimfilling_si.txt")));

    // The unit system and the install folder from the environment.
    run = runShell("QUORVANE_UNIT_SYSTEM=2 QUORVANE_INSTALL_DIR=" + quoted(reportData("")) + " " +
                       quoted(QRVMAT_PATH) + " report " + quoted(dataPath("sample_metal.mtr")) +
                       " --module Cooling",
                   folder());
    ASSERT_EQ(run.code, 0) << run.err;
    EXPECT_EQ(run.out, readFile(reportData("metal_cooling_english.txt")));
}

TEST_F(Reports, UnknownModulesAreUsageErrors) {
    for (const char* module : {"filling", "Moulding", ""}) {
        const ToolRun run = tool({"report", dataPath("sample_metal.mtr"), "--module", module});
        EXPECT_EQ(run.code, 2) << module;
        EXPECT_EQ(run.out, "");
    }
    EXPECT_EQ(tool({"report", dataPath("sample_metal.mtr")}).code, 2);
    EXPECT_EQ(
        tool({"report", dataPath("sample_metal.mtr"), "--module", "Cooling", "--units", "imperial"})
            .code,
        2);
}

// The warning lines of a written-out report, each without its label.
std::vector<std::string> warningsOf(const std::string& report) {
    std::vector<std::string> warnings;
    std::istringstream lines(report);
    std::string line;
    bool inside = false;
    while (std::getline(lines, line)) {
        if (line.rfind("  ", 0) == 0 && line[2] != ' ') {
            inside = line == "  Checking_Polymer_Data_Warning";
        } else if (inside && line.rfind("    Warning", 0) == 0) {
            warnings.push_back(line.substr(line.find(" : ") + 3));
        }
    }
    return warnings;
}

TEST_F(Reports, CheckGivesTheWarningsOfTheReport) {
    generate();
    const auto expected = warningsOf(readFile(reportData("thermoplastic_filling_base.txt")));
    ASSERT_FALSE(expected.empty());
    ToolRun run = tool({"check", "generated.mtr", "--stats", statistics(), "--json"});
    ASSERT_EQ(run.code, 0) << run.err;
    const auto result = parsed(run);
    if (expected == std::vector<std::string>{"None"}) {
        EXPECT_TRUE(result.at("warnings").empty());
    } else {
        EXPECT_EQ(result.at("warnings").get<std::vector<std::string>>(), expected);
    }
    run = tool({"check", "generated.mtr", "--stats", statistics()});
    ASSERT_EQ(run.code, 0);
    std::string text;
    for (std::size_t i = 0; i < expected.size(); ++i) {
        text += expected[i] == "None"
                    ? "None\n"
                    : "Warning #" + std::to_string(i + 1) + ": " + expected[i] + "\n";
    }
    EXPECT_EQ(run.out, text);
}

TEST_F(Reports, CheckWithoutWarningsSaysNone) {
    const std::string material = dataPath("sample_thermoplastic_9008.mtr");
    ToolRun run = tool({"check", material, "--stats", dataPath("StatData.sta")});
    ASSERT_EQ(run.code, 0) << run.err;
    EXPECT_EQ(run.out, "None\n");
    // The report of the same material shows the library's own "None".
    run = tool({"report", material, "--module", "Filling", "--install", reportData("")});
    EXPECT_NE(run.out.find("  Checking_Polymer_Data_Warning\n    Warning : None\n"),
              std::string::npos)
        << run.out;
    run = tool({"check", material, "--json", "--stats", dataPath("StatData.sta")});
    EXPECT_TRUE(parsed(run).at("warnings").empty());
    // The install folder from the environment.
    run = runShell("QUORVANE_INSTALL_DIR=" + quoted(reportData("")) + " " + quoted(QRVMAT_PATH) +
                       " check " + quoted(dataPath("sample_thermoplastic_9012.mtr")),
                   folder());
    EXPECT_EQ(run.code, 0) << run.err;
    EXPECT_EQ(run.out.rfind("Warning #1: ", 0), 0u) << run.out;
}

TEST_F(Reports, CheckFailures) {
    ToolRun run = tool({"check", dataPath("sample_metal.mtr"), "--stats", statistics()});
    EXPECT_EQ(run.code, 1);
    EXPECT_NE(run.err.find("judges thermoplastics only"), std::string::npos) << run.err;
    run = tool({"check", dataPath("sample_thermoplastic_9012.mtr")});
    EXPECT_EQ(run.code, 1);
    EXPECT_NE(run.err.find("no statistics to judge it by"), std::string::npos) << run.err;
    run = tool({"check", dataPath("sample_thermoplastic_9012.mtr"), "--stats", "missing.sta"});
    EXPECT_EQ(run.code, 1);
    EXPECT_EQ(run.err, "qrvmat: missing.sta: no such file\n");
}

}  // namespace
}  // namespace qrvtest
