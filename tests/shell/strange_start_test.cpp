// Starts with the files that a start reads as no program has written them: the program comes up, works, says what is
// wrong where it matters, and gives back whatever can still be read.
#include <functional>
#include <random>

#include "failing_disk.h"
#include "files/earlier_versions.h"
#include "shell/level_field.h"
#include "shell/main_form.h"
#include "support/long_runs.h"
#include "support/source_folder.h"

namespace torvale {
namespace {

namespace fs = std::filesystem;

using Random = std::mt19937;

std::vector<std::string> LinesOf(const std::string& text) {
  std::vector<std::string> lines;
  for (std::size_t at = 0; at < text.size();) {
    const std::size_t end = std::min(text.find('\n', at), text.size() - 1) + 1;
    lines.push_back(text.substr(at, end - at));
    at = end;
  }
  return lines;
}

std::string Flipped(std::string text, Random& random) {
  for (int i = 0; i < 8 && !text.empty(); ++i) text[random() % text.size()] ^= static_cast<char>(1U << random() % 8);
  return text;
}

std::string Truncated(const std::string& text, Random& random) {
  return text.substr(0, random() % (text.size() + 1));
}

std::string WithoutLines(const std::string& text, Random& random) {
  std::string left;
  for (const std::string& line : LinesOf(text)) {
    if (random() % 3 != 0) left += line;
  }
  return left;
}

std::string WithHugeLine(const std::string& text, Random& random) {
  constexpr std::size_t kHuge = 300'000;
  std::vector<std::string> lines = LinesOf(text);
  lines.insert(lines.begin() + static_cast<std::ptrdiff_t>(random() % (lines.size() + 1)),
               std::string(kHuge, static_cast<char>(random())) + "\n");
  std::string all;
  for (const std::string& line : lines) all += line;
  return all;
}

std::string Garbage(const std::string& text, Random& random) {
  std::string bytes(text.size(), '\0');
  for (char& c : bytes) c = static_cast<char>(random());
  return bytes;
}

std::string Shuffled(const std::string& text, Random& random) {
  std::vector<std::string> lines = LinesOf(text);
  std::shuffle(lines.begin(), lines.end(), random);
  std::string all;
  for (const std::string& line : lines) all += line;
  return all;
}

std::string Emptied(const std::string& /*text*/, Random& /*random*/) {
  return "";
}

constexpr std::string (*kMutations[])(const std::string&, Random&) = {
    [](const std::string& text, Random& random) { return Flipped(text, random); },
    Truncated,
    WithoutLines,
    WithHugeLine,
    Garbage,
    Shuffled,
    Emptied};

struct StrangeStartTest : ::testing::Test {
  // A folder with every file that there can be: a journal left behind, an earlier version, the guide.
  StrangeStartTest() {
    fs::copy_file(std::string(kSourceFolder) + "/data/TORVALEHELP.hlp", work.Path("TORVALEHELP.hlp"));
    guide = Bytes("TORVALEHELP.hlp");
  }

  std::string Bytes(const std::string& name) {
    const Snapshot files = work.Files();
    const auto found = files.find(name);
    return found == files.end() ? std::string() : found->second;
  }

  void Prepare() {
    work.Reset();
    work.host.WriteFile("TORVALEHELP.hlp", guide);
    Click(*work.program, "mnuFileSave");
    TypeText(*work.program, "txtInfo(4)", "West");
    work.Wait();
    settings = work.host.settings;
    work.program.reset();
    work.host.messages.clear();
  }

  void Start() {
    work.Start();
    Form_Activate(*work.program);
  }

  // What a user does next: looks, brings back, designs, saves, leaves.
  void ExpectItWorks() {
    Program& program = *work.program;
    Click(program, "mnuHelpContents");
    Click(program, "mnuFileBringBack");
    Click(program, "mnuFileEarlier");
    GridKey(program, "Grd_EarlierVersions", {Key::kEscape, "", false});
    Click(program, "mnuSoils_and_Furrow");
    Click(program, "MnuExit");
    SelectLines(program, "listSoils", {0});
    Click(program, "mnuFileNew");
    TypeLevelField(program);
    for (const auto& [field, text] : {std::pair{"txtDefault(2)", "0.65"}, {"txtDefault(3)", "140"}}) {
      TypeUnseen(program, field, text);
    }
    work.host.messages.clear();
    Click(program, "mnuDesignField");
    EXPECT_TRUE(program.main.Grid2.control.visible)
        << program.main.sbStatusBar.caption << (work.host.messages.empty() ? "" : work.host.messages[0].body);
    work.host.paths = {work.Path("after")};
    Click(program, "mnuFileSaveAs");
    EXPECT_FALSE(Bytes("after.PFD").empty());
    Click(program, "mnuFileExit");
  }

