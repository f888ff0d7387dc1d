// A user without a plan: any command, key, text, cell, file and mouse, and clicks in the middle of calculations.
// Nothing crashes, no internal message comes, nothing runs on, and there is always a way to go on.
#include <gtest/gtest.h>

#include <array>
#include <memory>
#include <random>

#include "shell/commands.h"
#include "shell/events.h"
#include "shell/start_up.h"
#include "support/elsewhere.h"
#include "support/fake_host.h"
#include "support/long_runs.h"

namespace torvale {
namespace {

constexpr std::array<const char*, 14> kTexts = {"850", "0",  "",    "2",  "E",   "R", "6.4",
                                                "abc", "-5", "1.5", ".5", "1/2", "C", "100000"};
constexpr std::array<const char*, 9> kRow = {"0", "100", "1000", "10", "15", "3/8", "1", "10", "10"};
constexpr std::array<const char*, 6> kClipboards = {"",         "0\t5\r\n100\t5.2\r\n", "60\t5\r\n160\t4\r\n",
                                                    "a\tb\r\n", "0\t1\r\n0\t1\r\n",     "7"};

class RandomUser {
 public:
  explicit RandomUser(unsigned seed) : random_(seed) {
    StartProgram(program);
    host.settings.clear();
  }

  void Statement() {
    said = "";
    host.answers.assign(400, Pick(2) == 0);
    host.paths.assign(1, host.ProgramFolder() + "/design" + std::to_string(Pick(3)));
    if (Pick(3) == 0) host.paths.front().reset();
    host.copies = Pick(3) == 0 ? std::nullopt : std::optional<int>(1);
    host.clipboard = kClipboards.at(Pick(kClipboards.size()));
    Arm(Pick(3) == 0 ? 1 + static_cast<long>(Pick(60)) : kLongRun);
    Act();
    host.event = nullptr;
  }

  // Empty where the program is as it must be between two events.
  std::string Wrong() {
    const MainScreen& main = program.main;
    if (program.events.open != 0 || program.running.calculations != 0) return "something still runs";
    if (!program.running.waiting.empty()) return "a command still waits";
    if (!main.Grid1.control.visible && !main.Grid2.control.visible && !main.Frame1.visible) return "no grid";
    for (const Control* menu :
         {&main.mnuFile, &main.mnuEdit, &main.mnuPreference, &main.mnuDesign, &main.mnuTypeOfPipe, &main.mnuHelp}) {
      if (!menu->enabled) return "a menu is locked";
    }
    if (main.cmdCancel.visible) return "something to cancel";
    if (main.Grid2.control.visible && main.focus == "Grid1") return "the focus is on the covered sheet";
    for (const Shown& message : host.messages) {
      if (message.body.starts_with("The program could not finish this")) return message.body;
    }
    host.messages.clear();
    host.questions.clear();
    return "";
  }

  std::string said;  // the statement, with what came in the middle of it

  FakeHost host;
  Program program{host};

 private:
  static constexpr long kLongRun = 20'000;

  std::size_t Pick(std::size_t choices) { return random_() % choices; }

  // At that yield from now on the user clicks, and then again. After a long run Cancel is all that comes.
  void Arm(long yields) {
    host.event_at = host.yields + yields;
    const bool impatient = yields == kLongRun;
    host.event = [this, impatient] {
      if (impatient) {
        Click(program, "cmdCancel");
      } else {
        ClickAnything();
      }
      Arm(kLongRun);
    };
  }

  void ClickAnything() {
    const std::span<const Command> commands = Commands();
    const std::string_view name = commands[Pick(commands.size())].name;
    if (name == "mnuFileExit") return;  // ends the program
    said += std::string(name) + "; ";
    Click(program, name);
  }

  void RunDesign() {
    constexpr std::array<const char*, 8> kDesigns = {
        "mnuDesignField",           "mnuExistingDesign",   "mnuDesignConstSlope", "mnuDesignDualSlope",
        "mnuComputerHoleSelection", "mnuManHoleSelection", "cmdExitHoleSelect",   "cmdReCalc"};
    const std::string_view name = kDesigns.at(Pick(kDesigns.size()));
    said += std::string(name) + "; ";
    Click(program, name);
  }

