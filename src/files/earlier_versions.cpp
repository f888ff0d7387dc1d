#include "files/earlier_versions.h"

#include <algorithm>
#include <charconv>
#include <cstdint>
#include <filesystem>
#include <optional>
#include <system_error>

#include "base/format.h"
#include "base/paths.h"
#include "base/platform.h"
#include "files/code_page.h"
#include "files/design_format.h"
#include "files/file_fault.h"
#include "files/file_store.h"
#include "screen/design_types.h"
#include "screen/words.h"

namespace torvale {
namespace {

namespace fs = std::filesystem;

constexpr std::string_view kPathFile = "path.txt";
constexpr std::int64_t kDay = 24LL * 60 * 60 * 1000;  // milliseconds
constexpr std::int64_t kWeek = 7 * kDay;
constexpr std::int64_t kMonth = 30 * kDay;

// A former content on the disk.
struct Stored {
  fs::path path;
  std::int64_t moment = 0;
  std::uintmax_t bytes = 0;
};

fs::path VersionsFolder(Host& host) {
  return PathOf(host.UserDataFolder() + "/versions");
}

// A name for the folder of a file: the hash of its path (Fowler, Noll and Vo, 64 bits, form 1a).
std::string FolderName(std::string_view path) {
  std::uint64_t hash = 14695981039346656037U;
  for (const char c : path) hash = (hash ^ static_cast<unsigned char>(c)) * 1099511628211U;
  std::string digits(16, '0');
  for (auto place = digits.rbegin(); place != digits.rend(); ++place, hash >>= 4U) {
    *place = "0123456789abcdef"[hash & 15U];
  }
  return digits;
}

std::optional<std::string> Content(const fs::path& path) {
  try {
    return ReadBytes(Utf8Of(path));
  } catch (const FileFault&) {
    return std::nullopt;
  }
}

// The moment that a stored content is named by; nothing for other files.
std::optional<std::int64_t> MomentOf(const fs::path& path) {
  const std::string name = Utf8Of(path.stem());
  std::int64_t moment = 0;
  const auto [end, error] = std::from_chars(name.data(), name.data() + name.size(), moment);
  if (error != std::errc() || end != name.data() + name.size()) return std::nullopt;
  return moment;
}

bool NewestFirst(const Stored& a, const Stored& b) {
  return a.moment > b.moment;
}

std::vector<Stored> StoredIn(const fs::path& folder) {
  std::vector<Stored> found;
  std::error_code ignored;
  for (const fs::directory_entry& entry : fs::directory_iterator(folder, ignored)) {
    const auto moment = MomentOf(entry.path());
    if (!moment || !entry.is_regular_file(ignored)) continue;
    found.push_back({entry.path(), *moment, entry.file_size(ignored)});
  }
  std::sort(found.begin(), found.end(), NewestFirst);
  return found;
}

std::vector<fs::path> Folders(Host& host) {
  std::vector<fs::path> folders;
  if (host.UserDataFolder().empty()) return folders;
  std::error_code ignored;
  for (const fs::directory_entry& entry : fs::directory_iterator(VersionsFolder(host), ignored)) {
    if (entry.is_directory(ignored)) folders.push_back(entry.path());
  }
  return folders;
}

void Remove(const fs::path& path) {
  std::error_code ignored;
  fs::remove(path, ignored);
}

// The span of time of which one version is kept, by its age; 0 where all are.
std::int64_t SpanOf(std::int64_t age) {
  if (age < kDay) return 0;
  return age < kMonth ? kDay : kWeek;
}

// Of the versions of one file, the newest first, those to go.
void Thin(const std::vector<Stored>& stored, std::int64_t now, std::size_t most) {
  std::size_t kept = 0;
  std::int64_t last_span = -1;  // of the version kept last, and ...
  std::int64_t last_part = 0;   // ... which of the spans it lies in
  for (const Stored& version : stored) {
    const std::int64_t span = SpanOf(now - version.moment);
    const std::int64_t part = span == 0 ? 0 : version.moment / span;
    const bool repeats = span != 0 && span == last_span && part == last_part;
    if (repeats || kept == most) {
      Remove(version.path);
      continue;
    }
    ++kept;
    last_span = span;
    last_part = part;
  }
}

void HoldToSize(Host& host, std::size_t most) {
  std::vector<Stored> all;
  for (const fs::path& folder : Folders(host)) {
    const std::vector<Stored> stored = StoredIn(folder);
    all.insert(all.end(), stored.begin(), stored.end());
  }
  std::sort(all.begin(), all.end(), NewestFirst);
  std::uintmax_t sum = 0;
  for (const Stored& version : all) {
    sum += version.bytes;
    if (sum > most) Remove(version.path);
  }
}

bool IsPath(const std::string& text) {
  return !text.empty() && IsUtf8(text) && IsWholePath(PathOf(text)) && text.find('\0') == std::string::npos;
}

// Where it isn't known any more which file a content is of: a file of the design's name among the user's data.
std::string NameWithoutFile(Host& host, const fs::path& stored, const EarlierVersion& version) {
  std::string name = version.name;
  std::replace_if(
      name.begin(), name.end(), [](char c) { return c == '/' || c == '\\' || c == ':'; }, '-');
  return host.UserDataFolder() + "/" + (name.empty() ? "Unknown file" : name) + Utf8Of(stored.extension());
}

// The facts of a design as the list shows them; of a content that is none the name stays empty.
void Describe(std::string_view content, EarlierVersion& version) {
  const DesignHead head = ReadDesignHead(FromCodePage(content));
  version.name = head.name;
  version.type = NameOfKind(head.type);
  if (head.uniformity > 0) version.uniformity = Format(head.uniformity, "##.0");
}

// Writes the content under a moment that has no content yet.
void Store(Program& program, const fs::path& folder, const std::string& file, std::string_view content) {
  const fs::path paths = folder / kPathFile;
  std::error_code error;
  fs::create_directories(folder, error);
  if (error) throw FileFault{NumberOf(error)};
  if (Content(paths) != file) WriteBytes(program, Utf8Of(paths), file);
  std::int64_t moment = program.host.Clock();
  const auto name = [&] { return folder / PathOf(std::to_string(moment) + Utf8Of(PathOf(file).extension())); };
  while (fs::exists(name(), error)) ++moment;
  WriteBytes(program, Utf8Of(name()), content);
}

bool IsNewest(const fs::path& folder, std::string_view content) {
  const std::vector<Stored> stored = StoredIn(folder);
  return !stored.empty() && stored.front().bytes == content.size() && Content(stored.front().path) == content;
}

// The name of the design that a save goes over, where it is another.
std::string OtherName(std::string_view former, std::string_view bytes) {
  const std::string before = ReadDesignHead(FromCodePage(former)).name;
  return before == ReadDesignHead(FromCodePage(bytes)).name ? "" : before;
}

}  // namespace

std::string TruePath(const std::string& path) {
  return Utf8Of(ResolvedPath(PathOf(path)));
}

SpokenSentence KeepEarlierVersion(Program& program, const std::string& path, std::string_view bytes,
                                  const VersionLimits& limits) {
  if (program.host.UserDataFolder().empty()) return {};
  const std::string file = TruePath(path);
  std::error_code ignored;
  if (!fs::is_regular_file(PathOf(file), ignored)) return {};
  const auto former = Content(PathOf(file));
  if (!former || former->empty() || *former == bytes) return {};
  const fs::path folder = VersionsFolder(program.host) / FolderName(file);
  try {
    if (!IsNewest(folder, *former)) Store(program, folder, file, *former);
  } catch (const FileFault& fault) {
    return words::kFormerContentNotKept(WhyNotWritten(fault.number));
  }
  Thin(StoredIn(folder), program.host.Clock(), limits.of_one_file);
  HoldToSize(program.host, limits.bytes);
  const std::string other = OtherName(*former, bytes);
  if (other.empty()) return {};
  return words::kSavedOverAnother(other);
}

std::vector<EarlierVersion> EarlierVersions(Host& host) {
  std::vector<std::vector<EarlierVersion>> files;
  for (const fs::path& folder : Folders(host)) {
    const std::string file = Content(folder / kPathFile).value_or("");
    std::vector<EarlierVersion> versions;
    for (const Stored& stored : StoredIn(folder)) {
      const auto content = Content(stored.path);
      if (!content) continue;
      EarlierVersion& version = versions.emplace_back();
      version.stored = Utf8Of(stored.path);
      version.moment = stored.moment;
      Describe(*content, version);
      version.file = IsPath(file) ? file : NameWithoutFile(host, stored.path, version);
    }
    if (!versions.empty()) files.push_back(std::move(versions));
  }
  std::sort(files.begin(), files.end(), [](const auto& a, const auto& b) {
    return a.front().moment != b.front().moment ? a.front().moment > b.front().moment : a.front().file < b.front().file;
  });
  std::vector<EarlierVersion> all;
  for (std::vector<EarlierVersion>& versions : files) {
    all.insert(all.end(), std::make_move_iterator(versions.begin()), std::make_move_iterator(versions.end()));
  }
  return all;
}

}  // namespace torvale
