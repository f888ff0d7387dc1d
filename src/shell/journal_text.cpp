#include "shell/journal_text.h"

#include <array>
#include <charconv>
#include <optional>

namespace torvale {
namespace {

constexpr std::string_view kAnyHeading = "TORVALE journal ";
constexpr std::string_view kMoment = "at";
constexpr std::string_view kStored = "stored";
constexpr std::string_view kSheet = "Grid1";

struct NamedPlace {
  std::string_view name;
  int place;
};

constexpr std::array<NamedPlace, 6> kNamedPlaces = {{
    {"PipeKind", PlaceOf(InputKind::kPipe)},
    {"listHolesSelected", PlaceOf(InputKind::kHoles)},
    {"listSoils", PlaceOf(InputKind::kSoil)},
    {"SaveFileName", PlaceOf(InputKind::kFileName, 0)},
    {"OpenedFileName", PlaceOf(InputKind::kFileName, 1)},
    {"DisplayFileName", PlaceOf(InputKind::kFileName, 2)},
}};

std::string KeyOf(int place) {
  if (IsCell(place)) {
    const SheetCell cell = CellAt(place);
    return std::string(kSheet) + " " + std::to_string(cell.row) + " " + std::to_string(cell.column);
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

// The place of a cell that is named by its row and column: "3 2".
std::optional<int> PlaceOfCellNamed(std::string_view key) {
  const std::size_t blank = key.find(' ');
  if (blank == std::string_view::npos) return std::nullopt;
  const auto row = WholeNumber(key.substr(0, blank));
  const auto column = WholeNumber(key.substr(blank + 1));
  if (!row || !column || *row < 1 || *row >= kSurveyGridRows || *column < 0 || *column >= kSurveyColumns) {
    return std::nullopt;
  }
  return PlaceOfCell({*row, *column});
}

std::optional<int> PlaceNamed(std::string_view key) {
  if (key.starts_with(kSheet) && key.size() > kSheet.size()) return PlaceOfCellNamed(key.substr(kSheet.size() + 1));
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
  } else if (const auto place = PlaceNamed(key)) {
    work.texts[static_cast<std::size_t>(*place)] = Unescaped(text);
  }
}

}  // namespace

bool IsJournalOfAnotherForm(std::string_view text) {
  return text.starts_with(kAnyHeading) && !text.starts_with(kJournalHeading);
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
  if (IsJournalOfAnotherForm(text)) return work;
  for (std::size_t end = text.find('\n'); end != std::string_view::npos; end = text.find('\n')) {
    TakeLine(work, text.substr(0, end));
    text.remove_prefix(end + 1);
  }
  return work;
}

}  // namespace torvale
