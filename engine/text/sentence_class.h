#pragma once

#include <cstdint>

namespace korv {

/// What a character means to the ends of sentences: the property Sentence_Break of UAX #29, Unicode 15.
enum class SentenceClass : uint8_t {
  Other,
  Lower,
  Upper,
  OLetter,  ///< A letter without case.
  Numeric,
  ATerm,      ///< A period, which may end a sentence or not.
  STerm,      ///< Ends a sentence.
  SContinue,  ///< Goes on a sentence behind a period: a comma, for one.
  Close,      ///< A bracket or a quote.
  Sp,
  Sep,  ///< Ends a line or a paragraph.
  Extend,
  Format,
};

SentenceClass SentenceClassOf(char32_t character);

}  // namespace korv
