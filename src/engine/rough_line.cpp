#include "engine/rough_line.h"

#include <algorithm>

namespace torvale {
namespace {

// The holes of a group, and where they stand upstream of the far end.
struct Group {
  double opening = 0;
  double distance = 0;  // feet
  double height = 0;    // feet above the far end
  double dia_power = 1;
};

// Rows `from` down to `to`. `distance` and `height` are those of row `from`, and then of row `to` - 1.
Group Join(const WideRow* row, int from, int to, double& distance, double& height) {
  Group group;
  double by_row[2] = {};
  double by_area[2] = {};
  for (int i = from; i >= to; --i) {
    const WideRow& r = row[i];
    group.opening += r.opening;
    by_area[0] += r.opening * distance;
    by_area[1] += r.opening * height;
    by_row[0] += distance;
    by_row[1] += height;
    distance += r.length;
    height += r.rise;
  }
  const bool watered = group.opening > 0;
  const double* const sum = watered ? by_area : by_row;
  const double share = watered ? 1 / group.opening : 1.0 / (from - to + 1);
  group.distance = sum[0] * share;
  group.height = sum[1] * share;
  group.dia_power = row[to].dia_power;
  return group;
}

}  // namespace

std::vector<WideRow> RoughRows(const WideRow* row, int rows, int most) {
  const int size = std::max(1, (rows + most - 2) / most);
  std::vector<Group> groups;
  double distance = 0;
  double height = 0;
  groups.push_back(Join(row, rows, rows, distance, height));
  for (int from = rows - 1; from >= 1; from -= size) {
    groups.push_back(Join(row, from, std::max(1, from - size + 1), distance, height));
  }
  std::vector<WideRow> rough(groups.size() + 1);
  for (std::size_t i = 0; i < groups.size(); ++i) {
    const Group& here = groups[i];
    WideRow& made = rough[groups.size() - i];
    made = {here.opening, 0, here.dia_power, 0};
    if (i + 1 == groups.size()) continue;
    made.length = groups[i + 1].distance - here.distance;
    made.rise = groups[i + 1].height - here.height;
  }
  return rough;
}

}  // namespace torvale
