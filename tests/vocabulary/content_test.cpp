// The content dump: whole texts of a thermoplastic and a thermoset record, character for
// character, and the bounds of its two buffers.
#include <gtest/gtest.h>

#include <cstdio>
#include <string>

#include "vocabulary/test_record.h"

using vocabulary_test::TestRecord;

namespace {

// A thermoplastic with a block of every kind the dump shows, one empty block, a missing text and
// blocks that the thermoplastic dump must leave out.
void fillThermoplastic(TestRecord& r) {
    r->FileType = 1;
    r->FileVer = 9012;
    r->LastEditDate = 20230115;
    r->MeasureDate = 20221130;
    r.text(&QrvMaterial::Polymer, "PP");
    r.text(&QrvMaterial::Producer, "Acme Polymers");
    r.text(&QrvMaterial::GradeName, "PP-123 HF");
    r.text(&QrvMaterial::Comment, "MFI 12 g/10min");
    r.block(&QrvMaterial::Vis, 1, 4, {0.27845, 876860.0, 1.1326e-06, 11642.0, 0.0});
    r.block(&QrvMaterial::PVT, 2, 3, {1.1, 0.123456789, 1e20, -3.5, 0.0894});
    r->Cp.Source = 3;
    r->Cp.Model = 1;  // Count 0: three lines and no parameter
    r.block(&QrvMaterial::K, 1000, 1, {15000.0});
    r.block(&QrvMaterial::Mech, 7, 0, {0.35, 0.4, 1.4e10, 1.4e10, 5e9, 9e-5, 9e-5});
    r.block(&QrvMaterial::Temp, 1000, 2, {230.0, 200.0, 260.0, 40.0, 20.0, 60.0, 120.0});
    r.block(&QrvMaterial::KN, 5, 2, {1.0, 2.0});
}

const char* const kThermoplasticDump =
    "// -1. Content //\n"
    "Material file version = 9012\n"
    "Material file type    = 1\n"
    "Last modified date    = 20230115\n"
    "Measurement date      = 20221130\n"
    "\n"
    "Polymer     = PP\n"
    "Producer    = Acme Polymers\n"
    "Grade Name  = PP-123 HF\n"
    "Comment     = MFI 12 g/10min\n"
    "Source      = (null)\n"
    "\n"
    "// -2. Viscosity //\n"
    "Model       = 4\n"
    "Count       = 5\n"
    "Source      = 1\n"
    "Parameter 1 = 0.27845\n"
    "Parameter 2 = 876860\n"
    "Parameter 3 = 1.1326e-06\n"
    "Parameter 4 = 11642\n"
    "Parameter 5 = 0\n"
    "\n"
    "// -3. PVT //\n"
    "Model       = 3\n"
    "Count       = 5\n"
    "Source      = 2\n"
    "Parameter 1 = 1.1\n"
    "Parameter 2 = 0.123457\n"
    "Parameter 3 = 1e+20\n"
    "Parameter 4 = -3.5\n"
    "Parameter 5 = 0.0894\n"
    "\n"
    "// -4. Heat Capacity //\n"
    "Model       = 1\n"
    "Count       = 0\n"
    "Source      = 3\n"
    "\n"
    "// -5. Thermal Conductivity //\n"
    "Model       = 1\n"
    "Count       = 1\n"
    "Source      = 1000\n"
    "Parameter 1 = 15000\n"
    "\n"
    "// -6. Mechanical Properties //\n"
    "Model       = 0\n"
    "Count       = 7\n"
    "Source      = 7\n"
    "Parameter 1 = 0.35\n"
    "Parameter 2 = 0.4\n"
    "Parameter 3 = 1.4e+10\n"
    "Parameter 4 = 1.4e+10\n"
    "Parameter 5 = 5e+09\n"
    "Parameter 6 = 9e-05\n"
    "Parameter 7 = 9e-05\n"
    "\n"
    "// -7. Temperature //\n"
    "Model       = 2\n"
    "Count       = 7\n"
    "Source      = 1000\n"
    "Parameter 1 = 230\n"
    "Parameter 2 = 200\n"
    "Parameter 3 = 260\n"
    "Parameter 4 = 40\n"
    "Parameter 5 = 20\n"
    "Parameter 6 = 60\n"
    "Parameter 7 = 120\n"
    "\n"
    "// EOF //\n"
    "\n";

void fillThermoset(TestRecord& r) {
    r->FileType = 2;
    r->FileVer = 9018;
    r->LastEditDate = -1;
    r->MeasureDate = 0;
    r.text(&QrvMaterial::Polymer, "EMC");
    r.text(&QrvMaterial::Producer, "");
    r.text(&QrvMaterial::GradeName, "G 770");
    r.text(&QrvMaterial::Source, "legacy");
    r.block(&QrvMaterial::Vis, 1000, 10, {0.3, 1.5, 2.0, 3.2e-09, 9800.0});
    r.block(&QrvMaterial::PVT, 1000, 1, {0.5});
    r.block(&QrvMaterial::Cp, 1000, 1, {1.1e7});
    r.block(&QrvMaterial::K, 1000, 1, {70000.0});
    r.block(&QrvMaterial::KN, 1000, 2, {0.7, 1.3, 2e6, 1.5e7, 8000.0, 4500.0, 4.2e9});
    r.block(&QrvMaterial::Mech, 1, 1, {9.0});  // not in a thermoset dump
    r.block(&QrvMaterial::Temp, 1, 2, {9.0});  // nor this
}

const char* const kThermosetDump =
    "// -1. Content //\n"
    "Material file version = 9018\n"
    "Material file type    = 2\n"
    "Last modified date    = -1\n"
    "Measurement date      = 0\n"
    "\n"
    "Polymer     = EMC\n"
    "Producer    = \n"
    "Grade Name  = G 770\n"
    "Comment     = (null)\n"
    "Source      = legacy\n"
    "\n"
    "// -2. Viscosity //\n"
    "Model       = 10\n"
    "Count       = 5\n"
    "Source      = 1000\n"
    "Parameter 1 = 0.3\n"
    "Parameter 2 = 1.5\n"
    "Parameter 3 = 2\n"
    "Parameter 4 = 3.2e-09\n"
    "Parameter 5 = 9800\n"
    "\n"
    "// -3. PVT //\n"
    "Model       = 1\n"
    "Count       = 1\n"
    "Source      = 1000\n"
    "Parameter 1 = 0.5\n"
    "\n"
    "// -4. Heat Capacity //\n"
    "Model       = 1\n"
    "Count       = 1\n"
    "Source      = 1000\n"
    "Parameter 1 = 1.1e+07\n"
    "\n"
    "// -5. Thermal Conductivity //\n"
    "Model       = 1\n"
    "Count       = 1\n"
    "Source      = 1000\n"
    "Parameter 1 = 70000\n"
    "\n"
    "// -6. Curing Kinetics //\n"
    "Model       = 2\n"
    "Count       = 7\n"
    "Source      = 1000\n"
    "Parameter 1 = 0.7\n"
    "Parameter 2 = 1.3\n"
    "Parameter 3 = 2e+06\n"
    "Parameter 4 = 1.5e+07\n"
    "Parameter 5 = 8000\n"
    "Parameter 6 = 4500\n"
    "Parameter 7 = 4.2e+09\n"
    "\n"
    "// EOF //\n"
    "\n";

TEST(Content, ThermoplasticDumpHasSevenSections) {
    TestRecord r;
    fillThermoplastic(r);
    const char* text = QrvGetContent(r.get(), false);
    ASSERT_NE(text, nullptr);
    EXPECT_EQ(std::string(text), kThermoplasticDump);
}

TEST(Content, ThermosetDumpHasSixSectionsAndNoTemperature) {
    TestRecord r;
    fillThermoset(r);
    const char* text = QrvGetContent(r.get(), true);
    ASSERT_NE(text, nullptr);
    EXPECT_EQ(std::string(text), kThermosetDump);
    EXPECT_EQ(std::string(text).find("Temperature"), std::string::npos);
}

TEST(Content, TheFlagAndNotTheFileTypeChoosesTheSections) {
    TestRecord r;
    fillThermoplastic(r);
    const std::string text = QrvGetContent(r.get(), true);
    EXPECT_NE(text.find("// -6. Curing Kinetics //\nModel       = 2\nCount       = 2\n"
                        "Source      = 5\nParameter 1 = 1\nParameter 2 = 2\n\n// EOF //\n\n"),
              std::string::npos);
    EXPECT_EQ(text.find("Mechanical"), std::string::npos);
}

TEST(Content, NegativeCountPrintsNoParameters) {
    TestRecord r;
    r->K.Count = -4;
    r->K.Model = 2;
    const std::string text = QrvGetContent(r.get(), false);
    EXPECT_NE(text.find("// -5. Thermal Conductivity //\nModel       = 2\nCount       = -4\n"
                        "Source      = 0\n\n// -6."),
              std::string::npos);
}

TEST(Content, EmptyRecordDumpsEveryBlockEmpty) {
    TestRecord r;
    std::string expected =
        "// -1. Content //\nMaterial file version = 0\nMaterial file type    = 1\n"
        "Last modified date    = 0\nMeasurement date      = 0\n\n"
        "Polymer     = (null)\nProducer    = (null)\nGrade Name  = (null)\n"
        "Comment     = (null)\nSource      = (null)\n";
    for (const char* heading : {"// -2. Viscosity //", "// -3. PVT //", "// -4. Heat Capacity //",
                                "// -5. Thermal Conductivity //", "// -6. Curing Kinetics //"})
        expected +=
            "\n" + std::string(heading) + "\nModel       = 0\nCount       = 0\nSource      = 0\n";
    expected += "\n// EOF //\n\n";
    EXPECT_EQ(std::string(QrvGetContent(r.get(), true)), expected);
}

TEST(Content, NullRecordGivesNull) {
    EXPECT_EQ(QrvGetContent(nullptr, false), nullptr);
    EXPECT_EQ(QrvGetContent(nullptr, true), nullptr);
}

TEST(Content, TextLivesUntilTheNextCall) {
    TestRecord plastic;
    fillThermoplastic(plastic);
    TestRecord thermoset;
    fillThermoset(thermoset);
    const char* first = QrvGetContent(plastic.get(), false);
    // Naming calls in between do not touch it.
    EXPECT_STREQ(QrvGetVisModelName(plastic.get()), "Modified Cross Model 2");
    EXPECT_STREQ(QrvGetMaterialType(plastic.get()), "Thermoplastic");
    EXPECT_STREQ(first, kThermoplasticDump);
    const char* second = QrvGetContent(thermoset.get(), true);
    EXPECT_STREQ(second, kThermosetDump);
}

TEST(Content, BlockWithParametersButNoArrayGivesNull) {
    TestRecord r;
    r->Vis.Model = 2;
    r->Vis.Count = 3;  // Para stays null
    EXPECT_EQ(QrvGetContent(r.get(), false), nullptr);
    r->Vis.Count = 0;
    EXPECT_NE(QrvGetContent(r.get(), false), nullptr);
}

// --- bounds

// The dump as the format prescribes it, with no bound, from which the tests size their inputs.
std::string unboundedDump(QrvMaterial& m, bool thermoset) {
    auto f = [](const char* format, auto... args) {
        char line[4096];
        std::snprintf(line, sizeof line, format, args...);
        return std::string(line);
    };
    auto text = [](const char* t) { return t ? t : "(null)"; };
    auto block = [&f](const QrvMatParam& b) {
        std::string s = f("Model       = %d\n", b.Model) + f("Count       = %d\n", b.Count) +
                        f("Source      = %d\n", b.Source);
        for (int i = 1; i <= b.Count; ++i)
            s += f("Parameter %d = %g\n", i, b.Para[i - 1]);
        return s;
    };
    std::string s = "// -1. Content //\n";
    s += f("Material file version = %d\n", m.FileVer) +
         f("Material file type    = %d\n", m.FileType) +
         f("Last modified date    = %d\n", m.LastEditDate) +
         f("Measurement date      = %d\n\n", m.MeasureDate);
    s += f("Polymer     = %s\n", text(m.Polymer)) + f("Producer    = %s\n", text(m.Producer)) +
         f("Grade Name  = %s\n", text(m.GradeName)) + f("Comment     = %s\n", text(m.Comment)) +
         f("Source      = %s\n", text(m.Source));
    s += "\n// -2. Viscosity //\n" + block(m.Vis) + "\n// -3. PVT //\n" + block(m.PVT) +
         "\n// -4. Heat Capacity //\n" + block(m.Cp) + "\n// -5. Thermal Conductivity //\n" +
         block(m.K);
    if (thermoset) {
        s += "\n// -6. Curing Kinetics //\n" + block(m.KN);
    } else {
        s += "\n// -6. Mechanical Properties //\n" + block(m.Mech) + "\n// -7. Temperature //\n" +
             block(m.Temp);
    }
    return s + "\n// EOF //\n\n";
}

TEST(Content, TheTranscriptionAgreesWithTheTypedDumps) {
    TestRecord plastic;
    fillThermoplastic(plastic);
    EXPECT_EQ(unboundedDump(*plastic.get(), false), kThermoplasticDump);
    TestRecord thermoset;
    fillThermoset(thermoset);
    EXPECT_EQ(unboundedDump(*thermoset.get(), true), kThermosetDump);
}

// A record whose dump is exactly `length` characters: many Vis parameters, then a grade name
// that makes up the rest.
void sizeDumpTo(TestRecord& r, std::size_t length) {
    r.block(&QrvMaterial::Vis, 0, 1, {});
    QrvMatParam& vis = r->Vis;
    delete[] vis.Para;
    vis.Count = 130;
    vis.Para = new double[vis.Count];
    for (int i = 0; i < vis.Count; ++i)
        vis.Para[i] = 1.0 + i;
    r.text(&QrvMaterial::GradeName, "");
    const std::size_t base = unboundedDump(*r.get(), false).size();
    ASSERT_LE(base, length);
    ASSERT_LE(length - base, 200u);
    r.text(&QrvMaterial::GradeName, std::string(length - base, 'x'));
    ASSERT_EQ(unboundedDump(*r.get(), false).size(), length);
}

TEST(Content, TextOf3071CharactersFitsTheBuffer) {
    TestRecord r;
    sizeDumpTo(r, 3071);
    const char* text = QrvGetContent(r.get(), false);
    ASSERT_NE(text, nullptr);
    EXPECT_EQ(std::string(text), unboundedDump(*r.get(), false));
}

TEST(Content, TextOf3072CharactersGivesNull) {
    TestRecord r;
    sizeDumpTo(r, 3072);
    EXPECT_EQ(QrvGetContent(r.get(), false), nullptr);
}

TEST(Content, HugeCountGivesNullWithoutReadingPastTheBound) {
    // The array holds 1000 values; the dump gives up long before it would read them all.
    TestRecord r;
    QrvMatParam& vis = r->Vis;
    vis.Count = 1000;
    vis.Para = new double[vis.Count]();
    EXPECT_EQ(QrvGetContent(r.get(), false), nullptr);
}

TEST(Content, LineOf255CharactersFitsTheLineBuffer) {
    // "Comment     = " is 14 characters and the line ends in a newline: a 240-character comment
    // makes a line of 255.
    TestRecord r;
    r.text(&QrvMaterial::Comment, std::string(240, 'c'));
    const char* text = QrvGetContent(r.get(), false);
    ASSERT_NE(text, nullptr);
    EXPECT_NE(std::string(text).find("Comment     = " + std::string(240, 'c') + "\n"),
              std::string::npos);
}

TEST(Content, LineOf256CharactersGivesNull) {
    TestRecord r;
    r.text(&QrvMaterial::Comment, std::string(241, 'c'));
    EXPECT_EQ(QrvGetContent(r.get(), false), nullptr);
    r.text(&QrvMaterial::Comment, "short");
    r.text(&QrvMaterial::Polymer, std::string(5000, 'p'));
    EXPECT_EQ(QrvGetContent(r.get(), true), nullptr);
}

TEST(Content, FailedCallLeavesNoTextButTheNextCallWorks) {
    TestRecord bad;
    bad.text(&QrvMaterial::Producer, std::string(300, 'p'));
    EXPECT_EQ(QrvGetContent(bad.get(), false), nullptr);
    TestRecord good;
    fillThermoset(good);
    EXPECT_STREQ(QrvGetContent(good.get(), true), kThermosetDump);
}

}  // namespace
