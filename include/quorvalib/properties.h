// Flat property evaluators. Every value is in the base units of the library: temperature in
// degree C, viscosity in g/(cm.sec), pressure in dyne/cm^2, shear rate in 1/sec; conversion is a
// fraction from 0 to 1. They keep no state and are reentrant on a record nobody changes.
#ifndef QUORVALIB_PROPERTIES_H
#define QUORVALIB_PROPERTIES_H

#include <quorvalib/export.h>
#include <quorvalib/record.h>

// Melt viscosity from the fitted model of the Vis block.
//
// Evaluated ids: 1 Newtonian, 2 Power Law, 3 to 5 Modified Cross 1 to 3, 10 Castro Macosko,
// 11 Power-law Castro Macosko, 12 Cross Castro Macosko, 13 Herschel-Bulkely. FileType is not
// read: the id alone picks the formula. No range check is made on the arguments; a division by
// zero or a negative base passes its IEEE result through.
//
// Returns -1.0 for a null record, and 0.0 when the model cannot be evaluated here: an id
// outside 1..13, the named but unevaluated ids 6 to 9, or a block whose Para is null or holds
// fewer values than the formula reads (1, 3, 5, 5, 7 for ids 1 to 5; 5, 11, 7, 9 for ids 10 to
// 13). 0.0 is therefore "not evaluable", never a viscosity.
QRV_API double QrvGetViscosity(QrvMaterial* material, double shearRate, double temperature,
                               double pressure, double conversion);

#endif
