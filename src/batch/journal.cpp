#include "batch/journal.h"

#include <algorithm>
#include <charconv>
#include <istream>
#include <ostream>
#include <string>
#include <string_view>
#include <vector>

#include "batch/content_hash.h"
#include "batch/text_files.h"
#include "batch/words.h"

namespace torvale {
namespace {

// field NUMBER KEY END FILES BYTES
// HASH NAME           for each file
// rows, so many bytes
// end
constexpr std::string_view kEnd = "end\n";
constexpr std::size_t kMostFiles = 1000;
constexpr std::size_t kMostBytes = std::size_t{16} << 20U;

template <typename Number>
bool Take(std::string_view& line, Number& number, int base = 10) {
  const auto [end, error] = std::from_chars(line.data(), line.data() + line.size(), number, base);
  if (error != std::errc()) return false;
  line.remove_prefix(static_cast<std::size_t>(end - line.data()));
  if (line.starts_with(' ')) line.remove_prefix(1);
  return true;
}

struct Heading {
  int number = 0;
  std::uint64_t key = 0;
  int end = 0;
  std::size_t files = 0;
  std::size_t bytes = 0;
};

// A whole entry from here on, or nothing.
std::optional<FieldOutcome> ReadEntry(std::istream& file, Heading& heading) {
  std::string line;
  if (!std::getline(file, line) || !line.starts_with("field ")) return std::nullopt;
  std::string_view rest = std::string_view(line).substr(6);
  const bool whole = Take(rest, heading.number) && Take(rest, heading.key, 16) && Take(rest, heading.end) &&
                     Take(rest, heading.files) && Take(rest, heading.bytes);
  if (!whole || heading.end < 0 || heading.end > 2 || heading.files > kMostFiles || heading.bytes > kMostBytes) {
    return std::nullopt;
  }
  FieldOutcome outcome;
  outcome.end = static_cast<FieldEnd>(heading.end);
  for (std::size_t i = 0; i < heading.files; ++i) {
    std::uint64_t hash = 0;
    if (!std::getline(file, line)) return std::nullopt;
    rest = line;
    if (!Take(rest, hash, 16)) return std::nullopt;
    outcome.files.emplace_back(rest, hash);
  }
  outcome.rows.resize(heading.bytes);
  if (!file.read(outcome.rows.data(), static_cast<std::streamsize>(heading.bytes))) return std::nullopt;
  std::string end(kEnd.size(), '\0');
  if (!file.read(end.data(), static_cast<std::streamsize>(end.size())) || end != kEnd) return std::nullopt;
  return outcome;
}

bool StandsAsWritten(const FieldOutcome& outcome, const std::filesystem::path& folder) {
  return std::all_of(outcome.files.begin(), outcome.files.end(), [&](const auto& file) {
    try {
      ContentHash hash;
      hash.Add(ReadTextFile(folder / PathOf(file.first)));
      return hash.value() == file.second;
    } catch (const TextFileFault&) {
      return false;
    }
  });
}

}  // namespace

Journal::Journal(const std::filesystem::path& path) : path_(path) {
  Open();
  // A run that was killed has compacted nothing.
  if (end_ > 2 * newest_) Compact();
}

void Journal::Open() {
  entries_.clear();
  end_ = newest_ = 0;
  file_.open(path_, std::ios::binary | std::ios::in | std::ios::out);
  if (!file_.is_open()) {
    std::ofstream(path_, std::ios::binary).flush();
    file_.open(path_, std::ios::binary | std::ios::in | std::ios::out);
  }
  if (!file_.is_open()) throw TextFileFault(batch_words::kNotWritten().text());
  Heading heading;
  while (ReadEntry(file_, heading)) {
    const std::streamoff after = file_.tellg();
    Take(heading.number, {heading.key, end_, after - end_});
    end_ = after;
  }
  file_.clear();
}

void Journal::Take(int number, const Entry& entry) {
  Entry& newest = entries_[number];
  newest_ += entry.bytes - newest.bytes;
  newest = entry;
}

bool Journal::WriteNewest(std::ostream& out) const {
  std::vector<Entry> newest;
  newest.reserve(entries_.size());
  for (const auto& [number, entry] : entries_) newest.push_back(entry);
  std::sort(newest.begin(), newest.end(), [](const Entry& a, const Entry& b) { return a.at < b.at; });
  std::ifstream file(path_, std::ios::binary);
  std::string bytes;
  for (const Entry& entry : newest) {
    bytes.resize(static_cast<std::size_t>(entry.bytes));
    file.seekg(entry.at);
    if (!file.read(bytes.data(), entry.bytes)) return false;
    out << bytes;
  }
  return true;
}

void Journal::Compact() {
  if (newest_ == end_) return;
  // A file that is open can't be replaced on every system.
  file_.close();
  try {
    WriteTextFile(path_, [&](std::ostream& out) {
      if (!WriteNewest(out)) out.setstate(std::ios::failbit);
    });
  } catch (const TextFileFault&) {
    // What is old stays beside what is new.
  }
  Open();
}

std::optional<FieldOutcome> Journal::ReadAt(std::streamoff at) {
  Heading heading;
  file_.clear();
  file_.seekg(at);
  return ReadEntry(file_, heading);
}

std::optional<FieldOutcome> Journal::Find(int number, std::uint64_t key, const std::filesystem::path& out_folder) {
  const auto found = entries_.find(number);
  if (found == entries_.end() || found->second.key != key) return std::nullopt;
  std::optional<FieldOutcome> outcome = ReadAt(found->second.at);
  if (!outcome || outcome->end == FieldEnd::kOutOfTime || !StandsAsWritten(*outcome, out_folder)) return std::nullopt;
  return outcome;
}

std::optional<FieldOutcome> Journal::Last(int number) {
  const auto found = entries_.find(number);
  if (found == entries_.end()) return std::nullopt;
  return ReadAt(found->second.at);
}

void Journal::Add(int number, std::uint64_t key, const FieldOutcome& outcome) {
  std::string text = "field " + std::to_string(number) + " " + HexText(key) + " " +
                     std::to_string(static_cast<int>(outcome.end)) + " " + std::to_string(outcome.files.size()) + " " +
                     std::to_string(outcome.rows.size()) + "\n";
  for (const auto& [name, hash] : outcome.files) text += HexText(hash) + " " + name + "\n";
  text += outcome.rows;
  text += kEnd;
  file_.clear();
  file_.seekp(end_);
  file_.write(text.data(), static_cast<std::streamsize>(text.size()));
  file_.flush();
  if (!file_) throw TextFileFault(batch_words::kNotWritten().text());
  const auto bytes = static_cast<std::streamoff>(text.size());
  Take(number, {key, end_, bytes});
  end_ += bytes;
}

}  // namespace torvale
