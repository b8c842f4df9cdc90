// The default material generator: the common start, both branches, and every sample value.
#include <gtest/gtest.h>

#include <quorvalib/defaults.h>

#include <string>
#include <vector>

#include "defaults/array_sizes.h"
#include "support/material_ptr.h"

using qrvtest::adopt;
using qrvtest::values;
using Values = std::vector<double>;

namespace {

// The sample data, typed here independently of the library's tables.
const Values kVis[] = {
    {},
    {1.0},
    {0.429888, 498.746, 2332.14},
    {0.3036, 0.0001051, 6.484e-07, 12720.0, 2.4e-09},
    {0.27845, 876860.0, 1.1326e-06, 11642.0, 0.0},
    {0.25883, 1026900.0, 4.7127e+14, 373.15, 0.0, 30.5, 46.0},
};
const Values kPvtCrystalline5 = {1.243223,     0.0008717028, 803245700.0, 0.005057665, 1.174659,
                                 0.0006479683, 966552700.0,  0.006852022, 448.5,       6.625e-09,
                                 0.05328416,   0.1,          6.625e-10};
const Values kPvtAmorphous5 = {0.9057,     0.00053647,   1656600000.0, 0.0043988, 0.90568,
                               0.00015025, 1949000000.0, 0.0035078,    364.0,     1.1596e-08,
                               0.0,        0.0,          0.0};
const Values kCp[] = {
    {},
    {23074000.0},
    {20000000.0, 125, 20610000.0, 225},
    {14420000.0, 55, 17260000.0, 100, 20700000.0, 150, 22740000.0, 255},
};
const Values kK[] = {{}, {23450.0}, {24000.0, 60, 31500.0, 260}};
const Values kMech[] = {
    {0.38, 0.38, 2e+10, 2e+10, 7246377000.0, 9.5e-05, 9.5e-05},
    {0.156, 0.294, 4.48e+10, 2.38e+10, 8.7e+10, 2.2e-06, 9.38e-06},
    {0.156, 0.294, 4.48e+10, 2.38e+10, 8.7e+10, 9.38e-06, 2.2e-06, 20.0, 0.01, 15.0},
    {1.0, 0.3, 2e+10, 2e-05, 15.0, 2.55, 0.2, 7e+11, 7e+11, 3e+11, 5e-06, 5e-06, 20.0, 0.01},
    {1.0, 0.3, 2e+10, 2e-05, 15.0, 2.55, 0.2, 7e+11, 7e+11, 3e+11, 5e-06, 5e-06, 20.0, 0.01},
    {1.0, 0.3, 2e+10, 2e-05, 15.0, 1.78, 0.26, 2.3e+12, 2.3e+11, 9e+10, -1.5e-06, 1e-05, 20.0,
     0.01},
};
const Values kTemp = {200, 225, 250, 40, 60, 80, 88, 130};

struct ThermosetRow {
    int visId;
    Values vis;
    double pvt, cp, k;
    Values kn;
};
const ThermosetRow kThermosets[] = {
    {10,
     {0.69, 6.9179, 1.9442, 0.01682, 3570.21},
     1.93,
     5700000.0,
     65486.0,
     {0.39, 1.12, 15426.0, 10886000.0, 8332.76, 8332.76, 542000000.0}},
    {11,
     {-13.72626, -45.23453, 11.03065, 8686.252, 17649.07, -4093.336, 0.5490999, 1.817284,
      -0.2455251, 0.45, 0.22},
     1.26,
     10780000.0,
     74000.0,
     {0.2764993, 1.209955, 2.462749e+40, 104056.8, 48065.67, 6975.487, 950000000.0}},
    {12,
     {1.0, 9.31, 1.893e-05, 0.03115, 8916.0, 0.4514, 0.0234},
     2.0,
     10000000.0,
     97000.0,
     {0.1812, 1.193, 84350000.0, 80600000.0, 10420.0, 9610.0, 950000000.0}},
    {13,
     {0.85, 23220000.0, 25.85, 179.6, 5.13, 1.2, 0.682, 8570.0, 293.0, 0.0},
     2.0,
     10000000.0,
     97000.0,
     {0.342, 1.14, 0.1, 17200000.0, 19796.0, 8866.0, 950000000.0}},
};

void expectBlock(const QrvMatParam& block, int source, int model, const Values& expected) {
    EXPECT_EQ(block.Source, source);
    EXPECT_EQ(block.Model, model);
    EXPECT_EQ(block.Count, static_cast<int>(expected.size()));
    EXPECT_EQ(values(block), expected);
    if (expected.empty()) {
        EXPECT_EQ(block.Para, nullptr);
    }
}

void expectEmpty(const QrvMatParam& block, int source = 0) {
    expectBlock(block, source, 0, {});
}

void expectCommonStart(QrvMaterial* m) {
    EXPECT_EQ(m->FileVer, 7101);
    EXPECT_EQ(m->LastEditDate, 20041215);
    EXPECT_EQ(m->MeasureDate, 20041215);
    EXPECT_EQ(m->FileType, 1);
    EXPECT_STREQ(m->Producer, "Quorvane");
    EXPECT_STREQ(m->GradeName, "Default");
    EXPECT_STREQ(m->Source, "Default");
    EXPECT_EQ(m->VisRaw, nullptr);
    EXPECT_EQ(m->PVTRaw, nullptr);
    EXPECT_EQ(m->MTC, nullptr);
    for (const QrvMatParam* never :
         {&m->EM, &m->PR, &m->CLTE, &m->VE, &m->OP, &m->SI, &m->CR, &m->PW}) {
        expectEmpty(*never);
    }
}

}  // namespace

