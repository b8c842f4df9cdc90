// MaterialProperty: one small evaluator object per fitted model, built once from a block's
// parameters and then evaluated at many points through one virtual call. A caller that evaluates
// one model in a loop builds one and keeps it; nothing refers to the record after construction.
//
// Units are the library's base units (g/(cm.sec), dyne/cm^2, cc/g, erg/(g.oC), erg/(sec.cm.oC)),
// with two points that differ from the flat evaluators of properties.h:
// - CViscosity takes the temperature in degree C (T = t + 273.15 inside, as the flat function);
// - CPVT takes the absolute temperature and adds nothing to it: pass kelvin.
//
// Where a class and a flat function carry the same model they give the same bits, except where
// stated below. The differences are kept on purpose:
// - viscosity ids 6 (Carreau) and 7 (Carreau-Yasuda) have classes; the flat function gives 0.0
//   for them. The thermoset ids 10 to 13 and PVT ids 6 and 7 have no class, and no class takes a
//   conversion;
// - CPVTTai has the opposite signs of both exponents from the flat Tait: b1 e^(+b2 T) and
//   B = b3 e^(-b4 T);
// - CKCAE2 is conductivity model 4 (the flat function does not look at model ids);
// - the tabulated classes and the CAE Model 2 classes give NaN where no segment matches t: a table
//   of one pair at exactly its temperature (the flat function gives its value), an empty table,
//   a table holding a NaN temperature, or a NaN t.
//
// Construction copies the parameters in the order of the block's Para. A constructor reads as
// many values as its model has and trusts the array to hold them; a null array throws
// std::invalid_argument. The tabulated classes take the Count first and read Count values (Count
// / 2 pairs, truncated); a Count of 0 or below reads nothing and makes an empty table.
// Evaluate keeps no state and is reentrant on a built object; it returns what IEEE arithmetic
// gives and checks nothing.
#ifndef QUORVALIB_EVALUATORS_H
#define QUORVALIB_EVALUATORS_H

#include <quorvalib/export.h>

#include <memory>

