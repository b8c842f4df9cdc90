// Viscosity models of the Vis block, one evaluator per id and one table from id to evaluator.
//
// T = t + 273.15 (kelvin; model temperatures are kelvin), g the shear rate, P the pressure,
// x the conversion. Para order per id:
//   1  Newtonian                 Eta0                              eta = Eta0
//   2  Power Law                 n B Tb                            B e^(Tb/T) g^(n-1)
//   3  Modified Cross 1          n C B Tb D                        e0/(1 + C (e0 g)^(1-n)),
//                                                                  e0 = B e^(Tb/T + D P)
//   4  Modified Cross 2          n Taus B Tb D                     e0/(1 + (e0 g/Taus)^(1-n))
//   5  Modified Cross 3          n Taus D1 D2 D3 A1 A2b            T* = D2 + D3 P,
//                                   e0 = D1 e^(-A1 (T - T*)/(D3 P + A2b + t + 273.15 - T*))
//   10 Castro Macosko            Cg C1 C2 A Tb                     c A e^(Tb/T),
//                                                                  c = (Cg/(Cg-x))^(C1+C2 x)
//   11 Power-law Castro Macosko  a0 a1 a2 b0 b1 b2 c0 c1 c2 Cg Ci  e^(b/T + a) g^(m-1), with
//      tau = tan(pi ((x - Ci)/Cg) 0.5), a = a0 + a1 x + a2 tau, b = b0 + b1 x + b2 tau,
//      m = c0 e^(c1 x + c2 tau) held to [0.01, 0.99]
//   12 Cross Castro Macosko      Cg C1 C2 A Tb n Taus              f c / (1 + (f g/Taus)^(1-n)),
//                                                                  f = A e^(Tb/T)
//   13 Herschel-Bulkely          n K00 CA CB C1 C2 Cg Tauy0 Tg Ty  K00 c e^(-CA (T-Tg)/(CB+T-Tg))
//                                                                  g^(n-1) + Tauy0 e^(C2/T)/g
//
// Kept as the fitted data expect them, though they look like slips:
// - id 3 multiplies the power term by C and has no stress scale inside the power;
// - id 5 carries D3 P in the denominator as well as in T*, summed in the order written;
// - id 12 applies the cure factor to the numerator only, the Cross term is built from f;
// - id 13 takes the yield term's exponent from C2; Ty is stored and named but never read.
// Ids 6 to 9 are named models that this evaluator does not compute.
//
// Each evaluator writes its operations in the order above: results are compared to the bit.
//
// The scalar call and the batch calls share these kernels, so their results agree to the bit.
#ifndef QRV_PROPERTIES_VISCOSITY_MODELS_H
#define QRV_PROPERTIES_VISCOSITY_MODELS_H

#include <cmath>

#include <quorvalib/record.h>

