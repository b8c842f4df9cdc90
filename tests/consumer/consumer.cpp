// A caller of the installed library: includes the one public header, links the shared object,
// and checks a few answers end to end. Exits non-zero on any wrong answer.
#include <quorvalib/quorvalib.h>

#include <cmath>
#include <cstdio>
#include <cstring>

int main() {
    int failures = 0;
    auto check = [&failures](bool ok, const char* what) {
        if (!ok) {
            std::fprintf(stderr, "consumer: %s\n", what);
            ++failures;
        }
    };

    QrvMaterial* material = QrvGetDefaultMaterial(4, 5, false, 3, 2, 1);
    check(material != nullptr, "no default material");
    check(QrvIsThermoplastic(material), "default material is not a thermoplastic");
    check(std::strcmp(QrvGetMaterialType(material), "Thermoplastic") == 0, "wrong type text");

    // Modified Cross model 2 at 1000 1/s, 230 C, no pressure, from the sample parameters.
    const double n = 0.27845, taus = 876860.0, B = 1.1326e-06, Tb = 11642.0;
    const double eta0 = B * std::exp(Tb / (230.0 + 273.15));
    const double expected = eta0 / (1 + std::pow(eta0 * 1000.0 / taus, 1 - n));
    const double eta = QrvGetViscosity(material, 1000.0, 230.0, 0.0, 0.0);
    check(std::fabs(eta - expected) <= 1e-12 * expected, "viscosity differs");
    QrvReleaseMaterial(material);

    MATIO_Manipulator manipulator;
    check(manipulator.GetViscosity(1.0, 200.0, 0.0, 0.0) == 0.0, "empty manipulator answers");
    check(manipulator.GetDefaultMaterial(12, 0, false, 0, 0, 0), "thermoset generation");
    check(manipulator.IsRIM() && !manipulator.IsThermoset(), "thermoset marks");
    check(GetDLLVersion() == 9007, "DLL version");

    if (failures == 0) std::printf("consumer: installed quorvalib works (eta = %.6g)\n", eta);
    return failures == 0 ? 0 : 1;
}
