// MATIO_Manipulator: the content dump and the naming forwarders.
#include <gtest/gtest.h>
#include <quorvalib/quorvalib.h>

#include <stdexcept>
#include <string>

namespace {

TEST(ManipulatorContent, FreshObjectGivesNull) {
    MATIO_Manipulator m;
    EXPECT_EQ(m.GetContent(), nullptr);
}

TEST(ManipulatorContent, ThermoplasticDumpOfTheHeldRecord) {
    MATIO_Manipulator m;
    ASSERT_TRUE(m.GetDefaultMaterial(4, 3, false, 2, 2, 1));
    QrvMaterial* record = const_cast<QrvMaterial*>(m.GetQrvMaterial());
    const std::string expected = QrvGetContent(record, false);
    const char* text = m.GetContent();
    ASSERT_NE(text, nullptr);
    EXPECT_EQ(std::string(text), expected);
    EXPECT_NE(expected.find("// -7. Temperature //"), std::string::npos);
    EXPECT_EQ(expected.find("Curing"), std::string::npos);
}

TEST(ManipulatorContent, ThermosetMarkChoosesTheKineticsSection) {
    // The generated thermoset keeps FileType 1; the mark alone makes the dump a thermoset one.
    MATIO_Manipulator m;
    ASSERT_TRUE(m.GetDefaultMaterial(10, 0, false, 0, 0, 0));
    ASSERT_TRUE(m.IsRIM());
    const std::string text = m.GetContent();
    EXPECT_NE(text.find("Material file type    = 1\n"), std::string::npos);
    EXPECT_NE(text.find("// -6. Curing Kinetics //"), std::string::npos);
    EXPECT_EQ(text.find("Temperature"), std::string::npos);
}

TEST(ManipulatorNames, ForwardToTheFlatCalls) {
    MATIO_Manipulator m;
    ASSERT_TRUE(m.GetDefaultMaterial(5, 5, false, 2, 2, 1));
    EXPECT_STREQ(m.GetVisModelName(), "Modified Cross Model 3");
    EXPECT_STREQ(m.GetPVTModelName(), "Modified Tait Model 2");
    EXPECT_STREQ(m.GetCpModelName(), "CAE_Cp Model 1");
    EXPECT_STREQ(m.GetKModelName(), "CAE_K Model 1");
    EXPECT_STREQ(m.GetConvModelName(), "Non-thermosetting plastics");
    EXPECT_STREQ(m.GetVEModelName(), "No viscoelastic data");
    EXPECT_STREQ(m.GetCrystallinityName(), "None");
    EXPECT_STREQ(m.GetMaterialType(), "Thermoplastic");
    QrvMaterial* record = const_cast<QrvMaterial*>(m.GetQrvMaterial());
    EXPECT_EQ(std::string(m.GetMechModelName()), std::string(QrvGetMechModelName(record)));
    EXPECT_EQ(std::string(m.GetMFIString()), std::string(QrvGetMFIString(record)));
}

TEST(ManipulatorNames, MFIOfTheHeldComment) {
    MATIO_Manipulator m;
    ASSERT_TRUE(m.GetDefaultMaterial(2, 1, false, 1, 1, 0));
    // The generated comment names the model ids and no melt-flow index.
    EXPECT_STREQ(m.GetMFIString(), "Unavailable");
}

TEST(ManipulatorNames, NoRecordReachesTheFlatCalls) {
    MATIO_Manipulator m;
    EXPECT_STREQ(m.GetMFIString(), "fail");
    EXPECT_STREQ(m.GetMaterialType(), "fail");
    EXPECT_THROW(m.GetVisModelName(), std::invalid_argument);
    EXPECT_THROW(m.GetPVTModelName(), std::invalid_argument);
    EXPECT_THROW(m.GetCpModelName(), std::invalid_argument);
    EXPECT_THROW(m.GetKModelName(), std::invalid_argument);
    EXPECT_THROW(m.GetMechModelName(), std::invalid_argument);
    EXPECT_THROW(m.GetConvModelName(), std::invalid_argument);
    EXPECT_THROW(m.GetVEModelName(), std::invalid_argument);
    EXPECT_THROW(m.GetCrystallinityName(), std::invalid_argument);
}

}  // namespace
