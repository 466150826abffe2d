#ifndef BENCHMARKS_TEXT_TO_RECORD_TEXT_TO_RECORD_BENCHMARK_H
#define BENCHMARKS_TEXT_TO_RECORD_TEXT_TO_RECORD_BENCHMARK_H

namespace benchmarks {

/// Compares the records that all roads make of the messages, and registers the benchmarks. Throws std::runtime_error
/// when they differ.
void RegisterTextToRecord();

}  // namespace benchmarks

#endif
