// Viscosity of every evaluated model against the formulas written out here once more, compared to
// the last bit, and the sentinels of the flat evaluator.
#include <gtest/gtest.h>

#include <quorvalib/batch.h>
#include <quorvalib/defaults.h>
#include <quorvalib/properties.h>

#include <cmath>
#include <limits>
#include <vector>

#include "record/material_internal.h"
#include "support/material_ptr.h"

using qrvtest::adopt;
using qrvtest::setBlock;

namespace {

// The formulas as a fitting engineer writes them, with T in kelvin.
double kelvin(double t) {
    return t + 273.15;
}

double expectPowerLaw(const std::vector<double>& p, double g, double t) {
    return p[1] * std::exp(p[2] / kelvin(t)) * std::pow(g, p[0] - 1);
}
double expectCross1(const std::vector<double>& p, double g, double t, double P) {
    const double e0 = p[2] * std::exp(p[3] / kelvin(t) + p[4] * P);
    return e0 / (1 + p[1] * std::pow(e0 * g, 1 - p[0]));
}
double expectCross2(const std::vector<double>& p, double g, double t, double P) {
    const double e0 = p[2] * std::exp(p[3] / kelvin(t) + p[4] * P);
    return e0 / (1 + std::pow(e0 * g / p[1], 1 - p[0]));
}
double expectCross3(const std::vector<double>& p, double g, double t, double P) {
    const double Ts = p[3] + p[4] * P;
    const double den = p[4] * P + p[6] + t + 273.15 - Ts;
    const double e0 = p[2] * std::exp(-p[5] * (kelvin(t) - Ts) / den);
    return e0 / (1 + std::pow(e0 * g / p[1], 1 - p[0]));
}
double cureFactor(double Cg, double C1, double C2, double x) {
    return std::pow(Cg / (Cg - x), C1 + C2 * x);
}
double expectCastro(const std::vector<double>& p, double t, double x) {
    return cureFactor(p[0], p[1], p[2], x) * p[3] * std::exp(p[4] / kelvin(t));
}
double expectPowerCastro(const std::vector<double>& p, double g, double t, double x) {
    const double tau = std::tan(std::acos(-1.0) * ((x - p[10]) / p[9]) * 0.5);
    const double a = p[0] + p[1] * x + p[2] * tau;
    const double b = p[3] + p[4] * x + p[5] * tau;
    double m = p[6] * std::exp(p[7] * x + p[8] * tau);
    m = m < 0.01 ? 0.01 : (m > 0.99 ? 0.99 : m);
    return std::exp(b / kelvin(t) + a) * std::pow(g, m - 1);
}
double expectCrossCastro(const std::vector<double>& p, double g, double t, double x) {
    const double f = p[3] * std::exp(p[4] / kelvin(t));
    return f * cureFactor(p[0], p[1], p[2], x) / (1 + std::pow(f * g / p[6], 1 - p[5]));
}
double expectHerschel(const std::vector<double>& p, double g, double t, double x) {
    const double T = kelvin(t);
    const double shear = p[1] * cureFactor(p[6], p[4], p[5], x) *
                         std::exp(-p[2] * (T - p[8]) / (p[3] + T - p[8])) * std::pow(g, p[0] - 1);
    return shear + p[7] * std::exp(p[5] / T) / g;
}

struct Case {
    int id;
    std::vector<double> para;
};

// Sample parameter sets of every evaluated model (those of the default materials).
const std::vector<Case>& cases() {
    static const std::vector<Case> all = {
        {1, {1234.5}},
        {2, {0.429888, 498.746, 2332.14}},
        {3, {0.3036, 0.0001051, 6.484e-07, 12720.0, 2.4e-09}},
        {4, {0.27845, 876860.0, 1.1326e-06, 11642.0, 3.1e-09}},
        {5, {0.25883, 1026900.0, 4.7127e+14, 373.15, 2.0e-07, 30.5, 46.0}},
        {10, {0.69, 6.9179, 1.9442, 0.01682, 3570.21}},
        {11,
         {-13.72626, -45.23453, 11.03065, 8686.252, 17649.07, -4093.336, 0.5490999, 1.817284,
          -0.2455251, 0.45, 0.22}},
        {12, {1.0, 9.31, 1.893e-05, 0.03115, 8916.0, 0.4514, 0.0234}},
        {13, {0.85, 23220000.0, 25.85, 179.6, 5.13, 1.2, 0.682, 8570.0, 293.0, 0.0}},
    };
    return all;
}

double expected(const Case& c, double g, double t, double P, double x) {
    const auto& p = c.para;
    switch (c.id) {
        case 1:
            return p[0];
        case 2:
            return expectPowerLaw(p, g, t);
        case 3:
            return expectCross1(p, g, t, P);
        case 4:
            return expectCross2(p, g, t, P);
        case 5:
            return expectCross3(p, g, t, P);
        case 10:
            return expectCastro(p, t, x);
        case 11:
            return expectPowerCastro(p, g, t, x);
        case 12:
            return expectCrossCastro(p, g, t, x);
        case 13:
            return expectHerschel(p, g, t, x);
    }
    return std::numeric_limits<double>::quiet_NaN();
}

qrvtest::MaterialPtr withVis(int id, const std::vector<double>& para) {
    auto material = adopt(new QrvMaterial);
    QrvInitMaterial(material.get());
    setBlock(material->Vis, id, para);
    return material;
}

double eta(const qrvtest::MaterialPtr& m, double g, double t, double P = 0.0, double x = 0.0) {
    return QrvGetViscosity(m.get(), g, t, P, x);
}

}  // namespace

