// The one null guard of the flat interface: each exported call that tolerates a null record hands
// its sentinel and its body to this helper instead of retyping the test.
#ifndef QRV_RECORD_GUARD_H
#define QRV_RECORD_GUARD_H

#include <quorvalib/record.h>

#include <utility>

namespace qrv {

// For calls whose original had no null test and that have no failure value of their own: a null
// record throws std::invalid_argument naming the call, before anything is touched.
const QrvMaterial& requireMaterial(const QrvMaterial* material, const char* call);

template <typename Result, typename Body>
inline Result withMaterial(const QrvMaterial* material, Result sentinel, Body&& body) {
    return material ? std::forward<Body>(body)(*material) : sentinel;
}

}  // namespace qrv

#endif
