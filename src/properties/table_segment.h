// Linear interpolation on one segment of a value-temperature table, shared by the flat heat
// capacity and conductivity evaluators and the MaterialProperty classes so that both give the same
// bits: (c1 - c0) (t - T0) / (T1 - T0) + c0.
#ifndef QRV_PROPERTIES_TABLE_SEGMENT_H
#define QRV_PROPERTIES_TABLE_SEGMENT_H

namespace qrv {

inline double interpolateSegment(double c0, double T0, double c1, double T1, double t) {
    return (c1 - c0) * (t - T0) / (T1 - T0) + c0;
}

}  // namespace qrv

#endif
