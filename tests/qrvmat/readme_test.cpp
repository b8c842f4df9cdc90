// The user guide of the README is run: every line of its sh blocks, in order, and its C++
// example, compiled against the library and run on a sample file.
#include <quorvalib/quorvalib.h>

#include <cstdio>

#include "qrvmat/tool_process.h"
#include "support/material_ptr.h"

namespace qrvtest {
namespace {

class Readme : public ToolTest {};

// The lines of every fenced block of the README opened with the given language.
std::vector<std::string> fencedBlocks(const std::string& language) {
    std::vector<std::string> lines;
    std::istringstream readme(readFile(std::string(QRV_SOURCE_DIR) + "/README.md"));
    std::string line;
    bool inside = false;
    while (std::getline(readme, line)) {
        if (line.rfind("```", 0) == 0) {
            inside = !inside && line == "```" + language;
            continue;
        }
        if (inside) lines.push_back(line);
    }
    return lines;
}

TEST_F(Readme, EveryCommandOfTheUserGuideRuns) {
    // The commands run from a tree root: tests/data is reached through a link.
    std::filesystem::create_directory_symlink(std::string(QRV_SOURCE_DIR) + "/tests",
                                              folder() / "tests");
    const std::string path = std::filesystem::path(QRVMAT_PATH).parent_path().string();
    int commands = 0;
    for (const std::string& line : fencedBlocks("sh")) {
        if (line.empty() || line[0] == '#') continue;
        SCOPED_TRACE(line);
        const ToolRun run = runShell("PATH=" + quoted(path) + ":\"$PATH\" " + line, folder());
        EXPECT_EQ(run.code, 0) << run.err;
        EXPECT_FALSE(run.out.empty() && line.find(" list") != std::string::npos);
        ++commands;
    }
    EXPECT_GE(commands, 21);
    // What the examples wrote.
    for (const char* written : {"viscosity.svg", "pvt.svg", "pla.mtr", "epoxy.mtx", "converted.mtr",
                                "my.qbk", "epoxy-again.mtx", "demo.rsv", "epoxy-from-run.mtx"}) {
        EXPECT_TRUE(std::filesystem::exists(file(written))) << written;
    }
}

TEST_F(Readme, TheCppExampleBuildsAndPrintsViscosities) {
    const auto lines = fencedBlocks("cpp");
    ASSERT_FALSE(lines.empty());
    std::ofstream source(file("example.cpp"));
    for (const std::string& line : lines)
        source << line << "\n";
    source.close();
    const std::string compile =
        quoted(QRV_CXX) + " " + QRV_CXX_FLAGS + " -std=c++17 example.cpp -I" +
        quoted(std::string(QRV_SOURCE_DIR) + "/include") + " -L" + quoted(QRV_LIBRARY_DIR) +
        " -Wl,-rpath," + quoted(QRV_LIBRARY_DIR) + " -lquorvalib -o example";
    const ToolRun built = runShell(compile, folder());
    ASSERT_EQ(built.code, 0) << built.err;

    const std::string sample = dataPath("sample_thermoplastic_9012.mtr");
    const ToolRun run = runShell("./example " + quoted(sample), folder());
    ASSERT_EQ(run.code, 0) << run.err;
    MaterialPtr material = adopt(QrvGetMaterial(sample.c_str()));
    ASSERT_TRUE(material);
    std::string expected = "PLA GB 3052D (Modified Cross Model 3)\n";
    for (double shearRate : {10.0, 1000.0, 100000.0}) {
        char line[128];
        std::snprintf(line, sizeof line, "%10g 1/sec  %g g/(cm.sec)\n", shearRate,
                      QrvGetViscosity(material.get(), shearRate, 230.0, 0.0, 0.0));
        expected += line;
    }
    EXPECT_EQ(run.out, expected);
    EXPECT_EQ(runShell("./example missing.mtr", folder()).code, 1);
}

}  // namespace
}  // namespace qrvtest
