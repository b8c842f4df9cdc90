// Specific volume and density: each model against its formula written out here, the settled
// points of the two-domain and cure models, the generated samples against hand-computed values,
// and the failure values.
#include <gtest/gtest.h>

#include <cmath>
#include <cstdint>
#include <cstring>
#include <limits>
#include <memory>

#include <quorvalib/quorvalib.h>

#include "support/material_ptr.h"

namespace {

using qrvtest::makeRecord;
using qrvtest::setBlock;
using qrvtest::setNullBlock;

const double kInf = std::numeric_limits<double>::infinity();

struct Point {
    double P, t, x;
};
const Point kPoints[] = {{0.0, 25.0, 0.0},   {1e8, 200.0, 0.3},  {5e8, 150.0, 0.5},
                         {1e9, 250.0, 1.0},  {2e7, -20.0, 0.25}, {1.5e9, 320.0, 0.9},
                         {3e8, 175.5, 0.05}, {0.0, 300.0, 0.75}};

double kelvin(double t) {
    return t + 273.15;
}

TEST(SpecificVolume, NullRecordGivesMinusOneAndDensityGivesZero) {
    EXPECT_EQ(QrvGetSpecificVolume(nullptr, 1e8, 200.0, 0.0), -1.0);
    EXPECT_EQ(QrvGetDensity(nullptr, 1e8, 200.0, 0.0), 0.0);
}

TEST(SpecificVolume, TaitConstantIsTheStatedDouble) {
    // The stored constant of the Tait forms, bit for bit: 0x3FB6E2EB1C432CA5.
    const double c = 0.0894;
    std::uint64_t bits;
    std::memcpy(&bits, &c, sizeof bits);
    EXPECT_EQ(bits, 0x3FB6E2EB1C432CA5ull);
    // Model 7 with b1 = 1, b2 = b4 = 0 and P = b3 leaves 1 - C0 ln 2.
    auto record = makeRecord();
    const double b3 = 1e8;
    setBlock(record->PVT, 7, {1.0, 0.0, b3, 0.0, 0.0});
    EXPECT_EQ(QrvGetSpecificVolume(record.get(), 1e8, 20.0, 0.0), 1 - c * std::log(1 + 1.0));
}

TEST(SpecificVolume, ConstantDensityIsInverted) {
    auto record = makeRecord();
    setBlock(record->PVT, 1, {1.25});
    for (const Point& p : kPoints) {
        EXPECT_EQ(QrvGetSpecificVolume(record.get(), p.P, p.t, p.x), 0.8);
        EXPECT_EQ(QrvGetDensity(record.get(), p.P, p.t, p.x), 1.0 / 0.8);
    }
}

TEST(SpecificVolume, SpencerGilmore) {
    auto record = makeRecord();
    const double V0 = 0.85, P0 = 3.2e9, R = 2.6e5;
    setBlock(record->PVT, 2, {V0, P0, R});
    for (const Point& p : kPoints) {
        const double T = kelvin(p.t);
        EXPECT_EQ(QrvGetSpecificVolume(record.get(), p.P, p.t, p.x), V0 + R * T / (p.P + P0));
    }
}

TEST(SpecificVolume, TaitGrowsBOnAbsoluteTemperature) {
    auto record = makeRecord();
    const double b1 = 0.95, b2 = 6.5e-4, b3 = 2.0e9, b4 = 4.0e-3, C = 0.0894;
    setBlock(record->PVT, 3, {b1, b2, b3, b4, C});
    for (const Point& p : kPoints) {
        const double T = kelvin(p.t);
        const double expected =
            b1 * std::exp(-b2 * T) * (1 - C * std::log(1 + p.P / (b3 * std::exp(b4 * T))));
        EXPECT_EQ(QrvGetSpecificVolume(record.get(), p.P, p.t, p.x), expected);
    }
    // The model reads its own C, not the fixed constant.
    const double withC0 = QrvGetSpecificVolume(record.get(), 1e9, 200.0, 0.0);
    setBlock(record->PVT, 3, {b1, b2, b3, b4, 0.1});
    EXPECT_NE(QrvGetSpecificVolume(record.get(), 1e9, 200.0, 0.0), withC0);
}

TEST(SpecificVolume, ModifiedTaitOneHasNoBranch) {
    auto record = makeRecord();
    const double b1 = 0.96, b2 = 5.8e-4, b3 = 1.9e9, b4 = 4.6e-3, b5 = 420.0, b6 = 1.5e-8;
    const double C = 0.07;
    setBlock(record->PVT, 4, {b1, b2, b3, b4, b5, b6, C});
    for (const Point& p : kPoints) {
        const double T = kelvin(p.t);
        const double Tt = b5 + b6 * p.P;
        const double d = T - Tt;
        const double expected =
            (1 - C * std::log(1 + p.P / (b3 * std::exp(-b4 * d)))) * (b1 + b2 * d);
        EXPECT_EQ(QrvGetSpecificVolume(record.get(), p.P, p.t, p.x), expected);
    }
}

// Model 5 written out from its steps.
double twoDomainTait(const double* b, double P, double t) {
    const double T = t + 273.15;
    const double d = T - b[8];
    double v0, B, vt;
    if (T >= b[8] + b[9] * P) {
        v0 = b[0] + b[1] * d;
        B = b[2] * std::exp(-b[3] * d);
        vt = 0;
    } else {
        v0 = b[4] + b[5] * d;
        B = b[6] * std::exp(-b[7] * d);
        vt = b[10] * std::exp(b[11] * d - b[12] * P);
    }
    return v0 * (1 - 0.0894 * std::log(1 + P / B)) + vt;
}

const double kCrystalline[13] = {1.243223,     0.0008717028, 803245700.0, 0.005057665, 1.174659,
                                 0.0006479683, 966552700.0,  0.006852022, 448.5,       6.625e-09,
                                 0.05328416,   0.1,          6.625e-10};

TEST(SpecificVolume, TwoDomainTaitFollowsItsSteps) {
    auto record = makeRecord();
    setBlock(record->PVT, 5, std::vector<double>(kCrystalline, kCrystalline + 13));
    for (const Point& p : kPoints)
        EXPECT_EQ(QrvGetSpecificVolume(record.get(), p.P, p.t, p.x),
                  twoDomainTait(kCrystalline, p.P, p.t));
}

TEST(SpecificVolume, TwoDomainTaitTieGoesToTheMeltSide) {
    auto record = makeRecord();
    double b[13];
    std::memcpy(b, kCrystalline, sizeof b);
    const double t = 175.0, P = 8192.0;
    b[9] = 1.0 / 1024;  // b6 P = 8 exactly
    b[8] = kelvin(t) - 8.0;
    ASSERT_EQ(b[8] + b[9] * P, kelvin(t));
    setBlock(record->PVT, 5, std::vector<double>(b, b + 13));

    const double d = kelvin(t) - b[8];
    const double melt =
        (b[0] + b[1] * d) * (1 - 0.0894 * std::log(1 + P / (b[2] * std::exp(-b[3] * d))));
    EXPECT_EQ(QrvGetSpecificVolume(record.get(), P, t, 0.0), melt);

    // Just below the transition the solid side answers, with its transition term.
    const double below = t - 1e-9;
    ASSERT_LT(kelvin(below), b[8] + b[9] * P);
    const double db = kelvin(below) - b[8];
    const double vt = b[10] * std::exp(b[11] * db - b[12] * P);
    const double solid =
        (b[4] + b[5] * db) * (1 - 0.0894 * std::log(1 + P / (b[6] * std::exp(-b[7] * db)))) + vt;
    const double v = QrvGetSpecificVolume(record.get(), P, below, 0.0);
    EXPECT_EQ(v, solid);
    EXPECT_GT(vt, 0.05);
    EXPECT_GT(std::fabs(v - melt), 0.01);  // a jump, not a 1e-9 step
}

TEST(SpecificVolume, TwoDomainTaitAtZeroPressureIsV0OnTheMeltSide) {
    auto record = makeRecord();
    setBlock(record->PVT, 5, std::vector<double>(kCrystalline, kCrystalline + 13));
    const double t = 260.0;
    const double d = kelvin(t) - kCrystalline[8];
    EXPECT_EQ(QrvGetSpecificVolume(record.get(), 0.0, t, 0.0),
              kCrystalline[0] + kCrystalline[1] * d);
}

TEST(SpecificVolume, TwoDomainTaitMeasuresDFromB5NotFromTheShiftedTransition) {
    // At high pressure the melt side starts later, but d still counts from b5.
    auto record = makeRecord();
    setBlock(record->PVT, 5, std::vector<double>(kCrystalline, kCrystalline + 13));
    const double P = 1e9, t = 190.0;  // T = 463.15 > Tt = 455.125
    const double d = kelvin(t) - 448.5;
    const double fromB5 =
        (kCrystalline[0] + kCrystalline[1] * d) *
        (1 - 0.0894 * std::log(1 + P / (kCrystalline[2] * std::exp(-kCrystalline[3] * d))));
    EXPECT_EQ(QrvGetSpecificVolume(record.get(), P, t, 0.0), fromB5);
}

TEST(SpecificVolume, SpencerGilmoreCScalesThePressureTermOnly) {
    auto record = makeRecord();
    const double V0 = 0.55, P0 = 2.9e9, R = 1.9e5, Zeta = 0.12;
    setBlock(record->PVT, 6, {V0, P0, R, Zeta});
    for (const Point& p : kPoints) {
        const double T = kelvin(p.t);
        EXPECT_EQ(QrvGetSpecificVolume(record.get(), p.P, p.t, p.x),
                  V0 + (1 - Zeta * p.x) * R * T / (p.P + P0));
    }
    setBlock(record->PVT, 6, {V0, P0, R, 1.0});
    EXPECT_EQ(QrvGetSpecificVolume(record.get(), 1e8, 200.0, 1.0), V0);
}

TEST(SpecificVolume, TaitCScalesTheWholeVolume) {
    auto record = makeRecord();
    const double b1 = 0.62, b2 = 1.8e-4, b3 = 2.4e9, b4 = 3.1e-3, Zeta = 0.05;
    setBlock(record->PVT, 7, {b1, b2, b3, b4, Zeta});
    for (const Point& p : kPoints) {
        const double T = kelvin(p.t);
        const double expected = (1 - 0.0894 * std::log(1 + p.P / (b3 * std::exp(-b4 * T)))) *
                                (b1 + b2 * T) * (1 - Zeta * p.x);
        EXPECT_EQ(QrvGetSpecificVolume(record.get(), p.P, p.t, p.x), expected);
    }
    // At x = 1/Zeta the volume is exactly 0 (no fused multiply-add) and the density infinite.
    const double x = 1.0 / Zeta;
    EXPECT_EQ(QrvGetSpecificVolume(record.get(), 1e8, 200.0, x), 0.0);
    EXPECT_EQ(QrvGetDensity(record.get(), 1e8, 200.0, x), kInf);
}

TEST(SpecificVolume, ConversionEntersOnlyModelsSixAndSeven) {
    auto record = makeRecord();
    setBlock(record->PVT, 2, {0.85, 3.2e9, 2.6e5});
    EXPECT_EQ(QrvGetSpecificVolume(record.get(), 1e8, 200.0, 0.0),
              QrvGetSpecificVolume(record.get(), 1e8, 200.0, 0.9));
    setBlock(record->PVT, 5, std::vector<double>(kCrystalline, kCrystalline + 13));
    EXPECT_EQ(QrvGetSpecificVolume(record.get(), 1e8, 200.0, 0.0),
              QrvGetSpecificVolume(record.get(), 1e8, 200.0, 0.9));
}

TEST(SpecificVolume, DensityIsTheReciprocal) {
    auto record = makeRecord();
    setBlock(record->PVT, 5, std::vector<double>(kCrystalline, kCrystalline + 13));
    for (const Point& p : kPoints)
        EXPECT_EQ(QrvGetDensity(record.get(), p.P, p.t, p.x),
                  1.0 / twoDomainTait(kCrystalline, p.P, p.t));
}

TEST(SpecificVolume, UnknownModelGivesZeroAndInfiniteDensity) {
    auto record = makeRecord();
    for (int model : {0, 8, -1, 100}) {
        setBlock(record->PVT, model, std::vector<double>(13, 1.0));
        EXPECT_EQ(QrvGetSpecificVolume(record.get(), 1e8, 200.0, 0.0), 0.0) << model;
        EXPECT_EQ(QrvGetDensity(record.get(), 1e8, 200.0, 0.0), kInf) << model;
    }
}

TEST(SpecificVolume, ParaShorterThanTheModelGivesZero) {
    const int needed[] = {0, 1, 3, 5, 7, 13, 4, 5};
    auto record = makeRecord();
    for (int model = 1; model <= 7; ++model) {
        setBlock(record->PVT, model, std::vector<double>(needed[model] - 1, 1.0));
        EXPECT_EQ(QrvGetSpecificVolume(record.get(), 1e8, 200.0, 0.0), 0.0) << model;
        EXPECT_EQ(QrvGetDensity(record.get(), 1e8, 200.0, 0.0), kInf) << model;
        setNullBlock(record->PVT, model, needed[model]);
        EXPECT_EQ(QrvGetSpecificVolume(record.get(), 1e8, 200.0, 0.0), 0.0) << model;
    }
}

// Values of the generated samples, worked out by hand at 40 digits from the formulas.
struct HandValue {
    double P, t, v;
};

void expectClose(double actual, double expected) {
    EXPECT_NEAR(actual, expected, std::fabs(expected) * 1e-13);
}

TEST(SpecificVolume, GeneratedCrystallineSampleMatchesHandValues) {
    std::unique_ptr<QrvMaterial, void (*)(QrvMaterial*)> record(
        QrvGetDefaultMaterial(1, 5, true, 1, 1, 0), QrvReleaseMaterial);
    const HandValue values[] = {{0.0, 25.0, 1.0772369818341252},
                                {1e9, 250.0, 1.1872022170037022},
                                {5e8, 150.0, 1.1238814168604894},
                                {1e8, 200.0, 1.2497941473485585}};
    for (const HandValue& h : values) {
        expectClose(QrvGetSpecificVolume(record.get(), h.P, h.t, 0.0), h.v);
        expectClose(QrvGetDensity(record.get(), h.P, h.t, 0.0), 1.0 / h.v);
    }
}

TEST(SpecificVolume, GeneratedAmorphousSampleMatchesHandValues) {
    std::unique_ptr<QrvMaterial, void (*)(QrvMaterial*)> record(
        QrvGetDefaultMaterial(1, 5, false, 1, 1, 0), QrvReleaseMaterial);
    const HandValue values[] = {{0.0, 25.0, 0.89578603749999997},
                                {1e9, 250.0, 0.92059075972312421},
                                {5e8, 150.0, 0.90974299193137109},
                                {1e8, 200.0, 0.95623047461349731}};
    for (const HandValue& h : values)
        expectClose(QrvGetSpecificVolume(record.get(), h.P, h.t, 0.0), h.v);
}

TEST(SpecificVolume, GeneratedSpencerGilmoreAndConstantSamples) {
    std::unique_ptr<QrvMaterial, void (*)(QrvMaterial*)> sg(
        QrvGetDefaultMaterial(1, 2, false, 1, 1, 0), QrvReleaseMaterial);
    const HandValue values[] = {{0.0, 25.0, 2.1429954329210275},
                                {1e9, 250.0, 0.30360000000033921},
                                {1e8, 200.0, 0.30360000000306792}};
    for (const HandValue& h : values)
        expectClose(QrvGetSpecificVolume(sg.get(), h.P, h.t, 0.0), h.v);

    std::unique_ptr<QrvMaterial, void (*)(QrvMaterial*)> constant(
        QrvGetDefaultMaterial(1, 1, false, 1, 1, 0), QrvReleaseMaterial);
    EXPECT_EQ(QrvGetSpecificVolume(constant.get(), 1e8, 200.0, 0.0), 1.0);
    EXPECT_EQ(QrvGetDensity(constant.get(), 1e8, 200.0, 0.0), 1.0);
}

}  // namespace
