// The flat viscosity evaluator: the null guard, then the model's kernel from viscosity_models.h.
#include <quorvalib/properties.h>

#include "properties/viscosity_models.h"
#include "record/guard.h"

double QrvGetViscosity(QrvMaterial* material, double shearRate, double temperature, double pressure,
                       double conversion) {
    return qrv::withMaterial(material, -1.0, [&](const QrvMaterial& m) {
        const qrv::viscosity::Evaluator evaluate = qrv::viscosity::evaluatorOf(m.Vis);
        return evaluate ? evaluate(m.Vis.Para, shearRate, temperature, pressure, conversion) : 0.0;
    });
}
