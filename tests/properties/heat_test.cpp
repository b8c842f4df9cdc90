// Heat capacity and conductivity tables, and the single values of non-plastic records.
#include <gtest/gtest.h>

#include <cmath>
#include <limits>
#include <memory>

#include <quorvalib/quorvalib.h>

#include "support/material_ptr.h"

namespace {

using qrvtest::makeRecord;
using qrvtest::setBlock;
using qrvtest::setNullBlock;

const double kNaN = std::numeric_limits<double>::quiet_NaN();

// One segment of the table written out: value pair (c0, T0), (c1, T1).
double segment(double c0, double T0, double c1, double T1, double t) {
    return (c1 - c0) * (t - T0) / (T1 - T0) + c0;
}

TEST(HeatTable, NullRecordGivesMinusOne) {
    EXPECT_EQ(QrvGetHeatCapacity(nullptr, 100.0), -1.0);
    EXPECT_EQ(QrvGetThermalConductivity(nullptr, 100.0), -1.0);
}

TEST(HeatTable, OneValueAnswersForEveryTemperature) {
    auto record = makeRecord();
    setBlock(record->Cp, 1, {23074000.0});
    for (double t : {-1e300, -40.0, 0.0, 25.0, 1e300})
        EXPECT_EQ(QrvGetHeatCapacity(record.get(), t), 23074000.0);
}

TEST(HeatTable, TwoOrThreeValuesGiveTheFirstWithoutARangeTest) {
    auto record = makeRecord();
    setBlock(record->Cp, 2, {1.5e7, 100.0});
    for (double t : {50.0, 100.0, 150.0})
        EXPECT_EQ(QrvGetHeatCapacity(record.get(), t), 1.5e7);
    setBlock(record->Cp, 2, {1.5e7, 100.0, 2.5e7});
    EXPECT_EQ(QrvGetHeatCapacity(record.get(), 300.0), 1.5e7);
}

TEST(HeatTable, TwoPairsGiveTheirValuesAtTheirTemperatures) {
    auto record = makeRecord();
    setBlock(record->Cp, 2, {20000000.0, 125, 20610000.0, 225});
    EXPECT_EQ(QrvGetHeatCapacity(record.get(), 125.0), 20000000.0);
    EXPECT_EQ(QrvGetHeatCapacity(record.get(), 225.0), 20610000.0);
    EXPECT_EQ(QrvGetHeatCapacity(record.get(), 175.0), 20305000.0);
    EXPECT_EQ(QrvGetHeatCapacity(record.get(), 150.5),
              segment(20000000.0, 125, 20610000.0, 225, 150.5));
}

TEST(HeatTable, NoExtrapolationOutsideTheTable) {
    auto record = makeRecord();
    setBlock(record->Cp, 3, {14420000.0, 55, 17260000.0, 100, 20700000.0, 150, 22740000.0, 255});
    EXPECT_EQ(QrvGetHeatCapacity(record.get(), std::nextafter(55.0, 0.0)), 14420000.0);
    EXPECT_EQ(QrvGetHeatCapacity(record.get(), -200.0), 14420000.0);
    EXPECT_EQ(QrvGetHeatCapacity(record.get(), std::nextafter(255.0, 1e9)), 22740000.0);
    EXPECT_EQ(QrvGetHeatCapacity(record.get(), 1e6), 22740000.0);
}

TEST(HeatTable, GeneratedFourPairSampleInterpolates) {
    std::unique_ptr<QrvMaterial, void (*)(QrvMaterial*)> record(
        QrvGetDefaultMaterial(1, 1, false, 3, 2, 0), QrvReleaseMaterial);
    // (20.7e6 - 17.26e6)(125 - 100)/(150 - 100) + 17.26e6
    EXPECT_EQ(QrvGetHeatCapacity(record.get(), 125.0), 18980000.0);
    EXPECT_EQ(QrvGetHeatCapacity(record.get(), 100.0), 17260000.0);
    EXPECT_EQ(QrvGetHeatCapacity(record.get(), 202.5), 21720000.0);
    // (31500 - 24000)(160 - 60)/(260 - 60) + 24000
    EXPECT_EQ(QrvGetThermalConductivity(record.get(), 160.0), 27750.0);
    for (double t = 50.0; t < 270.0; t += 3.7) {
        const double* p = record->Cp.Para;
        int i = 0;
        while (i < 4 && !(t >= p[i + 1] && p[i + 3] >= t))
            i += 2;
        double expected = t < p[1]   ? p[0]
                          : t > p[7] ? p[6]
                                     : segment(p[i], p[i + 1], p[i + 2], p[i + 3], t);
        EXPECT_EQ(QrvGetHeatCapacity(record.get(), t), expected) << t;
    }
}

TEST(HeatTable, InnerPointBelongsToTheLowerSegment) {
    // A step in the table: two pairs share 100 degrees. At 100 the lower segment answers with its
    // end value; the upper one would divide by zero.
    auto record = makeRecord();
    setBlock(record->Cp, 4, {1.0e7, 50, 1.2e7, 100, 1.8e7, 100, 2.0e7, 200});
    EXPECT_EQ(QrvGetHeatCapacity(record.get(), 100.0), 1.2e7);
    EXPECT_EQ(QrvGetHeatCapacity(record.get(), 150.0), segment(1.8e7, 100, 2.0e7, 200, 150.0));
    // Continuous through an ordinary inner point.
    setBlock(record->Cp, 4, {1.0e7, 50, 1.2e7, 100, 1.8e7, 150});
    EXPECT_EQ(QrvGetHeatCapacity(record.get(), 100.0), 1.2e7);
}

TEST(HeatTable, EqualTemperaturesBracketingTheValueDivideByZero) {
    auto record = makeRecord();
    setBlock(record->Cp, 4, {1.0e7, 100, 1.2e7, 100});
    EXPECT_TRUE(std::isnan(QrvGetHeatCapacity(record.get(), 100.0)));
}

TEST(HeatTable, WalkWithoutABracketEndsOnTheLastSegment) {
    // No pair brackets 20 (the second temperature is not a number), so the last segment
    // extrapolates below its own start.
    auto record = makeRecord();
    setBlock(record->Cp, 4, {1.0e7, 0, 1.1e7, kNaN, 1.5e7, 30, 1.7e7, 40});
    EXPECT_EQ(QrvGetHeatCapacity(record.get(), 20.0), segment(1.5e7, 30, 1.7e7, 40, 20.0));
    EXPECT_TRUE(std::isnan(QrvGetHeatCapacity(record.get(), kNaN)));
}

TEST(HeatTable, OddCountReadsTheLastValueAsATemperature) {
    auto record = makeRecord();
    setBlock(record->Cp, 4, {1.0e7, 50, 1.2e7, 100, 300});
    EXPECT_EQ(QrvGetHeatCapacity(record.get(), 75.0), segment(1.0e7, 50, 1.2e7, 100, 75.0));
    // Above p[n-1] = 300 the value before it, here the temperature 100, answers.
    EXPECT_EQ(QrvGetHeatCapacity(record.get(), 301.0), 100.0);
    // Between 100 and 300 the walk reaches the incomplete last pair: the miss value.
    EXPECT_EQ(QrvGetHeatCapacity(record.get(), 200.0), -1.0);
}

TEST(HeatTable, EmptyOrDamagedBlockGivesMinusOne) {
    auto record = makeRecord();
    EXPECT_EQ(QrvGetHeatCapacity(record.get(), 100.0), -1.0);
    for (int count : {1, 2, 3, 4, 8}) {
        setNullBlock(record->Cp, 4, count);
        EXPECT_EQ(QrvGetHeatCapacity(record.get(), 100.0), -1.0) << count;
        setNullBlock(record->K, 3, count);
        EXPECT_EQ(QrvGetThermalConductivity(record.get(), 100.0), -1.0) << count;
    }
    // A zero-length array left by a reader.
    setBlock(record->Cp, 1, {});
    record->Cp.Para = new double[0];
    EXPECT_EQ(QrvGetHeatCapacity(record.get(), 100.0), -1.0);
}

TEST(HeatTable, ConductivityReadsItsOwnBlock) {
    auto record = makeRecord();
    setBlock(record->Cp, 2, {2.0e7, 100, 3.0e7, 200});
    setBlock(record->K, 2, {24000.0, 60, 31500.0, 260});
    EXPECT_EQ(QrvGetThermalConductivity(record.get(), 60.0), 24000.0);
    EXPECT_EQ(QrvGetThermalConductivity(record.get(), 260.0), 31500.0);
    EXPECT_EQ(QrvGetThermalConductivity(record.get(), 10.0), 24000.0);
    EXPECT_EQ(QrvGetThermalConductivity(record.get(), 999.0), 31500.0);
    EXPECT_EQ(QrvGetThermalConductivity(record.get(), 111.0),
              segment(24000.0, 60, 31500.0, 260, 111.0));
    EXPECT_EQ(QrvGetHeatCapacity(record.get(), 150.0), 2.5e7);
}

// ---- non-plastic values ----

qrvtest::MaterialPtr metal() {
    auto record = makeRecord(QRV_TYPE_METAL);
    setBlock(record->Cp, 1, {4.6e6});
    setBlock(record->K, 1, {5.2e6});
    setBlock(record->Mech, 0, {0.29, 0.29, 2.1e12, 2.1e12, 8.1e11, 1.2e-5, 1.2e-5});
    return record;
}

TEST(NonPlastic, ValuesComeFromFixedPlaces) {
    auto record = metal();
    EXPECT_EQ(QrvGetNonPlastic_Cp(record.get()), 4.6e6);
    EXPECT_EQ(QrvGetNonPlastic_K(record.get()), 5.2e6);
    EXPECT_EQ(QrvGetNonPlastic_PR(record.get()), 0.29);
    EXPECT_EQ(QrvGetNonPlastic_EM(record.get()), 2.1e12);
    EXPECT_EQ(QrvGetNonPlastic_CLTE(record.get()), 1.2e-5);
    // The model is not read.
    record->Mech.Model = 5;
    record->Cp.Model = 3;
    EXPECT_EQ(QrvGetNonPlastic_CLTE(record.get()), 1.2e-5);
    EXPECT_EQ(QrvGetNonPlastic_Cp(record.get()), 4.6e6);
}

TEST(NonPlastic, DistinctPlacesOfMech) {
    auto record = metal();
    setBlock(record->Mech, 0, {10, 11, 12, 13, 14, 15, 16});
    EXPECT_EQ(QrvGetNonPlastic_PR(record.get()), 10);
    EXPECT_EQ(QrvGetNonPlastic_EM(record.get()), 12);
    EXPECT_EQ(QrvGetNonPlastic_CLTE(record.get()), 15);
}

TEST(NonPlastic, CountsDecideWhatIsRead) {
    auto record = metal();
    // Any count from one up has a first value.
    setBlock(record->Cp, 1, {4.7e6, 9.9e6});
    EXPECT_EQ(QrvGetNonPlastic_Cp(record.get()), 4.7e6);
    // The expansion stands at place 5: five counted values do not reach it, even with a sixth
    // value lying in the array behind them.
    delete[] record->Mech.Para;
    record->Mech.Para = new double[6]{10, 11, 12, 13, 14, 99};
    record->Mech.Count = 5;
    EXPECT_EQ(QrvGetNonPlastic_PR(record.get()), 10);
    EXPECT_EQ(QrvGetNonPlastic_EM(record.get()), 12);
    EXPECT_EQ(QrvGetNonPlastic_CLTE(record.get()), -1.0);
    record->Mech.Count = 6;
    EXPECT_EQ(QrvGetNonPlastic_CLTE(record.get()), 99);
}

TEST(NonPlastic, ThermosetPassesThermoplasticDoesNot) {
    auto record = metal();
    record->FileType = QRV_TYPE_THERMOSET;
    EXPECT_EQ(QrvGetNonPlastic_Cp(record.get()), 4.6e6);
    for (int type : {0, 1}) {
        record->FileType = type;
        EXPECT_EQ(QrvGetNonPlastic_Cp(record.get()), -1.0);
        EXPECT_EQ(QrvGetNonPlastic_K(record.get()), -1.0);
        EXPECT_EQ(QrvGetNonPlastic_PR(record.get()), -1.0);
        EXPECT_EQ(QrvGetNonPlastic_EM(record.get()), -1.0);
        EXPECT_EQ(QrvGetNonPlastic_CLTE(record.get()), -1.0);
        EXPECT_EQ(QrvGetNonPlastic_Density(record.get()), -1.0);
    }
}

TEST(NonPlastic, NullRecordOrMissingBlockGivesMinusOne) {
    EXPECT_EQ(QrvGetNonPlastic_Cp(nullptr), -1.0);
    EXPECT_EQ(QrvGetNonPlastic_K(nullptr), -1.0);
    EXPECT_EQ(QrvGetNonPlastic_PR(nullptr), -1.0);
    EXPECT_EQ(QrvGetNonPlastic_EM(nullptr), -1.0);
    EXPECT_EQ(QrvGetNonPlastic_CLTE(nullptr), -1.0);
    EXPECT_EQ(QrvGetNonPlastic_Density(nullptr), -1.0);
    auto record = makeRecord(QRV_TYPE_COOLANT);
    EXPECT_EQ(QrvGetNonPlastic_Cp(record.get()), -1.0);
    EXPECT_EQ(QrvGetNonPlastic_K(record.get()), -1.0);
    EXPECT_EQ(QrvGetNonPlastic_PR(record.get()), -1.0);
    setNullBlock(record->Mech, 0, 7);
    EXPECT_EQ(QrvGetNonPlastic_EM(record.get()), -1.0);
    // Too short for the expansion at index 5, long enough for the modulus.
    setBlock(record->Mech, 0, {0.3, 0.3, 2e12});
    EXPECT_EQ(QrvGetNonPlastic_EM(record.get()), 2e12);
    EXPECT_EQ(QrvGetNonPlastic_CLTE(record.get()), -1.0);
}

double densityOf(const char* comment) {
    auto record = makeRecord(QRV_TYPE_METAL);
    if (comment) record->Comment = qrv::newText(comment);
    return QrvGetNonPlastic_Density(record.get());
}

TEST(NonPlastic, DensityFromTheComment) {
    EXPECT_EQ(densityOf("D=7.85g/cc"), 7.85);
    EXPECT_EQ(densityOf("D=7.85g/cm3"), 7.85);
    EXPECT_EQ(densityOf("Steel P20, D=7.85g/cc, hardened"), 7.85);
    EXPECT_EQ(densityOf("D= 2.7 g/cm3"), 2.7);
    EXPECT_EQ(densityOf("D=7.85"), -1.0);
    EXPECT_EQ(densityOf("Steel P20"), 0.0);
    EXPECT_EQ(densityOf(""), 0.0);
    EXPECT_EQ(densityOf(nullptr), 0.0);
    EXPECT_EQ(densityOf("D=0g/cc"), -1.0);
    EXPECT_EQ(densityOf("D=-1.2g/cc"), -1.0);
    EXPECT_EQ(densityOf("D=g/cc"), -1.0);
    EXPECT_EQ(densityOf("g/cc D=7.85"), -1.0);
    // The first "g/cc" decides even when a later one stands behind the mark.
    EXPECT_EQ(densityOf("g/cc D=7.85g/cc"), -1.0);
    // "g/cc" is looked for before "g/cm3": here it stands behind the mark, "g/cm3" before it.
    EXPECT_EQ(densityOf("g/cm3 D=7.85g/cc"), 7.85);
    EXPECT_EQ(densityOf("g/cm3 D=7.85"), -1.0);
}

}  // namespace
