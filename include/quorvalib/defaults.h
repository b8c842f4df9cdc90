// Default materials: a record generated from a combination of model ids, filled with fixed
// sample data for each model.
// Threads: any number; each call makes a record of its own.
#ifndef QUORVALIB_DEFAULTS_H
#define QUORVALIB_DEFAULTS_H

#include <quorvalib/export.h>
#include <quorvalib/record.h>

// A new record (FileVer 7101, both dates 20041215, FileType 1, Producer "Quorvane", GradeName
// and Source "Default") for the requested models. visId of 10 or above makes a thermoset
// ("EMC", Vis, single-value PVT, Cp and K, KN) and ignores the other ids; below 10 a thermoplastic
// ("Polymer", Vis, PVT, Cp, K, Mech by fillerId, Temp always). An id without sample data leaves
// its block empty (Model 0, Para null) apart from Source 1000 where set. FileType stays 1 for a
// thermoset too. The caller releases the record with QrvReleaseMaterial; the result is never
// null (allocation failure throws std::bad_alloc).
QRV_API QrvMaterial* QrvGetDefaultMaterial(int visId, int pvtId, bool crystalline, int cpId,
                                           int kId, int fillerId);

#endif
