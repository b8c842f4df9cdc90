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

    // Measured data through the exported surface: curve limits and the MTC calls.
    CQrvViscosityData curves;
    const double x[] = {30.0, 3000.0}, y[] = {2150.0, 205.0};
    curves.AddCurve(190.0, 2, x, y);
    check(curves.GetMaxX() == 10000.0 && curves.GetMinY() == 100.0, "curve limits");
    check(curves.GetDataSize() == 20 + 12 + 16 * 2, "curve data size");
    QrvMaterial* withMTC = QrvGetDefaultMaterial(4, 5, false, 3, 2, 1);
    QrvMTCSection section = {1, 3, 1, {0.5}};
    double temperature = 170.0;
    QRV_MTC record = {2, 0, 1, &section, &temperature};
    QrvAddMTCData(withMTC, &record, 1);
    int mtcVersion = 0, mtcCount = 0;
    QrvGetMTCInfo(withMTC, mtcVersion, mtcCount);
    check(mtcVersion == 1000 && mtcCount == 1 && QrvGetFileVer(withMTC) == 9010, "MTC added");
    check(QrvGetMTCData(withMTC, 0)->Sections[0].Parameters[0] == 0.5, "MTC copy");
    QrvRemoveAllMTC(withMTC);
    check(QrvGetFileVer(withMTC) == 9007, "MTC removed");
    QrvReleaseMaterial(withMTC);

    MATIO_Manipulator manipulator;
    check(manipulator.GetViscosity(1.0, 200.0, 0.0, 0.0) == 0.0, "empty manipulator answers");
    check(manipulator.GetDefaultMaterial(12, 0, false, 0, 0, 0), "thermoset generation");
    check(manipulator.IsRIM() && !manipulator.IsThermoset(), "thermoset marks");
    check(GetDLLVersion() == 9007, "DLL version");

    // A run file through the installed library, which brings HDF5 along by itself.
    const char* runFile = "/tmp/quorvalib_consumer_run.rsv";
    std::remove(runFile);
    {
        QrvMaterial* runMaterial = QrvGetDefaultMaterial(4, 5, false, 3, 2, 1);
        MATIO_RSVManipulator run(runFile);
        check(run.AddMaterial(runMaterial, "Part", 65536 + 4096), "run file written");
        check(run.GetMaterialCount() == 1, "run file count");
        const QrvMaterial* back = run.GetMaterial(0);
        check(back && back->Vis.Model == 4 && back->Vis.Count == 5, "run file material");
        QrvReleaseMaterial(runMaterial);
    }
    std::remove(runFile);

    if (failures == 0) std::printf("consumer: installed quorvalib works (eta = %.6g)\n", eta);
    return failures == 0 ? 0 : 1;
}
