#include "support/BenchRatios.h"

#include <algorithm>
#include <cstdio>
#include <limits>
#include <map>
#include <string>
#include <vector>

namespace
{
struct Ratio
{
    std::string what;
    std::string ours;
    std::string floor;
    double goal;
    std::string counter;
};

std::vector<Ratio>& Ratios()
{
    static std::vector<Ratio> ratios;
    return ratios;
}

// The console report, plus the fastest CPU time and the counters of every
// benchmark, remembered for the ratio table.
class RatioReporter : public benchmark::ConsoleReporter
{
public:
    void ReportRuns(const std::vector<Run>& runs) override
    {
        ConsoleReporter::ReportRuns(runs);
        for (const Run& run : runs)
        {
            if (run.run_type != Run::RT_Iteration || run.error_occurred)
                continue;
            // Function and arguments only: repetitions and time settings are not
            // part of what a ratio names.
            std::string name = run.run_name.function_name;
            if (!run.run_name.args.empty())
                name += "/" + run.run_name.args;
            Seen& seen = m_seen[name];
            seen.seconds = std::min(seen.seconds, run.GetAdjustedCPUTime() * Unit(run.time_unit));
            for (const auto& counter : run.counters)
                seen.counters[counter.first] = std::min(seen.counters.count(counter.first)
                                                            ? seen.counters[counter.first]
                                                            : std::numeric_limits<double>::max(),
                                                        static_cast<double>(counter.second));
        }
    }

    void Finalize() override
    {
        ConsoleReporter::Finalize();
        bool header = false;
        for (const Ratio& ratio : Ratios())
        {
            const auto ours = m_seen.find(ratio.ours);
            const auto floor = m_seen.find(ratio.floor);
            if (ours == m_seen.end() || floor == m_seen.end())
                continue;
            double a = ours->second.seconds;
            double b = floor->second.seconds;
            if (!ratio.counter.empty())
            {
                a = ours->second.counters.count(ratio.counter) ? ours->second.counters.at(ratio.counter) : 0.0;
                b = floor->second.counters.count(ratio.counter) ? floor->second.counters.at(ratio.counter) : 0.0;
            }
            if (!header)
            {
                std::printf("\n%-52s %12s %12s %8s %6s\n", "ratio against the floor", "ours", "floor", "ratio",
                            "goal");
                header = true;
            }
            const double value = b > 0.0 ? a / b : 0.0;
            std::printf("%-52s %12.4g %12.4g %8.2f %6.2f %s\n", ratio.what.c_str(), a, b, value, ratio.goal,
                        value <= ratio.goal ? "met" : "MISSED");
        }
        std::fflush(stdout);
    }

private:
    struct Seen
    {
        double seconds = std::numeric_limits<double>::max();
        std::map<std::string, double> counters;
    };

    static double Unit(benchmark::TimeUnit unit)
    {
        switch (unit)
        {
        case benchmark::kNanosecond: return 1e-9;
        case benchmark::kMicrosecond: return 1e-6;
        case benchmark::kMillisecond: return 1e-3;
        default: return 1.0;
        }
    }

    std::map<std::string, Seen> m_seen;
};
} // namespace

namespace ZoBench
{
bool AddRatio(const char* what, const char* ours, const char* floor, double goal, const char* counter)
{
    Ratios().push_back({what, ours, floor, goal, counter ? counter : ""});
    return true;
}

void RunWithRatios()
{
    RatioReporter reporter;
    benchmark::RunSpecifiedBenchmarks(&reporter);
}
} // namespace ZoBench
