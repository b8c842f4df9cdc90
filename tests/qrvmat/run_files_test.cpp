// qrvmat run, run as a process on run files it writes.
#include <quorvalib/quorvalib.h>

#include "qrvmat/tool_process.h"
#include "support/material_ptr.h"

namespace qrvtest {
namespace {

class RunFiles : public ToolTest {};

TEST_F(RunFiles, AddListAndGetBack) {
    ToolRun run = tool({"run", "add", "demo.rsv", dataPath("sample_thermoplastic_9012.mtr"),
                        dataPath("sample_thermoset_9018.mtx")});
    ASSERT_EQ(run.code, 0) << run.err;
    EXPECT_EQ(run.out, "");
    run = tool({"run", "list", "demo.rsv", "--json"});
    ASSERT_EQ(run.code, 0) << run.err;
    const auto listed = parsed(run);
    ASSERT_EQ(listed.size(), 2u);
    const auto plastic = readJson("sample_thermoplastic_9012.json").at("load").at("record");
    const auto thermoset = readJson("sample_thermoset_9018.json").at("load").at("record");
    EXPECT_EQ(listed[0].at("index"), 0);
    EXPECT_EQ(listed[0].at("type"), "Thermoplastic");
    EXPECT_EQ(listed[0].at("polymer"), plastic.at("Polymer"));
    EXPECT_EQ(listed[0].at("grade"), plastic.at("GradeName"));
    EXPECT_EQ(listed[1].at("type"), "Thermosetting plastic");
    EXPECT_EQ(listed[1].at("producer"), thermoset.at("Producer"));

    // The run file is HDF5: h5dump lists the two material groups of run 1.
    run = runShell("h5dump -n demo.rsv", folder());
    ASSERT_EQ(run.code, 0) << run.err;
    EXPECT_NE(run.out.find("/Vantrell/Run1/Material/Material 2\n"), std::string::npos) << run.out;

    run = tool({"run", "get", "demo.rsv", "0", "--out", "back.mtr"});
    ASSERT_EQ(run.code, 0) << run.err;
    MaterialPtr back = adopt(QrvGetMaterial(file("back.mtr").c_str()));
    ASSERT_TRUE(back);
    EXPECT_EQ(values(back->Vis),
              plastic.at("Blocks").at("Vis").at("Para").get<std::vector<double>>());
    EXPECT_EQ(values(back->PVT),
              plastic.at("Blocks").at("PVT").at("Para").get<std::vector<double>>());
    // The measured curves come back; a run file keeps no source, fit error or standard of them.
    ASSERT_NE(back->VisRaw, nullptr);
    const auto& curves = plastic.at("VisRaw").at("Curves");
    ASSERT_EQ(back->VisRaw->GetCurveCount(), static_cast<int>(curves.size()));
    double condition = 0.0;
    int points = 0;
    double *x = nullptr, *y = nullptr;
    ASSERT_TRUE(back->VisRaw->GetCurve(1, condition, points, x, y));
    EXPECT_EQ(condition, curves[1].at("Condition").get<double>());
    EXPECT_EQ(std::vector<double>(y, y + points), curves[1].at("Y").get<std::vector<double>>());

    run = tool({"run", "get", "demo.rsv", "1"});
    ASSERT_EQ(run.code, 0) << run.err;
    EXPECT_NE(run.out.find("Polymer     = Epoxy\n"), std::string::npos) << run.out;
}

TEST_F(RunFiles, Failures) {
    ToolRun run = tool({"run", "list", "missing.rsv"});
    EXPECT_EQ(run.code, 1);
    EXPECT_EQ(run.err, "qrvmat: missing.rsv: no such file\n");
    EXPECT_FALSE(std::filesystem::exists(file("missing.rsv")));
    run = tool({"run", "list", dataPath("sample_metal.mtr")});
    EXPECT_EQ(run.code, 1);
    EXPECT_NE(run.err.find("sample_metal.mtr: not a run file"), std::string::npos) << run.err;

    // A material that cannot be loaded: nothing is added, no run file is made.
    run = tool({"run", "add", "r.rsv", dataPath("sample_metal.mtr"), "missing.mtr"});
    EXPECT_EQ(run.code, 1);
    EXPECT_EQ(run.err, "qrvmat: missing.mtr: no such file\n");
    EXPECT_FALSE(std::filesystem::exists(file("r.rsv")));
    // A file that is not HDF5 cannot be a run file to add to.
    std::ofstream(file("text.rsv")) << "not a run file\n";
    run = tool({"run", "add", "text.rsv", dataPath("sample_metal.mtr")});
    EXPECT_EQ(run.code, 1);
    EXPECT_NE(run.err.find("text.rsv: cannot be created or written"), std::string::npos);

    ASSERT_EQ(tool({"run", "add", "r.rsv", dataPath("sample_metal.mtr")}).code, 0);
    for (const char* index : {"1", "-1"}) {
        run = tool({"run", "get", "r.rsv", index});
        EXPECT_EQ(run.code, 1) << index;
        EXPECT_NE(run.err.find("has no material"), std::string::npos) << run.err;
    }
    EXPECT_EQ(tool({"run", "add", "r.rsv", dataPath("sample_metal.mtr"), "--run", "0"}).code, 2);
    EXPECT_EQ(tool({"run", "get", "r.rsv"}).code, 2);
    EXPECT_EQ(tool({"run"}).code, 2);
}

}  // namespace
}  // namespace qrvtest
