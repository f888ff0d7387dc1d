#include "scenarios/scenario_host.h"

#include <cerrno>
#include <utility>

namespace torvale {
namespace {

// Yields between two looks at the clock. They come with the rows of a march, some tens of nanoseconds apart, so that
// these take a few milliseconds at most; and a calculation foresees marches only as far as no yield falls into them.
constexpr long kIdleYields = 0xffff;

// Below a file that is no folder nothing can lie and nothing can be written.
constexpr std::string_view kNowhere = "/dev/null/torvale";

}  // namespace

bool Until::Over() const {
  return stop.stop_requested() || (deadline && std::chrono::steady_clock::now() >= *deadline);
}

long ScenarioHost::Yield(long /*due*/) {
  if (until.Over() && cancel) {
    cancelled = true;
    cancel();
    // A loop that tries again after a cancelled trial is cancelled at its next yield.
    return 0;
  }
  return kIdleYields;
}

void ScenarioHost::Message(std::string_view body, std::string_view title) {
  told.push_back({std::string(title), std::string(body), false});
}

bool ScenarioHost::Question(std::string_view body, std::string_view title) {
  told.push_back({std::string(title), std::string(body), true});
  return false;
}

std::optional<std::string> ScenarioHost::SaveDialog(const FileDialog& /*dialog*/) {
  return std::exchange(save_as, std::nullopt);
}

WholeFileResult ScenarioHost::WritePdf(const Document& document, const std::string& path) {
  const bool written = write_pdf && write_pdf(document, path);
  return {written ? 0 : EIO, {}};
}

std::string ScenarioHost::ProgramFolder() {
  return folder_.empty() ? std::string(kNowhere) : folder_;
}

}  // namespace torvale
