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
//
// The scalar call and the batch calls share these kernels, so their results agree to the bit.
#ifndef QRV_PROPERTIES_PVT_MODELS_H
#define QRV_PROPERTIES_PVT_MODELS_H

#include <cmath>

#include <quorvalib/record.h>

namespace qrv::pvt {

inline constexpr double kCelsiusToKelvin = 273.15;
// The double 0x3FB6E2EB1C432CA5.
inline constexpr double kTaitC = 0.0894;

using Evaluator = double (*)(const double* p, double P, double T, double x);

struct PvtModel {
    int valuesRead;  // the formula reads Para[0] .. Para[valuesRead - 1]
    Evaluator evaluate;
};

inline double constantDensity(const double* p, double, double, double) {
    return 1.0 / p[0];
}

inline double spencerGilmore(const double* p, double P, double T, double) {
    const double V0 = p[0], P0 = p[1], R = p[2];
    return V0 + R * T / (P + P0);
}

inline double tait(const double* p, double P, double T, double) {
    const double b1 = p[0], b2 = p[1], b3 = p[2], b4 = p[3], C = p[4];
    return b1 * std::exp(-b2 * T) * (1 - C * std::log(1 + P / (b3 * std::exp(b4 * T))));
}

inline double modifiedTait1(const double* p, double P, double T, double) {
    const double b1 = p[0], b2 = p[1], b3 = p[2], b4 = p[3], b5 = p[4], b6 = p[5], C = p[6];
    const double Tt = b5 + b6 * P;
    const double d = T - Tt;
    return (1 - C * std::log(1 + P / (b3 * std::exp(-b4 * d)))) * (b1 + b2 * d);
}

inline double modifiedTait2(const double* p, double P, double T, double) {
    const double b5 = p[8], b6 = p[9], b7 = p[10], b8 = p[11], b9 = p[12];
    const double d = T - b5;
    const double Tt = b5 + b6 * P;
    double V0, B, Vt;
    if (T >= Tt) {
        V0 = p[0] + p[1] * d;
        B = p[2] * std::exp(-p[3] * d);
        Vt = 0;
    } else {
        V0 = p[4] + p[5] * d;
        B = p[6] * std::exp(-p[7] * d);
        Vt = b7 * std::exp(b8 * d - b9 * P);
    }
    return V0 * (1 - kTaitC * std::log(1 + P / B)) + Vt;
}

inline double spencerGilmoreC(const double* p, double P, double T, double x) {
    const double V0 = p[0], P0 = p[1], R = p[2], Zeta = p[3];
    return V0 + (1 - Zeta * x) * R * T / (P + P0);
}

inline double taitC(const double* p, double P, double T, double x) {
    const double b1 = p[0], b2 = p[1], b3 = p[2], b4 = p[3], Zeta = p[4];
    return (1 - kTaitC * std::log(1 + P / (b3 * std::exp(-b4 * T)))) * (b1 + b2 * T) *
           (1 - Zeta * x);
}

// Indexed by model id.
inline constexpr PvtModel kModels[] = {
    {0, nullptr},          // 0
    {1, constantDensity},  // 1
    {3, spencerGilmore},   // 2
    {5, tait},             // 3
    {7, modifiedTait1},    // 4
    {13, modifiedTait2},   // 5
    {4, spencerGilmoreC},  // 6
    {5, taitC},            // 7
};
inline constexpr int kModelCount = static_cast<int>(sizeof kModels / sizeof kModels[0]);

// The evaluator of a PVT block, or null when the block cannot be evaluated: an unknown id, a null
// Para, or fewer values than the formula reads. Evaluators take T in kelvin.
inline Evaluator evaluatorOf(const QrvMatParam& pvt) {
    if (pvt.Model < 1 || pvt.Model >= kModelCount) return nullptr;
    const PvtModel& model = kModels[pvt.Model];
    if (!pvt.Para || pvt.Count < model.valuesRead) return nullptr;
    return model.evaluate;
}

}  // namespace qrv::pvt

#endif
