#include <gtest/gtest.h>

#include <algorithm>
#include <cstdlib>
#include <filesystem>
#include <fstream>
#include <sstream>

#include "script/runner.h"
#include "support/elsewhere.h"
#include "support/file_bytes.h"
#include "support/source_folder.h"
#include "support/without_folder.h"

namespace torvale {
namespace {

namespace fs = std::filesystem;

// With this variable set to 1 the transcripts that come out become the expected ones. Read the change before you commit
// it: what is wrong in a transcript that is accepted stays wrong.
bool Accepting() {
  const char* value = std::getenv("TORVALE_ACCEPT");
  return value != nullptr && std::string(value) == "1";
}

std::vector<fs::path> ScriptFiles() {
  std::vector<fs::path> files;
  for (const char* folder : {"tests/scripts", "data/samples"}) {
    for (const auto& entry : fs::directory_iterator(fs::path(kSourceFolder) / folder)) {
      if (entry.path().extension() == ".script") files.push_back(entry.path());
    }
  }
  std::sort(files.begin(), files.end());
  return files;
}

std::vector<std::string> LinesOf(std::istream& in) {
  std::vector<std::string> lines;
  for (std::string line; std::getline(in, line);) lines.push_back(line);
  return lines;
}

std::string TestName(const testing::TestParamInfo<fs::path>& info) {
  std::string name = info.param.parent_path().filename().string() + "_" + info.param.stem().string();
  std::replace_if(
      name.begin(), name.end(), [](unsigned char c) { return std::isalnum(c) == 0; }, '_');
  return name;
}

// A sample is there to be opened: what its script saves in the current folder lies beside it, byte for byte.
void CheckSamples(const fs::path& script) {
  if (script.parent_path().filename() != "samples") return;
  for (const auto& saved : fs::directory_iterator(fs::current_path())) {
    const fs::path sample = script.parent_path() / saved.path().filename();
    if (Accepting()) fs::copy_file(saved.path(), sample, fs::copy_options::overwrite_existing);
    EXPECT_TRUE(BytesOf(saved.path()) == BytesOf(sample)) << sample << " is not what its script saves";
  }
  for (const auto& sample : fs::directory_iterator(script.parent_path())) {
    const std::string extension = sample.path().extension().string();
    if (sample.path().stem() != script.stem() || extension == ".script" || extension == ".expected") continue;
    EXPECT_TRUE(fs::exists(fs::current_path() / sample.path().filename())) << sample << " is not saved by its script";
  }
}

class TranscriptTest : public testing::TestWithParam<fs::path> {};

TEST_P(TranscriptTest, IsAsExpected) {
  std::ifstream script(GetParam());
  std::ostringstream written;
  std::ostringstream errors;
  std::stringstream transcript;
  {
    const ElsewhereForAWhile elsewhere;
    EXPECT_EQ(RunScript(script, written, errors), kScriptDone);
    transcript.str(WithoutFolder(written.str(), fs::current_path()));
    CheckSamples(GetParam());
  }
  EXPECT_EQ(errors.str(), "");

  fs::path expected_path = GetParam();
  expected_path.replace_extension(".expected");
  if (Accepting()) std::ofstream(expected_path, std::ios::binary) << transcript.str();
  std::ifstream expected_file(expected_path);
  ASSERT_TRUE(expected_file) << expected_path << " is missing";
  const std::vector<std::string> expected = LinesOf(expected_file);
  const std::vector<std::string> actual = LinesOf(transcript);
  const auto [at, want] = std::mismatch(actual.begin(), actual.end(), expected.begin(), expected.end());
  if (at == actual.end() && want == expected.end()) return;
  const fs::path look = fs::current_path() / (TestName({GetParam(), 0}) + ".transcript");
  std::ofstream(look, std::ios::binary) << transcript.str();
  ADD_FAILURE() << expected_path.filename() << " line " << at - actual.begin() + 1 << "\n  is       "
                << (at == actual.end() ? "(end)" : *at) << "\n  expected " << (want == expected.end() ? "(end)" : *want)
                << "\nThe whole transcript is in " << look;
}

INSTANTIATE_TEST_SUITE_P(Scripts, TranscriptTest, testing::ValuesIn(ScriptFiles()), TestName);

}  // namespace
}  // namespace torvale
