// MATIO_Manipulator forwarders of the property evaluators and value queries: their own guards
// on an empty object or a missing block, and the flat result otherwise.
#include <gtest/gtest.h>

#include <cstring>
#include <memory>

#include <quorvalib/quorvalib.h>

#include "support/material_ptr.h"

namespace {

using qrvtest::setBlock;
using qrvtest::setNullBlock;

// The held record, changed in place to set up a case.
QrvMaterial& held(MATIO_Manipulator& manipulator) {
    return *const_cast<QrvMaterial*>(manipulator.GetQrvMaterial());
}

TEST(ManipulatorProperties, EmptyObjectAnswersZeroForTheEvaluators) {
    MATIO_Manipulator m;
    EXPECT_EQ(m.GetSpecificVolume(1e8, 200.0), 0.0);
    EXPECT_EQ(m.GetDensity(1e8, 200.0, 0.5), 0.0);
    EXPECT_EQ(m.GetHeatCapacity(100.0), 0.0);
    EXPECT_EQ(m.GetThermalConductivity(100.0), 0.0);
    EXPECT_EQ(m.GetConversion(150.0, 1.0, 0.2), 0.0);
    EXPECT_EQ(m.GetNoFlowTemperature(), 0.0);
    EXPECT_FALSE(m.HasFiller());
    EXPECT_EQ(m.GetFiberType(), nullptr);
}

TEST(ManipulatorProperties, EmptyObjectHandsTheNullOnToTheFlatFunctions) {
    MATIO_Manipulator m;
    EXPECT_FALSE(m.IsConstantModel(1));
    EXPECT_EQ(m.GetConstantModelValue(1), 0.0);
    EXPECT_EQ(m.GetElasticModulus(), -1.0);
    EXPECT_EQ(m.GetFiberPercent(), 0.0);
    EXPECT_EQ(m.GetFiberAspectRatio(), -1.0);
    EXPECT_EQ(m.GetLinearShrinkage(), -1.0);
    EXPECT_EQ(m.GetCLTEa1_Melt(), -1.0);
    EXPECT_EQ(m.GetCLTEa1_Solid(), -1.0);
    EXPECT_EQ(m.GetCLTEa2_Melt(), -1.0);
    EXPECT_EQ(m.GetCLTEa2_Solid(), -1.0);
    EXPECT_FALSE(m.HasViscoelasticData());
    EXPECT_FALSE(m.HasOpticData());
    EXPECT_FALSE(m.HasCrystallinityData());
    EXPECT_FALSE(m.ThermosetHasMech());
    EXPECT_FALSE(m.ThermosetHasScorchIndex());
    // No guard of the class's own here: the flat functions answer their miss value.
    EXPECT_EQ(m.GetMoldTempMax(), -1.0);
    EXPECT_EQ(m.GetMoldTempMin(), -1.0);
    EXPECT_EQ(m.GetMeltTempMax(), -1.0);
    EXPECT_EQ(m.GetMeltTempMin(), -1.0);
    EXPECT_EQ(m.GetEjectTemp(), -1.0);
    EXPECT_EQ(m.GetFreezeTemp(), -1.0);
    EXPECT_EQ(m.GetNonPlastic_Cp(), -1.0);
    EXPECT_EQ(m.GetNonPlastic_K(), -1.0);
    EXPECT_EQ(m.GetNonPlastic_PR(), -1.0);
    EXPECT_EQ(m.GetNonPlastic_EM(), -1.0);
    EXPECT_EQ(m.GetNonPlastic_CLTE(), -1.0);
    EXPECT_EQ(m.GetNonPlastic_Density(), -1.0);
}

TEST(ManipulatorProperties, ThermoplasticForwardsToTheFlatFunctions) {
    MATIO_Manipulator m;
    ASSERT_TRUE(m.GetDefaultMaterial(2, 5, true, 3, 2, 2));
    QrvMaterial* record = &held(m);
    EXPECT_EQ(m.GetSpecificVolume(5e8, 150.0), QrvGetSpecificVolume(record, 5e8, 150.0, 0.0));
    EXPECT_EQ(m.GetDensity(5e8, 150.0, 0.0), QrvGetDensity(record, 5e8, 150.0, 0.0));
    EXPECT_EQ(m.GetHeatCapacity(125.0), 18980000.0);
    EXPECT_EQ(m.GetThermalConductivity(160.0), 27750.0);
    // A generated record is of body version 7101 with the two-domain Tait model: b5 in Celsius.
    EXPECT_EQ(m.GetNoFlowTemperature(), 448.5 - 273.15);
    EXPECT_EQ(m.GetMeltTempMin(), 200.0);
    EXPECT_EQ(m.GetMeltTempMax(), 250.0);
    EXPECT_EQ(m.GetMoldTempMin(), 40.0);
    EXPECT_EQ(m.GetMoldTempMax(), 80.0);
    EXPECT_EQ(m.GetEjectTemp(), 88.0);
    EXPECT_EQ(m.GetFreezeTemp(), 130.0);
    // Filler id 2: fibre weight percentage 15 at index 9, length/diameter 20 at index 7.
    EXPECT_TRUE(m.HasFiller());
    EXPECT_EQ(m.GetFiberPercent(), 15.0);
    EXPECT_EQ(m.GetFiberAspectRatio(), 20.0);
    EXPECT_EQ(m.GetElasticModulus(), 4.48e+10);
    EXPECT_STREQ(m.GetFiberType(), "Fiber(Customized,Experimental)");
    EXPECT_EQ(m.GetLinearShrinkage(), QrvGetLinearShrinkage(record));
    EXPECT_EQ(m.GetCLTEa1_Melt(), -1.0);  // a thermoplastic has no melt expansion of its own
    EXPECT_FALSE(m.IsConstantModel(2));
    EXPECT_FALSE(m.IsConstantModel(1));
    EXPECT_EQ(m.GetConstantModelValue(2), -1.0);
    // No kinetics on a thermoplastic: the guard answers.
    EXPECT_EQ(m.GetConversion(150.0, 1.0, 0.2), 0.0);
}

TEST(ManipulatorProperties, PureFillerAndConstantModels) {
    MATIO_Manipulator m;
    ASSERT_TRUE(m.GetDefaultMaterial(1, 1, false, 1, 1, 0));
    EXPECT_FALSE(m.HasFiller());
    EXPECT_STREQ(m.GetFiberType(), "Isotropic pure polymer");
    EXPECT_TRUE(m.IsConstantModel(1));
    EXPECT_TRUE(m.IsConstantModel(2));
    EXPECT_EQ(m.GetConstantModelValue(3), 23074000.0);
    EXPECT_EQ(m.GetConstantModelValue(4), 23450.0);
    EXPECT_EQ(m.GetSpecificVolume(1e8, 200.0), 1.0);
}

TEST(ManipulatorProperties, DensityIgnoresItsThirdArgument) {
    MATIO_Manipulator m;
    ASSERT_TRUE(m.GetDefaultMaterial(1, 1, false, 1, 1, 0));
    QrvMaterial& record = held(m);
    setBlock(record.PVT, 7, {0.62, 1.8e-4, 2.4e9, 3.1e-3, 0.4});
    const double atZero = m.GetDensity(1e8, 200.0, 0.0);
    EXPECT_EQ(m.GetDensity(1e8, 200.0, 0.7), atZero);
    EXPECT_EQ(atZero, QrvGetDensity(&record, 1e8, 200.0, 0.0));
    EXPECT_NE(QrvGetDensity(&record, 1e8, 200.0, 0.7), atZero);
    EXPECT_EQ(m.GetSpecificVolume(1e8, 200.0), QrvGetSpecificVolume(&record, 1e8, 200.0, 0.0));
}

TEST(ManipulatorProperties, MissingBlocksAnswerZero) {
    MATIO_Manipulator m;
    ASSERT_TRUE(m.GetDefaultMaterial(1, 3, false, 9, 9, 0));  // ids 3 and 9 have no sample data
    EXPECT_EQ(m.GetSpecificVolume(1e8, 200.0), 0.0);
    EXPECT_EQ(m.GetDensity(1e8, 200.0, 0.0), 0.0);
    EXPECT_EQ(m.GetHeatCapacity(100.0), 0.0);
    EXPECT_EQ(m.GetThermalConductivity(100.0), 0.0);
    setNullBlock(held(m).Temp, 2, 8);
    EXPECT_EQ(m.GetNoFlowTemperature(), 0.0);
    EXPECT_EQ(m.GetFreezeTemp(), -1.0);
}

TEST(ManipulatorProperties, ThermosetForwardsConversionButHidesTheFiberType) {
    MATIO_Manipulator m;
    ASSERT_TRUE(m.GetDefaultMaterial(12, 1, false, 1, 1, 0));
    QrvMaterial* record = &held(m);
    EXPECT_TRUE(m.IsRIM());
    const double flat = QrvGetConversion(record, 170.0, 0.0, 0.5);
    EXPECT_GT(flat, 0.5);
    EXPECT_EQ(m.GetConversion(170.0, 0.0, 0.5), flat);
    EXPECT_EQ(m.GetConversion(170.0, 1.0, 0.5), QrvGetConversion(record, 170.0, 1.0, 0.5));
    EXPECT_EQ(m.GetFiberType(), nullptr);
    EXPECT_STREQ(QrvGetFiberType(record), "Isotropic pure polymer");
    // No Temp block on a generated thermoset.
    EXPECT_EQ(m.GetNoFlowTemperature(), 0.0);
    EXPECT_EQ(m.GetSpecificVolume(0.0, 25.0), 1.0 / 2.0);
    EXPECT_EQ(m.GetHeatCapacity(50.0), 10000000.0);
}

TEST(ManipulatorProperties, NonPlasticAndThermosetValues) {
    MATIO_Manipulator m;
    ASSERT_TRUE(m.GetDefaultMaterial(1, 1, false, 1, 1, 0));
    QrvMaterial& record = held(m);
    record.FileType = QRV_TYPE_METAL;
    setBlock(record.Mech, 0, {0.29, 0.29, 2.1e12, 2.1e12, 8.1e11, 1.2e-5, 1.2e-5});
    delete[] record.Comment;
    record.Comment = qrv::newText("Tool steel D=7.85g/cc");
    EXPECT_EQ(m.GetNonPlastic_Cp(), 23074000.0);
    EXPECT_EQ(m.GetNonPlastic_K(), 23450.0);
    EXPECT_EQ(m.GetNonPlastic_PR(), 0.29);
    EXPECT_EQ(m.GetNonPlastic_EM(), 2.1e12);
    EXPECT_EQ(m.GetNonPlastic_CLTE(), 1.2e-5);
    EXPECT_EQ(m.GetNonPlastic_Density(), 7.85);
    EXPECT_EQ(m.GetLinearShrinkage(), -1.0);

    record.FileType = QRV_TYPE_THERMOSET;
    setBlock(record.Mech, 1, {0.3, 0.3, 2e10, 2e10, 7e9, 6e-5, 2e-5, 5e-5, 1.5e-5});
    setBlock(record.SI, 1, {1.0});
    EXPECT_EQ(m.GetCLTEa1_Melt(), 6e-5);
    EXPECT_EQ(m.GetCLTEa1_Solid(), 2e-5);
    EXPECT_EQ(m.GetCLTEa2_Melt(), 5e-5);
    EXPECT_EQ(m.GetCLTEa2_Solid(), 1.5e-5);
    EXPECT_TRUE(m.ThermosetHasMech());
    EXPECT_TRUE(m.ThermosetHasScorchIndex());
    EXPECT_FALSE(m.HasViscoelasticData());
    setBlock(record.VE, 1, {1.0});
    setBlock(record.OP, 1, {1.0});
    setBlock(record.CR, 2, {1.0});
    EXPECT_TRUE(m.HasViscoelasticData());
    EXPECT_TRUE(m.HasOpticData());
    EXPECT_TRUE(m.HasCrystallinityData());
}

}  // namespace
