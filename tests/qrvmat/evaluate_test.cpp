// qrvmat eval and plot, run as processes: values against independent ones, charts counted and
// rendered.
#include <quorvalib/quorvalib.h>

#include <cmath>
#include <map>
#include <set>

#include "qrvmat/tool_process.h"
#include "support/material_ptr.h"

namespace qrvtest {
namespace {

class Evaluate : public ToolTest {};

TEST_F(Evaluate, ViscosityCsvMatchesTheHighPrecisionValues) {
    // The generated viscosity model 4 (Modified Cross 2) carries the parameters of the
    // high-precision table.
    ASSERT_EQ(tool({"default", "--vis", "4", "v4.mtr"}).code, 0);
    MaterialPtr material = adopt(QrvGetMaterial(file("v4.mtr").c_str()));
    ASSERT_TRUE(material);
    const auto table = readJson("model_values.json");
    nlohmann::json model;
    for (const auto& entry : table.at("viscosity")) {
        if (entry.at("model") == 4) model = entry;
    }
    // The last parameter, D, multiplies the pressure: the points at pressure 0 do not read it.
    auto para = model.at("para").get<std::vector<double>>();
    auto generated = values(material->Vis);
    ASSERT_EQ(generated.size(), para.size());
    para.pop_back();
    generated.pop_back();
    ASSERT_EQ(generated, para);

    // (shear, temperature) -> value and its relative tolerance
    std::map<std::pair<double, double>, std::pair<double, double>> expected;
    std::set<double> shears, temperatures;
    for (const auto& point : model.at("points")) {
        if (point[2] != 0.0 || point[3] != 0.0) continue;
        expected[{point[0], point[1]}] = {point[4], point[5]};
        shears.insert(point[0].get<double>());
        temperatures.insert(point[1].get<double>());
    }
    auto list = [](const std::set<double>& values) {
        std::string text;
        for (double value : values) {
            char number[40];
            std::snprintf(number, sizeof number, "%.17g", value);
            text += (text.empty() ? "" : ",") + std::string(number);
        }
        return text;
    };
    const ToolRun run = tool({"eval", "v4.mtr", "viscosity", "--shear", list(shears), "--temp",
                              list(temperatures), "--csv"});
    ASSERT_EQ(run.code, 0) << run.err;
    const auto rows = csvRows(run.out);
    ASSERT_EQ(rows.size(), 1 + shears.size() * temperatures.size());
    EXPECT_EQ(rows[0],
              (std::vector<std::string>{"temperature", "pressure", "shear_rate", "viscosity"}));
    int compared = 0;
    for (std::size_t i = 1; i < rows.size(); ++i) {
        const double temperature = std::stod(rows[i][0]), shear = std::stod(rows[i][2]);
        const auto found = expected.find({shear, temperature});
        ASSERT_NE(found, expected.end()) << shear << " " << temperature;
        const auto [value, tolerance] = found->second;
        EXPECT_NEAR(std::stod(rows[i][3]), value, std::fabs(value) * tolerance);
        ++compared;
    }
    EXPECT_GT(compared, 8);
    // Temperature varies slowest, shear rate fastest.
    EXPECT_EQ(std::stod(rows[1][0]), *temperatures.begin());
    EXPECT_EQ(std::stod(rows[2][0]), *temperatures.begin());
    EXPECT_EQ(std::stod(rows[2][2]), *std::next(shears.begin()));
}

TEST_F(Evaluate, HeatCapacityAndConductivityFollowTheTablesLinearly) {
    // Cp pairs (13.2e6, 40), (16.1e6, 120), ...; K pairs (19000, 30), (22000, 230). At 80 the Cp
    // lies half way along its first segment; below and above the table it keeps the end values.
    const ToolRun run = tool({"eval", dataPath("sample_thermoplastic_9012.mtr"), "cp", "k",
                              "--temp", "20,80,130,300", "--json"});
    ASSERT_EQ(run.code, 0) << run.err;
    const auto rows = parsed(run);
    ASSERT_EQ(rows.size(), 4u);
    EXPECT_DOUBLE_EQ(rows[0].at("cp").get<double>(), 13.2e6);
    EXPECT_DOUBLE_EQ(rows[1].at("cp").get<double>(), 14.65e6);
    EXPECT_DOUBLE_EQ(rows[2].at("cp").get<double>(), 16.1e6 + 3.1e6 * 10 / 40);
    EXPECT_DOUBLE_EQ(rows[3].at("cp").get<double>(), 20.5e6);
    EXPECT_DOUBLE_EQ(rows[0].at("k").get<double>(), 19000.0);
    EXPECT_DOUBLE_EQ(rows[2].at("k").get<double>(), 19000.0 + 3000.0 * 100 / 200);
    EXPECT_DOUBLE_EQ(rows[3].at("k").get<double>(), 22000.0);
    EXPECT_EQ(rows[1].size(), 3u);  // temperature, cp, k: no condition they do not read
}

TEST_F(Evaluate, DensityIsTheInverseOfTheVolumeAndTheTextTableIsAligned) {
    const ToolRun run = tool({"eval", dataPath("sample_thermoplastic_9012.mtr"), "volume",
                              "density", "--temp", "100:200:3", "--pressure", "0,1e9", "--csv"});
    ASSERT_EQ(run.code, 0) << run.err;
    const auto rows = csvRows(run.out);
    ASSERT_EQ(rows.size(), 7u);
    for (std::size_t i = 1; i < rows.size(); ++i) {
        EXPECT_NEAR(std::stod(rows[i][2]) * std::stod(rows[i][3]), 1.0, 1e-15);
    }
    EXPECT_EQ(rows[3][0], "150");
    const ToolRun text =
        tool({"eval", dataPath("sample_thermoplastic_9012.mtr"), "volume", "--temp", "100:200:3"});
    ASSERT_EQ(text.code, 0);
    std::istringstream lines(text.out);
    std::string line;
    std::getline(lines, line);
    EXPECT_EQ(line.rfind("# base units: temperature degree C", 0), 0u) << line;
    std::size_t width = 0;
    while (std::getline(lines, line)) {
        if (width == 0) width = line.size();
        EXPECT_EQ(line.size(), width) << line;
    }
}

TEST_F(Evaluate, ModelsThatCannotBeEvaluatedFail) {
    ToolRun run = tool({"eval", dataPath("sample_metal.mtr"), "viscosity", "--temp", "100"});
    EXPECT_EQ(run.code, 1);
    EXPECT_NE(run.err.find("sample_metal.mtr: the viscosity model of this material cannot be "
                           "evaluated"),
              std::string::npos)
        << run.err;
    run = tool(
        {"eval", dataPath("sample_thermoplastic_9012.mtr"), "conversion_step", "--temp", "100"});
    EXPECT_EQ(run.code, 1);
    EXPECT_EQ(run.out, "");
}

TEST_F(Evaluate, BadGridsAreUsageErrors) {
    for (const char* grid : {"1:2", "1:2:0", "0:10:3:log", "a", "1:2:3:cubic", "1:2:2.5"}) {
        const ToolRun run = tool({"eval", dataPath("sample_metal.mtr"), "cp", "--temp", grid});
        EXPECT_EQ(run.code, 2) << grid;
        EXPECT_NE(run.err.find("--temp"), std::string::npos) << run.err;
    }
    EXPECT_EQ(tool({"eval", dataPath("sample_metal.mtr"), "cp"}).code, 2);
    EXPECT_EQ(tool({"eval", dataPath("sample_metal.mtr"), "hardness", "--temp", "1"}).code, 2);
    EXPECT_EQ(
        tool({"eval", dataPath("sample_metal.mtr"), "cp", "--temp", "1", "--csv", "--json"}).code,
        2);
}

// The SVG counts and a rendering of it through rsvg-convert: the drawing must hold the curve
// colours, not one colour alone.
struct Drawn {
    int curves = 0, points = 0;
};

Drawn countDrawn(const std::string& svg) {
    Drawn drawn;
    for (std::size_t at = 0; (at = svg.find("<polyline class=\"curve\"", at)) != std::string::npos;
         ++at)
        ++drawn.curves;
    for (std::size_t at = 0; (at = svg.find("<circle class=\"point\"", at)) != std::string::npos;
         ++at)
        ++drawn.points;
    return drawn;
}

TEST_F(Evaluate, PlotsHoldTheModelCurvesAndTheMeasuredPoints) {
    const auto sample = readJson("sample_thermoplastic_9012.json").at("load").at("record");
    auto measuredPoints = [&](const char* family) {
        int points = 0;
        for (const auto& curve : sample.at(family).at("Curves"))
            points += curve.at("PointCount").get<int>();
        return points;
    };
    const struct {
        const char* kind;
        int curves, points;
    } kinds[] = {{"viscosity", sample.at("VisRaw").at("CurveCount"), measuredPoints("VisRaw")},
                 {"pvt", sample.at("PVTRaw").at("CurveCount"), measuredPoints("PVTRaw")},
                 {"cp", 1, 0},
                 {"k", 1, 0}};
    for (const auto& kind : kinds) {
        SCOPED_TRACE(kind.kind);
        const std::string out = std::string(kind.kind) + ".svg";
        const ToolRun run = tool({"plot", dataPath("sample_thermoplastic_9012.mtr"), "--property",
                                  kind.kind, "--out", out});
        ASSERT_EQ(run.code, 0) << run.err;
        const std::string svg = readFile(file(out));
        const Drawn drawn = countDrawn(svg);
        EXPECT_EQ(drawn.curves, kind.curves);
        EXPECT_EQ(drawn.points, kind.points);
        // Well-formed: an XML parser reads it whole.
        const ToolRun parse = runShell("python3 -c " +
                                           quoted("import sys, xml.dom.minidom as m; "
                                                  "m.parse(sys.argv[1])") +
                                           " " + quoted(file(out)),
                                       folder());
        EXPECT_EQ(parse.code, 0) << parse.err;
    }
    EXPECT_NE(readFile(file("viscosity.svg")).find(">Shear rate [1/sec]<"), std::string::npos);
    EXPECT_NE(readFile(file("pvt.svg")).find(">Specific volume [cc/g]<"), std::string::npos);

    // A generated material without measured data: three temperatures of its melt range.
    ASSERT_EQ(tool({"default", "g.mtr"}).code, 0);
    ASSERT_EQ(tool({"plot", "g.mtr", "--property", "viscosity", "--out", "g.svg"}).code, 0);
    EXPECT_EQ(countDrawn(readFile(file("g.svg"))).curves, 3);
    EXPECT_EQ(countDrawn(readFile(file("g.svg"))).points, 0);
}

TEST_F(Evaluate, ARenderedPlotShowsItsCurves) {
    ASSERT_EQ(tool({"plot", dataPath("sample_thermoplastic_9012.mtr"), "--property", "viscosity",
                    "--out", "v.svg"})
                  .code,
              0);
    const ToolRun render = runShell("rsvg-convert v.svg -o v.png", folder());
    ASSERT_EQ(render.code, 0) << render.err;
    const ToolRun colours =
        runShell("python3 " + quoted(std::string(QRV_SOURCE_DIR) + "/tests/qrvmat/png_colours.py") +
                     " v.png",
                 folder());
    ASSERT_EQ(colours.code, 0) << colours.err;
    // The two curve colours of the palette (#1f77b4, #d62728) stand in the picture, and most of
    // it stays white.
    const auto counts = nlohmann::json::parse(colours.out);
    EXPECT_GT(counts.value("1f77b4", 0), 200) << colours.out.substr(0, 400);
    EXPECT_GT(counts.value("d62728", 0), 200);
    EXPECT_GT(counts.value("ffffff", 0), counts.value("1f77b4", 0));
}

TEST_F(Evaluate, PlotFailures) {
    ToolRun run =
        tool({"plot", dataPath("sample_metal.mtr"), "--property", "viscosity", "--out", "m.svg"});
    EXPECT_EQ(run.code, 1);
    EXPECT_FALSE(std::filesystem::exists(file("m.svg")));
    run = tool({"plot", dataPath("sample_metal.mtr"), "--property", "hardness", "--out", "m.svg"});
    EXPECT_EQ(run.code, 2);
    run = tool({"plot", dataPath("sample_thermoplastic_9012.mtr"), "--property", "cp", "--out",
                "no/such/folder/m.svg"});
    EXPECT_EQ(run.code, 1);
    EXPECT_NE(run.err.find("no/such/folder/m.svg: cannot be written"), std::string::npos);
}

}  // namespace
}  // namespace qrvtest
