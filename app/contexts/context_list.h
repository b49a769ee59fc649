#pragma once

#include <cstddef>
#include <cstdint>
#include <functional>
#include <memory>
#include <optional>
#include <vector>

#include "app/run/run.h"
#include "base/yielder.h"
#include "engine/corpus/place_order.h"
#include "engine/corpus/side.h"

namespace korv {

/// Which occurrences are to be listed, and how.
struct ContextQuery {
  std::vector<WordNumber> Words = {};  ///< The phrase in the numbers of the run; kNoWord makes it be nowhere.
  std::optional<Side> Of = std::nullopt;  ///< Only those of this side, in a run that compares.
  PlaceOrder Order = PlaceOrder::Place;
  bool FileByFile = false;  ///< Those of each file below a heading, files by path.
  std::optional<uint64_t> SampleSeed =
      std::nullopt;  ///< List no more than kContextSample of them, drawn with this seed.

  bool operator==(const ContextQuery&) const = default;
};

inline constexpr size_t kContextSample = 1000;

/// The occurrences of a phrase as the rows of a list. Immutable; any thread may look at it.
class ContextList {
 public:
  /// A heading, below which the occurrences of one file stand.
  struct Heading {
    size_t Source;  ///< Index in Corpus::Sources.
    size_t Count;   ///< Occurrences below it.
  };

  /// `places` are in the order of the query. `whole`: they are all that are listed, not the first of them.
  ContextList(std::shared_ptr<const CountedRun> run, ContextQuery query, std::vector<Place> places,
              uint64_t occurrences, bool whole);

  const CountedRun& Run() const { return *run_; }
  const std::shared_ptr<const CountedRun>& SharedRun() const { return run_; }
  const ContextQuery& Query() const { return query_; }
  int Words() const { return static_cast<int>(query_.Words.size()); }
  const std::vector<Place>& Places() const { return places_; }
  /// In the text, or on the side, of which a sample lists some only.
  uint64_t Occurrences() const { return occurrences_; }
  bool Whole() const { return whole_; }
  /// The texts that hold an occurrence, listed or not; known where Whole().
  std::optional<size_t> Files() const { return files_; }
  void SetFiles(size_t files) { files_ = files; }

  /// Places and headings.
  size_t Rows() const { return places_.size() + groups_.size(); }
  /// The index in Places() of a row; nothing for a heading. Logarithmic in the headings, as are the others.
  std::optional<size_t> PlaceAt(size_t row) const;
  /// Of a row that is a heading.
  Heading HeadingAt(size_t row) const;
  /// The row of a place by its index.
  size_t RowOf(size_t index) const;

 private:
  struct Group {
    size_t Begin;  ///< Index of its first place.
    size_t Source;
  };
  size_t GroupOfRow(size_t row) const;

  std::shared_ptr<const CountedRun> run_;
  ContextQuery query_;
  std::vector<Place> places_;
  uint64_t occurrences_;
  bool whole_;
  std::optional<size_t> files_;
  std::vector<Group> groups_;  ///< Empty unless FileByFile.
};

/// Finds the occurrences of the query's phrase and tells the list of them: where there are more than `first`,
/// a list of so many first and then the whole one. False when stopped. The first list of a million
/// occurrences costs some ten milliseconds, the whole one a sort.
bool FindContexts(const std::shared_ptr<const CountedRun>& run, const ContextQuery& query, size_t first,
                  Yielder& yielder, const std::function<void(std::shared_ptr<const ContextList>)>& tell);

}  // namespace korv
