// Cure rate, the two conversion integrators and the no-flow temperature.
//
// The integrators are checked against values derived outside their order of operations: kinetics
// chosen so that the rate law has a closed-form solution (a constant rate, first-order and
// logistic cure), a reference integration by the classical Runge-Kutta method with fine steps, and
// rates affine in the conversion, for which the fixed-point iterations of both integrators are
// geometric series whose value after any number of rounds is known in closed form. The iteration
// limits and the clamps are seen through inputs chosen to reach them.
#include <gtest/gtest.h>

#include <climits>
#include <cmath>
#include <cstring>
#include <limits>
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

// The rate law as a formula, clamps included.
double rateOf(const Kinetics& k, double tC, double x) {
    x = std::min(std::max(x, 1e-12), 0.999999999999);
    const double T = tC + 273.15;
    return (k.A * std::exp(-k.Ta / T) + k.B * std::exp(-k.Tb / T) * std::pow(x, k.m)) *
           std::pow(1 - x, k.n);
}

qrvtest::MaterialPtr thermoset(const Kinetics& k, int model = 2) {
    auto record = makeRecord(QRV_TYPE_THERMOSET);
    setBlock(record->KN, model, {k.m, k.n, k.A, k.B, k.Ta, k.Tb, 5.4e8});
    return record;
}

// Rate constant of one term at a temperature in degree C.
double arrhenius(double factor, double activation, double tC) {
    return factor * std::exp(-activation / (tC + 273.15));
}

// Kinetics in which only the A term acts and the rate does not depend on x: a constant rate r.
Kinetics constantRate(double r) {
    return {0.0, 0.0, r, 0.0, 0.0, 0.0};
}

// Rate r(x) = a + b x, whatever the temperature.
Kinetics affineRate(double a, double b) {
    return {1.0, 0.0, a, b, 0.0, 0.0};
}

// Reference solution of dx/dt = rate(t, x) at constant temperature by the classical fourth-order
// Runge-Kutta method with a fine fixed step.
double rungeKutta(const Kinetics& k, double tC, double x0, double span, int steps) {
    const double h = span / steps;
    double x = x0;
    for (int i = 0; i < steps; ++i) {
        const double k1 = rateOf(k, tC, x);
        const double k2 = rateOf(k, tC, x + 0.5 * h * k1);
        const double k3 = rateOf(k, tC, x + 0.5 * h * k2);
        const double k4 = rateOf(k, tC, x + h * k3);
        x += h / 6.0 * (k1 + 2.0 * k2 + 2.0 * k3 + k4);
    }
    return x;
}

// Kinetics of the generated thermosets (viscosity ids 10, 12, 13) and one of moderate rates.
const Kinetics kSamples[] = {
    {0.39, 1.12, 15426.0, 10886000.0, 8332.76, 8332.76},
    {0.1812, 1.193, 84350000.0, 80600000.0, 10420.0, 9610.0},
    {0.342, 1.14, 0.1, 17200000.0, 19796.0, 8866.0},
    {0.5, 1.5, 1e6, 1e7, 10000.0, 9000.0},
};
const Kinetics& kModerate = kSamples[3];

TEST(CureRate, FollowsTheRateLaw) {
    for (const Kinetics& k : kSamples) {
        auto record = thermoset(k);
        for (double t : {-50.0, 25.0, 120.0, 175.0, 250.0})
            for (double x : {0.0, 1e-12, 0.2, 0.5, 0.999, 1.0})
                EXPECT_DOUBLE_EQ(QrvGetCureRate(record.get(), t, x), rateOf(k, t, x));
    }
}

