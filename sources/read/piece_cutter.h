#pragma once

#include <cstddef>
#include <cstdint>
#include <deque>
#include <memory>
#include <optional>
#include <vector>

#include "base/job_team.h"
#include "base/yielder.h"
#include "engine/corpus/corpus_builder.h"
#include "engine/text/word_rules.h"
#include "sources/read/text_pieces.h"

namespace korv {

/// What was found while pieces of a text, or all of it, were cut.
struct CutFacts {
  korv::ReadAs ReadAs = ReadAs::Ascii;
  uint64_t IllFormed = 0;  ///< See TextSummary.
  uint64_t TextBytes = 0;
  uint32_t Lines = 0;  ///< Line ends, and a last line without one.
};

/// Cuts the pieces of plain texts into words, several side by side, and hands them to a corpus in the order
/// of the text. Each thread has a builder of its own, whose words it keeps for all texts of the run.
///
///   while (auto piece = pieces.Next()) cutter.Add(std::move(*piece));
///   facts = cutter.Finish();
class PieceCutter {
 public:
  /// Begins no thread before there is a piece. All must outlive the object.
  PieceCutter(const WordRules& rules, CorpusBuilder& corpus, Yielder& yielder, size_t threads);
  ~PieceCutter();

  /// Begins a text: pieces are cut to their end after a stop too where `finish` says so.
  void BeginText(bool finish);
  /// Takes the next piece. Waits, and yields, while there are as many as the threads can do soon.
  void Add(TextPiece piece);
  /// Waits until the corpus has all pieces of the text; after a stop those before the first one that was not
  /// cut whole, and what was cut of that.
  CutFacts Finish();

 private:
  class Job;
  void AppendFirst();

  const WordRules& rules_;
  CorpusBuilder& corpus_;
  Yielder& yielder_;
  size_t threads_;
  bool finish_ = false;
  bool whole_ = true;  ///< All pieces taken so far were.
  CutFacts facts_;
  std::vector<std::unique_ptr<CorpusBuilder>> builders_;  ///< Of the threads.
  std::vector<PartNumbers> numbers_;                      ///< Of the builders' words in the corpus.
  std::vector<std::unique_ptr<Job>> idle_;                ///< For the next pieces.
  std::deque<std::unique_ptr<Job>> busy_;                 ///< In the order of the text.
  std::optional<JobTeam> team_;                           ///< Last: its threads use all of the above.
};

}  // namespace korv
