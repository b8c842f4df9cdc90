// The viscosity evaluator classes. Ids 2 to 5 call the formulas of the flat evaluator, so both
// give the same bits; Carreau and Carreau-Yasuda exist only here.
#include <quorvalib/evaluators.h>

#include <cmath>

#include "properties/evaluators/para_reader.h"
#include "properties/viscosity_models.h"

namespace MaterialProperty {

namespace vis = qrv::viscosity;

CViscosity::~CViscosity() = default;

CVisNewtonian::CVisNewtonian(const double* para) {
    qrv::ParaReader p(para, "CVisNewtonian");
    Eta0 = p();
}

double CVisNewtonian::Evaluate(double, double, double) {
    return Eta0;
}

CVisPowerLaw::CVisPowerLaw(const double* para) {
    qrv::ParaReader p(para, "CVisPowerLaw");
    n = p(), B = p(), Tb = p();
}

double CVisPowerLaw::Evaluate(double shearRate, double temperature, double) {
    const double para[] = {n, B, Tb};
    return vis::powerLaw(para, shearRate, temperature, 0.0, 0.0);
}

CVisModifiedCross1::CVisModifiedCross1(const double* para) {
    qrv::ParaReader p(para, "CVisModifiedCross1");
    n = p(), C = p(), B = p(), Tb = p(), D = p();
}

double CVisModifiedCross1::Evaluate(double shearRate, double temperature, double pressure) {
    const double para[] = {n, C, B, Tb, D};
    return vis::modifiedCross1(para, shearRate, temperature, pressure, 0.0);
}

CVisModifiedCross2::CVisModifiedCross2(const double* para) {
    qrv::ParaReader p(para, "CVisModifiedCross2");
    n = p(), Taus = p(), B = p(), Tb = p(), D = p();
}

double CVisModifiedCross2::Evaluate(double shearRate, double temperature, double pressure) {
    const double para[] = {n, Taus, B, Tb, D};
    return vis::modifiedCross2(para, shearRate, temperature, pressure, 0.0);
}

CVisModifiedCross3::CVisModifiedCross3(const double* para) {
    qrv::ParaReader p(para, "CVisModifiedCross3");
    n = p(), Taus = p(), D1 = p(), D2 = p(), D3 = p(), A1 = p(), A2b = p();
}

double CVisModifiedCross3::Evaluate(double shearRate, double temperature, double pressure) {
    const double para[] = {n, Taus, D1, D2, D3, A1, A2b};
    return vis::modifiedCross3(para, shearRate, temperature, pressure, 0.0);
}

CVisCarreau::CVisCarreau(const double* para) {
    qrv::ParaReader p(para, "CVisCarreau");
    n = p(), Taus = p(), B = p(), Tb = p(), D = p();
}

double CVisCarreau::Evaluate(double shearRate, double temperature, double pressure) {
    const double eta0 = vis::zeroShear(B, Tb, D, temperature, pressure);
    const double s = eta0 * shearRate / Taus;
    return eta0 / std::pow(1 + s * s, (1 - n) * 0.5);
}

CVisCarreauYasuda::CVisCarreauYasuda(const double* para) {
    qrv::ParaReader p(para, "CVisCarreauYasuda");
    n = p(), Taus = p(), B = p(), Tb = p(), D = p(), a = p(), Eta_infinity = p();
}

double CVisCarreauYasuda::Evaluate(double shearRate, double temperature, double pressure) {
    const double eta0 = vis::zeroShear(B, Tb, D, temperature, pressure);
    return (eta0 - Eta_infinity) / std::pow(1 + std::pow(eta0 * shearRate / Taus, a), (1 - n) / a);
}

}  // namespace MaterialProperty
