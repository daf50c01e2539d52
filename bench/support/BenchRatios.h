#pragma once

#include <benchmark/benchmark.h>

// Performance goals are ratios against a floor measured in the same program.
// A ratio names our benchmark and its floor (full run names, such as
// "BM_Frame_Dots/2000"), each taken at its fastest repetition, or at the value
// of a counter both report; after the run a table prints every ratio whose
// two sides ran, with its goal.
namespace ZoBench
{
bool AddRatio(const char* what, const char* ours, const char* floor, double goal, const char* counter = nullptr);

// Runs the benchmarks chosen on the command line, then prints the ratios.
void RunWithRatios();
} // namespace ZoBench
