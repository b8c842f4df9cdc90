// The report's rules at their edges: comments, counts, unknown models, modules, missing settings
// and files, and records that hold nothing.
#include <quorvalib/defaults.h>
#include <quorvalib/frmout.h>
#include <quorvalib/manipulator.h>
#include <quorvalib/registry.h>

#include <algorithm>
#include <cstring>
#include <string>

#include "report/material_report.h"
#include "report/report_support.h"
#include "support/material_ptr.h"
#include "support/temp_files.h"

namespace qrvtest {
namespace {

class ReportEdges : public ReportTest {
protected:
    // The report of a record of the test's own making.
    static std::string reportOf(QrvMaterial* material, const char* module) {
        QRVFrmOut_StringStream stream;
        EXPECT_TRUE(qrv::report::printMaterialReport(material, module, "m.mtr", stream));
        return stream.str();
    }

    static void setComment(QrvMaterial& material, const std::string& text) {
        delete[] material.Comment;
        material.Comment = new char[text.size() + 1];
        std::memcpy(material.Comment, text.c_str(), text.size() + 1);
    }

    // The lines of one section: its label line and those below it, up to the next line that
    // stands at the depth of a section.
    static std::string sectionOf(const std::string& report, const std::string& label) {
        const std::size_t start = report.find("\n  " + label + "\n");
        if (start == std::string::npos) return {};
        std::size_t end = report.find('\n', start + 1);
        while (end + 1 < report.size() && report.compare(end + 1, 4, "    ") == 0)
            end = report.find('\n', end + 1);
        return report.substr(start + 1, end - start);
    }
};

TEST_F(ReportEdges, CommentOfOneCharacterShowsNoneAndOfTwoAsWritten) {
    MaterialPtr material = adopt(QrvGetDefaultMaterial(4, 2, false, 2, 2, 0));
    setComment(*material, "x");
    EXPECT_NE(reportOf(material.get(), "Filling").find("    Polymer Comment : None\n"),
              std::string::npos);
    setComment(*material, "xy");
    EXPECT_NE(reportOf(material.get(), "Filling").find("    Polymer Comment : xy\n"),
              std::string::npos);
    setComment(*material, "");
    EXPECT_NE(reportOf(material.get(), "Filling").find("    Polymer Comment : None\n"),
              std::string::npos);
}

TEST_F(ReportEdges, CommentOfAnyLengthShowsWhole) {
    MaterialPtr material = adopt(QrvGetDefaultMaterial(4, 2, false, 2, 2, 0));
    const std::string longText(70000, 'c');
    setComment(*material, longText);
    EXPECT_NE(reportOf(material.get(), "Cooling").find("    Polymer Comment : " + longText + "\n"),
              std::string::npos);
}

TEST_F(ReportEdges, OddHeatCapacityCountShowsItsLastValueWithoutTemperature) {
    MaterialPtr material = adopt(QrvGetDefaultMaterial(4, 2, false, 2, 2, 0));
    setBlock(material->Cp, 4, {1.5e7, 100.0, 2.5e7});
    EXPECT_EQ(sectionOf(reportOf(material.get(), "Cooling"), "Heat_Capacity"),
              "  Heat_Capacity\n"
              "    Heat Capacity Model : Tabulated Data\n"
              "    Tabulated Data - (Cp0) : 1.5e+07 erg/(g.oC) \n"
              "    Tabulated Data - (T0) : 100 degree C\n"
              "    Tabulated Data - (Cp1) : 2.5e+07 erg/(g.oC) \n");
}

TEST_F(ReportEdges, UnknownMechanicalModelOfAThermoplasticShowsItsTypeAlone) {
    MaterialPtr material = adopt(QrvGetDefaultMaterial(4, 2, false, 2, 2, 0));
    material->Mech.Model = 9;
    EXPECT_EQ(sectionOf(reportOf(material.get(), "Warpage"), "Polymer_Mechanical_Properties"),
              "  Polymer_Mechanical_Properties\n"
              "    Mechanical Type : Unknown mechanical model\n");
}

TEST_F(ReportEdges, ThermosetMechanicalLinesLeaveOutTheirMeltExpansionPlaces) {
    QRVSetReleaseVersionUnit(2);
    MaterialPtr material = makeRecord(QRV_TYPE_THERMOSET);
    setBlock(material->Mech, 1, {0.3, 0.35, 2e10, 1e10, 5e9, 1e-5, 2e-5, 3e-5, 4e-5, 7.0});
    // Indices 5 and 7 are left out, and 9 lies past the nine lines of model 1.
    EXPECT_EQ(sectionOf(reportOf(material.get(), "RIMFilling"), "Polymer_Mechanical_Properties"),
              "  Polymer_Mechanical_Properties\n"
              "    Mechanical Type : Anisotropic pure polymer\n"
              "    Poisson's ratio v12 : 0.3  \n"
              "    Poisson's ratio v23 : 0.35  \n"
              "    Modulus E1(flow direction) : 290080 psi\n"
              "    Modulus E2(transverse direction) : 145040 psi\n"
              "    Shear Modulus G : 72520 psi\n"
              "    CLTE a1(flow direction of solid) : 1.11112e-05 1/oF\n"
              "    CLTE a2(transverse direction of solid) : 2.22224e-05 1/oF\n");
}

TEST_F(ReportEdges, ThermosetFibreModelsShowFifteenPlacesWithoutTheMeltExpansion) {
    // Models 3 to 5 of a thermoset show indices 0 to 14, leaving out 3 (the melt expansion).
    MaterialPtr material = makeRecord(QRV_TYPE_THERMOSET);
    std::vector<double> mech(17);
    for (std::size_t i = 0; i < mech.size(); ++i)
        mech[i] = 1000.0 + static_cast<double>(i);
    setBlock(material->Mech, 3, mech);
    const std::string section =
        sectionOf(reportOf(material.get(), "RIMFilling"), "Polymer_Mechanical_Properties");
    EXPECT_NE(section.find("    Polymer density : 1000 "), std::string::npos) << section;
    EXPECT_NE(section.find("    Interaction Coefficient : 1014 "), std::string::npos) << section;
    EXPECT_EQ(section.find("1003"), std::string::npos) << section;
    EXPECT_EQ(section.find("1015"), std::string::npos) << section;
    EXPECT_EQ(section.find("1016"), std::string::npos) << section;
    // Fourteen lines and the model's own.
    EXPECT_EQ(std::count(section.begin(), section.end(), '\n'), 1 + 1 + 14) << section;
}

TEST_F(ReportEdges, UnknownCuringModelShowsUnlabelledLinesInTheUnitOfItsNumber) {
    MaterialPtr material = makeRecord(QRV_TYPE_THERMOSET);
    setBlock(material->KN, 9, {1.0, 0.5});
    // The unit id falls through to the model number: 9 is "(cm^2/dyne)^(1-n)".
    EXPECT_EQ(sectionOf(reportOf(material.get(), "RIMCuring"), "Curing_Kinetics"),
              "  Curing_Kinetics\n"
              "    Curing Kinetics Model : Unknown Conversion model\n"
              "     : 1 (cm^2/dyne)^(1-n)\n"
              "     : 0.5 (cm^2/dyne)^(1-n)\n");
}

TEST_F(ReportEdges, CrystallinityAndViscoelasticityLinesTakeTheUnitOfTheirNames) {
    QRVSetReleaseVersionUnit(1);
    MaterialPtr material = adopt(QrvGetDefaultMaterial(4, 2, false, 2, 2, 0));
    setBlock(material->CR, 1, {1.0, 2.0, 3.0, 4.0, 5.0, 200.0});
    setBlock(material->VE, 1, {100.0, 250.0});
    const std::string text = reportOf(material.get(), "Filling");
    EXPECT_EQ(sectionOf(text, "Crystallinity"),
              "  Crystallinity\n"
              "    Crystallinity Model : Nakamura model\n"
              "    Nakamura Model - (tm) : 1 sK^a\n"
              "    Nakamura Model - (a) : 2  \n"
              "    Nakamura Model - (1/tHalf0) : 3 1/s\n"
              "    Nakamura Model - (n) : 4  \n"
              "    Nakamura Model - (Kg) : 5 K^2\n"
              "    Nakamura Model - (Tm) : 473.15 K\n");
    EXPECT_EQ(sectionOf(text, "Viscoelasticity"),
              "  Viscoelasticity\n"
              "    VE Model : White-Metzner Model\n"
              "    G : 10 Pa\n"
              "    G : 25 Pa\n");
}

TEST_F(ReportEdges, ThermosetShowsOneEmptyWarningWhereTheSectionIsPrinted) {
    QRVSetInstallFolderPath(statisticsFolder().c_str());
    MATIO_Manipulator manipulator;
    ASSERT_TRUE(manipulator.GetMaterial(dataPath("sample_thermoset_9018.mtx").c_str()));
    const std::string text = report(manipulator, "Filling", "t.mtx");
    EXPECT_EQ(sectionOf(text, "Checking_Polymer_Data_Warning"),
              "  Checking_Polymer_Data_Warning\n    Warning : \n");
    // A thermoset's freeze temperature text is not made.
    EXPECT_NE(text.find("    Freeze Temperature : \n"), std::string::npos);
}

TEST_F(ReportEdges, ThermoplasticWithoutWarningsShowsNone) {
    TempFolder folder;  // no statistics file below it
    QRVSetInstallFolderPath(folder.root().c_str());
    MATIO_Manipulator manipulator;
    holdThermoplastic(manipulator);
    EXPECT_EQ(sectionOf(report(manipulator, "Cooling", "g.mtr"), "Checking_Polymer_Data_Warning"),
              "  Checking_Polymer_Data_Warning\n    Warning : None\n");
}

TEST_F(ReportEdges, NoInstallFolderLeavesTheWarningSectionEmpty) {
    MATIO_Manipulator manipulator;
    holdThermoplastic(manipulator);
    std::string expected = readText(reportData("thermoplastic_filling_base.txt"));
    expected.erase(expected.find("    Warning #1"));
    EXPECT_EQ(report(manipulator, "Filling", "generated.mtr"), expected);
}

TEST_F(ReportEdges, UnknownEmptyAndNullModulesPrintTheRootAlone) {
    QRVSetInstallFolderPath(statisticsFolder().c_str());
    MATIO_Manipulator manipulator;
    holdThermoplastic(manipulator);
    for (const char* module : {"Nothing", "", "filling", static_cast<const char*>(nullptr)})
        EXPECT_EQ(report(manipulator, module, "generated.mtr"), "Material_Information\n");
}

TEST_F(ReportEdges, UnitSystemVariableThatIsNotANumberMeansTheBaseSystem) {
    QRVSetInstallFolderPath(statisticsFolder().c_str());
    MATIO_Manipulator manipulator;
    holdThermoplastic(manipulator);
    const std::string base = readText(reportData("thermoplastic_filling_base.txt"));
    for (const char* value : {"SI", "", "1x", "7", "-1"}) {
        ::setenv("QUORVANE_UNIT_SYSTEM", value, 1);
        EXPECT_EQ(report(manipulator, "Filling", "generated.mtr"), base) << value;
    }
}

TEST_F(ReportEdges, RecordWithoutBlocksOrTexts) {
    MaterialPtr material = makeRecord();
    EXPECT_EQ(reportOf(material.get(), "Filling"),
              "Material_Information\n"
              "  General_Information\n"
              "    Material File : m.mtr\n"
              "    Material File Version : 0\n"
              "    Polymer Name : \n"
              "    Producer Name : \n"
              "    Polymer Trade Name : \n"
              "    Polymer Comment : None\n"
              "    Freeze Temperature : \n"
              "  Viscosity\n"
              "    Viscosity Model : Unknown viscosity model\n"
              "  PVT\n"
              "    PVT Model : Unknown PVT model\n"
              "  Crystallinity\n"
              "    Crystallinity Model : None\n"
              "  Heat_Capacity\n"
              "    Heat Capacity Model : Unknown Cp model\n"
              "  Thermal_Conductivity\n"
              "    Thermal Conductivity Model : Unknown K model\n"
              "  Polymer_Mechanical_Properties\n"
              "    Mechanical Type : No mechancial data\n"
              "  Viscoelasticity\n"
              "    VE Model : No viscoelastic data\n"
              "  Checking_Polymer_Data_Warning\n");
}

TEST_F(ReportEdges, CountWithoutParametersShowsTheModelLineAlone) {
    MaterialPtr material = adopt(QrvGetDefaultMaterial(4, 2, false, 2, 2, 0));
    delete[] material->Vis.Para;
    material->Vis.Para = nullptr;  // Count stays 5
    EXPECT_EQ(sectionOf(reportOf(material.get(), "Filling"), "Viscosity"),
              "  Viscosity\n    Viscosity Model : Modified Cross Model 2\n");
}

TEST_F(ReportEdges, FreshManipulatorPrintsNothing) {
    MATIO_Manipulator manipulator;
    QRVFrmOut_StringStream stream;
    EXPECT_FALSE(manipulator.GetLogString("Filling", "none.mtr", stream));
    EXPECT_EQ(stream.str(), "");
}

TEST_F(ReportEdges, NullMaterialFileShowsEmpty) {
    MATIO_Manipulator manipulator;
    holdThermoplastic(manipulator);
    EXPECT_NE(report(manipulator, "Cooling", nullptr).find("    Material File : \n"),
              std::string::npos);
}

}  // namespace
}  // namespace qrvtest
