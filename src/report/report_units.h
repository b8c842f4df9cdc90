// Unit ids of the parameter lines of the material report, by block and model. Ids are those of
// CQrvUnit: negative ones name a report item that CQrvUnit maps to a dimension.
//
// A model that the tables do not list, and an index past a per-index row, has no rule of its own:
// it gets id 0, shown unconverted with the one-blank label.
#ifndef QRV_REPORT_REPORT_UNITS_H
#define QRV_REPORT_REPORT_UNITS_H

namespace qrv::report {

// Vis parameter i: the thermoplastic rows, or the thermoset rows when thermoset is set.
int viscosityUnitId(bool thermoset, int model, int index);
// PVT parameter i.
int pvtUnitId(int model, int index);
// KN parameter i. Models other than 2, 3 and 4 fall through to the model number itself,
// whatever the index.
int curingUnitId(int model, int index);
// Mech parameter i: the thermoset rows when thermoset is set (material type 2), else those of
// every other type.
int mechanicalUnitId(bool thermoset, int model, int index);

}  // namespace qrv::report

#endif
