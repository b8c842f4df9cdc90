// Listing the metals of a bank and extracting its entries one call at a time, on banks of 100,
// 1,000 and 10,000 entries. Figures are per entry (items_per_second), so a flat walk shows the
// same rate at every size.
#include <quorvalib/quorvalib.h>

#include <benchmark/benchmark.h>

#include "bank_support.h"

namespace {

void BM_GetMetalMatBank(benchmark::State& state) {
    const int count = static_cast<int>(state.range(0));
    const std::string& root = qrvbench::banks().RootOf(count);
    MATIO_QrvNonPolyMat list;
    for (auto _ : state) {
        benchmark::DoNotOptimize(list.GetMetalMatBank(root.c_str(), nullptr, false));
        if (list.GetMatBankCount() != count) state.SkipWithError("wrong count");
    }
    state.SetItemsProcessed(state.iterations() * count);
}
BENCHMARK(BM_GetMetalMatBank)->Arg(100)->Arg(1000)->Arg(10000)->Unit(benchmark::kMicrosecond);

// Each call opens the bank and counts its entries before it takes one out, so that a pass over all
// entries made of these calls grows with the square of the bank.
void BM_ExtractEveryEntryByCall(benchmark::State& state) {
    const int count = static_cast<int>(state.range(0));
    const std::string bank = qrvbench::banks().BankOf(count);
    MATIO_BankManipulator banks;
    for (auto _ : state) {
        for (int i = 0; i < count; ++i) {
            QrvMaterial record;
            benchmark::DoNotOptimize(banks.ExtractPlasticMaterialFromBank(bank.c_str(), i, record));
        }
    }
    state.SetItemsProcessed(state.iterations() * count);
}
BENCHMARK(BM_ExtractEveryEntryByCall)->Arg(100)->Arg(1000)->Unit(benchmark::kMicrosecond);

}  // namespace
