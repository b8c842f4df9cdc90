// The flat specific-volume and density evaluators: the null guard, then the model's kernel from
// pvt_models.h.
#include <quorvalib/properties.h>

#include "properties/pvt_models.h"
#include "record/guard.h"

double QrvGetSpecificVolume(QrvMaterial* material, double pressure, double temperature,
                            double conversion) {
    return qrv::withMaterial(material, -1.0, [&](const QrvMaterial& m) {
        const qrv::pvt::Evaluator evaluate = qrv::pvt::evaluatorOf(m.PVT);
        return evaluate ? evaluate(m.PVT.Para, pressure, temperature + qrv::pvt::kCelsiusToKelvin,
                                   conversion)
                        : 0.0;
    });
}

double QrvGetDensity(QrvMaterial* material, double pressure, double temperature,
                     double conversion) {
    return qrv::withMaterial(material, 0.0, [&](const QrvMaterial&) {
        return 1.0 / QrvGetSpecificVolume(material, pressure, temperature, conversion);
    });
}
