// What the letters of a design stand for, and which of its lists its type goes by. A letter is compared exactly; where
// a field holds any other text, both questions about it are answered with no, and each procedure that asks says by
// which question it goes.
#pragma once

#include <string_view>

#include "record/design_record.h"

namespace torvale {

// The survey kind: larger rod readings are lower ground.
inline constexpr std::string_view kRods = "R";
inline constexpr std::string_view kElevations = "E";
inline bool ReadsRods(std::string_view survey_kind) {
  return survey_kind == kRods;
}
inline bool ReadsElevations(std::string_view survey_kind) {
  return survey_kind == kElevations;
}

// The kind of pipe.
inline constexpr std::string_view kLayflat = "L";
inline constexpr std::string_view kRigid = "R";
inline bool IsLayflat(const Design& record) {
  return record.PipeKind == kLayflat;
}
inline bool IsRigid(const Design& record) {
  return record.PipeKind == kRigid;
}

// The form of the gates of rigid pipe.
inline constexpr std::string_view kRectangular = "R";
inline constexpr std::string_view kCircular = "C";
inline bool IsRectangular(std::string_view gate_form) {
  return gate_form == kRectangular;
}
inline bool IsCircular(std::string_view gate_form) {
  return gate_form == kCircular;
}

// The hole sizes that the design goes by: the choice of the computer (type 4), that among the allowed sizes
// (type 6), or those of the survey.
inline const RowArray<Inches>& ChosenHoleDia(const Design& record) {
  if (record.DesignType == kComputerHoles) return record.ComputerHoleDia;
  return record.DesignType == kLimitedHoles ? record.LimitedHoleDia : record.SurveyHoleDia;
}

// The crown that the pipe lies on: the designed one for slope designs, the existing one for the others.
inline const RowArray<float>& CrownOfDesign(const Design& record) {
  return IsSlopeDesign(record) ? record.DesignElev : record.CrownElev;
}

}  // namespace torvale