TEST(Viscosity, EveryModelMatchesItsFormulaToTheBit) {
    const double rates[] = {1e-3, 1.0, 37.5, 1000.0, 2.5e5};
    const double temperatures[] = {-20.0, 150.0, 230.0, 305.5};
    const double pressures[] = {0.0, 1e6, 8.5e8};
    const double conversions[] = {0.0, 0.1, 0.3, 0.62};
    int compared = 0;
    for (const Case& c : cases()) {
        auto material = withVis(c.id, c.para);
        for (double g : rates)
            for (double t : temperatures)
                for (double P : pressures)
                    for (double x : conversions) {
                        const double want = expected(c, g, t, P, x);
                        const double got = eta(material, g, t, P, x);
                        ASSERT_EQ(std::isnan(got), std::isnan(want)) << c.id;
                        if (!std::isnan(want)) {
                            ASSERT_EQ(got, want) << "id " << c.id << " g " << g << " t " << t
                                                 << " P " << P << " x " << x;
                        }
                        ++compared;
                    }
    }
    EXPECT_EQ(compared, 9 * 5 * 4 * 3 * 4);
}

// Spot values worked out apart from the library (Python's math module) for two of the models.
TEST(Viscosity, HandWorkedValues) {
    // Power law: 498.746 * exp(2332.14 / 503.15) * 1000^(0.429888 - 1).
    auto powerLaw = withVis(2, {0.429888, 498.746, 2332.14});
    EXPECT_NEAR(eta(powerLaw, 1000.0, 230.0), 1001.2272462653186, 1e-9);
    // Castro-Macosko at x = 0: A * exp(Tb / T) = 0.01682 * exp(3570.21 / 423.15).
    auto castro = withVis(10, {0.69, 6.9179, 1.9442, 0.01682, 3570.21});
    EXPECT_NEAR(eta(castro, 1.0, 150.0, 0.0, 0.0), 77.6362315184, 1e-9);
}

TEST(Viscosity, NewtonianIgnoresEveryArgument) {
    auto material = withVis(1, {4321.0});
    EXPECT_EQ(eta(material, 0.0, 200.0), 4321.0);
    EXPECT_EQ(eta(material, 1e9, -300.0, 1e12, 5.0), 4321.0);
    EXPECT_EQ(eta(material, std::nan(""), std::nan(""), std::nan(""), std::nan("")), 4321.0);
}

TEST(Viscosity, ZeroShearRateIsNotGuarded) {
    auto powerLaw = withVis(2, {0.429888, 498.746, 2332.14});
    EXPECT_EQ(eta(powerLaw, 0.0, 230.0), std::numeric_limits<double>::infinity());
    auto herschel = withVis(13, cases()[8].para);
    EXPECT_EQ(eta(herschel, 0.0, 170.0, 0.0, 0.2), std::numeric_limits<double>::infinity());
    // n above 1 makes the power term vanish at zero rate; the yield term still divides by zero.
    auto dilatant = withVis(2, {1.5, 498.746, 2332.14});
    EXPECT_EQ(eta(dilatant, 0.0, 230.0), 0.0);
}

