// Four lanes: AVX2. Compiled with flags of its own.
#include "engine/wide_forms.h"

#if defined(__AVX2__)

#include <immintrin.h>

#include "engine/wide_march_body.h"

namespace torvale {
namespace {

struct Four {
  using D = __m256d;
  using F = __m128;
  using Slots = __m256i;
  struct Tables {
    const WideInterval* interval;
    const DoublePair* scale;  // of the exponent 0 of a double's bits
  };
  static constexpr int kWidth = 4;
  static constexpr int kSlots = 8;
  static constexpr int kOneCrownVectors = 4;
  static void Leave() { _mm256_zeroupper(); }
  static D All(double x) { return _mm256_set1_pd(x); }
  static D Load(const double* p) { return _mm256_load_pd(p); }
  static void Store(double* p, D x) { _mm256_store_pd(p, x); }
  static void StoreF(float* p, F x) { _mm_store_ps(p, x); }
  static double First(D x) { return _mm256_cvtsd_f64(x); }
  static float FirstF(F x) { return _mm_cvtss_f32(x); }
  static F NoF() { return _mm_setzero_ps(); }
  static D Mul(D a, D b) { return _mm256_mul_pd(a, b); }
  static D Add(D a, D b) { return _mm256_add_pd(a, b); }
  static D Sub(D a, D b) { return _mm256_sub_pd(a, b); }
  static D Div(D a, D b) { return _mm256_div_pd(a, b); }
  static D Root(D a) { return _mm256_sqrt_pd(a); }
  static F Narrow(D a) { return _mm256_cvtpd_ps(a); }
  static F AddF(F a, F b) { return _mm_add_ps(a, b); }
  static D Min(D a, D b) { return _mm256_min_pd(a, b); }
  static D Max(D a, D b) { return _mm256_max_pd(a, b); }
  // Gives back its second operand where both are zeros of any sign.
  static D AtLeastZero(D a) { return _mm256_max_pd(_mm256_setzero_pd(), a); }
  static Slots LoadSlots(const int* p) {
    return _mm256_castsi128_si256(_mm_load_si128(reinterpret_cast<const __m128i*>(p)));
  }
  static D Pick(const float* row, Slots slot) {
    return _mm256_cvtps_pd(_mm256_castps256_ps128(_mm256_permutevar8x32_ps(_mm256_load_ps(row), slot)));
  }
  static Tables MakeTables(const WideInterval* interval, int /*lowest_exponent*/) { return {interval, kFlowScales}; }
  static bool LookUp(const Tables& tables, F flow, PowerParts<Four>& parts) {
    // Lanes that are 0, denormal in 32 bits, infinite or no number go the slow way.
    const __m128i narrow = _mm_castps_si128(flow);
    const __m128i low = _mm_cmplt_epi32(narrow, _mm_set1_epi32(0x00800000));
    const __m128i high = _mm_cmpgt_epi32(narrow, _mm_set1_epi32(0x7f7fffff));
    if (_mm_movemask_epi8(_mm_or_si128(low, high)) != 0) return false;
    const __m256i bits = _mm256_castpd_si256(_mm256_cvtps_pd(flow));
    const __m256i nearest = _mm256_srli_epi64(_mm256_add_epi64(bits, _mm256_set1_epi64x(1LL << 43)), 44);
    const __m256i exponent = _mm256_srli_epi64(nearest, 8);
    alignas(32) long long i[4];
    alignas(32) long long e[4];
    _mm256_store_si256(reinterpret_cast<__m256i*>(i),
                       _mm256_and_si256(nearest, _mm256_set1_epi64x(kPowerIntervals - 1)));
    _mm256_store_si256(reinterpret_cast<__m256i*>(e), exponent);
    // Rows of four numbers in, columns out.
    const __m256d a = _mm256_load_pd(&tables.interval[i[0]].reciprocal);
    const __m256d b = _mm256_load_pd(&tables.interval[i[1]].reciprocal);
    const __m256d c = _mm256_load_pd(&tables.interval[i[2]].reciprocal);
    const __m256d d = _mm256_load_pd(&tables.interval[i[3]].reciprocal);
    const __m256d ab_even = _mm256_unpacklo_pd(a, b);
    const __m256d ab_odd = _mm256_unpackhi_pd(a, b);
    const __m256d cd_even = _mm256_unpacklo_pd(c, d);
    const __m256d cd_odd = _mm256_unpackhi_pd(c, d);
    parts.reciprocal = _mm256_permute2f128_pd(ab_even, cd_even, 0x20);
    parts.low = _mm256_permute2f128_pd(ab_even, cd_even, 0x31);
    parts.high = _mm256_permute2f128_pd(ab_odd, cd_odd, 0x20);
    parts.sum = _mm256_permute2f128_pd(ab_odd, cd_odd, 0x31);
    const __m256d even = TwoScales(tables, e[0], e[2]);
    const __m256d odd = TwoScales(tables, e[1], e[3]);
    parts.scale_high = _mm256_unpacklo_pd(even, odd);
    parts.scale_low = _mm256_unpackhi_pd(even, odd);
    const __m256i whole = _mm256_slli_epi64(exponent, 52);
    parts.significand =
        _mm256_castsi256_pd(_mm256_add_epi64(_mm256_sub_epi64(bits, whole), _mm256_set1_epi64x(1023LL << 52)));
    return true;
  }
  static __m256d TwoScales(const Tables& tables, long long a, long long b) {
    constexpr long long kFirst = 1023 + kLowestFlowExponent;
    const __m256d low = _mm256_castpd128_pd256(_mm_loadu_pd(&tables.scale[a - kFirst].high));
    return _mm256_insertf128_pd(low, _mm_loadu_pd(&tables.scale[b - kFirst].high), 1);
  }
};

}  // namespace

WideForm FourLanes() {
  return MakeForm<Four>(VectorLanes::kFour);
}

}  // namespace torvale

#else

#include "engine/wide_march.h"

// A compiler or a processor without them: the form of one lane serves.
torvale::WideForm torvale::FourLanes() {
  return FormOf(VectorLanes::kOne);
}

#endif
