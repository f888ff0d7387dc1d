#include "shell/journal.h"

#include <algorithm>
#include <array>
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

constexpr std::string_view kAnyHeading = "TORVALE journal ";
constexpr std::string_view kHeading = "TORVALE journal 1\n";
constexpr std::string_view kEnding = ".journal";
constexpr std::string_view kMoment = "at";
constexpr std::string_view kStored = "stored";
constexpr std::string_view kSheet = "Grid1";
constexpr std::size_t kLongJournal = std::size_t{4} << 20U;  // bytes; far below what can be read again
constexpr std::int64_t kDay = 24LL * 60 * 60 * 1000;         // milliseconds
constexpr int kMostNames = 1000;
constexpr std::size_t kMostLostWorks = 20;

struct NamedPlace {
  std::string_view name;
  int place;
};

constexpr std::array<NamedPlace, 6> kNamedPlaces = {{
    {"PipeKind", kPipePlace},
    {"listHolesSelected", kHolesPlace},
    {"listSoils", kSoilPlace},
    {"SaveFileName", kNamePlace},
    {"OpenedFileName", kNamePlace + 1},
    {"DisplayFileName", kNamePlace + 2},
}};

std::string KeyOf(int place) {
  if (place < kSheetPlaces) {
    return std::string(kSheet) + " " + std::to_string(place / kSurveyColumns + 1) + " " +
           std::to_string(place % kSurveyColumns);
  }
  for (const NamedPlace& named : kNamedPlaces) {
    if (named.place == place) return std::string(named.name);
  }
  return ControlOfPlace(place);
}

std::optional<int> WholeNumber(std::string_view text) {
  int number = 0;
  const auto [end, error] = std::from_chars(text.data(), text.data() + text.size(), number);
  if (error != std::errc() || end != text.data() + text.size()) return std::nullopt;
  return number;
}

// The place of a cell: "3 2".
std::optional<int> CellOf(std::string_view key) {
  const std::size_t blank = key.find(' ');
  if (blank == std::string_view::npos) return std::nullopt;
  const auto row = WholeNumber(key.substr(0, blank));
  const auto column = WholeNumber(key.substr(blank + 1));
  if (!row || !column || *row < 1 || *row >= kSurveyGridRows || *column < 0 || *column >= kSurveyColumns) {
    return std::nullopt;
  }
  return CellPlace(*row, *column);
}

std::optional<int> PlaceOf(std::string_view key) {
  if (key.starts_with(kSheet) && key.size() > kSheet.size()) return CellOf(key.substr(kSheet.size() + 1));
  for (const NamedPlace& named : kNamedPlaces) {
    if (named.name == key) return named.place;
  }
  const int field = FieldPlace(key);
  return field < 0 ? std::nullopt : std::optional(field);
}

// A text on one line.
std::string Escaped(std::string_view text) {
  std::string out;
  for (const char c : text) {
    if (c == '\\') {
      out += "\\\\";
    } else if (c == '\n') {
      out += "\\n";
    } else {
      out += c;
    }
  }
  return out;
}

std::string Unescaped(std::string_view text) {
  std::string out;
  for (std::size_t i = 0; i < text.size(); ++i) {
    if (text[i] == '\\' && i + 1 < text.size()) {
      ++i;
      out += text[i] == 'n' ? '\n' : text[i];
    } else {
      out += text[i];
    }
  }
  return out;
}

void TakeLine(LostWork& work, std::string_view line) {
  const std::size_t tab = line.find('\t');
  const std::string_view key = line.substr(0, tab);
  const std::string_view text = tab == std::string_view::npos ? std::string_view() : line.substr(tab + 1);
  // It counts at the very end alone; a line that is damaged may be one of work.
  work.stored = key == kStored;
  if (key == kMoment) {
    std::from_chars(text.data(), text.data() + text.size(), work.moment);
  } else if (const auto place = PlaceOf(key)) {
    work.texts[static_cast<std::size_t>(*place)] = Unescaped(text);
  }
}

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
    error = Append(host, next, std::string(kHeading) + JournalText(next.written, now, stored, host.Clock()));
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

// A form of journal that a later version of the program may have.
bool IsOfAnotherForm(std::string_view text) {
  return text.starts_with(kAnyHeading) && !text.starts_with(kHeading);
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
    if (IsOfAnotherForm(text)) return std::nullopt;
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

std::string JournalText(const InputTexts& before, const InputTexts& now, bool stored, std::int64_t moment) {
  std::string text;
  for (int place = 0; place < kInputPlaces; ++place) {
    const std::string& known = before[static_cast<std::size_t>(place)];
    const std::string& wanted = now[static_cast<std::size_t>(place)];
    if (known != wanted) text.append(KeyOf(place)).append("\t").append(Escaped(wanted)).append("\n");
  }
  text.append(kMoment).append("\t").append(std::to_string(moment)).append("\n");
  if (stored) text.append(kStored).append("\n");
  return text;
}

LostWork ReadJournal(std::string_view text) {
  LostWork work;
  if (IsOfAnotherForm(text)) return work;
  for (std::size_t end = text.find('\n'); end != std::string_view::npos; end = text.find('\n')) {
    TakeLine(work, text.substr(0, end));
    text.remove_prefix(end + 1);
  }
  return work;
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