TEST(Viscosity, ConversionAtOrAboveGelPassesIeeeResultThrough) {
    for (int id : {10, 12, 13}) {
        SCOPED_TRACE(id);
        const Case& c = *std::find_if(cases().begin(), cases().end(),
                                      [id](const Case& k) { return k.id == id; });
        auto material = withVis(id, c.para);
        const double Cg = id == 13 ? c.para[6] : c.para[0];
        const double atGel = eta(material, 100.0, 160.0, 0.0, Cg);
        EXPECT_EQ(atGel, std::numeric_limits<double>::infinity());
        const double pastGel = eta(material, 100.0, 160.0, 0.0, Cg + 0.05);
        EXPECT_TRUE(std::isnan(pastGel));
    }
}

TEST(Viscosity, PowerLawCastroClampsTheShearExponent) {
    std::vector<double> p = cases()[6].para;
    const double g = 250.0, t = 160.0, x = 0.3;
    auto withC0 = [&](double c0) {
        p[6] = c0;
        return withVis(11, p);
    };
    const double pi = std::acos(-1.0);
    const double tau = std::tan(pi * ((x - p[10]) / p[9]) * 0.5);
    const double a = p[0] + p[1] * x + p[2] * tau;
    const double b = p[3] + p[4] * x + p[5] * tau;
    const double base = std::exp(b / (t + 273.15) + a);
    EXPECT_EQ(eta(withC0(0.0), g, t, 0.0, x), base * std::pow(g, 0.01 - 1));
    EXPECT_EQ(eta(withC0(1e300), g, t, 0.0, x), base * std::pow(g, 0.99 - 1));
}

TEST(Viscosity, PowerLawCastroClampsAnExponentJustAbove099) {
    // a = b = 0 and tau = 0 leave 1024^(m - 1) alone. The upper clamp holds from 0.99 on: an
    // exponent of 0.995 or exactly 1 becomes 0.99, 1024^-0.01 = 2^-0.1 (mpmath, 30 digits:
    // 0.933032991536807412391...), not 2^-0.05 = 0.96593632892484565 nor 1.
    const double twoToMinusTenth = 0.93303299153680741239;
    for (double c0 : {0.995, 1.0}) {
        auto material = withVis(11, {0, 0, 0, 0, 0, 0, c0, 0, 0, 1.0, 0.0});
        EXPECT_NEAR(eta(material, 1024.0, 160.0, 0.0, 0.0), twoToMinusTenth, 2e-16) << c0;
        // The batch forms clamp alike, the fast one within its own 1e-14 (over whole vectors:
        // a tail shorter than one goes through the exact form).
        constexpr int n = 64;
        const std::vector<double> g(n, 1024.0), t(n, 160.0), x(n, 0.0);
        std::vector<double> exact(n), fast(n);
        QrvGetViscosityN(material.get(), n, g.data(), t.data(), nullptr, x.data(), exact.data());
        QrvGetViscosityNFast(material.get(), n, g.data(), t.data(), nullptr, x.data(), fast.data());
        for (int i = 0; i < n; ++i) {
            EXPECT_NEAR(exact[i], twoToMinusTenth, 2e-16) << c0;
            EXPECT_NEAR(fast[i], twoToMinusTenth, 1e-14) << c0;
        }
    }
    auto inside = withVis(11, {0, 0, 0, 0, 0, 0, 0.9, 0, 0, 1.0, 0.0});
    EXPECT_NEAR(eta(inside, 1024.0, 160.0, 0.0, 0.0), 0.5, 2e-16);  // 1024^-0.1 = 2^-1
}

TEST(Viscosity, HerschelBulkleyIgnoresTyAndUsesC2Twice) {
    std::vector<double> p = cases()[8].para;
    const double g = 50.0, t = 175.0, x = 0.25;
    const double reference = eta(withVis(13, p), g, t, 0.0, x);

    std::vector<double> otherTy = p;
    otherTy[9] = 512.0;
    EXPECT_EQ(eta(withVis(13, otherTy), g, t, 0.0, x), reference);

    std::vector<double> otherC2 = p;
    otherC2[5] = 1.7;
    const double changed = eta(withVis(13, otherC2), g, t, 0.0, x);
    EXPECT_NE(changed, reference);
    EXPECT_EQ(changed, expectHerschel(otherC2, g, t, x));
    // Both terms move: each alone, with the other switched off, changes with C2.
    std::vector<double> yieldOnly = p, yieldOnlyC2 = otherC2;
    yieldOnly[1] = yieldOnlyC2[1] = 0.0;  // K00 = 0 removes the shear term
    EXPECT_NE(eta(withVis(13, yieldOnly), g, t, 0.0, x),
              eta(withVis(13, yieldOnlyC2), g, t, 0.0, x));
    std::vector<double> shearOnly = p, shearOnlyC2 = otherC2;
    shearOnly[7] = shearOnlyC2[7] = 0.0;  // Tauy0 = 0 removes the yield term
    EXPECT_NE(eta(withVis(13, shearOnly), g, t, 0.0, x),
              eta(withVis(13, shearOnlyC2), g, t, 0.0, x));
}

