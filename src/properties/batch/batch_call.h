// What every batch call does before its points: the tests of count and arrays, the fill of a
// failure value, and the columns whose null array stands for 0.0 at every point.
#ifndef QRV_PROPERTIES_BATCH_BATCH_CALL_H
#define QRV_PROPERTIES_BATCH_BATCH_CALL_H

#include <algorithm>
#include <initializer_list>

namespace qrv::batch {

// False when nothing may be written: a count of 0 or below, a null output or a null required input.
inline bool acceptable(int count, const double* out, std::initializer_list<const double*> inputs) {
    if (count <= 0 || !out) return false;
    return std::none_of(inputs.begin(), inputs.end(), [](const double* a) { return !a; });
}

inline int fill(int count, double* out, double value) {
    std::fill_n(out, count, value);
    return count;
}

// An input column: the caller's array, or 0.0 at every point for a null one. Loops are written
// once over both kinds, so that the test for null is made per call and not per point.
struct Given {
    const double* values;
    double operator[](int i) const { return values[i]; }
};
struct Zeros {
    double operator[](int) const { return 0.0; }
};

// Calls body(a, b) with each of the two arrays as a Given column, or Zeros where it is null.
template <typename Body>
void withColumns(const double* a, const double* b, Body&& body) {
    if (a && b) {
        body(Given{a}, Given{b});
    } else if (a) {
        body(Given{a}, Zeros{});
    } else if (b) {
        body(Zeros{}, Given{b});
    } else {
        body(Zeros{}, Zeros{});
    }
}

}  // namespace qrv::batch

#endif
