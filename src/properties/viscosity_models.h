// The viscosity formulas shared by the flat evaluator and the MaterialProperty classes, so that
// both give the same bits for the same model. Arguments are the model's parameters in Para order,
// then g the shear rate, t the temperature in degree C and P the pressure; T = t + 273.15.
// Operations stand in the order of the formulas written in viscosity.cpp.
#ifndef QRV_PROPERTIES_VISCOSITY_MODELS_H
#define QRV_PROPERTIES_VISCOSITY_MODELS_H

#include <cmath>

namespace qrv::viscosity {

constexpr double kCelsiusToKelvin = 273.15;

// B e^(Tb/T) g^(n-1)
inline double powerLaw(double n, double B, double Tb, double g, double t) {
    const double T = t + kCelsiusToKelvin;
    return B * std::exp(Tb / T) * std::pow(g, n - 1);
}

// e0 = B e^(Tb/T + D P), the zero-shear viscosity of the Cross and Carreau forms.
inline double zeroShear(double B, double Tb, double D, double t, double P) {
    const double T = t + kCelsiusToKelvin;
    return B * std::exp(Tb / T + D * P);
}

// e0 / (1 + C (e0 g)^(1-n)): C multiplies the power term, no stress scale inside it.
inline double modifiedCross1(double n, double C, double B, double Tb, double D, double g, double t,
                             double P) {
    const double eta0 = zeroShear(B, Tb, D, t, P);
    return eta0 / (1 + C * std::pow(eta0 * g, 1 - n));
}

// e0 / (1 + (e0 g/Taus)^(1-n))
inline double modifiedCross2(double n, double Taus, double B, double Tb, double D, double g,
                             double t, double P) {
    const double eta0 = zeroShear(B, Tb, D, t, P);
    return eta0 / (1 + std::pow(eta0 * g / Taus, 1 - n));
}

// T* = D2 + D3 P; e0 = D1 e^(-A1 (T - T*)/(D3 P + A2b + t + 273.15 - T*)); D3 P stands in the
// denominator as well and is summed in the order written.
inline double modifiedCross3(double n, double Taus, double D1, double D2, double D3, double A1,
                             double A2b, double g, double t, double P) {
    const double T = t + kCelsiusToKelvin;
    const double Tstar = D2 + D3 * P;
    const double eta0 = D1 * std::exp(-A1 * (T - Tstar) / (D3 * P + A2b + t + 273.15 - Tstar));
    return eta0 / (1 + std::pow(eta0 * g / Taus, 1 - n));
}

}  // namespace qrv::viscosity

#endif
