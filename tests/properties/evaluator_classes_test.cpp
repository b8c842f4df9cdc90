// The MaterialProperty classes: against the flat evaluators on every model both carry, to the
// bit, and against the formulas written out here where the two differ on purpose.
#include <gtest/gtest.h>

#include <quorvalib/evaluators.h>
#include <quorvalib/properties.h>

#include <cmath>
#include <cstdint>
#include <cstring>
#include <limits>
#include <memory>
#include <stdexcept>
#include <vector>

#include "support/material_ptr.h"

using namespace MaterialProperty;
using qrvtest::makeRecord;
using qrvtest::MaterialPtr;
using qrvtest::setBlock;

namespace {

std::uint64_t bits(double v) {
    std::uint64_t b;
    std::memcpy(&b, &v, sizeof b);
    return b;
}

#define EXPECT_SAME_BITS(a, b) EXPECT_EQ(bits(a), bits(b)) << (a) << " vs " << (b)

const double kShearRates[] = {0.0, 1e-3, 0.5, 1.0, 37.0, 1e3, 1e5};
const double kTemperatures[] = {-40.0, 0.0, 20.0, 150.0, 230.5, 300.0};
const double kPressures[] = {0.0, 1e6, 1e8, 2e9};
const double kInf = std::numeric_limits<double>::infinity();

template <typename Class>
void expectViscosityLikeFlat(int model, const std::vector<double>& para) {
    MaterialPtr m = makeRecord();
    setBlock(m->Vis, model, para);
    Class object(para.data());
    CViscosity& base = object;
    for (double g : kShearRates)
        for (double t : kTemperatures)
            for (double P : kPressures)
                EXPECT_SAME_BITS(base.Evaluate(g, t, P), QrvGetViscosity(m.get(), g, t, P, 0.3))
                    << " model " << model << " at " << g << ", " << t << ", " << P;
}

template <typename Class>
void expectVolumeLikeFlat(int model, const std::vector<double>& para) {
    MaterialPtr m = makeRecord();
    setBlock(m->PVT, model, para);
    Class object(para.data());
    CPVT& base = object;
    for (double t : kTemperatures)
        for (double P : kPressures)
            EXPECT_SAME_BITS(base.Evaluate(P, t + 273.15), QrvGetSpecificVolume(m.get(), P, t, 0))
                << " model " << model << " at " << P << ", " << t;
}

// Temperatures on, between and beyond the table points of a curve.
std::vector<double> probes(const std::vector<double>& para) {
    std::vector<double> ts{-kInf, kInf};
    for (std::size_t i = 1; i < para.size(); i += 2)
        for (double d : {-1.0, -1e-9, 0.0, 1e-9, 0.37, 1.0})
            ts.push_back(para[i] + d);
    return ts;
}

template <typename Make>
void expectCurveLikeFlat(double (*flat)(QrvMaterial*, double), QrvMatParam QrvMaterial::*block,
                         int model, const std::vector<double>& para, Make make) {
    MaterialPtr m = makeRecord();
    setBlock((*m).*block, model, para);
    auto object = make(para);
    for (double t : probes(para))
        EXPECT_SAME_BITS(object->Evaluate(t), flat(m.get(), t))
            << " model " << model << " at " << t;
}

template <typename Class>
auto single() {
    return [](const std::vector<double>& p) { return std::make_unique<Class>(p.data()); };
}

template <typename Class>
auto table() {
    return [](const std::vector<double>& p) {
        return std::make_unique<Class>(static_cast<int>(p.size()), p.data());
    };
}

const std::vector<double> kCross3{0.28, 1.5e5, 3e12, 373.15, 1.5e-7, 28.0, 51.6};
const std::vector<double> kTait2{0.93,   6e-4,  1.8e9,  4.5e-3, 0.92, 2.5e-4, 2.7e9,
                                 3.5e-3, 420.0, 1.6e-7, 0.03,   0.06, 1.2e-9};

}  // namespace

