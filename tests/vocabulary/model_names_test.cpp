// Model names: every id of every table, the unknown ids around them and the rules that come
// before the table (non-plastic types, empty blocks, non-thermosets).
#include <gtest/gtest.h>

#include <cstring>

#include <climits>
#include <map>
#include <stdexcept>
#include <string>
#include <vector>

#include "vocabulary/test_record.h"

using vocabulary_test::TestRecord;

namespace {

using Names = std::map<int, std::string>;

// Every id from -3 to 20, plus the extremes of int, gives its table entry or the unknown text.
template <typename Set, typename Call>
void expectTable(const Names& names, const std::string& unknown, Set set, Call call) {
    std::vector<int> ids = {INT_MIN, INT_MAX, -1000};
    for (int id = -3; id <= 20; ++id)
        ids.push_back(id);
    for (int id : ids) {
        TestRecord r;
        set(r, id);
        const auto found = names.find(id);
        const std::string expected = found == names.end() ? unknown : found->second;
        EXPECT_EQ(call(r.get()), expected) << "model id " << id;
    }
}

const Names kThermoplasticVis = {{1, "Newtonian fluid"},        {2, "Power Law Model"},
                                 {3, "Modified Cross Model 1"}, {4, "Modified Cross Model 2"},
                                 {5, "Modified Cross Model 3"}, {6, "Carreau Model"},
                                 {7, "Carreau-Yasuda Model"},   {8, "HB Modified Cross Model 3"}};

const Names kThermosetVis = {{1, "Newtonian fluid"},
                             {10, "Castro Macosko Model"},
                             {11, "Power-law Castro Macosko Model"},
                             {12, "Cross Castro Macosko Model"},
                             {13, "Herschel-Bulkely Model"}};

TEST(VisModelName, ThermoplasticColumnForEveryTypeBelowTwo) {
    for (int type : {INT_MIN, -1, 0, 1}) {
        expectTable(
            kThermoplasticVis, "Unknown viscosity model",
            [type](TestRecord& r, int id) {
                r->FileType = type;
                r->Vis.Model = id;
            },
            QrvGetVisModelName);
    }
}

TEST(VisModelName, ThermosetColumnForTypeTwo) {
    expectTable(
        kThermosetVis, "Unknown viscosity model",
        [](TestRecord& r, int id) {
            r->FileType = 2;
            r->Vis.Model = id;
        },
        QrvGetVisModelName);
}

TEST(VisModelName, NonPlasticFromTypeThreeUpwards) {
    for (int type : {3, 4, 5, 6, 9, 10, 11, INT_MAX}) {
        for (int id : {0, 1, 5, 10, 13}) {
            TestRecord r;
            r->FileType = type;
            r->Vis.Model = id;
            EXPECT_STREQ(QrvGetVisModelName(r.get()), "Non-plastic") << type << " " << id;
        }
    }
}

TEST(PVTModelName, EveryId) {
    const Names names = {
        {1, "Constant density"},      {2, "Spencer-Gilmore Model"}, {3, "Tait Model"},
        {4, "Modified Tait Model 1"}, {5, "Modified Tait Model 2"}, {6, "Spencer-Gilmore-C Model"},
        {7, "Tait-C Model"}};
    for (int type : {0, 1, 2}) {
        expectTable(
            names, "Unknown PVT model",
            [type](TestRecord& r, int id) {
                r->FileType = type;
                r->PVT.Model = id;
            },
            QrvGetPVTModelName);
    }
}

TEST(PVTModelName, NonPlasticFromTypeThreeUpwards) {
    for (int type : {3, 4, 7, 10, 42}) {
        TestRecord r;
        r->FileType = type;
        r->PVT.Model = 3;
        EXPECT_STREQ(QrvGetPVTModelName(r.get()), "Non-plastic");
    }
}

TEST(CpModelName, EveryIdAndTypeIsNotRead) {
    const Names names = {
        {1, "Constant Cp"}, {2, "CAE_Cp Model 1"}, {3, "CAE_Cp Model 2"}, {4, "Tabulated Data"}};
    for (int type : {0, 1, 2, 3, 4, 10}) {
        expectTable(
            names, "Unknown Cp model",
            [type](TestRecord& r, int id) {
                r->FileType = type;
                r->Cp.Model = id;
            },
            QrvGetCpModelName);
    }
}

TEST(KModelName, EveryIdAndIdFourIsUnknown) {
    const Names names = {{1, "Constant K"}, {2, "CAE_K Model 1"}, {3, "Tabulated Data"}};
    for (int type : {1, 2, 3}) {
        expectTable(
            names, "Unknown K model",
            [type](TestRecord& r, int id) {
                r->FileType = type;
                r->K.Model = id;
            },
            QrvGetKModelName);
    }
    TestRecord r;
    r->K.Model = 4;
    EXPECT_STREQ(QrvGetKModelName(r.get()), "Unknown K model");
}

TEST(ConvModelName, ThermosetIds) {
    const Names names = {
        {2, "Combined Model"}, {3, "Modified Combined Model"}, {4, "Deng-Isayev-Law Model"}};
    expectTable(
        names, "Unknown Conversion model",
        [](TestRecord& r, int id) {
            r->FileType = 2;
            r->KN.Model = id;
        },
        QrvGetConvModelName);
}

TEST(ConvModelName, NonThermosetForEveryOtherType) {
    for (int type : {INT_MIN, 0, 1, 3, 4, 5, 10, INT_MAX}) {
        TestRecord r;
        r->FileType = type;
        r->KN.Model = 2;
        EXPECT_STREQ(QrvGetConvModelName(r.get()), "Non-thermosetting plastics") << type;
    }
}

TEST(MechModelName, EveryIdWhenTheBlockHasValues) {
    const Names names = {{0, "Isotropic pure polymer"},
                         {1, "Anisotropic pure polymer"},
                         {2, "Fiber-reinforced polymer(Experimental)"},
                         {3, "Fiber-reinforced polymer(Theoretical,Customize)"},
                         {4, "Fiber-reinforced polymer(Theoretical,E-glass)"},
                         {5, "Fiber-reinforced polymer(Theoretical,T300)"},
                         {6, "Flake-reinforced polymer"},
                         {7, "Powder-reinforced polymer"}};
    expectTable(
        names, "Unknown mechanical model",
        [](TestRecord& r, int id) { r.block(&QrvMaterial::Mech, 0, id, {1.0}); },
        QrvGetMechModelName);
}

TEST(MechModelName, CountZeroGivesNoDataForAnyModel) {
    for (int id : {INT_MIN, -1, 0, 1, 2, 7, 8, INT_MAX}) {
        TestRecord r;
        r->Mech.Model = id;
        EXPECT_STREQ(QrvGetMechModelName(r.get()), "No mechancial data") << id;
    }
}

TEST(MechModelName, NegativeCountIsNotZero) {
    TestRecord r;
    r->Mech.Model = 6;
    r->Mech.Count = -1;
    EXPECT_STREQ(QrvGetMechModelName(r.get()), "Flake-reinforced polymer");
}

TEST(VEModelName, EveryIdWhenTheBlockHasValues) {
    const Names names = {{1, "White-Metzner Model"},
                         {2, "White-Metzner Model(Modified)"},
                         {3, "PTT Model"},
                         {4, "Giesekus Model"},
                         {5, "Oldroyd-B Model"},
                         {6, "K-BKZ: Wagner Model"},
                         {7, "PTT Model(Multi-Mode)"},
                         {8, "Giesekus Model(Multi-Mode)"}};
    expectTable(
        names, "Unknown viscoelastic model",
        [](TestRecord& r, int id) {
            r.block(&QrvMaterial::VE, 0, id, {1.0, 2.0});
        },
        QrvGetVEModelName);
}

TEST(VEModelName, CountZeroGivesNoData) {
    for (int id : {0, 1, 8, 9}) {
        TestRecord r;
        r->VE.Model = id;
        EXPECT_STREQ(QrvGetVEModelName(r.get()), "No viscoelastic data") << id;
    }
}

TEST(CrystallinityModelName, EveryId) {
    const Names names = {{0, "None"}, {1, "Nakamura model"}};
    expectTable(
        names, "Unknown crystallinity model", [](TestRecord& r, int id) { r->CR.Model = id; },
        QrvGetCrystallinityModelName);
}

TEST(ModelNames, ShareOneTextThatTheNextCallOverwrites) {
    TestRecord r;
    r->Vis.Model = 4;
    r->PVT.Model = 3;
    const char* vis = QrvGetVisModelName(r.get());
    EXPECT_STREQ(vis, "Modified Cross Model 2");
    const char* pvt = QrvGetPVTModelName(r.get());
    EXPECT_EQ(vis, pvt);
    EXPECT_STREQ(vis, "Tait Model");
    EXPECT_STREQ(QrvGetMaterialType(r.get()), "Thermoplastic");
    EXPECT_STREQ(vis, "Thermoplastic");
}

// A pointer handed out before a longer text is assigned still reads, and reads the newer text.
TEST(ModelNames, EarlierPointerReadsALongerLaterText) {
    TestRecord r;
    r->CR.Model = 5;
    const char* shorter = qrv::setNameText("x");
    const char* longer = QrvGetCrystallinityModelName(r.get());
    EXPECT_STREQ(shorter, "Unknown crystallinity model");
    EXPECT_EQ(shorter, longer);
    const std::string big(5000, 'm');
    qrv::setNameText(big.c_str());
    EXPECT_EQ(std::strlen(shorter), qrv::kNameTextCapacity - 1);  // cut to the fixed place
}

TEST(ModelNames, NullRecordThrowsAndLeavesTheText) {
    using Call = const char* (*)(QrvMaterial*);
    const Call calls[] = {QrvGetVisModelName, QrvGetPVTModelName,          QrvGetCpModelName,
                          QrvGetKModelName,   QrvGetConvModelName,         QrvGetMechModelName,
                          QrvGetVEModelName,  QrvGetCrystallinityModelName};
    for (Call call : calls) {
        vocabulary_test::primeNameText("before");
        EXPECT_THROW(call(nullptr), std::invalid_argument);
        EXPECT_STREQ(qrv::nameText(), "before");
    }
}

}  // namespace