TEST(DefaultMaterial, AmorphousCommentText) {
    auto m = adopt(QrvGetDefaultMaterial(1, 1, false, 1, 1, 0));
    expectCommonStart(m.get());
    EXPECT_STREQ(m->Polymer, "Polymer");
    EXPECT_STREQ(m->Comment, "Vis=1,PVT=1,Cp=1,K=1,Filler=0(Amorphous)");
}

TEST(DefaultMaterial, CrystallineTaitSampleAndTheoreticalFiller) {
    auto m = adopt(QrvGetDefaultMaterial(5, 5, true, 2, 2, 3));
    EXPECT_STREQ(m->Comment, "Vis=5,PVT=5,Cp=2,K=2,Filler=3(Crystalline)");
    EXPECT_EQ(m->PVT.Count, 13);
    EXPECT_EQ(m->PVT.Para[8], 448.5);
    EXPECT_EQ(m->Mech.Model, 3);
}

// Every sample row of the thermoplastic branch, through every combination of ids.
TEST(DefaultMaterial, EveryThermoplasticSampleValue) {
    for (int visId = 0; visId <= 9; ++visId)
        for (int pvtId : {0, 1, 2, 3, 4, 5, 6, 7})
            for (bool crystalline : {false, true})
                for (int cpId = 0; cpId <= 4; ++cpId)
                    for (int kId = 0; kId <= 3; ++kId)
                        for (int fillerId : {-1, 0, 1, 2, 3, 4, 5, 6}) {
                            auto m = adopt(QrvGetDefaultMaterial(visId, pvtId, crystalline, cpId,
                                                                 kId, fillerId));
                            SCOPED_TRACE(m->Comment);
                            expectCommonStart(m.get());
                            const Values vis = visId <= 5 ? kVis[visId] : Values{};
                            expectBlock(m->Vis, 1000, vis.empty() ? 0 : visId, vis);
                            Values pvt;
                            if (pvtId == 1) pvt = {1.0};
                            if (pvtId == 2) pvt = kVis[3];  // the same five numbers
                            if (pvtId == 5) pvt = crystalline ? kPvtCrystalline5 : kPvtAmorphous5;
                            expectBlock(m->PVT, 1000, pvt.empty() ? 0 : pvtId, pvt);
                            const Values cp = cpId <= 3 ? kCp[cpId] : Values{};
                            expectBlock(m->Cp, 1000, cp.empty() ? 0 : cpId, cp);
                            const Values k = kId <= 2 ? kK[kId] : Values{};
                            expectBlock(m->K, 1000, k.empty() ? 0 : kId, k);
                            if (fillerId >= 0 && fillerId <= 5) {
                                expectBlock(m->Mech, 1000, fillerId, kMech[fillerId]);
                            } else {
                                expectEmpty(m->Mech, 1000);
                            }
                            expectBlock(m->Temp, 1000, 2, kTemp);
                            expectEmpty(m->KN);
                            if (::testing::Test::HasFailure()) return;
                        }
}

TEST(DefaultMaterial, CrystallineChangesOnlyCommentAndTaitRow) {
    for (int pvtId : {1, 2, 5}) {
        auto a = adopt(QrvGetDefaultMaterial(4, pvtId, false, 3, 2, 2));
        auto c = adopt(QrvGetDefaultMaterial(4, pvtId, true, 3, 2, 2));
        EXPECT_STRNE(a->Comment, c->Comment);
        EXPECT_EQ(values(a->PVT) == values(c->PVT), pvtId != 5);
        EXPECT_EQ(a->PVT.Count, c->PVT.Count);
        for (auto block : {&QrvMaterial::Vis, &QrvMaterial::Cp, &QrvMaterial::K, &QrvMaterial::Mech,
                           &QrvMaterial::Temp}) {
            EXPECT_EQ(values(a.get()->*block), values(c.get()->*block));
        }
        EXPECT_STREQ(a->Polymer, c->Polymer);
    }
}

