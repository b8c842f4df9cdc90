// qrvmat info, dump, default and convert, run as processes on the sample files.
#include <quorvalib/quorvalib.h>

#include <cmath>

#include "qrvmat/tool_process.h"
#include "support/material_ptr.h"

namespace qrvtest {
namespace {

class MaterialFiles : public ToolTest {};

const nlohmann::json* findBlock(const nlohmann::json& info, const std::string& section) {
    for (const auto& block : info.at("blocks")) {
        if (block.at("section") == section) return &block;
    }
    return nullptr;
}

// The report shows each value with 6 significant digits.
void expectShown(double shown, double expected) {
    EXPECT_NEAR(shown, expected, std::fabs(expected) * 5e-6) << expected;
}

TEST_F(MaterialFiles, InfoJsonHasTheHeaderAndEveryParameterInBaseUnits) {
    const auto sample = readJson("sample_thermoplastic_9012.json").at("load").at("record");
    const ToolRun run = tool({"info", dataPath("sample_thermoplastic_9012.mtr"), "--json"});
    ASSERT_EQ(run.code, 0) << run.err;
    const auto info = parsed(run);
    EXPECT_EQ(info.at("type"), "Thermoplastic");
    EXPECT_EQ(info.at("polymer"), sample.at("Polymer"));
    EXPECT_EQ(info.at("producer"), sample.at("Producer"));
    EXPECT_EQ(info.at("grade"), sample.at("GradeName"));
    EXPECT_EQ(info.at("comment"), sample.at("Comment"));
    EXPECT_EQ(info.at("body_version"), sample.at("FileVer"));
    EXPECT_EQ(info.at("measure_date"), sample.at("MeasureDate"));
    EXPECT_EQ(info.at("units"), "base");

    const auto* viscosity = findBlock(info, "Viscosity");
    ASSERT_NE(viscosity, nullptr);
    EXPECT_EQ(viscosity->at("model"), "Modified Cross Model 3");
    const auto para = sample.at("Blocks").at("Vis").at("Para").get<std::vector<double>>();
    const auto& parameters = viscosity->at("parameters");
    ASSERT_EQ(parameters.size(), para.size());
    for (std::size_t i = 0; i < para.size(); ++i)
        expectShown(parameters[i].at("value"), para[i]);
    EXPECT_EQ(parameters[1].at("name"), "(Taus)");
    EXPECT_EQ(parameters[1].at("unit"), "dyne/cm^2");
    for (const char* section : {"PVT", "Crystallinity", "Heat_Capacity", "Thermal_Conductivity",
                                "Polymer_Mechanical_Properties", "Viscoelasticity"}) {
        EXPECT_NE(findBlock(info, section), nullptr) << section;
    }
}

TEST_F(MaterialFiles, InfoConvertsToSiAndEnglishUnits) {
    // Taus, stored in dyne/cm^2: 0.1 Pa and 1.4504e-05 psi per dyne/cm^2. The Cp table's first
    // temperature, 40 degree C: 313.15 K and 104 degree F.
    const double taus = 204026.1;
    const struct {
        const char* system;
        double taus;
        const char* unit;
        double firstTemperature;
    } systems[] = {{"si", taus * 0.1, "Pa", 313.15}, {"english", taus * 1.4504e-05, "psi", 104.0}};
    for (const auto& expected : systems) {
        SCOPED_TRACE(expected.system);
        const ToolRun run = tool({"info", dataPath("sample_thermoplastic_9012.mtr"), "--json",
                                  "--units", expected.system});
        ASSERT_EQ(run.code, 0) << run.err;
        const auto info = parsed(run);
        const auto& taus = findBlock(info, "Viscosity")->at("parameters")[1];
        expectShown(taus.at("value"), expected.taus);
        EXPECT_EQ(taus.at("unit"), expected.unit);
        expectShown(findBlock(info, "Heat_Capacity")->at("parameters")[1].at("value"),
                    expected.firstTemperature);
    }
}

TEST_F(MaterialFiles, InfoTextOfAThermosetShowsItsCuringKinetics) {
    const ToolRun run = tool({"info", dataPath("sample_thermoset_9018.mtx")});
    ASSERT_EQ(run.code, 0) << run.err;
    EXPECT_NE(run.out.find("type: Thermosetting plastic\n"), std::string::npos) << run.out;
    EXPECT_NE(run.out.find("Curing_Kinetics: Combined Model\n"), std::string::npos) << run.out;
    EXPECT_NE(run.out.find("Viscosity: Herschel-Bulkely Model\n"), std::string::npos);
}

TEST_F(MaterialFiles, DumpIsTheLibrarysContentText) {
    for (const char* name :
         {"sample_thermoplastic_9012.mtr", "sample_thermoset_9018.mtx", "sample_legacy.mtr"}) {
        SCOPED_TRACE(name);
        MaterialPtr material = adopt(QrvGetMaterial(dataPath(name).c_str()));
        ASSERT_TRUE(material);
        const std::string expected = QrvGetContent(material.get(), QrvIsThermoset(material.get()));
        const ToolRun run = tool({"dump", dataPath(name)});
        ASSERT_EQ(run.code, 0) << run.err;
        EXPECT_EQ(run.out, expected);
    }
    const auto legacy = readJson("sample_legacy.json").at("load").at("record");
    const ToolRun run = tool({"dump", dataPath("sample_legacy.mtr")});
    EXPECT_NE(run.out.find("Polymer     = " + legacy.at("Polymer").get<std::string>() + "\n"),
              std::string::npos)
        << run.out;
}

TEST_F(MaterialFiles, ConvertWritesTheOldFixedBlockInTheCurrentForm) {
    const ToolRun run = tool({"convert", dataPath("sample_legacy.mtr"), "new.mtr"});
    ASSERT_EQ(run.code, 0) << run.err;
    const auto bytes = readBytes(file("new.mtr"));
    ASSERT_GE(bytes.size(), 4u);
    // The current form opens with the lead word 9051, little-endian.
    EXPECT_EQ(bytes[0] | bytes[1] << 8 | bytes[2] << 16 | bytes[3] << 24, 9051);
    MaterialPtr converted = adopt(QrvGetMaterial(file("new.mtr").c_str()));
    ASSERT_TRUE(converted);
    const auto legacy = readJson("sample_legacy.json").at("load").at("record");
    expectText(converted->Polymer, legacy.at("Polymer"), "Polymer");
    expectText(converted->GradeName, legacy.at("GradeName"), "GradeName");
    expectBlock(converted->Vis, legacy.at("Blocks").at("Vis"), "Vis");
    expectBlock(converted->PVT, legacy.at("Blocks").at("PVT"), "PVT");
}

TEST_F(MaterialFiles, DefaultSavesAThermoplasticAndAThermoset) {
    ASSERT_EQ(tool({"default", "--vis", "5", "--pvt", "5", "--crystalline", "--polymer", "PLA",
                    "pla.mtr"})
                  .code,
              0);
    MaterialPtr plastic = adopt(QrvGetMaterial(file("pla.mtr").c_str()));
    ASSERT_TRUE(plastic);
    EXPECT_EQ(plastic->FileType, 1);
    EXPECT_EQ(plastic->FileVer, 7101);
    EXPECT_STREQ(plastic->Polymer, "PLA");
    EXPECT_STREQ(plastic->Producer, "Quorvane");
    EXPECT_EQ(plastic->Vis.Model, 5);
    EXPECT_EQ(plastic->PVT.Model, 5);

    ASSERT_EQ(tool({"default", "--vis", "12", "epoxy.mtx"}).code, 0);
    MaterialPtr thermoset = adopt(QrvGetMaterialRIM(file("epoxy.mtx").c_str()));
    ASSERT_TRUE(thermoset);
    EXPECT_EQ(thermoset->FileType, 2);
    EXPECT_EQ(thermoset->Vis.Model, 12);
    EXPECT_STREQ(thermoset->Polymer, "EMC");
    EXPECT_GE(thermoset->KN.Count, 6);
}

TEST_F(MaterialFiles, MissingAndDamagedFilesFailNamingTheFile) {
    ToolRun run = tool({"info", "missing.mtr"});
    EXPECT_EQ(run.code, 1);
    EXPECT_EQ(run.err, "qrvmat: missing.mtr: no such file\n");
    EXPECT_EQ(run.out, "");

    // A current-form lead word with nothing behind it, and a file of three bytes.
    const auto sample = readBytes(dataPath("sample_thermoplastic_9012.mtr"));
    for (std::size_t length : {std::size_t(4), std::size_t(3)}) {
        std::ofstream(file("damaged.mtr"), std::ios::binary)
            .write(reinterpret_cast<const char*>(sample.data()), std::streamsize(length));
        for (const char* command : {"info", "dump"}) {
            run = tool({command, "damaged.mtr"});
            EXPECT_EQ(run.code, 1) << command << length;
            EXPECT_EQ(run.err.rfind("qrvmat: damaged.mtr: not a readable material file", 0), 0u)
                << run.err;
        }
        run = tool({"convert", "damaged.mtr", "out.mtr"});
        EXPECT_EQ(run.code, 1);
        EXPECT_FALSE(std::filesystem::exists(file("out.mtr")));
    }
    run = tool({"convert", dataPath("sample_legacy.mtr"), "x.m"});
    EXPECT_EQ(run.code, 1);
    EXPECT_NE(run.err.find("x.m: the name is too short"), std::string::npos) << run.err;
}

}  // namespace
}  // namespace qrvtest
