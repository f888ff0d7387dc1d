// An engine host that keeps what it is told and can press Cancel at one exact yield.
#pragma once

#include <algorithm>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

#include "engine/engine_host.h"
#include "record/design_record.h"

namespace torvale {

struct FakeEngineHost final : EngineHost {
  explicit FakeEngineHost(long idle_promised = 0) : idle(idle_promised) {}

  // Cancels the calculation on `record` at its `yield`-th yield.
  void CancelAt(long yield, DesignRecord& record) {
    cancel_at = yield;
    cancelled = &record;
  }

  long Yield(long due) override {
    ++calls;
    yields += due;
    if (cancelled == nullptr || yields > cancel_at) return idle;
    if (yields == cancel_at) {
      cancelled->CancelFlag = true;
      cancelled->DesignOK = "False";
      return idle;
    }
    return std::min(idle, cancel_at - yields - 1);
  }
  void Message(std::string_view body, std::string_view title) override {
    messages.emplace_back(body, title);
    log.emplace_back("message");
  }
  void EndBusy() override { log.emplace_back("end busy"); }
  void HideCancel() override { log.emplace_back("hide cancel"); }
  void OfferInterpolation() override { log.emplace_back("offer interpolation"); }
  void ShowSurvey() override { log.emplace_back("show survey"); }
  void MoveSurveyCell(int row, int column) override { moves.emplace_back(row, column); }
  void SurveyCellRefused(int row, int column) override { refused.emplace_back(row, column); }
  void AlignSurveyCell(int row, int column) override { aligned.emplace_back(row, column); }
  void TotalAcresChanged() override { ++acres_changes; }
  void UniformityChanged() override { ++uniformity_changes; }

  long idle = 0;    // yields promised to do nothing, at each call
  long yields = 0;  // yields counted so far
  long calls = 0;
  long cancel_at = 0;
  DesignRecord* cancelled = nullptr;
  std::vector<std::pair<std::string, std::string>> messages;  // body, title
  std::vector<std::string> log;                               // what changed on the screen, in order
  std::vector<std::pair<int, int>> moves;
  std::vector<std::pair<int, int>> refused;  // cells that a refusal speaks of
  std::vector<std::pair<int, int>> aligned;
  int acres_changes = 0;
  int uniformity_changes = 0;
};

}  // namespace torvale