TEST(DefaultMaterial, PvtWithoutSampleKeepsOnlyItsSource) {
    for (int pvtId : {3, 4, 6, 7}) {
        auto m = adopt(QrvGetDefaultMaterial(2, pvtId, true, 1, 1, 0));
        EXPECT_EQ(m->PVT.Para, nullptr);
        EXPECT_EQ(m->PVT.Source, 1000);
        EXPECT_EQ(m->PVT.Count, 0);
    }
}

TEST(DefaultMaterial, UnevaluatedViscosityIdsLeaveVisEmpty) {
    for (int visId : {6, 7, 8, 9}) {
        auto m = adopt(QrvGetDefaultMaterial(visId, 5, false, 1, 1, 0));
        EXPECT_EQ(m->FileType, 1);
        EXPECT_STREQ(m->Polymer, "Polymer");
        EXPECT_EQ(m->Vis.Para, nullptr);
        EXPECT_EQ(m->Vis.Source, 1000);
    }
}

TEST(DefaultMaterial, EveryThermosetSampleValue) {
    for (const ThermosetRow& row : kThermosets) {
        SCOPED_TRACE(row.visId);
        // The other ids have no effect on this branch.
        auto m = adopt(QrvGetDefaultMaterial(row.visId, 5, true, 3, 2, 5));
        expectCommonStart(m.get());
        EXPECT_STREQ(m->Polymer, "EMC");
        EXPECT_EQ(std::string(m->Comment), "Vis=" + std::to_string(row.visId));
        expectBlock(m->Vis, 1000, row.visId, row.vis);
        expectBlock(m->PVT, 1000, 1, {row.pvt});
        expectBlock(m->Cp, 1000, 1, {row.cp});
        expectBlock(m->K, 1000, 1, {row.k});
        expectBlock(m->KN, 1000, 2, row.kn);
        expectEmpty(m->Mech);
        expectEmpty(m->Temp);
    }
}

TEST(DefaultMaterial, ThermosetKeepsFileTypeOne) {
    auto m = adopt(QrvGetDefaultMaterial(10, 0, false, 0, 0, 0));
    EXPECT_EQ(m->FileType, 1);
    EXPECT_EQ(m->Vis.Model, 10);
    EXPECT_EQ(m->Temp.Para, nullptr);
    EXPECT_FALSE(QrvIsRIM(m.get()));
}

// Above 13 the thermoset blocks are allocated without sample values; they read as zeros here.
TEST(DefaultMaterial, ThermosetAboveThirteenHasZeroedBlocks) {
    for (int visId : {14, 99}) {
        auto m = adopt(QrvGetDefaultMaterial(visId, 1, false, 1, 1, 1));
        EXPECT_STREQ(m->Polymer, "EMC");
        EXPECT_EQ(std::string(m->Comment), "Vis=" + std::to_string(visId));
        expectEmpty(m->Vis, 1000);
        expectBlock(m->PVT, 1000, 1, {0.0});
        expectBlock(m->Cp, 1000, 1, {0.0});
        expectBlock(m->K, 1000, 1, {0.0});
        expectBlock(m->KN, 1000, 2, Values(7, 0.0));
    }
}

TEST(DefaultMaterial, ExtremeIdsStillGiveARecord) {
    auto m = adopt(QrvGetDefaultMaterial(-2147483647 - 1, -2147483647 - 1, true, -2147483647 - 1,
                                         -2147483647 - 1, -2147483647 - 1));
    ASSERT_NE(m, nullptr);
    EXPECT_STREQ(m->Comment,
                 "Vis=-2147483648,PVT=-2147483648,Cp=-2147483648,K=-2147483648,"
                 "Filler=-2147483648(Crystalline)");
    expectEmpty(m->Vis, 1000);
    expectEmpty(m->Mech, 1000);
}

TEST(DefaultMaterial, TextsLieInBuffersWiderThanThemselves) {
    // Polymer 24, Producer 48, GradeName 96, Comment 192 and Source 24 characters, so that a
    // caller may edit the texts in place.
    for (bool thermoset : {false, true}) {
        SCOPED_TRACE(thermoset);
        qrvtest::MaterialPtr m =
            qrvtest::adopt(thermoset ? QrvGetDefaultMaterial(10, 2, false, 1, 1, 1)
                                     : QrvGetDefaultMaterial(1, 2, false, 2, 2, 0));
        ASSERT_NE(m, nullptr);
        EXPECT_EQ(qrvtest::arrayBytes(m->Polymer), 24u);
        EXPECT_EQ(qrvtest::arrayBytes(m->Producer), 48u);
        EXPECT_EQ(qrvtest::arrayBytes(m->GradeName), 96u);
        EXPECT_EQ(qrvtest::arrayBytes(m->Comment), 192u);
        EXPECT_EQ(qrvtest::arrayBytes(m->Source), 24u);
    }
}
