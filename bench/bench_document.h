// Spec files of any size for the benchmarks, made once each and removed at the end.
#pragma once

#include <benchmark/benchmark.h>

#include <memory>
#include <string>
#include <vector>

class TreeModel;

// The name of a spec file with all keywords and this many rows in the Scan List and the Meta Data
// List. All names are distinct, 6 to 79 characters long; one in five has units in brackets or
// another shape that is more than a plain word.
const std::string& specFileOfRows(int scanRows, int metaRows = 0);

// The five models of the last read_file, in tab order.
std::vector<std::unique_ptr<TreeModel>> makeModels();

// Runs a program's benchmarks. Freed memory is kept for the next round, so that the kernel's time
// for new pages is not measured.
int runBenchmarks(int argc, char** argv);

// Measures at each document size; the number of rows is the unit.
void atAllSizes(benchmark::internal::Benchmark* measured);
void countRows(benchmark::State* state);
