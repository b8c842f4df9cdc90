// The bank stream's own walk, on banks of 100, 1,000 and 10,000 entries: counting the entries of
// a freshly opened bank, and one pass that loads every entry of an open bank into a record.
// Figures are per entry (items_per_second).
#include <quorvalib/quorvalib.h>

#include <benchmark/benchmark.h>

#include "bank_support.h"
#include "formats/bank_stream.h"
#include "formats/conversions.h"
#include "record/material_internal.h"

namespace {

void BM_GetMaterialCount(benchmark::State& state) {
    const int count = static_cast<int>(state.range(0));
    const std::string bank = qrvbench::banks().BankOf(count);
    for (auto _ : state) {
        CQrvBankStream stream;
        stream.OpenFile(bank.c_str(), false);
        if (stream.GetMaterialCount() != count) state.SkipWithError("wrong count");
    }
    state.SetItemsProcessed(state.iterations() * count);
}
BENCHMARK(BM_GetMaterialCount)->Arg(100)->Arg(1000)->Arg(10000)->Unit(benchmark::kMicrosecond);

void BM_ExtractEveryEntry(benchmark::State& state) {
    const int count = static_cast<int>(state.range(0));
    const std::string bank = qrvbench::banks().BankOf(count);
    for (auto _ : state) {
        CQrvBankStream stream;
        stream.OpenFile(bank.c_str(), false);
        const int entries = stream.GetMaterialCount();
        for (int i = 0; i < entries; ++i) {
            QrvMaterial* record = new QrvMaterial;
            QrvInitMaterial(record);
            QrvMaterialFromStream(record, stream.LoadMaterial(i), false);
            benchmark::DoNotOptimize(record->Cp.Para);
            QrvReleaseMaterial(record);
        }
    }
    state.SetItemsProcessed(state.iterations() * count);
}
BENCHMARK(BM_ExtractEveryEntry)->Arg(100)->Arg(1000)->Arg(10000)->Unit(benchmark::kMicrosecond);

}  // namespace
