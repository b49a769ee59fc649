#include "sources/documents/zip_path.h"

#include <algorithm>
#include <vector>

namespace korv {

namespace {

int HexDigit(char c) {
  if (c >= '0' && c <= '9') return c - '0';
  if (c >= 'a' && c <= 'f') return c - 'a' + 10;
  if (c >= 'A' && c <= 'F') return c - 'A' + 10;
  return -1;
}

std::string WithoutEscapes(std::string_view url) {
  std::string text;
  for (size_t at = 0; at < url.size(); ++at) {
    const bool isEscape =
        url[at] == '%' && at + 2 < url.size() && HexDigit(url[at + 1]) >= 0 && HexDigit(url[at + 2]) >= 0;
    if (isEscape) {
      text += static_cast<char>(HexDigit(url[at + 1]) * 16 + HexDigit(url[at + 2]));
      at += 2;
    } else {
      text += url[at];
    }
  }
  return text;
}

/// Appends the steps of a path; false where they lead above the root.
bool AddSteps(std::string_view path, std::vector<std::string_view>& steps) {
  for (size_t begin = 0; begin <= path.size();) {
    const size_t end = std::min(path.find('/', begin), path.size());
    const std::string_view step = path.substr(begin, end - begin);
    begin = end + 1;
    if (step.empty() || step == ".") continue;
    if (step != "..") {
      steps.push_back(step);
      continue;
    }
    if (steps.empty()) return false;
    steps.pop_back();
  }
  return true;
}

}  // namespace

std::optional<std::string> MemberBeside(std::string_view base, std::string_view reference) {
  const std::string path = WithoutEscapes(reference.substr(0, reference.find('#')));
  std::vector<std::string_view> steps;
  if (!path.starts_with('/')) AddSteps(base.substr(0, base.rfind('/') + 1), steps);
  if (path.empty() || !AddSteps(path, steps) || steps.empty()) return std::nullopt;
  std::string member;
  for (const std::string_view step : steps) member.append(member.empty() ? "" : "/").append(step);
  return member;
}

}  // namespace korv