  // Of the names of all files of a start the one that fits.
  std::string NameOf(std::string_view pattern) {
    for (const auto& [name, content] : work.Files()) {
      if (name.find(pattern) != std::string::npos) return name;
    }
    ADD_FAILURE() << "there is no " << pattern;
    return "";
  }

  WorkFolder work;
  std::string guide;
  std::map<std::string, std::string, std::less<>> settings;
};

TEST_F(StrangeStartTest, WhateverStandsInOneOfItsFiles) {
  const int rounds = LongRun(1, 10, 100);
  for (const char* pattern : {"SoilsName.txt", "Default50.TVL", "RecentTORVALEFileName.Dat", "TORVALEHELP.hlp",
                              "user/journal/", "path.txt", "/1795262"}) {
    Random random(20261121);
    for (int round = 0; round < rounds; ++round) {
      for (std::size_t i = 0; i < std::size(kMutations); ++i) {
        SCOPED_TRACE(std::string(pattern) + ", round " + std::to_string(round) + ", mutation " + std::to_string(i));
        Prepare();
        const std::string name = NameOf(pattern);
        work.host.WriteFile(name, kMutations[i](Bytes(name), random));
        Start();
        ExpectItWorks();
        ASSERT_FALSE(HasFailure());
      }
    }
  }
}

TEST_F(StrangeStartTest, WhateverStandsInItsSettings) {
  Random random(7);
  Prepare();
  ASSERT_GE(settings.size(), 4U) << "the names of recent files";
  settings["MainZoom"] = "150";
  settings["MainLeft"] = "2000";
  settings["MainHeight"] = "9000";
  for (std::size_t i = 0; i < std::size(kMutations); ++i) {
    Prepare();
    for (const auto& [key, value] : settings) work.host.settings[key] = kMutations[i](value, random);
    Start();
    ExpectItWorks();
    ASSERT_FALSE(HasFailure()) << i;
  }
}

// A folder in the place of each of them, which can't be read and not be written over either.
TEST_F(StrangeStartTest, AFolderInTheirPlace) {
  for (const char* pattern : {"SoilsName.txt", "Default50.TVL", "RecentTORVALEFileName.Dat", "TORVALEHELP.hlp",
                              "user/journal/", "path.txt", "/1795262"}) {
    SCOPED_TRACE(pattern);
    Prepare();
    const std::string path = work.Path(NameOf(pattern));
    fs::remove(path);
    fs::create_directory(path);
    Start();
    ExpectItWorks();
    ASSERT_FALSE(HasFailure());
  }
}

// A file in the place of the folder of the user's data, or of one of those in it.
TEST_F(StrangeStartTest, AFileInThePlaceOfAFolder) {
  for (const char* name : {"user", "user/journal", "user/versions"}) {
    SCOPED_TRACE(name);
    Prepare();
    fs::remove_all(work.Path(name));
    work.host.WriteFile(name, "not a folder");
    Start();
    ExpectItWorks();
    ASSERT_FALSE(HasFailure());
  }
}

TEST_F(StrangeStartTest, ItSaysThatPreferencesAreMissing) {
  Prepare();
  work.program.reset();
  const std::string whole = Bytes("Default50.TVL");
  work.host.WriteFile("Default50.TVL", "50\r\n1/2\r\n.6\r\n");
  work.program = std::make_unique<Program>(work.host);
  fs::remove_all(work.Path("user"));
  StartProgram(*work.program);
  EXPECT_EQ(work.program->main.sbStatusBar.caption,
            "Only 3 of the 16 preferences could be read from Default50.TVL; the others stay as they are.");
  EXPECT_EQ(work.program->main.txtDefault[0].text(), "50");
  EXPECT_EQ(work.program->main.txtDefault[2].text(), "0.60");
  work.host.WriteFile("Default50.TVL", "");
  work.program = std::make_unique<Program>(work.host);
  StartProgram(*work.program);
  EXPECT_EQ(work.program->main.sbStatusBar.caption,
            "Only 0 of the 16 preferences could be read from Default50.TVL; the others stay as they are.");
  // A file that is whole, and one that isn't there, are nothing to speak of.
  for (const bool there : {true, false}) {
    work.host.WriteFile("Default50.TVL", whole);
    if (!there) fs::remove(work.Path("Default50.TVL"));
    work.program = std::make_unique<Program>(work.host);
    StartProgram(*work.program);
    EXPECT_EQ(work.program->main.sbStatusBar.caption.find("preferences"), std::string::npos);
  }
}

TEST_F(StrangeStartTest, ItSaysWhatCanNotBeRead) {
  Prepare();
  fs::remove_all(work.Path("user"));
  for (const char* name : {"Default50.TVL", "RecentTORVALEFileName.Dat"}) {
    fs::remove(work.Path(name));
    fs::create_directory(work.Path(name));
  }
  work.Start();
  EXPECT_EQ(work.program->main.sbStatusBar.caption,
            "The preferences could not be read: Is a directory. "
            "The list of recent files could not be read: Is a directory.");
}

// Behind the offer of lost work there is still what the start had to tell.
TEST_F(StrangeStartTest, AnOfferLeavesTheNewsOfTheStart) {
  Prepare();
  work.host.WriteFile("Default50.TVL", "50\r\n");
  Start();
  EXPECT_EQ(work.program->main.sbStatusBar.caption,
            "Work that was not saved can be brought back (File > Bring Back Last Work): Dunn, 11/21/2026 12:00. "
            "Only 1 of the 16 preferences could be read from Default50.TVL; the others stay as they are.");
}

TEST_F(StrangeStartTest, AnEarlierVersionWhoseFileIsForgottenCanBeOpened) {
  for (const std::string damage : {"", "not a path", "/\x80"}) {
    Prepare();
    work.host.WriteFile(NameOf("path.txt"), damage);
    Start();
    const std::vector<EarlierVersion> versions = EarlierVersions(work.host);
    ASSERT_EQ(versions.size(), 1U);
    EXPECT_EQ(versions[0].file, work.folder + "/user/Dunn.PFD");
    Click(*work.program, "mnuFileEarlier");
    Click(*work.program, "btnOpenVersion");
    EXPECT_EQ(work.program->main.txtInfo[0].text(), "Dunn");
    EXPECT_EQ(work.program->main.txtInfo[4].text(), "Levee Road");
    // The next save over the file says again whose versions these are.
    work.program->record.SaveFileName = work.Path("dunn.PFD");
    Click(*work.program, "mnuFileSave");
    EXPECT_EQ(Bytes(NameOf("path.txt")), fs::canonical(work.Path("dunn.PFD")));
  }
}

// Of lines that are damaged only these are lost.
TEST_F(StrangeStartTest, AJournalGivesBackTheLinesThatAreWhole) {
  Prepare();
  const std::string name = NameOf("user/journal/");
  const std::vector<std::string> lines = LinesOf(Bytes(name));
  ASSERT_GT(lines.size(), 20U);
  Start();
  Click(*work.program, "mnuFileBringBack");
  const InputTexts typed = InputsOf(*work.program);
  for (std::size_t damaged = 0; damaged < lines.size(); ++damaged) {
    SCOPED_TRACE(lines[damaged]);
    work.program.reset();
    fs::remove_all(work.Path("user/journal"));
    fs::create_directory(work.Path("user/journal"));
    std::string text;
    for (std::size_t i = 0; i < lines.size(); ++i) text += i == damaged ? "\x01\x02\n" : lines[i];
    work.host.WriteFile(name, text);
    Start();
    ASSERT_TRUE(work.program->main.mnuFileBringBack.enabled);
    Click(*work.program, "mnuFileBringBack");
    const InputTexts back = InputsOf(*work.program);
    int missing = 0;
    for (std::size_t i = 0; i < typed.size(); ++i) missing += back[i] == typed[i] ? 0 : 1;
    ASSERT_LE(missing, 1);
  }
}

}  // namespace
}  // namespace torvale
