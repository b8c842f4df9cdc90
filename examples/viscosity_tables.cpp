// Generates default materials for several model combinations and prints, for each, its
// viscosity over a grid of shear rates and temperatures.
#include <quorvalib/quorvalib.h>

#include <cstdio>
#include <iterator>
#include <memory>

namespace {

struct Combination {
    int visId, pvtId;
    bool crystalline;
    int cpId, kId, fillerId;
    double conversion;  // used by the thermoset models only
};

constexpr Combination kCombinations[] = {
    {1, 1, false, 1, 1, 0, 0.0},  {2, 5, true, 2, 2, 1, 0.0},   {3, 2, true, 2, 1, 5, 0.0},
    {4, 5, false, 3, 2, 3, 0.0},  {5, 5, true, 3, 2, 2, 0.0},   {10, 0, false, 0, 0, 0, 0.2},
    {11, 0, false, 0, 0, 0, 0.2}, {12, 0, false, 0, 0, 0, 0.2}, {13, 0, false, 0, 0, 0, 0.2},
};
constexpr double kShearRates[] = {1.0, 10.0, 100.0, 1000.0, 10000.0, 100000.0};
constexpr double kPlasticTemperatures[] = {200.0, 230.0, 260.0, 290.0};
constexpr double kThermosetTemperatures[] = {150.0, 165.0, 180.0};

using MaterialPtr = std::unique_ptr<QrvMaterial, void (*)(QrvMaterial*)>;

void printTable(const Combination& c) {
    MaterialPtr material(
        QrvGetDefaultMaterial(c.visId, c.pvtId, c.crystalline, c.cpId, c.kId, c.fillerId),
        QrvReleaseMaterial);
    const bool thermoset = c.visId >= 10;
    std::printf("%s, viscosity model %d: %s\n", QrvGetPolymer(material.get()), c.visId,
                QrvGetComment(material.get()));
    if (thermoset) std::printf("conversion %.2f\n", c.conversion);
    std::printf("viscosity in Pa.s\n%10s", "T \\ rate");
    for (double rate : kShearRates)
        std::printf("%12.0e", rate);
    std::printf("\n");

    const double* temperatures = thermoset ? kThermosetTemperatures : kPlasticTemperatures;
    const std::size_t count =
        thermoset ? std::size(kThermosetTemperatures) : std::size(kPlasticTemperatures);
    for (std::size_t i = 0; i < count; ++i) {
        std::printf("%8.0f C", temperatures[i]);
        for (double rate : kShearRates) {
            // The library works in g/(cm.s); 1 Pa.s is 10 g/(cm.s).
            const double eta =
                QrvGetViscosity(material.get(), rate, temperatures[i], 0.0, c.conversion);
            std::printf("%12.4g", eta / 10.0);
        }
        std::printf("\n");
    }
    std::printf("\n");
}

}  // namespace

int main() {
    std::printf("quorvalib %ld: default materials and their viscosity\n\n",
                Get_Quorvalib_Dll_Ver());
    for (const Combination& c : kCombinations)
        printTable(c);
    return 0;
}
