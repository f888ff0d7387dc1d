#include "shell/packed_changes.h"

#include <algorithm>
#include <utility>

namespace torvale {
namespace {

// Seven bits to a byte, the lowest first; the highest bit tells that more follow.
void PutNumber(std::string& out, std::size_t number) {
  for (; number >= 0x80U; number >>= 7U) out.push_back(static_cast<char>(number | 0x80U));
  out.push_back(static_cast<char>(number));
}

std::size_t TakeNumber(std::string_view& in) {
  std::size_t number = 0;
  for (unsigned shift = 0; !in.empty(); shift += 7) {
    const auto byte = static_cast<unsigned char>(in.front());
    in.remove_prefix(1);
    number |= static_cast<std::size_t>(byte & 0x7FU) << shift;
    if ((byte & 0x80U) == 0) break;
  }
  return number;
}

void PutText(std::string& out, std::string_view text) {
  PutNumber(out, text.size());
  out.append(text);
}

std::string TakeText(std::string_view& in) {
  const std::size_t length = std::min(TakeNumber(in), in.size());
  std::string text(in.substr(0, length));
  in.remove_prefix(length);
  return text;
}

}  // namespace

std::string PackChanges(const std::vector<InputChange>& changes) {
  std::string packed;
  for (const InputChange& change : changes) {
    PutNumber(packed, static_cast<std::size_t>(change.place));
    PutText(packed, change.before);
    PutText(packed, change.after);
  }
  packed.shrink_to_fit();
  return packed;
}

std::vector<InputChange> UnpackChanges(std::string_view packed) {
  std::vector<InputChange> changes;
  while (!packed.empty()) {
    const auto place = static_cast<int>(TakeNumber(packed));
    std::string before = TakeText(packed);
    changes.push_back({place, std::move(before), TakeText(packed)});
  }
  return changes;
}

}  // namespace torvale
