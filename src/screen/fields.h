// Fields, preferences and figures of the main screen by what they hold, not by number.
#pragma once

#include <array>
#include <cstddef>
#include <string>

#include "record/kinds.h"
#include "screen/main_screen.h"

namespace torvale {

// The information fields, `txtInfo`, by what they hold.
struct InfoField {
  enum Index : std::size_t { kDesignName, kDate, kGpm, kTargetHead, kLocation, kSurveyKind };
};

// The preferences, `txtDefault`, by what they hold.
struct Preference {
  enum Index : std::size_t {
    kStationInterval,
    kHoleSize,  // a name of the hole size table
    kDischargeCoef,
    kHazenWilliamsC,
    kFillWarning,
    kPipeDiameter,
    kFurrowSpacing,
    kHoleCount,
    kMil,
    kSurveyKind,
    kTargetHead,
    kGateForm,
    kGateSize,
    kHighestHead,  // of a limited hole selection
    kHeadStep,
    kOpenFilter,
  };
};

// The figures of a design, `frmDisplayLbl`; the label ahead of each names it.
struct Figure {
  enum Index : std::size_t {
    kMaxHead = 1,
    kMaxHeadStation = 3,
    kMinHead = 5,
    kMinHeadStation = 7,
    kMaxFurrowFlow = 9,
    kMinFurrowFlow = 11,
    kTotalFlow = 13,
    kCrownDifferentialName = 14,
    kCrownDifferential = 15,
  };
};
// Those whose marks warn of the design: tubing that gets more than it is to bear, furrows that get nothing.
inline constexpr std::array<Figure::Index, 2> kWarningFigures = {Figure::kMaxHead, Figure::kMinFurrowFlow};

// The name of the control ("txtInfo(3)").
inline std::string NameOf(InfoField::Index field) {
  return "txtInfo(" + std::to_string(field) + ")";
}
inline std::string NameOf(Preference::Index field) {
  return "txtDefault(" + std::to_string(field) + ")";
}

inline const std::string& TextOf(const MainScreen& main, InfoField::Index field) {
  return main.txtInfo[field].text();
}
inline const std::string& TextOf(const MainScreen& main, Preference::Index field) {
  return main.txtDefault[field].text();
}

// The letters of the fields: see record/kinds.h.
inline bool ReadsRods(const MainScreen& main) {
  return ReadsRods(TextOf(main, InfoField::kSurveyKind));
}
inline bool ReadsElevations(const MainScreen& main) {
  return ReadsElevations(TextOf(main, InfoField::kSurveyKind));
}
inline bool HasRectangularGates(const MainScreen& main) {
  return IsRectangular(TextOf(main, Preference::kGateForm));
}
inline bool HasCircularGates(const MainScreen& main) {
  return IsCircular(TextOf(main, Preference::kGateForm));
}

}  // namespace torvale
