#include "batch/papers.h"

#include <array>
#include <optional>
#include <string_view>
#include <system_error>

#include "base/paths.h"
#include "base/utf8.h"
#include "batch/content_hash.h"
#include "batch/pdf_writer.h"
#include "batch/text_files.h"
#include "files/design_files.h"
#include "screen/design_types.h"
#include "shell/commands.h"
#include "shell/events.h"
#include "shell/stakes.h"

namespace torvale {
namespace {

struct ReportFile {
  std::string_view command;
  std::string_view name;
};
constexpr std::array<ReportFile, 3> kReports = {
    {{"mnuExportPdf(0)", "summary"}, {"mnuExportPdf(1)", "complete"}, {"mnuExportPdf(2)", "holes"}}};
constexpr std::array<ReportFile, 2> kTables = {{{"mnuExportCsv", "table"}, {"mnuExportHoleCsv", "holes"}}};

constexpr ReportFile kPhonePage = {"mnuExportPhone", "phone"};
constexpr ReportFile kStakesTable = {"btnCsvStakes", "stakes"};
constexpr ReportFile kStakesReport = {"btnPdfStakes", "stakes"};

// One design.
class PaperWriter {
 public:
  PaperWriter(QuietProgram& quiet, const Papers& asked, const std::filesystem::path& out_folder, const FieldRow& field)
      : quiet_(quiet),
        asked_(asked),
        out_folder_(out_folder),
        field_(field),
        kind_(*FindDesignKind(quiet.program().record.DesignType)),
        start_(FolderOf(field) + "/" + std::string(kind_.key)) {}

  WrittenPapers Write() {
    std::error_code error;
    std::filesystem::create_directories((out_folder_ / PathOf(start_)).parent_path(), error);
    quiet_.host().told.clear();
    quiet_.program().record.DisplayFileName = start_ + std::string(kind_.extension);
    if (asked_.designs) Design();
    MenuOpened(quiet_.program(), "mnuFile");
    if (asked_.tables) {
      for (const ReportFile& table : kTables) Export(table, ".csv");
    }
    if (asked_.reports) {
      for (const ReportFile& report : kReports) Export(report, ".pdf");
    }
    if (asked_.phone) Export(kPhonePage, ".html");
    if (asked_.stakes && IsSlopeDesign(quiet_.program().record)) Stakes();
    for (const Told& message : quiet_.host().told) written_.trouble.push_back(message.body);
    return std::move(written_);
  }

 private:
  std::string Full(const std::string& name) const { return Utf8Of(out_folder_ / PathOf(name)); }

  void Keep(const std::string& name) {
    ContentHash hash;
    hash.Add(ReadTextFile(out_folder_ / PathOf(name)));
    written_.files.emplace_back(name, hash.value());
  }

  void Design() {
    Program& program = quiet_.program();
    program.record.SaveFileName = Full(program.record.DisplayFileName);
    SaveFile(program);
    if (quiet_.host().told.empty()) Keep(program.record.DisplayFileName);
  }

  void Stakes() {
    StakesScreen& screen = quiet_.program().stakes;
    screen.txtStakeInterval.Set(field_.stake_interval.empty() ? kUsualStakeInterval : field_.stake_interval);
    screen.txtCrownWidth.Set(field_.crown_width);
    Click(quiet_.program(), "mnuStakes");
    Export(kStakesTable, ".csv");
    Export(kStakesReport, ".pdf");
    Click(quiet_.program(), "btnCloseStakes");
  }

  void Export(const ReportFile& report, std::string_view extension) {
    const std::string name = start_ + " " + std::string(report.name) + std::string(extension);
    const std::size_t told = quiet_.host().told.size();
    quiet_.host().save_as = Full(name);
    quiet_.host().write_pdf = [](const Document& document, const std::string& path) {
      const std::optional<std::string> bytes = PdfOf(document);
      if (bytes) WriteTextFile(PathOf(path), *bytes);
      return bytes.has_value();
    };
    Click(quiet_.program(), report.command);
    if (quiet_.host().told.size() == told) Keep(name);
  }

  QuietProgram& quiet_;
  const Papers& asked_;
  const std::filesystem::path& out_folder_;
  const FieldRow& field_;
  const DesignKind& kind_;
  std::string start_;  // of the names of its files
  WrittenPapers written_;
};

}  // namespace

std::string FolderOf(const FieldRow& field) {
  constexpr std::size_t kDigits = 5;
  constexpr std::size_t kLongest = 60;
  std::string number = std::to_string(field.number);
  if (number.size() < kDigits) number.insert(0, kDigits - number.size(), '0');
  std::string name;
  for (const char c : field.name) {
    const bool plain = (c >= '0' && c <= '9') || (c >= 'a' && c <= 'z') || (c >= 'A' && c <= 'Z') || c == '-' ||
                       static_cast<unsigned char>(c) >= 0x80;
    name += plain ? c : '_';
  }
  if (name.size() > kLongest) {
    std::size_t end = kLongest;
    while (end > 0 && ContinuesCharacter(name[end])) --end;
    name.resize(end);
  }
  return name.empty() ? number : number + "-" + name;
}

WrittenPapers WritePapers(QuietProgram& quiet, const Papers& asked, const std::filesystem::path& out_folder,
                          const FieldRow& field) {
  return PaperWriter(quiet, asked, out_folder, field).Write();
}

}  // namespace torvale
