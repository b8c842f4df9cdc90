// Parameter labels: every label of every table at its index, the stale text past a table, the
// empty text where a table gives it, and the unit ids of the viscoelastic and crystallinity
// labels.
#include <gtest/gtest.h>

#include <unistd.h>

#include <climits>
#include <map>
#include <stdexcept>
#include <string>
#include <vector>

#include "vocabulary/test_record.h"

using vocabulary_test::primeNameText;
using vocabulary_test::TestRecord;

namespace {

using Labels = std::vector<std::string>;
constexpr const char* kMarker = "<previous text>";

// Indices to probe around a table of size n: all inside, a few past each end, and the extremes.
std::vector<int> probeIndices(int n) {
    std::vector<int> indices = {INT_MIN, -1000, -2, -1, INT_MAX};
    for (int i = 0; i <= n + 3; ++i)
        indices.push_back(i);
    return indices;
}

// The label at each index inside the table; outside, `outside` (the marker when the previous
// text stays).
template <typename Call>
void expectLabels(QrvMaterial* m, const Labels& labels, const std::string& outside, Call call) {
    for (int index : probeIndices(static_cast<int>(labels.size()))) {
        primeNameText(kMarker);
        const bool inside = index >= 0 && index < static_cast<int>(labels.size());
        EXPECT_EQ(call(m, index), inside ? labels[index] : outside) << "index " << index;
    }
}

// --- viscosity

const Labels kShortLabels = {"(n)",  "(Taus)", "(D1)",    "(D2)", "(D3)",
                             "(A1)", "(A2b)",  "(Tauy0)", "(Ty)"};

const std::map<int, Labels> kThermoplasticVisLabels = {
    {1, {"Newtonian fluid - (Eta0)"}},
    {2, {"Power Law Model - (n)", "Power Law Model - (B)", "Power Law Model - (Tb)"}},
    {3,
     {"Modified Cross Model 1 - (n)", "Modified Cross Model 1 - (C)",
      "Modified Cross Model 1 - (B)", "Modified Cross Model 1 - (Tb)",
      "Modified Cross Model 1 - (D)"}},
    {4,
     {"Modified Cross Model 2 - (n)", "Modified Cross Model 2 - (Taus)",
      "Modified Cross Model 2 - (B)", "Modified Cross Model 2 - (Tb)",
      "Modified Cross Model 2 - (D)"}},
    {5,
     {"Modified Cross Model 3 - (n)", "Modified Cross Model 3 - (Taus)",
      "Modified Cross Model 3 - (D1)", "Modified Cross Model 3 - (D2)",
      "Modified Cross Model 3 - (D3)", "Modified Cross Model 3 - (A1)",
      "Modified Cross Model 3 - (A2b)"}},
    {6,
     {"Carreau Model - (n)", "Carreau Model - (Taus)", "Carreau Model - (B)",
      "Carreau Model - (Tb)", "Carreau Model - (D)"}},
    // Carreau-Yasuda falls through into the labels of id 8.
    {7, kShortLabels},
    {8, kShortLabels},
};

const std::map<int, Labels> kThermosetVisLabels = {
    {1, {"Newtonian fluid - (Eta0)"}},
    {10,
     {"Castro Macosko Model - (Cg)", "Castro Macosko Model - (C1)", "Castro Macosko Model - (C2)",
      "Castro Macosko Model - (A)", "Castro Macosko Model - (Tb)"}},
    {11,
     {"Power-law Castro Macosko Model - (a0)", "Power-law Castro Macosko Model - (a1)",
      "Power-law Castro Macosko Model - (a2)", "Power-law Castro Macosko Model - (b0)",
      "Power-law Castro Macosko Model - (b1)", "Power-law Castro Macosko Model - (b2)",
      "Power-law Castro Macosko Model - (c0)", "Power-law Castro Macosko Model - (c1)",
      "Power-law Castro Macosko Model - (c2)", "Power-law Castro Macosko Model - (Cg)",
      "Power-law Castro Macosko Model - (Ci)"}},
    {12,
     {"Cross Castro Macosko Model - (Cg)", "Cross Castro Macosko Model - (C1)",
      "Cross Castro Macosko Model - (C2)", "Cross Castro Macosko Model - (A)",
      "Cross Castro Macosko Model - (Tb)", "Cross Castro Macosko Model - (n)",
      "Cross Castro Macosko Model - (Taus)"}},
    {13,
     {"Herschel-Bulkely Model - (n)", "Herschel-Bulkely Model - (K00)",
      "Herschel-Bulkely Model - (CA)", "Herschel-Bulkely Model - (CB)",
      "Herschel-Bulkely Model - (C1)", "Herschel-Bulkely Model - (C2)",
      "Herschel-Bulkely Model - (Cg)", "Herschel-Bulkely Model - (Tauy0)",
      "Herschel-Bulkely Model - (Tg)", "Herschel-Bulkely Model - (Ty)"}},
};

void expectVisFamily(int fileType, const std::map<int, Labels>& table) {
    for (int id = -2; id <= 16; ++id) {
        TestRecord r;
        r->FileType = fileType;
        r->Vis.Model = id;
        const auto row = table.find(id);
        if (row == table.end()) {
            // An id outside the family keeps the text at every index.
            expectLabels(r.get(), {}, kMarker, QrvGetVisParaName);
        } else {
            expectLabels(r.get(), row->second, kMarker, QrvGetVisParaName);
        }
    }
}

TEST(VisParaName, ThermoplasticLabels) {
    for (int type : {0, 1, 3, 4, 10}) {
        SCOPED_TRACE(type);
        expectVisFamily(type, kThermoplasticVisLabels);
    }
}

TEST(VisParaName, ThermosetLabels) {
    expectVisFamily(2, kThermosetVisLabels);
}

TEST(VisParaName, CarreauYasudaShowsTheShortLabels) {
    TestRecord r;
    r->Vis.Model = 7;
    EXPECT_STREQ(QrvGetVisParaName(r.get(), 2), "(D1)");
    EXPECT_STREQ(QrvGetVisParaName(r.get(), 0), "(n)");
    EXPECT_STREQ(QrvGetVisParaName(r.get(), 6), "(A2b)");
    EXPECT_STREQ(QrvGetVisParaName(r.get(), 7), "(Tauy0)");
    EXPECT_STREQ(QrvGetVisParaName(r.get(), 8), "(Ty)");
    EXPECT_STREQ(QrvGetVisParaName(r.get(), 9), "(Ty)");
}

TEST(VisParaName, FamilyMismatchKeepsTheText) {
    TestRecord thermoset;
    thermoset->FileType = 2;
    thermoset->Vis.Model = 2;
    primeNameText("kept");
    EXPECT_STREQ(QrvGetVisParaName(thermoset.get(), 0), "kept");
    TestRecord thermoplastic;
    thermoplastic->Vis.Model = 10;
    EXPECT_STREQ(QrvGetVisParaName(thermoplastic.get(), 0), "kept");
}

TEST(VisParaName, PastTheTableReturnsWhateverWasReturnedLast) {
    TestRecord r;
    r->Vis.Model = 5;
    r->PVT.Model = 2;
    EXPECT_STREQ(QrvGetPVTModelName(r.get()), "Spencer-Gilmore Model");
    EXPECT_STREQ(QrvGetVisParaName(r.get(), 7), "Spencer-Gilmore Model");
    EXPECT_STREQ(QrvGetVisParaName(r.get(), 1), "Modified Cross Model 3 - (Taus)");
    EXPECT_STREQ(QrvGetVisParaName(r.get(), 7), "Modified Cross Model 3 - (Taus)");
}

// --- PVT and conversion: an unknown model gives the empty text

const std::map<int, Labels> kPVTLabels = {
    {1, {"Constant density - (V0)"}},
    {2,
     {"Spencer-Gilmore Model - (V0)", "Spencer-Gilmore Model - (P0)",
      "Spencer-Gilmore Model - (R)"}},
    {3,
     {"Tait Model - (b1)", "Tait Model - (b2)", "Tait Model - (b3)", "Tait Model - (b4)",
      "Tait Model - (C)"}},
    {4,
     {"Modified Tait Model 1 - (b1)", "Modified Tait Model 1 - (b2)",
      "Modified Tait Model 1 - (b3)", "Modified Tait Model 1 - (b4)",
      "Modified Tait Model 1 - (b5)", "Modified Tait Model 1 - (b6)",
      "Modified Tait Model 1 - (C)"}},
    {5,
     {"Modified Tait Model 2 - (b1L)", "Modified Tait Model 2 - (b2L)",
      "Modified Tait Model 2 - (b3L)", "Modified Tait Model 2 - (b4L)",
      "Modified Tait Model 2 - (b1S)", "Modified Tait Model 2 - (b2S)",
      "Modified Tait Model 2 - (b3S)", "Modified Tait Model 2 - (b4S)",
      "Modified Tait Model 2 - (b5)", "Modified Tait Model 2 - (b6)",
      "Modified Tait Model 2 - (b7)", "Modified Tait Model 2 - (b8)",
      "Modified Tait Model 2 - (b9)"}},
    {6,
     {"Spencer-Gilmore-C Model - (V0)", "Spencer-Gilmore-C Model - (P0)",
      "Spencer-Gilmore-C Model - (R)", "Spencer-Gilmore-C Model - (Zeta)"}},
    {7,
     {"Tait-C Model - (b1)", "Tait-C Model - (b2)", "Tait-C Model - (b3)", "Tait-C Model - (b4)",
      "Tait-C Model - (Zeta)"}},
};

TEST(PVTParaName, EveryLabelForAnyType) {
    for (int type : {1, 2, 3, 4}) {
        for (int id = -2; id <= 10; ++id) {
            SCOPED_TRACE(std::to_string(type) + "/" + std::to_string(id));
            TestRecord r;
            r->FileType = type;
            r->PVT.Model = id;
            const auto row = kPVTLabels.find(id);
            if (row == kPVTLabels.end()) {
                expectLabels(r.get(), {}, "", QrvGetPVTParaName);
            } else {
                expectLabels(r.get(), row->second, kMarker, QrvGetPVTParaName);
            }
        }
    }
}

const std::map<int, Labels> kConvLabels = {
    {2,
     {"Combined Model - (m)", "Combined Model - (n)", "Combined Model - (A)",
      "Combined Model - (B)", "Combined Model - (Ta)", "Combined Model - (Tb)",
      "Combined Model - (dH)"}},
    {3,
     {"Modified Combined Model - (m)", "Modified Combined Model - (n)",
      "Modified Combined Model - (A)", "Modified Combined Model - (B)",
      "Modified Combined Model - (Ta)", "Modified Combined Model - (Tb)",
      "Modified Combined Model - (b0)", "Modified Combined Model - (Tdiff)",
      "Modified Combined Model - (Psi)", "Modified Combined Model - (T0)",
      "Modified Combined Model - (dH)"}},
    {4,
     {"Deng-Isayev-Law Model - (t0)", "Deng-Isayev-Law Model - (T0)", "Deng-Isayev-Law Model - (n)",
      "Deng-Isayev-Law Model - (Ta)", "Deng-Isayev-Law Model - (k0)",
      "Deng-Isayev-Law Model - (dH)"}},
};

TEST(ConvParaName, EveryLabelForAnyType) {
    for (int type : {1, 2, 3}) {
        for (int id = -2; id <= 8; ++id) {
            SCOPED_TRACE(std::to_string(type) + "/" + std::to_string(id));
            TestRecord r;
            r->FileType = type;
            r->KN.Model = id;
            const auto row = kConvLabels.find(id);
            if (row == kConvLabels.end()) {
                expectLabels(r.get(), {}, "", QrvGetConvParaName);
            } else {
                expectLabels(r.get(), row->second, kMarker, QrvGetConvParaName);
            }
        }
    }
}

// --- mechanical

const Labels kFiberTheoretical = {"Polymer density",
                                  "Polymer Poisson's ratio",
                                  "Polymer Modulus E",
                                  "Polymer CLTE",
                                  "Fiber Weight Percentage",
                                  "Fiber density",
                                  "Fiber Poisson's ratio",
                                  "Fiber Modulus E1(fiber direction)",
                                  "Fiber Modulus E2(transverse direction)",
                                  "Fiber Shear Modulus G",
                                  "Fiber CLTE a1(fiber direction)",
                                  "Fiber CLTE a2(transverse direction)",
                                  "Fiber Length/Diameter",
                                  "Interaction Coefficient"};

const std::map<int, Labels> kMechLabels = {
    {1,
     {"Poisson's ratio v12", "Poisson's ratio v23", "Modulus E1(flow direction)",
      "Modulus E2(transverse direction)", "Shear Modulus G", "CLTE a1(flow direction)",
      "CLTE a2(transverse direction)"}},
    {2,
     {"Poisson's ratio v12", "Poisson's ratio v23", "Modulus E1(fiber direction)",
      "Modulus E2(transverse direction)", "Shear Modulus G", "CLTE a1(fiber direction)",
      "CLTE a2(transverse direction)", "Fiber Length/Diameter", "Interaction Coefficient",
      "Fiber Weight Percentage"}},
    {3, kFiberTheoretical},
    {4, kFiberTheoretical},
    {5, kFiberTheoretical},
    {6,
     {"Polymer density", "Polymer Poisson's ratio", "Polymer Modulus E", "Polymer CLTE",
      "Flake weight percentage", "Flake density", "Flake Poisson's ratio", "Flake Modulus E",
      "Flake CLTE", "Flake aspect ratio (D/T)"}},
    {7,
     {"Polymer density", "Polymer Poisson's ratio", "Polymer Modulus E", "Polymer CLTE",
      "Powder weight percentage", "Powder density", "Powder Poisson's ratio", "Powder Modulus E",
      "Powder CLTE"}},
};

TEST(MechParaName, LabelledModels) {
    for (const auto& [id, labels] : kMechLabels) {
        SCOPED_TRACE(id);
        TestRecord r;
        r->Mech.Model = id;
        expectLabels(r.get(), labels, kMarker, QrvGetMechParaName);
    }
}

TEST(MechParaName, IsotropicLabelsThreeIndicesAndEmptiesTheRest) {
    TestRecord r;
    r->Mech.Model = 0;
    for (int index : probeIndices(10)) {
        primeNameText(kMarker);
        const std::string expected = index == 1   ? "Poisson Ratio"
                                     : index == 3 ? "Elastic Modeulus"
                                     : index == 6 ? "CLTE"
                                                  : "";
        EXPECT_EQ(QrvGetMechParaName(r.get(), index), expected) << index;
    }
    EXPECT_STREQ(QrvGetMechParaName(r.get(), 2), "");
}

TEST(MechParaName, UnknownModelsKeepTheText) {
    for (int id : {INT_MIN, -1, 8, 9, 100, INT_MAX}) {
        TestRecord r;
        r->Mech.Model = id;
        expectLabels(r.get(), {}, kMarker, QrvGetMechParaName);
    }
}

TEST(MechParaName, PastTheTableKeepsThePreviousText) {
    TestRecord r;
    r->Mech.Model = 1;
    EXPECT_STREQ(QrvGetMechParaName(r.get(), 6), "CLTE a2(transverse direction)");
    EXPECT_STREQ(QrvGetMechParaName(r.get(), 7), "CLTE a2(transverse direction)");
}

// --- viscoelastic: labels and unit ids

struct UnitLabel {
    std::string text;
    int unitId;
};
constexpr int kUnitMarker = -777;

// Probes every index of VE model id against the expected label (none: nothing changes).
void expectVE(int id, const std::map<int, UnitLabel>& expected, int lastProbe) {
    TestRecord r;
    r.block(&QrvMaterial::VE, 0, id, {1.0});
    std::vector<int> indices = {INT_MIN, -1000, -1, INT_MAX};
    for (int i = 0; i <= lastProbe; ++i)
        indices.push_back(i);
    for (int index : indices) {
        primeNameText(kMarker);
        int unitId = kUnitMarker;
        const std::string text = QrvGetVEParaName(r.get(), index, unitId);
        const auto found = expected.find(index);
        if (found == expected.end()) {
            EXPECT_EQ(text, kMarker) << "model " << id << " index " << index;
            EXPECT_EQ(unitId, kUnitMarker) << "model " << id << " index " << index;
        } else {
            EXPECT_EQ(text, found->second.text) << "model " << id << " index " << index;
            EXPECT_EQ(unitId, found->second.unitId) << "model " << id << " index " << index;
        }
    }
}

TEST(VEParaName, WhiteMetznerIsGForAnyIndex) {
    TestRecord r;
    r.block(&QrvMaterial::VE, 0, 1, {1.0});
    for (int index : probeIndices(20)) {
        primeNameText(kMarker);
        int unitId = kUnitMarker;
        EXPECT_STREQ(QrvGetVEParaName(r.get(), index, unitId), "G") << index;
        EXPECT_EQ(unitId, 6);
    }
}

TEST(VEParaName, SingleModeModels) {
    const std::map<int, UnitLabel> base = {
        {1, {"Lambda0", 18}}, {3, {"A1", 0}}, {4, {"A2", 8}}, {5, {"Tf", 8}}};
    auto with = [&base](const UnitLabel& first, const UnitLabel& third) {
        std::map<int, UnitLabel> m = base;
        m[0] = first;
        m[2] = third;
        return m;
    };
    expectVE(2,
             {{0, {"Lambdas", 18}},
              {1, {"m", 0}},
              {2, {"k", 0}},
              {3, {"A1", 0}},
              {4, {"A2", 8}},
              {5, {"Tf", 8}}},
             12);
    expectVE(3, with({"Eta0", 2}, {"Epsilon", 0}), 12);
    expectVE(4, with({"Eta0", 2}, {"Alpha", 0}), 12);
    expectVE(5, with({"Eta0", 2}, {"r", 0}), 12);
}

TEST(VEParaName, WagnerNumbersSixModes) {
    std::map<int, UnitLabel> expected = {
        {0, {"Alpha", 0}}, {1, {"Beta", 0}}, {2, {"A1", 0}}, {3, {"A2", 8}}, {4, {"Tf", 8}}};
    for (int i = 5; i <= 15; i += 2)
        expected[i] = {"g" + std::to_string(i / 2 - 1), 6};
    for (int i = 6; i <= 16; i += 2)
        expected[i] = {"Lambda" + std::to_string(i / 2 - 2), 18};
    expectVE(6, expected, 24);
}

TEST(VEParaName, MultiModeModelsNumberSixModes) {
    for (int id : {7, 8}) {
        std::map<int, UnitLabel> expected = {{0, {id == 7 ? "Epsilon" : "Alpha", 0}},
                                             {1, {"A1", 0}},
                                             {2, {"A2", 8}},
                                             {3, {"Tf", 8}}};
        for (int i = 4; i <= 14; i += 2)
            expected[i] = {"g" + std::to_string(i / 2 - 1), 6};
        for (int i = 5; i <= 15; i += 2)
            expected[i] = {"Lambda" + std::to_string(i / 2 - 1), 18};
        expectVE(id, expected, 24);
    }
}

TEST(VEParaName, NamedModeExamples) {
    TestRecord r;
    r.block(&QrvMaterial::VE, 0, 6, {1.0});
    int unitId = 0;
    EXPECT_STREQ(QrvGetVEParaName(r.get(), 5, unitId), "g1");
    EXPECT_EQ(unitId, 6);
    EXPECT_STREQ(QrvGetVEParaName(r.get(), 6, unitId), "Lambda1");
    EXPECT_EQ(unitId, 18);
    EXPECT_STREQ(QrvGetVEParaName(r.get(), 16, unitId), "Lambda6");
    unitId = 99;
    EXPECT_STREQ(QrvGetVEParaName(r.get(), 17, unitId), "Lambda6");
    EXPECT_EQ(unitId, 99);
    r->VE.Model = 7;
    EXPECT_STREQ(QrvGetVEParaName(r.get(), 4, unitId), "g1");
    EXPECT_STREQ(QrvGetVEParaName(r.get(), 15, unitId), "Lambda6");
}

TEST(VEParaName, UnknownModelsChangeNothing) {
    for (int id : {INT_MIN, -1, 0, 9, 42, INT_MAX}) {
        expectVE(id, {}, 18);
    }
}

TEST(VEParaName, ModelIsReadWhateverTheCount) {
    TestRecord r;
    r->VE.Model = 3;  // Count 0: the model name says "No viscoelastic data", the labels still come
    int unitId = 0;
    EXPECT_STREQ(QrvGetVEParaName(r.get(), 0, unitId), "Eta0");
    EXPECT_EQ(unitId, 2);
}

// --- crystallinity

TEST(CrystallinityParaName, NakamuraLabelsAndUnits) {
    const std::vector<UnitLabel> expected = {
        {"Nakamura Model - (tm)", 31},       {"Nakamura Model - (a)", 0},
        {"Nakamura Model - (1/tHalf0)", 32}, {"Nakamura Model - (n)", 0},
        {"Nakamura Model - (Kg)", 33},       {"Nakamura Model - (Tm)", 1},
        {"Nakamura Model - (Tg)", 1},        {"Nakamura Model - (C1)", 1},
        {"Nakamura Model - (C2)", 34}};
    TestRecord r;
    r->CR.Model = 1;
    for (int index : probeIndices(9)) {
        primeNameText(kMarker);
        int unitId = kUnitMarker;
        const std::string text = QrvGetCrystallinityParaName(r.get(), index, unitId);
        if (index >= 0 && index < 9) {
            EXPECT_EQ(text, expected[index].text) << index;
            EXPECT_EQ(unitId, expected[index].unitId) << index;
        } else {
            EXPECT_EQ(text, kMarker) << index;
            EXPECT_EQ(unitId, kUnitMarker) << index;
        }
    }
}

TEST(CrystallinityParaName, OtherModelsGiveEmptyTextAndKeepTheUnit) {
    for (int id : {INT_MIN, -1, 0, 2, 3, INT_MAX}) {
        TestRecord r;
        r->CR.Model = id;
        for (int index : probeIndices(9)) {
            primeNameText(kMarker);
            int unitId = kUnitMarker;
            EXPECT_STREQ(QrvGetCrystallinityParaName(r.get(), index, unitId), "") << id;
            EXPECT_EQ(unitId, kUnitMarker);
        }
    }
}

// --- shared text and bad input

// A fresh process starts with the empty text: the first call, past the table, hands it out. The
// check runs in a process of its own, before any other naming call.
TEST(ParaNamesDeathTest, FirstCallPastATableGivesTheEmptyTextOfAFreshProcess) {
    ::testing::FLAGS_gtest_death_test_style = "threadsafe";
    EXPECT_EXIT(
        {
            QrvMaterial* material = new QrvMaterial;
            QrvInitMaterial(material);
            material->Vis.Model = 2;
            const char* text = QrvGetVisParaName(material, 3);
            _exit(text && text[0] == '\0' ? 0 : 1);  // no exit handlers: nothing else runs
        },
        ::testing::ExitedWithCode(0), "");
}

TEST(ParaNames, NullRecordThrowsAndLeavesTheText) {
    int unitId = 5;
    primeNameText("before");
    EXPECT_THROW(QrvGetVisParaName(nullptr, 0), std::invalid_argument);
    EXPECT_THROW(QrvGetPVTParaName(nullptr, 0), std::invalid_argument);
    EXPECT_THROW(QrvGetConvParaName(nullptr, 0), std::invalid_argument);
    EXPECT_THROW(QrvGetMechParaName(nullptr, 0), std::invalid_argument);
    EXPECT_THROW(QrvGetVEParaName(nullptr, 0, unitId), std::invalid_argument);
    EXPECT_THROW(QrvGetCrystallinityParaName(nullptr, 0, unitId), std::invalid_argument);
    EXPECT_STREQ(qrv::nameText(), "before");
    EXPECT_EQ(unitId, 5);
}

}  // namespace
