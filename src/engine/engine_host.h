#pragma once

#include <string_view>

namespace torvale {

// What the engine asks of the program around it. The engine runs with no screen at all behind this interface.
class EngineHost {
 public:
  virtual ~EngineHost() = default;

  // The event yield of a long calculation: counts `due` yields and lets pending user events run at the last of them,
  // which may set `CancelFlag` and `DesignOK` of the record and nothing else the engine reads. Gives back how many of
  // the coming yields would do nothing, so that the march can pass over that many rows and report them in one call.
  virtual long Yield(long due) = 0;

  // Shows a message and waits until it is answered. An empty title stands for the program's own name.
  virtual void Message(std::string_view body, std::string_view title) = 0;

  // A calculation gave up or was refused: the pointer is no longer busy.
  virtual void EndBusy() = 0;
  // Takes the Cancel button away.
  virtual void HideCancel() = 0;
  // Offers the button that interpolates the survey again.
  virtual void OfferInterpolation() = 0;
  // Brings the survey sheet into view.
  virtual void ShowSurvey() = 0;
  // The sheet's current cell, moved by code.
  virtual void MoveSurveyCell(int row, int column) = 0;
  // The message that follows refuses the survey for this cell.
  virtual void SurveyCellRefused(int row, int column) = 0;
  // Aligns one cell of the survey as the last column is aligned.
  virtual void AlignSurveyCell(int row, int column) = 0;
  // `TotalAcres` was worked out anew.
  virtual void TotalAcresChanged() = 0;
  // `Uniformity` was worked out anew.
  virtual void UniformityChanged() = 0;
};

}  // namespace torvale
