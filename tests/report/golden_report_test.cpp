// Whole reports against texts written out by hand in tests/data/report.
#include <quorvalib/frmout.h>
#include <quorvalib/manipulator.h>
#include <quorvalib/registry.h>

#include <cstdlib>
#include <string>

#include "report/report_support.h"

namespace qrvtest {
namespace {

class GoldenReport : public ReportTest {};

TEST_F(GoldenReport, ThermoplasticForFillingInEachUnitSystem) {
    QRVSetInstallFolderPath(statisticsFolder().c_str());
    MATIO_Manipulator manipulator;
    holdThermoplastic(manipulator);
    const char* expected[] = {"thermoplastic_filling_base.txt", "thermoplastic_filling_si.txt",
                              "thermoplastic_filling_english.txt"};
    for (int system = 0; system < 3; ++system) {
        SCOPED_TRACE(system);
        QRVSetReleaseVersionUnit(system);
        EXPECT_EQ(report(manipulator, "Filling", "generated.mtr"),
                  readText(reportData(expected[system])));
    }
}

TEST_F(GoldenReport, SettingsFromTheEnvironment) {
    ::setenv("QUORVANE_INSTALL_DIR", statisticsFolder().c_str(), 1);
    ::setenv("QUORVANE_UNIT_SYSTEM", "2", 1);
    MATIO_Manipulator manipulator;
    holdThermoplastic(manipulator);
    EXPECT_EQ(report(manipulator, "Packing3D", "generated.mtr"),
              readText(reportData("thermoplastic_filling_english.txt")));
}

TEST_F(GoldenReport, ThermoplasticForWarpage) {
    QRVSetInstallFolderPath(statisticsFolder().c_str());
    MATIO_Manipulator manipulator;
    holdThermoplastic(manipulator);
    EXPECT_EQ(report(manipulator, "Warpage", "generated.mtr"),
              readText(reportData("thermoplastic_warpage_base.txt")));
    EXPECT_EQ(report(manipulator, "Warpage3D", "generated.mtr"),
              readText(reportData("thermoplastic_warpage_base.txt")));
}

TEST_F(GoldenReport, ThermosetForRimFillingInSi) {
    QRVSetInstallFolderPath(statisticsFolder().c_str());
    QRVSetReleaseVersionUnit(1);
    MATIO_Manipulator manipulator;
    ASSERT_TRUE(manipulator.GetMaterial(dataPath("sample_thermoset_9018.mtx").c_str()));
    const std::string expected = readText(reportData("thermoset_rimfilling_si.txt"));
    for (const char* module : {"RIMFilling", "RIMCuring", "RIM3D"})
        EXPECT_EQ(report(manipulator, module, "sample_thermoset_9018.mtx"), expected) << module;
}

TEST_F(GoldenReport, MetalForCoolingInEnglishUnits) {
    QRVSetInstallFolderPath(statisticsFolder().c_str());
    QRVSetReleaseVersionUnit(2);
    MATIO_Manipulator manipulator;
    ASSERT_TRUE(manipulator.GetMaterial(dataPath("sample_metal.mtr").c_str()));
    const std::string expected = readText(reportData("metal_cooling_english.txt"));
    EXPECT_EQ(report(manipulator, "Cooling", "sample_metal.mtr"), expected);
    EXPECT_EQ(report(manipulator, "Cooling3D", "sample_metal.mtr"), expected);
}

}  // namespace
}  // namespace qrvtest
