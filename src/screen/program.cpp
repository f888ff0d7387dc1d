#include "screen/program.h"

#include <algorithm>
#include <vector>

namespace torvale {
namespace {

// Where a control stands: its row, and what finds its store in a program.
struct Entry {
  const ControlFacts* facts;
  ControlStore (*find)(Program&, const ControlFacts&);
  const Entry* parent;  // nullptr for what stands in nothing
};

template <typename Screen>
Screen ScreenOf(Screen Program::*);

template <auto kScreen>
ControlStore FindIn(Program& program, const ControlFacts& facts) {
  using Screen = decltype(ScreenOf(kScreen));
  return static_cast<const ControlRow<Screen>&>(facts).find(program.*kScreen);
}

template <auto kScreen>
void Enter(std::vector<Entry>& all) {
  for (const auto& row : decltype(ScreenOf(kScreen))::Rows()) all.push_back({&row, FindIn<kScreen>, nullptr});
}

const Entry* Find(const std::vector<Entry>& all, std::string_view name) {
  const auto found = std::lower_bound(all.begin(), all.end(), name,
                                      [](const Entry& e, std::string_view text) { return e.facts->name < text; });
  return found == all.end() || found->facts->name != name ? nullptr : &*found;
}

// The controls of all screens in the order of their names.
std::vector<Entry> MakeDirectory() {
  std::vector<Entry> all;
  Enter<&Program::main>(all);
  Enter<&Program::soils>(all);
  Enter<&Program::profile>(all);
  Enter<&Program::splash>(all);
  Enter<&Program::help>(all);
  Enter<&Program::versions>(all);
  Enter<&Program::desk>(all);
  Enter<&Program::stakes>(all);
  std::sort(all.begin(), all.end(), [](const Entry& a, const Entry& b) { return a.facts->name < b.facts->name; });
  for (Entry& entry : all) entry.parent = Find(all, entry.facts->parent);
  return all;
}

// The tables never change, so their directory is made once.
const Entry* Find(std::string_view name) {
  static const std::vector<Entry> kDirectory = MakeDirectory();
  return Find(kDirectory, name);
}

ControlStore StoreOf(Program& program, std::string_view name) {
  const Entry* entry = Find(name);
  return entry == nullptr ? ControlStore{} : entry->find(program, *entry->facts);
}

// Whether the control stands in the editor of soils, a window of its own.
bool IsInSoils(const Entry& entry) {
  return entry.find == FindIn<&Program::soils>;
}

}  // namespace

Program::Program(Host& desktop) : host(desktop) {
  for (int row = 1; row <= kHoleSizes; ++row) main.listAllHoles.Add(record.HoleSizeName[row]);
}

Control* FindControl(Program& program, std::string_view name) {
  return StoreOf(program, name).control;
}

TextField* FindField(Program& program, std::string_view name) {
  return StoreOf(program, name).field;
}

Grid* FindGrid(Program& program, std::string_view name) {
  return StoreOf(program, name).grid;
}

ListBox* FindList(Program& program, std::string_view name) {
  return StoreOf(program, name).list;
}

const ControlFacts* FactsOf(std::string_view name) {
  const Entry* entry = Find(name);
  return entry == nullptr ? nullptr : entry->facts;
}

void PutInPlace(Program& program, std::string_view name) {
  if (const Entry* entry = Find(name)) entry->find(program, *entry->facts).control->place = entry->facts->place;
}

Reach ReachOf(Program& program, std::string_view name) {
  const Entry* entry = Find(name);
  if (entry == nullptr) return Reach::kUnknown;
  if (IsInSoils(*entry) && !program.soils.visible) return Reach::kHidden;
  // Results cover the sheet.
  if (name == "Grid1" && program.main.Grid2.control.visible) return Reach::kHidden;
  bool enabled = true;
  for (; entry != nullptr; entry = entry->parent) {
    const Control& control = *entry->find(program, *entry->facts).control;
    if (!control.visible) return Reach::kHidden;
    enabled = enabled && control.enabled;
  }
  return enabled ? Reach::kUsable : Reach::kDisabled;
}

}  // namespace torvale
