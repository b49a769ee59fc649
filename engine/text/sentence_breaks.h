#pragma once

#include <cstdint>

#include "engine/text/sentence_class.h"

namespace korv {

/// Finds the ends of sentences by the rules of UAX #29 (SB4 to SB11), character by character: "3.14" and
/// "e.g." before a small letter end none. Constant time and memory.
///
/// A period may end a sentence or not, depending on the next letter. Where digits or signs come before that
/// letter it is in doubt: the end, if it is one, lies before them.
///
///   SentenceBreaks sentences;
///   for (char32_t c : text) if (sentences.Feed(c)) ...
class SentenceBreaks {
 public:
  /// Takes the next character. True: a sentence ended before it, or, where an end was in doubt, there.
  bool Feed(char32_t character) { return FeedClass(SentenceClassOf(character)); }
  /// A period of earlier awaits the next letter.
  bool InDoubt() const { return phase_ == Phase::Doubt; }
  /// What was in doubt has been settled elsewhere.
  void Settle() { phase_ = Phase::Inside; }
  /// Whether nothing of what came before matters to what follows.
  bool IsFresh() const { return phase_ == Phase::Inside; }
  /// As at the beginning of a text.
  void Reset() { *this = {}; }

 private:
  enum class Phase : uint8_t {
    Inside,  ///< No sign that ends sentences came before, but for what is settled.
    Term,    ///< Right behind such a sign, ...
    Closed,  ///< ... behind it and brackets or quotes, ...
    Spaced,  ///< ... and behind blanks.
    Doubt,   ///< Behind a period, and something else than a letter.
  };

  bool FeedClass(SentenceClass next);
  bool FeedBehindTerm(SentenceClass next);
  bool FeedInDoubt(SentenceClass next);
  void Begin(SentenceClass term);

  Phase phase_ = Phase::Inside;
  bool isPeriod_ = false;      ///< The sign was an ATerm.
  bool behindLetter_ = false;  ///< It stood right behind a letter with case.
  bool afterLetter_ = false;   ///< The last character was such a letter.
};

}  // namespace korv
