#include "base/power.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <bit>
#include <cfloat>
#include <cmath>
#include <cstdint>
#include <future>
#include <limits>
#include <optional>
#include <string>
#include <thread>
#include <vector>

#include "base/exact.h"
#include "base/run_time_fault.h"

namespace torvale {
namespace {

constexpr std::uint64_t kMillion = 1000000;
constexpr float kLeastRealFlow = 0.01F;
constexpr float kGreatestRealFlow = 10000;

// The n-th of a fixed sequence of evenly spread 64-bit numbers (the SplitMix64 generator of Steele, Lea, Flood).
std::uint64_t Mixed(std::uint64_t n) {
  std::uint64_t x = n * 0x9e3779b97f4a7c15;
  x = (x ^ (x >> 30)) * 0xbf58476d1ce4e5b9;
  x = (x ^ (x >> 27)) * 0x94d049bb133111eb;
  return x ^ (x >> 31);
}

double Between(double low, double high, std::uint64_t mixed) {
  return low + (high - low) * (static_cast<double>(mixed >> 11) * 0x1p-53);
}

float FloatOfBits(std::uint64_t bits) {
  return std::bit_cast<float>(static_cast<std::uint32_t>(bits));
}

std::uint64_t Bits(float x) {
  return std::bit_cast<std::uint32_t>(x);
}

// Of every four floats two lie in the range of real flows, one anywhere above 0, denormals among them, and one within 8
// floats of a power of two or of a border between table intervals (those are the odd multiples of 2^-9).
float NthFloat(std::uint64_t n) {
  const std::uint64_t mixed = Mixed(n);
  const std::uint64_t high = mixed >> 32;
  if (n % 4 < 2) return FloatOfBits(Bits(kLeastRealFlow) + high % (Bits(kGreatestRealFlow) - Bits(kLeastRealFlow)));
  if (n % 4 == 2) return FloatOfBits(1 + high % Bits(FLT_MAX));
  const std::uint64_t point = high % 8 == 0 ? 0 : (2 * (mixed % 256) + 1) << 14;
  const std::uint64_t power_of_two = 1 + (high >> 3) % 253;
  return FloatOfBits((power_of_two << 23) + point - 8 + (high >> 20) % 17);
}

// 100 / C for C from 1 to 1000, every other one a 32-bit number.
double NthRoughness(std::uint64_t n) {
  const double c = Between(1, 1000, Mixed(n));
  return 100 / (n % 2 == 0 ? c : static_cast<double>(static_cast<float>(c)));
}

// The distance of `result` from `exact` in units in the last place of a double near `exact`.
double Error(double result, const Exact& exact) {
  Exact difference;
  mpfr_sub_d(difference.value, exact.value, result, MPFR_RNDN);
  const mpfr_exp_t last_place = std::max<mpfr_exp_t>(mpfr_get_exp(exact.value) - DBL_MANT_DIG, -1074);
  mpfr_div_2si(difference.value, difference.value, last_place, MPFR_RNDN);
  return std::fabs(mpfr_get_d(difference.value, MPFR_RNDN));
}

using Argument = double (*)(std::uint64_t n);

// The largest errors of Power for arguments `begin` to `end`, one for each exponent.
std::vector<double> LargestErrorsOfPart(Argument argument, std::vector<double> exponents, std::uint64_t begin,
                                        std::uint64_t end) {
  std::vector<double> largest(exponents.size());
  {
    Exact log;
    Exact power;
    for (std::uint64_t n = begin; n < end; ++n) {
      const double base = argument(n);
      mpfr_set_d(log.value, base, MPFR_RNDN);
      mpfr_log(log.value, log.value, MPFR_RNDN);
      for (std::size_t i = 0; i < exponents.size(); ++i) {
        mpfr_mul_d(power.value, log.value, exponents[i], MPFR_RNDN);
        mpfr_exp(power.value, power.value, MPFR_RNDN);
        largest[i] = std::max(largest[i], Error(Power(base, exponents[i]), power));
      }
    }
  }
  mpfr_free_cache();
  return largest;
}

std::vector<double> LargestErrors(Argument argument, const std::vector<double>& exponents) {
  const bool threads = mpfr_buildopt_tls_p() != 0;
  const std::uint64_t parts = threads ? std::max(1U, std::thread::hardware_concurrency()) : 1;
  std::vector<std::future<std::vector<double>>> running;
  for (std::uint64_t i = 0; i < parts; ++i) {
    running.push_back(std::async(std::launch::async, LargestErrorsOfPart, argument, exponents, kMillion * i / parts,
                                 kMillion * (i + 1) / parts));
  }
  std::vector<double> largest(exponents.size());
  for (auto& part : running) {
    const std::vector<double> errors = part.get();
    for (std::size_t i = 0; i < errors.size(); ++i) largest[i] = std::max(largest[i], errors[i]);
  }
  return largest;
}

TEST(PowerError, OfAMillionFlowsAndPipeDiameters) {
  const auto errors = LargestErrors([](std::uint64_t n) -> double { return NthFloat(n); }, {1.852, 4.866});
  RecordProperty("flow_1852_largest_error", std::to_string(errors[0]));
  RecordProperty("diameter_4866_largest_error", std::to_string(errors[1]));
  // The bounds that power.h gives. That some error comes near half a unit shows that the comparison measures something.
  EXPECT_LE(errors[0], 0.504);
  EXPECT_LE(errors[1], 0.501);
  EXPECT_GT(errors[0], 0.499);
  EXPECT_GT(errors[1], 0.499);
}

TEST(PowerError, OfAMillionRoughnesses) {
  const double error = LargestErrors(NthRoughness, {1.852})[0];
  RecordProperty("roughness_1852_largest_error", std::to_string(error));
  EXPECT_LE(error, 0.504);
  EXPECT_GT(error, 0.499);
}

TEST(PowerError, OfAMillionRoots) {
  double largest = 0;
  Exact root;
  for (std::uint64_t n = 0; n < kMillion; ++n) {
    const double base =
        n % 2 == 0 ? static_cast<double>(NthFloat(n)) : std::bit_cast<double>(1 + Mixed(n) % 0x7fefffffffffffff);
    mpfr_set_d(root.value, base, MPFR_RNDN);
    mpfr_sqrt(root.value, root.value, MPFR_RNDN);
    largest = std::max(largest, Error(Power(base, 0.5), root));
  }
  RecordProperty("root_largest_error", std::to_string(largest));
  EXPECT_LE(largest, 0.5);
  EXPECT_GT(largest, 0.499);
}

struct Pair {
  double base;
  double exponent;
};

// Bases and exponents of every kind, results from the smallest denormal to the largest double and somewhat beyond.
Pair NthPair(std::uint64_t n) {
  const std::uint64_t a = Mixed(2 * n);
  const std::uint64_t b = Mixed(2 * n + 1);
  switch (n % 4) {
    case 0:  // Any base.
      return {std::bit_cast<double>(1 + a % 0x7fefffffffffffff), Between(-3, 3, b)};
    case 1:  // Bases near 1.
      return {Between(0.999, 1.001, a), Between(-7e5, 7e5, b)};
    case 2:  // Denormal results.
      return {Between(0.4, 0.6, a), Between(900, 1100, b)};
    default:  // Denormal bases.
      return {std::bit_cast<double>(1 + (a >> (12 + a % 50))), Between(-1.1, 1.1, b)};
  }
}

std::optional<double> PowerOrFault(Pair pair, Fault expected) {
  try {
    return Power(pair.base, pair.exponent);
  } catch (const RunTimeFault& fault) {
    EXPECT_EQ(fault.kind, expected) << pair.base << " ^ " << pair.exponent;
    return std::nullopt;
  }
}

TEST(PowerError, OfAnyBaseAndExponent) {
  Exact base;
  Exact exponent;
  Exact power;
  double largest = 0;
  int denormals = 0;
  int overflows = 0;
  for (std::uint64_t n = 0; n < kMillion / 10; ++n) {
    const Pair pair = NthPair(n);
    mpfr_set_d(base.value, pair.base, MPFR_RNDN);
    mpfr_set_d(exponent.value, pair.exponent, MPFR_RNDN);
    mpfr_pow(power.value, base.value, exponent.value, MPFR_RNDN);
    const std::optional<double> result = PowerOrFault(pair, Fault::kOverflow);
    ASSERT_EQ(result.has_value(), std::isfinite(mpfr_get_d(power.value, MPFR_RNDN))) << pair.base << pair.exponent;
    overflows += result.has_value() ? 0 : 1;
    if (!result.has_value()) continue;
    largest = std::max(largest, Error(*result, power));
    denormals += *result > 0 && *result < DBL_MIN ? 1 : 0;
  }
  RecordProperty("any_largest_error", std::to_string(largest));
  EXPECT_LE(largest, 0.501);
  EXPECT_GT(denormals, 1000);
  EXPECT_GT(overflows, 1000);
}

// How often `power` falls from one argument to the next of `count` successive ones.
template <typename Number, typename Bit, typename Function>
int Falls(Bit first, Bit count, Function power) {
  int falls = 0;
  double before = power(std::bit_cast<Number>(first));
  for (Bit bits = first + 1; bits < first + count; ++bits) {
    const double now = power(std::bit_cast<Number>(bits));
    falls += now < before ? 1 : 0;
    before = now;
  }
  return falls;
}

double DiameterPower(float x) {
  return Power(static_cast<double>(x), 4.866);
}

TEST(PowerOrder, SuccessiveFloats) {
  constexpr std::uint32_t kRun = 1U << 20;
  for (const float start : {kLeastRealFlow, 1.0F, 15.0F, 850.0F, 9000.0F}) {
    EXPECT_EQ((Falls<float>(std::bit_cast<std::uint32_t>(start), kRun, FlowPower)), 0) << start;
  }
  EXPECT_EQ((Falls<float>(1U, kRun, FlowPower)), 0) << "denormals";
  EXPECT_EQ((Falls<float>(std::bit_cast<std::uint32_t>(6.0F), kRun, DiameterPower)), 0);
  // Across every border of two intervals: the odd multiples of 2^-9, 2^14 in a float's bits.
  for (std::uint32_t border = 1U << 14; border < 0x7f800000U - 64; border += 1U << 15) {
    ASSERT_EQ((Falls<float>(border - 16, 32U, FlowPower)), 0) << border;
  }
}

// Runs of successive doubles that meet interval borders and 32-bit numbers, where another way is taken through Power.
TEST(PowerOrder, SuccessiveDoubles) {
  constexpr std::uint64_t kRun = 32;
  constexpr std::uint64_t kBorders = 1U << 14;
  for (const double exponent : {1.852, 4.866, 0.5, 1.0, 0x1p-20}) {
    const auto power = [exponent](double x) { return Power(x, exponent); };
    for (std::uint64_t n = 0; n < kBorders; ++n) {
      // A power of two from 2^-150 to 2^105, any multiple of 2^-9 of it, and in half of the runs some low bits more.
      const std::uint64_t near_float = n % 2 == 0 ? 0 : (Mixed(n) % 0x7fff) << 29;
      const std::uint64_t middle = ((873 + n % 256) << 52) + ((Mixed(n) >> 55) << 43) + near_float;
      ASSERT_EQ((Falls<double>(middle - kRun / 2, kRun, power)), 0) << exponent << " at bits " << middle;
    }
  }
}

TEST(PowerSameBits, FlowPowerAndPower) {
  for (std::uint64_t n = 0; n < kMillion; ++n) {
    const float flow = NthFloat(n);
    ASSERT_EQ(std::bit_cast<std::uint64_t>(FlowPower(flow)), std::bit_cast<std::uint64_t>(Power(flow, 1.852))) << flow;
  }
  EXPECT_EQ(FlowPower(0.0F), 0);
  EXPECT_EQ(FlowPower(1.0F), 1);
}

// One number made of the bits of a million results. It was taken once and must come out of every build; the errors
// above say that the results are right, this says that they are the same.
TEST(PowerGolden, OnEveryMachine) {
  std::uint64_t hash = 0;
  const auto add = [&hash](double result) { hash = Mixed(hash ^ std::bit_cast<std::uint64_t>(result)); };
  for (std::uint64_t n = 0; n < kMillion / 4; ++n) {
    add(FlowPower(NthFloat(n)));
    add(Power(NthRoughness(n), 1.852));
    add(Power(NthFloat(n), 4.866));
    add(PowerOrFault(NthPair(n), Fault::kOverflow).value_or(-1));
  }
  EXPECT_EQ(hash, 0x9714db42c90ecd99U);
}

Fault FaultOf(double base, double exponent) {
  try {
    const double result = Power(base, exponent);
    ADD_FAILURE() << base << " ^ " << exponent << " gave " << result;
  } catch (const RunTimeFault& fault) {
    return fault.kind;
  }
  return Fault::kTypeMismatch;
}

constexpr double kInfinity = std::numeric_limits<double>::infinity();
constexpr double kNoNumber = std::numeric_limits<double>::quiet_NaN();

TEST(PowerValues, Exact) {
  EXPECT_EQ(Power(2, 10), 1024);
  EXPECT_EQ(Power(3, 5), 243);
  EXPECT_EQ(Power(1.5, 3), 3.375);
  EXPECT_EQ(Power(8, 2.5 - 0.5), 64);
  EXPECT_EQ(Power(16, 0.25), 2);
  EXPECT_EQ(Power(16, -1.25), 0x1p-5);
  EXPECT_EQ(Power(1, 1e300), 1);
  EXPECT_EQ(Power(1, 1.852), 1);
  EXPECT_EQ(Power(0.1, 1), 0.1);
  EXPECT_EQ(Power(100, 0.5), 10);
}

TEST(PowerValues, Zero) {
  EXPECT_EQ(Power(0, 1.852), 0);
  EXPECT_EQ(Power(0, 0.5), 0);
  EXPECT_FALSE(std::signbit(Power(-0.0, 3)));
  EXPECT_EQ(Power(0, 0), 1);
  EXPECT_EQ(Power(7, 0), 1);
  EXPECT_EQ(Power(-7, 0), 1);
  EXPECT_EQ(FaultOf(0, -1), Fault::kDivisionByZero);
  EXPECT_EQ(FaultOf(-0.0, -0.5), Fault::kDivisionByZero);
}

TEST(PowerValues, NegativeBase) {
  EXPECT_EQ(Power(-2, 3), -8);
  EXPECT_EQ(Power(-3, 4), 81);
  EXPECT_EQ(Power(-2, -3), -0.125);
  EXPECT_EQ(Power(-2, -2), 0.25);
  EXPECT_EQ(Power(-1, 0x1p53 - 1), -1);
  EXPECT_EQ(Power(-1, 0x1p53), 1);
  EXPECT_EQ(FaultOf(-4, 0.5), Fault::kInvalidArgument);
  EXPECT_EQ(FaultOf(-4, 1.852), Fault::kInvalidArgument);
  EXPECT_EQ(FaultOf(-10, 309), Fault::kOverflow);
}

TEST(PowerValues, EndsOfTheRange) {
  EXPECT_EQ(Power(DBL_MAX, 1), DBL_MAX);
  EXPECT_EQ(Power(2, 1023), 0x1p1023);
  EXPECT_EQ(FaultOf(2, 1024), Fault::kOverflow);
  EXPECT_EQ(FaultOf(2, 1e300), Fault::kOverflow);
  EXPECT_EQ(FaultOf(0.5, -1e18), Fault::kOverflow);
  EXPECT_EQ(FaultOf(1e300, 1.852), Fault::kOverflow);
  EXPECT_EQ(Power(2, -1022), DBL_MIN);
  EXPECT_EQ(Power(2, -1074), 0x1p-1074);
  EXPECT_EQ(Power(2, -1076), 0);
  EXPECT_EQ(Power(2, -1e300), 0);
  EXPECT_EQ(Power(3 * 0x1p-1074, 1), 3 * 0x1p-1074);
  EXPECT_EQ(Power(0x1p-1074, 0.5), 0x1p-537);
  EXPECT_EQ(Power(0x1p-537, 2), 0x1p-1074);
  EXPECT_EQ(Power(5, 1e-300), 1);
  EXPECT_EQ(Power(5, -0x1p-1074), 1);
}

TEST(PowerValues, NoNumbers) {
  for (const double bad : {kInfinity, -kInfinity, kNoNumber}) {
    EXPECT_EQ(FaultOf(bad, 1.852), Fault::kInvalidArgument);
    EXPECT_EQ(FaultOf(2, bad), Fault::kInvalidArgument);
    EXPECT_EQ(FaultOf(bad, 0), Fault::kInvalidArgument);
  }
}

TEST(PowerValues, FlowsThatAreNone) {
  for (const float bad : {-1.0F, -FLT_TRUE_MIN, static_cast<float>(kInfinity), static_cast<float>(kNoNumber)}) {
    try {
      FlowPower(bad);
      ADD_FAILURE() << bad;
    } catch (const RunTimeFault& fault) {
      EXPECT_EQ(fault.kind, Fault::kInvalidArgument) << bad;
    }
  }
  EXPECT_EQ(FlowPower(-0.0F), 0);
}

}  // namespace
}  // namespace torvale
