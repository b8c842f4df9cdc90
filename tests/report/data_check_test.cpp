// The material data check against statistics files written here: each check alone, all together,
// none, the thresholds and the sentences word for word.
#include <gtest/gtest.h>

#include <cmath>
#include <filesystem>
#include <limits>
#include <sstream>
#include <string>
#include <vector>

#include "record/material_internal.h"
#include "report/polymer_data_check.h"
#include "support/fixture.h"
#include "support/material_ptr.h"
#include "support/temp_files.h"

using qrvtest::makeRecord;
using qrvtest::MaterialPtr;
using qrvtest::setBlock;

namespace {

const char kVisRange[] =
    "%d. The values of parameter %s of viscosity model are out of reasonable range.";
const char kPVTRange[] = "%d. The values of parameter %s of PVT model are out of reasonable range.";
const char kVisCurve[] = "%d. The viscosity values is out of 3*STD range.";
const char kPVTCurve[] = "%d. The specitific volume values may be out of 3*STD range.";
const char kFreeze[] =
    "%d. The freeze temperature is too close to the D2 parameter of viscosity WLF model.";
const char kTg[] =
    "%d. The input Tg in PVT model is too close to the D2 parameter of viscosity "
    "WLF model.";
const char kCpCurve[] = "%d. The heat capacity values is out of 3*STD range.";
const char kKCurve[] = "%d. The thermal conductivity values is out of 3*STD range.";

std::string sentence(const char* pattern, int number, const std::string& list = {}) {
    std::string text = pattern;
    text.replace(text.find("%d"), 2, std::to_string(number));
    const std::size_t s = text.find("%s");
    if (s != std::string::npos) text.replace(s, 2, list);
    return text;
}

std::string num(double v) {
    std::ostringstream out;
    out.precision(17);
    out << v;
    return out.str();
}

// One sample line: Condition Min Max Mean Std.
struct Sample {
    double condition, min, max, mean, std;
};

std::string sampleLines(const std::vector<Sample>& samples) {
    std::string text;
    for (const Sample& s : samples)
        text += num(s.condition) + " " + num(s.min) + " " + num(s.max) + " " + num(s.mean) + " " +
                num(s.std) + "\n";
    return text;
}

// Low, High per parameter.
std::string rangeLines(const std::vector<std::pair<double, double>>& ranges) {
    std::string text;
    for (const auto& [low, high] : ranges)
        text += num(low) + " " + num(high) + "\n";
    return text;
}

std::vector<Sample> same(int n, Sample s) {
    return std::vector<Sample>(static_cast<std::size_t>(n), s);
}

// Samples that every finite value meets.
std::vector<Sample> anything(int n) {
    return same(n, {1, -1e300, 0, 0, 1e299});
}

// The statistics of the class PP in which the quiet material below passes every check. Each
// field can be changed to make one check fire.
struct Stats {
    int materials = 30;
    std::vector<std::pair<double, double>> visRange{{100, 1000}};  // Newtonian Eta0
    std::vector<Sample> vis = same(5, {1, 0, 0, 500, 10});
    std::vector<std::pair<double, double>> pvtRange{{0.5, 2}};  // constant density
    std::vector<Sample> pvt = same(3, {300, 0, 0, 1.0, 0.01});
    std::vector<Sample> cp = same(3, {100, 0, 0, 2e7, 1e6});
    std::vector<Sample> k = same(3, {100, 0, 0, 2e4, 1e3});
    int visModel = 1, pvtModel = 1;