TEST(EvaluatorClasses, ViscosityAgreesWithTheFlatFunctionToTheBit) {
    expectViscosityLikeFlat<CVisNewtonian>(1, {1234.5});
    expectViscosityLikeFlat<CVisPowerLaw>(2, {0.35, 2.1, 4200.0});
    expectViscosityLikeFlat<CVisModifiedCross1>(3, {0.3, 0.02, 4e-4, 5600.0, 1e-8});
    expectViscosityLikeFlat<CVisModifiedCross2>(4, {0.25, 2.4e5, 3e-3, 5200.0, 2e-9});
    expectViscosityLikeFlat<CVisModifiedCross3>(5, kCross3);
}

TEST(EvaluatorClasses, VolumeAgreesWithTheFlatFunctionAtTheSameKelvin) {
    expectVolumeLikeFlat<CPVTConstant>(1, {1.25});
    expectVolumeLikeFlat<CPVTSpencerGilmore>(2, {0.78, 3.2e9, 2.3e6});
    expectVolumeLikeFlat<CPVTModifiedTai1>(4, {0.95, 5e-4, 2e9, 4e-3, 400.0, 2e-7, 0.0894});
    expectVolumeLikeFlat<CPVTModifiedTai2>(5, kTait2);
}

TEST(EvaluatorClasses, HeatCapacityAgreesWithTheFlatFunctionToTheBit) {
    const auto flat = QrvGetHeatCapacity;
    const auto Cp = &QrvMaterial::Cp;
    expectCurveLikeFlat(flat, Cp, 1, {1.9e7}, single<CCPConstant>());
    expectCurveLikeFlat(flat, Cp, 2, {1.4e7, 60.0, 2.1e7, 240.0}, single<CCPCAE1>());
    expectCurveLikeFlat(flat, Cp, 3, {1.3e7, 40.0, 1.55e7, 110.3, 2.6e7, 160.0, 2.2e7, 280.0},
                        single<CCPCAE2>());
    expectCurveLikeFlat(flat, Cp, 4,
                        {1.1e7, 20.0, 1.3e7, 80.0, 2.4e7, 150.5, 2.0e7, 200.0, 2.1e7, 300.0},
                        table<CCPTabulated>());
    expectCurveLikeFlat(flat, Cp, 4, {1.1e7, 20.0, 1.3e7, 80.0}, table<CCPTabulated>());
}

TEST(EvaluatorClasses, ConductivityAgreesWithTheFlatFunctionToTheBit) {
    const auto flat = QrvGetThermalConductivity;
    const auto K = &QrvMaterial::K;
    expectCurveLikeFlat(flat, K, 1, {2.2e4}, single<CKConstant>());
    expectCurveLikeFlat(flat, K, 2, {1.8e4, 50.0, 2.3e4, 250.0}, single<CKCAE1>());
    expectCurveLikeFlat(flat, K, 3, {1.7e4, 30.0, 1.9e4, 90.0, 2.05e4, 170.0},
                        table<CKTabulated>());
    expectCurveLikeFlat(flat, K, 4, {1.6e4, 40.0, 1.75e4, 100.0, 2.4e4, 190.0, 2.2e4, 260.0},
                        single<CKCAE2>());
}

TEST(EvaluatorClasses, CarreauAsWritten) {
    const std::vector<double> p{0.3, 2e5, 4e-3, 5000.0, 1e-8};  // n, Taus, B, Tb, D
    CVisCarreau object(p.data());
    for (double g : kShearRates)
        for (double t : kTemperatures)
            for (double P : kPressures) {
                const double e0 = p[2] * std::exp(p[3] / (t + 273.15) + p[4] * P);
                const double s = e0 * g / p[1];
                const double expected = e0 / std::pow(1 + s * s, (1 - p[0]) * 0.5);
                EXPECT_SAME_BITS(object.Evaluate(g, t, P), expected);
            }
    // At rest the viscosity is the zero-shear one; the flat function has no Carreau.
    EXPECT_SAME_BITS(object.Evaluate(0.0, 200.0, 0.0), p[2] * std::exp(p[3] / (200 + 273.15)));
    MaterialPtr m = makeRecord();
    setBlock(m->Vis, 6, p);
    EXPECT_EQ(QrvGetViscosity(m.get(), 1.0, 200.0, 0.0, 0.0), 0.0);
}

