// Type and block tests, constant models, and the Mech, fibre, filler, temperature and
// stress-strain values with their miss values. Mech blocks hold 100 + i at index i, so a value
// tells the place it came from.
#include <gtest/gtest.h>

#include <climits>
#include <cmath>
#include <cstring>
#include <memory>
#include <stdexcept>
#include <string>
#include <vector>

#include <quorvalib/quorvalib.h>

#include "support/material_ptr.h"

namespace {

using qrvtest::makeRecord;
using qrvtest::setBlock;
using qrvtest::setNullBlock;

std::vector<double> places(int count) {
    std::vector<double> values(count);
    for (int i = 0; i < count; ++i)
        values[i] = 100 + i;
    return values;
}

qrvtest::MaterialPtr withMech(int fileType, int model, int count = 15) {
    auto record = makeRecord(fileType);
    setBlock(record->Mech, model, places(count));
    return record;
}

const int kPlastic = QRV_TYPE_THERMOPLASTIC;
const int kThermoset = QRV_TYPE_THERMOSET;

TEST(TypeTests, FileTypeZeroCountsAsThermoplastic) {
    auto record = makeRecord(0);
    EXPECT_TRUE(QrvIsThermoplastic(record.get()));
    EXPECT_FALSE(QrvIsThermoset(record.get()));
}

TEST(BlockTests, NullRecordGivesFalse) {
    EXPECT_FALSE(QrvHasViscoelasticData(nullptr));
    EXPECT_FALSE(QrvHasOpticData(nullptr));
    EXPECT_FALSE(QrvHasCrystallinityData(nullptr));
    EXPECT_FALSE(QrvThermosetHasMech(nullptr));
    EXPECT_FALSE(QrvThermosetHasScorchIndex(nullptr));
    EXPECT_FALSE(QrvHasStressStrainData(nullptr));
}

TEST(BlockTests, BlocksThatHoldValues) {
    auto record = makeRecord();
    EXPECT_FALSE(QrvHasViscoelasticData(record.get()));
    EXPECT_FALSE(QrvHasOpticData(record.get()));
    setBlock(record->VE, 1, {1.0});
    setBlock(record->OP, 1, {1.0, 2.0});
    EXPECT_TRUE(QrvHasViscoelasticData(record.get()));
    EXPECT_TRUE(QrvHasOpticData(record.get()));
    setNullBlock(record->VE, 1, 3);
    EXPECT_FALSE(QrvHasViscoelasticData(record.get()));
    // A zero-length array with Count 0 holds nothing.
    setNullBlock(record->OP, 1, 0);
    record->OP.Para = new double[0];
    EXPECT_FALSE(QrvHasOpticData(record.get()));
}

TEST(BlockTests, CrystallinityNeedsAModel) {
    auto record = makeRecord();
    setBlock(record->CR, 0, {1.0, 2.0});
    EXPECT_FALSE(QrvHasCrystallinityData(record.get()));
    record->CR.Model = 3;
    EXPECT_TRUE(QrvHasCrystallinityData(record.get()));
    setNullBlock(record->CR, 3, 2);
    EXPECT_FALSE(QrvHasCrystallinityData(record.get()));
}

TEST(BlockTests, ThermosetTestsNeedFileTypeTwo) {
    auto record = withMech(kThermoset, 0, 7);
    setBlock(record->SI, 1, {1.0, 2.0});
    EXPECT_TRUE(QrvThermosetHasMech(record.get()));
    EXPECT_TRUE(QrvThermosetHasScorchIndex(record.get()));
    for (int type : {0, 1, 3, 9}) {
        record->FileType = type;
        EXPECT_FALSE(QrvThermosetHasMech(record.get()));
        EXPECT_FALSE(QrvThermosetHasScorchIndex(record.get()));
    }
    record->FileType = kThermoset;
    setNullBlock(record->SI, 1, 2);
    EXPECT_FALSE(QrvThermosetHasScorchIndex(record.get()));
}

TEST(StressStrain, WireWithEightValuesHasDataButNoSet) {
    auto record = withMech(QRV_TYPE_IC_WIRE, 0, 8);
    EXPECT_TRUE(QrvHasStressStrainData(record.get()));
    EXPECT_EQ(QrvGetStressStrainSet(record.get()), 0);
    setBlock(record->Mech, 0, places(7));
    EXPECT_FALSE(QrvHasStressStrainData(record.get()));
}

TEST(StressStrain, NineAndTenValuesGiveOneSet) {
    auto record = withMech(QRV_TYPE_IC_WIRE, 0, 9);
    EXPECT_EQ(QrvGetStressStrainSet(record.get()), 1);
    double stress = 0, strain = 0;
    QrvGetStressStrainData(record.get(), 0, stress, strain);
    EXPECT_EQ(stress, 107);
    EXPECT_EQ(strain, 108);
    setBlock(record->Mech, 0, places(10));
    EXPECT_EQ(QrvGetStressStrainSet(record.get()), 1);
    setBlock(record->Mech, 0, places(13));
    EXPECT_EQ(QrvGetStressStrainSet(record.get()), 3);
    QrvGetStressStrainData(record.get(), 2, stress, strain);
    EXPECT_EQ(stress, 111);
    EXPECT_EQ(strain, 112);
}

TEST(StressStrain, OnlyWiresHaveSets) {
    EXPECT_EQ(QrvGetStressStrainSet(nullptr), 0);
    for (int type : {1, 2, 3, 8}) {
        auto record = withMech(type, 0, 13);
        EXPECT_EQ(QrvGetStressStrainSet(record.get()), 0);
        EXPECT_FALSE(QrvHasStressStrainData(record.get()));
    }
    // Fewer than seven values: the formula goes below zero.
    auto record = withMech(QRV_TYPE_IC_WIRE, 0, 3);
    EXPECT_EQ(QrvGetStressStrainSet(record.get()), -2);
}

TEST(StressStrain, PairOutsideTheArrayThrows) {
    auto record = withMech(QRV_TYPE_IC_WIRE, 0, 10);
    double stress = -5, strain = -5;
    EXPECT_THROW(QrvGetStressStrainData(record.get(), 1, stress, strain), std::invalid_argument);
    EXPECT_THROW(QrvGetStressStrainData(record.get(), -4, stress, strain), std::invalid_argument);
    EXPECT_THROW(QrvGetStressStrainData(record.get(), INT_MIN, stress, strain),
                 std::invalid_argument);
    EXPECT_THROW(QrvGetStressStrainData(record.get(), 1 << 30, stress, strain),
                 std::invalid_argument);
    EXPECT_THROW(QrvGetStressStrainData(nullptr, 0, stress, strain), std::invalid_argument);
    EXPECT_EQ(stress, -5);
    EXPECT_EQ(strain, -5);
    setNullBlock(record->Mech, 0, 10);
    EXPECT_THROW(QrvGetStressStrainData(record.get(), 0, stress, strain), std::invalid_argument);
}

// A wire of 13 values 101..113 in Para[0..12]: index i reads Para[2i + 7] and Para[2i + 8], so
// index -3 reads Para[1] and Para[2] (102, 103) and index 2 reads Para[11] and Para[12] (112, 113).
TEST(StressStrain, NegativeIndexInsideTheArrayReadsTheFixedValues) {
    auto record = withMech(QRV_TYPE_IC_WIRE, 0, 13);
    for (int i = 0; i < 13; ++i)
        record->Mech.Para[i] = 101.0 + i;
    const struct {
        int index;
        double stress, strain;
    } pairs[] = {{-3, 102, 103}, {-2, 104, 105}, {-1, 106, 107},
                 {0, 108, 109},  {1, 110, 111},  {2, 112, 113}};
    for (const auto& pair : pairs) {
        double stress = 0, strain = 0;
        QrvGetStressStrainData(record.get(), pair.index, stress, strain);
        EXPECT_EQ(stress, pair.stress) << "index " << pair.index;
        EXPECT_EQ(strain, pair.strain) << "index " << pair.index;
    }
    double stress = -5, strain = -5;
    EXPECT_THROW(QrvGetStressStrainData(record.get(), -4, stress, strain), std::invalid_argument);
    EXPECT_THROW(QrvGetStressStrainData(record.get(), 3, stress, strain), std::invalid_argument);
    EXPECT_EQ(stress, -5);
    EXPECT_EQ(strain, -5);
}

TEST(StressStrain, SevenValuesReadIndexMinusOneOnly) {
    auto record = withMech(QRV_TYPE_IC_WIRE, 0, 7);
    for (int i = 0; i < 7; ++i)
        record->Mech.Para[i] = 201.0 + i;
    double stress = 0, strain = 0;
    QrvGetStressStrainData(record.get(), -1, stress, strain);
    EXPECT_EQ(stress, 206);
    EXPECT_EQ(strain, 207);
    EXPECT_THROW(QrvGetStressStrainData(record.get(), 0, stress, strain), std::invalid_argument);
}

TEST(ConstantModel, WhichPicksTheBlock) {
    auto record = makeRecord();
    setBlock(record->Vis, 1, {11.0});
    setBlock(record->PVT, 1, {12.0});
    setBlock(record->Cp, 1, {13.0});
    setBlock(record->K, 1, {14.0});
    for (int which = 1; which <= 4; ++which) {
        EXPECT_TRUE(QrvIsConstantModel(record.get(), which));
        EXPECT_EQ(QrvGetConstantModelValue(record.get(), which), 10.0 + which);
    }
    record->PVT.Model = 5;
    record->K.Model = 2;
    EXPECT_FALSE(QrvIsConstantModel(record.get(), 2));
    EXPECT_FALSE(QrvIsConstantModel(record.get(), 4));
    EXPECT_EQ(QrvGetConstantModelValue(record.get(), 2), -1.0);
    EXPECT_EQ(QrvGetConstantModelValue(record.get(), 4), -1.0);
}

TEST(ConstantModel, NullRecordAndOtherWhich) {
    for (int which : {-1, 0, 1, 2, 3, 4, 5, 99}) {
        EXPECT_FALSE(QrvIsConstantModel(nullptr, which));
        EXPECT_EQ(QrvGetConstantModelValue(nullptr, which), 0.0);
    }
    auto record = makeRecord();
    setBlock(record->Vis, 1, {11.0});
    for (int which : {-1, 0, 5, 99}) {
        EXPECT_FALSE(QrvIsConstantModel(record.get(), which));
        EXPECT_EQ(QrvGetConstantModelValue(record.get(), which), -1.0);
    }
    setNullBlock(record->Cp, 1, 1);
    EXPECT_TRUE(QrvIsConstantModel(record.get(), 3));
    EXPECT_EQ(QrvGetConstantModelValue(record.get(), 3), -1.0);
}

TEST(ConstantModel, BlockWithoutValuesGivesMinusOne) {
    // An array is there but Count says it holds nothing: the value is not read.
    auto record = makeRecord();
    for (int which = 1; which <= 4; ++which) {
        QrvMatParam& block = which == 1   ? record->Vis
                             : which == 2 ? record->PVT
                             : which == 3 ? record->Cp
                                          : record->K;
        setBlock(block, 1, {7.5});
        EXPECT_EQ(QrvGetConstantModelValue(record.get(), which), 7.5);
        for (int count : {0, -1, INT_MIN}) {
            block.Count = count;
            EXPECT_TRUE(QrvIsConstantModel(record.get(), which));
            EXPECT_EQ(QrvGetConstantModelValue(record.get(), which), -1.0) << which << " " << count;
        }
        block.Count = 1;
    }
}

TEST(ElasticModulus, IndexTwoForModelsZeroToSix) {
    for (int model = 0; model <= 6; ++model) {
        EXPECT_EQ(QrvGetElasticModulus(withMech(kPlastic, model).get()), 102) << model;
        EXPECT_EQ(QrvGetElasticModulus(withMech(kThermoset, model).get()), 102) << model;
    }
    EXPECT_EQ(QrvGetElasticModulus(withMech(kPlastic, 7).get()), -1.0);
    EXPECT_EQ(QrvGetElasticModulus(withMech(kPlastic, -1).get()), -1.0);
    EXPECT_EQ(QrvGetElasticModulus(withMech(kPlastic, 8).get()), -1.0);
    EXPECT_EQ(QrvGetElasticModulus(nullptr), -1.0);
    auto record = withMech(kPlastic, 0);
    setNullBlock(record->Mech, 0, 7);
    EXPECT_EQ(QrvGetElasticModulus(record.get()), -1.0);
    setBlock(record->Mech, 0, places(2));
    EXPECT_EQ(QrvGetElasticModulus(record.get()), -1.0);
}

TEST(Clte, ThermosetExpansionsByModel) {
    for (int model : {0, 1, 2}) {
        auto record = withMech(kThermoset, model);
        EXPECT_EQ(QrvGetCLTEa1_Melt(record.get()), 105) << model;
        EXPECT_EQ(QrvGetCLTEa1_Solid(record.get()), 106) << model;
    }
    for (int model : {3, 4, 5, 6, 7, 42, -3}) {
        auto record = withMech(kThermoset, model);
        EXPECT_EQ(QrvGetCLTEa1_Melt(record.get()), 103) << model;
        EXPECT_EQ(QrvGetCLTEa1_Solid(record.get()), 104) << model;
    }
    for (int model : {1, 2}) {
        auto record = withMech(kThermoset, model);
        EXPECT_EQ(QrvGetCLTEa2_Melt(record.get()), 107) << model;
        EXPECT_EQ(QrvGetCLTEa2_Solid(record.get()), 108) << model;
    }
    for (int model : {0, 3, 4, 5, 6, 7}) {
        auto record = withMech(kThermoset, model);
        EXPECT_EQ(QrvGetCLTEa2_Melt(record.get()), -1.0) << model;
        EXPECT_EQ(QrvGetCLTEa2_Solid(record.get()), -1.0) << model;
    }
}

TEST(Clte, ThermoplasticOrEmptyBlockGivesMinusOne) {
    for (int type : {0, 1, 3, 9}) {
        auto record = withMech(type, 1);
        EXPECT_EQ(QrvGetCLTEa1_Melt(record.get()), -1.0);
        EXPECT_EQ(QrvGetCLTEa1_Solid(record.get()), -1.0);
        EXPECT_EQ(QrvGetCLTEa2_Melt(record.get()), -1.0);
        EXPECT_EQ(QrvGetCLTEa2_Solid(record.get()), -1.0);
    }
    EXPECT_EQ(QrvGetCLTEa1_Melt(nullptr), -1.0);
    EXPECT_EQ(QrvGetCLTEa2_Solid(nullptr), -1.0);
    auto record = withMech(kThermoset, 1);
    setNullBlock(record->Mech, 1, 9);
    EXPECT_EQ(QrvGetCLTEa1_Melt(record.get()), -1.0);
    setNullBlock(record->Mech, 1, 0);
    record->Mech.Para = new double[0];
    EXPECT_EQ(QrvGetCLTEa1_Melt(record.get()), -1.0);
    // Model 0 fills seven places: a1 is there, a2 is not.
    setBlock(record->Mech, 0, places(7));
    EXPECT_EQ(QrvGetCLTEa1_Melt(record.get()), 105);
    EXPECT_EQ(QrvGetCLTEa2_Melt(record.get()), -1.0);
    // Model 1 cut short before a2 of the solid.
    setBlock(record->Mech, 1, places(8));
    EXPECT_EQ(QrvGetCLTEa2_Melt(record.get()), 107);
    EXPECT_EQ(QrvGetCLTEa2_Solid(record.get()), -1.0);
}

TEST(Fiber, PercentAndAspectRatioByModelAndFamily) {
    EXPECT_EQ(QrvGetFiberPercent(withMech(kPlastic, 2).get()), 109);
    EXPECT_EQ(QrvGetFiberPercent(withMech(kThermoset, 2).get()), 111);
    EXPECT_EQ(QrvGetFiberAspectRatio(withMech(kPlastic, 2).get()), 107);
    EXPECT_EQ(QrvGetFiberAspectRatio(withMech(kThermoset, 2).get()), 109);
    for (int model : {3, 4, 5}) {
        EXPECT_EQ(QrvGetFiberPercent(withMech(kPlastic, model).get()), 104);
        EXPECT_EQ(QrvGetFiberPercent(withMech(kThermoset, model).get()), 105);
        EXPECT_EQ(QrvGetFiberAspectRatio(withMech(kPlastic, model).get()), 112);
        EXPECT_EQ(QrvGetFiberAspectRatio(withMech(kThermoset, model).get()), 113);
        // Metals read the thermoplastic layout.
        EXPECT_EQ(QrvGetFiberPercent(withMech(QRV_TYPE_METAL, model).get()), 104);
    }
    for (int model : {0, 1, 6, 7, 8, -1}) {
        EXPECT_EQ(QrvGetFiberPercent(withMech(kPlastic, model).get()), 0.0);
        EXPECT_EQ(QrvGetFiberAspectRatio(withMech(kPlastic, model).get()), -1.0);
    }
    EXPECT_EQ(QrvGetFiberPercent(nullptr), 0.0);
    EXPECT_EQ(QrvGetFiberAspectRatio(nullptr), -1.0);
    auto record = withMech(kPlastic, 3);
    setNullBlock(record->Mech, 3, 14);
    EXPECT_EQ(QrvGetFiberPercent(record.get()), 0.0);
    EXPECT_EQ(QrvGetFiberAspectRatio(record.get()), -1.0);
    setBlock(record->Mech, 3, places(12));
    EXPECT_EQ(QrvGetFiberPercent(record.get()), 104);
    EXPECT_EQ(QrvGetFiberAspectRatio(record.get()), -1.0);
}

TEST(Filler, FlakeRecord) {
    auto record = withMech(kPlastic, 6, 10);
    EXPECT_EQ(QrvGetFillerType(record.get()), 2);
    EXPECT_EQ(QrvGetFiberPercent(record.get()), 0.0);
    EXPECT_EQ(QrvGetFillerPercent(record.get()), 104);
    EXPECT_EQ(QrvGetFillerAspectRatio(record.get()), 109);
    EXPECT_EQ(QrvGetFiberAspectRatio(record.get()), -1.0);
    EXPECT_EQ(QrvGetElasticModulus(record.get()), 102);
    setNullBlock(record->Mech, 6, 10);
    EXPECT_EQ(QrvGetFillerAspectRatio(record.get()), -1.0);
    setBlock(record->Mech, 6, places(9));
    EXPECT_EQ(QrvGetFillerAspectRatio(record.get()), -1.0);
}

TEST(Filler, PowderRecord) {
    auto record = withMech(kPlastic, 7, 9);
    EXPECT_EQ(QrvGetFillerType(record.get()), 3);
    EXPECT_EQ(QrvGetElasticModulus(record.get()), -1.0);
    EXPECT_EQ(QrvGetFillerAspectRatio(record.get()), 1.0);
    EXPECT_EQ(QrvGetFillerPercent(record.get()), 104);
    EXPECT_EQ(QrvGetFillerPercent(withMech(kThermoset, 7).get()), 104);
}

TEST(Filler, TypeByModel) {
    const int expected[] = {0, 0, 1, 1, 1, 1, 2, 3};
    for (int model = 0; model <= 7; ++model)
        EXPECT_EQ(QrvGetFillerType(withMech(kPlastic, model).get()), expected[model]) << model;
    EXPECT_EQ(QrvGetFillerType(withMech(kPlastic, 8).get()), 0);
    EXPECT_EQ(QrvGetFillerType(withMech(kPlastic, -1).get()), 0);
    EXPECT_EQ(QrvGetFillerType(nullptr), 0);
}

TEST(Filler, PureWithPowderBlockIsPowderButHasNoPercent) {
    for (int model : {0, 1}) {
        auto record = withMech(kPlastic, model, 7);
        setBlock(record->PW, 2, {30.0, 2.5});
        EXPECT_EQ(QrvGetFillerType(record.get()), 3);
        EXPECT_EQ(QrvGetFillerPercent(record.get()), 0.0);
        EXPECT_EQ(QrvGetFillerAspectRatio(record.get()), 1.0);
        record->PW.Model = 0;
        EXPECT_EQ(QrvGetFillerType(record.get()), 0);
        EXPECT_EQ(QrvGetFillerAspectRatio(record.get()), -1.0);
        record->PW.Model = 2;
        record->PW.Count = 0;
        EXPECT_EQ(QrvGetFillerType(record.get()), 0);
        record->PW.Count = 2;
    }
    // Models past the pure ones ignore the powder block.
    auto record = withMech(kPlastic, 3);
    setBlock(record->PW, 2, {30.0, 2.5});
    EXPECT_EQ(QrvGetFillerType(record.get()), 1);
}

TEST(Filler, PercentAndAspectRatioOfFibres) {
    EXPECT_EQ(QrvGetFillerPercent(withMech(kPlastic, 2).get()), 109);
    EXPECT_EQ(QrvGetFillerPercent(withMech(kThermoset, 4).get()), 105);
    EXPECT_EQ(QrvGetFillerAspectRatio(withMech(kThermoset, 2).get()), 109);
    EXPECT_EQ(QrvGetFillerAspectRatio(withMech(kPlastic, 5).get()), 112);
    EXPECT_EQ(QrvGetFillerPercent(nullptr), 0.0);
    EXPECT_EQ(QrvGetFillerAspectRatio(nullptr), -1.0);
    EXPECT_EQ(QrvGetFillerAspectRatio(withMech(kPlastic, 0).get()), -1.0);
}

TEST(Fiber, TypeTexts) {
    const char* texts[] = {"Isotropic pure polymer",         "Anisotropic pure polymer",
                           "Fiber(Customized,Experimental)", "Fiber(Customized,Predicted)",
                           "Fiber(E-glass GF,Predicted)",    "Fiber(T300 CF,Predicted)"};
    for (int model = 0; model <= 5; ++model)
        EXPECT_STREQ(QrvGetFiberType(withMech(kPlastic, model).get()), texts[model]);
    for (int model : {6, 7, -1, 99})
        EXPECT_STREQ(QrvGetFiberType(withMech(kPlastic, model).get()),
                     "Non-Thermoplastic/No Fiber");
    EXPECT_STREQ(QrvGetFiberType(nullptr), "No Material");
}

TEST(Temperatures, PlacesOfTheTempBlock) {
    std::unique_ptr<QrvMaterial, void (*)(QrvMaterial*)> record(
        QrvGetDefaultMaterial(1, 1, false, 1, 1, 0), QrvReleaseMaterial);
    EXPECT_EQ(QrvGetMeltTempMin(record.get()), 200);
    EXPECT_EQ(QrvGetMeltTempMax(record.get()), 250);
    EXPECT_EQ(QrvGetMoldTempMin(record.get()), 40);
    EXPECT_EQ(QrvGetMoldTempMax(record.get()), 80);
    EXPECT_EQ(QrvGetEjectTemp(record.get()), 88);
    EXPECT_EQ(QrvGetFreezeTemp(record.get()), 130);
}

TEST(Temperatures, NullRecordOrMissingBlockGivesMinusOne) {
    using Getter = double (*)(QrvMaterial*);
    const Getter getters[] = {QrvGetMeltTempMin, QrvGetMeltTempMax, QrvGetMoldTempMin,
                              QrvGetMoldTempMax, QrvGetEjectTemp,   QrvGetFreezeTemp};
    auto record = makeRecord();
    for (Getter get : getters) {
        EXPECT_EQ(get(nullptr), -1.0);
        EXPECT_EQ(get(record.get()), -1.0);
    }
    setNullBlock(record->Temp, 2, 8);
    for (Getter get : getters)
        EXPECT_EQ(get(record.get()), -1.0);
    setBlock(record->Temp, 2, {200, 225, 250, 40, 60, 80});
    EXPECT_EQ(QrvGetMoldTempMax(record.get()), 80);
    EXPECT_EQ(QrvGetEjectTemp(record.get()), -1.0);
    EXPECT_EQ(QrvGetFreezeTemp(record.get()), -1.0);
}

// ((V2 - V1)/V1 100)^(1/3) of the generated samples, worked out by hand.
TEST(LinearShrinkage, GeneratedSamples) {
    std::unique_ptr<QrvMaterial, void (*)(QrvMaterial*)> crystalline(
        QrvGetDefaultMaterial(1, 5, true, 1, 1, 0), QrvReleaseMaterial);
    EXPECT_NEAR(QrvGetLinearShrinkage(crystalline.get()), 2.1692755315330658, 1e-12);
    std::unique_ptr<QrvMaterial, void (*)(QrvMaterial*)> amorphous(
        QrvGetDefaultMaterial(1, 5, false, 1, 1, 0), QrvReleaseMaterial);
    EXPECT_NEAR(QrvGetLinearShrinkage(amorphous.get()), 1.404246531010247, 1e-12);
}

TEST(LinearShrinkage, TakenAtNoConversion) {
    // Spencer-Gilmore-C, V = V0 + (1 - Zeta x) R T/(P + P0): with x = 0 its volumes are those of
    // the plain form, whatever Zeta is.
    auto record = makeRecord(kThermoset);
    setBlock(record->PVT, 6, {0.85, 3.2e9, 2.6e5, 0.5});
    const double v1 = 0.85 + 2.6e5 * (25.0 + 273.15) / (0.0 + 3.2e9);
    const double v2 = 0.85 + 2.6e5 * (250.0 + 273.15) / (1e9 + 3.2e9);
    EXPECT_NEAR(QrvGetLinearShrinkage(record.get()), std::cbrt((v2 - v1) / v1 * 100.0), 1e-13);
}

TEST(LinearShrinkage, FormulaAndItsSentinels) {
    auto record = makeRecord(kThermoset);
    setBlock(record->PVT, 2, {0.85, 3.2e9, 2.6e5});
    const double v1 = 0.85 + 2.6e5 * (25.0 + 273.15) / (0.0 + 3.2e9);
    const double v2 = 0.85 + 2.6e5 * (250.0 + 273.15) / (1e9 + 3.2e9);
    EXPECT_EQ(QrvGetLinearShrinkage(record.get()),
              std::pow((v2 - v1) / v1 * 100.0, 0.3333333333333333));
    // A volume that grows ten thousandfold: at a percentage of about 1.6e6 the last bit of the
    // exponent shows in the result, so the double 0.3333333333333333 itself is checked.
    setBlock(record->PVT, 2, {0.85, -1e9 + 1e3, 2.6e4});
    const double low = QrvGetSpecificVolume(record.get(), 0.0, 25.0, 0.0);
    const double high = QrvGetSpecificVolume(record.get(), 1e9, 250.0, 0.0);
    const double percent = (high - low) / low * 100.0;
    ASSERT_GT(percent, 1e6);
    const double third = 0.3333333333333333;
    ASSERT_NE(std::pow(percent, third), std::pow(percent, std::nextafter(third, 1.0)));
    ASSERT_NE(std::pow(percent, third), std::pow(percent, std::nextafter(third, 0.0)));
    EXPECT_EQ(QrvGetLinearShrinkage(record.get()), std::pow(percent, third));
    // A volume that falls gives the power of a negative base.
    setBlock(record->PVT, 2, {0.85, 1e8, 2.6e4});
    EXPECT_TRUE(std::isnan(QrvGetLinearShrinkage(record.get())));
    record->FileType = QRV_TYPE_METAL;
    EXPECT_EQ(QrvGetLinearShrinkage(record.get()), -1.0);
    EXPECT_EQ(QrvGetLinearShrinkage(nullptr), -1.0);
}

}  // namespace