    std::string text() const {
        const std::string m = std::to_string(materials);
        return "statistics written by the test\n"
               "PP [Vis_Mode]\n" +
               std::to_string(visModel) + " " + m + "\n" + rangeLines(visRange) +
               "\nPP [Viscosity]\n230 " + m + "\n" + sampleLines(vis) + "\nPP [PVT_Mode]\n" +
               std::to_string(pvtModel) + " " + m + "\n" + rangeLines(pvtRange) +
               "\nPP [PVT]\n1e8 " + m + "\n" + sampleLines(pvt) + "\nPP [CP]\n" + m + "\n" +
               sampleLines(cp) + "\nPP [K]\n" + m + "\n" + sampleLines(k) + "\n[EOF]\n";
    }
};

// A thermoplastic of class PP with constant models: viscosity 500, volume 1, Cp 2e7, K 2e4.
MaterialPtr quietMaterial() {
    MaterialPtr m = makeRecord(QRV_TYPE_THERMOPLASTIC);
    delete[] m->Polymer;
    m->Polymer = qrv::newText("PP");
    m->FileVer = 9008;
    setBlock(m->Vis, 1, {500});
    setBlock(m->PVT, 1, {1.0});
    setBlock(m->Cp, 1, {2e7});
    setBlock(m->K, 1, {2e4});
    return m;
}

// An install folder holding Bank/System/StatData.sta.
class Install {
public:
    explicit Install(const std::string& statistics) {
        std::filesystem::create_directories(folder.root() / "Bank" / "System");
        qrvtest::writeFile((folder.root() / "Bank" / "System" / "StatData.sta").string(),
                           statistics);
    }
    std::string path() const { return folder.root().string() + "/"; }
    std::string check(QrvMaterial* material) const {
        CQrvPolymerDataCheck check(path().c_str(), material);
        return check.CheckMaterial();
    }

private:
    qrvtest::TempFolder folder;
};

std::string checkWith(const Stats& stats, QrvMaterial* material) {
    return Install(stats.text()).check(material);
}

}  // namespace

TEST(DataCheck, StatisticsPathIsBuiltBelowTheInstallFolder) {
    MaterialPtr m = quietMaterial();
    CQrvPolymerDataCheck check("/opt/qrv/", m.get());
    EXPECT_EQ(check.GetStatFilePath(), "/opt/qrv/Bank/System/StatData.sta");
    CQrvPolymerDataCheck bare(nullptr, m.get());
    EXPECT_EQ(bare.GetStatFilePath(), "Bank/System/StatData.sta");
}

TEST(DataCheck, NothingFiresGivesNone) {
    MaterialPtr m = quietMaterial();
    EXPECT_EQ(checkWith(Stats{}, m.get()), "None");
}

TEST(DataCheck, OtherMaterialTypesGiveTheEmptyText) {
    Stats stats;
    stats.vis = same(5, {1, 0, 0, 5000, 1});  // would fire for a thermoplastic
    const Install install(stats.text());
    for (int type : std::initializer_list<int>{QRV_TYPE_THERMOSET, QRV_TYPE_METAL, QRV_TYPE_COOLANT,
                                               QRV_TYPE_IC_CHIP, 0, 5}) {
        MaterialPtr m = quietMaterial();
        m->FileType = type;
        EXPECT_EQ(install.check(m.get()), "") << type;
    }
    EXPECT_EQ(install.check(nullptr), "");
}

TEST(DataCheck, EachCheckFiresAlone) {
    struct Case {
        const char* name;
        void (*change)(Stats&);
        std::string expected;
    };
    const Case cases[] = {
        {"viscosity range",
         [](Stats& s) {
             s.visRange = {{100, 40}};
         },
         sentence(kVisRange, 1, "1")},
        {"viscosity curve",
         [](Stats& s) {
             s.vis = same(5, {1, 0, 0, 600, 10});
         },
         sentence(kVisCurve, 1)},
        {"PVT range",
         [](Stats& s) {
             s.pvtRange = {{20, 30}};
         },
         sentence(kPVTRange, 1, "1")},
        {"PVT curve",
         [](Stats& s) {
             s.pvt = same(3, {300, 0, 0, 0.9, 0.01});
         },
         sentence(kPVTCurve, 1)},
        {"heat capacity",
         [](Stats& s) {
             s.cp = same(3, {100, 0, 0, 3e7, 1e6});
         },
         sentence(kCpCurve, 1)},
        {"conductivity",
         [](Stats& s) {
             s.k = same(3, {100, 0, 0, 1e4, 1e3});
         },
         sentence(kKCurve, 1)},
    };
    for (const Case& c : cases) {
        SCOPED_TRACE(c.name);
        Stats stats;
        c.change(stats);
        MaterialPtr m = quietMaterial();
        EXPECT_EQ(checkWith(stats, m.get()), c.expected);
    }
}

TEST(DataCheck, AllCurveAndRangeChecksTogetherAreNumberedInOrder) {
    Stats stats;
    stats.visRange = {{100, 40}};
    stats.vis = same(5, {1, 0, 0, 600, 10});
    stats.pvtRange = {{20, 30}};
    stats.pvt = same(3, {300, 0, 0, 0.9, 0.01});
    stats.cp = same(3, {100, 0, 0, 3e7, 1e6});
    stats.k = same(3, {100, 0, 0, 1e4, 1e3});
    MaterialPtr m = quietMaterial();
    EXPECT_EQ(checkWith(stats, m.get()), sentence(kVisRange, 1, "1") + sentence(kVisCurve, 2) +
                                             sentence(kPVTRange, 3, "1") + sentence(kPVTCurve, 4) +
                                             sentence(kCpCurve, 5) + sentence(kKCurve, 6));
}

