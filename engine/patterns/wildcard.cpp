#include "engine/patterns/wildcard.h"

#include <algorithm>

#include "engine/text/unicode.h"

namespace korv {

namespace {

constexpr char32_t kDottedCapitalI = 0x130;
constexpr char32_t kLongS = 0x17F;
constexpr char32_t kMicroSign = 0xB5;

char32_t FoldCharacter(char32_t c) {
  // A capital I with a dot equals no other letter, although its lower-case form is i. A long s is a
  // lower-case letter and equals s all the same.
  if (c == kDottedCapitalI) return c;
  if (c == kLongS) return U's';
  return LowerCharacter(c);
}

/// Whether folding tells which characters equal this one without regard to case. It does up to the long s,
/// but for the micro sign, which equals a Greek letter behind it.
bool FoldsLikeTheLibrary(char32_t c) {
  return c <= kLongS && c != kMicroSign;
}

size_t SequenceLength(char lead) {
  const auto b = static_cast<unsigned char>(lead);
  return b < 0xC0 ? 1 : b < 0xE0 ? 2 : b < 0xF0 ? 3 : 4;
}

}  // namespace

std::string FoldForMatching(std::string_view text, bool caseSignificant) {
  if (caseSignificant) return std::string(text);
  std::string folded;
  folded.reserve(text.size());
  if (IsAscii(text)) {
    for (const char c : text) folded += c >= 'A' && c <= 'Z' ? static_cast<char>(c + ('a' - 'A')) : c;
    return folded;
  }
  for (size_t at = 0; at < text.size();) AppendCharacter(FoldCharacter(NextCharacter(text, at)), folded);
  return folded;
}

std::optional<Wildcard> Wildcard::FromExpression(std::string_view inner, bool caseSignificant) {
  constexpr std::string_view kSignsOfExpressions = "\\^$|()[]{}*+?\r\n";
  Wildcard result;
  for (size_t at = 0; at < inner.size();) {
    const char sign = inner[at];
    if (sign == '.') {
      const bool run = at + 1 < inner.size() && inner[at + 1] == '*';
      result.signs_ += run ? kRun : kOne;
      at += run ? 2 : 1;
      continue;
    }
    if (kSignsOfExpressions.find(sign) != std::string_view::npos) return std::nullopt;
    const size_t begin = at;
    const char32_t c = NextCharacter(inner, at);
    // The library refuses an ill-formed pattern.
    if (c == kReplacementCharacter || c == 0) return std::nullopt;
    if (caseSignificant) {
      result.signs_ += inner.substr(begin, at - begin);
    } else {
      if (!FoldsLikeTheLibrary(c)) return std::nullopt;
      AppendCharacter(FoldCharacter(c), result.signs_);
    }
  }
  return result;
}

Wildcard Wildcard::FromText(std::string_view text) {
  Wildcard result;
  for (const char c : text) result.signs_ += c == '*' ? kRun : c == '?' ? kOne : c;
  return result;
}

bool Wildcard::Matches(std::string_view text) const {
  const std::string_view signs = signs_;
  // Wildcards match any character but a line end. No plain sign is a line end.
  constexpr size_t kNowhere = std::string_view::npos;
  size_t s = 0;
  size_t t = 0;
  size_t runSign = kNowhere;  // The sign behind the last run ...
  size_t runText = 0;         // ... and the place in the text where it was tried last.
  while (t < text.size()) {
    if (s < signs.size() && signs[s] == kRun) {
      runSign = ++s;
      runText = t;
    } else if (s < signs.size() && signs[s] == kOne && text[t] != '\n' && text[t] != '\r') {
      t += std::min(SequenceLength(text[t]), text.size() - t);
      ++s;
    } else if (s < signs.size() && signs[s] == text[t]) {
      ++t;
      ++s;
    } else if (runSign != kNowhere && text[runText] != '\n' && text[runText] != '\r') {
      // Only the last run needs to grow. A longer earlier run would only move what follows it.
      runText += std::min(SequenceLength(text[runText]), text.size() - runText);
      t = runText;
      s = runSign;
    } else {
      return false;
    }
  }
  while (s < signs.size() && signs[s] == kRun) ++s;
  return s == signs.size();
}

}  // namespace korv
