// A version gate of a body item: an inclusive lower bound, with no upper bound, and for the
// viscoelastic block one extra version that also holds (9005, before the block was dropped at 9006
// and brought back at 9007).
#ifndef QRV_FORMATS_VERSION_GATE_H
#define QRV_FORMATS_VERSION_GATE_H

#include <cstdint>
#include <limits>

namespace qrv {

struct VersionGate {
    std::int32_t from;
    bool hasAlso;
    std::int32_t alsoAt;

    constexpr bool Holds(std::int32_t version) const {
        return version >= from || (hasAlso && version == alsoAt);
    }
};

constexpr VersionGate kAlways{std::numeric_limits<std::int32_t>::min(), false, 0};
constexpr VersionGate gateFrom(std::int32_t version) {
    return {version, false, 0};
}
// The viscoelastic block (tag 4) of a thermoplastic: 9005, and 9007 onward.
constexpr VersionGate kViscoelasticGate{9007, true, 9005};

}  // namespace qrv

#endif