TEST(DataCheck, NumbersHaveNoGaps) {
    // Only the PVT range and the conductivity fire: 1 and 2.
    Stats stats;
    stats.pvtRange = {{20, 30}};
    stats.k = same(3, {100, 0, 0, 1e4, 1e3});
    MaterialPtr m = quietMaterial();
    EXPECT_EQ(checkWith(stats, m.get()), sentence(kPVTRange, 1, "1") + sentence(kKCurve, 2));
}

TEST(DataCheck, FewerThanTwentyMaterialsSkipEveryStatisticalCheck) {
    Stats stats;
    stats.materials = 19;
    stats.visRange = {{100, 40}};
    stats.vis = same(5, {1, 0, 0, 600, 10});
    stats.pvtRange = {{20, 30}};
    stats.k = same(3, {100, 0, 0, 1e4, 1e3});
    MaterialPtr m = quietMaterial();
    EXPECT_EQ(checkWith(stats, m.get()), "None");
    stats.materials = 20;
    EXPECT_EQ(checkWith(stats, m.get()), sentence(kVisRange, 1, "1") + sentence(kVisCurve, 2) +
                                             sentence(kPVTRange, 3, "1") + sentence(kKCurve, 4));
}

TEST(DataCheck, ParameterRangeBoundsAreStrictAndTenfold) {
    // Modified Cross 1, limits High 1000 and Low 1 on every parameter.
    Stats stats;
    stats.visModel = 3;
    stats.visRange = std::vector<std::pair<double, double>>(5, {1, 1000});
    stats.vis = anything(5);
    MaterialPtr m = quietMaterial();
    setBlock(m->Vis, 3, {10000, 0.1, 5, 5, 5});
    EXPECT_EQ(checkWith(stats, m.get()), "None");
    setBlock(m->Vis, 3, {5, 10000.5, 5, 5, 0.0999});
    EXPECT_EQ(checkWith(stats, m.get()), sentence(kVisRange, 1, "2, 5"));
    // A parameter that is not a number is not flagged; the viscosity it gives fails every sample.
    setBlock(m->Vis, 3, {std::numeric_limits<double>::quiet_NaN(), 5, 5, 5, 5});
    EXPECT_EQ(checkWith(stats, m.get()), sentence(kVisCurve, 1));
}

TEST(DataCheck, ModelWithoutARangeBlockIsNotRangeChecked) {
    // The file speaks of the power law only; the Newtonian material is not measured against it.
    Stats stats;
    stats.visModel = 2;
    stats.visRange = {{1e9, 1e10}};
    MaterialPtr m = quietMaterial();
    EXPECT_EQ(checkWith(stats, m.get()), "None");
    setBlock(m->Vis, 2, {0.0, 500, 0});  // the same viscosity, now of the model the file knows
    EXPECT_EQ(checkWith(stats, m.get()), sentence(kVisRange, 1, "1"));
}

TEST(DataCheck, ModelZeroHasARangeRowOfItsOwn) {
    // Rows of the file start at model id 0: a PVT block of model 0 is measured against the row of
    // model 0 (it has no evaluator, so no curve is checked).
    Stats stats;
    stats.pvtModel = 0;
    stats.pvtRange = {{0.5, 2}};
    MaterialPtr m = quietMaterial();
    setBlock(m->PVT, 0, {100.0});  // above ten times the high limit of 2
    EXPECT_EQ(checkWith(stats, m.get()), sentence(kPVTRange, 1, "1"));
    setBlock(m->PVT, 0, {1.0});
    EXPECT_EQ(checkWith(stats, m.get()), "None");
}

TEST(DataCheck, OneFailingParameterIsStillPlural) {
    Stats stats;
    stats.visModel = 3;
    stats.visRange = std::vector<std::pair<double, double>>(5, {1, 1000});
    stats.vis = anything(5);
    MaterialPtr m = quietMaterial();
    setBlock(m->Vis, 3, {5, 5, 5, 5, 1e9});
    const std::string text = checkWith(stats, m.get());
    EXPECT_EQ(text, "1. The values of parameter 5 of viscosity model are out of reasonable range.");
}

