#pragma once

#include <cstdint>
#include <optional>
#include <string>
#include <vector>

#include "base/yielder.h"
#include "desktop/results/table/table_source.h"
#include "engine/analysis/phrase_list.h"
#include "sources/places/place_locator.h"

namespace korv {

/// What there is to say of one phrase.
struct PhraseDetails {
  struct InFile {
    std::string Path;  ///< As in the column of the first file.
    uint32_t Count;
  };
  struct Other {
    PhraseIndex Phrase;
    std::string Text;
    uint32_t Count;
  };
  struct Context {
    Place At;
    std::string Where;  ///< As contexts name places.
    std::string Left;   ///< With single blanks, as the next two.
    std::string Phrase;
    std::string Right;
  };
  static constexpr size_t kMostShown = 100;
  static constexpr size_t kMostContexts = 5;
  static constexpr size_t kAround = 40;  ///< Code points on each side of a context.

  /// What the columns of the list do not need, but the details do.
  static constexpr AnalysisNeeds kNeeds{.Positions = true, .FreeOccurrences = true};

  PhraseIndex Phrase;
  std::string Text;
  uint32_t Count = 0;
  std::optional<int64_t> Alone{};  ///< The value of the column "net_frequency".
  // The most frequent ones first, at most kMostShown of each, and how many there are.
  std::vector<InFile> Files{};
  size_t AllFiles = 0;
  std::vector<Other> Longer{};  ///< Listed phrases that contain it as whole words.
  size_t AllLonger = 0;
  std::vector<Other> Shorter{};  ///< Listed phrases that it contains as whole words.
  size_t AllShorter = 0;
  /// Occurrences in kPlaceCells equal parts of the words of the run; empty where the source lacks Positions.
  std::vector<uint32_t> Cells{};
  std::vector<double> Borders{};  ///< Of the files, as ShownBorders().
  /// The earliest occurrences, in the words of the run.
  std::vector<Context> First{};
};

/// `rows` holds the listed phrases in some order, filtered or not. Cost: a look at each occurrence of the
/// phrase, and one at each listed phrase. Nothing when stopped.
std::optional<PhraseDetails> DetailsOf(const TableSource& source, const PhraseList& rows, PhraseIndex phrase,
                                       Yielder& yielder);

/// Puts what the files have in place of the words of the run. Where a file cannot be read any more, these
/// stay. Reads some lines for each context.
void ReadContexts(const CountedRun& run, PlaceLocator& locator, PhraseDetails& details);

}  // namespace korv
