#pragma once

#include <cstdint>
#include <iosfwd>
#include <map>
#include <memory>
#include <string>
#include <vector>

#include "base/yielder.h"
#include "engine/counting/count_phrases.h"
#include "engine/counting/phrase_table.h"
#include "engine/patterns/word_filters.h"
#include "engine/run_options.h"
#include "engine/text/word_rules.h"
#include "tests/reference/naive_run.h"

namespace korv {

/// A whole run: what is asked for and the text, small enough for the naive model to count.
struct CountingWorld {
  WordRules Rules;
  RunOptions Options;
  WordFilterSpec Entries;
  ChainOrder Order = ChainOrder::ByCount;
  size_t PlacesAtOnce = kPlacesAtOnce;  ///< That are sorted. No result depends on it.

  struct Step {
    enum class Kind { Word, EndOfPhrase, NextFile } What;
    std::string Text;  ///< The word as cut, or the file's path.
  };
  std::vector<Step> Steps;
};

std::ostream& operator<<(std::ostream& out, const CountingWorld& world);

/// Hands the text over to what takes words, phrase ends and files.
void Feed(const CountingWorld& world, auto& sink) {
  sink.BeginSource("0");
  for (const CountingWorld::Step& step : world.Steps) {
    switch (step.What) {
      case CountingWorld::Step::Kind::Word:
        sink.TakeWord(step.Text);
        break;
      case CountingWorld::Step::Kind::EndOfPhrase:
        sink.ResetPhrases();
        break;
      case CountingWorld::Step::Kind::NextFile:
        sink.BeginSource(step.Text);
        break;
    }
  }
}

/// Everything of a run that can be observed.
struct CountingOutcome {
  struct Entry {
    std::string Text;
    std::string Key;
    int64_t Count;
    int64_t Rank;
    std::string Next;  ///< The text of the entry that follows in the chain.
    std::string FileNumbers;
    std::string FileCounts;
    int64_t FileCount;
    bool operator==(const Entry&) const = default;
  };
  std::vector<Entry> Listed;  ///< In table order.
  std::string Head;           ///< The text of the first entry of the chain.
  int64_t PhraseCount = 0;
  int64_t Occurrences = 0;
  std::vector<std::string> FilePaths;
  int64_t WordsTaken = 0;
  std::map<std::string, int64_t> WordsDropped;  ///< By reason; without those that dropped nothing.
  int64_t LongPhrases = 0;
  bool operator==(const CountingOutcome&) const = default;
};

std::ostream& operator<<(std::ostream& out, const CountingOutcome& outcome);

/// What the naive model makes of it.
CountingOutcome ModelOutcome(const CountingWorld& world);

/// What the engine makes of it. Every stage is taken up again, with the stop request cleared, until it is
/// finished; what a stopped stage must leave behind is checked on the way.
CountingOutcome EngineOutcome(const CountingWorld& world, Yielder& yielder);

/// The model's finished run.
reference::CountingRun ModelRun(const CountingWorld& world);

/// The engine's, never stopped.
struct EngineRun {
  std::unique_ptr<WordFilters> Lists;  ///< Those of the table.
  WordCounts Words;
  PhraseTable Table;
};
EngineRun CountedByEngine(const CountingWorld& world);

/// What to vary; the rest keeps its defaults.
struct WorldKind {
  bool Lists = false;
  bool Rules = false;
  bool Folder = false;
  int MostWords = kMostWords;
  bool SingleWords = false;  ///< A list of words in place of phrases.
};

/// A random world, drawn from the generator of the property that is being checked.
CountingWorld DrawWorld(const WorldKind& kind);

}  // namespace korv
