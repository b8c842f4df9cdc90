// The command line itself: help on every subcommand, usage errors and their exit code.
#include "qrvmat/tool_process.h"

namespace qrvtest {
namespace {

class Usage : public ToolTest {};

TEST_F(Usage, EverySubcommandHasHelp) {
    const std::vector<std::vector<std::string>> commands = {
        {},         {"info"},         {"dump"},        {"check"},           {"report"},
        {"eval"},   {"plot"},         {"default"},     {"convert"},         {"bank"},
        {"metals"}, {"bank", "list"}, {"bank", "add"}, {"bank", "extract"}, {"bank", "export"},
        {"run"},    {"run", "list"},  {"run", "add"},  {"run", "get"}};
    for (const auto& command : commands) {
        std::string line = quoted(QRVMAT_PATH);
        for (const auto& word : command)
            line += " " + word;
        SCOPED_TRACE(line);
        const ToolRun run = runShell(line + " --help", folder());
        EXPECT_EQ(run.code, 0);
        EXPECT_NE(run.out.find("Usage: "), std::string::npos) << run.out;
        if (!command.empty()) {
            EXPECT_NE(run.out.find(command.back()), std::string::npos);
        }
    }
}

TEST_F(Usage, UsageErrorsExitWithTwoAndSayWhy) {
    const struct {
        std::vector<std::string> args;
        const char* says;
    } cases[] = {
        {{}, "A subcommand is required"},
        {{"frobnicate"}, "subcommand"},
        {{"info"}, "FILE is required"},
        {{"info", "a.mtr", "--units", "metric"}, "--units"},
        {{"info", "a.mtr", "--csv"}, "--csv"},
        {{"default", "--vis", "many", "x.mtr"}, "--vis"},
        {{"convert", "a.mtr"}, "OUT is required"},
    };
    for (const auto& c : cases) {
        std::string line = quoted(QRVMAT_PATH);
        for (const auto& word : c.args)
            line += " " + quoted(word);
        SCOPED_TRACE(line);
        const ToolRun run = runShell(line, folder());
        EXPECT_EQ(run.code, 2);
        EXPECT_NE(run.err.find(c.says), std::string::npos) << run.err;
        EXPECT_EQ(run.out, "");
    }
}

}  // namespace
}  // namespace qrvtest
