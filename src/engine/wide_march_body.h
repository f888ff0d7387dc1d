// The wide march, written once for every kind of lanes. A file for each instruction set includes it, with its own
// compiler flags. Everything here has internal linkage and nothing of the standard library is called, so that no other
// file can come to run code made for a processor that has more than this one.
//
// A kind of lanes `L` has: `D` lanes of double, `F` as many of float, kWidth of them, room for kSlots crowns, vectors
// for kOneCrownVectors marches on one crown, and the operations below, `Leave` after the last of them. The order of
// operations is that of `TakeOrifice`, `CarryHead` and `FlowPower`; none is fused.
#pragma once

#include "base/power_table.h"
#include "engine/lowest_sum_body.h"
#include "engine/wide_lines.h"

namespace torvale {
namespace {

constexpr int kMostVectors = 4;

// A row of the table of intervals with the sum that the power takes of its parts.
struct WideInterval {
  double reciprocal;
  double high;
  double low;
  double sum;
};

struct WideIntervals {
  WideIntervals() {
    for (int i = 0; i < kPowerIntervals; ++i) {
      const FlowInterval& from = kFlowIntervals[i];
      row[i] = {from.reciprocal, from.high, from.low, from.high + from.low};
    }
  }
  alignas(64) WideInterval row[kPowerIntervals];
};

template <class L>
struct PowerParts {
  typename L::D reciprocal, high, low, sum, scale_high, scale_low, significand;
};

// flow^1.852; see `FlowPower` (base/power.h).
template <class L>
inline typename L::D PowerOf(const PowerParts<L>& p) {
  using D = typename L::D;
  const auto c = [](int k) { return L::All(kFlowBinomial[k]); };
  const D lead = L::Mul(p.scale_high, p.high);
  const D rest = L::Add(L::Mul(p.scale_high, p.low), L::Mul(p.scale_low, p.sum));
  const D factor = L::Add(lead, rest);
  const D z = L::Sub(L::Mul(p.significand, p.reciprocal), L::All(1.0));
  const D z2 = L::Mul(z, z);
  const D slope = L::Mul(c(1), z);
  const D inner = L::Add(L::Mul(c(0), z), L::Mul(z2, L::Add(c(2), L::Mul(c(3), z))));
  const D outer = L::Add(L::Add(c(4), L::Mul(c(5), z)), L::Mul(c(6), z2));
  const D curve = L::Add(inner, L::Mul(L::Mul(z2, z2), outer));
  const D tail = L::Add(L::Add(rest, L::Mul(rest, slope)), L::Mul(factor, curve));
  return L::Add(lead, L::Add(L::Mul(lead, slope), tail));
}

template <class L>
inline typename L::D FlowPowerOf(const typename L::Tables& tables, typename L::F flow) {
  PowerParts<L> parts;
  if (L::LookUp(tables, flow, parts)) return PowerOf<L>(parts);
  alignas(64) float flows[L::kWidth];
  alignas(64) double powers[L::kWidth];
  L::StoreF(flows, flow);
  FlowPowersOutside(flows, powers, L::kWidth);
  return L::Load(powers);
}

// `V` vectors in flight, so that the chain of one row of one of them hides behind the others.
template <class L, int V, bool kOneCrown>
inline void MarchVectors(const WideLine& line, const typename L::Tables& tables, const float* crowns, int slots,
                         WideJobs& jobs, int first, float* flows, const WideProfile& rows) {
  using D = typename L::D;
  using F = typename L::F;
  D head[V], lowest[V], highest[V], here[V], term[V];
  F flow[V];
  typename L::Slots slot[V];
  for (int v = 0; v < V; ++v) {
    const int at = first + v * L::kWidth;
    head[v] = L::Load(jobs.head + at);
    lowest[v] = highest[v] = head[v];
    flow[v] = L::NoF();
    term[v] = L::All(0);
    here[v] = L::All(0);
    if constexpr (!kOneCrown) {
      slot[v] = L::LoadSlots(jobs.slot + at);
      here[v] = L::Pick(crowns + static_cast<long long>(line.rows) * slots, slot[v]);
    }
  }
  double dia_power = 0;
  const D factor = L::All(line.friction_factor);
  for (int row = line.rows; row >= 1; --row) {
    const WideRow& r = line.row[row];
    if constexpr (kOneCrown) {
      rows.head[row] = L::First(head[0]);
      rows.flow[row] = 0;
    }
    if (r.opening > 0) {
#pragma GCC unroll 8
      for (int v = 0; v < V; ++v) {
        const D root = L::Root(L::Mul(head[v], L::All(64.4)));
        const D out = L::Mul(L::Mul(L::Mul(L::All(r.opening), root), L::All(448.8)), L::All(line.discharge_coef));
        const F narrow = L::Narrow(out);
        if constexpr (!kOneCrown)
          L::StoreF(flows + FlowPlace(L::kWidth, line.rows, first + v * L::kWidth, row), narrow);
        flow[v] = L::AddF(flow[v], narrow);
        if (kOneCrown && v == 0) rows.flow[row] = L::FirstF(narrow);
      }
    }
    if (r.opening > 0 || r.dia_power != dia_power) {
      dia_power = r.dia_power;
#pragma GCC unroll 8
      for (int v = 0; v < V; ++v) {
        const D ratio = L::Div(FlowPowerOf<L>(tables, flow[v]), L::All(dia_power));
        term[v] = L::Div(L::Mul(ratio, factor), L::All(100.0));
      }
    }
#pragma GCC unroll 8
    for (int v = 0; v < V; ++v) {
      D rise = L::All(r.rise);
      if constexpr (!kOneCrown) {
        const D upstream = L::Pick(crowns + static_cast<long long>(row - 1) * slots, slot[v]);
        rise = line.elevations ? L::Sub(upstream, here[v]) : L::Sub(here[v], upstream);
        here[v] = upstream;
      }
      const D next = L::Add(L::Sub(head[v], rise), L::Mul(L::All(r.length), term[v]));
      if (row > 1) {
        lowest[v] = L::Min(next, lowest[v]);
        highest[v] = L::Max(next, highest[v]);
        head[v] = L::AtLeastZero(next);
      } else {
        L::Store(jobs.beyond + first + v * L::kWidth, next);
      }
    }
  }
  for (int v = 0; v < V; ++v) {
    const int at = first + v * L::kWidth;
    L::StoreF(jobs.flow + at, flow[v]);
    L::Store(jobs.lowest + at, lowest[v]);
    L::Store(jobs.highest + at, highest[v]);
  }
}

template <class L>
inline typename L::Tables TablesFor(const WideLine& line) {
  static const WideIntervals intervals;
  return L::MakeTables(intervals.row, line.lowest_exponent);
}

// As few vectors as hold the first `count` jobs.
template <class L>
void March(const WideLine& line, const float* crowns, WideJobs& jobs, int count, float* flows) {
  const typename L::Tables tables = TablesFor<L>(line);
  const int vectors = (count + L::kWidth - 1) / L::kWidth;
  if (vectors <= 1) {
    MarchVectors<L, 1, false>(line, tables, crowns, L::kSlots, jobs, 0, flows, {});
  } else if (vectors == 2) {
    MarchVectors<L, 2, false>(line, tables, crowns, L::kSlots, jobs, 0, flows, {});
  } else if (vectors == 3) {
    MarchVectors<L, 3, false>(line, tables, crowns, L::kSlots, jobs, 0, flows, {});
  } else {
    MarchVectors<L, kMostVectors, false>(line, tables, crowns, L::kSlots, jobs, 0, flows, {});
  }
  L::Leave();
}

template <class L>
void MarchOneCrown(const WideLine& line, WideJobs& jobs, const WideProfile& rows) {
  MarchVectors<L, L::kOneCrownVectors, true>(line, TablesFor<L>(line), nullptr, 0, jobs, 0, nullptr, rows);
  L::Leave();
}

template <class L>
WideForm MakeForm(VectorLanes lanes) {
  return {lanes,
          L::kWidth,
          kMostVectors * L::kWidth,
          L::kSlots,
          L::kOneCrownVectors * L::kWidth,
          March<L>,
          MarchOneCrown<L>,
          LowestSumOf};
}

}  // namespace
}  // namespace torvale
