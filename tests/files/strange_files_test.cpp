// Files that no program wrote: whatever they hold, opening ends with a message or a design, soon and in little memory.
#include <sys/resource.h>
#include <sys/wait.h>
#include <unistd.h>

#include <chrono>
#include <random>

#include "file_program.h"
#include "files/design_format.h"
#include "files/fields.h"
#include "files/file_fault.h"

namespace torvale {
namespace {

using Clock = std::chrono::steady_clock;
constexpr std::chrono::seconds kLongest{10};

// What stands in no field of its kind, or in few.
const std::vector<std::string> kNasty = {"",
                                         " ",
                                         "0",
                                         "-1",
                                         "1",
                                         "320",
                                         "5285",
                                         "32767",
                                         "-32768",
                                         "99999",
                                         "0.5",
                                         "1E38",
                                         "1E39",
                                         "-1E300",
                                         "1E-320",
                                         "1E999",
                                         "NaN",
                                         "inf",
                                         "x",
                                         "\"",
                                         "\"\"",
                                         "\"32767\"",
                                         "\"a,b\r\nc\"",
                                         "\"1.0.0\"",
                                         "\"E\"",
                                         std::string("\0", 1),
                                         "\x80\xFF",
                                         std::string(3000, '9'),
                                         ",",
                                         "\n"};

// The two furrows of a design of limited holes, which has every record of the format.
std::string SmallDesign() {
  FileProgram p;
  p.TypeSurvey();
  p.main.Grid1.Set(2, 0, "10");
  mnuDesignField_Click(p.program);
  EXPECT_EQ(p.record.HoleRows, 2);
  p.record.DesignType = kLimitedHoles;
  p.record.DualBreakStation = 5;
  for (const char* size : {"1/4", "3/8"}) p.main.listHolesSelected.Add(size);
  p.record.FileVersion = "8.2.20";
  return WriteDesign(p.program);
}

// The design's fields as they stand in the file, in order, each with its end.
std::vector<std::string> FieldsOf(const std::string& text) {
  std::vector<std::string> fields(1);
  bool quoted = false;
  for (const char c : text) {
    if (c == '"') quoted = !quoted;
    fields.back().push_back(c);
    if (!quoted && (c == ',' || c == '\n')) fields.emplace_back();
  }
  fields.pop_back();
  return fields;
}

std::string Joined(const std::vector<std::string>& fields) {
  std::string text;
  for (const std::string& field : fields) text += field;
  return text;
}

struct StrangeFilesTest : FilesTest {
  StrangeFilesTest() {
    FillPreferences();
    main.listSoils.Add("Sand");
  }

  // Reads without the screen. 0 or one of the three numbers that a text can fail with.
  int Read(const std::string& text) {
    const int error = ErrorOf([&] { ReadDesign(program, text, [](const DesignExtras&) {}); });
    EXPECT_TRUE(error == 0 || error == kOutOfBounds || error == kWrongKind || error == kPastTheEnd) << error;
    return error;
  }

  // Opens as a user does, and says whether it was in time.
  bool OpenText(const std::string& text) {
    const Clock::time_point begin = Clock::now();
    WriteTestFile(Path("strange"), text);
    const std::string message = Open(Path("strange"));
    if (!message.empty()) ++refused;
    return Clock::now() - begin < kLongest;
  }

