// Items of the material report carry negative unit ids; each maps to one dimension id.
#ifndef QRV_UNITS_UNIT_MAP_H
#define QRV_UNITS_UNIT_MAP_H

namespace qrv {

// The dimension id of a report item's negative id; any id outside the map comes back unchanged.
int mapReportUnitId(int unitId);

}  // namespace qrv

#endif