TEST(DataCheck, NegativeLowIsTightenedByTheDivision) {
    // Low -10 gives a bound of -1: -5 lies below it.
    Stats stats;
    stats.pvtRange = {{-10, 100}};
    MaterialPtr m = quietMaterial();
    setBlock(m->PVT, 1, {-5});
    stats.pvt = same(3, {300, -1, 0, -0.2, 0.001});  // the volume -0.2 stays in range
    EXPECT_EQ(checkWith(stats, m.get()), sentence(kPVTRange, 1, "1"));
}

TEST(DataCheck, CurveNeedsEverySampleToFail) {
    Stats stats;
    stats.vis = same(5, {1, 0, 0, 600, 10});
    stats.vis[2] = {100, 0, 0, 500, 10};  // four of five out of range
    MaterialPtr m = quietMaterial();
    EXPECT_EQ(checkWith(stats, m.get()), "None");
    stats.vis[2] = {100, 0, 0, 600, 10};
    EXPECT_EQ(checkWith(stats, m.get()), sentence(kVisCurve, 1));
}

TEST(DataCheck, NegativeLowerBoundBecomesMin) {
    // Mean 5, Std 2, Min 0.5: Lower 0.5 and Upper 11.
    Stats stats;
    stats.cp = same(3, {100, 0.5, 0, 5, 2});
    MaterialPtr m = quietMaterial();
    for (double inside : {0.5, 5.0, 11.0}) {
        setBlock(m->Cp, 1, {inside});
        EXPECT_EQ(checkWith(stats, m.get()), "None") << inside;
    }
    for (double outside : {0.49, 11.01, -1.0}) {
        setBlock(m->Cp, 1, {outside});
        EXPECT_EQ(checkWith(stats, m.get()), sentence(kCpCurve, 1)) << outside;
    }
}

TEST(DataCheck, LowerBoundOfExactlyZeroStands) {
    // Mean 3, Std 1: Lower is 0.0 and is not replaced by Min 2.
    Stats stats;
    stats.k = same(3, {100, 2, 0, 3, 1});
    MaterialPtr m = quietMaterial();
    setBlock(m->K, 1, {1.0});
    EXPECT_EQ(checkWith(stats, m.get()), "None");
    setBlock(m->K, 1, {-0.5});
    EXPECT_EQ(checkWith(stats, m.get()), sentence(kKCurve, 1));
}

TEST(DataCheck, ValueThatIsNotANumberFails) {
    Stats stats;
    MaterialPtr m = quietMaterial();
    setBlock(m->Cp, 1, {std::numeric_limits<double>::quiet_NaN()});
    EXPECT_EQ(checkWith(stats, m.get()), sentence(kCpCurve, 1));
}

TEST(DataCheck, EvaluatorsSeeTheFileConditions) {
    // Power law at 230 C: B e^(Tb/T) g^(n-1) at the sampled shear rates; the samples are set
    // around the values computed here, so only a wrong temperature or shear rate would fire.
    const double n = 0.4, B = 2.0, Tb = 3000;
    auto eta = [&](double g) { return B * std::exp(Tb / (230 + 273.15)) * std::pow(g, n - 1); };
    Stats stats;
    stats.visModel = 2;
    stats.visRange = {{0.1, 1}, {1, 10}, {1000, 5000}};
    stats.vis.clear();
    for (double g : {1.0, 10.0, 100.0, 1000.0, 10000.0})
        stats.vis.push_back({g, 0, 0, eta(g), eta(g) * 1e-6});
    // Specific volume of Spencer-Gilmore at 1e8 and the absolute temperatures of the file.
    const double V0 = 0.8, P0 = 3e9, R = 2e6;
    auto volume = [&](double T) { return V0 + R * T / (1e8 + P0); };
    stats.pvtModel = 2;
    stats.pvtRange = {{0.1, 1}, {1e9, 1e10}, {1e6, 1e7}};
    stats.pvt.clear();
    for (double T : {300.0, 450.0, 550.0})
        stats.pvt.push_back({T, 0, 0, volume(T), volume(T) * 1e-9});
    MaterialPtr m = quietMaterial();
    setBlock(m->Vis, 2, {n, B, Tb});
    setBlock(m->PVT, 2, {V0, P0, R});
    EXPECT_EQ(checkWith(stats, m.get()), "None");
    setBlock(m->PVT, 2, {V0 * 1.001, P0, R});
    EXPECT_EQ(checkWith(stats, m.get()), sentence(kPVTCurve, 1));
}