namespace MaterialProperty {

// ---- Viscosity: Evaluate(shear rate in 1/sec, temperature in degree C, pressure) -------------

class QRV_API CViscosity {
public:
    virtual double Evaluate(double shearRate, double temperature, double pressure) = 0;
    virtual ~CViscosity();
};

// Id 1: Eta0, whatever the arguments.
class QRV_API CVisNewtonian : public CViscosity {
public:
    explicit CVisNewtonian(const double* para);
    double Evaluate(double shearRate, double temperature, double pressure) override;

private:
    double Eta0;
};

// Id 2: B e^(Tb/T) g^(n-1). Para: n, B, Tb.
class QRV_API CVisPowerLaw : public CViscosity {
public:
    explicit CVisPowerLaw(const double* para);
    double Evaluate(double shearRate, double temperature, double pressure) override;

private:
    double n, B, Tb;
};

// Id 3: e0 / (1 + C (e0 g)^(1-n)), e0 = B e^(Tb/T + D P). Para: n, C, B, Tb, D.
class QRV_API CVisModifiedCross1 : public CViscosity {
public:
    explicit CVisModifiedCross1(const double* para);
    double Evaluate(double shearRate, double temperature, double pressure) override;

private:
    double n, C, B, Tb, D;
};

// Id 4: e0 / (1 + (e0 g/Taus)^(1-n)), e0 = B e^(Tb/T + D P). Para: n, Taus, B, Tb, D.
class QRV_API CVisModifiedCross2 : public CViscosity {
public:
    explicit CVisModifiedCross2(const double* para);
    double Evaluate(double shearRate, double temperature, double pressure) override;

private:
    double n, Taus, B, Tb, D;
};

// Id 5: T* = D2 + D3 P, e0 = D1 e^(-A1 (T - T*)/(D3 P + A2b + t + 273.15 - T*)),
// e0 / (1 + (e0 g/Taus)^(1-n)). Para: n, Taus, D1, D2, D3, A1, A2b.
class QRV_API CVisModifiedCross3 : public CViscosity {
public:
    explicit CVisModifiedCross3(const double* para);
    double Evaluate(double shearRate, double temperature, double pressure) override;

private:
    double n, Taus, D1, D2, D3, A1, A2b;
};

// Id 6: e0 / (1 + (e0 g/Taus)^2)^((1 - n) 0.5), e0 = B e^(Tb/T + D P); the square by
// multiplication, the outer power by pow. Para: n, Taus, B, Tb, D.
class QRV_API CVisCarreau : public CViscosity {
public:
    explicit CVisCarreau(const double* para);
    double Evaluate(double shearRate, double temperature, double pressure) override;

private:
    double n, Taus, B, Tb, D;
};

// Id 7: (e0 - Eta_infinity) / (1 + (e0 g/Taus)^a)^((1 - n)/a), e0 = B e^(Tb/T + D P).
// Eta_infinity is subtracted and not added back, so there is no plateau at high shear rates.
// Para: n, Taus, B, Tb, D, a, Eta_infinity.
class QRV_API CVisCarreauYasuda : public CViscosity {
public:
    explicit CVisCarreauYasuda(const double* para);
    double Evaluate(double shearRate, double temperature, double pressure) override;

private:
    double n, Taus, B, Tb, D, a, Eta_infinity;
};

// ---- Specific volume: Evaluate(pressure in dyne/cm^2, absolute temperature) ------------------

class QRV_API CPVT {
public:
    virtual double Evaluate(double pressure, double temperature) = 0;
    virtual ~CPVT();
};

// Id 1: 1/V0 (the value stored is a density), whatever the arguments.
class QRV_API CPVTConstant : public CPVT {
public:
    explicit CPVTConstant(const double* para);
    double Evaluate(double pressure, double temperature) override;

private:
    double V0;
};

// Id 2: V0 + R T/(P + P0). Para: V0, P0, R.
class QRV_API CPVTSpencerGilmore : public CPVT {
public:
    explicit CPVTSpencerGilmore(const double* para);
    double Evaluate(double pressure, double temperature) override;

private:
    double V0, P0, R;
};

// Id 3: b1 e^(b2 T) (1 - C ln(1 + P/(b3 e^(-b4 T)))), the signs opposite to the flat Tait.
// Para: b1, b2, b3, b4, C.
class QRV_API CPVTTai : public CPVT {
public:
    explicit CPVTTai(const double* para);
    double Evaluate(double pressure, double temperature) override;

private:
    double b1, b2, b3, b4, C;
};

// Id 4: d = T - (b5 + b6 P), (1 - C ln(1 + P/(b3 e^(-b4 d)))) (b1 + b2 d).
// Para: b1, b2, b3, b4, b5, b6, C.
class QRV_API CPVTModifiedTai1 : public CPVT {
public:
    explicit CPVTModifiedTai1(const double* para);
    double Evaluate(double pressure, double temperature) override;

private:
    double b1, b2, b3, b4, b5, b6, C;
};

// Id 5: the two-domain Tait form split at T = b5 + b6 P (a tie is melt), d = T - b5, with the
// fixed constant 0.0894. Para: b1L, b2L, b3L, b4L, b1S, b2S, b3S, b4S, b5, b6, b7, b8, b9.
class QRV_API CPVTModifiedTai2 : public CPVT {
public:
    explicit CPVTModifiedTai2(const double* para);
    double Evaluate(double pressure, double temperature) override;

private:
    double b1L, b2L, b3L, b4L, b1S, b2S, b3S, b4S, b5, b6, b7, b8, b9;
};

// ---- Heat capacity: Evaluate(temperature in degree C) ------------------------------------------

class QRV_API CHeatCapacity {
public:
    virtual double Evaluate(double temperature) = 0;
    virtual ~CHeatCapacity();
};

// Id 1: the one value, whatever t is.
class QRV_API CCPConstant : public CHeatCapacity {
public:
    explicit CCPConstant(const double* para);
    double Evaluate(double temperature) override;

private:
    double c1;
};

// Id 2: c1 below T1, c2 above T2, linear between. Para: c1, T1, c2, T2.
class QRV_API CCPCAE1 : public CHeatCapacity {
public:
    explicit CCPCAE1(const double* para);
    double Evaluate(double temperature) override;

private:
    double c1, T1, c2, T2;
};

// Id 3: c1 up to and at T1; then the first segment with t above its lower and not above its upper
// temperature, linear; c4 above T4. Para: c1, T1, c2, T2, c3, T3, c4, T4. NaN when no segment
// holds t: a NaN temperature, or a NaN among T1 to T4 where t lies.
class QRV_API CCPCAE2 : public CHeatCapacity {
public:
    explicit CCPCAE2(const double* para);
    double Evaluate(double temperature) override;

private:
    double c1, T1, c2, T2, c3, T3, c4, T4;
};

// Id 4: value-temperature pairs. The first value below the first temperature, the last above the
// last; otherwise the first segment with T[k] <= t <= T[k+1] (an inner point takes the lower
// segment), linear. Para: c1, T1, c2, T2, ...
class QRV_API CCPTabulated : public CHeatCapacity {
public:
    CCPTabulated(int count, const double* para);
    double Evaluate(double temperature) override;

private:
    int PairCount;
    std::unique_ptr<double[]> Values;        // null when PairCount is 0
    std::unique_ptr<double[]> Temperatures;  // likewise
};

// ---- Thermal conductivity: Evaluate(temperature in degree C) ----------------------------------

class QRV_API CThermoConductivity {
public:
    virtual double Evaluate(double temperature) = 0;
    virtual ~CThermoConductivity();
};

// Id 1: the one value, whatever t is.
class QRV_API CKConstant : public CThermoConductivity {
public:
    explicit CKConstant(const double* para);
    double Evaluate(double temperature) override;

private:
    double k1;
};

// Id 2: as CCPCAE1. Para: k1, T1, k2, T2.
class QRV_API CKCAE1 : public CThermoConductivity {
public:
    explicit CKCAE1(const double* para);
    double Evaluate(double temperature) override;

private:
    double k1, T1, k2, T2;
};

// Id 3: as CCPTabulated.
class QRV_API CKTabulated : public CThermoConductivity {
public:
    CKTabulated(int count, const double* para);
    double Evaluate(double temperature) override;

private:
    int PairCount;
    std::unique_ptr<double[]> Values;        // null when PairCount is 0
    std::unique_ptr<double[]> Temperatures;  // likewise
};

// Id 4: as CCPCAE2. Para: k1, T1, k2, T2, k3, T3, k4, T4.
class QRV_API CKCAE2 : public CThermoConductivity {
public:
    explicit CKCAE2(const double* para);
    double Evaluate(double temperature) override;

private:
    double k1, T1, k2, T2, k3, T3, k4, T4;
};

}  // namespace MaterialProperty

#endif
