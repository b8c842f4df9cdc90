// Cure conversion of a thermoset: one fixed step of time (isothermal) or of temperature (ramp)
// from the kinetics of the KN block, and the no-flow temperature.
//
// The two integrators are written step by step in the order of their operations, with their
// iteration limits and clamps as they stand: the results are compared to the bit.
//
// Isothermal (heating rate below 1e-10, negative rates included): a time of 0.5 at constant
// temperature by implicit midpoint steps. A step that would move the conversion by more than 0.001
// is shortened to 0.001/rate (and kept short for the rest of the step's iterations); each accepted
// step doubles the next one, never past the time that remains. Inner iterations stop at a relative
// change of 1e-5 or after 2000 rounds, outer steps after 1000 or when less than 1e-10 remains.
//
// Ramp: a rise of 0.1 degree at the heating rate by Simpson's rule on a predictor-corrector
// iteration (at most 100 rounds, until the change is 1e-15 or less). The rate r0 at the start of a
// section is computed once and kept for all its substeps; the substep time is built from the
// constant 0.1, not from the section's rise. Only the upper clamp at 1.0 applies here.
#include "properties/cure.h"

#include <climits>
#include <cmath>

#include <quorvalib/properties.h>

#include "record/guard.h"

namespace {

constexpr double kCelsiusToKelvin = 273.15;
constexpr int kKineticValues = 6;
constexpr double kLowestConversion = 1e-12;
constexpr double kHighestConversion = 0.999999999999;  // 0x3FEFFFFFFFFFDCD1
constexpr double kIsothermalSpan = 0.5;
constexpr double kRampRise = 0.1;
constexpr double kMaxStepChange = 0.001;
constexpr double kRampThreshold = 1e-10;

struct Kinetics {
    double m, n, A, B, Ta, Tb;

    explicit Kinetics(const double* p) : m(p[0]), n(p[1]), A(p[2]), B(p[3]), Ta(p[4]), Tb(p[5]) {}

    double rate(double t, double x) const {
        if (kLowestConversion > x) {
            x = kLowestConversion;
        } else if (x > kHighestConversion) {
            x = kHighestConversion;
        }
        const double T = t + kCelsiusToKelvin;
        return (A * std::exp(-Ta / T) + B * std::exp(-Tb / T) * std::pow(x, m)) *
               std::pow(1 - x, n);
    }
};

const double* kineticValues(const QrvMaterial& m) {
    return m.KN.Para && m.KN.Count >= kKineticValues ? m.KN.Para : nullptr;
}

// Truncation to int as the counts of the ramp take it. A value that does not fit an int (or is
// not a number) gives INT_MIN, as the x86 truncating conversion does; a substep count of INT_MIN
// skips its section instead of running for billions of substeps.
int truncateCount(double value) {
    if (!(value > static_cast<double>(INT_MIN) - 1.0 && value < static_cast<double>(INT_MAX) + 1.0))
        return INT_MIN;
    return static_cast<int>(value);
}

double isothermalStep(const Kinetics& k, double t, double x0) {
    double done = 0.0;
    double remaining = kIsothermalSpan;
    double dt = kIsothermalSpan;
    double xAcc = x0;
    double x = x0;
    int outer = 0;
    do {
        ++outer;
        int inner = 0;
        double e;
        do {
            ++inner;
            const double xPrev = x;
            const double xm = (x + xAcc) * 0.5;
            const double r = k.rate(t, xm);
            double d = r * dt;
            if (std::fabs(d) > kMaxStepChange) {
                dt = std::fabs(kMaxStepChange / r);
                if (dt > remaining) dt = remaining;
                d = r * dt;
            }
            x = xAcc + d;
            if (x > 1.0) {
                x = 1.0;
            } else if (0.0 > x) {
                x = 0.0;
            }
            if (std::fabs(x) > 1e-5) {
                e = std::fabs(x - xPrev) / x;
            } else {
                e = std::fabs(x - xPrev) / 1e-5;
            }
            if (inner >= 2000) break;
        } while (e > 1e-5);
        xAcc = x;
        done = done + dt;
        remaining = kIsothermalSpan - done;
        dt = dt * 2.0;
        if (dt > remaining) dt = remaining;
    } while (outer < 1000 && remaining > 1e-10);
    return x;
}

double rampStep(const Kinetics& k, double t, double beta, double x0) {
    const double rise = (t + kRampRise) - t;
    int sections = truncateCount(rise / kRampRise + 0.5);
    if (sections < 1) sections = 1;
    const double dTs = rise / sections;
    const double dtMax = kRampRise / beta;
    double x = x0;
    double Tc = t;
    for (int section = 0; section < sections; ++section) {
        const double r0 = k.rate(Tc, x);
        double dt = kMaxStepChange / r0;
        if (!(dt < dtMax)) dt = dtMax;
        // The count is an int: one more than INT_MAX wraps to INT_MIN, and the section is skipped.
        const int substeps =
            static_cast<int>(static_cast<unsigned>(truncateCount(dTs / (dt * beta) + 0.5)) + 1u);
        if (substeps < 1) continue;
        const double h = kRampRise / (substeps * beta);
        const double hh = 0.5 * h;
        const double dTh = hh * beta;
        for (int step = 0; step < substeps; ++step) {
            double xh = x + hh * r0;
            const double Th = Tc + dTh;
            if (xh > 1.0) xh = 1.0;
            double xf = xh + hh * r0;
            const double Tf = Th + dTh;
            if (xf > 1.0) xf = 1.0;
            int round = 0;
            double change;
            do {
                ++round;
                const double old = xf;
                const double r1 = k.rate(Th, xh);
                const double r2 = k.rate(Tf, xf);
                xh = (r1 + r0) * 0.5 * hh + x;
                xf = (r2 + 4.0 * r1 + r0) / 6.0 * h + x;
                change = std::fabs(old - xf);
                if (xh > 1.0) xh = 1.0;
                if (xf > 1.0) xf = 1.0;
            } while (round < 100 && change > 1e-15);
            x = xf;
            Tc = Tf;
        }
    }
    return x;
}

}  // namespace

double QrvGetCureRate(QrvMaterial* material, double temperature, double conversion) {
    return qrv::withMaterial(material, 0.0, [&](const QrvMaterial& m) {
        const double* p = kineticValues(m);
        return p ? Kinetics(p).rate(temperature, conversion) : 0.0;
    });
}

double QrvGetConversion(QrvMaterial* material, double temperature, double heatingRate,
                        double conversion) {
    return qrv::withMaterial(material, 0.0, [&](const QrvMaterial& m) {
        const double* p = kineticValues(m);
        if (!p) return 0.0;
        const Kinetics kinetics(p);
        if (kRampThreshold > heatingRate) return isothermalStep(kinetics, temperature, conversion);
        return rampStep(kinetics, temperature, heatingRate, conversion);
    });
}

double QrvGetNoFlowTemperature(QrvMaterial* material) {
    return qrv::withMaterial(material, -1.0, [&](const QrvMaterial& m) {
        constexpr int kTwoDomainTait = 5;
        constexpr int kTransitionIndex = 8;  // b5, in kelvin
        if (m.FileVer >= 9006 || m.PVT.Model != kTwoDomainTait) return QrvGetFreezeTemp(material);
        if (!m.PVT.Para || m.PVT.Count <= kTransitionIndex) return -1.0;
        return m.PVT.Para[kTransitionIndex] - kCelsiusToKelvin;
    });
}
