// The vector forms on AVX2, four doubles wide (SLEEF's AVX2 functions also use FMA). This file
// is compiled with -mavx2 (CMakeLists.txt) and only entered when the processor has AVX2 and FMA.
#include <immintrin.h>
#include <sleef.h>

#include "properties/batch/instruction_sets.h"
#include "properties/batch/vector_models.h"

namespace qrv::batch {
namespace {

struct Avx2Math {
    using V = __m256d;
    static V exp(V v) { return Sleef_expd4_u10avx2(v); }
    static V log(V v) { return Sleef_logd4_u10avx2(v); }
};

}  // namespace

VectorForms avx2Forms() {
    return {InstructionSet::Avx2, &VectorModels<Avx2Math>::viscosity,
            &VectorModels<Avx2Math>::volume};
}

}  // namespace qrv::batch