TEST(CureRate, ConversionIsClampedInsideTheRate) {
    Kinetics k{0.5, 1.5, 0.0, 1e7, 10000.0, 9000.0};  // no A term
    auto record = thermoset(k);
    const double atFloor = QrvGetCureRate(record.get(), 150.0, 1e-12);
    EXPECT_GT(atFloor, 0.0);  // the x^m term is taken at 1e-12, not at 0
    EXPECT_EQ(QrvGetCureRate(record.get(), 150.0, 0.0), atFloor);
    EXPECT_EQ(QrvGetCureRate(record.get(), 150.0, -3.0), atFloor);
    EXPECT_NE(QrvGetCureRate(record.get(), 150.0, 2e-12), atFloor);
    const double atCeiling = QrvGetCureRate(record.get(), 150.0, 0.999999999999);
    EXPECT_GT(atCeiling, 0.0);
    EXPECT_EQ(QrvGetCureRate(record.get(), 150.0, 1.0), atCeiling);
    EXPECT_EQ(QrvGetCureRate(record.get(), 150.0, 2.0), atCeiling);
    EXPECT_NE(QrvGetCureRate(record.get(), 150.0, 0.99999999999), atCeiling);
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

TEST(CureRate, SixValuesAreEnough) {
    auto record = makeRecord(QRV_TYPE_THERMOSET);
    const Kinetics& k = kModerate;
    setBlock(record->KN, 2, {k.m, k.n, k.A, k.B, k.Ta, k.Tb});
    EXPECT_DOUBLE_EQ(QrvGetCureRate(record.get(), 150.0, 0.4), rateOf(k, 150.0, 0.4));
    EXPECT_GT(QrvGetConversion(record.get(), 150.0, 0.0, 0.4), 0.4);
}

TEST(CureRate, MissingKineticsGiveZero) {
    EXPECT_EQ(QrvGetCureRate(nullptr, 150.0, 0.4), 0.0);
    auto record = makeRecord(QRV_TYPE_THERMOSET);
    EXPECT_EQ(QrvGetCureRate(record.get(), 150.0, 0.4), 0.0);
    setBlock(record->KN, 2, {0.5, 1.5, 1e6, 1e7, 10000.0});
    EXPECT_EQ(QrvGetCureRate(record.get(), 150.0, 0.4), 0.0);
}

// ---- isothermal step: a time of 0.5 at constant temperature ----

TEST(IsothermalConversion, ConstantRateAddsHalfOfIt) {
    // One step when the whole span moves x by no more than 0.001, many steps otherwise.
    for (double r : {1e-3, 0.002, 0.01, 0.3, 1.5})
        for (double x0 : {0.0, 0.1, 0.25}) {
            auto record = thermoset(constantRate(r));
            EXPECT_NEAR(QrvGetConversion(record.get(), 150.0, 0.0, x0), x0 + 0.5 * r, 1e-12)
                << r << " " << x0;
        }
}

TEST(IsothermalConversion, FirstOrderCureFollowsTheExponential) {
    // m = 0, n = 1, no B term: dx/dt = k (1 - x), so x = 1 - (1 - x0) exp(-k/2). Each step's
    // iteration stops at a relative change of 1e-5, which bounds how close the result comes.
    for (double t : {120.0, 150.0, 175.0})
        for (double x0 : {0.0, 0.2, 0.7}) {
            const Kinetics k{0.0, 1.0, 2e9, 0.0, 9000.0, 0.0};
            auto record = thermoset(k);
            const double rate = arrhenius(k.A, k.Ta, t);
            const double want = 1.0 - (1.0 - x0) * std::exp(-0.5 * rate);
            EXPECT_NEAR(QrvGetConversion(record.get(), t, 0.0, x0), want, 5e-6)
                << t << " " << x0 << " k " << rate;
        }
}

TEST(IsothermalConversion, AutocatalyticCureFollowsTheLogistic) {
    // m = 1, n = 1, no A term: dx/dt = k x (1 - x), so x = 1 / (1 + (1 - x0)/x0 exp(-k/2)).
    for (double t : {140.0, 155.0})
        for (double x0 : {0.05, 0.3, 0.8}) {
            const Kinetics k{1.0, 1.0, 0.0, 5e10, 0.0, 10000.0};
            auto record = thermoset(k);
            const double rate = arrhenius(k.B, k.Tb, t);
            const double want = 1.0 / (1.0 + (1.0 - x0) / x0 * std::exp(-0.5 * rate));
            EXPECT_NEAR(QrvGetConversion(record.get(), t, 0.0, x0), want, 5e-6)
                << t << " " << x0 << " k " << rate;
        }
}

TEST(IsothermalConversion, MatchesAFineReferenceIntegration) {
    for (const Kinetics& k : kSamples) {
        auto record = thermoset(k);
        for (double t : {100.0, 150.0, 175.0})
            for (double x0 : {0.05, 0.3, 0.65}) {
                const double want = rungeKutta(k, t, x0, 0.5, 20000);
                EXPECT_NEAR(QrvGetConversion(record.get(), t, 0.0, x0), want, 2e-6)
                    << t << " " << x0;
            }
    }
}

TEST(IsothermalConversion, InnerIterationStopsAfter2000Rounds) {
    // With r(x) = a + b x the midpoint iteration of the first step (dt = 0.5, short enough that
    // the step is never shortened) is x_k = c x_(k-1) + s with c = b/4, a geometric series:
    // x_k = x* + c^k (x0 - x*), x* = s / (1 - c). A c of -0.999 converges so slowly that the
    // relative change stays above 1e-5 for thousands of rounds, and the whole span is one step.
    const double b = -3.996, a = 1.998, x0 = 0.5004;
    auto record = thermoset(affineRate(a, b));
    const double c = 0.5 * b / 2.0;
    const double s = x0 + 0.5 * (a + b * x0 / 2.0);
    const double fixed = s / (1.0 - c);
    auto afterRounds = [&](int k) { return fixed + std::pow(c, k) * (x0 - fixed); };
    const double got = QrvGetConversion(record.get(), 150.0, 0.0, x0);
    EXPECT_NEAR(got, afterRounds(2000), 1e-12);
    for (int other : {1999, 2001, 1000, 500, 50})
        EXPECT_GT(std::fabs(got - afterRounds(other)), 1e-8) << other;
}

TEST(IsothermalConversion, InnerIterationStopsAtARelativeChangeOf1e5) {
    // r(x) = a + b x with b = 0.4: the midpoint iteration of the one step (dt = 0.5, never
    // shortened) is x_k = c x_(k-1) + s with c = 0.1, so x_k = x* + c^k (x0 - x*) and each
    // round's change is a tenth of the one before. The iteration stops at the first round whose
    // change relative to x is 1e-5 or less; here that change is 1.5e-5 in round 5 and 1.5e-6 in
    // round 6, so a looser or an absolute test would stop elsewhere.
    const double a = -8e-5, b = 0.4, x0 = 0.002;
    auto record = thermoset(affineRate(a, b));
    const double c = 0.5 * b / 2.0;
    const double s = x0 + 0.5 * (a + b * x0 / 2.0);
    const double fixed = s / (1.0 - c);
    auto afterRounds = [&](int k) { return fixed + std::pow(c, k) * (x0 - fixed); };
    int stop = 1;
    while (std::fabs(afterRounds(stop) - afterRounds(stop - 1)) / afterRounds(stop) > 1e-5)
        ++stop;
    ASSERT_EQ(stop, 6);
    const double got = QrvGetConversion(record.get(), 150.0, 0.0, x0);
    EXPECT_NEAR(got, afterRounds(stop), 1e-15);
    EXPECT_GT(std::fabs(got - afterRounds(stop - 1)), 1e-10);
    EXPECT_GT(std::fabs(got - afterRounds(stop + 1)), 1e-10);
}

TEST(IsothermalConversion, OuterStepsStopAfter1000) {
    // A constant rate of 100 asks for steps of 1e-5 time units, each moving x by 0.001, and
    // 50000 of them for the span. The first step lands on the clamp at 0 (from a start at -1),
    // the other 999 add 0.001 each.
    auto record = thermoset(constantRate(100.0));
    EXPECT_NEAR(QrvGetConversion(record.get(), 150.0, 0.0, -1.0), 0.999, 1e-11);
}

TEST(IsothermalConversion, ARestOfTheSpanAbove1e10GetsAStepOfItsOwn) {
    // A constant rate r = 0.002 / (0.5 - rest): the first step is shortened to 0.001/r, and so is
    // the doubled second one (capped at the 0.25 + rest/2 that remain, it would still move x by
    // more than 0.001), which leaves rest. A rest above 1e-10 takes one more step and the whole
    // span adds r/2; a smaller one is dropped, and two steps add exactly 0.002.
    const double x0 = 0.25;
    for (double rest : {1.5e-10, 1.1e-10, 0.9e-10, 0.5e-10}) {
        const double r = 0.002 / (0.5 - rest);
        auto record = thermoset(constantRate(r));
        const double got = QrvGetConversion(record.get(), 150.0, 0.0, x0);
        const double want = rest > 1e-10 ? x0 + 0.5 * r : x0 + 0.002;
        EXPECT_NEAR(got, want, 1e-15) << rest;
        EXPECT_GT(std::fabs((x0 + 0.5 * r) - (x0 + 0.002)), 1e-13);
    }
}

TEST(IsothermalConversion, StartBelowZeroIsClampedToZero) {
    // A constant rate of 0.01: the first step is shortened to 0.001/0.01 = 0.1 time units and
    // lands on 0 instead of -0.499; the remaining 0.4 time units add 0.004.
    auto record = thermoset(constantRate(0.01));
    EXPECT_NEAR(QrvGetConversion(record.get(), 150.0, 0.0, -0.5), 0.01 * (0.5 - 0.1), 1e-14);
    // A negative rate drives x down to the clamp and holds it there.
    auto falling = thermoset(constantRate(-0.1));
    EXPECT_EQ(QrvGetConversion(falling.get(), 150.0, 0.0, 0.02), 0.0);
    EXPECT_NEAR(QrvGetConversion(falling.get(), 150.0, 0.0, 0.06), 0.06 - 0.05, 1e-14);
}

TEST(IsothermalConversion, StartAtZeroCuresFromTheFirstTerm) {
    // m = 1 and no A term: the rate is B' x, which would keep x at 0 for ever without the floor
    // of 1e-12 inside the rate. With it x leaves 0 and stays tiny.
    auto record = thermoset({1.0, 0.0, 0.0, 10.0, 0.0, 0.0});
    const double x = QrvGetConversion(record.get(), 175.0, 0.0, 0.0);
    EXPECT_GT(x, 1e-12);
    EXPECT_LT(x, 1e-9);
    // The A term alone from 0: a constant rate.
    auto first = thermoset({0.5, 0.0, 1e6, 0.0, 10000.0, 0.0});
    EXPECT_NEAR(QrvGetConversion(first.get(), 175.0, 0.0, 0.0), 0.5 * arrhenius(1e6, 1e4, 175.0),
                1e-12);
}

TEST(IsothermalConversion, StartAtOneStaysAtOrBelowOne) {
    for (const Kinetics& k : kSamples) {
        auto record = thermoset(k);
        for (double t : {25.0, 175.0, 250.0}) {
            const double iso = QrvGetConversion(record.get(), t, 0.0, 1.0);
            EXPECT_LE(iso, 1.0);
            EXPECT_GE(iso, 0.999);
            EXPECT_LE(QrvGetConversion(record.get(), t, 1.0, 1.0), 1.0);
        }
    }
    // A constant rate that would carry x past 1 stops at 1.
    auto fast = thermoset(constantRate(4.0));
    EXPECT_EQ(QrvGetConversion(fast.get(), 150.0, 0.0, 0.5), 1.0);
}

// ---- ramp step: a rise of 0.1 degree at the heating rate ----

TEST(RampConversion, ConstantRateAddsRateTimesDuration) {
    // Simpson's rule is exact for a constant rate: x = x0 + r 0.1/beta, whatever the substeps.
    for (double r : {1e-4, 0.005, 0.2, 3.0})
        for (double beta : {0.5, 1.0, 20.0, 400.0}) {
            const double x0 = 0.1;
            if (r * 0.1 / beta > 0.8) continue;
            auto record = thermoset(constantRate(r));
            EXPECT_NEAR(QrvGetConversion(record.get(), 150.0, beta, x0), x0 + r * 0.1 / beta, 1e-13)
                << r << " " << beta;
        }
}

TEST(RampConversion, HasNoLowerClamp) {
    // A falling constant rate takes x below 0: only the isothermal step clamps there.
    auto record = thermoset(constantRate(-0.005));
    EXPECT_NEAR(QrvGetConversion(record.get(), 150.0, 1.0, 0.0002), 0.0002 - 0.0005, 1e-15);
}

TEST(RampConversion, ThresholdIsStrict) {
    // A constant rate of 1e-12: half a time unit adds 5e-13, a rise of 0.1 degree at 1e-10 per
    // time unit takes 1e9 time units and adds 1e-3.
    auto record = thermoset(constantRate(1e-12));
    const double x0 = 0.25;
    const double iso = QrvGetConversion(record.get(), 100.0, 0.0, x0);
    EXPECT_EQ(iso, x0 + 1e-12 * 0.5);
    EXPECT_EQ(QrvGetConversion(record.get(), 100.0, -4.0, x0), iso);
    EXPECT_EQ(QrvGetConversion(record.get(), 100.0, std::nextafter(1e-10, 0.0), x0), iso);
    EXPECT_NEAR(QrvGetConversion(record.get(), 100.0, 1e-10, x0), x0 + 1e-3, 1e-14);
}

// The substep count and times of a ramp from t at heating rate beta whose section rate is r0.
struct RampSteps {
    int count;
    double h;
};
RampSteps rampSteps(double t, double beta, double r0) {
    const double rise = (t + 0.1) - t;
    double dt = 0.001 / r0;
    if (!(dt < 0.1 / beta)) dt = 0.1 / beta;
    const int count = static_cast<int>(rise / (dt * beta) + 0.5) + 1;
    return {count, 0.1 / (count * beta)};
}

// The ramp for a rate of temperature alone, as the sum of Simpson's rule over the substeps with
// the rate at the start of the section standing in for the rate at the start of every substep.
double rampOfTemperatureRate(const Kinetics& k, double t, double beta, double x0, bool stale) {
    const RampSteps steps = rampSteps(t, beta, rateOf(k, t, x0));
    const double rise = 0.5 * steps.h * beta;  // temperature rise of half a substep
    double x = x0;
    for (int j = 0; j < steps.count; ++j) {
        const double start = rateOf(k, stale ? t : t + 2 * j * rise, 0.0);
        const double middle = rateOf(k, t + (2 * j + 1) * rise, 0.0);
        const double end = rateOf(k, t + (2 * j + 2) * rise, 0.0);
        x += steps.h / 6.0 * (start + 4.0 * middle + end);
    }
    return x;
}

TEST(RampConversion, KeepsTheSectionRateForAllSubsteps) {
    // m = n = 0, no B term: the rate depends on the temperature alone, so the corrector settles at
    // once and each substep adds h/6 (r0 + 4 r(middle) + r(end)) with r0 the rate at the start of
    // the section. A fresh r0 per substep would give a visibly different sum.
    const Kinetics k{0.0, 0.0, 1e10, 0.0, 10000.0, 0.0};
    auto record = thermoset(k);
    for (double t : {150.0, 175.0})
        for (double beta : {0.5, 2.0}) {
            const double x0 = 0.1;
            const double got = QrvGetConversion(record.get(), t, beta, x0);
            const double want = rampOfTemperatureRate(k, t, beta, x0, true);
            const double fresh = rampOfTemperatureRate(k, t, beta, x0, false);
            EXPECT_NEAR(got, want, 1e-10 * (want - x0)) << t << " " << beta;
            EXPECT_GT(std::fabs(got - fresh), 1e-4 * (want - x0)) << t << " " << beta;
            EXPECT_GT(rampSteps(t, beta, rateOf(k, t, x0)).count, 10);
        }
}

// The corrector of one substep of h for r(x) = a + b x with the section rate r0 is affine in
// (xh, xf):
//   xh' = x + hh/2 (a + b xh + r0),  xf' = x + h/6 (5a + b xf + 4 b xh + r0),
// with factors l1 = hh b/2 on xh and l2 = h b/6 on xf, so xf after k rounds from the predictor
// is its fixed point plus a sum of geometric terms.
struct AffineCorrector {
    double a, b, r0, h;

    double after(double x, int rounds) const {
        const double hh = 0.5 * h;
        const double l1 = hh * b / 2.0, l2 = h * b / 6.0;
        const double xh0 = x + hh * r0;
        const double xf0 = xh0 + hh * r0;
        const double xh = (x + hh / 2.0 * (a + r0)) / (1.0 - l1);
        const double xf = (x + h / 6.0 * (5.0 * a + 4.0 * b * xh + r0)) / (1.0 - l2);
        const double e0 = xh0 - xh, f0 = xf0 - xf;
        return xf + std::pow(l2, rounds) * f0 +
               4.0 * l2 * e0 * (std::pow(l1, rounds) - std::pow(l2, rounds)) / (l1 - l2);
    }
};

// A ramp from 0 degree at beta = 1 with r(x) = a + b x and the rate r0 at x0. The step of
// 0.001/r0 (r0 below 0.01) is longer than 0.1/beta, so there are two substeps of h = 0.05.
struct AffineRamp {
    qrvtest::MaterialPtr record;
    AffineCorrector corrector;
};
AffineRamp affineRamp(double b, double x0, double r0) {
    const double a = r0 - b * x0;
    const RampSteps steps = rampSteps(0.0, 1.0, r0);
    EXPECT_EQ(steps.count, 2);
    return {thermoset(affineRate(a, b)), {a, b, r0, steps.h}};
}

TEST(RampConversion, CorrectorStopsAfter100Rounds) {
    // r0 = 0.005: a b of -79.2 makes l1 = -0.99, far from settling within 100 rounds.
    const double x0 = 0.5;
    const AffineRamp ramp = affineRamp(-79.2, x0, 0.005);
    auto substep = [&](double x, int rounds) { return ramp.corrector.after(x, rounds); };
    auto afterRounds = [&](int rounds) { return substep(substep(x0, rounds), rounds); };
    const double got = QrvGetConversion(ramp.record.get(), 0.0, 1.0, x0);
    EXPECT_NEAR(got, afterRounds(100), 1e-13);
    for (int other : {99, 101, 40, 1000})
        EXPECT_GT(std::fabs(got - afterRounds(other)), 1e-9) << other;
}

TEST(RampConversion, CorrectorStopsAtTheFirstChangeOf1e15OrLess) {
    // The affine corrector of CorrectorStopsAfter100Rounds with b = -40 (factors -0.5 on xh and
    // -1/3 on xf), near x = 0.001 where a double resolves 2e-19: the change of xf shrinks about
    // twofold a round and falls to 1e-15 after some 40 rounds. Stopping there leaves xf a few
    // 1e-16 short of where 100 rounds would take it.
    const double x0 = 0.001;
    const AffineRamp ramp = affineRamp(-40.0, x0, 0.005);
    auto substep = [&](double x, int rounds) { return ramp.corrector.after(x, rounds); };
    // The first round whose change is 1e-15 or less, with a margin that rounding cannot cross.
    auto settle = [&](double x) {
        int round = 1;
        while (std::fabs(substep(x, round) - substep(x, round - 1)) > 1e-15)
            ++round;
        EXPECT_LT(std::fabs(substep(x, round) - substep(x, round - 1)), 0.95e-15);
        EXPECT_GT(std::fabs(substep(x, round - 1) - substep(x, round - 2)), 1.05e-15);
        EXPECT_LT(round, 100);
        return substep(x, round);
    };
    const double want = settle(settle(x0));
    const double full = substep(substep(x0, 100), 100);
    ASSERT_GT(std::fabs(want - full), 1e-16);
    const double got = QrvGetConversion(ramp.record.get(), 0.0, 1.0, x0);
    EXPECT_NEAR(got, want, 2e-17);
}

TEST(RampConversion, AffineRateSettlesAtTheFixedPoint) {
    // The same affine corrector with a small factor settles well within its 100 rounds: every
    // substep ends at the fixed point, which the code reaches from its own predictor.
    for (double b : {-3.0, 2.0}) {
        const double x0 = 0.3, beta = 4.0, r0 = 0.02, a = r0 - b * x0;
        auto record = thermoset(affineRate(a, b));
        const RampSteps steps = rampSteps(0.0, beta, r0);
        ASSERT_EQ(steps.count, 2);
        const double h = steps.h, hh = 0.5 * h;
        double x = x0;
        for (int j = 0; j < steps.count; ++j) {
            const double xh = (x + hh / 2.0 * (a + r0)) / (1.0 - hh * b / 2.0);
            x = (x + h / 6.0 * (5.0 * a + 4.0 * b * xh + r0)) / (1.0 - h * b / 6.0);
        }
        EXPECT_NEAR(QrvGetConversion(record.get(), 0.0, beta, x0), x, 1e-15) << b;
    }
}

TEST(RampConversion, NeverExceedsOne) {
    // A constant rate of 10: 0.1 degree at 1 per time unit would add 1.0.
    auto record = thermoset(constantRate(10.0));
    for (double x0 : {0.9, 0.999, 0.9999999, 1.0})
        for (double beta : {0.1, 1.0, 10.0})
            EXPECT_LE(QrvGetConversion(record.get(), 250.0, beta, x0), 1.0) << x0 << " " << beta;
    EXPECT_EQ(QrvGetConversion(record.get(), 250.0, 1.0, 0.999), 1.0);
    EXPECT_EQ(QrvGetConversion(record.get(), 250.0, 1.0, 0.5), 1.0);
    // Half way the cap holds the predictor: 0.1 degree at 20 per time unit adds 0.05.
    EXPECT_NEAR(QrvGetConversion(record.get(), 250.0, 20.0, 0.5), 0.55, 1e-13);
}

TEST(RampConversion, TemperatureThatSwallowsTheRiseStillTakesOneSection) {
    // At 2e15 degree C the double cannot hold t + 0.1 apart from t: the rise is 0, the section
    // count max(trunc(0/0.1 + 0.5), 1) = 1 and the substep count trunc(0 + 0.5) + 1 = 1. The one
    // substep still lasts 0.1/beta, so a constant rate adds r 0.1/beta.
    const double t = 2e15;
    ASSERT_EQ((t + 0.1) - t, 0.0);
    auto record = thermoset(constantRate(0.004));
    EXPECT_NEAR(QrvGetConversion(record.get(), t, 2.0, 0.25), 0.25 + 0.004 * 0.1 / 2.0, 1e-15);
}

TEST(RampConversion, SubstepCountsPastAnIntSkipTheStep) {
    // A constant rate of 1 from 0 degree (where the rise is exactly 0.1) asks for about
    // 100/beta substeps. At 100/beta just above INT_MAX the count is INT_MAX, one more wraps to
    // INT_MIN and the step is skipped; at 1e-10 the count does not fit an int at all.
    auto record = thermoset(constantRate(1.0));
    const double x0 = 0.3;
    EXPECT_EQ(QrvGetConversion(record.get(), 0.0, 100.0 / 2147483647.25, x0), x0);
    EXPECT_EQ(QrvGetConversion(record.get(), 0.0, 1e-10, x0), x0);
    // Counts just past the ends of an int, 2^31 and just below INT_MIN - 1 (a falling rate asks
    // for a negative count), are skipped as well, without a conversion that overflows.
    auto falling = thermoset(constantRate(-1.0));
    for (double count : {2147483648.0, -2147483649.05}) {
        const double r0 = count > 0 ? 1.0 : -1.0;
        double beta = 100.0 / std::fabs(count - 0.5);
        for (int i = 0; i < 64 && 0.1 / (0.001 / r0 * beta) + 0.5 != count; ++i)
            beta = std::nextafter(
                beta, (0.1 / (0.001 / r0 * beta) + 0.5 < count) == (r0 > 0) ? 0.0 : 1.0);
        ASSERT_EQ(0.1 / (0.001 / r0 * beta) + 0.5, count);
        EXPECT_EQ(QrvGetConversion((r0 > 0 ? record : falling).get(), 0.0, beta, x0), x0) << count;
    }
    // A slower rate at the same heating rate asks for a few substeps and cures.
    auto slow = thermoset(constantRate(1e-11));
    EXPECT_NEAR(QrvGetConversion(slow.get(), 0.0, 1e-10, x0), x0 + 1e-11 * 0.1 / 1e-10, 1e-14);
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
    // A temperature that is not a number gives a rate, and so a result, that is not a number; an
    // infinite one a rise (inf + 0.1) - inf that is not a number, and no substep.
    EXPECT_TRUE(std::isnan(QrvGetConversion(record.get(), nan, 0.0, 0.4)));
    EXPECT_EQ(QrvGetConversion(record.get(), inf, 1.0, 0.4), 0.4);
}

TEST(Conversion, GeneratedThermosetCures) {
    std::unique_ptr<QrvMaterial, void (*)(QrvMaterial*)> record(
        QrvGetDefaultMaterial(12, 1, false, 1, 1, 0), QrvReleaseMaterial);
    const Kinetics k{0.1812, 1.193, 84350000.0, 80600000.0, 10420.0, 9610.0};
    EXPECT_NEAR(QrvGetConversion(record.get(), 170.0, 0.0, 0.5),
                rungeKutta(k, 170.0, 0.5, 0.5, 20000), 2e-6);
    // From 0 the steep x^m makes the first midpoint steps coarse: within a few percent.
    const double fromZero = rungeKutta(k, 170.0, 1e-12, 0.5, 20000);
    EXPECT_NEAR(QrvGetConversion(record.get(), 170.0, 0.0, 0.0), fromZero, 0.02 * fromZero);
    EXPECT_GT(QrvGetConversion(record.get(), 170.0, 0.0, 0.5), 0.5);
    EXPECT_GT(QrvGetConversion(record.get(), 170.0, 1.0, 0.5), 0.5);
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
    setBlock(old->PVT, 5, {1, 2, 3, 4, 5, 6, 7, 8, 400.0});
    EXPECT_EQ(QrvGetNoFlowTemperature(old.get()), 400.0 - 273.15);
}

}  // namespace
