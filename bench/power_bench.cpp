// The cost of one power of a 32-bit number, by our own functions and by the library's. In the chained form a result
// goes into the next argument, as in the march; in the other one the processor may overlap neighbouring calls.
#include <benchmark/benchmark.h>

#include <array>
#include <cmath>
#include <cstddef>

#include "base/power.h"

namespace torvale {
namespace {

// Flows along a line, 0.25 to 1024 gallons per minute. The odd low bits keep them from being short fractions.
std::array<float, 4096> Flows() {
  std::array<float, 4096> flows;
  for (std::size_t i = 0; i < flows.size(); ++i) flows[i] = 0.25F * 1.0000117F * static_cast<float>(i + 1);
  return flows;
}

template <double Function(float)>
void Independent(benchmark::State& state) {
  const std::array<float, 4096> flows = Flows();
  std::size_t i = 0;
  for (auto _ : state) {
    benchmark::DoNotOptimize(Function(flows[i]));
    i = (i + 1) % flows.size();
  }
}

template <double Function(float)>
void Chained(benchmark::State& state) {
  const std::array<float, 4096> flows = Flows();
  std::size_t i = 0;
  float before = 0;
  for (auto _ : state) {
    before = static_cast<float>(Function(flows[i] + before * 1e-20F));
    i = (i + 1) % flows.size();
  }
  benchmark::DoNotOptimize(before);
}

double Power1852OfFloat(float x) {
  return Power(static_cast<double>(x), 1.852);
}
// A base that no 32-bit number equals.
double Power1852OfDouble(float x) {
  return Power(static_cast<double>(x) * (1 + 0x1p-52), 1.852);
}
double Power4866(float x) {
  return Power(static_cast<double>(x), 4.866);
}
double LibraryPow1852(float x) {
  return std::pow(static_cast<double>(x), 1.852);
}
double LibraryPow4866(float x) {
  return std::pow(static_cast<double>(x), 4.866);
}

BENCHMARK(Independent<FlowPower>);
BENCHMARK(Independent<Power1852OfFloat>);
BENCHMARK(Independent<Power1852OfDouble>);
BENCHMARK(Independent<Power4866>);
BENCHMARK(Independent<LibraryPow1852>);
BENCHMARK(Independent<LibraryPow4866>);
BENCHMARK(Chained<FlowPower>);
BENCHMARK(Chained<Power1852OfFloat>);
BENCHMARK(Chained<Power1852OfDouble>);
BENCHMARK(Chained<Power4866>);
BENCHMARK(Chained<LibraryPow1852>);
BENCHMARK(Chained<LibraryPow4866>);

}  // namespace
}  // namespace torvale
