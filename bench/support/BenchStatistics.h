#pragma once

#include <benchmark/benchmark.h>

namespace ZoBench
{
// Adds the fastest repetition to the aggregates: on a machine shared with
// other work, the minimum is the steadiest figure to compare runs by.
void ReportMinimum(benchmark::internal::Benchmark* benchmark);
} // namespace ZoBench
