#include <gtest/gtest.h>

#include <algorithm>
#include <bit>
#include <filesystem>
#include <fstream>
#include <sstream>

#include "record/record_fields.h"
#include "script/runner.h"
#include "support/elsewhere.h"
#include "support/source_folder.h"

namespace torvale {
namespace {

namespace fs = std::filesystem;

// FNV-1a over bytes.
class Hash {
 public:
  void Add(std::string_view bytes) {
    for (const char c : bytes) Step(static_cast<unsigned char>(c));
    Step(0);  // "ab" + "c" is not "a" + "bc"
  }
  void Add(std::uint64_t bits) {
    for (int shift = 0; shift < 64; shift += 8) Step(static_cast<unsigned char>(bits >> shift));
  }
  std::uint64_t value() const { return value_; }

 private:
  void Step(unsigned char byte) { value_ = (value_ ^ byte) * 0x100000001b3ULL; }

  std::uint64_t value_ = 0xcbf29ce484222325ULL;
};

std::uint64_t Bits(float value) {
  return std::bit_cast<std::uint32_t>(value);
}
std::uint64_t Bits(double value) {
  return std::bit_cast<std::uint64_t>(value);
}
std::uint64_t Bits(std::int16_t value) {
  return static_cast<std::uint64_t>(value);
}
std::uint64_t Bits(unsigned char value) {
  return value;
}
std::uint64_t Bits(bool value) {
  return value ? 1 : 0;
}

void AddValue(Hash& hash, const std::string& value) {
  hash.Add(value);
}
void AddValue(Hash& hash, const FreeValue& value) {
  if (value) hash.Add(Bits(*value));
}
template <typename T>
void AddValue(Hash& hash, T value) {
  hash.Add(Bits(value));
}

// Adds what is set of a field, so that a field that a later version adds and these surveys don't use changes nothing.
struct FieldHasher {
  Hash& hash;
  const DesignRecord& record;

  template <typename T>
  void operator()(const RecordField<T>& field) const {
    // The version of the program is no result.
    if (field.name == "FileVersion" || record.*field.member == T{}) return;
    hash.Add(field.name);
    AddValue(hash, record.*field.member);
  }

  void operator()(const RecordField<TextGrid>& field) const {
    const TextGrid& grid = record.*field.member;
    for (int row = 0; row < grid.rows(); ++row) {
      for (int column = 0; column < grid.columns(); ++column) {
        if (grid.Text(row, column).empty()) continue;
        hash.Add(field.name);
        hash.Add(static_cast<std::uint64_t>(row));
        hash.Add(static_cast<std::uint64_t>(column));
        hash.Add(grid.Text(row, column));
      }
    }
  }

  template <typename T, int Last>
  void operator()(const RecordField<BoundedArray<T, Last>>& field) const {
    for (int i = 0; i <= Last; ++i) {
      const T& value = (record.*field.member)[i];
      if (value == T{}) continue;
      hash.Add(field.name);
      hash.Add(static_cast<std::uint64_t>(i));
      AddValue(hash, value);
    }
  }
};

void AddGrid(Hash& hash, const Grid& grid) {
  for (int row = 0; row < grid.rows(); ++row) {
    for (int column = 0; column < grid.column_count(); ++column) hash.Add(grid.Text(row, column));
  }
}

std::vector<fs::path> Samples() {
  std::vector<fs::path> samples;
  for (const auto& entry : fs::directory_iterator(fs::path(kSourceFolder) / "data/samples")) {
    if (entry.path().extension() == ".script") samples.push_back(entry.path());
  }
  std::sort(samples.begin(), samples.end());
  return samples;
}

// The same survey gives the same design to the last bit on every processor, compiler and optimisation level. The
// constant is what the samples gave when it was written; it changes when a sample or a rule does, and never with the
// build.
TEST(Samples, GoldenResultsAreTheSameToTheLastBit) {
  constexpr std::uint64_t kGolden = 0x65601ba7ec90d58bULL;
  Hash hash;
  std::ostringstream each;
  for (const fs::path& sample : Samples()) {
    std::ifstream script(sample);
    std::ostringstream transcript;
    const ElsewhereForAWhile elsewhere;
    Session session(transcript);
    ASSERT_NO_THROW(ReplayScript(session, script)) << sample;
    ForEachRecordField(FieldHasher{hash, session.program.record});
    AddGrid(hash, session.program.main.Grid1);
    AddGrid(hash, session.program.main.Grid2);
    AddGrid(hash, session.program.main.GridInchesApplied);
    each << sample.stem().string() << ": up to here 0x" << std::hex << hash.value() << '\n';
  }
  EXPECT_EQ(hash.value(), kGolden) << each.str();
}

}  // namespace
}  // namespace torvale
