#include "shell/journal.h"

#include <algorithm>
#include <cerrno>
#include <charconv>
#include <filesystem>
#include <optional>
#include <utility>

#include "base/paths.h"
#include "files/file_fault.h"
#include "files/file_store.h"

namespace torvale {
namespace {

namespace fs = std::filesystem;

constexpr std::string_view kEnding = ".journal";
constexpr std::size_t kLongJournal = std::size_t{4} << 20U;  // bytes; far below what can be read again
constexpr std::int64_t kDay = 24LL * 60 * 60 * 1000;         // milliseconds
constexpr int kMostNames = 1000;
constexpr std::size_t kMostLostWorks = 20;

// A step of the disk that a test may let fail.
template <typename Work>
int Take(Host& host, DiskStep step, const std::string& path, const Work& work) {
  const int error = host.BeforeDiskStep(step, PathOf(path));
  return error != 0 ? error : work();
}

int MakeFolder(Host& host, const std::string& folder) {
  return Take(host, DiskStep::kMakeFolder, folder, [&] {
    std::error_code error;
    fs::create_directories(PathOf(folder), error);
    return NumberOf(error);
  });
}

// A file of its own for this program, held by its lock.
int Begin(Host& host, Journal& journal) {
  const std::string folder = JournalFolder(host);
  if (const int error = MakeFolder(host, folder); error != 0) return error;
  const std::string name = folder + "/" + std::to_string(host.Clock()) + "-" + std::to_string(ProcessNumber());
  int error = EEXIST;
  for (int i = 0; i < kMostNames && (error == EEXIST || error == EWOULDBLOCK); ++i) {
    journal.path = name + (i == 0 ? "" : "-" + std::to_string(i)) + std::string(kEnding);
    error = Take(host, DiskStep::kCreate, journal.path, [&] {
      const int made = journal.file.Create(PathOf(journal.path), true);
      return made != 0 ? made : journal.file.Hold();
    });
  }
  return error;
}

int Append(Host& host, Journal& journal, std::string_view text) {
  const int error = Take(host, DiskStep::kWrite, journal.path, [&] { return journal.file.Write(text); });
  if (error == 0) journal.size += text.size();
  return error;
}

// A new journal in the place of the one that there is, which stays where that fails.
int BeginAnew(Host& host, Journal& journal, const InputTexts& now, bool stored) {
  Journal next;
  int error = Begin(host, next);
  if (error == 0) {
    error = Append(host, next, std::string(kJournalHeading) + JournalText(next.written, now, stored, host.Clock()));
  }
  RemoveJournal(error == 0 ? journal : next);
  if (error == 0) journal = std::move(next);
  return error;
}

int WriteOn(Host& host, Journal& journal, const InputTexts& now, bool stored) {
  return Append(host, journal, JournalText(journal.written, now, stored, host.Clock()));
}

// When the journal was begun, which its name tells.
std::int64_t BeginningOf(const fs::path& path) {
  const std::string name = Utf8Of(path.filename());
  std::int64_t made = 0;
  std::from_chars(name.data(), name.data() + name.size(), made);
  return made;
}

// Too young to be called left behind: its program may be about to write it.
bool IsYoung(Host& host, const fs::path& path) {
  return host.Clock() - BeginningOf(path) < kDay;
}

bool HoldsText(const LostWork& work) {
  return std::any_of(work.texts.begin(), work.texts.end(), [](const std::string& text) { return !text.empty(); });
}

// What a journal that nobody holds comes to; nothing where its program lives, or where it holds nothing.
std::optional<LostWork> LookInto(Host& host, const fs::path& path) {
  OutputFile file;
  if (file.OpenAsItIs(path) != 0 || file.Hold() != 0) return std::nullopt;
  file.Close();
  LostWork work;
  try {
    const std::string text = ReadBytes(Utf8Of(path));
    if (IsJournalOfAnotherForm(text)) return std::nullopt;
    work = ReadJournal(text);
  } catch (const FileFault&) {
    return std::nullopt;
  }
  work.path = Utf8Of(path);
  // The lines that tell the moment may be damaged and others not.
  if (work.moment == 0 && HoldsText(work)) work.moment = std::max<std::int64_t>(BeginningOf(path), 1);
  const bool nothing = work.moment == 0;
  if (work.stored || (nothing && !IsYoung(host, path))) RemoveLostWork(work);
  return work.stored || nothing ? std::nullopt : std::optional(std::move(work));
}

}  // namespace

std::string JournalFolder(Host& host) {
  return host.UserDataFolder() + "/journal";
}

int WriteJournal(Host& host, Journal& journal, const InputTexts& now, bool stored) {
  if (host.UserDataFolder().empty()) return 0;
  const bool open = journal.file.IsOpen();
  if (!journal.broken && (open ? journal.written == now && journal.stored == stored : stored)) return 0;
  const bool goes_on = open && !journal.broken && journal.size < kLongJournal;
  const int error = goes_on ? WriteOn(host, journal, now, stored) : BeginAnew(host, journal, now, stored);
  journal.moment = host.Clock();
  journal.broken = error != 0;
  if (error != 0) return error;
  journal.written = now;
  journal.stored = stored;
  journal.unflushed = true;
  return 0;
}

int FlushJournal(Host& host, Journal& journal) {
  if (!std::exchange(journal.unflushed, false)) return 0;
  return Take(host, DiskStep::kFlush, journal.path, [&] { return journal.file.Flush(); });
}

void LeaveJournal(Journal& journal) {
  journal.file.Close();
  journal.broken = false;
  journal.unflushed = false;
}

void RemoveJournal(Journal& journal) {
  if (!journal.file.IsOpen()) return;
  LeaveJournal(journal);
  std::error_code ignored;
  fs::remove(PathOf(journal.path), ignored);
}

std::vector<LostWork> FindLostWork(Host& host) {
  std::vector<LostWork> found;
  if (host.UserDataFolder().empty()) return found;
  std::error_code ignored;
  for (const fs::directory_entry& entry : fs::directory_iterator(PathOf(JournalFolder(host)), ignored)) {
    if (Utf8Of(entry.path().extension()) != kEnding) continue;
    if (auto work = LookInto(host, entry.path())) found.push_back(std::move(*work));
  }
  std::sort(found.begin(), found.end(), [](const LostWork& a, const LostWork& b) {
    return a.moment != b.moment ? a.moment > b.moment : a.path > b.path;
  });
  for (; found.size() > kMostLostWorks; found.pop_back()) RemoveLostWork(found.back());
  return found;
}

bool RemoveLostWork(const LostWork& work) {
  {
    OutputFile file;
    if (file.OpenAsItIs(PathOf(work.path)) != 0 || file.Hold() != 0) return false;
  }
  std::error_code error;
  fs::remove(PathOf(work.path), error);
  return !error;
}

}  // namespace torvale
