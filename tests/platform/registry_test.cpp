// Install folder and unit system: setting, environment, and their failures.
#include <gtest/gtest.h>

#include <quorvalib/registry.h>

#include <cstdlib>
#include <cstring>
#include <string>

namespace {

class Registry : public ::testing::Test {
protected:
    void SetUp() override { clear(); }
    void TearDown() override { clear(); }
    static void clear() {
        QRVSetInstallFolderPath(nullptr);
        QRVSetReleaseVersionUnit(-1);
        ::unsetenv("QUORVANE_INSTALL_DIR");
        ::unsetenv("QUORVANE_UNIT_SYSTEM");
    }
    static std::string folder() {
        char buffer[256] = {};
        if (!QRVGetInstallFolderPath("QuorvaneR910", buffer, 256)) return "<false>";
        return buffer;
    }
};

TEST_F(Registry, NoFolderAnswersFalseAndLeavesTheBuffer) {
    char buffer[8] = "keep";
    EXPECT_FALSE(QRVGetInstallFolderPath("QuorvaneR910", buffer, 8));
    EXPECT_STREQ(buffer, "keep");
    ::setenv("QUORVANE_INSTALL_DIR", "", 1);
    EXPECT_EQ(folder(), "<false>");
}

TEST_F(Registry, SettingComesBeforeTheEnvironmentAndEndsInASlash) {
    ::setenv("QUORVANE_INSTALL_DIR", "/opt/from-env", 1);
    EXPECT_EQ(folder(), "/opt/from-env/");
    QRVSetInstallFolderPath("/opt/set/");
    EXPECT_EQ(folder(), "/opt/set/");
    QRVSetInstallFolderPath("");
    EXPECT_EQ(folder(), "/opt/from-env/");
}

TEST_F(Registry, FolderThatDoesNotFitIsRefused) {
    QRVSetInstallFolderPath("/abcd");
    char buffer[7] = "keep";
    EXPECT_FALSE(QRVGetInstallFolderPath(nullptr, buffer, 6));  // "/abcd/" and its terminator
    EXPECT_STREQ(buffer, "keep");
    EXPECT_TRUE(QRVGetInstallFolderPath(nullptr, buffer, 7));
    EXPECT_STREQ(buffer, "/abcd/");
    EXPECT_FALSE(QRVGetInstallFolderPath(nullptr, nullptr, 7));
    EXPECT_FALSE(QRVGetInstallFolderPath(nullptr, buffer, -1));
}

TEST_F(Registry, UnitSystem) {
    int unit = 9;
    EXPECT_FALSE(QRVGetReleaseVersionUnit(unit));
    EXPECT_EQ(unit, 9);
    for (const char* bad : {"", "x", "3", "-1", "1 ", "01", "1.0"}) {
        ::setenv("QUORVANE_UNIT_SYSTEM", bad, 1);
        EXPECT_FALSE(QRVGetReleaseVersionUnit(unit)) << bad;
        EXPECT_EQ(unit, 9);
    }
    ::setenv("QUORVANE_UNIT_SYSTEM", "2", 1);
    EXPECT_TRUE(QRVGetReleaseVersionUnit(unit));
    EXPECT_EQ(unit, 2);
    QRVSetReleaseVersionUnit(0);
    EXPECT_TRUE(QRVGetReleaseVersionUnit(unit));
    EXPECT_EQ(unit, 0);
    QRVSetReleaseVersionUnit(-5);
    EXPECT_TRUE(QRVGetReleaseVersionUnit(unit));
    EXPECT_EQ(unit, 2);
}

}  // namespace
