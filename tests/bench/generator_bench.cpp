// Passwords from the generator.
#include <benchmark/benchmark.h>

#include "windows/generator.h"

namespace {

void Generate(benchmark::State& state) {
    const PassGenRequest request;
    for (auto _ : state)
        benchmark::DoNotOptimize(GeneratePassword(request));
    state.SetItemsProcessed(state.iterations());
}

BENCHMARK(Generate);

}  // namespace
