#include "engine/patterns/wildcard.h"

#include <algorithm>

#include "engine/text/unicode.h"

namespace korv {

namespace {

constexpr char32_t kDottedCapitalI = 0x130;
constexpr char32_t kLongS = 0x17F;
constexpr char32_t kMicroSign = 0xB5;

char32_t FoldCharacter(char32_t c) {
  // A capital I with a dot is one with no other letter although its lower-case form is a plain i; a long s
  // is a lower-case letter, and yet one with s.
  if (c == kDottedCapitalI) return c;
  if (c == kLongS) return U's';
  return LowerCharacter(c);
}

/// Below the long s folding tells which characters are one without regard to case; the micro sign is one
/// with a Greek letter beyond.
bool FoldsLikeTheEngine(char32_t c) {
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
  constexpr std::string_view kSignsOfTheEngine = "\\^$|()[]{}*+?\r\n";
  Wildcard result;
  for (size_t at = 0; at < inner.size();) {
    const char sign = inner[at];
    if (sign == '.') {
      const bool run = at + 1 < inner.size() && inner[at + 1] == '*';
      result.signs_ += run ? kRun : kOne;
      at += run ? 2 : 1;
      continue;
    }
    if (kSignsOfTheEngine.find(sign) != std::string_view::npos) return std::nullopt;
    const size_t begin = at;
    const char32_t c = NextCharacter(inner, at);
    // An ill-formed pattern is the engine's to refuse.
    if (c == kReplacementCharacter || c == 0) return std::nullopt;
    if (caseSignificant) {
      result.signs_ += inner.substr(begin, at - begin);
    } else {
      if (!FoldsLikeTheEngine(c)) return std::nullopt;
      AppendCharacter(FoldCharacter(c), result.signs_);
    }
  }
  return result;
}

bool Wildcard::Matches(std::string_view text) const {
  const std::string_view signs = signs_;
  // Wildcards stand for any character but a line end, and no plain sign is one.
  constexpr size_t kNowhere = std::string_view::npos;
  size_t s = 0;
  size_t t = 0;
  size_t runSign = kNowhere;  // Behind the last run met ...
  size_t runText = 0;         // ... and where what follows it was last tried.
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
      // Only the last run needs to grow: an earlier one that grew would only move what it precedes.
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