namespace qrv::viscosity {

inline constexpr double kCelsiusToKelvin = 273.15;

using Evaluator = double (*)(const double* p, double g, double t, double P, double x);

struct ViscosityModel {
    int valuesRead;  // the formula reads Para[0] .. Para[valuesRead - 1]
    Evaluator evaluate;
};

// e0 = B e^(Tb/T + D P), the zero-shear viscosity of the Cross forms and of the Carreau classes.
inline double zeroShear(double B, double Tb, double D, double t, double P) {
    const double T = t + kCelsiusToKelvin;
    return B * std::exp(Tb / T + D * P);
}

inline double newtonian(const double* p, double, double, double, double) {
    return p[0];
}

inline double powerLaw(const double* p, double g, double t, double, double) {
    const double n = p[0], B = p[1], Tb = p[2];
    const double T = t + kCelsiusToKelvin;
    return B * std::exp(Tb / T) * std::pow(g, n - 1);
}

inline double modifiedCross1(const double* p, double g, double t, double P, double) {
    const double n = p[0], C = p[1], B = p[2], Tb = p[3], D = p[4];
    const double eta0 = zeroShear(B, Tb, D, t, P);
    return eta0 / (1 + C * std::pow(eta0 * g, 1 - n));
}

inline double modifiedCross2(const double* p, double g, double t, double P, double) {
    const double n = p[0], Taus = p[1], B = p[2], Tb = p[3], D = p[4];
    const double eta0 = zeroShear(B, Tb, D, t, P);
    return eta0 / (1 + std::pow(eta0 * g / Taus, 1 - n));
}

inline double modifiedCross3(const double* p, double g, double t, double P, double) {
    const double n = p[0], Taus = p[1], D1 = p[2], D2 = p[3], D3 = p[4], A1 = p[5], A2b = p[6];
    const double T = t + kCelsiusToKelvin;
    const double Tstar = D2 + D3 * P;
    const double eta0 = D1 * std::exp(-A1 * (T - Tstar) / (D3 * P + A2b + t + 273.15 - Tstar));
    return eta0 / (1 + std::pow(eta0 * g / Taus, 1 - n));
}

inline double castroMacosko(const double* p, double, double t, double, double x) {
    const double Cg = p[0], C1 = p[1], C2 = p[2], A = p[3], Tb = p[4];
    const double T = t + kCelsiusToKelvin;
    return std::pow(Cg / (Cg - x), C1 + C2 * x) * A * std::exp(Tb / T);
}

inline double powerLawCastroMacosko(const double* p, double g, double t, double, double x) {
    const double a0 = p[0], a1 = p[1], a2 = p[2], b0 = p[3], b1 = p[4], b2 = p[5];
    const double c0 = p[6], c1 = p[7], c2 = p[8], Cg = p[9], Ci = p[10];
    const double T = t + kCelsiusToKelvin;
    const double pi = std::acos(-1.0);
    const double tau = std::tan(pi * ((x - Ci) / Cg) * 0.5);
    const double a = a0 + a1 * x + a2 * tau;
    const double b = b0 + b1 * x + b2 * tau;
    double m = c0 * std::exp(c1 * x + c2 * tau);
    if (0.01 > m) {
        m = 0.01;
    } else if (m > 0.99) {
        m = 0.99;
    }
    return std::exp(b / T + a) * std::pow(g, m - 1);
}

inline double crossCastroMacosko(const double* p, double g, double t, double, double x) {
    const double Cg = p[0], C1 = p[1], C2 = p[2], A = p[3], Tb = p[4], n = p[5], Taus = p[6];
    const double T = t + kCelsiusToKelvin;
    const double f = A * std::exp(Tb / T);
    return f * std::pow(Cg / (Cg - x), C1 + C2 * x) / (1 + std::pow(f * g / Taus, 1 - n));
}

inline double herschelBulkley(const double* p, double g, double t, double, double x) {
    const double n = p[0], K00 = p[1], CA = p[2], CB = p[3], C1 = p[4], C2 = p[5], Cg = p[6];
    const double Tauy0 = p[7], Tg = p[8];
    const double T = t + kCelsiusToKelvin;
    return K00 * std::pow(Cg / (Cg - x), C1 + C2 * x) * std::exp(-CA * (T - Tg) / (CB + T - Tg)) *
               std::pow(g, n - 1) +
           Tauy0 * std::exp(C2 / T) / g;
}

// Indexed by model id; ids without an evaluator are named elsewhere but not computed here.
inline constexpr ViscosityModel kModels[] = {
    {0, nullptr},                 // 0
    {1, newtonian},               // 1
    {3, powerLaw},                // 2
    {5, modifiedCross1},          // 3
    {5, modifiedCross2},          // 4
    {7, modifiedCross3},          // 5
    {0, nullptr},                 // 6 Carreau
    {0, nullptr},                 // 7 Carreau-Yasuda
    {0, nullptr},                 // 8 HB Modified Cross Model 3
    {0, nullptr},                 // 9
    {5, castroMacosko},           // 10
    {11, powerLawCastroMacosko},  // 11
    {7, crossCastroMacosko},      // 12
    {9, herschelBulkley},         // 13
};
inline constexpr int kModelCount = static_cast<int>(sizeof kModels / sizeof kModels[0]);

// The evaluator of a Vis block, or null when the block cannot be evaluated here: an unknown or
// unevaluated id, a null Para, or fewer values than the formula reads.
inline Evaluator evaluatorOf(const QrvMatParam& vis) {
    if (vis.Model < 1 || vis.Model >= kModelCount) return nullptr;
    const ViscosityModel& model = kModels[vis.Model];
    if (!vis.Para || vis.Count < model.valuesRead) return nullptr;
    return model.evaluate;
}

}  // namespace qrv::viscosity

#endif
