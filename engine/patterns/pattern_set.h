#pragma once

#include <array>
#include <cstddef>
#include <cstdint>
#include <functional>
#include <string>
#include <string_view>
#include <unordered_map>
#include <unordered_set>
#include <vector>

#include "engine/patterns/pattern.h"

namespace korv {

/// Many plain words and patterns, asked together whether one of them matches.
///
/// Plain words are looked up. Of the patterns only those are tried whose fragment (see fragment.h) the text
/// holds: fragments are kept by their place and their first (at the end: last) kLiteralBytes bytes, and a
/// text asks for all of its own. A text of n bytes costs some n look-ups, and a test per candidate.
/// Expressions that need no fragment are tried every time, but many as one alternation.
///
/// Asking is const and may be done from several threads at once.
class PatternSet {
 public:
  explicit PatternSet(bool caseSignificant) : caseSignificant_(caseSignificant) {}

  /// A word that matches itself and nothing else.
  void AddWord(std::string_view word) { words_.emplace(word); }
  /// See Pattern.
  void AddPattern(std::string_view pattern);
  /// After the last addition, for speed: joins what can be tried together.
  void Prepare();

  bool Matches(std::string_view text) const;

 private:
  static constexpr size_t kLiteralBytes = 8;

  struct TextHash {
    using is_transparent = void;
    size_t operator()(std::string_view text) const { return std::hash<std::string_view>{}(text); }
  };
  using TextSet = std::unordered_set<std::string, TextHash, std::equal_to<>>;
  using PatternNumbers = std::vector<uint32_t>;

  /// The patterns of one place by their fragments.
  struct LiteralIndex {
    std::unordered_map<std::string, PatternNumbers, TextHash, std::equal_to<>> ByLiteral;
    std::array<bool, kLiteralBytes + 1> LengthInUse{};  ///< Lengths of the fragments.
  };

  /// Expressions as one: where it gives up at a limit, its members are asked one by one.
  struct Alternation {
    Regex Joined;
    PatternNumbers Members;
  };

  void IndexLiteral(uint32_t number, const RequiredLiteral& needed);
  bool JoinedMatches(const Alternation& alternation, std::string_view text, std::string_view folded) const;
  bool AnyMatches(const PatternNumbers& candidates, std::string_view text, std::string_view folded) const;
  bool CandidatesMatch(const LiteralIndex& index, std::string_view literal, std::string_view text,
                       std::string_view folded) const;

  bool caseSignificant_;
  TextSet words_;     ///< Compared as they stand.
  TextSet literals_;  ///< Patterns without a wildcard, compared with the folded text.
  TextSet known_;     ///< The patterns added so far: lists repeat themselves.
  std::vector<Pattern> patterns_;
  LiteralIndex beginnings_;
  LiteralIndex ends_;
  LiteralIndex anywhere_;
  PatternNumbers always_;  ///< Need no fragment.
  std::vector<Alternation> alternations_;
};

}  // namespace korv
