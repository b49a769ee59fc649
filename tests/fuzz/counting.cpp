// Small texts, cut into words by the scanner, under options that the first bytes choose: the engine counts
// what the naive model counts, whenever it is stopped and taken up again.
#include <algorithm>
#include <cstdint>
#include <cstdlib>
#include <string>
#include <string_view>
#include <utility>

#include "sources/read/text_decoder.h"
#include "tests/engine/counting_world.h"
#include "tests/fakes/fake_yielder.h"
#include "tests/sources/recorded_words.h"

namespace {

using namespace korv;

constexpr const char* kWords[] = {"a", "the", "~", "?", "a~", "?he", "~e", "<e$>", "<^t>", "cat", "<a|b>"};
constexpr const char* kPhrases[] = {"a b", "? ?", "~ the", "<e t>", "<^a> ~", "the cat", "~ ~ ~"};

/// The choices at the beginning of the input; 0 where it has ended.
class Choices {
 public:
  Choices(const uint8_t* data, size_t size) : data_(data), left_(size) {}
  unsigned Below(unsigned n) {
    if (left_ == 0) return 0;
    --left_;
    return *data_++ % n;
  }
  bool Coin() { return Below(2) == 1; }
  std::string_view Rest() const { return {reinterpret_cast<const char*>(data_), left_}; }

 private:
  const uint8_t* data_;
  size_t left_;
};

void ChooseRules(Choices& choose, WordRules& rules) {
  const unsigned bits = choose.Below(256);
  rules.CaseSignificant = bits & 1;
  rules.Only7bitASCII = (bits & 6) == 6;
  rules.IgnoreShortWords = bits & 8;
  rules.ShortWordSize = 2 + static_cast<int>(bits >> 4 & 1);
  rules.IgnoreNoLetter = bits & 32;
  rules.IgnoreRepetitions = bits & 64;
  rules.AllowHyphens = rules.AllowNumerals = bits & 128;
  SetAllowedExtraChars(rules);
  SetAllowedExtraChars2(rules);
}

void ChooseLists(Choices& choose, CountingWorld& world) {
  WordFilterSpec& entries = world.Entries;
  entries.CaseSignificant = world.Rules.CaseSignificant;
  entries.PatternMatchingInWordsToIgnoreFile = choose.Coin();
  for (unsigned n = choose.Below(3); n > 0; --n)
    entries.FileWordsToIgnore.emplace_back(kWords[choose.Below(std::size(kWords))]);
  for (unsigned n = choose.Below(3); n > 0; --n)
    entries.TypedWordsToIgnore.emplace_back(kWords[choose.Below(std::size(kWords))]);
  for (unsigned n = choose.Below(3); n > 0; --n)
    entries.CountOnly.emplace_back(choose.Coin() ? kPhrases[choose.Below(std::size(kPhrases))]
                                                 : kWords[choose.Below(std::size(kWords))]);
}

/// A form feed begins a file, where there are several.
void AddSteps(std::string_view text, CountingWorld& world) {
  using Kind = CountingWorld::Step::Kind;
  const bool several = world.Options.SourceKind == TextSource::Folder;
  int file = 0;
  for (size_t begin = 0; begin <= text.size();) {
    const size_t end = std::min(several ? text.find('\f', begin) : text.npos, text.size());
    if (begin > 0) world.Steps.push_back({Kind::NextFile, std::to_string(++file)});
    RecordedWords words;
    LineScanner<WordSink> scanner(world.Rules, MarkersOf("txt"), words);
    scanner.BeginSource();
    scanner.ScanLine(text.substr(begin, end - begin));
    for (const std::string& word : words.Found())
      world.Steps.push_back(word == "|" ? CountingWorld::Step{Kind::EndOfPhrase, ""}
                                        : CountingWorld::Step{Kind::Word, word});
    begin = end + 1;
  }
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const uint8_t* data, size_t size) {
  constexpr size_t kEnough = 400;  // The model is quadratic.
  if (size > kEnough) return 0;
  Choices choose(data, size);
  CountingWorld world;
  ChooseRules(choose, world.Rules);
  RunOptions& options = world.Options;
  options.MinWords = kLeastWords + static_cast<int>(choose.Below(4));
  options.MaxWords = std::min(kMostWords, options.MinWords + static_cast<int>(choose.Below(25)));
  if (choose.Below(8) == 7) options.MinWords = options.MaxWords = 1;
  options.MinFrequency = 1 + static_cast<int>(choose.Below(3));
  options.KeepRedundant = choose.Below(4) == 3;
  options.IgnoreMode = static_cast<IgnoreRule>(1 + choose.Below(4));
  options.SourceKind = choose.Coin() ? TextSource::Folder : TextSource::SingleFile;
  if (options.SourceKind == TextSource::Folder && choose.Coin()) world.Order = ChainOrder::ByFiles;
  if (const unsigned places = choose.Below(20); places > 0) world.PlacesAtOnce = places;
  const unsigned stop = choose.Below(256);
  ChooseLists(choose, world);
  std::string buffer;
  AddSteps(DecodeText(choose.Rest(), TextEncoding::Utf8, buffer), world);

  FakeYielder yielder;
  yielder.StopAtCall(stop);
  if (EngineOutcome(world, yielder) != ModelOutcome(world)) std::abort();
  return 0;
}
