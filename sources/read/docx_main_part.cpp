#include "sources/read/docx_main_part.h"

#include <algorithm>
#include <vector>

#include "sources/read/xml_text.h"

namespace korv {

namespace {

constexpr auto kNone = std::string_view::npos;

// A name may stand behind a prefix of its namespace.
bool IsRelationship(std::string_view tag) {
  const size_t end = tag.find_first_of("< \t\r\n/>", 1);
  if (end == kNone) return false;
  const std::string_view name = tag.substr(1, end - 1);
  return name.substr(name.find(':') + 1) == "Relationship";
}

// The name of a member as the archive has it: from the root on, without "." and "..".
std::optional<std::string> MemberOf(std::string_view target) {
  std::vector<std::string_view> steps;
  for (size_t begin = 0; begin <= target.size();) {
    const size_t end = std::min(target.find('/', begin), target.size());
    const std::string_view step = target.substr(begin, end - begin);
    begin = end + 1;
    if (step.empty() || step == ".") continue;
    if (step != "..") {
      steps.push_back(step);
    } else {
      if (steps.empty()) return std::nullopt;
      steps.pop_back();
    }
  }
  if (steps.empty()) return std::nullopt;
  std::string member;
  for (const std::string_view step : steps) member.append(member.empty() ? "" : "/").append(step);
  return member;
}

}  // namespace

std::optional<std::string> MainPartOf(std::string_view relationships) {
  for (size_t at = relationships.find('<'); at != kNone; at = relationships.find('<', at + 1)) {
    if (!IsRelationship(relationships.substr(at))) continue;
    const size_t end = XmlTagEnd(relationships, at);
    if (end == kNone) return std::nullopt;
    const std::string_view tag = relationships.substr(at, end - at);
    const auto type = XmlAttribute(tag, "Type");
    if (!type || !type->ends_with("/officeDocument")) continue;
    if (XmlAttribute(tag, "TargetMode").value_or("") == "External") continue;
    return MemberOf(XmlAttribute(tag, "Target").value_or(""));
  }
  return std::nullopt;
}

}  // namespace korv
