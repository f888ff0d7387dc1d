// Eight lanes: AVX-512 F, DQ and VL. Compiled with flags of its own.
#include "engine/wide_forms.h"

#if defined(__AVX512F__)

#include <immintrin.h>

#include "engine/wide_march_body.h"

namespace torvale {
namespace {

struct Eight {
  using D = __m512d;
  using F = __m256;
  using Slots = __m512i;
  // The powers of two of sixteen exponents stand in registers; the intervals are read from memory.
  struct Tables {
    const WideInterval* interval;
    __m512d high[2];
    __m512d low[2];
    __m512i lowest;
  };
  static constexpr int kWidth = 8;
  static constexpr int kSlots = 16;
  static constexpr int kOneCrownVectors = 2;
  static void Leave() { _mm256_zeroupper(); }
  static D All(double x) { return _mm512_set1_pd(x); }
  static D Load(const double* p) { return _mm512_load_pd(p); }
  static void Store(double* p, D x) { _mm512_store_pd(p, x); }
  static void StoreF(float* p, F x) { _mm256_store_ps(p, x); }
  static double First(D x) { return _mm512_cvtsd_f64(x); }
  static float FirstF(F x) { return _mm256_cvtss_f32(x); }
  static F NoF() { return _mm256_setzero_ps(); }
  static D Mul(D a, D b) { return _mm512_mul_pd(a, b); }
  static D Add(D a, D b) { return _mm512_add_pd(a, b); }
  static D Sub(D a, D b) { return _mm512_sub_pd(a, b); }
  static D Div(D a, D b) { return _mm512_div_pd(a, b); }
  static D Root(D a) { return _mm512_sqrt_pd(a); }
  static F Narrow(D a) { return _mm512_cvtpd_ps(a); }
  static F AddF(F a, F b) { return _mm256_add_ps(a, b); }
  static D Min(D a, D b) { return _mm512_min_pd(a, b); }
  static D Max(D a, D b) { return _mm512_max_pd(a, b); }
  // Gives back its second operand where both are zeros of any sign.
  static D AtLeastZero(D a) { return _mm512_max_pd(_mm512_setzero_pd(), a); }
  static Slots LoadSlots(const int* p) {
    return _mm512_castsi256_si512(_mm256_load_si256(reinterpret_cast<const __m256i*>(p)));
  }
  static D Pick(const float* row, Slots slot) {
    return _mm512_cvtps_pd(_mm512_castps512_ps256(_mm512_permutexvar_ps(slot, _mm512_load_ps(row))));
  }
  static Tables MakeTables(const WideInterval* interval, int lowest_exponent) {
    alignas(64) double high[16];
    alignas(64) double low[16];
    for (int i = 0; i < 16; ++i) {
      const DoublePair& scale = kFlowScales[lowest_exponent + i - kLowestFlowExponent];
      high[i] = scale.high;
      low[i] = scale.low;
    }
    return {interval,
            {_mm512_load_pd(high), _mm512_load_pd(high + 8)},
            {_mm512_load_pd(low), _mm512_load_pd(low + 8)},
            _mm512_set1_epi64(lowest_exponent + 1023)};
  }
  static __m512d TwoRows(const Tables& tables, long long a, long long b) {
    const __m512d low = _mm512_castpd256_pd512(_mm256_load_pd(&tables.interval[a].reciprocal));
    return _mm512_insertf64x4(low, _mm256_load_pd(&tables.interval[b].reciprocal), 1);
  }
  static bool LookUp(const Tables& tables, F flow, PowerParts<Eight>& parts) {
    const __m512i bits = _mm512_castpd_si512(_mm512_cvtps_pd(flow));
    const __m512i nearest = _mm512_srli_epi64(_mm512_add_epi64(bits, _mm512_set1_epi64(1LL << 43)), 44);
    const __m512i exponent = _mm512_srli_epi64(nearest, 8);
    const __m512i place = _mm512_sub_epi64(exponent, tables.lowest);
    if (_mm512_cmpge_epu64_mask(place, _mm512_set1_epi64(16)) != 0) return false;
    alignas(64) long long i[8];
    _mm512_store_si512(i, _mm512_and_si512(nearest, _mm512_set1_epi64(kPowerIntervals - 1)));
    // Rows of four numbers in, columns out, in the order of the lanes.
    const __m512d a = TwoRows(tables, i[0], i[2]);
    const __m512d b = TwoRows(tables, i[1], i[3]);
    const __m512d c = TwoRows(tables, i[4], i[6]);
    const __m512d d = TwoRows(tables, i[5], i[7]);
    const __m512d ab_even = _mm512_unpacklo_pd(a, b);
    const __m512d ab_odd = _mm512_unpackhi_pd(a, b);
    const __m512d cd_even = _mm512_unpacklo_pd(c, d);
    const __m512d cd_odd = _mm512_unpackhi_pd(c, d);
    parts.reciprocal = _mm512_shuffle_f64x2(ab_even, cd_even, 0x88);
    parts.low = _mm512_shuffle_f64x2(ab_even, cd_even, 0xDD);
    parts.high = _mm512_shuffle_f64x2(ab_odd, cd_odd, 0x88);
    parts.sum = _mm512_shuffle_f64x2(ab_odd, cd_odd, 0xDD);
    parts.scale_high = _mm512_permutex2var_pd(tables.high[0], place, tables.high[1]);
    parts.scale_low = _mm512_permutex2var_pd(tables.low[0], place, tables.low[1]);
    const __m512i whole = _mm512_slli_epi64(exponent, 52);
    parts.significand =
        _mm512_castsi512_pd(_mm512_add_epi64(_mm512_sub_epi64(bits, whole), _mm512_set1_epi64(1023LL << 52)));
    return true;
  }
};

}  // namespace

WideForm EightLanes() {
  return MakeForm<Eight>(VectorLanes::kEight);
}

}  // namespace torvale

#else

#include "engine/wide_march.h"

// A compiler or a processor without them: the form of one lane serves.
torvale::WideForm torvale::EightLanes() {
  return FormOf(VectorLanes::kOne);
}

#endif