TEST(EvaluatorClasses, CarreauYasudaSubtractsEtaInfinity) {
    // n, Taus, B, Tb, D, a, Eta_infinity
    const std::vector<double> p{0.3, 2e5, 4e-3, 5000.0, 1e-8, 1.7, 15.0};
    CVisCarreauYasuda object(p.data());
    for (double g : kShearRates)
        for (double t : kTemperatures) {
            const double e0 = p[2] * std::exp(p[3] / (t + 273.15) + p[4] * 1e7);
            const double expected =
                (e0 - p[6]) / std::pow(1 + std::pow(e0 * g / p[1], p[5]), (1 - p[0]) / p[5]);
            EXPECT_SAME_BITS(object.Evaluate(g, t, 1e7), expected);
        }
    const double e0 = p[2] * std::exp(p[3] / (200 + 273.15));
    EXPECT_EQ(object.Evaluate(0.0, 200.0, 0.0), e0 - 15.0);
    // No plateau: far out in shear rate the value falls below Eta_infinity towards zero.
    EXPECT_LT(object.Evaluate(1e12, 200.0, 0.0), 15.0);
}

TEST(EvaluatorClasses, TaitHasTheOppositeSignsOfTheFlatTait) {
    const std::vector<double> p{0.9, 3e-4, 2e9, 4e-3, 0.0894};  // b1, b2, b3, b4, C
    CPVTTai object(p.data());
    MaterialPtr m = makeRecord();
    setBlock(m->PVT, 3, p);
    for (double t : kTemperatures)
        for (double P : kPressures) {
            const double T = t + 273.15;
            const double expected = p[0] * std::exp(p[1] * T) *
                                    (1 - p[4] * std::log(1 + P / (p[2] * std::exp(-p[3] * T))));
            EXPECT_SAME_BITS(object.Evaluate(P, T), expected);
            EXPECT_NE(object.Evaluate(P, T), QrvGetSpecificVolume(m.get(), P, t, 0.0));
        }
}

TEST(EvaluatorClasses, ConstantsIgnoreTheirArguments) {
    const double density = 1.25;
    CPVTConstant pvt(&density);
    for (double T : {0.0, 300.0, -5.0, kInf})
        for (double P : {0.0, 1e9, -1e9})
            EXPECT_EQ(pvt.Evaluate(P, T), 0.8);
    const double eta = 777.0;
    CVisNewtonian vis(&eta);
    EXPECT_EQ(vis.Evaluate(0.0, -300.0, 1e12), 777.0);
    CCPConstant cp(&eta);
    CKConstant k(&eta);
    EXPECT_EQ(cp.Evaluate(-kInf), 777.0);
    EXPECT_EQ(k.Evaluate(1e6), 777.0);
}

TEST(EvaluatorClasses, SecondCaeCurveEndsAndJoins) {
    const std::vector<double> p{10.0, 100.0, 20.0, 150.0, 40.0, 200.0, 30.0, 250.0};
    CCPCAE2 cp(p.data());
    CKCAE2 k(p.data());
    for (CHeatCapacity* c : {static_cast<CHeatCapacity*>(&cp)}) {
        EXPECT_EQ(c->Evaluate(100.0), 10.0);
        EXPECT_EQ(c->Evaluate(99.0), 10.0);
        EXPECT_EQ(c->Evaluate(250.0), 30.0);
        EXPECT_EQ(c->Evaluate(251.0), 30.0);
        EXPECT_EQ(c->Evaluate(125.0), 15.0);
        EXPECT_EQ(c->Evaluate(175.0), 30.0);
        // Continuous at the inner points: the lower segment ends on the point's value.
        for (double inner : {150.0, 200.0}) {
            EXPECT_NEAR(c->Evaluate(inner), c->Evaluate(std::nextafter(inner, 1e9)), 1e-9);
            EXPECT_EQ(c->Evaluate(inner), inner == 150.0 ? 20.0 : 40.0);
        }
    }
    EXPECT_EQ(k.Evaluate(100.0), 10.0);
    EXPECT_EQ(k.Evaluate(250.0), 30.0);
    EXPECT_EQ(k.Evaluate(225.0), 35.0);
}

