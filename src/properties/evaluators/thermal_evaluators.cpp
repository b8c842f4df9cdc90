// The heat capacity and thermal conductivity evaluator classes. Both properties use the same three
// curve forms; the segment formula is the one of the flat evaluator, so a sorted table gives the
// same bits either way.
#include <quorvalib/evaluators.h>

#include <limits>
#include <memory>

#include "properties/evaluators/para_reader.h"
#include "properties/table_segment.h"

namespace {

constexpr double kNoSegment = std::numeric_limits<double>::quiet_NaN();

// c1 below T1, c2 above T2, linear between.
double twoPoints(double c1, double T1, double c2, double T2, double t) {
    if (T1 > t) return c1;
    if (t > T2) return c2;
    return qrv::interpolateSegment(c1, T1, c2, T2, t);
}

// c[0] up to and at T[0]; the first segment with T[k] < t <= T[k+1]; c[3] above T[3].
double fourPoints(const double (&c)[4], const double (&T)[4], double t) {
    if (T[0] >= t) return c[0];
    for (int k = 0; k < 3; ++k)
        if (t > T[k] && t <= T[k + 1])
            return qrv::interpolateSegment(c[k], T[k], c[k + 1], T[k + 1], t);
    if (t > T[3]) return c[3];
    return kNoSegment;
}

// The first value below T[0], the last above T[n-1]; otherwise the first segment with
// T[k] <= t <= T[k+1].
double table(int n, const double* c, const double* T, double t) {
    if (n < 1) return kNoSegment;
    if (t < T[0]) return c[0];
    if (t > T[n - 1]) return c[n - 1];
    for (int k = 0; k + 1 < n; ++k)
        if (T[k] <= t && T[k + 1] >= t)
            return qrv::interpolateSegment(c[k], T[k], c[k + 1], T[k + 1], t);
    return kNoSegment;
}

// Splits count interleaved values (value, temperature, ...) into two arrays of count / 2.
void splitPairs(int count, const double* para, const char* className, int& pairs,
                std::unique_ptr<double[]>& values, std::unique_ptr<double[]>& temperatures) {
    pairs = count > 0 ? count / 2 : 0;
    if (pairs == 0) return;
    qrv::ParaReader p(para, className);
    values = std::make_unique<double[]>(pairs);
    temperatures = std::make_unique<double[]>(pairs);
    for (int k = 0; k < pairs; ++k) {
        values[k] = p();
        temperatures[k] = p();
    }
}

}  // namespace

namespace MaterialProperty {

CHeatCapacity::~CHeatCapacity() = default;
CThermoConductivity::~CThermoConductivity() = default;

CCPConstant::CCPConstant(const double* para) {
    qrv::ParaReader p(para, "CCPConstant");
    c1 = p();
}

double CCPConstant::Evaluate(double) {
    return c1;
}

CCPCAE1::CCPCAE1(const double* para) {
    qrv::ParaReader p(para, "CCPCAE1");
    c1 = p(), T1 = p(), c2 = p(), T2 = p();
}

double CCPCAE1::Evaluate(double temperature) {
    return twoPoints(c1, T1, c2, T2, temperature);
}

CCPCAE2::CCPCAE2(const double* para) {
    qrv::ParaReader p(para, "CCPCAE2");
    c1 = p(), T1 = p(), c2 = p(), T2 = p(), c3 = p(), T3 = p(), c4 = p(), T4 = p();
}

double CCPCAE2::Evaluate(double temperature) {
    return fourPoints({c1, c2, c3, c4}, {T1, T2, T3, T4}, temperature);
}

CCPTabulated::CCPTabulated(int count, const double* para) {
    splitPairs(count, para, "CCPTabulated", PairCount, Values, Temperatures);
}

double CCPTabulated::Evaluate(double temperature) {
    return table(PairCount, Values.get(), Temperatures.get(), temperature);
}

CKConstant::CKConstant(const double* para) {
    qrv::ParaReader p(para, "CKConstant");
    k1 = p();
}

double CKConstant::Evaluate(double) {
    return k1;
}

CKCAE1::CKCAE1(const double* para) {
    qrv::ParaReader p(para, "CKCAE1");
    k1 = p(), T1 = p(), k2 = p(), T2 = p();
}

double CKCAE1::Evaluate(double temperature) {
    return twoPoints(k1, T1, k2, T2, temperature);
}

CKTabulated::CKTabulated(int count, const double* para) {
    splitPairs(count, para, "CKTabulated", PairCount, Values, Temperatures);
}

double CKTabulated::Evaluate(double temperature) {
    return table(PairCount, Values.get(), Temperatures.get(), temperature);
}

CKCAE2::CKCAE2(const double* para) {
    qrv::ParaReader p(para, "CKCAE2");
    k1 = p(), T1 = p(), k2 = p(), T2 = p(), k3 = p(), T3 = p(), k4 = p(), T4 = p();
}

double CKCAE2::Evaluate(double temperature) {
    return fourPoints({k1, k2, k3, k4}, {T1, T2, T3, T4}, temperature);
}

}  // namespace MaterialProperty
