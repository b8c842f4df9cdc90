// Process temperatures of the Temp block, eight values in degree C: melt minimum, middle and
// maximum, mould minimum, middle and maximum, ejection, freeze (no-flow).
#include <quorvalib/properties.h>

#include "record/guard.h"

namespace {

enum TempIndex { kMeltMin = 0, kMeltMax = 2, kMoldMin = 3, kMoldMax = 5, kEject = 6, kFreeze = 7 };

double temperature(QrvMaterial* material, TempIndex index) {
    return qrv::withMaterial(material, -1.0, [index](const QrvMaterial& m) {
        const QrvMatParam& temp = m.Temp;
        return temp.Para && temp.Count > index ? temp.Para[index] : -1.0;
    });
}

}  // namespace

double QrvGetMeltTempMin(QrvMaterial* material) {
    return temperature(material, kMeltMin);
}
double QrvGetMeltTempMax(QrvMaterial* material) {
    return temperature(material, kMeltMax);
}
double QrvGetMoldTempMin(QrvMaterial* material) {
    return temperature(material, kMoldMin);
}
double QrvGetMoldTempMax(QrvMaterial* material) {
    return temperature(material, kMoldMax);
}
double QrvGetEjectTemp(QrvMaterial* material) {
    return temperature(material, kEject);
}
double QrvGetFreezeTemp(QrvMaterial* material) {
    return temperature(material, kFreeze);
}
