// Labels of the Mech parameters of a thermoset (material type 2) in the report. They differ from
// the thermoplastic labels: a thermoset keeps a melt and a solid thermal expansion.
#ifndef QRV_REPORT_THERMOSET_MECH_LABELS_H
#define QRV_REPORT_THERMOSET_MECH_LABELS_H

namespace qrv::report {

// The label of parameter index of Mech.Model model (0, 1, 2, or 3 to 5). Returns the characters
// of one shared static text, overwritten at each call that has a label to give (the empty label
// where a model has none at that index). An index outside 0 to 14, or a model outside 0 to 5,
// leaves the text as the previous call left it (empty at first). One thread at a time.
const char* thermosetMechLabel(int model, int index);

}  // namespace qrv::report

#endif
