#pragma once

#include <cstdint>
#include <optional>
#include <vector>

#include "base/yielder.h"
#include "engine/analysis/dispersion.h"
#include "engine/analysis/free_occurrences.h"
#include "engine/analysis/taken_words.h"
#include "engine/analysis/text_parts.h"
#include "engine/counting/phrase_table.h"

namespace korv {

/// What measures of phrases are made of. Each takes time and memory to prepare.
struct AnalysisNeeds {
  bool Positions = false;        ///< Where places stand among the words taken.
  bool Parts = false;            ///< The parts of the text.
  bool FreeOccurrences = false;  ///< How often each phrase occurs on its own.

  /// Whether something is needed. All of it needs a run that keeps places.
  bool Any() const { return *this != AnalysisNeeds{}; }
  AnalysisNeeds& operator|=(const AnalysisNeeds& other);
  bool operator==(const AnalysisNeeds&) const = default;
};

/// Measures of the phrases of a finished run beyond their counts.
///
///     PhraseAnalysis analysis(table, {});
///     analysis.Prepare({.Parts = true}, yielder);
///     analysis.Dispersion(i, DispersionP);
///
/// Values are the same whatever the number of threads that prepared them. They may be asked by any number of
/// threads, but not while one of them prepares something. A value is missing where it is not defined, where
/// what it needs was not prepared, and where the run kept no places.
class PhraseAnalysis {
 public:
  /// The table must be counted, and outlive the object.
  PhraseAnalysis(const PhraseTable& table, PartChoice parts) : table_(table), choice_(parts) {}
  PhraseAnalysis(const PhraseAnalysis&) = delete;
  PhraseAnalysis& operator=(const PhraseAnalysis&) = delete;

  /// Prepares what is not there yet, on all threads. False when stopped: what was finished stays, and the rest
  /// can be prepared later.
  bool Prepare(const AnalysisNeeds& needs, Yielder& yielder);

  /// One of the measures of dispersion.h over the parts of the text. Not defined for a phrase that occurs once
  /// and for a text without parts. Needs Parts. Linear in the occurrences, but for their sorting by part.
  std::optional<double> Dispersion(PhraseIndex phrase, double (*measure)(const PhraseSpread&)) const;
  /// The number of parts in which the phrase occurs. Not defined for a text without parts. Needs Parts.
  std::optional<uint32_t> Range(PhraseIndex phrase) const;
  /// AverageReducedFrequency(). Needs Positions. Costs a sort of the occurrences.
  std::optional<double> ReducedFrequency(PhraseIndex phrase) const;
  /// The occurrences of the phrase on its own. Needs FreeOccurrences. Constant time.
  std::optional<uint32_t> NetFrequency(PhraseIndex phrase) const;

 private:
  std::vector<PhraseSpread::Part> PartsWith(PhraseIndex phrase) const;

  const PhraseTable& table_;
  PartChoice choice_;
  AnalysisNeeds prepared_;
  TakenWords words_;
  TextParts parts_;
  FreeOccurrences free_;
};

}  // namespace korv
