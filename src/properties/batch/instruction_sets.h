// The vector forms of each instruction set and the run-time choice between them.
#ifndef QRV_PROPERTIES_BATCH_INSTRUCTION_SETS_H
#define QRV_PROPERTIES_BATCH_INSTRUCTION_SETS_H

namespace qrv::batch {

// Ordered from narrowest to widest. SSE2 is part of every x86-64 processor.
enum class InstructionSet { Sse2, Avx2, Avx512 };

// The vector loops of one instruction set: each computes the full vectors of n points of an
// evaluable model and returns how many points it wrote (0 for a model it leaves to the exact loop).
struct VectorForms {
    InstructionSet set;
    int (*viscosity)(int model, const double* p, int n, const double* shearRate,
                     const double* temperature, const double* pressure, const double* conversion,
                     double* out);
    int (*volume)(int model, const double* p, int n, const double* pressure,
                  const double* temperature, const double* conversion, double* out);
};

// Each defined in a file compiled for that instruction set; only called where the processor has it.
VectorForms sse2Forms();
VectorForms avx2Forms();
VectorForms avx512Forms();

// The processor features the choice looks at.
struct CpuFeatures {
    bool avx512f;
    bool avx2;
    bool fma;
};

// The widest set that a processor with these features runs: AVX-512 needs AVX-512F (which has
// its own fused multiply-add), AVX2 the AVX2 and FMA extensions together, SSE2 nothing.
InstructionSet widestOf(CpuFeatures features);

// The widest set this processor and its operating system support.
InstructionSet widestSupported();

// The forms the fast calls use: those of the widest supported set, or of a narrower one that
// limitInstructionSet has asked for (the tests run each set the machine supports this way).
// Not thread-safe against concurrent fast calls; the library itself never calls the limit.
const VectorForms& activeForms();
void limitInstructionSet(InstructionSet widest);

}  // namespace qrv::batch

#endif
