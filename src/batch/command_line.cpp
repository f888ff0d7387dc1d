#include "batch/command_line.h"

#include <CLI/CLI.hpp>
#include <algorithm>
#include <chrono>
#include <filesystem>
#include <sstream>
#include <string>
#include <vector>

#include "base/paths.h"
#include "base/platform_processor.h"
#include "base/version.h"
#include "batch/field_table.h"
#include "batch/merge.h"
#include "batch/text_files.h"
#include "batch/words.h"

namespace torvale {
namespace {

constexpr const char* kAbout =
    "Works out designs for a table of fields, as many at a time as there are processors.\n"
    "The table of results is OUT/results.csv. Made again, the command does only what is missing or changed.";

std::string Footer() {
  std::ostringstream text;
  text << "Columns of the table of fields, all but survey may be left out:\n";
  for (const FieldColumnHelp& column : FieldColumns()) {
    text << "  " << column.name << std::string(22 - std::min<std::size_t>(21, column.name.size()), ' ') << column.what
         << '\n';
  }
  text << "\nExit status: 0 all designs done; 1 something refused or failed, the results say what; 2 command line or "
          "table\nnot understood; 3 results not written; 130 stopped by Ctrl+C.\n\n"
          "Examples:\n"
          "  torvale_batch fields.csv --out results\n"
          "  torvale_batch fields.csv --out results --write designs,tables,reports --data /usr/share/torvale\n"
          "  torvale_batch fields.csv --out results --shard 3/40\n"
          "  torvale_batch merge results/results.csv results/results-*-of-40.csv\n";
  return text.str();
}

// "3/40"; throws the library's fault where it is no part.
Shard ShardOf(const std::string& text) {
  Shard shard;
  std::istringstream in(text);
  char slash = 0;
  const bool whole = static_cast<bool>(in >> shard.part >> slash >> shard.parts) && slash == '/' && in.peek() == EOF;
  if (!whole || shard.part < 1 || shard.parts < shard.part) {
    throw CLI::ValidationError("--shard", batch_words::kNoSuchPart(text).text());
  }
  return shard;
}

Papers PapersOf(const std::vector<std::string>& words) {
  Papers papers;
  for (const std::string& word : words) {
    papers.designs = papers.designs || word == "designs";
    papers.tables = papers.tables || word == "tables";
    papers.reports = papers.reports || word == "reports";
    papers.phone = papers.phone || word == "phone";
    papers.stakes = papers.stakes || word == "stakes";
  }
  return papers;
}

// The command line as it is declared, and what it was given.
struct CommandLine {
  CommandLine() {
    app.set_version_flag("--version", "torvale_batch " + ProgramVersion());
    app.footer(Footer());
    app.add_option("TABLE", table, "Table of fields (CSV)");
    app.add_option("-o,--out", out_folder, "Folder of the results; made where it is missing")->type_name("DIR");
    app.add_option(
           "-w,--write", papers,
           "For each design also: designs (design files), tables (CSV), reports (PDF), phone (HTML page), stakes "
           "(of slope designs, CSV and PDF)")
        ->delimiter(',')
        ->check(CLI::IsMember({"designs", "tables", "reports", "phone", "stakes"}))
        ->type_name("LIST");
    app.add_option("-j,--threads", threads, "Fields at a time; as many as there are processors where it is left out")
        ->check(CLI::Range(1, 1024))
        ->type_name("N");
    app.add_option("--limit", limit, "Longest time for one field, seconds")
        ->capture_default_str()
        ->check(CLI::PositiveNumber)
        ->type_name("SECONDS");
    app.add_option("--shard", shard, "Work the I-th of N parts of the table, into OUT/results-I-of-N.csv")
        ->type_name("I/N");
    app.add_option("--data", data_folder,
                   "Folder of the defaults file, the list of soils and the safe heads; none where it is left out")
        ->check(CLI::ExistingDirectory)
        ->type_name("DIR");
    app.add_flag("--fresh", fresh, "Use nothing of an earlier run");
    app.add_option("--progress", progress, "auto, bar, lines or none")
        ->capture_default_str()
        ->check(CLI::IsMember({"auto", "bar", "lines", "none"}))
        ->type_name("KIND");
    merge = app.add_subcommand("merge", "Join tables of results into one, in the order of the fields");
    merge->add_option("JOINED", joined, "Table to write")->required();
    merge->add_option("PART", parts, "Tables to join")->required();
  }

  CLI::App app{kAbout, "torvale_batch"};
  CLI::App* merge = nullptr;
  std::string table, out_folder, data_folder, shard, joined;
  std::string progress = "auto";
  std::vector<std::string> papers, parts;
  int threads = 0;
  double limit = 300;
  bool fresh = false;
};

Progress::Kind ProgressKind(const std::string& word, bool terminal) {
  if (word == "none") return Progress::Kind::kNone;
  if (word == "bar" || (word == "auto" && terminal)) return Progress::Kind::kBar;
  return Progress::Kind::kLines;
}

BatchOptions OptionsOf(const CommandLine& line, bool terminal) {
  BatchOptions options;
  options.table = PathOf(line.table);
  options.out_folder = PathOf(line.out_folder);
  options.data_folder = line.data_folder;
  options.papers = PapersOf(line.papers);
  if (!line.shard.empty()) options.shard = ShardOf(line.shard);
  options.pool.threads = line.threads > 0 ? line.threads : ProcessorThreads();
  options.pool.limit = std::chrono::milliseconds(static_cast<long long>(line.limit * 1000));
  options.fresh = line.fresh;
  options.progress = ProgressKind(line.progress, terminal);
  return options;
}

}  // namespace

BatchEnd RunCommandLine(int argc, const char* const* argv, bool terminal, const std::function<bool()>& go_on,
                        std::ostream& out, std::ostream& errors) {
  CommandLine line;
  try {
    line.app.parse(argc, argv);
    if (line.merge->parsed()) {
      std::vector<std::filesystem::path> parts;
      for (const std::string& part : line.parts) parts.push_back(PathOf(part));
      return {MergeResults(parts, PathOf(line.joined), out, errors), false};
    }
    if (line.table.empty()) throw CLI::RequiredError("TABLE");
    if (line.out_folder.empty()) throw CLI::RequiredError("--out");
    return RunBatch(OptionsOf(line, terminal), go_on, out, errors);
  } catch (const CLI::ParseError& error) {
    return {line.app.exit(error, out, errors) == 0 ? kBatchDone : kBatchNotUnderstood, false};
  }
}

}  // namespace torvale
