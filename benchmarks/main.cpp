#include <benchmark/benchmark.h>

#include <cstdio>
#include <exception>

#include "benchmarks/text_to_record/text_to_record_benchmark.h"

int main(int argc, char** argv) {
    try {
        benchmarks::RegisterTextToRecord();
    } catch (const std::exception& error) {
        std::fprintf(stderr, "benchmarks: %s\n", error.what());
        return 1;
    }
    benchmark::Initialize(&argc, argv);
    if (benchmark::ReportUnrecognizedArguments(argc, argv)) return 1;
    benchmark::RunSpecifiedBenchmarks();
    return 0;
}