  void FillSheet() {
    said += "survey; ";
    Guarded(program, [&] {
      Grid& sheet = program.main.Grid1;
      const int rows = 2 + static_cast<int>(Pick(4));
      for (int row = 1; row <= rows; ++row) {
        for (int column = 0; column < 9; ++column) sheet.Set(row, column, kRow.at(static_cast<std::size_t>(column)));
        sheet.Set(row, 0, std::to_string((row - 1) * 40));
      }
    });
    TypeText(program, "txtInfo(2)", "6.4");
    TypeText(program, "txtInfo(3)", "2");
    TypeText(program, "txtInfo(5)", Pick(2) == 0 ? "E" : "R");
  }

  void PressKey() {
    constexpr std::array<const char*, 3> kGrids = {"Grid1", "Grid2", "Grd_Soils_FurrowFlow"};
    constexpr std::array<const char*, 9> kCharacters = {"1", "0", ".", "+", "-", "*", "x", "5", "9"};
    const auto key = static_cast<Key>(Pick(static_cast<std::size_t>(Key::kPaste) + 1));
    const std::string_view grid = kGrids.at(Pick(kGrids.size()));
    const std::string_view character = kCharacters.at(Pick(kCharacters.size()));
    said += "key in " + std::string(grid) + "; ";
    GridKey(program, grid, {key, key == Key::kCharacter ? character : "", Pick(3) == 0});
  }

  void TypeAnything() {
    const std::string field =
        Pick(2) == 0 ? "txtInfo(" + std::to_string(Pick(6)) + ")" : "txtDefault(" + std::to_string(Pick(16)) + ")";
    const std::string_view text = kTexts.at(Pick(kTexts.size()));
    said += field + " \"" + std::string(text) + "\"; ";
    FocusGained(program, field);
    TypeText(program, field, text);
    FieldKey(program, field, {Pick(2) == 0 ? Key::kEnter : Key::kDown, ""});
  }

  void SetCell() {
    const int row = 1 + static_cast<int>(Pick(8));
    const int column = static_cast<int>(Pick(9));
    const std::string_view text = kTexts.at(Pick(kTexts.size()));
    said += "cell " + std::to_string(row) + " " + std::to_string(column) + " \"" + std::string(text) + "\"; ";
    if (ReachOf(program, "Grid1") != Reach::kUsable) return;  // results cover it
    Guarded(program, [&] { program.main.Grid1.Set(row, column, text); });
    GridPoint(program, "Grid1", row, column, Pick(3) == 0);
  }

  void ChooseHoles() {
    said += "holes; ";
    SelectLines(program, "listAllHoles", {static_cast<int>(Pick(50)), static_cast<int>(Pick(12))});
    Click(program, "cmdADDtoSelected");
  }

  void MoveMouse() {
    said += "mouse; ";
    const int x = static_cast<int>(Pick(12'000));
    const int y = static_cast<int>(Pick(9'000));
    for (const MouseAction action : {MouseAction::kDown, MouseAction::kMove, MouseAction::kUp}) {
      ResultMouse(program, action, MouseButton::kLeft, x, y);
    }
    BackgroundMouse(program);
  }

  void Act() {
    switch (Pick(11)) {
      case 0:
      case 1:
        return ClickAnything();
      case 2:
      case 3:
        return RunDesign();
      case 4:
      case 5:
        return FillSheet();
      case 6:
        return PressKey();
      case 7:
        return TypeAnything();
      case 8:
        return SetCell();
      case 9:
        return ChooseHoles();
      default:
        return MoveMouse();
    }
  }

  std::mt19937 random_;
};

TEST(RandomUserTest, AlwaysFindsAWayToGoOn) {
  constexpr unsigned kOfOneUser = 100;
  const unsigned users = LongRun(2'000U, 200'000U, 2'000'000U) / kOfOneUser;
  const ElsewhereForAWhile elsewhere;  // a save without a name lands in the current folder
  const unsigned first = FirstRound(0);
  for (unsigned seed = first; seed < first + users; ++seed) {
    RandomUser user(seed);
    std::string all;
    for (unsigned k = 0; k < kOfOneUser; ++k) {
      user.Statement();
      all += user.said + "\n";
      const std::string wrong = user.Wrong();
      ASSERT_EQ(wrong, "") << "TORVALE_FIRST=" << seed << ", statement " << k << ", of\n" << all;
    }
  }
}

}  // namespace
}  // namespace torvale
