#pragma once

#include <mpfr.h>

namespace torvale {

// A number of arbitrary precision, rounded to nearest.
struct Exact {
  explicit Exact(mpfr_prec_t bits = 208) { mpfr_init2(value, bits); }
  Exact(const Exact&) = delete;
  Exact& operator=(const Exact&) = delete;
  ~Exact() { mpfr_clear(value); }
  mpfr_t value;
};

}  // namespace torvale