TEST(Viscosity, CrossCastroAtZeroConversionIsTheCrossFormOfF) {
    const std::vector<double> p = cases()[7].para;
    auto material = withVis(12, p);
    for (double g : {0.5, 10.0, 4000.0}) {
        for (double t : {120.0, 175.0}) {
            const double f = p[3] * std::exp(p[4] / (t + 273.15));
            EXPECT_EQ(eta(material, g, t, 0.0, 0.0), f / (1 + std::pow(f * g / p[6], 1 - p[5])));
        }
    }
}

// Modified Cross 1 keeps C in front of the power term and no stress scale inside it.
TEST(Viscosity, ModifiedCrossOneHasNoStressScale) {
    std::vector<double> p = cases()[2].para;
    auto material = withVis(3, p);
    const double e0 = p[2] * std::exp(p[3] / (200.0 + 273.15));
    EXPECT_EQ(eta(material, 100.0, 200.0), e0 / (1 + p[1] * std::pow(e0 * 100.0, 1 - p[0])));
}

TEST(Viscosity, SentinelsOfTheFlatEvaluator) {
    EXPECT_EQ(QrvGetViscosity(nullptr, 1.0, 200.0, 0.0, 0.0), -1.0);
    for (int id : {-5, 0, 6, 7, 8, 9, 14, 1000}) {
        SCOPED_TRACE(id);
        auto material = withVis(id, {0.3, 1e5, 1e-6, 1e4, 0.0, 1.0, 2.0, 3.0, 4.0, 5.0, 6.0});
        EXPECT_EQ(eta(material, 1.0, 200.0), 0.0);
    }
    auto unknownWithoutPara = withVis(14, {});
    EXPECT_EQ(eta(unknownWithoutPara, 1.0, 200.0), 0.0);
}

// FileType is not read: a thermoplastic record with id 10 is evaluated by the thermoset formula.
TEST(Viscosity, FileTypeDoesNotChooseTheFormula) {
    auto material = withVis(10, cases()[5].para);
    material->FileType = 1;
    EXPECT_EQ(eta(material, 1.0, 150.0, 0.0, 0.2), expectCastro(cases()[5].para, 150.0, 0.2));
}

// A known id whose Para is missing or shorter than the formula reads gives 0.0, not a read past
// the array (the sanitizer run would catch one).
TEST(Viscosity, MissingOrShortParametersGiveZero) {
    const int needed[][2] = {{1, 1},  {2, 3},   {3, 5},  {4, 5}, {5, 7},
                             {10, 5}, {11, 11}, {12, 7}, {13, 9}};
    for (const auto& row : needed) {
        SCOPED_TRACE(row[0]);
        auto empty = withVis(row[0], {});
        EXPECT_EQ(eta(empty, 1.0, 200.0), 0.0);
        auto shortBlock = withVis(row[0], std::vector<double>(row[1] - 1, 1.0));
        EXPECT_EQ(eta(shortBlock, 1.0, 200.0), 0.0);
        auto exact = withVis(row[0], std::vector<double>(row[1], 0.5));
        EXPECT_NE(eta(exact, 10.0, 200.0, 0.0, 0.1), 0.0);
    }
    // A Count that claims values with no array behind it.
    auto lying = withVis(2, {});
    lying->Vis.Count = 3;
    EXPECT_EQ(eta(lying, 1.0, 200.0), 0.0);
}

// The shear-thinning models never rise with shear rate on the sample materials.
TEST(Viscosity, ShearThinningModelsFallWithRate) {
    for (int visId : {2, 3, 4, 5, 11, 12, 13}) {
        SCOPED_TRACE(visId);
        auto material = adopt(QrvGetDefaultMaterial(visId, 1, false, 1, 1, 0));
        const double t = visId >= 10 ? 160.0 : 240.0;
        double previous = std::numeric_limits<double>::infinity();
        for (double g = 0.01; g < 1e6; g *= 3.0) {
            const double value = eta(material, g, t, 0.0, 0.1);
            EXPECT_LE(value, previous) << g;
            previous = value;
        }
    }
}
