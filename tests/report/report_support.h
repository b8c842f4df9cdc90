// Shared set-up of the report tests: the settings of the registry start unset in every test, and
// the expected texts are read whole from tests/data/report.
#ifndef QRV_TESTS_REPORT_REPORT_SUPPORT_H
#define QRV_TESTS_REPORT_REPORT_SUPPORT_H

#include <gtest/gtest.h>

#include <quorvalib/frmout.h>
#include <quorvalib/manipulator.h>
#include <quorvalib/registry.h>

#include <cstdlib>
#include <fstream>
#include <iterator>
#include <string>

#include "support/fixture.h"

namespace qrvtest {

inline std::string reportData(const std::string& name) {
    return dataPath("report/" + name);
}

inline std::string readText(const std::string& path) {
    std::ifstream in(path, std::ios::binary);
    EXPECT_TRUE(in.good()) << path;
    return std::string(std::istreambuf_iterator<char>(in), {});
}

// The folder whose Bank/System/StatData.sta fires two warnings for the generated thermoplastic.
inline std::string statisticsFolder() {
    return reportData("");
}

class ReportTest : public ::testing::Test {
protected:
    void SetUp() override { clearSettings(); }
    void TearDown() override { clearSettings(); }

    static void clearSettings() {
        QRVSetInstallFolderPath(nullptr);
        QRVSetReleaseVersionUnit(-1);
        ::unsetenv("QUORVANE_INSTALL_DIR");
        ::unsetenv("QUORVANE_UNIT_SYSTEM");
    }

    // The generated thermoplastic of the expected texts: Modified Cross 2, Spencer-Gilmore, two
    // Cp and two K pairs, an isotropic pure polymer.
    static void holdThermoplastic(MATIO_Manipulator& manipulator) {
        ASSERT_TRUE(manipulator.GetDefaultMaterial(4, 2, false, 2, 2, 0));
    }

    static std::string report(MATIO_Manipulator& manipulator, const char* module,
                              const char* file) {
        QRVFrmOut_StringStream stream;
        EXPECT_TRUE(manipulator.GetLogString(module, file, stream));
        return stream.str();
    }
};

}  // namespace qrvtest

#endif