TEST(DataCheck, D2DistanceOfNewBodies) {
    // Modified Cross 3 and Modified Tait 2, body 9006 on: limit (Temp[7] + 43) + 273.15.
    MaterialPtr m = quietMaterial();
    setBlock(m->Vis, 5, {0.3, 1e5, 1e12, 0, 0, 30, 51.6});
    setBlock(m->PVT, 5, std::vector<double>(13, 1.0));
    setBlock(m->Temp, 0, {0, 0, 0, 0, 0, 0, 0, 100});
    const double limit = (100 + 43.0) + 273.15;
    const Install install("[EOF]\n");
    for (int fileVer : {9006, 19006, 9012}) {
        m->FileVer = fileVer;
        m->Vis.Para[3] = limit;
        EXPECT_EQ(install.check(m.get()), "None") << fileVer;
        m->Vis.Para[3] = std::nextafter(limit, 1e9);
        EXPECT_EQ(install.check(m.get()), sentence(kFreeze, 1)) << fileVer;
    }
}

TEST(DataCheck, D2DistanceOfOldBodiesUsesTheTransition) {
    MaterialPtr m = quietMaterial();
    setBlock(m->Vis, 5, {0.3, 1e5, 1e12, 0, 0, 30, 51.6});
    std::vector<double> tait(13, 1.0);
    tait[8] = 380;
    setBlock(m->PVT, 5, tait);
    m->FileVer = 9005;  // and no Temp block: it is not read
    const Install install("[EOF]\n");
    m->Vis.Para[3] = 423;
    EXPECT_EQ(install.check(m.get()), "None");
    m->Vis.Para[3] = 423.5;
    EXPECT_EQ(install.check(m.get()), sentence(kTg, 1));
    // Other model pairs are not checked.
    // Only the last four digits count: 19005 is an old body too.
    m->FileVer = 19005;
    EXPECT_EQ(install.check(m.get()), sentence(kTg, 1));
    m->PVT.Model = 4;
    EXPECT_EQ(install.check(m.get()), "None");
}

TEST(DataCheck, MissingFileLeavesOnlyTheD2Check) {
    MaterialPtr m = quietMaterial();
    setBlock(m->Vis, 5, {0.3, 1e5, 1e12, 500, 0, 30, 51.6});
    std::vector<double> tait(13, 1.0);
    tait[8] = 380;
    setBlock(m->PVT, 5, tait);
    m->FileVer = 9004;
    qrvtest::TempFolder empty;
    CQrvPolymerDataCheck check((empty.root().string() + "/").c_str(), m.get());
    EXPECT_EQ(check.CheckMaterial(), sentence(kTg, 1));
}

TEST(DataCheck, EveryCheckFiresForTheRichModels) {
    // Modified Cross 3 and Modified Tait 2 against statistics that nothing can meet.
    Stats stats;
    stats.visModel = 5;
    stats.visRange = std::vector<std::pair<double, double>>(7, {1e-31, 1e-30});
    stats.vis = same(5, {1, 0, 0, 1e30, 1});
    stats.pvtModel = 5;
    stats.pvtRange = std::vector<std::pair<double, double>>(13, {1e-31, 1e-30});
    stats.pvt = same(3, {400, 0, 0, 1e30, 1});
    stats.cp = same(3, {100, 0, 0, 1e30, 1});
    stats.k = same(3, {100, 0, 0, 1e30, 1});
    MaterialPtr m = quietMaterial();
    m->FileVer = 9008;
    setBlock(m->Vis, 5, {0.3, 1e5, 1e12, 500, 0, 30, 51.6});
    setBlock(m->PVT, 5, {1, 1e-3, 2e9, 4e-3, 1, 2e-4, 3e9, 3e-3, 400, 1e-7, 0.01, 0.05, 1e-9});
    setBlock(m->Temp, 0, {1, 1, 1, 1, 1, 1, 1, 100});
    EXPECT_EQ(checkWith(stats, m.get()),
              sentence(kVisRange, 1, "1, 2, 3, 4, 5, 6, 7") + sentence(kVisCurve, 2) +
                  sentence(kPVTRange, 3, "1, 2, 3, 4, 5, 6, 7, 8, 9, 10, 11, 12, 13") +
                  sentence(kPVTCurve, 4) + sentence(kFreeze, 5) + sentence(kCpCurve, 6) +
                  sentence(kKCurve, 7));
}

