#pragma once

#include <array>
#include <cstdint>
#include <memory>
#include <vector>

#include "base/yielder.h"
#include "desktop/results/table/table_source.h"
#include "engine/analysis/phrase_order.h"
#include "report/key_phrases.h"

namespace korv {

/// One of the tables that a run with two sides is sorted out into.
struct KeyTab {
  KeyPhrases Which = KeyPhrases::TypicalA;
  KeyTest Test = KeyTest::Bic;

  /// Whether A is a new version of B.
  bool OfDrafts() const { return Which >= KeyPhrases::Changes; }

  bool operator==(const KeyTab&) const = default;
};

/// Which phrases of a run that compares stand in which of its tables. Two bytes an entry. Data: any thread
/// may read it.
class KeyTabs {
 public:
  /// Sorts all of an order of the run out into the tables that stand beside that of `tab`. On all threads.
  /// `source` has what AnalysisNeeds::Sides asks for. Null when stopped.
  static std::shared_ptr<const KeyTabs> Of(const TableSource& source, const SharedOrder& order,
                                           const KeyTab& tab, Yielder& yielder);

  /// Whether the table of `tab` is one of them, by the same test.
  bool Serve(const KeyTab& tab) const { return tab.Test == made_.Test && tab.OfDrafts() == made_.OfDrafts(); }
  uint32_t Phrases(KeyPhrases tab) const { return phrases_[static_cast<size_t>(tab)]; }
  bool Holds(KeyPhrases tab, PhraseIndex entry) const {
    return (tabs_[ValueOf(entry)] >> static_cast<int>(tab) & 1) != 0;
  }

 private:
  static constexpr size_t kTabs = static_cast<size_t>(KeyPhrases::Less) + 1;

  KeyTab made_;
  std::array<uint32_t, kTabs> phrases_{};
  std::vector<uint16_t> tabs_;  ///< By entry: a bit for each KeyPhrases.
};

}  // namespace korv