TEST(EvaluatorClasses, SecondCaeCurveWithoutASegmentForTheTemperatureGivesNaN) {
    const double nan = std::numeric_limits<double>::quiet_NaN();
    const std::vector<double> sorted{10.0, 100.0, 20.0, 150.0, 40.0, 200.0, 30.0, 250.0};
    // T2 unknown: 125 lies neither at or below T1, nor in a segment, nor above T4.
    const std::vector<double> holed{10.0, 100.0, 20.0, nan, 40.0, 200.0, 30.0, 250.0};
    CCPCAE2 cp(sorted.data());
    CKCAE2 k(sorted.data());
    EXPECT_TRUE(std::isnan(cp.Evaluate(nan)));
    EXPECT_TRUE(std::isnan(k.Evaluate(nan)));
    CCPCAE2 holedCp(holed.data());
    CKCAE2 holedK(holed.data());
    EXPECT_TRUE(std::isnan(holedCp.Evaluate(125.0)));
    EXPECT_TRUE(std::isnan(holedK.Evaluate(175.0)));
    // Outside the hole the ends still hold.
    EXPECT_EQ(holedCp.Evaluate(50.0), 10.0);
    EXPECT_EQ(holedCp.Evaluate(300.0), 30.0);
    EXPECT_EQ(holedK.Evaluate(225.0), 35.0);
}

TEST(EvaluatorClasses, TableAtAnInnerPointUsesTheLowerSegment) {
    // The two segments meet at 200 with different slopes; on the point the lower one gives 30.
    const std::vector<double> p{10.0, 100.0, 30.0, 200.0, 30.0, 300.0};
    CCPTabulated cp(6, p.data());
    CKTabulated k(6, p.data());
    EXPECT_EQ(cp.Evaluate(200.0), 30.0);
    EXPECT_EQ(cp.Evaluate(150.0), 20.0);
    EXPECT_EQ(cp.Evaluate(50.0), 10.0);
    EXPECT_EQ(cp.Evaluate(350.0), 30.0);
    EXPECT_EQ(k.Evaluate(150.0), 20.0);
}

TEST(EvaluatorClasses, TableWithAStepAtAnInnerPointTakesTheLowerSegment) {
    // A vertical step at 200: the lower segment ends on 20 there, while the step itself (two
    // equal temperatures) would divide by zero, so only the lower segment gives a number.
    const std::vector<double> p{10.0, 100.0, 20.0, 200.0, 50.0, 200.0, 60.0, 300.0};
    CCPTabulated cp(8, p.data());
    CKTabulated k(8, p.data());
    EXPECT_EQ(cp.Evaluate(200.0), 20.0);
    EXPECT_EQ(k.Evaluate(200.0), 20.0);
    EXPECT_EQ(cp.Evaluate(250.0), 55.0);
}

TEST(EvaluatorClasses, TablesWhereNoSegmentMatches) {
    // Out of order the class and the flat function still agree: every t between the first and
    // the last temperature lies on some segment.
    const std::vector<double> unsorted{10.0, 100.0, 20.0, 300.0, 30.0, 200.0};
    CCPTabulated cp(6, unsorted.data());
    MaterialPtr m = makeRecord();
    setBlock(m->Cp, 4, unsorted);
    for (double t : {50.0, 150.0, 250.0, 350.0})
        EXPECT_SAME_BITS(cp.Evaluate(t), QrvGetHeatCapacity(m.get(), t));
    // A temperature that is not a number matches no segment.
    const std::vector<double> holed{10.0, 100.0, 20.0, std::nan(""), 30.0, 300.0};
    EXPECT_TRUE(std::isnan(CCPTabulated(6, holed.data()).Evaluate(200.0)));
    EXPECT_TRUE(std::isnan(cp.Evaluate(std::nan(""))));
    // One pair: its value on either side, none on the point itself.
    const std::vector<double> one{5.0, 100.0};
    CKTabulated k(2, one.data());
    EXPECT_EQ(k.Evaluate(99.0), 5.0);
    EXPECT_EQ(k.Evaluate(101.0), 5.0);
    EXPECT_TRUE(std::isnan(k.Evaluate(100.0)));
    // An odd count drops its last value; no count makes an empty table.
    const std::vector<double> odd{5.0, 100.0, 7.0, 200.0, 9.0};
    EXPECT_EQ(CCPTabulated(5, odd.data()).Evaluate(1000.0), 7.0);
    EXPECT_TRUE(std::isnan(CCPTabulated(0, nullptr).Evaluate(1.0)));
    EXPECT_TRUE(std::isnan(CKTabulated(-4, nullptr).Evaluate(1.0)));
}

