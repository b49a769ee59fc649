#include "engine/patterns/pattern_set.h"

#include <algorithm>

namespace korv {

void PatternSet::AddPattern(std::string_view text) {
  if (!known_.emplace(text).second) return;
  Pattern pattern(text, caseSignificant_);
  if (pattern.MatchesNothing()) return;
  if (std::string_view literal; pattern.IsLiteral(literal)) {
    literals_.emplace(literal);
    return;
  }
  const auto number = static_cast<uint32_t>(patterns_.size());
  const std::vector<RequiredLiteral> needed = pattern.RequiredLiterals();
  patterns_.push_back(std::move(pattern));
  if (needed.empty()) always_.push_back(number);
  for (const RequiredLiteral& literal : needed) IndexLiteral(number, literal);
}

void PatternSet::IndexLiteral(uint32_t number, const RequiredLiteral& needed) {
  const size_t length = std::min(needed.Text.size(), kLiteralBytes);
  const bool atEnd = needed.Where == RequiredLiteral::Position::End;
  LiteralIndex& index = atEnd                                                  ? ends_
                        : needed.Where == RequiredLiteral::Position::Beginning ? beginnings_
                                                                               : anywhere_;
  index.LengthInUse[length] = true;
  index.ByLiteral[needed.Text.substr(atEnd ? needed.Text.size() - length : 0, length)].push_back(number);
}

void PatternSet::Prepare(Yielder& yielder) {
  // Small enough that an alternation is compiled in no time, large enough that its call costs nothing.
  constexpr size_t kMostMembers = 64;
  constexpr size_t kMostBytes = 4096;
  PatternNumbers alone;
  PatternNumbers members;
  std::string joined;
  const auto join = [&] {
    // Compiling maps memory that can be written and executed, which nobody gets who asks for no expression.
    if (members.size() < 2) return false;
    Regex regex(joined, caseSignificant_);
    if (!regex.Valid()) return false;
    alternations_.push_back({std::move(regex), members});
    return true;
  };
  const auto close = [&] {
    if (!join()) alone.insert(alone.end(), members.begin(), members.end());
    members.clear();
    joined.clear();
  };
  for (const uint32_t number : always_) {
    yielder.Yield();
    if (yielder.Stopped()) return;
    const std::string_view expression = patterns_[number].Alternative();
    if (expression.empty()) {
      alone.push_back(number);
      continue;
    }
    if (members.size() == kMostMembers || joined.size() + expression.size() > kMostBytes) close();
    joined.append(members.empty() ? "(?:" : "|(?:").append(expression).append(")");
    members.push_back(number);
  }
  close();
  always_.swap(alone);
}

bool PatternSet::JoinedMatches(const Alternation& alternation, std::string_view text,
                               std::string_view folded) const {
  const Regex::Outcome outcome = alternation.Joined.Try(text);
  return outcome == Regex::Outcome::Match ||
         (outcome == Regex::Outcome::GaveUp && AnyMatches(alternation.Members, text, folded));
}

bool PatternSet::Matches(std::string_view text) const {
  if (words_.contains(text)) return true;
  if (patterns_.empty() && literals_.empty()) return false;
  const std::string folded = FoldForMatching(text, caseSignificant_);
  const std::string_view f = folded;
  if (literals_.contains(f)) return true;
  for (size_t length = 1; length <= std::min(kLiteralBytes, f.size()); ++length) {
    if (beginnings_.LengthInUse[length] && CandidatesMatch(beginnings_, f.substr(0, length), text, f))
      return true;
    if (ends_.LengthInUse[length] && CandidatesMatch(ends_, f.substr(f.size() - length), text, f))
      return true;
    if (!anywhere_.LengthInUse[length]) continue;
    for (size_t at = 0; at + length <= f.size(); ++at)
      if (CandidatesMatch(anywhere_, f.substr(at, length), text, f)) return true;
  }
  return AnyMatches(always_, text, f) ||
         std::any_of(alternations_.begin(), alternations_.end(),
                     [&](const Alternation& joined) { return JoinedMatches(joined, text, f); });
}

bool PatternSet::CandidatesMatch(const LiteralIndex& index, std::string_view literal, std::string_view text,
                                 std::string_view folded) const {
  const auto found = index.ByLiteral.find(literal);
  return found != index.ByLiteral.end() && AnyMatches(found->second, text, folded);
}

bool PatternSet::AnyMatches(const PatternNumbers& candidates, std::string_view text,
                            std::string_view folded) const {
  return std::any_of(candidates.begin(), candidates.end(),
                     [&](uint32_t number) { return patterns_[number].MatchesFolded(text, folded); });
}

}  // namespace korv
