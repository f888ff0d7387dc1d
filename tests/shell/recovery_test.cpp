#include "shell/recovery.h"

#include <gtest/gtest.h>
#include <sys/wait.h>
#include <unistd.h>

#include <csignal>
#include <filesystem>
#include <memory>
#include <random>

#include "shell/commands.h"
#include "shell/events.h"
#include "shell/history.h"
#include "shell/level_field.h"
#include "shell/main_form.h"
#include "shell/start_up.h"
#include "support/fake_host.h"
#include "support/file_bytes.h"
#include "support/long_runs.h"

namespace torvale {
namespace {

// A program and, once that has died, others in the same folder.
struct RecoveryTest : ::testing::Test {
  RecoveryTest() { Start(); }
  void Start() {
    program = std::make_unique<Program>(host);
    StartProgram(*program);
  }
  void Die() { program.reset(); }
  void Press(std::string_view characters) {
    for (const char& c : characters) GridKey(*program, "Grid1", {Key::kCharacter, std::string_view(&c, 1), false});
  }
  void At(int row, int column) {
    FocusGained(*program, "Grid1");
    GridPoint(*program, "Grid1", row, column, false);
  }
  void PassSeconds(int seconds) {
    host.now += std::int64_t{1000} * seconds;
    Idle(*program);
  }
  int Journals() const {
    std::error_code none;
    const std::filesystem::directory_iterator files(host.ProgramFolder() + "/user/journal", none);
    return static_cast<int>(std::distance(begin(files), end(files)));
  }
  bool Offered() const { return program->main.mnuFileBringBack.enabled; }

