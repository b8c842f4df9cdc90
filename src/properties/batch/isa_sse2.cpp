// The vector forms on SSE2, two doubles wide: the floor of every x86-64 processor.
// Compiled with the baseline flags; the other sets have files of their own.
#include <immintrin.h>
#include <sleef.h>

#include "properties/batch/instruction_sets.h"
#include "properties/batch/vector_models.h"

namespace qrv::batch {
namespace {

struct Sse2Math {
    using V = __m128d;
    static constexpr bool kFused = false;
    static V exp(V v) { return Sleef_expd2_u10sse2(v); }
    static V log35(V v) { return Sleef_logd2_u35sse2(v); }
    template <typename Mask>
    static bool any(Mask m) {
        return _mm_movemask_pd(reinterpret_cast<__m128d>(m)) != 0;
    }
};

}  // namespace

VectorForms sse2Forms() {
    return {InstructionSet::Sse2, &VectorModels<Sse2Math>::viscosity,
            &VectorModels<Sse2Math>::volume};
}

}  // namespace qrv::batch
