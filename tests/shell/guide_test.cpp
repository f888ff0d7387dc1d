// The guide names what the user sees: every menu entry, button and label, every heading, every shortcut. Its form, its
// messages and its figures are looked at by scripts/check_guide.py.
#include <gtest/gtest.h>

#include <set>

#include "base/numbers.h"
#include "display/grid_layout.h"
#include "shell/commands.h"
#include "started_program.h"
#include "support/file_bytes.h"
#include "support/source_folder.h"

namespace torvale {
namespace {

std::string Replaced(std::string text, std::string_view from, std::string_view to) {
  for (std::size_t at = text.find(from); at != std::string::npos; at = text.find(from, at + to.size())) {
    text.replace(at, from.size(), to);
  }
  return text;
}

// Every stretch of blanks and line ends as one blank, none at the ends.
std::string Plain(std::string_view text) {
  std::string plain;
  for (const char c : text) {
    const bool blank = c == ' ' || c == '\r' || c == '\n' || c == '\t';
    if (!blank) {
      plain += c;
    } else if (!plain.empty() && plain.back() != ' ') {
      plain += ' ';
    }
  }
  if (plain.ends_with(' ')) plain.pop_back();
  return plain;
}

// What a reader sees of a piece of the guide.
std::string Shown(std::string_view markup) {
  std::string text;
  bool inside_tag = false;
  for (const char c : markup) {
    if (c == '<') inside_tag = true;
    if (!inside_tag) text += c;
    if (c == '>') inside_tag = false;
  }
  for (const auto& [entity, character] : {std::pair{"&lt;", "<"}, {"&gt;", ">"}, {"&quot;", "\""}, {"&amp;", "&"}}) {
    text = Replaced(text, entity, character);
  }
  return Plain(text);
}

std::string Guide() {
  return BytesOf(std::string(kSourceFolder) + "/data/TORVALEHELP.hlp");
}

std::string Page(std::string_view id) {
  const std::string guide = Guide();
  const std::size_t start = guide.find("<section id=\"" + std::string(id) + "\"");
  if (start == std::string::npos) return "";
  return Shown(std::string_view(guide).substr(start, guide.find("</section>", start) - start));
}

// A caption as it stands on the screen: without the mark of its mnemonic, and without the dots of a dialog to come.
std::string CaptionOf(const NamedControl& named) {
  std::string caption = named.control->caption;
  const bool has_mnemonic = named.kind == ControlKind::kMenu || named.kind == ControlKind::kButton;
  if (has_mnemonic) caption = Replaced(caption, "&", "");
  if (caption.ends_with("...")) caption.resize(caption.size() - 3);
  return Plain(caption);
}

std::vector<NamedControl> AllControls(Program& program) {
  std::vector<NamedControl> all = ControlsOf(program.main);
  for (const auto& more : {ControlsOf(program.soils), ControlsOf(program.profile)}) {
    all.insert(all.end(), more.begin(), more.end());
  }
  return all;
}

using GuideTest = StartedProgramTest;

TEST(Guide, TakesTagsAndEntitiesOutOfWhatItShows) {
  EXPECT_EQ(Shown("<p>a <b>&lt;b&gt;</b>\n  &amp;lt; &quot;c&quot;</p>"), "a <b> &lt; \"c\"");
}

TEST_F(GuideTest, NamesEveryCaption) {
  const std::string guide = Shown(Guide());
  int seen = 0;
  for (const NamedControl& named : AllControls(program)) {
    const std::string caption = CaptionOf(named);
    if (caption.empty() || caption == "-") continue;
    EXPECT_NE(guide.find(caption), std::string::npos) << named.name << ": " << caption;
    ++seen;
  }
  EXPECT_GT(seen, 90);
}

// Both survey kinds, both kinds of pipe, both shapes of gate.
std::set<std::string> Headings(Program& program) {
  std::set<std::string> headings;
  for (const char* survey : {"R", "E"}) {
    for (const char* pipe : {"mnuLayflatPipe", "mnuRigidPipe"}) {
      for (const char* gate : {"R", "C"}) {
        program.main.txtDefault[11].Set(gate);
        Click(program, pipe);
        program.main.txtInfo[5].Set(survey);
        const auto take = [&](const Grid& grid) {
          for (int c = 0; c < grid.column_count(); ++c) headings.insert(Plain(grid.Text(0, c)));
        };
        take(program.main.Grid1);
        GridSet(program);
        for (const Grid* grid : {&program.main.Grid1, &program.main.Grid2, &program.main.GridInchesApplied,
                                 &program.soils.Grd_Soils_FurrowFlow}) {
          take(*grid);
        }
      }
    }
  }
  headings.erase("");
  return headings;
}

TEST_F(GuideTest, NamesEveryHeading) {
  const std::string guide = Shown(Guide());
  const std::set<std::string> headings = Headings(program);
  // 9 columns of the sheet, 12 of the results, 3 of the hours, 2 of the soils; the five that have a second or third
  // wording make up for those that two grids share.
  EXPECT_GE(headings.size(), 26U);
  for (const std::string& heading : headings) EXPECT_NE(guide.find(heading), std::string::npos) << heading;
}

TEST_F(GuideTest, NamesEveryShortcut) {
  const std::string keys = Page("keys");
  int seen = 0;
  for (const NamedControl& named : AllControls(program)) {
    const std::string_view shortcut = named.facts->shortcut;
    if (shortcut.empty()) continue;
    EXPECT_NE(keys.find(shortcut), std::string::npos) << named.name << ": " << shortcut;
    ++seen;
  }
  EXPECT_GE(seen, 10);
}

}  // namespace
}  // namespace torvale
