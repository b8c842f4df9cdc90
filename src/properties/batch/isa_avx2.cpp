// The vector forms on AVX2 with FMA, four doubles wide. This file is compiled with -mavx2 -mfma
// (CMakeLists.txt) and only entered when the processor has both.
#include <immintrin.h>
#include <sleef.h>

#include "properties/batch/instruction_sets.h"
#include "properties/batch/vector_models.h"

namespace qrv::batch {
namespace {

struct Avx2Math {
    using V = __m256d;
    static constexpr bool kFused = true;
    static V fms(V a, V b, V c) { return _mm256_fmsub_pd(a, b, c); }
    static V exp2(V v) { return Sleef_exp2d4_u10avx2(v); }
    static V log35(V v) { return Sleef_logd4_u35avx2(v); }
    template <typename Mask>
    static bool any(Mask m) {
        return _mm256_movemask_pd(reinterpret_cast<__m256d>(m)) != 0;
    }
};

}  // namespace

VectorForms avx2Forms() {
    return {InstructionSet::Avx2, &VectorModels<Avx2Math>::viscosity,
            &VectorModels<Avx2Math>::volume};
}

}  // namespace qrv::batch
