// The specific-volume evaluator classes, on the absolute temperature. Ids 1, 2, 4 and 5 call the
// formulas of the flat evaluator, so both give the same bits at the same kelvin temperature; the
// Tait class has its own signs.
#include <quorvalib/evaluators.h>

#include <cmath>

#include "properties/evaluators/para_reader.h"
#include "properties/pvt_models.h"

namespace MaterialProperty {

CPVT::~CPVT() = default;

CPVTConstant::CPVTConstant(const double* para) {
    qrv::ParaReader p(para, "CPVTConstant");
    V0 = p();
}

double CPVTConstant::Evaluate(double, double) {
    const double para[] = {V0};
    return qrv::pvt::constantDensity(para, 0.0, 0.0, 0.0);
}

CPVTSpencerGilmore::CPVTSpencerGilmore(const double* para) {
    qrv::ParaReader p(para, "CPVTSpencerGilmore");
    V0 = p(), P0 = p(), R = p();
}

double CPVTSpencerGilmore::Evaluate(double pressure, double temperature) {
    const double para[] = {V0, P0, R};
    return qrv::pvt::spencerGilmore(para, pressure, temperature, 0.0);
}

CPVTTai::CPVTTai(const double* para) {
    qrv::ParaReader p(para, "CPVTTai");
    b1 = p(), b2 = p(), b3 = p(), b4 = p(), C = p();
}

// b1 e^(b2 T) (1 - C ln(1 + P/(b3 e^(-b4 T)))): both exponents carry the signs opposite to the
// flat Tait, which fitted data of this family expect.
double CPVTTai::Evaluate(double pressure, double temperature) {
    const double T = temperature, P = pressure;
    return b1 * std::exp(b2 * T) * (1 - C * std::log(1 + P / (b3 * std::exp(-b4 * T))));
}

CPVTModifiedTai1::CPVTModifiedTai1(const double* para) {
    qrv::ParaReader p(para, "CPVTModifiedTai1");
    b1 = p(), b2 = p(), b3 = p(), b4 = p(), b5 = p(), b6 = p(), C = p();
}

double CPVTModifiedTai1::Evaluate(double pressure, double temperature) {
    const double para[] = {b1, b2, b3, b4, b5, b6, C};
    return qrv::pvt::modifiedTait1(para, pressure, temperature, 0.0);
}

CPVTModifiedTai2::CPVTModifiedTai2(const double* para) {
    qrv::ParaReader p(para, "CPVTModifiedTai2");
    b1L = p(), b2L = p(), b3L = p(), b4L = p();
    b1S = p(), b2S = p(), b3S = p(), b4S = p();
    b5 = p(), b6 = p(), b7 = p(), b8 = p(), b9 = p();
}

double CPVTModifiedTai2::Evaluate(double pressure, double temperature) {
    const double para[] = {b1L, b2L, b3L, b4L, b1S, b2S, b3S, b4S, b5, b6, b7, b8, b9};
    return qrv::pvt::modifiedTait2(para, pressure, temperature, 0.0);
}

}  // namespace MaterialProperty