  mutable FakeHost host;
  std::unique_ptr<Program> program;
};

TEST_F(RecoveryTest, NothingIsOfferedAndNothingKeptWhereNothingWasTyped) {
  PassSeconds(5);
  EXPECT_FALSE(Offered());
  EXPECT_FALSE(program->main.cmdBringBack.visible);
  EXPECT_EQ(Click(*program, "mnuFileBringBack"), Reach::kDisabled);
  Die();
  EXPECT_EQ(Journals(), 0);
}

TEST_F(RecoveryTest, WhatWasTypedComesBackAfterTheProgramDied) {
  TypeText(*program, "txtInfo(0)", "Dunn");
  At(2, 2);
  Press("1250");
  Click(*program, "mnuRigidPipe");
  Click(*program, "mnuPreference");
  TypeText(*program, "txtDefault(4)", "0.9");
  program->main.listHolesSelected.Add("3/8");
  FocusGained(*program, "txtInfo(0)");
  PassSeconds(1);
  const InputTexts typed = InputsOf(*program);
  Die();
  Start();
  EXPECT_TRUE(Offered());
  EXPECT_TRUE(program->main.cmdBringBack.visible);
  EXPECT_EQ(program->main.sbStatusBar.caption,
            "Work that was not saved can be brought back (File > Bring Back Last Work): Dunn, 11/21/2026 12:00");
  Form_Activate(*program);  // the focus tells what its field is for; the offer stays to be read
  EXPECT_TRUE(program->main.sbStatusBar.caption.starts_with("Work that was not saved"));
  EXPECT_EQ(Click(*program, "cmdBringBack"), Reach::kUsable);
  EXPECT_EQ(InputsOf(*program), typed);
  EXPECT_FALSE(Offered());
  EXPECT_FALSE(program->main.cmdBringBack.visible);
  EXPECT_TRUE(program->main.mnuRigidPipe.ticked);
  EXPECT_EQ(program->main.lblActiveInactive.caption, "Inactive Design");
  EXPECT_TRUE(host.messages.empty());
  EXPECT_TRUE(host.questions.empty());
  EXPECT_EQ(Journals(), 1);  // this program's own
  // It is a step like any other.
  EXPECT_EQ(program->main.mnuEditUndo.caption, "&Undo Bring Back Last Work");
  Click(*program, "mnuEditUndo");
  EXPECT_EQ(program->main.txtInfo[0].text(), "");
}

// And again, should the program die once more.
TEST_F(RecoveryTest, WhatWasBroughtBackIsKeptItself) {
  TypeText(*program, "txtInfo(0)", "Dunn");
  PassSeconds(1);
  Die();
  Start();
  Click(*program, "mnuFileBringBack");
  Die();
  Start();
  EXPECT_TRUE(Offered());
  Click(*program, "mnuFileBringBack");
  EXPECT_EQ(program->main.txtInfo[0].text(), "Dunn");
}

// The first character after a pause is written at once, the others within a second.
TEST_F(RecoveryTest, EachEditIsOnDiskWithinASecond) {
  PassSeconds(10);
  At(2, 2);
  for (int i = 0; i < 100; ++i) {
    Press("1");
    host.now += 100;
    Idle(*program);
  }
  const std::string typed = program->main.Grid1.Text(2, 2);
  Die();
  Start();
  Click(*program, "mnuFileBringBack");
  EXPECT_GE(program->main.Grid1.Text(2, 2).size(), typed.size() - 10);
}

TEST_F(RecoveryTest, SavedWorkIsNotOffered) {
  TypeText(*program, "txtInfo(0)", "Dunn");
  host.paths.push_back(host.ProgramFolder() + "/dunn.DAT");
  Click(*program, "mnuFileSaveAs");
  PassSeconds(2);
  Die();
  Start();
  EXPECT_FALSE(Offered());
}

TEST_F(RecoveryTest, WorkTypedSinceTheSaveIsOffered) {
  TypeText(*program, "txtInfo(0)", "Dunn");
  host.paths.push_back(host.ProgramFolder() + "/dunn.DAT");
  Click(*program, "mnuFileSaveAs");
  TypeText(*program, "txtInfo(4)", "South");
  PassSeconds(2);
  Die();
  Start();
  ASSERT_TRUE(Offered());
  Click(*program, "mnuFileBringBack");
  EXPECT_EQ(program->main.txtInfo[4].text(), "South");
  EXPECT_NE(program->record.SaveFileName.find("/dunn"), std::string::npos);  // Save goes where it went
}

// Undo that leads back to what was saved leaves nothing to bring back.
TEST_F(RecoveryTest, WorkUndoneToTheSaveIsNotOffered) {
  TypeText(*program, "txtInfo(0)", "Dunn");
  host.paths.push_back(host.ProgramFolder() + "/dunn.DAT");
  Click(*program, "mnuFileSaveAs");
  TypeText(*program, "txtInfo(4)", "South");
  PassSeconds(2);
  Click(*program, "mnuEditUndo");
  PassSeconds(2);
  Die();
  Start();
  EXPECT_FALSE(Offered());
}

// There is no question at Exit; what was not saved is offered at the next start.
TEST_F(RecoveryTest, ExitKeepsWhatWasNotSaved) {
  TypeText(*program, "txtInfo(0)", "Dunn");
  TypeText(*program, "txtInfo(4)", "South");  // within the second
  Click(*program, "mnuFileExit");
  Die();
  Start();
  ASSERT_TRUE(Offered());
  Click(*program, "mnuFileBringBack");
  EXPECT_EQ(program->main.txtInfo[0].text(), "Dunn");
  EXPECT_EQ(program->main.txtInfo[4].text(), "South");
}

// Exit fills blank preferences and writes them: nothing of that is lost work.
TEST_F(RecoveryTest, ExitWithNothingTypedLeavesNothing) {
  Click(*program, "mnuFileExit");
  Die();
  EXPECT_EQ(Journals(), 0);
  Start();
  EXPECT_FALSE(Offered());
}

// The cross of the window does not store the preferences; what was typed there comes back.
TEST_F(RecoveryTest, PreferencesAbandonedByTheCrossComeBack) {
  Click(*program, "mnuPreference");
  TypeText(*program, "txtDefault(3)", "117");
  Form_Unload(*program);
  Die();
  Start();
  ASSERT_TRUE(Offered());
  Click(*program, "mnuFileBringBack");
  EXPECT_EQ(program->main.txtDefault[3].text(), "117");
}

// A design that New has dropped is a work of its own.
TEST_F(RecoveryTest, WhatNewDroppedIsOfferedToo) {
  TypeText(*program, "txtInfo(0)", "First");
  At(2, 2);
  Press("5");
  Click(*program, "mnuFileNew");
  PassSeconds(1);
  TypeText(*program, "txtInfo(0)", "Second");
  PassSeconds(1);
  Die();
  Start();
  ASSERT_TRUE(Offered());
  Click(*program, "mnuFileBringBack");
  EXPECT_EQ(program->main.txtInfo[0].text(), "Second");
  ASSERT_TRUE(Offered());
  Click(*program, "mnuFileBringBack");
  EXPECT_EQ(program->main.txtInfo[0].text(), "First");
  EXPECT_EQ(program->main.Grid1.Text(2, 2), "5");
  EXPECT_FALSE(Offered());
}

TEST_F(RecoveryTest, WhatNewDroppedAndUndoAndASaveBroughtHomeIsNotOffered) {
  TypeText(*program, "txtInfo(0)", "First");
  Click(*program, "mnuFileNew");
  Click(*program, "mnuEditUndo");
  host.paths.push_back(host.ProgramFolder() + "/first.DAT");
  Click(*program, "mnuFileSaveAs");
  PassSeconds(1);
  Die();
  Start();
  EXPECT_FALSE(Offered());
  EXPECT_EQ(Journals(), 0);
}

TEST_F(RecoveryTest, ANewSheetIsNoWork) {
  Click(*program, "mnuFileNew");
  PassSeconds(1);
  Die();
  Start();
  EXPECT_FALSE(Offered());
}

TEST_F(RecoveryTest, TwoProgramsDoNotMixTheirWork) {
  FakeHost second_host;
  second_host.user_folder = host.ProgramFolder() + "/user";
  auto second = std::make_unique<Program>(second_host);
  StartProgram(*second);
  TypeText(*program, "txtInfo(0)", "First");
  TypeText(*second, "txtInfo(0)", "Second");
  At(2, 2);
  Press("1");
  TypeText(*second, "txtInfo(4)", "North");
  PassSeconds(1);
  second_host.now += 2000;
  Idle(*second);
  EXPECT_FALSE(Offered());
  // One dies; the other one's work is not offered while it lives.
  Die();
  Start();
  ASSERT_TRUE(Offered());
  Click(*program, "mnuFileBringBack");
  EXPECT_EQ(program->main.txtInfo[0].text(), "First");
  EXPECT_EQ(program->main.txtInfo[4].text(), "");
  EXPECT_EQ(program->main.Grid1.Text(2, 2), "1");
  EXPECT_FALSE(Offered());
  second.reset();
  Die();
  Start();
  ASSERT_TRUE(Offered());
  Click(*program, "mnuFileBringBack");
  EXPECT_EQ(program->main.txtInfo[0].text(), "Second");
  EXPECT_EQ(program->main.txtInfo[4].text(), "North");
}

TEST_F(RecoveryTest, SaysOnceThatItCanNotKeepWork) {
  host.disk = [](DiskStep step, const std::filesystem::path&) { return step == DiskStep::kWrite ? ENOSPC : 0; };
  TypeText(*program, "txtInfo(0)", "Dunn");
  EXPECT_EQ(program->main.sbStatusBar.caption,
            "What you type can't be kept for the case that the program ends: No space left on device. Save often.");
  program->main.sbStatusBar.caption.clear();
  PassSeconds(2);
  EXPECT_EQ(program->main.sbStatusBar.caption, "");
  host.disk = nullptr;
  PassSeconds(2);
  Die();
  Start();
  EXPECT_TRUE(Offered());
}

// Work goes on during a calculation that lets events run; so does its journal.
TEST_F(RecoveryTest, WhatIsTypedDuringACalculationIsKept) {
  TypeLevelField(*program);
  std::vector<LostWork> seen;
  host.event_at = 1;
  host.event = [&] {
    TypeText(*program, "txtInfo(4)", "South");
    PassSeconds(1);
    seen.push_back(ReadJournal(BytesOf(program->history->journal.path)));
  };
  Click(*program, "mnuDesignField");
  ASSERT_EQ(seen.size(), 1U) << "the march never yielded";
  EXPECT_EQ(seen[0].texts[PlaceOf(InputKind::kInfoField, 4)], "South");
}

// Types one character after the other, a tenth of a second between them by its clock, and tells of each through a pipe,
// until it is killed.
[[noreturn]] void TypeUntilKilled(const std::string& folder, int pipe) {
  FakeHost host;
  host.user_folder = folder;
  Program program(host);
  StartProgram(program);
  std::filesystem::remove_all(host.ProgramFolder());  // nobody will be there to do it
  for (int i = 0;; ++i) {
    TypeText(program, "txtInfo(4)", std::to_string(i));
    host.now += 100;
    Idle(program);
    if (::write(pipe, &i, sizeof i) != static_cast<ssize_t>(sizeof i)) ::_exit(1);
  }
}

int KilledAfter(const std::string& folder, int count) {
  int ends[2];
  if (::pipe(ends) != 0) return -1;
  const pid_t child = ::fork();
  if (child == 0) {
    ::close(ends[0]);
    TypeUntilKilled(folder, ends[1]);
  }
  ::close(ends[1]);
  int typed = -1;
  while (typed < count && ::read(ends[0], &typed, sizeof typed) == static_cast<ssize_t>(sizeof typed)) {
  }
  ::kill(child, SIGKILL);
  int last = typed;
  while (::read(ends[0], &last, sizeof last) == static_cast<ssize_t>(sizeof last)) typed = last;
  ::close(ends[0]);
  ::waitpid(child, nullptr, 0);
  return typed;
}

// Killed at any moment while somebody types, with all but the last second's characters back.
TEST_F(RecoveryTest, KilledWhileTypingAllButTheLastSecondComesBack) {
  constexpr int kPerSecond = 10;
  std::mt19937 random(7);
  const int rounds = LongRun(12, 100, 300);
  for (int round = 0; round < rounds; ++round) {
    Die();
    std::filesystem::remove_all(host.ProgramFolder() + "/user");
    const int typed = KilledAfter(host.ProgramFolder() + "/user", 12 + static_cast<int>(random() % 200));
    ASSERT_GT(typed, kPerSecond);
    Start();
    ASSERT_TRUE(Offered()) << typed;
    Click(*program, "mnuFileBringBack");
    const int back = std::stoi(program->main.txtInfo[4].text());
    EXPECT_GE(back, typed - kPerSecond);
    EXPECT_LE(back, typed + 1);  // one may be typed and not told of
  }
}

}  // namespace
}  // namespace torvale
