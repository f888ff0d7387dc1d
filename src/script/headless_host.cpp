#include "script/headless_host.h"

#include <algorithm>
#include <fstream>
#include <limits>
#include <optional>
#include <random>
#include <system_error>

#include "base/paths.h"
#include "files/soils.h"
#include "screen/main_screen.h"
#include "script/quoting.h"
#include "script/show_document.h"

namespace torvale {
namespace {

constexpr std::string_view kToday = "11/21/2026";

// Far more yields than any calculation makes, and far from the end of the counter.
constexpr long kAllIdle = std::numeric_limits<int>::max();

std::string QuotedTitle(std::string_view title) {
  return Quoted(title.empty() ? kProgramTitle : title);
}

// File by file: where a system numbers no files, the library takes any two folders of a disk for the same.
void CopyFiles(const std::filesystem::path& from, const std::filesystem::path& to) {
  if (!std::filesystem::is_directory(from)) return;
  for (const auto& entry : std::filesystem::directory_iterator(from)) {
    if (entry.is_regular_file()) std::filesystem::copy_file(entry.path(), to / entry.path().filename());
  }
}

}  // namespace

TemporaryFolder::TemporaryFolder() {
  std::random_device random;
  do {
    path_ = std::filesystem::temp_directory_path() / ("torvale-" + std::to_string(random()));
  } while (!std::filesystem::create_directory(path_));
}

TemporaryFolder::~TemporaryFolder() {
  std::error_code ignored;
  std::filesystem::remove_all(path_, ignored);
}

HeadlessHost::HeadlessHost(std::ostream& transcript, const std::string& data_folder) : transcript_(transcript) {
  CopyFiles(PathOf(data_folder), folder_.path());
  // Opened for appending: a list of no soils where there is none yet.
  std::ofstream(folder_.path() / kSoilsFile, std::ios::app);
}

void HeadlessHost::OnYield(long count, std::string control) {
  clicks_.push_back({yields_ + count, std::move(control)});
}

long HeadlessHost::IdleYields() const {
  long idle = kAllIdle;
  for (const PendingClick& click : clicks_) idle = std::min(idle, click.yield - yields_ - 1);
  return std::max(idle, 0L);
}

long HeadlessHost::Yield(long due) {
  yields_ += due;
  for (;;) {
    // A click may run a calculation of its own, which yields in turn: it is no longer pending then.
    const auto next =
        std::find_if(clicks_.begin(), clicks_.end(), [&](const PendingClick& c) { return c.yield <= yields_; });
    if (next == clicks_.end()) return IdleYields();
    const std::string control = std::move(next->control);
    clicks_.erase(next);
    on_click(control);
  }
}

void HeadlessHost::Message(std::string_view body, std::string_view title) {
  transcript_ << "message " << QuotedTitle(title) << ' ' << Quoted(body) << '\n';
}

bool HeadlessHost::Question(std::string_view body, std::string_view title) {
  bool yes = false;
  if (!answers_.empty()) {
    yes = answers_.front();
    answers_.pop();
  }
  transcript_ << "question " << QuotedTitle(title) << ' ' << Quoted(body) << " -> " << (yes ? "Yes" : "No") << '\n';
  return yes;
}

void HeadlessHost::Beep() {
  transcript_ << "beep\n";
}

std::optional<std::string> HeadlessHost::OpenDialog(const FileDialog& dialog) {
  std::optional<std::string> path;
  if (!paths_.empty()) {
    path = paths_.front();
    paths_.pop();
  }
  transcript_ << "dialog " << Quoted(dialog.title) << ' ' << Quoted(dialog.name) << " -> "
              << (path ? Quoted(*path) : "cancel") << '\n';
  return path;
}

std::optional<std::string> HeadlessHost::SaveDialog(const FileDialog& dialog) {
  return OpenDialog(dialog);
}

std::optional<int> HeadlessHost::PrinterDialog() {
  std::optional<int> copies;
  if (!copies_.empty()) {
    copies = copies_.front();
    copies_.pop();
  }
  transcript_ << "printer dialog -> " << (copies ? std::to_string(*copies) : "cancel") << '\n';
  return copies;
}

bool HeadlessHost::Print(const Document& document) {
  transcript_ << "print " << Quoted(document.title) << '\n';
  printed_.push_back(document);
  return true;
}

void HeadlessHost::Preview(const Document& document) {
  transcript_ << "preview " << Quoted(document.title) << '\n';
  printed_.push_back(document);
}

WholeFileResult HeadlessHost::WritePdf(const Document& document, const std::string& path) {
  transcript_ << "pdf " << Quoted(document.title) << ' ' << Quoted(path) << '\n';
  printed_.push_back(document);
  return {};
}

WholeFileResult HeadlessHost::WritePicture(const Document& document, const std::string& path) {
  transcript_ << "picture " << Quoted(document.title) << ' ' << Quoted(path) << '\n';
  printed_.push_back(document);
  return {};
}

bool HeadlessHost::PrintProfile() {
  transcript_ << "crown profile printed\n";
  return true;
}

WholeFileResult HeadlessHost::WriteProfile(const std::string& path) {
  transcript_ << "crown profile written to " << Quoted(Utf8Of(PathOf(path).filename())) << '\n';
  return {};
}

void HeadlessHost::ShowClipboard() {
  transcript_ << "clipboard = " << Quoted(clipboard_) << '\n';
}

void HeadlessHost::ShowPrinted() {
  for (const Document& document : printed_) ShowDocument(transcript_, document);
  printed_.clear();
}

std::optional<std::string> HeadlessHost::Setting(std::string_view key) {
  const auto found = settings_.find(key);
  if (found == settings_.end()) return std::nullopt;
  return found->second;
}

void HeadlessHost::SaveSetting(std::string_view key, std::string_view value) {
  settings_.insert_or_assign(std::string(key), std::string(value));
}

std::string HeadlessHost::Today() {
  return std::string(kToday);
}

std::string HeadlessHost::ProgramFolder() {
  return Utf8Of(folder_.path());
}

}  // namespace torvale
