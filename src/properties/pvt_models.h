// The specific-volume formulas shared by the flat evaluator and the MaterialProperty classes, so
// that both give the same bits for the same model. Arguments are the model's parameters in Para
// order, then P the pressure and T the absolute temperature (the flat evaluator adds 273.15 to its
// argument first, the classes take kelvin as given).
#ifndef QRV_PROPERTIES_PVT_MODELS_H
#define QRV_PROPERTIES_PVT_MODELS_H

#include <cmath>

namespace qrv::pvt {

// The fixed Tait constant, the double 0x3FB6E2EB1C432CA5.
constexpr double kTaitC = 0.0894;

// 1/V0: the value stored is a density.
inline double constantDensity(double V0) {
    return 1.0 / V0;
}

// V0 + R T/(P + P0)
inline double spencerGilmore(double V0, double P0, double R, double P, double T) {
    return V0 + R * T / (P + P0);
}

// d = T - (b5 + b6 P); (1 - C ln(1 + P/(b3 e^(-b4 d)))) (b1 + b2 d), one formula over the range.
inline double modifiedTait1(double b1, double b2, double b3, double b4, double b5, double b6,
                            double C, double P, double T) {
    const double Tt = b5 + b6 * P;
    const double d = T - Tt;
    return (1 - C * std::log(1 + P / (b3 * std::exp(-b4 * d)))) * (b1 + b2 * d);
}

// One side of the two-domain Tait form: V0 = b1 + b2 d, B = b3 e^(-b4 d).
struct TaitSide {
    double b1, b2, b3, b4;
};

// d = T - b5; the melt side when T >= b5 + b6 P (a tie is melt), with Vt = 0; the solid side
// otherwise, with Vt = b7 e^(b8 d - b9 P). V = V0 (1 - C0 ln(1 + P/B)) + Vt.
inline double modifiedTait2(const TaitSide& melt, const TaitSide& solid, double b5, double b6,
                            double b7, double b8, double b9, double P, double T) {
    const double d = T - b5;
    const double Tt = b5 + b6 * P;
    const bool meltSide = T >= Tt;
    const TaitSide& s = meltSide ? melt : solid;
    const double V0 = s.b1 + s.b2 * d;
    const double B = s.b3 * std::exp(-s.b4 * d);
    const double Vt = meltSide ? 0.0 : b7 * std::exp(b8 * d - b9 * P);
    return V0 * (1 - kTaitC * std::log(1 + P / B)) + Vt;
}

}  // namespace qrv::pvt

#endif
