// Cure kinetics of the KN block, shared by the conversion integrators.
#ifndef QRV_PROPERTIES_CURE_H
#define QRV_PROPERTIES_CURE_H

#include <quorvalib/record.h>

// Cure rate at temperature t (degree C) and conversion x, from the first six values of KN.Para
// (m, n, A, B, Ta, Tb; activation temperatures in kelvin), whatever KN.Model says:
//   x clamped to [1e-12, 0.999999999999], T = t + 273.15,
//   rate = (A e^(-Ta/T) + B e^(-Tb/T) x^m) (1 - x)^n.
// 0.0 for a null record, and for a KN block with a null Para or fewer than six values.
double QrvGetCureRate(QrvMaterial* material, double temperature, double conversion);

#endif
