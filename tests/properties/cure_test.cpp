// Cure rate, the two conversion integrators and the no-flow temperature. The integrators are
// written out again here from their steps and compared to the bit over a grid of temperatures,
// heating rates and conversions.
#include <gtest/gtest.h>

#include <climits>
#include <cmath>
#include <cstring>
#include <memory>
#include <vector>

#include <quorvalib/quorvalib.h>

#include "properties/cure.h"
#include "support/material_ptr.h"

namespace {

using qrvtest::makeRecord;
using qrvtest::setBlock;
using qrvtest::setNullBlock;

struct Kinetics {
    double m, n, A, B, Ta, Tb;
};

double rateOf(const Kinetics& k, double tC, double x) {
    if (1e-12 > x)
        x = 1e-12;
    else if (x > 0.999999999999)
        x = 0.999999999999;
    const double T = tC + 273.15;
    return (k.A * std::exp(-k.Ta / T) + k.B * std::exp(-k.Tb / T) * std::pow(x, k.m)) *
           std::pow(1 - x, k.n);
}

// Isothermal branch, steps 1 to 9.
double isothermal(const Kinetics& k, double t, double x0) {
    double done = 0.0, remaining = 0.5, dt = 0.5, xAcc = x0, x = x0;
    int outer = 0;
    for (;;) {
        outer = outer + 1;
        int inner = 0;
        for (;;) {
            inner = inner + 1;
            const double xPrev = x;
            const double xm = (x + xAcc) * 0.5;
            const double r = rateOf(k, t, xm);
            double d = r * dt;
            if (std::fabs(d) > 0.001) {
                dt = std::fabs(0.001 / r);
                if (dt > remaining) dt = remaining;
                d = r * dt;
            }
            x = xAcc + d;
            if (x > 1.0)
                x = 1.0;
            else if (0.0 > x)
                x = 0.0;
            const double e =
                std::fabs(x) > 1e-5 ? std::fabs(x - xPrev) / x : std::fabs(x - xPrev) / 1e-5;
            if (inner == 2000) break;
            if (!(e > 1e-5)) break;
        }
        xAcc = x;
        done = done + dt;
        remaining = 0.5 - done;
        dt = dt * 2.0;
        if (dt > remaining) dt = remaining;
        if (!(outer < 1000 && remaining > 1e-10)) break;
    }
    return x;
}

// A count that does not fit an int reads as INT_MIN (documented with QrvGetConversion).
int countOf(double v) {
    if (std::isnan(v) || v >= 2147483648.0 || v <= -2147483649.0) return INT_MIN;
    return static_cast<int>(v);
}

// Ramp branch, steps 1 to 5. freshRate recomputes r0 before every substep: the variant that is
// not wanted, kept here to show that the comparison tells the two apart.
double ramp(const Kinetics& k, double t, double beta, double x0, bool freshRate = false) {
    const double dT = (t + 0.1) - t;
    int sections = countOf(dT / 0.1 + 0.5);
    if (sections < 1) sections = 1;
    const double dTs = dT / sections;
    const double dtMax = 0.1 / beta;
    double x = x0, Tc = t;
    for (int s = 0; s < sections; ++s) {
        double r0 = rateOf(k, Tc, x);
        double dt = 0.001 / r0;
        if (!(dt < dtMax)) dt = dtMax;
        const long long subs = static_cast<long long>(countOf(dTs / (dt * beta) + 0.5)) + 1;
        if (subs < 1) continue;
        const double h = 0.1 / (subs * beta);
        const double hh = 0.5 * h;
        const double dTh = hh * beta;
        for (long long j = 0; j < subs; ++j) {
            if (freshRate && j > 0) r0 = rateOf(k, Tc, x);
            double xh = x + hh * r0;
            const double Th = Tc + dTh;
            if (xh > 1.0) xh = 1.0;
            double xf = xh + hh * r0;
            const double Tf = Th + dTh;
            if (xf > 1.0) xf = 1.0;
            for (int round = 1; round <= 100; ++round) {
                const double old = xf;
                const double r1 = rateOf(k, Th, xh);
                const double r2 = rateOf(k, Tf, xf);
                xh = (r1 + r0) * 0.5 * hh + x;
                xf = (r2 + 4.0 * r1 + r0) / 6.0 * h + x;
                const double change = std::fabs(old - xf);
                if (xh > 1.0) xh = 1.0;
                if (xf > 1.0) xf = 1.0;
                if (!(change > 1e-15)) break;
            }
            x = xf;
            Tc = Tf;
        }
    }
    return x;
}

double conversion(const Kinetics& k, double t, double beta, double x0) {
    return 1e-10 > beta ? isothermal(k, t, x0) : ramp(k, t, beta, x0);
}

qrvtest::MaterialPtr thermoset(const Kinetics& k, int model = 2) {
    auto record = makeRecord(QRV_TYPE_THERMOSET);
    setBlock(record->KN, model, {k.m, k.n, k.A, k.B, k.Ta, k.Tb, 5.4e8});
    return record;
}

bool sameBits(double a, double b) {
    return std::memcmp(&a, &b, sizeof a) == 0;
}

// Kinetics of the generated thermosets (viscosity ids 10, 12, 13) and one of moderate rates.
const Kinetics kSamples[] = {
    {0.39, 1.12, 15426.0, 10886000.0, 8332.76, 8332.76},
    {0.1812, 1.193, 84350000.0, 80600000.0, 10420.0, 9610.0},
    {0.342, 1.14, 0.1, 17200000.0, 19796.0, 8866.0},
    {0.5, 1.5, 1e6, 1e7, 10000.0, 9000.0},
};
const Kinetics& kModerate = kSamples[3];

const double kConversions[] = {0.0, 1.0, 0.3, 0.65, 1e-13, 0.999999999999, 0.9995};

TEST(CureRate, FollowsTheRateLaw) {
    for (const Kinetics& k : kSamples) {
        auto record = thermoset(k);
        for (double t : {-50.0, 25.0, 120.0, 175.0, 250.0})
            for (double x : {0.0, 1e-12, 0.2, 0.5, 0.999, 1.0})
                EXPECT_TRUE(sameBits(QrvGetCureRate(record.get(), t, x), rateOf(k, t, x)));
    }
}

TEST(CureRate, ConversionIsClampedInsideTheRate) {
    Kinetics k{0.5, 1.5, 0.0, 1e7, 10000.0, 9000.0};  // no A term
    auto record = thermoset(k);
    const double atFloor = QrvGetCureRate(record.get(), 150.0, 1e-12);
    EXPECT_GT(atFloor, 0.0);  // the x^m term is taken at 1e-12, not at 0
    EXPECT_EQ(QrvGetCureRate(record.get(), 150.0, 0.0), atFloor);
    EXPECT_EQ(QrvGetCureRate(record.get(), 150.0, -3.0), atFloor);
    const double atCeiling = QrvGetCureRate(record.get(), 150.0, 0.999999999999);
    EXPECT_GT(atCeiling, 0.0);
    EXPECT_EQ(QrvGetCureRate(record.get(), 150.0, 1.0), atCeiling);
    EXPECT_EQ(QrvGetCureRate(record.get(), 150.0, 2.0), atCeiling);
    const double ceiling = 0.999999999999;
    std::uint64_t bits;
    std::memcpy(&bits, &ceiling, sizeof bits);
    EXPECT_EQ(bits, 0x3FEFFFFFFFFFDCD1ull);
}

TEST(CureRate, ReadsSixValuesWhateverTheModel) {
    for (int model : {2, 3, 4, 0}) {
        auto record = thermoset(kModerate, model);
        EXPECT_EQ(QrvGetCureRate(record.get(), 150.0, 0.4), rateOf(kModerate, 150.0, 0.4));
    }
}

TEST(CureRate, MissingKineticsGiveZero) {
    EXPECT_EQ(QrvGetCureRate(nullptr, 150.0, 0.4), 0.0);
    auto record = makeRecord(QRV_TYPE_THERMOSET);
    EXPECT_EQ(QrvGetCureRate(record.get(), 150.0, 0.4), 0.0);
    setBlock(record->KN, 2, {0.5, 1.5, 1e6, 1e7, 10000.0});
    EXPECT_EQ(QrvGetCureRate(record.get(), 150.0, 0.4), 0.0);
}

TEST(Conversion, MatchesTheStepsBitForBit) {
    const double temperatures[] = {25.0, 100.0, 150.0, 175.0, 250.0};
    const double rates[] = {0.0, -1.0, -1e-10, 0.5, 1.0, 5.0, 20.0};
    int compared = 0;
    for (const Kinetics& k : kSamples) {
        auto record = thermoset(k);
        for (double t : temperatures)
            for (double beta : rates)
                for (double x0 : kConversions) {
                    const double got = QrvGetConversion(record.get(), t, beta, x0);
                    const double want = conversion(k, t, beta, x0);
                    EXPECT_TRUE(sameBits(got, want)) << "t " << t << " beta " << beta << " x0 "
                                                     << x0 << ": " << got << " vs " << want;
                    ++compared;
                }
    }
    EXPECT_EQ(compared, 4 * 5 * 7 * 7);
}

TEST(Conversion, SmallestRampRateMatchesTheStepsBitForBit) {
    // At 1e-10 a rate of r asks for about 1e12 r substeps: at -50 degrees there are a few, at
    // 250 degrees more than an int holds and the step is skipped.
    // (A conversion near the end at 250 degrees would ask for millions of substeps: left out.)
    auto record = thermoset(kModerate);
    for (double t : {-50.0, 250.0})
        for (double x0 : {0.0, 1.0, 0.3, 0.65, 1e-13, 0.999999999999}) {
            const double got = QrvGetConversion(record.get(), t, 1e-10, x0);
            EXPECT_TRUE(sameBits(got, ramp(kModerate, t, 1e-10, x0))) << t << " " << x0;
        }
    EXPECT_EQ(QrvGetConversion(record.get(), 250.0, 1e-10, 0.3), 0.3);
    EXPECT_NE(QrvGetConversion(record.get(), -50.0, 1e-10, 0.3), 0.3);
}

TEST(Conversion, ThresholdOfTheRampIsStrict) {
    // A constant rate of 1e-12: half a time unit adds 5e-13, a rise of 0.1 degree at 1e-10 per
    // time unit takes 1e9 time units and adds about 1e-3.
    const Kinetics constant{0.0, 0.0, 1e-12, 0.0, 0.0, 0.0};
    auto record = thermoset(constant);
    const double x0 = 0.25;
    const double iso = QrvGetConversion(record.get(), 100.0, 0.0, x0);
    EXPECT_EQ(iso, x0 + 1e-12 * 0.5);
    EXPECT_EQ(QrvGetConversion(record.get(), 100.0, -4.0, x0), iso);
    EXPECT_EQ(QrvGetConversion(record.get(), 100.0, std::nextafter(1e-10, 0.0), x0), iso);
    const double rampResult = QrvGetConversion(record.get(), 100.0, 1e-10, x0);
    EXPECT_NEAR(rampResult, x0 + 1e-3, 1e-12);
    EXPECT_TRUE(sameBits(rampResult, ramp(constant, 100.0, 1e-10, x0)));
}

TEST(Conversion, StartAtZeroCuresFromTheFirstTerm) {
    Kinetics k = kModerate;
    k.B = 0.0;
    auto record = thermoset(k);
    const double x = QrvGetConversion(record.get(), 175.0, 0.0, 0.0);
    EXPECT_GT(x, 0.0);
    EXPECT_TRUE(sameBits(x, isothermal(k, 175.0, 0.0)));
}

TEST(Conversion, StartAtOneStaysAtOrBelowOne) {
    for (const Kinetics& k : kSamples) {
        auto record = thermoset(k);
        for (double t : {25.0, 175.0, 250.0}) {
            const double iso = QrvGetConversion(record.get(), t, 0.0, 1.0);
            EXPECT_LE(iso, 1.0);
            EXPECT_GE(iso, 0.0);
            EXPECT_LE(QrvGetConversion(record.get(), t, 1.0, 1.0), 1.0);
        }
    }
}

TEST(Conversion, RampNeverExceedsOne) {
    // A constant rate of 10 with no (1 - x) brake: 0.1 degree at 1 per time unit adds 1.0.
    const Kinetics fast{0.0, 0.0, 10.0, 0.0, 0.0, 0.0};
    auto record = thermoset(fast);
    for (double x0 : {0.9, 0.999, 0.9999999, 1.0})
        for (double beta : {0.1, 1.0, 10.0}) {
            const double x = QrvGetConversion(record.get(), 250.0, beta, x0);
            EXPECT_LE(x, 1.0) << x0 << " " << beta;
            EXPECT_TRUE(sameBits(x, ramp(fast, 250.0, beta, x0)));
        }
    EXPECT_EQ(QrvGetConversion(record.get(), 250.0, 1.0, 0.999), 1.0);
}

TEST(Conversion, RampKeepsTheSectionRateForAllSubsteps) {
    auto record = thermoset(kModerate);
    int differing = 0;
    for (double t : {175.0, 200.0, 250.0})
        for (double x0 : {0.1, 0.3, 0.65}) {
            const double got = QrvGetConversion(record.get(), t, 0.5, x0);
            EXPECT_TRUE(sameBits(got, ramp(kModerate, t, 0.5, x0)));
            if (!sameBits(got, ramp(kModerate, t, 0.5, x0, true))) ++differing;
        }
    EXPECT_GT(differing, 0);
}

TEST(Conversion, MissingRecordOrKineticsGiveZero) {
    EXPECT_EQ(QrvGetConversion(nullptr, 150.0, 0.0, 0.4), 0.0);
    auto record = makeRecord(QRV_TYPE_THERMOSET);
    EXPECT_EQ(QrvGetConversion(record.get(), 150.0, 1.0, 0.4), 0.0);
    setNullBlock(record->KN, 2, 7);
    EXPECT_EQ(QrvGetConversion(record.get(), 150.0, 1.0, 0.4), 0.0);
    setBlock(record->KN, 2, {0.5, 1.5, 1e6, 1e7, 10000.0});
    EXPECT_EQ(QrvGetConversion(record.get(), 150.0, 0.0, 0.4), 0.0);
}

TEST(Conversion, NonFiniteArgumentsEndWithoutHanging) {
    auto record = thermoset(kModerate);
    const double inf = std::numeric_limits<double>::infinity();
    const double nan = std::numeric_limits<double>::quiet_NaN();
    // An infinite rate leaves no time to integrate; a rate that is not a number skips too.
    EXPECT_EQ(QrvGetConversion(record.get(), 150.0, inf, 0.4), 0.4);
    EXPECT_EQ(QrvGetConversion(record.get(), 150.0, nan, 0.4), 0.4);
    EXPECT_TRUE(
        sameBits(QrvGetConversion(record.get(), nan, 0.0, 0.4), isothermal(kModerate, nan, 0.4)));
    EXPECT_TRUE(
        sameBits(QrvGetConversion(record.get(), inf, 1.0, 0.4), ramp(kModerate, inf, 1.0, 0.4)));
}

TEST(Conversion, GeneratedThermosetCures) {
    std::unique_ptr<QrvMaterial, void (*)(QrvMaterial*)> record(
        QrvGetDefaultMaterial(12, 1, false, 1, 1, 0), QrvReleaseMaterial);
    const Kinetics k{0.1812, 1.193, 84350000.0, 80600000.0, 10420.0, 9610.0};
    for (double beta : {0.0, 1.0})
        for (double x0 : {0.0, 0.5})
            EXPECT_TRUE(sameBits(QrvGetConversion(record.get(), 170.0, beta, x0),
                                 conversion(k, 170.0, beta, x0)));
    EXPECT_GT(QrvGetConversion(record.get(), 170.0, 0.0, 0.5), 0.5);
}

// ---- no-flow temperature ----

qrvtest::MaterialPtr withTemperatures(int fileVer, int pvtModel) {
    auto record = makeRecord();
    record->FileVer = fileVer;
    setBlock(record->Temp, 2, {200, 225, 250, 40, 60, 80, 88, 130});
    std::vector<double> pvt(13, 1.0);
    pvt[8] = 448.5;
    setBlock(record->PVT, pvtModel, pvt);
    return record;
}

TEST(NoFlowTemperature, OldTwoDomainTaitRecordUsesTheTransition) {
    EXPECT_EQ(QrvGetNoFlowTemperature(withTemperatures(9005, 5).get()), 448.5 - 273.15);
    EXPECT_EQ(QrvGetNoFlowTemperature(withTemperatures(9006, 5).get()), 130.0);
    EXPECT_EQ(QrvGetNoFlowTemperature(withTemperatures(9005, 4).get()), 130.0);
    EXPECT_EQ(QrvGetNoFlowTemperature(withTemperatures(12000, 5).get()), 130.0);
}

TEST(NoFlowTemperature, MissingValuesGiveMinusOne) {
    EXPECT_EQ(QrvGetNoFlowTemperature(nullptr), -1.0);
    auto record = withTemperatures(9006, 5);
    setNullBlock(record->Temp, 2, 8);
    EXPECT_EQ(QrvGetNoFlowTemperature(record.get()), -1.0);
    setBlock(record->Temp, 2, {200, 225, 250, 40, 60, 80, 88});
    EXPECT_EQ(QrvGetNoFlowTemperature(record.get()), -1.0);
    auto old = withTemperatures(9005, 5);
    setBlock(old->PVT, 5, {1, 2, 3, 4, 5, 6, 7, 8});
    EXPECT_EQ(QrvGetNoFlowTemperature(old.get()), -1.0);
}

}  // namespace
