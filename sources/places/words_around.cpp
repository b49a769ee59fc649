#include "sources/places/words_around.h"

#include <algorithm>
#include <string>
#include <string_view>
#include <vector>

#include "sources/places/context_text.h"

namespace korv {

namespace {

std::string_view TokenText(const Corpus& corpus, size_t place) {
  const WordNumber word = corpus.Tokens[place];
  return word == kNoWord ? "|" : corpus.Words.Text(word);
}

/// The tokens [begin, end), parted by blanks.
std::string Joined(const Corpus& corpus, size_t begin, size_t end) {
  std::string text;
  for (size_t i = begin; i < end; ++i) {
    if (i > begin) text += ' ';
    text += TokenText(corpus, i);
  }
  return text;
}

}  // namespace

Place EndOfText(const Corpus& corpus, Place place) {
  const size_t next = corpus.SourceAt(place) + 1;
  return Place{static_cast<uint32_t>(next < corpus.Sources.size() ? corpus.Sources[next].Begin
                                                                  : corpus.Tokens.size() - kTrailingEnds)};
}

PlaceInText WordsAround(const Corpus& corpus, Place place, int words, size_t around) {
  const size_t first = ValueOf(place);
  const size_t last = first + static_cast<size_t>(words);
  // A token takes one character at least, and a blank.
  const size_t most = around / 2 + 2;
  const size_t begin = corpus.Sources[corpus.SourceAt(place)].Begin;
  const size_t end = ValueOf(EndOfText(corpus, place));
  const size_t left = first - std::min(first - std::min(begin, first), most);
  const size_t right = std::min(end, last + most);
  return {.Line = 0,
          .Column = 0,
          .Phrase = Joined(corpus, first, last),
          .Left = LastWords(Joined(corpus, left, first), around),
          .Right = FirstWords(Joined(corpus, last, right), around),
          .Begin = 0,
          .End = 0};
}

}  // namespace korv
