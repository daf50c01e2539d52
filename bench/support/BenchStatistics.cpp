#include "support/BenchStatistics.h"

#include <algorithm>
#include <vector>

namespace ZoBench
{
void ReportMinimum(benchmark::internal::Benchmark* benchmark)
{
    benchmark->ComputeStatistics("min", [](const std::vector<double>& values) {
        return values.empty() ? 0.0 : *std::min_element(values.begin(), values.end());
    });
}
} // namespace ZoBench
