#include "reports/phone_page.h"

#include "reports/hole_summary_report.h"

namespace torvale {
namespace {

// No source of anything but the page's own style and script is allowed.
constexpr std::string_view kHead = R"(<meta charset="utf-8">
<meta name="viewport" content="width=device-width, initial-scale=1">
<meta http-equiv="Content-Security-Policy" content="default-src 'none'; style-src 'unsafe-inline'; script-src 'unsafe-inline'">
<meta name="color-scheme" content="light dark">
<style>
:root { --paper: #fff; --ink: #000; --line: #000; --done: #d5f2d5; --soft: #333; }
@media (prefers-color-scheme: dark) {
  :root { --paper: #000; --ink: #fff; --line: #fff; --done: #0b3d0b; --soft: #ddd; }
}
* { box-sizing: border-box; }
body { margin: 0; padding: 12px 14px 40px; background: var(--paper); color: var(--ink);
  font: 600 20px/1.35 system-ui, -apple-system, "Segoe UI", Roboto, Helvetica, Arial, sans-serif; }
main { max-width: 34em; margin: 0 auto; }
h1 { font-size: 28px; line-height: 1.2; margin: 0 0 4px; overflow-wrap: anywhere; }
h2 { font-size: 22px; margin: 26px 0 8px; }
#stale { border: 4px solid #c00; border-radius: 12px; padding: 10px 14px; margin: 14px 0; }
#stale b { display: block; font-size: 24px; font-weight: 800; }
p { margin: 2px 0; color: var(--soft); overflow-wrap: anywhere; }
#progress { color: var(--ink); font-size: 22px; margin: 14px 0 8px; }
ol, ul { list-style: none; margin: 0; padding: 0; }
#runs li { margin: 0 0 10px; }
#runs label { display: flex; align-items: center; gap: 14px; min-height: 84px; padding: 10px 14px;
  border: 3px solid var(--line); border-radius: 12px; cursor: pointer; }
#runs input { flex: none; width: 34px; height: 34px; margin: 0; accent-color: #0a7a0a; }
#runs label:has(input:checked) { background: var(--done); }
#runs input:focus-visible { outline: 4px solid #06c; outline-offset: 3px; }
.size { display: block; font-size: 30px; font-weight: 800; line-height: 1.15; }
.where { display: block; font-size: 24px; font-weight: 700; }
.count { display: block; }
.tick { display: none; margin-left: auto; font-weight: 800; }
input:checked ~ .tick { display: block; }
table { border-collapse: collapse; width: 100%; }
th, td { text-align: left; font-weight: 600; padding: 6px 8px 6px 0; border-bottom: 1px solid var(--line);
  vertical-align: top; }
td { text-align: right; padding-right: 0; overflow-wrap: anywhere; }
button { font: inherit; color: inherit; background: transparent; border: 3px solid var(--line); border-radius: 12px;
  min-height: 56px; padding: 8px 18px; margin-top: 8px; }
@media print { button, #progress, #unkept { display: none; } }
</style>
)";

// The words of the page are the name under which its ticks are kept.
constexpr std::string_view kScript = R"(<script>
(function () {
  "use strict";
  var boxes = Array.prototype.slice.call(document.querySelectorAll("#runs input"));
  var name = "torvale " + document.getElementById("heading").textContent + document.getElementById("runs").textContent;
  var told = document.getElementById("progress");
  function tell() {
    var done = boxes.filter(function (box) { return box.checked; }).length;
    told.textContent = done === boxes.length && done > 0 ? "All " + done + " done" : done + " of " + boxes.length + " done";
  }
  function keep() {
    try {
      localStorage.setItem(name, boxes.map(function (box) { return box.checked ? "1" : "0"; }).join(""));
    } catch (refused) {
      document.getElementById("unkept").hidden = false;
    }
  }
  try {
    var kept = localStorage.getItem(name) || "";
    boxes.forEach(function (box, i) { box.checked = kept.charAt(i) === "1"; });
  } catch (refused) {
    document.getElementById("unkept").hidden = false;
  }
  boxes.forEach(function (box) { box.addEventListener("change", function () { keep(); tell(); }); });
  document.getElementById("clear").addEventListener("click", function () {
    if (!confirm("Take all ticks away?")) return;
    boxes.forEach(function (box) { box.checked = false; });
    keep();
    tell();
  });
  document.getElementById("clear").hidden = boxes.length === 0;
  tell();
})();
</script>
)";

// A text as HTML shows it. Control characters become blanks.
std::string HtmlText(std::string_view text) {
  std::string html;
  for (const char c : text) {
    switch (c) {
      case '&':
        html += "&amp;";
        break;
      case '<':
        html += "&lt;";
        break;
      case '>':
        html += "&gt;";
        break;
      case '"':
        html += "&quot;";
        break;
      case '\'':
        html += "&#39;";
        break;
      default:
        html += static_cast<unsigned char>(c) < 0x20 || c == 0x7f ? ' ' : c;
    }
  }
  return html;
}

std::string Element(std::string_view open, std::string_view text, std::string_view close) {
  return std::string(open) + HtmlText(text) + std::string(close);
}

std::string Heading(const CrewSheet& sheet) {
  std::string html = "<header id=\"heading\">\n";
  html += Element("<h1>", sheet.name.empty() ? kHoleSummary : std::string_view(sheet.name), "</h1>\n");
  for (const std::string& line : {sheet.location, sheet.design, sheet.date}) {
    if (!line.empty()) html += Element("<p>", line, "</p>\n");
  }
  return html + "</header>\n";
}

// Figures that belong to other inputs than those that stand beside them in the program.
std::string Stale(const CrewSheet& sheet) {
  if (sheet.stale.heading.empty()) return "";
  return Element("<section id=\"stale\"><b>", sheet.stale.heading, "</b>") +
         Element("", sheet.stale.sentence, "</section>\n");
}

std::string Run(const CrewRun& run) {
  return "<li><label><input type=\"checkbox\" autocomplete=\"off\"><span>" +
         Element("<span class=\"size\">", run.size, "</span>") +
         Element("<span class=\"where\">", run.where, "</span>") +
         Element("<span class=\"count\">", run.count, "</span>") +
         "</span><span class=\"tick\">Done</span></label></li>\n";
}

std::string Runs(const CrewSheet& sheet) {
  std::string html = "<p id=\"progress\" role=\"status\"></p>\n<ol id=\"runs\">\n";
  for (const CrewRun& run : sheet.runs) html += Run(run);
  return html +
         "</ol>\n<p id=\"unkept\" hidden>This browser forgets the ticks when the page is closed.</p>\n"
         "<button id=\"clear\" type=\"button\" hidden>Clear ticks</button>\n";
}

std::string Lines(std::string_view heading, const std::vector<std::string>& lines) {
  if (lines.empty()) return "";
  std::string html = Element("<h2>", heading, "</h2>\n<ul>\n");
  for (const std::string& line : lines) html += Element("<li>", line, "</li>\n");
  return html + "</ul>\n";
}

std::string Figures(const CrewSheet& sheet) {
  std::string html = "<h2>Figures</h2>\n<table>\n";
  for (const auto& [label, text] : sheet.figures) {
    html += Element("<tr><th scope=\"row\">", label, "</th>") + Element("<td>", text, "</td></tr>\n");
  }
  return html + "</table>\n";
}

}  // namespace

std::string PhonePage(const CrewSheet& sheet) {
  const std::string title = (sheet.name.empty() ? "" : sheet.name + ": ").append(kHoleSummary);
  return "<!DOCTYPE html>\n<html lang=\"en\">\n<head>\n" + std::string(kHead) +
         Element("<title>", title, "</title>\n</head>\n<body>\n<main>\n") + Heading(sheet) + Stale(sheet) +
         Runs(sheet) + Lines("Holes in all", sheet.totals) + Lines("Spacing", sheet.spacings) + Figures(sheet) +
         "</main>\n" + std::string(kScript) + "</body>\n</html>\n";
}

}  // namespace torvale
