#include "sources/places/phrase_cut.h"

#include <string>

#include "engine/corpus/corpus_builder.h"
#include "sources/read/text_decoder.h"
#include "sources/scan/corpus_sink.h"
#include "sources/scan/word_cutter.h"

namespace korv {

CutPhrase CutTypedPhrase(std::string_view text, const Corpus& corpus) {
  CorpusBuilder stream(corpus.Rules, corpus.Options, *corpus.Lists);
  CorpusSink sink(stream);
  WordCutter cutter(corpus.Rules, sink);
  LineScanner<WordCutter> scanner(corpus.Rules, {}, cutter);
  std::string buffer;
  scanner.BeginSource();
  scanner.ScanLine(DecodeText(text, TextEncoding::Utf8, buffer));

  const Corpus& cut = stream.Corpus();
  CutPhrase phrase{.Length = stream.Counts().Taken, .Words = {}};
  size_t words = 0;
  for (const WordNumber word : cut.Tokens) {
    words += word != kNoWord;
    phrase.Words.push_back(word == kNoWord ? kNoWord : corpus.Words.Find(cut.Words.Text(word)));
  }
  // Phrase ends around the words do not part them.
  const bool holdsEnd = words < phrase.Length;
  phrase.Words.erase(phrase.Words.begin());
  if (!phrase.Words.empty() && cut.Tokens.back() == kNoWord && !holdsEnd) phrase.Words.pop_back();
  if (holdsEnd) phrase.Words.push_back(kNoWord);
  return phrase;
}

}  // namespace korv
