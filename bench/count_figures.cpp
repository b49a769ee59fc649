// What Korv's engine finds in a text, as the numbers by which baseline_unordered_map shows its result.
//     count_figures TEXT [fewest words] [most words]

#include <cstdint>
#include <cstdio>
#include <cstdlib>
#include <string>
#include <utility>

#include "base/yielder.h"
#include "bench/word_reader.h"
#include "engine/corpus/corpus_builder.h"
#include "engine/counting/count_phrases.h"
#include "engine/counting/phrase_table.h"
#include "engine/patterns/word_filters.h"

namespace {

struct Feeder {
  korv::CorpusBuilder& Stream;

  void Word(const std::string& word) { Stream.GetWords2(word); }
  void DroppedWord() {}
  void PhraseEnd() { Stream.ResetPhrases(); }
  bool Line(std::string_view) { return true; }
};

}  // namespace

int main(int argc, char** argv) {
  if (argc < 2) {
    std::fprintf(stderr, "usage: %s TEXT [FEWEST WORDS] [MOST WORDS]\n", argv[0]);
    return 2;
  }
  korv::RunOptions options;
  options.MinWords = argc > 2 ? std::atoi(argv[2]) : 2;
  options.MaxWords = argc > 3 ? std::atoi(argv[3]) : 6;
  const korv::WordRules rules;
  const korv::WordFilters lists;
  korv::CorpusBuilder stream(rules, options, lists);
  stream.BeginSource({});
  Feeder feeder{stream};
  korv::bench::ReadWordsOf(argv[1], feeder);
  const uint64_t words = stream.Counts().Taken;

  korv::PhraseTable table;
  korv::NoYielder yielder;
  korv::TakeText(std::move(stream), table);
  korv::CountPhrases(table, yielder);
  std::printf("words %llu\ndifferent %llu\noccurrences %llu\n", static_cast<unsigned long long>(words),
              static_cast<unsigned long long>(table.PhraseCount()),
              static_cast<unsigned long long>(table.Occurrences()));
  return 0;
}
