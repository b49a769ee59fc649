#include "tests/reference/naive_docx.h"

#include <cstdlib>
#include <vector>

#include "tests/reference/naive_text.h"

namespace korv::reference {

namespace {

constexpr auto kNone = std::string::npos;

enum class ItemKind { Text, Tab, Break, Paragraph };

struct Item {
  ItemKind Kind;
  std::string Text;
};

std::string NameAt(const std::string& xml, size_t at) {
  const size_t end = xml.find_first_of(" \t\r\n/>", at);
  return end == kNone ? "" : xml.substr(at, end - at);
}

// What follows the tag at `at`; kNone where the tag has no end.
size_t AfterTag(const std::string& xml, size_t at) {
  while (at < xml.size() && xml[at] != '>') {
    const bool quoted = xml[at] == '"' || xml[at] == '\'';
    if (quoted) at = xml.find(xml[at], at + 1);
    if (at == kNone) return kNone;
    ++at;
  }
  return at < xml.size() ? at + 1 : kNone;
}

// What follows the element at `at`, which has a name of its own.
size_t AfterElement(const std::string& xml, size_t at) {
  const std::string name = NameAt(xml, at + 1);
  size_t depth = 0;
  do {
    if (NameAt(xml, at + 1) == name) {
      const size_t after = AfterTag(xml, at);
      if (after == kNone) return kNone;
      if (xml[after - 2] != '/') ++depth;
      at = after - 1;
    } else if (xml.compare(at, 2, "</") == 0 && NameAt(xml, at + 2) == name) {
      --depth;
    }
    if (depth == 0) return at + 1;
    at = xml.find('<', at + 1);
  } while (at != kNone);
  return kNone;
}

std::string Character(const std::string& entity) {
  if (entity == "amp") return "&";
  if (entity == "lt") return "<";
  if (entity == "gt") return ">";
  if (entity == "quot") return "\"";
  if (entity == "apos") return "'";
  if (entity.empty() || entity[0] != '#') return "";
  const bool hexadecimal = entity.size() > 1 && entity[1] == 'x';
  const std::string digits = entity.substr(hexadecimal ? 2 : 1);
  if (digits.empty() ||
      digits.find_first_not_of(hexadecimal ? "0123456789abcdefABCDEF" : "0123456789") != kNone)
    return "";
  const unsigned long code = std::strtoul(digits.c_str(), nullptr, hexadecimal ? 16 : 10);
  if (code == 0 || code > 0x10FFFF || (code >= 0xD800 && code < 0xE000)) return "";
  return Encode(std::u32string(1, static_cast<char32_t>(code)));
}

std::string DecodeEntities(const std::string& raw) {
  std::string text;
  for (size_t at = 0; at < raw.size(); ++at) {
    const size_t end = raw[at] == '&' ? raw.find(';', at) : kNone;
    const std::string character = end == kNone ? "" : Character(raw.substr(at + 1, end - at - 1));
    if (character.empty()) {
      text += raw[at];
    } else {
      text += character;
      at = end;
    }
  }
  return text;
}

// Every kind of line end is CR LF.
std::string WithLineEnds(const std::string& text) {
  std::string whole;
  for (size_t at = 0; at < text.size(); ++at) {
    if (text.compare(at, 2, "\r\n") == 0) continue;
    whole += text[at] == '\r' || text[at] == '\n' ? std::string("\r\n") : std::string(1, text[at]);
  }
  return whole;
}

std::vector<Item> ItemsOf(const std::string& xml) {
  std::vector<Item> items;
  for (size_t at = xml.find('<'); at != kNone; at = xml.find('<', at)) {
    const std::string name = NameAt(xml, at + 1);
    if (name == "mc:Fallback" || name == "w:moveFrom") {
      at = AfterElement(xml, at);
      if (at == kNone) break;
      continue;
    }
    if (xml.compare(at, 5, "<w:t ") == 0 || xml.compare(at, 5, "<w:t>") == 0) {
      const size_t begin = AfterTag(xml, at);
      if (begin == kNone) break;
      const bool selfClosed = xml[begin - 2] == '/';
      const size_t end = selfClosed ? begin : xml.find("</w:t>", begin);
      if (end == kNone) break;
      items.push_back({ItemKind::Text, WithLineEnds(DecodeEntities(xml.substr(begin, end - begin)))});
      at = selfClosed ? begin : end + 6;
      continue;
    }
    if (xml.compare(at, 6, "</w:p>") == 0 || name == "w:br" || name == "w:cr")
      items.push_back({ItemKind::Break, ""});
    else if (name == "w:p")
      items.push_back({ItemKind::Paragraph, ""});
    else if (name == "w:tab" || name == "w:ptab")
      items.push_back({ItemKind::Tab, ""});
    else if (name == "w:noBreakHyphen")
      items.push_back({ItemKind::Text, "-"});
    ++at;
  }
  return items;
}

}  // namespace

std::string DocxText(const std::string& xml) {
  std::string text;
  std::string line;
  bool tab = false;
  for (const Item& item : ItemsOf(xml)) {
    if (item.Kind == ItemKind::Text && !item.Text.empty()) {
      line += (tab && !line.empty() ? " " : "") + item.Text;
      tab = false;
    }
    if (item.Kind == ItemKind::Tab) tab = true;
    if (item.Kind == ItemKind::Break || (item.Kind == ItemKind::Paragraph && !line.empty())) {
      text += line + "\r\n";
      line.clear();
      tab = false;
    }
  }
  return text + line;
}

}  // namespace korv::reference
