#include "tests/engine/counting_world.h"

#include <rapidcheck.h>

#include <algorithm>
#include <filesystem>
#include <ostream>
#include <utility>

#include "engine/corpus/corpus_builder.h"
#include "tests/reference/naive_run.h"
#include "tests/reference/naive_text.h"

namespace korv {
namespace {

/// Small vocabularies, each with its own way of going wrong.
const std::vector<std::vector<std::string>>& Vocabularies() {
  // Phrases of 99 to 103 characters, and words that leave room for nothing else.
  static const std::string e16 = "ééééééééééééééé-";
  static const std::string x33(33, 'x'), y32(32, 'y'), z49(49, 'z'), w50(50, 'w');
  static const std::vector<std::vector<std::string>> all = {
      {"a"},
      {"a", "b"},
      {"a", "b", "c", "d"},
      {"a", "b", "c", "d", "e", "f", "g", "h", "i", "j", "k", "l"},
      {"he", "the", "them", "e", "her", "there", "t"},
      {"Cote", "cote", "côte", "côté", "COTE", "cöte", "coete", "ß", "ss", "SS", "æ", "ae", "Œ", "oe", "oé"},
      {"a", "a-b", "a'b", "a.b", "ab", "(a)", "a_b", "a-", "b", "é", "z", "a1"},
      {"İt", "it", "IT", "Жук", "жук", "ὈΔΌΣ", "ὀδός", "ÿ", "Ÿ", "Þ", "þ", "Ð", "d"},
      {x33, y32, z49, w50, "a", "b", e16, std::string(70, 'm'), std::string(80, 'l')},
      {"1", "12", "a1", "aaaa", "AAaa", "aa-aa", "aaa1a", "--", "a--b", "é", "ab", "abc", "Abc", "ÉéÉé",
       "1111a", "aaab"},
      {"the", "cat", "sat", "on", "mat", "of", "year"},
      {"T\u0308op", "\u1E97op", "top", "J\u030C", "\u01F0", "T\u0308", "\u1E97"},
  };
  return all;
}

const std::vector<std::string> kOneWordEntries = {
    "a",    "b",    "he",  "the", "THE", "cote",  "Côte", "~",   "?",   "a~",        "?he",    "~e",
    "<e$>", "<^t>", "<(>", "<>",  "cat", "<a|b>", "it",   "жук", "<[>", "T\u0308op", "\u1E97", "?op"};
const std::vector<std::string> kPhraseEntries = {
    "a b",    "a a",         "the he",  "? ?",       "~ b",         "?? ~ the", "<e t>",
    "<a b$>", "a <b>",       "<^a> ~",  "cote côte", "The cat",     "~ ~ ~",    "<^a a a$>",
    "a",      "the cat sat", "<b a> a", "<^> b",     "T\u0308op ~", "? \u01F0", "J\u030C T\u0308"};

/// Any number of the range, at every size: only the length of the text grows with the size.
rc::Gen<int> Range(int least, int end) {
  return rc::gen::resize(rc::kNominalSize, rc::gen::inRange(least, end));
}

template <typename T>
rc::Gen<T> Among(const std::vector<T>& values) {
  return rc::gen::map(Range(0, static_cast<int>(values.size())),
                      [&values](int i) { return values[static_cast<size_t>(i)]; });
}

bool Coin() {
  return *Range(0, 2) == 1;
}
bool OneIn(int n) {
  return *Range(0, n) == n - 1;
}

std::vector<std::string> DrawEntries(const std::vector<std::string>& pool, int most) {
  const int n = *Range(0, most + 1);
  return *rc::gen::container<std::vector<std::string>>(static_cast<size_t>(n), Among(pool));
}

/// As the model calls them.
constexpr const char* kReasonNames[kDropReasons] = {"short",      "long",    "letterless",
                                                    "repetition", "ignored", "not 7-bit"};

void DrawRules(WordRules& rules) {
  rules.CaseSignificant = Coin();
  rules.Only7bitASCII = OneIn(4);
  rules.IgnoreShortWords = Coin();
  rules.ShortWordSize = *Range(2, 5);
  rules.LongWordSize = *Range(2, 9) * 10;
  rules.IgnoreNoLetter = Coin();
  rules.IgnoreRepetitions = Coin();
}

void DrawLists(CountingWorld& world) {
  const auto mode = *Range(1, 5);
  world.Options.IgnoreMode = static_cast<IgnoreRule>(mode);
  WordFilterSpec& entries = world.Entries;
  entries.CaseSignificant = world.Rules.CaseSignificant;
  entries.PatternMatchingInWordsToIgnoreFile = Coin();
  if (Coin()) entries.FileWordsToIgnore = DrawEntries(kOneWordEntries, 3);
  if (Coin()) entries.TypedWordsToIgnore = DrawEntries(kOneWordEntries, 3);
  if (OneIn(3)) entries.CountOnly = DrawEntries(kOneWordEntries, 2);
  if (OneIn(4)) {
    const std::vector<std::string> phrases = DrawEntries(kPhraseEntries, 3);
    entries.CountOnly.insert(entries.CountOnly.end(), phrases.begin(), phrases.end());
  }
}

bool IsFolder(const CountingWorld& world) {
  return world.Options.SourceKind == TextSource::Folder;
}

/// Repeats a stage until no stop interrupts it, and looks at what each interruption leaves.
void Finish(Yielder& yielder, auto stage, auto afterStop) {
  while (!stage()) {
    RC_ASSERT(yielder.Stopped());
    afterStop();
    yielder.ClearStop();
  }
}

void ExpectEmptyChain(const PhraseTable& table) {
  RC_ASSERT(table.ChainHead() == kNoPhrase);
  for (const PhraseIndex i : table.All()) {
    RC_ASSERT(table.ChainPosition(i) == kNoRank);
    RC_ASSERT(table.ChainNext(i) == kNoPhrase);
  }
}

std::vector<bool> Flags(const PhraseTable& table) {
  std::vector<bool> flags;
  for (const PhraseIndex i : table.All()) flags.push_back(table.Listed(i));
  return flags;
}

}  // namespace

CountingWorld DrawWorld(const WorldKind& kind) {
  CountingWorld world;
  world.Rules.CaseSignificant = true;
  world.Rules.IgnoreShortWords = false;
  world.Rules.LongWordSize = 80;
  world.Rules.IgnoreNoLetter = false;
  world.Rules.IgnoreRepetitions = false;
  if (kind.Rules) DrawRules(world.Rules);

  RunOptions& options = world.Options;
  const int widest = OneIn(8) ? kind.MostWords - kLeastWords : 3;
  options.MinWords = OneIn(4) ? *Range(kLeastWords, kind.MostWords + 1) : *Range(2, 4);
  options.MaxWords = std::min(kind.MostWords, options.MinWords + *Range(0, widest + 1));
  if (kind.SingleWords) options.MinWords = options.MaxWords = 1;
  options.MinFrequency = OneIn(8) ? *Range(1, kMostMinFrequency + 1) : *Range(1, 4);
  options.KeepRedundant = OneIn(8);
  if (OneIn(2)) world.PlacesAtOnce = static_cast<size_t>(std::min(*Range(1, 20), *Range(1, 20)));
  options.SourceKind = kind.Folder ? TextSource::Folder : TextSource::SingleFile;
  if (kind.Lists) DrawLists(world);
  if (kind.Folder && Coin()) world.Order = ChainOrder::ByFiles;

  const std::vector<std::string>& vocabulary = *Among(Vocabularies());
  const auto words =
      static_cast<size_t>(std::min(*Range(1, static_cast<int>(vocabulary.size()) + 1), *Range(1, 16)));
  const int breaks = std::min(*Range(0, 20), *Range(0, 20));  // per cent of the steps
  const int files = kind.Folder ? *Range(0, 15) : 0;
  const int copies = OneIn(2) ? *Range(0, 12) : 0;  // of a passage from before, for long repeats
  int file = 0;
  std::vector<CountingWorld::Step>& steps = world.Steps;
  using Kind = CountingWorld::Step::Kind;
  for (int draw :
       *rc::gen::scale(OneIn(6) ? 3.0 : 1.0, rc::gen::container<std::vector<int>>(Range(0, 1000000)))) {
    const int percent = draw % 100;
    const auto rest = static_cast<size_t>(draw / 100);
    if (percent >= 100 - files) {
      steps.push_back({Kind::NextFile, std::to_string(++file)});
    } else if (percent >= 100 - files - breaks) {
      steps.push_back({Kind::EndOfPhrase, ""});
    } else if (percent < copies && !steps.empty()) {
      const size_t from = rest % steps.size();
      const size_t to = std::min(steps.size(), from + 2 + rest / 100 % 30);
      for (size_t i = from; i < to; ++i) {
        if (steps[i].What == Kind::Word) steps.push_back(CountingWorld::Step(steps[i]));
      }
    } else {
      steps.push_back({Kind::Word, vocabulary[rest % words]});
    }
  }
  return world;
}

reference::CountingRun ModelRun(const CountingWorld& world) {
  reference::CountingRun run(world.Rules, world.Options, world.Entries);
  Feed(world, run);
  run.Finish(world.Order == ChainOrder::ByFiles ? reference::ChainBy::Files : reference::ChainBy::Count);
  return run;
}

EngineRun CountedByEngine(const CountingWorld& world) {
  EngineRun run{std::make_unique<WordFilters>(world.Entries), {}, {}};
  CorpusBuilder stream(world.Rules, world.Options, *run.Lists);
  Feed(world, stream);
  run.Words = stream.Counts();
  TakeText(std::move(stream), run.Table);
  NoYielder yielder;
  CountPhrases(run.Table, yielder, world.PlacesAtOnce);
  SortPhrases(run.Table, yielder);
  ListByFrequency(run.Table, world.Options.MinFrequency);
  if (!world.Options.KeepRedundant) ExcludeRedundantSubphrases(run.Table, yielder);
  SetUpFrequencyChain(run.Table, world.Order, yielder);
  return run;
}

CountingOutcome ModelOutcome(const CountingWorld& world) {
  const reference::CountingRun run = ModelRun(world);
  const reference::Table& table = run.Phrases();
  const bool folder = IsFolder(world);
  auto textOf = [&](int32_t i) { return i == 0 ? std::string() : table[i].Text; };
  CountingOutcome outcome;
  for (int32_t i = 1; i <= table.PhraseCount; ++i) {
    const reference::Phrase& phrase = table[i];
    if (!phrase.Listed) continue;
    outcome.Listed.push_back({phrase.Text, phrase.Key, phrase.Count, phrase.ChainPosition,
                              textOf(phrase.ChainNext), folder ? phrase.FileNumbers : "",
                              folder ? phrase.FileCounts : "", folder ? phrase.FileCount : 0});
  }
  outcome.Head = textOf(table.ChainHead);
  outcome.PhraseCount = table.PhraseCount;
  outcome.Occurrences = table.Occurrences;
  for (int32_t i = 1; i <= table.CurrentFileNumber; ++i) {
    outcome.FilePaths.push_back(table.FilePaths[static_cast<size_t>(i)]);
  }
  outcome.WordsTaken = run.WordsTaken();
  outcome.WordsDropped = run.WordsDropped();
  outcome.LongPhrases = table.LongPhrases;
  return outcome;
}

CountingOutcome EngineOutcome(const CountingWorld& world, Yielder& yielder) {
  const WordFilters lists(world.Entries);
  CorpusBuilder stream(world.Rules, world.Options, lists);
  Feed(world, stream);
  CountingOutcome outcome;
  outcome.WordsTaken = static_cast<int64_t>(stream.Counts().Taken);
  for (size_t reason = 0; reason < kDropReasons; ++reason) {
    const auto dropped = static_cast<int64_t>(stream.Counts().DroppedBy[reason]);
    if (dropped > 0) outcome.WordsDropped[kReasonNames[reason]] = dropped;
  }

  PhraseTable table;
  TakeText(std::move(stream), table);
  NoYielder unstopped;
  const bool holdsPhrase = HoldsPhrase(table, unstopped);
  uint64_t foundSoFar = 0;
  Finish(
      yielder, [&] { return CountPhrases(table, yielder, world.PlacesAtOnce); },
      [&] {
        RC_ASSERT(table.EntryCount() == 0u);
        RC_ASSERT(table.PhraseCount() >= foundSoFar);
        foundSoFar = table.PhraseCount();
      });
  RC_ASSERT(table.PhraseCount() >= foundSoFar);
  RC_ASSERT(holdsPhrase == (table.PhraseCount() > 0));
  Finish(
      yielder, [&] { return SortPhrases(table, yielder); }, [] {});
  ListByFrequency(table, world.Options.MinFrequency);
  const std::vector<bool> before = Flags(table);
  if (!world.Options.KeepRedundant)
    Finish(
        yielder, [&] { return ExcludeRedundantSubphrases(table, yielder); },
        [&] { RC_ASSERT(Flags(table) == before); });
  Finish(
      yielder, [&] { return SetUpFrequencyChain(table, world.Order, yielder); },
      [&] { ExpectEmptyChain(table); });

  const bool folder = IsFolder(world);
  auto textOf = [&](PhraseIndex i) { return i == kNoPhrase ? std::string() : table.Text(i); };
  for (const PhraseIndex i : table.All()) {
    const std::string text = table.Text(i);
    RC_ASSERT(table.Characters(i) == reference::CharacterCount(text));
    RC_ASSERT(table.Words(i) == std::count(text.begin(), text.end(), ' ') + 1);
    if (!table.Listed(i)) {
      RC_ASSERT(table.ChainPosition(i) == kNoRank);
      RC_ASSERT(table.ChainNext(i) == kNoPhrase);
      continue;
    }
    CountingOutcome::Entry entry{text,
                                 table.Key(i),
                                 table.Count(i),
                                 ValueOf(table.ChainPosition(i)),
                                 textOf(table.ChainNext(i)),
                                 "",
                                 "",
                                 0};
    if (folder) {
      const DocumentCounts counts = table.Files(i);
      entry.FileNumbers = counts.FileNumbers();
      entry.FileCounts = counts.FileCounts();
      entry.FileCount = counts.FileCount();
      RC_ASSERT(table.FileCount(i) == counts.FileCount());
    }
    outcome.Listed.push_back(std::move(entry));
  }
  outcome.Head = textOf(table.ChainHead());
  outcome.PhraseCount = static_cast<int64_t>(table.PhraseCount());
  outcome.Occurrences = static_cast<int64_t>(table.Occurrences());
  outcome.LongPhrases = static_cast<int64_t>(table.LongPhrases());
  if (folder) {
    for (const std::filesystem::path& path : table.FilePaths()) outcome.FilePaths.push_back(path.string());
  }
  return outcome;
}

std::ostream& operator<<(std::ostream& out, const CountingWorld& world) {
  out << "words " << world.Options.MinWords << ".." << world.Options.MaxWords << ", at least "
      << world.Options.MinFrequency << " times, " << world.PlacesAtOnce << " places at once, ignore mode "
      << static_cast<int>(world.Options.IgnoreMode);
  if (IsFolder(world)) out << ", folder" << (world.Order == ChainOrder::ByFiles ? " by files" : "");
  const WordRules& rules = world.Rules;
  out << "\nrules:" << (rules.CaseSignificant ? " case" : "") << (rules.Only7bitASCII ? " 7-bit" : "");
  if (rules.IgnoreShortWords) out << " short " << rules.ShortWordSize;
  out << " long " << rules.LongWordSize << (rules.IgnoreNoLetter ? " letters" : "")
      << (rules.IgnoreRepetitions ? " repetitions" : "");
  auto list = [&](const char* name, const std::vector<std::string>& entries) {
    if (entries.empty()) return;
    out << '\n' << name << ':';
    for (const std::string& entry : entries) out << " [" << entry << ']';
  };
  list("file words", world.Entries.FileWordsToIgnore);
  list("typed words", world.Entries.TypedWordsToIgnore);
  if (world.Entries.PatternMatchingInWordsToIgnoreFile) out << "\npattern matching";
  list("count only", world.Entries.CountOnly);
  out << "\ntext:";
  for (const CountingWorld::Step& step : world.Steps) {
    switch (step.What) {
      case CountingWorld::Step::Kind::Word:
        out << ' ' << step.Text;
        break;
      case CountingWorld::Step::Kind::EndOfPhrase:
        out << " /";
        break;
      case CountingWorld::Step::Kind::NextFile:
        out << " {" << step.Text << '}';
        break;
    }
  }
  return out;
}

std::ostream& operator<<(std::ostream& out, const CountingOutcome& outcome) {
  out << outcome.PhraseCount << " phrases, " << outcome.Occurrences << " occurrences, " << outcome.WordsTaken
      << " words, dropped";
  for (const auto& [reason, words] : outcome.WordsDropped) out << ' ' << words << ' ' << reason;
  out << ", " << outcome.LongPhrases << " too long, files";
  for (const std::string& path : outcome.FilePaths) out << ' ' << path;
  out << ", first [" << outcome.Head << "]\n";
  for (const CountingOutcome::Entry& entry : outcome.Listed) {
    out << entry.Rank << ". [" << entry.Text << "] key [" << entry.Key << "] " << entry.Count
        << " times, then [" << entry.Next << "], files " << entry.FileCount << ' ' << entry.FileNumbers << ' '
        << entry.FileCounts << '\n';
  }
  return out;
}

}  // namespace korv