  int refused = 0;
  const std::string design = SmallDesign();
};

// All but the last line feed is needed: what is left of a field at the end counts as the field, and the next is
// missing.
TEST_F(StrangeFilesTest, CutOffAtEveryByte) {
  for (std::size_t length = 0; length + 1 < design.size(); ++length) {
    WriteTestFile(Path("strange"), design.substr(0, length));
    const bool no_number = length > 0 && (design[length - 1] == '.' || design[length - 1] == '-');
    const std::string message = Open(Path("strange"));
    ASSERT_TRUE(message == std::string(kOpeningFailed) + " 62" ||
                (no_number && message == std::string(kOpeningFailed) + " 13"))
        << length << ' ' << message;
  }
  for (const std::size_t length : {design.size() - 1, design.size()}) {
    WriteTestFile(Path("strange"), design.substr(0, length));
    EXPECT_EQ(Open(Path("strange")), "") << length;
  }
}

TEST_F(StrangeFilesTest, EveryFieldReplaced) {
  const std::vector<std::string> fields = FieldsOf(design);
  ASSERT_GT(fields.size(), 100U);
  int loaded = 0;
  for (std::size_t i = 0; i < fields.size(); ++i) {
    for (const std::string& nasty : kNasty) {
      std::vector<std::string> changed = fields;
      changed[i] = nasty + (fields[i].ends_with(",") ? "," : "\r\n");
      const std::string text = Joined(changed);
      const bool good = Read(text) == 0;
      if (good) ++loaded;
      if (!good && loaded % 10 != 0) continue;  // what the screen makes of it is the question
      ASSERT_TRUE(OpenText(text)) << i << ' ' << nasty;
    }
  }
  EXPECT_GT(loaded, 1000);
  EXPECT_GT(refused, 10);
}

TEST_F(StrangeFilesTest, EveryFieldLeftOutOrTwice) {
  const std::vector<std::string> fields = FieldsOf(design);
  for (std::size_t i = 0; i < fields.size(); ++i) {
    std::vector<std::string> changed = fields;
    changed[i] = "";
    ASSERT_TRUE(OpenText(Joined(changed))) << i;
    changed[i] = fields[i] + fields[i];
    ASSERT_TRUE(OpenText(Joined(changed))) << i;
  }
}

// One to four changes: a byte, a stretch left out or doubled, a nasty field put in.
std::string Mutated(std::string text, std::mt19937& random) {
  const auto below = [&](std::size_t limit) { return random() % (limit == 0 ? 1 : limit); };
  for (std::size_t changes = 1 + below(4); changes > 0; --changes) {
    const std::size_t at = below(text.size());
    const std::size_t length = below(std::min<std::size_t>(text.size() - at, 40));
    switch (below(5)) {
      case 0:
        if (!text.empty()) text[at] = static_cast<char>(random());
        break;
      case 1:
        text.erase(at, length);
        break;
      case 2:
        text.insert(at, text.substr(at, length));
        break;
      case 3:
        text.insert(at, kNasty[below(kNasty.size())]);
        break;
      default: {
        constexpr std::string_view kDigits = "0123456789-.E\",\r\n";
        if (!text.empty()) text[at] = kDigits[below(kDigits.size())];
      }
    }
  }
  return text;
}

TEST_F(StrangeFilesTest, AHundredThousandMutations) {
  constexpr int kMutations = 100000;
  constexpr int kOpened = 100;  // every hundredth goes the whole way to the screen
  std::mt19937 random(20261121);
  int loaded = 0;
  for (int i = 0; i < kMutations; ++i) {
    const std::string text = Mutated(design, random);
    if (Read(text) == 0) ++loaded;
    if (i % kOpened == 0) {
      ASSERT_TRUE(OpenText(text)) << i;
    }
  }
  EXPECT_GT(loaded, kMutations / 100);
  EXPECT_LT(loaded, kMutations);
}

// Commas and line ends are empty fields, which every kind of field takes; so a design comes of three of the nine.
TEST_F(StrangeFilesTest, MegabytesOfOneThing) {
  constexpr std::size_t kMegabyte = std::size_t{1} << 20U;
  for (const char c : {'"', ',', '\n', '\r', '\0', '9', ' ', 'E', '\x80'}) {
    EXPECT_TRUE(OpenText(std::string(kMegabyte, c))) << static_cast<int>(c);
    EXPECT_TRUE(OpenText("\"8.2.20\",2," + std::string(kMegabyte, c))) << static_cast<int>(c);
    EXPECT_TRUE(OpenText(design.substr(0, design.size() / 2) + std::string(kMegabyte, c))) << static_cast<int>(c);
  }
  EXPECT_EQ(refused, 6 * 3);
}

TEST_F(StrangeFilesTest, CountsThatNoDesignHas) {
  for (const int count : {-32768, -1, 0, 320, 5284, 5285, 32767}) {
    FieldWriter out;
    out.Text("8.2.20").Integer(count).EndRecord();
    EXPECT_TRUE(OpenText(out.text() + std::string(100000, ','))) << count;
    EXPECT_TRUE(OpenText(out.text() + std::string(300000, '\n'))) << count;
    std::vector<std::string> fields = FieldsOf(design);
    for (std::size_t i = 0; i < fields.size(); ++i) {
      if (fields[i] != "2,") continue;  // the hole rows stand ahead of the watered furrows
      fields[i] = std::to_string(count) + ",";
      EXPECT_TRUE(OpenText(Joined(fields) + std::string(400000, ','))) << count;
    }
  }
}

#if !defined(__SANITIZE_ADDRESS__)
// The largest file that is read at all, of bytes that take three each in the program, as one text.
TEST_F(StrangeFilesTest, TheLargestFileTakesLessThan100Megabytes) {
  constexpr std::size_t kLargest = std::size_t{8} << 20U;
  for (const std::string& begin : {std::string("\"8.2.20\",1,\""), std::string("\""), std::string()}) {
    WriteTestFile(Path("strange"), begin + std::string(kLargest - begin.size(), '\x80'));
    const pid_t child = ::fork();
    ASSERT_GE(child, 0);
    if (child == 0) {
      record.OpenedFileName = Path("strange");
      OpenFile(program);
      ::_exit(host.messages.size() == 1 ? 0 : 1);
    }
    int status = 0;
    rusage used{};
    ASSERT_EQ(::wait4(child, &status, 0, &used), child);
    EXPECT_TRUE(WIFEXITED(status) && WEXITSTATUS(status) == 0);
    EXPECT_LT(used.ru_maxrss, 100 * 1024) << "kilobytes";
    EXPECT_GT(used.ru_maxrss, 20 * 1024) << "the file was not read";
  }
}
#endif

TEST_F(StrangeFilesTest, AFilePastTheLargestIsError27) {
  WriteTestFile(Path("strange"), std::string((std::size_t{8} << 20U) + 1, ','));
  EXPECT_EQ(Open(Path("strange")), std::string(kOpeningFailed) + " 27");
}

}  // namespace
}  // namespace torvale
