// The flat heat capacity and thermal conductivity evaluators: the null guard, then the table
// walk of heat_table.h.
#include <quorvalib/properties.h>

#include "properties/heat_table.h"
#include "record/guard.h"

double QrvGetHeatCapacity(QrvMaterial* material, double temperature) {
    return qrv::withMaterial(material, qrv::heat::kMissing, [&](const QrvMaterial& m) {
        return qrv::heat::interpolate(m.Cp, temperature);
    });
}

double QrvGetThermalConductivity(QrvMaterial* material, double temperature) {
    return qrv::withMaterial(material, qrv::heat::kMissing, [&](const QrvMaterial& m) {
        return qrv::heat::interpolate(m.K, temperature);
    });
}
