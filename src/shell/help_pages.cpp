#include "shell/help_pages.h"

#include <algorithm>
#include <array>
#include <optional>

#include "screen/fields.h"

namespace torvale {
namespace {

constexpr std::string_view kPageStart = "<section";
constexpr std::string_view kPageEnd = "</section>";

// What an attribute of a tag says; nothing where the tag doesn't have it.
std::optional<std::string_view> Attribute(std::string_view tag, std::string_view name) {
  const std::string opening = " " + std::string(name) + "=\"";
  const std::size_t at = tag.find(opening);
  if (at == std::string_view::npos) return std::nullopt;
  tag.remove_prefix(at + opening.size());
  const std::size_t end = tag.find('"');
  return end == std::string_view::npos ? std::nullopt : std::optional(tag.substr(0, end));
}

struct Entity {
  std::string_view name;
  std::string_view character;
};

constexpr std::array<Entity, 5> kEntities = {{
    {"&lt;", "<"},
    {"&gt;", ">"},
    {"&quot;", "\""},
    {"&nbsp;", " "},
    {"&amp;", "&"},
}};

// Tags within a word; all others set words apart.
bool IsInline(std::string_view tag) {
  constexpr std::array<std::string_view, 6> kInline = {"b", "i", "a", "sub", "sup", "code"};
  if (tag.starts_with('/')) tag.remove_prefix(1);
  const std::string_view name = tag.substr(0, tag.find_first_of(" >"));
  return std::find(kInline.begin(), kInline.end(), name) != kInline.end();
}

bool IsBlank(char c) {
  return c == ' ' || c == '\n' || c == '\r' || c == '\t';
}

// Builds a plain text in which words are set apart by one blank.
class PlainText {
 public:
  void Add(char c) {
    if (!IsBlank(c)) {
      text_ += c;
    } else if (!text_.empty() && text_.back() != ' ') {
      text_ += ' ';
    }
  }
  std::string Take() {
    if (text_.ends_with(' ')) text_.pop_back();
    return std::move(text_);
  }

 private:
  std::string text_;
};

std::string TextOf(std::string_view html) {
  PlainText text;
  while (!html.empty()) {
    const std::size_t end = html.front() == '<' ? html.find('>') : std::string_view::npos;
    if (end != std::string_view::npos) {
      if (!IsInline(html.substr(1, end - 1))) text.Add(' ');
      html.remove_prefix(end + 1);
      continue;
    }
    const auto* const entity =
        std::find_if(kEntities.begin(), kEntities.end(), [&](const Entity& e) { return html.starts_with(e.name); });
    text.Add(entity == kEntities.end() ? html.front() : entity->character.front());
    html.remove_prefix(entity == kEntities.end() ? 1 : entity->name.size());
  }
  return text.Take();
}

std::string Plain(std::string_view text) {
  PlainText plain;
  for (const char c : text) plain.Add(c);
  return plain.Take();
}

std::string TitleOf(std::string_view html) {
  const std::size_t start = html.find("<h1");
  const std::size_t end = html.find("</h1>", start);
  return end == std::string_view::npos ? "" : TextOf(html.substr(start, end - start));
}

constexpr std::string_view kEntry = "<h3>";

std::string WithAnchors(const std::string& page, std::string_view html) {
  std::string anchored;
  int count = 0;
  for (std::size_t at = html.find(kEntry); at != std::string_view::npos; at = html.find(kEntry)) {
    anchored.append(html.substr(0, at)).append("<h3 id=\"" + page + "-" + std::to_string(++count) + "\">");
    html.remove_prefix(at + kEntry.size());
  }
  return anchored.append(html);
}

// The texts between what stands in italics, each with single blanks.
std::vector<std::string> FixedParts(std::string_view heading) {
  std::vector<std::string> parts;
  for (;;) {
    const std::size_t open = heading.find("<i>");
    parts.push_back(TextOf(heading.substr(0, open)));
    const std::size_t close = heading.find("</i>");
    if (open == std::string_view::npos || close == std::string_view::npos) return parts;
    heading.remove_prefix(close + std::string_view("</i>").size());
  }
}

// Whether the text begins and ends with the outer parts and has the others in between, in their order.
bool Fits(std::string_view text, const std::vector<std::string>& parts) {
  if (parts.size() == 1) return text == parts.front();
  if (!text.starts_with(parts.front())) return false;
  text.remove_prefix(parts.front().size());
  for (std::size_t i = 1; i + 1 < parts.size(); ++i) {
    const std::size_t at = text.find(parts[i]);
    if (at == std::string_view::npos) return false;
    text.remove_prefix(at + parts[i].size());
  }
  return text.ends_with(parts.back());
}

HelpPage ReadPage(std::string_view tag, std::string_view html) {
  HelpPage page;
  page.id = Attribute(tag, "id").value_or("");
  if (page.id.empty()) throw HelpFault("a page has no id");
  page.group = TextOf(Attribute(tag, "data-group").value_or(""));
  page.html = WithAnchors(page.id, html);
  page.title = TitleOf(html);
  if (page.title.empty()) throw HelpFault("the page " + page.id + " has no title");
  page.text = TextOf(html);
  return page;
}

}  // namespace

std::vector<HelpPage> ReadHelpPages(std::string_view file) {
  std::vector<HelpPage> pages;
  for (std::size_t at = file.find(kPageStart); at != std::string_view::npos; at = file.find(kPageStart, at)) {
    const std::size_t tag_end = file.find('>', at);
    const std::size_t end = file.find(kPageEnd, at);
    if (tag_end == std::string_view::npos || end == std::string_view::npos || end < tag_end) {
      throw HelpFault("a page does not end");
    }
    HelpPage page = ReadPage(file.substr(at, tag_end - at), file.substr(tag_end + 1, end - tag_end - 1));
    const auto same = [&](const HelpPage& other) { return other.id == page.id; };
    if (std::any_of(pages.begin(), pages.end(), same)) throw HelpFault("the page " + page.id + " stands twice");
    pages.push_back(std::move(page));
    at = end;
  }
  if (pages.empty()) throw HelpFault("it holds no pages");
  return pages;
}

const HelpPage* PageAt(const std::vector<HelpPage>& pages, std::string_view place) {
  if (place.empty()) return nullptr;
  for (const HelpPage& page : pages) {
    if (page.id == place) return &page;
  }
  const std::string anchor = " id=\"" + std::string(place) + "\"";
  for (const HelpPage& page : pages) {
    if (page.html.find(anchor) != std::string::npos) return &page;
  }
  return nullptr;
}

std::string PlaceOfMessage(const std::vector<HelpPage>& pages, std::string_view body) {
  const std::string page_id = "messages";
  const HelpPage* page = PageAt(pages, page_id);
  if (page == nullptr) return page_id;
  const std::string text = Plain(body);
  const std::string_view html = page->html;
  std::string place = page_id;
  std::size_t closest = 0;
  for (std::size_t at = html.find("<h3 "); at != std::string_view::npos; at = html.find("<h3 ", at + 1)) {
    const std::size_t begin = html.find('>', at) + 1;
    const std::vector<std::string> parts = FixedParts(html.substr(begin, html.find("</h3>", at) - begin));
    std::size_t letters = 1;
    for (const std::string& part : parts) letters += part.size();
    if (letters <= closest || !Fits(text, parts)) continue;
    closest = letters;
    place = Attribute(html.substr(at, begin - at), "id").value_or(page_id);
  }
  return place;
}

}  // namespace torvale
