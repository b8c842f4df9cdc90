// Runs the built qrvmat as a process in a folder of its own and collects its exit code, its
// standard output and its standard error.
#ifndef QRV_TESTS_QRVMAT_TOOL_PROCESS_H
#define QRV_TESTS_QRVMAT_TOOL_PROCESS_H

#include <gtest/gtest.h>
#include <nlohmann/json.hpp>

#include <sys/wait.h>

#include <cstdlib>
#include <filesystem>
#include <fstream>
#include <initializer_list>
#include <iterator>
#include <random>
#include <sstream>
#include <string>
#include <vector>

#include "support/fixture.h"

namespace qrvtest {

struct ToolRun {
    int code = -1;
    std::string out, err;
};

inline std::string readFile(const std::filesystem::path& path) {
    std::ifstream in(path, std::ios::binary);
    return std::string(std::istreambuf_iterator<char>(in), {});
}

inline std::string quoted(const std::string& text) {
    std::string out = "'";
    for (char c : text)
        out += c == '\'' ? std::string("'\\''") : std::string(1, c);
    return out + "'";
}

// Runs a shell command line in folder; the exit code of a signalled process is 128 + signal.
inline ToolRun runShell(const std::string& command, const std::filesystem::path& folder) {
    const auto out = folder / ".stdout", err = folder / ".stderr";
    const std::string line = "cd " + quoted(folder.string()) + " && " + command + " >" +
                             quoted(out.string()) + " 2>" + quoted(err.string()) + " </dev/null";
    const int status = std::system(line.c_str());
    ToolRun run;
    run.code = WIFEXITED(status) ? WEXITSTATUS(status) : 128 + WTERMSIG(status);
    run.out = readFile(out);
    run.err = readFile(err);
    return run;
}

// A fresh folder per test, in which the tool runs; the settings of an installation that the
// environment might carry are withdrawn so that every run starts from the same place.
class ToolTest : public ::testing::Test {
protected:
    void SetUp() override {
        ::unsetenv("QUORVANE_INSTALL_DIR");
        ::unsetenv("QUORVANE_UNIT_SYSTEM");
        std::random_device random;
        folder_ = std::filesystem::temp_directory_path() /
                  ("qrvmat-test-" + std::to_string(random()) + std::to_string(random()));
        std::filesystem::create_directories(folder_);
    }
    void TearDown() override { std::filesystem::remove_all(folder_); }

    ToolRun tool(std::initializer_list<std::string> args) {
        std::string command = quoted(QRVMAT_PATH);
        for (const std::string& arg : args)
            command += " " + quoted(arg);
        return runShell(command, folder_);
    }
    std::string file(const std::string& name) const { return (folder_ / name).string(); }
    const std::filesystem::path& folder() const { return folder_; }

private:
    std::filesystem::path folder_;
};

inline nlohmann::json parsed(const ToolRun& run) {
    return nlohmann::json::parse(run.out);
}

// Rows of CSV text (no quoted fields).
inline std::vector<std::vector<std::string>> csvRows(const std::string& text) {
    std::vector<std::vector<std::string>> rows;
    std::istringstream in(text);
    std::string line;
    while (std::getline(in, line)) {
        std::vector<std::string> cells;
        std::istringstream fields(line);
        std::string cell;
        while (std::getline(fields, cell, ','))
            cells.push_back(cell);
        rows.push_back(cells);
    }
    return rows;
}

}  // namespace qrvtest

#endif
