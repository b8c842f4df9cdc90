// Heat capacity and thermal conductivity: piecewise-linear interpolation over the value-temperature
// pairs of the Cp and K blocks (Para = c1, T1, c2, T2, ...; Count is the number of doubles, not of
// pairs). The model id is not read: a constant model is a block of one value.
//
// With t the temperature, n = Count and p = Para:
//   n < 4          p[0], whatever t is (a block of 2 or 3 values too: no range test)
//   p[1] > t       p[0]      (no extrapolation below the first temperature)
//   t > p[n-1]     p[n-2]    (nor above the last)
//   otherwise      the first pair i = 0, 2, ... with p[i+1] <= t <= p[i+3], or the last pair with
//                  i + 2 < n when none brackets t; then
//                  (p[i+2] - p[i]) (t - p[i+1]) / (p[i+3] - p[i+1]) + p[i].
// A t on an inner table temperature falls in the lower segment, so the result is continuous. An
// unsorted table ends on the last segment and extrapolates on it; two equal temperatures that
// bracket t divide by zero and pass the IEEE result through.
//
// The scalar calls and the batch calls share this routine, so their results agree to the bit.
#ifndef QRV_PROPERTIES_HEAT_TABLE_H
#define QRV_PROPERTIES_HEAT_TABLE_H

#include <quorvalib/record.h>

#include "properties/table_segment.h"

namespace qrv::heat {

inline constexpr double kMissing = -1.0;

inline double interpolate(const QrvMatParam& block, double t) {
    const int n = block.Count;
    const double* p = block.Para;
    if (!p || n < 1) return kMissing;
    if (n < 4) return p[0];
    if (p[1] > t) return p[0];
    if (t > p[n - 1]) return p[n - 2];
    int i = 0;
    while (i + 2 < n) {
        // An odd count leaves the last pair without its temperature: that place lies past the
        // array, so such a walk ends with the miss value.
        if (i + 3 >= n) return kMissing;
        if (t >= p[i + 1] && p[i + 3] >= t) break;
        if (i + 4 >= n) break;  // the last pair with i + 2 < n
        i += 2;
    }
    return interpolateSegment(p[i], p[i + 1], p[i + 2], p[i + 3], t);
}

}  // namespace qrv::heat

#endif
