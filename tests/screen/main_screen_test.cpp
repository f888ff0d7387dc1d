#include "screen/main_screen.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <cctype>
#include <map>
#include <set>
#include <string>
#include <utility>

#include "screen/program.h"

namespace torvale {
namespace {

const NamedControl* Find(const std::vector<NamedControl>& controls, std::string_view name) {
  const auto found =
      std::find_if(controls.begin(), controls.end(), [&](const NamedControl& c) { return c.name == name; });
  return found == controls.end() ? nullptr : &*found;
}

TEST(MainScreen, NamesAndControlsAreUnique) {
  MainScreen screen;
  std::set<std::string_view> names;
  std::set<const Control*> controls;
  for (const NamedControl& named : ControlsOf(screen)) {
    EXPECT_TRUE(names.insert(named.name).second) << named.name;
    EXPECT_TRUE(controls.insert(named.control).second) << named.name;
  }
}

// A parent stands ahead of its children and is a frame or a menu.
TEST(MainScreen, ParentsAreFramesAndMenus) {
  MainScreen screen;
  std::set<std::string_view> seen;
  const std::vector<NamedControl> controls = ControlsOf(screen);
  for (const NamedControl& named : controls) {
    if (!named.parent.empty()) {
      ASSERT_TRUE(seen.contains(named.parent)) << named.name;
      const ControlKind kind = Find(controls, named.parent)->kind;
      EXPECT_TRUE(kind == ControlKind::kFrame || kind == ControlKind::kMenu) << named.name;
    }
    seen.insert(named.name);
  }
}

// A name finds a control in whatever screen it stands, so no two screens share one.
TEST(MainScreen, NamesAreUniqueAmongAllScreens) {
  std::set<std::string_view> names;
  std::size_t count = 0;
  const auto take = [&](const auto& rows) {
    for (const ControlFacts& facts : rows) EXPECT_TRUE(names.insert(facts.name).second) << facts.name;
    count += rows.size();
  };
  take(MainScreen::Rows());
  take(SoilsScreen::Rows());
  take(CrownProfileScreen::Rows());
  take(SplashScreen::Rows());
  take(HelpScreen::Rows());
  EXPECT_EQ(names.size(), count);
  EXPECT_GT(count, 180U);
}

// What a screen begins with is what the row says, and what the row says of tool bar keys is whole.
TEST(MainScreen, RowsSayHowControlsBegin) {
  MainScreen screen;
  std::set<std::string_view> keys;
  std::set<int> orders;
  for (const NamedControl& named : ControlsOf(screen)) {
    const ControlFacts& facts = *named.facts;
    EXPECT_EQ(named.control->caption, facts.caption);
    EXPECT_EQ(named.control->tool_tip, facts.tool_tip);
    EXPECT_EQ(named.control->place, facts.place);
    EXPECT_EQ(named.control->visible, facts.visible);
    if (facts.tool.key.empty()) continue;
    EXPECT_EQ(facts.kind, ControlKind::kMenu) << facts.name;
    EXPECT_TRUE(keys.insert(facts.tool.key).second) << facts.tool.key;
    EXPECT_TRUE(orders.insert(facts.tool.order).second) << facts.tool.key;
    EXPECT_FALSE(facts.tool.icon.empty()) << facts.tool.key;
  }
  EXPECT_GE(keys.size(), 9U);
}

TEST(MainScreen, FieldsAndGridsHaveTheirStores) {
  MainScreen screen;
  for (const NamedControl& named : ControlsOf(screen)) {
    EXPECT_EQ(named.field != nullptr, named.kind == ControlKind::kField) << named.name;
    EXPECT_EQ(named.grid != nullptr, named.kind == ControlKind::kGrid) << named.name;
    if (named.field != nullptr) {
      EXPECT_EQ(&named.field->control, named.control);
    }
    if (named.grid != nullptr) {
      EXPECT_EQ(&named.grid->control, named.control);
    }
  }
}

// Whatever stands on the screen has a place of its own from the start, but for the list that puts hole sizes
// in order and is never shown.
TEST(MainScreen, ControlsHavePlaces) {
  MainScreen screen;
  for (const NamedControl& named : ControlsOf(screen)) {
    if (!OnScreen(named.kind) || named.control == &screen.listSortSelectedHoles.control) continue;
    if (named.parent == "Frame1") continue;  // the panel of defaults lays itself out
    EXPECT_GT(named.control->place.width, 0) << named.name;
    EXPECT_GT(named.control->place.height, 0) << named.name;
  }
}

TEST(MainScreen, BeginsOnTheInputScreen) {
  MainScreen screen;
  EXPECT_TRUE(screen.Grid1.control.visible);
  EXPECT_TRUE(screen.cmdInterpolate.visible);
  for (const Control* hidden : {&screen.Grid2.control, &screen.GridInchesApplied.control, &screen.cmdCancel,
                                &screen.cmdReCalc, &screen.cmdDesignToggle, &screen.frmDisplay, &screen.lblEffic,
                                &screen.lblCrownSlope, &screen.frameShowLimitedHoles, &screen.Frame1}) {
    EXPECT_FALSE(hidden->visible) << hidden->caption;
  }
  EXPECT_EQ(screen.cmdInterpolate.caption, "Interpolate Furrow Length and Calculate Elevations");
  EXPECT_EQ(screen.cmdDesignToggle.caption, "Complete Design");
  EXPECT_EQ(screen.lblActiveInactive.caption, "Inactive Design");
}

// Two entries with the same key would leave one of them without.
TEST(MainScreen, ShortcutsAreUnique) {
  MainScreen screen;
  std::set<std::string_view> shortcuts;
  int count = 0;
  for (const NamedControl& named : ControlsOf(screen)) {
    if (named.kind != ControlKind::kMenu) continue;
    if (named.facts->shortcut.empty()) continue;
    ++count;
    EXPECT_TRUE(shortcuts.insert(named.facts->shortcut).second) << named.facts->shortcut;
  }
  EXPECT_GT(count, 0);
}

// The letter that a caption marks as its mnemonic, as a capital; none where it marks none.
char MnemonicOf(const std::string& caption) {
  const std::size_t mark = caption.find('&');
  return mark == std::string::npos ? '\0'
                                   : static_cast<char>(std::toupper(static_cast<unsigned char>(caption[mark + 1])));
}

// In one menu a letter opens one entry. The captions of these pairs are the ones that planners know, with their
// letters; pressed again, the letter goes on to the other entry.
TEST(MainScreen, MnemonicsAreUniqueWithinAMenu) {
  const std::set<std::pair<std::string, std::string>> known = {{"mnuEdit", "mnuDesign"},
                                                               {"mnuDesignConstSlope", "mnuComputerHoleSelection"},
                                                               {"mnuDesignDualSlope", "mnuManHoleSelection"}};
  MainScreen screen;
  SoilsScreen soils;
  std::vector<NamedControl> all = ControlsOf(screen);
  const std::vector<NamedControl> editor = ControlsOf(soils);
  std::map<std::pair<std::string, char>, std::string> taken;
  int clashes = 0;
  int bars = 0;
  for (const std::vector<NamedControl>& bar : {all, editor}) {
    ++bars;
    for (const NamedControl& named : bar) {
      if (named.kind != ControlKind::kMenu) continue;
      const char letter = MnemonicOf(named.control->caption);
      if (letter == '\0') continue;
      const std::string menu = std::to_string(bars).append(named.parent);
      const auto [first, is_first] = taken.try_emplace({menu, letter}, std::string(named.name));
      if (is_first) continue;
      ++clashes;
      EXPECT_TRUE(known.contains({first->second, std::string(named.name)})) << first->second << " and " << named.name;
    }
  }
  EXPECT_EQ(clashes, static_cast<int>(known.size()));
  EXPECT_GT(taken.size(), 20U);
}

// Every menu of the bar opens by a letter.
TEST(MainScreen, MenusOfTheBarHaveMnemonics) {
  MainScreen screen;
  const std::vector<NamedControl> all = ControlsOf(screen);
  for (const NamedControl& named : all) {
    const bool opens =
        std::any_of(all.begin(), all.end(), [&](const NamedControl& c) { return c.parent == named.name; });
    if (named.kind != ControlKind::kMenu || !named.parent.empty() || !opens) continue;
    EXPECT_NE(MnemonicOf(named.control->caption), '\0') << named.name;
  }
}

// The steps of the zoom and their captions go together.
TEST(MainScreen, ZoomStepsAreNamed) {
  MainScreen screen;
  for (std::size_t i = 0; i < kZoomSteps.size(); ++i) {
    EXPECT_EQ(screen.mnuZoomTo[i].caption, std::to_string(kZoomSteps[i]) + " %");
  }
}

}  // namespace
}  // namespace torvale
