#pragma once

#include <array>
#include <cstdint>
#include <memory>
#include <optional>
#include <vector>

#include "base/yielder.h"
#include "engine/analysis/association.h"
#include "engine/analysis/dispersion.h"
#include "engine/analysis/free_occurrences.h"
#include "engine/analysis/joints.h"
#include "engine/analysis/keyness.h"
#include "engine/analysis/side_counts.h"
#include "engine/analysis/taken_words.h"
#include "engine/analysis/text_parts.h"
#include "engine/counting/phrase_table.h"

namespace korv {

/// What measures of phrases are made of. Each takes time and memory to prepare.
struct AnalysisNeeds {
  bool Positions = false;        ///< Where places stand among the words taken.
  bool Parts = false;            ///< The parts of the text.
  bool FreeOccurrences = false;  ///< How often each phrase occurs on its own.
  bool Words = false;            ///< How often each word occurs.
  bool Joints = false;           ///< How often the parts of each phrase occur.
  bool CValues = false;          ///< The C-value of each phrase.
  // Of a run that compares; nothing is prepared for others.
  bool Sides = false;      ///< What each phrase is compared by.
  bool SideFiles = false;  ///< In how many files of each side each phrase occurs.
  bool SideParts = false;  ///< The parts of each side.

  /// Whether something is needed. All of it but CValues needs a run that keeps places.
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
/// threads, but not while one of them prepares something. A copy shares what was prepared and can prepare
/// more while the values of the other are asked for. A value is missing where it is not defined, where what
/// it needs was not prepared, and, but for C-values, where the run kept no places.
class PhraseAnalysis {
 public:
  /// The table must be counted, and outlive the object.
  PhraseAnalysis(const PhraseTable& table, PartChoice parts, ComparisonBasis basis = ComparisonBasis::Words)
      : table_(table), choice_(parts), basis_(basis) {}

  /// Other parts from here on. Those that were prepared are forgotten, unless they are the same.
  void Divide(PartChoice parts);

  /// Prepares what is not there yet, on all threads. False when stopped: what was finished stays, and the
  /// rest can be prepared later.
  bool Prepare(const AnalysisNeeds& needs, Yielder& yielder);

  /// Where places stand among the words taken. Null where Positions were not prepared.
  const TakenWords* Words() const { return words_.get(); }
  /// One of the measures of dispersion.h over the parts of the text. Not defined for a phrase that occurs
  /// once and for a text without parts. Needs Parts. Linear in the occurrences, but for their sorting by
  /// part.
  std::optional<double> Dispersion(PhraseIndex phrase, double (*measure)(const PhraseSpread&)) const;
  /// The number of parts in which the phrase occurs. Not defined for a text without parts. Needs Parts.
  std::optional<uint32_t> Range(PhraseIndex phrase) const;
  /// AverageReducedFrequency(). Needs Positions. Costs a sort of the occurrences.
  std::optional<double> ReducedFrequency(PhraseIndex phrase) const;
  /// The occurrences of the phrase on its own. Needs FreeOccurrences. Constant time.
  std::optional<uint32_t> NetFrequency(PhraseIndex phrase) const;
  /// The share of the words taken, 0..1, that stand in a phrase that was counted and reaches the minimum
  /// frequency: how formulaic the text is. Not defined for a text without words. Needs FreeOccurrences and
  /// Positions.
  std::optional<double> Coverage() const;

  // Not defined for a phrase of one word.

  /// One of the measures of association.h. Needs Words. Linear in the words of the phrase.
  std::optional<double> Association(PhraseIndex phrase, double (*measure)(const PhraseWords&)) const;
  /// The least mutual information of a joint i between two words, log2(f * T / (f(w1..wi) * f(wi+1..wn))): a
  /// phrase is as strong as its weakest joint. Comparable over lengths. Needs Joints and Positions. Constant
  /// time, like the next two.
  std::optional<double> WeakestJoint(PhraseIndex phrase) const;
  /// f / f(w1..wn-1): how often the last word follows the others. Needs Joints.
  std::optional<double> ForwardProbability(PhraseIndex phrase) const;
  /// f / f(w2..wn): how often the first word precedes the others. Needs Joints.
  std::optional<double> BackwardProbability(PhraseIndex phrase) const;

  /// See FindCValues(). Needs CValues. Constant time.
  std::optional<double> CValue(PhraseIndex phrase) const;

  // Of a run that compares.

  /// Compares by something else from here on; it must be prepared.
  void CompareBy(ComparisonBasis basis) { basis_ = basis; }
  ComparisonBasis ComparedBy() const { return basis_; }
  /// What the phrase is compared by on side A or B: its occurrences, those on its own, or its files. Needs
  /// Sides. Constant time.
  std::optional<uint32_t> Compared(PhraseIndex phrase, Side side) const;
  /// Its occurrences there. Needs Sides. Constant time.
  std::optional<uint32_t> FrequencyOn(PhraseIndex phrase, Side side) const;
  /// The files of the side with it, and those with words. Needs SideFiles. Constant time.
  std::optional<uint32_t> FilesOn(PhraseIndex phrase, Side side) const;
  std::optional<uint32_t> FilesWithWords(Side side) const;
  /// Dispersion() of its occurrences there over the parts of the side. Needs SideParts.
  std::optional<double> DispersionOn(PhraseIndex phrase, Side side,
                                     double (*measure)(const PhraseSpread&)) const;

 private:
  bool PrepareSides(const AnalysisNeeds& needs, Yielder& yielder);
  bool HasJoints(PhraseIndex phrase) const;

  const PhraseTable& table_;
  PartChoice choice_;
  ComparisonBasis basis_;
  // Null where not prepared.
  std::shared_ptr<const TakenWords> words_;
  std::shared_ptr<const TextParts> parts_;
  std::shared_ptr<const FreeOccurrences> free_;
  std::shared_ptr<const std::vector<uint32_t>> wordFrequencies_;
  std::shared_ptr<const JointCounts> joints_;
  std::shared_ptr<const std::vector<double>> cValues_;
  std::shared_ptr<const SideCounts> sideCounts_;
  std::shared_ptr<const SideFiles> sideFiles_;
  std::array<std::shared_ptr<const TextParts>, 2> sideParts_;  ///< By Side.
};

}  // namespace korv
