// The vector forms on AVX-512, eight doubles wide. This file is compiled with -mavx512f
// (CMakeLists.txt) and only entered when the processor has AVX-512F.
#include <immintrin.h>
#include <sleef.h>

#include "properties/batch/instruction_sets.h"
#include "properties/batch/vector_models.h"

namespace qrv::batch {
namespace {

struct Avx512Math {
    using V = __m512d;
    static constexpr bool kFused = true;
    static V fms(V a, V b, V c) { return _mm512_fmsub_pd(a, b, c); }
    static V exp2(V v) { return Sleef_exp2d8_u10avx512f(v); }
    static V log35(V v) { return Sleef_logd8_u35avx512f(v); }
    template <typename Mask>
    static bool any(Mask m) {
        return _mm512_test_epi64_mask(reinterpret_cast<__m512i>(m), reinterpret_cast<__m512i>(m)) !=
               0;
    }
};

}  // namespace

VectorForms avx512Forms() {
    return {InstructionSet::Avx512, &VectorModels<Avx512Math>::viscosity,
            &VectorModels<Avx512Math>::volume};
}

}  // namespace qrv::batch