TEST(DataCheck, ModelWithoutAClassSkipsItsCurve) {
    // Viscosity model 8 has no class and model 7 no range row; both keep the check quiet, as
    // does a PVT model 6 and a conductivity model 5.
    Stats stats;
    stats.vis = same(5, {1, 0, 0, 1e30, 1});
    stats.pvt = same(3, {400, 0, 0, 1e30, 1});
    stats.k = same(3, {100, 0, 0, 1e30, 1});
    MaterialPtr m = quietMaterial();
    setBlock(m->Vis, 8, std::vector<double>(9, 1.0));
    setBlock(m->PVT, 6, {1, 1, 1, 1});
    setBlock(m->K, 5, {1, 1});
    EXPECT_EQ(checkWith(stats, m.get()), "None");
    // Carreau-Yasuda has a class: its curve is checked, though no range row exists for it.
    setBlock(m->Vis, 7, {0.3, 1e5, 1e-3, 5000, 0, 2, 0});
    EXPECT_EQ(checkWith(stats, m.get()), sentence(kVisCurve, 1));
}

TEST(DataCheck, DamagedBlocksAreNotChecked) {
    Stats stats;
    stats.visModel = 5;
    stats.visRange = std::vector<std::pair<double, double>>(7, {1e-31, 1e-30});
    stats.vis = same(5, {1, 0, 0, 1e30, 1});
    stats.pvt = same(3, {400, 0, 0, 1e30, 1});
    MaterialPtr m = quietMaterial();
    qrvtest::setNullBlock(m->Vis, 5, 7);  // a count without an array
    setBlock(m->PVT, 5, {1, 1, 1});       // shorter than its model
    setBlock(m->Temp, 0, {1});            // no freeze temperature
    qrvtest::setNullBlock(m->Cp, 1, -3);  // a negative count
    EXPECT_EQ(checkWith(stats, m.get()), "None");
    // More parameters than a row holds: not checked either.
    setBlock(m->Vis, 5, std::vector<double>(8, 1.0));
    EXPECT_EQ(checkWith(stats, m.get()), sentence(kVisCurve, 1));
}

TEST(DataCheck, SampleFileForAConstantMaterial) {
    // PLA of the sample file. Viscosity 3500 lies within the first sample; Cp 1.85e7 within the
    // second; K 5e4 lies above all three conductivity samples (upper bounds 2.5e4, 2.6e4,
    // 2.85e4). The volume 1/1.25 = 0.8 is within the first PVT sample.
    std::ifstream in(qrvtest::dataPath("StatData.sta"), std::ios::binary);
    const std::string text((std::istreambuf_iterator<char>(in)), std::istreambuf_iterator<char>());
    const Install install(text);
    MaterialPtr m = quietMaterial();
    delete[] m->Polymer;
    m->Polymer = qrv::newText("PLA");
    setBlock(m->Vis, 1, {3500});
    setBlock(m->PVT, 1, {1.25});
    setBlock(m->Cp, 1, {1.85e7});
    setBlock(m->K, 1, {5e4});
    EXPECT_EQ(install.check(m.get()), sentence(kKCurve, 1));
    setBlock(m->K, 1, {2e4});
    EXPECT_EQ(install.check(m.get()), "None");
    // The class word in another case is another class: only check 5 could fire.
    delete[] m->Polymer;
    m->Polymer = qrv::newText("pla");
    setBlock(m->K, 1, {5e4});
    EXPECT_EQ(install.check(m.get()), "None");
}

TEST(DataCheck, DamagedStatisticsFilesEndWithAText) {
    MaterialPtr m = quietMaterial();
    std::string noise;
    unsigned state = 99;
    for (int i = 0; i < 50000; ++i) {
        state = state * 1103515245u + 12345u;
        noise += static_cast<char>(state >> 16);
        if (i % 997 == 0) noise += "\nPP [CP] [K] [Viscosity] [Vis_Mode]\n";
    }
    EXPECT_FALSE(Install(noise).check(m.get()).empty());
    EXPECT_EQ(Install("PP [K]\n30\n" + std::string(200000, ' ')).check(m.get()), "None");
    std::string many = "PP [Vis_Mode]\n1 30\n";
    for (int i = 0; i < 1000; ++i)
        many += "1 1e301\n";
    EXPECT_EQ(Install(many + "\n[EOF]\n").check(m.get()), "None");
    EXPECT_EQ(Install("PP [Vis_Mode]\n99 30\n1 2\n\nPP [PVT_Mode]\n-7 30\n1 2\n\n").check(m.get()),
              "None");
    EXPECT_EQ(Install("PP [CP]\nx\nnan nan nan nan nan\n\n").check(m.get()), "None");
}
