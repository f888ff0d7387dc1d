#include "batch/csv_text.h"

#include <algorithm>

#include "batch/words.h"
#include "files/code_page.h"

namespace torvale {
namespace {

constexpr std::string_view kMark = "\xEF\xBB\xBF";

bool IsBlank(char c) {
  return c == ' ' || c == '\t';
}

}  // namespace

void CsvReader::SkipBlanks() {
  while (!AtCellEnd() && IsBlank(text_[at_])) ++at_;
}

CsvRow CsvReader::Row() {
  const std::size_t begin = at_;
  CsvRow row{line_, {}, {}};
  for (;;) {
    row.cells.push_back(Cell(static_cast<int>(row.cells.size()) + 1));
    if (AtLineEnd()) break;
    ++at_;
  }
  SkipLineEnd();
  row.text = text_.substr(begin, at_ - begin);
  return row;
}

std::string CsvReader::Cell(int column) {
  SkipBlanks();
  if (!AtEnd() && text_[at_] == '"') return Quoted(column);
  const std::size_t begin = at_;
  while (!AtCellEnd()) ++at_;
  std::size_t end = at_;
  while (end > begin && IsBlank(text_[end - 1])) --end;
  return std::string(text_.substr(begin, end - begin));
}

std::string CsvReader::Quoted(int column) {
  const int begun = line_;
  std::string cell;
  for (++at_;; ++at_) {
    if (AtEnd()) throw CsvFault(batch_words::kQuoteNotClosed, begun, column);
    if (text_[at_] == '"') {
      if (at_ + 1 >= text_.size() || text_[at_ + 1] != '"') break;
      ++at_;
    }
    if (text_[at_] == '\n' || (text_[at_] == '\r' && text_.substr(at_, 2) != "\r\n")) ++line_;
    cell += text_[at_];
  }
  ++at_;
  SkipBlanks();
  if (!AtCellEnd()) throw CsvFault(batch_words::kTextBehindQuote, line_, column);
  return cell;
}

void CsvReader::SkipLineEnd() {
  if (AtEnd()) return;
  at_ += text_.substr(at_, 2) == "\r\n" ? 2 : 1;
  ++line_;
}

const std::string& CsvRow::Cell(std::size_t column) const {
  static const std::string kEmpty;
  return column < cells.size() ? cells[column] : kEmpty;
}

bool CsvRow::Empty() const {
  return std::all_of(cells.begin(), cells.end(), [](const std::string& cell) { return cell.empty(); });
}

std::vector<CsvRow> ReadCsv(std::string_view text, char separator) {
  std::vector<CsvRow> rows;
  for (CsvReader reader(text, separator); !reader.AtEnd();) rows.push_back(reader.Row());
  return rows;
}

char SeparatorOf(std::string_view text) {
  bool quoted = false;
  for (const char c : text) {
    if (c == '"') quoted = !quoted;
    if (!quoted && (c == '\t' || c == ';' || c == ',')) return c;
  }
  return ',';
}

std::string TextOfFile(const std::string& bytes) {
  if (bytes.starts_with(kMark)) return bytes.substr(kMark.size());
  return IsUtf8(bytes) ? bytes : FromCodePage(bytes);
}

}  // namespace torvale
