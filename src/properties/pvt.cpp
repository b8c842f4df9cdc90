// Specific-volume models of the PVT block, one evaluator per id and one table from id to
// evaluator.
//
// T = t + 273.15 (kelvin; model temperatures are kelvin), P the pressure in dyne/cm^2, x the
// conversion; ln is the natural logarithm. Para order per id:
//   1  Constant density        V0                      V = 1/V0 (the value stored is a density)
//   2  Spencer-Gilmore         V0 P0 R                 V = V0 + R T/(P + P0)
//   3  Tait                    b1 b2 b3 b4 C           V = b1 e^(-b2 T)
//                                                          (1 - C ln(1 + P/(b3 e^(b4 T))))
//   4  Modified Tait Model 1   b1 b2 b3 b4 b5 b6 C     d = T - (b5 + b6 P),
//                                                      V = (1 - C ln(1 + P/(b3 e^(-b4 d))))
//                                                          (b1 + b2 d)
//   5  Modified Tait Model 2   b1L b2L b3L b4L b1S b2S b3S b4S b5 b6 b7 b8 b9
//                              d = T - b5; melt side when T >= b5 + b6 P (a tie is melt):
//                                V0 = b1L + b2L d, B = b3L e^(-b4L d), Vt = 0
//                              solid side otherwise:
//                                V0 = b1S + b2S d, B = b3S e^(-b4S d), Vt = b7 e^(b8 d - b9 P)
//                              V = V0 (1 - C0 ln(1 + P/B)) + Vt
//   6  Spencer-Gilmore-C       V0 P0 R Zeta            V = V0 + (1 - Zeta x) R T/(P + P0)
//   7  Tait-C                  b1 b2 b3 b4 Zeta        V = (1 - C0 ln(1 + P/(b3 e^(-b4 T))))
//                                                          (b1 + b2 T) (1 - Zeta x)
//
// C0 is the fixed Tait constant 0.0894. Kept as the fitted data expect them:
// - ids 3, 4 and 5 are three different forms: 3 grows B as e^(+b4 T) on absolute T, 4 has one
//   formula over the whole range with no branch at the transition, 5 has no C of its own;
// - in id 5, d is measured from b5, not from the pressure-shifted transition; only the branch
//   test uses b5 + b6 P;
// - id 7 works on absolute T and its B falls as e^(-b4 T), the opposite sign from id 3;
// - conversion enters ids 6 (the pressure term only) and 7 (the whole volume) and no other.
//
// Each evaluator writes its operations in the order above: results are compared to the bit.
#include <cmath>

#include <quorvalib/properties.h>

#include "properties/pvt_models.h"
#include "record/guard.h"

namespace {

constexpr double kCelsiusToKelvin = 273.15;
using qrv::pvt::kTaitC;

using Evaluator = double (*)(const double* p, double P, double T, double x);

struct PvtModel {
    int valuesRead;  // the formula reads Para[0] .. Para[valuesRead - 1]
    Evaluator evaluate;
};

double constantDensity(const double* p, double, double, double) {
    return qrv::pvt::constantDensity(p[0]);
}

double spencerGilmore(const double* p, double P, double T, double) {
    return qrv::pvt::spencerGilmore(p[0], p[1], p[2], P, T);
}

double tait(const double* p, double P, double T, double) {
    const double b1 = p[0], b2 = p[1], b3 = p[2], b4 = p[3], C = p[4];
    return b1 * std::exp(-b2 * T) * (1 - C * std::log(1 + P / (b3 * std::exp(b4 * T))));
}

double modifiedTait1(const double* p, double P, double T, double) {
    return qrv::pvt::modifiedTait1(p[0], p[1], p[2], p[3], p[4], p[5], p[6], P, T);
}

double modifiedTait2(const double* p, double P, double T, double) {
    return qrv::pvt::modifiedTait2({p[0], p[1], p[2], p[3]}, {p[4], p[5], p[6], p[7]}, p[8], p[9],
                                   p[10], p[11], p[12], P, T);
}

double spencerGilmoreC(const double* p, double P, double T, double x) {
    const double V0 = p[0], P0 = p[1], R = p[2], Zeta = p[3];
    return V0 + (1 - Zeta * x) * R * T / (P + P0);
}

double taitC(const double* p, double P, double T, double x) {
    const double b1 = p[0], b2 = p[1], b3 = p[2], b4 = p[3], Zeta = p[4];
    return (1 - kTaitC * std::log(1 + P / (b3 * std::exp(-b4 * T)))) * (b1 + b2 * T) *
           (1 - Zeta * x);
}

// Indexed by model id.
constexpr PvtModel kModels[] = {
    {0, nullptr},          // 0
    {1, constantDensity},  // 1
    {3, spencerGilmore},   // 2
    {5, tait},             // 3
    {7, modifiedTait1},    // 4
    {13, modifiedTait2},   // 5
    {4, spencerGilmoreC},  // 6
    {5, taitC},            // 7
};
constexpr int kModelCount = static_cast<int>(sizeof kModels / sizeof kModels[0]);

}  // namespace

double QrvGetSpecificVolume(QrvMaterial* material, double pressure, double temperature,
                            double conversion) {
    return qrv::withMaterial(material, -1.0, [&](const QrvMaterial& m) {
        const QrvMatParam& pvt = m.PVT;
        if (pvt.Model < 1 || pvt.Model >= kModelCount) return 0.0;
        const PvtModel& model = kModels[pvt.Model];
        if (!pvt.Para || pvt.Count < model.valuesRead) return 0.0;
        return model.evaluate(pvt.Para, pressure, temperature + kCelsiusToKelvin, conversion);
    });
}

double QrvGetDensity(QrvMaterial* material, double pressure, double temperature,
                     double conversion) {
    return qrv::withMaterial(material, 0.0, [&](const QrvMaterial&) {
        return 1.0 / QrvGetSpecificVolume(material, pressure, temperature, conversion);
    });
}