TEST(EvaluatorClasses, NullParametersThrow) {
    EXPECT_THROW(CVisModifiedCross3(nullptr), std::invalid_argument);
    EXPECT_THROW(CPVTModifiedTai2(nullptr), std::invalid_argument);
    EXPECT_THROW(CCPCAE1(nullptr), std::invalid_argument);
    EXPECT_THROW(CKTabulated(4, nullptr), std::invalid_argument);
}

TEST(EvaluatorClasses, ParametersAreCopiedAtConstruction) {
    std::vector<double> p = kCross3;
    CVisModifiedCross3 object(p.data());
    const double before = object.Evaluate(100.0, 230.0, 0.0);
    p.assign(p.size(), 0.0);
    EXPECT_SAME_BITS(object.Evaluate(100.0, 230.0, 0.0), before);
}

TEST(EvaluatorClasses, ModifiedTait2TakesTheMeltSideOnATie) {
    std::vector<double> p = kTait2;
    CPVTModifiedTai2 object(p.data());
    const double P = 1e8, Tt = p[8] + p[9] * P;
    const double d = Tt - p[8];
    const double melt =
        (p[0] + p[1] * d) * (1 - 0.0894 * std::log(1 + P / (p[2] * std::exp(-p[3] * d))));
    EXPECT_SAME_BITS(object.Evaluate(P, Tt), melt);
    EXPECT_GT(object.Evaluate(P, std::nextafter(Tt, 0.0)) - object.Evaluate(P, Tt), p[10] * 0.5);
}

TEST(EvaluatorClasses, SpencerGilmoreAndModifiedTait2UseTheTemperatureAsGiven) {
    // Spencer-Gilmore V0 + R*T/(P + P0) with V0 0.9, P0 1000, R 2 at T 400 and P 0: 0.9 + 0.8.
    const double sg[] = {0.9, 1000.0, 2.0};
    EXPECT_NEAR(CPVTSpencerGilmore(sg).Evaluate(0.0, 400.0), 1.7, 1e-15);
    // Modified Tait 2 at P 0 (the logarithm term vanishes), b5 400, b6 0: on the melt side
    // b1L + b2L*(T - b5) = 1 + 0.001*100; on the solid side b1S + b2S*(T - b5) + b7*exp(b8*d)
    // with b8 0: 0.95 + 0.0005*(-100) + 0.01.
    const double tait2[] = {1.0, 0.001, 1e9, 0.0,  0.95, 0.0005, 1e9,
                            0.0, 400.0, 0.0, 0.01, 0.0,  0.0};
    CPVTModifiedTai2 model(tait2);
    EXPECT_NEAR(model.Evaluate(0.0, 500.0), 1.1, 1e-15);
    EXPECT_NEAR(model.Evaluate(0.0, 300.0), 0.91, 1e-15);
}

TEST(EvaluatorClasses, FirstCaeCurveUsesItsLineAtTheUpperTemperature) {
    // At t = T2 exactly the line is evaluated, not c2: with c1 1 and c2 1e-17 over [0, 1] it
    // gives 1 + (1e-17 - 1) * 1 / 1, and 1e-17 - 1 rounds to -1 in binary64, so the value is 0.
    const double curve[] = {1.0, 0.0, 1e-17, 1.0};
    EXPECT_EQ(CCPCAE1(curve).Evaluate(1.0), 0.0);
    EXPECT_EQ(CKCAE1(curve).Evaluate(1.0), 0.0);
    EXPECT_EQ(CCPCAE1(curve).Evaluate(1.5), 1e-17);  // above T2: c2 itself
    EXPECT_EQ(CKCAE1(curve).Evaluate(-0.5), 1.0);    // below T1: c1
}
