// qrvmat bank and metals, run as processes.
#include <quorvalib/quorvalib.h>

#include "qrvmat/tool_process.h"
#include "support/material_ptr.h"

namespace qrvtest {
namespace {

class Banks : public ToolTest {};

TEST_F(Banks, ListShowsEveryEntryOfTheSampleBank) {
    const auto sample = readJson("sample_bank.json");
    const auto& frames = sample.at("structure").at("Frames");
    const ToolRun run = tool({"bank", "list", dataPath("sample_bank.qbk"), "--json"});
    ASSERT_EQ(run.code, 0) << run.err;
    const auto entries = parsed(run);
    ASSERT_EQ(entries.size(), sample.at("entry_count").get<std::size_t>());
    const char* types[] = {"Thermoplastic", "Thermosetting plastic", "Metal"};
    for (std::size_t i = 0; i < entries.size(); ++i) {
        SCOPED_TRACE(i);
        const auto& header = frames[i].at("Header");
        EXPECT_EQ(entries[i].at("index"), i);
        EXPECT_EQ(entries[i].at("type"), types[i]);
        EXPECT_EQ(entries[i].at("polymer"), header.at("Polymer"));
        EXPECT_EQ(entries[i].at("producer"), header.at("Producer"));
        EXPECT_EQ(entries[i].at("grade"), header.at("GradeName"));
    }
    const ToolRun csv = tool({"bank", "list", dataPath("sample_bank.qbk"), "--csv"});
    ASSERT_EQ(csv.code, 0);
    const auto rows = csvRows(csv.out);
    ASSERT_EQ(rows.size(), 4u);
    EXPECT_EQ(rows[0], (std::vector<std::string>{"index", "type", "polymer", "producer", "grade"}));
    EXPECT_EQ(rows[3][0], "2");
    EXPECT_EQ(rows[3][1], "Metal");
}

TEST_F(Banks, AddListExtractAndExport) {
    ToolRun run = tool({"bank", "add", "new.qbk", dataPath("sample_thermoplastic_9012.mtr"),
                        dataPath("sample_thermoset_9018.mtx"), dataPath("sample_metal.mtr")});
    ASSERT_EQ(run.code, 0) << run.err;
    // Not on a terminal: no progress line.
    EXPECT_EQ(run.err, "");
    EXPECT_EQ(run.out, "");
    run = tool({"bank", "list", "new.qbk", "--json"});
    ASSERT_EQ(run.code, 0);
    const auto entries = parsed(run);
    ASSERT_EQ(entries.size(), 3u);
    EXPECT_EQ(entries[0].at("polymer"), "PLA");
    EXPECT_EQ(entries[1].at("type"), "Thermosetting plastic");
    EXPECT_EQ(entries[2].at("grade"), "Stainless 316L");

    // A file that cannot be loaded is left out, the others are added, and the run fails.
    run = tool({"bank", "add", "new.qbk", "missing.mtr", dataPath("sample_legacy.mtr")});
    EXPECT_EQ(run.code, 1);
    EXPECT_NE(run.err.find("missing.mtr: not a readable material file; not added"),
              std::string::npos)
        << run.err;
    EXPECT_NE(run.err.find("new.qbk: 1 of 2 files were not added"), std::string::npos);
    EXPECT_EQ(parsed(tool({"bank", "list", "new.qbk", "--json"})).size(), 4u);

    run = tool({"bank", "export", "new.qbk", "0", "first.mtr"});
    ASSERT_EQ(run.code, 0) << run.err;
    MaterialPtr exported = adopt(QrvGetMaterial(file("first.mtr").c_str()));
    ASSERT_TRUE(exported);
    const auto sample = readJson("sample_thermoplastic_9012.json").at("load").at("record");
    const auto& vis = sample.at("Blocks").at("Vis");
    EXPECT_EQ(exported->Vis.Model, vis.at("Model").get<int>());
    EXPECT_EQ(values(exported->Vis), vis.at("Para").get<std::vector<double>>());
    expectText(exported->GradeName, sample.at("GradeName"), "GradeName");

    run = tool({"bank", "extract", "new.qbk", "2"});
    ASSERT_EQ(run.code, 0) << run.err;
    EXPECT_NE(run.out.find("Grade Name  = Stainless 316L\n"), std::string::npos) << run.out;
    run = tool({"bank", "extract", "new.qbk", "1", "--out", "second.mtx"});
    ASSERT_EQ(run.code, 0) << run.err;
    MaterialPtr extracted = adopt(QrvGetMaterialRIM(file("second.mtx").c_str()));
    ASSERT_TRUE(extracted);
    EXPECT_STREQ(extracted->Polymer, "Epoxy");
}

TEST_F(Banks, AddShowsProgressOnATerminal) {
    // script(1) runs the tool with a pseudo-terminal as its standard streams.
    const std::string command = quoted(QRVMAT_PATH) + " bank add t.qbk " +
                                quoted(dataPath("sample_metal.mtr")) + " " +
                                quoted(dataPath("sample_thermoplastic_9012.mtr"));
    const ToolRun run = runShell("script -qec " + quoted(command) + " /dev/null", folder());
    ASSERT_EQ(run.code, 0) << run.err;
    EXPECT_NE(run.out.find("adding 1/2: "), std::string::npos) << run.out;
    EXPECT_NE(run.out.find("adding 2/2: "), std::string::npos) << run.out;
    EXPECT_NE(run.out.find("added 2 of 2"), std::string::npos) << run.out;
    EXPECT_EQ(parsed(tool({"bank", "list", "t.qbk", "--json"})).size(), 2u);
}

TEST_F(Banks, BadIndicesAndMissingBanksFail) {
    for (const char* index : {"3", "-1"}) {
        const ToolRun run = tool({"bank", "extract", dataPath("sample_bank.qbk"), index});
        EXPECT_EQ(run.code, 1) << index;
        EXPECT_NE(run.err.find(std::string("has no entry ") + index), std::string::npos) << run.err;
    }
    ToolRun run = tool({"bank", "export", dataPath("sample_bank.qbk"), "7", "x.mtr"});
    EXPECT_EQ(run.code, 1);
    EXPECT_FALSE(std::filesystem::exists(file("x.mtr")));
    run = tool({"bank", "list", "missing.qbk"});
    EXPECT_EQ(run.code, 1);
    EXPECT_EQ(run.err, "qrvmat: missing.qbk: no such file\n");
    std::filesystem::create_directory(file("folder.qbk"));
    run = tool({"bank", "add", "folder.qbk", dataPath("sample_metal.mtr")});
    EXPECT_EQ(run.code, 1);
    EXPECT_NE(run.err.find("folder.qbk: cannot be opened for update"), std::string::npos);
    EXPECT_EQ(tool({"bank", "extract", dataPath("sample_bank.qbk"), "one"}).code, 2);
    EXPECT_EQ(tool({"bank"}).code, 2);
    EXPECT_EQ(tool({"bank", "remove", "b.qbk"}).code, 2);
}

TEST_F(Banks, MetalsOfTheSystemAndTheUserBank) {
    std::filesystem::create_directories(file("system/Bank/System"));
    std::filesystem::create_directories(file("user/Quorvane R13.0/Material/UserBank"));
    ASSERT_EQ(
        tool({"bank", "add", "system/Bank/System/Metal.qbk", dataPath("sample_metal.mtr")}).code,
        0);
    // The user's bank: only entries whose first text is "Metal" count.
    ASSERT_EQ(tool({"bank", "add", "user/Quorvane R13.0/Material/UserBank/user.qbk",
                    dataPath("sample_thermoplastic_9012.mtr"), dataPath("sample_metal.mtr")})
                  .code,
              0);
    ToolRun run = tool({"metals", "system", "user", "--json"});
    ASSERT_EQ(run.code, 0) << run.err;
    const auto metals = parsed(run);
    ASSERT_EQ(metals.size(), 2u);
    const auto sample = readJson("sample_metal.json").at("load").at("record");
    for (const auto& metal : metals) {
        EXPECT_EQ(metal.at("name"), sample.at("GradeName"));
        // The comment reads "... D=7.99 g/cc".
        EXPECT_DOUBLE_EQ(metal.at("density").get<double>(), 7.99);
        EXPECT_EQ(metal.at("cp"), sample.at("Blocks").at("Cp").at("Para")[0]);
        EXPECT_EQ(metal.at("em"), sample.at("Blocks").at("Mech").at("Para")[2]);
    }
    // No user-rim.qbk, but the system bank opens.
    EXPECT_EQ(parsed(tool({"metals", "system", "user", "--rim", "--json"})).size(), 1u);
    run = tool({"metals", "nowhere", "nobody"});
    EXPECT_EQ(run.code, 1);
    EXPECT_NE(run.err.find("qrvmat: nowhere: neither"), std::string::npos) << run.err;
}

}  // namespace
}  // namespace qrvtest
