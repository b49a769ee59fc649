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

#include "base/yielder.h"
#include "engine/patterns/pattern.h"

namespace korv {

/// A set of plain words and patterns: tells whether a text matches one of them.
///
/// Plain words are looked up. A pattern is a candidate, and matched, only when the text holds one of its
/// required literals (required_literal.h). These are indexed by their position and their first kLiteralBytes
/// bytes (the last ones at the end of a text), and every substring of such a length is looked up. A text of n
/// bytes costs about n look-ups and one match per candidate. Expressions without a required literal are
/// matched every time, joined to alternations.
///
/// Const members may be called from several threads at once.
class PatternSet {
 public:
  explicit PatternSet(bool caseSignificant) : caseSignificant_(caseSignificant) {}

  /// Adds a word that matches itself and nothing else.
  void AddWord(std::string_view word) { words_.emplace(word); }
  /// Adds a Pattern.
  void AddPattern(std::string_view pattern);
  /// Joins expressions that can be matched together. Call it once, after the last addition. Matches() works
  /// without it, only slower; so it does when a stop ends the joining.
  void Prepare(Yielder& yielder);

  bool Matches(std::string_view text) const;

 private:
  static constexpr size_t kLiteralBytes = 8;

  struct TextHash {
    using is_transparent = void;
    size_t operator()(std::string_view text) const { return std::hash<std::string_view>{}(text); }
  };
  using TextSet = std::unordered_set<std::string, TextHash, std::equal_to<>>;
  using PatternNumbers = std::vector<uint32_t>;

  /// The patterns whose required literal has one position, by that literal.
  struct LiteralIndex {
    std::unordered_map<std::string, PatternNumbers, TextHash, std::equal_to<>> ByLiteral;
    std::array<bool, kLiteralBytes + 1> LengthInUse{};  ///< Lengths of literals in ByLiteral.
  };

  /// Expressions joined to one. Where its match gives up at a limit, its members are matched one by one.
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
  TextSet words_;     ///< Compared with the text.
  TextSet literals_;  ///< Patterns without a wildcard, compared with the folded text.
  TextSet known_;     ///< The patterns added so far, because lists repeat entries.
  std::vector<Pattern> patterns_;
  LiteralIndex beginnings_;
  LiteralIndex ends_;
  LiteralIndex anywhere_;
  PatternNumbers always_;  ///< Patterns without a required literal.
  std::vector<Alternation> alternations_;
};

}  // namespace korv
