#pragma once

#include <cstddef>
#include <functional>
#include <ostream>
#include <set>
#include <span>
#include <string>
#include <string_view>

#include "app/run/run.h"
#include "engine/corpus/place_order.h"
#include "sources/places/place_locator.h"

namespace korv {

/// Where a phrase stands in the texts of a run, and in which words: a line for each place, its cells parted
/// by tabs, below a heading.
class ContextTable {
 public:
  /// The run must have kept its places. `tell` gets what the user should know: once for each file that is not
  /// the one that was counted. `readAs`: as in the request of the run. All must outlive the object.
  ContextTable(const CountedRun& run, const DocxContext& context, std::string_view readAs, std::ostream& out,
               std::function<void(const std::string&)> tell);

  /// `phrase` in the numbers of the run, as CutTypedPhrase() makes them; `around`: most code points on each
  /// side. Reads the files again. In reading order each line is written when it was found, otherwise all are
  /// held first. False when stopped, with what was written by then.
  bool Write(std::span<const WordNumber> phrase, PlaceOrder order, size_t around);
  /// How many places the phrase has.
  size_t Places() const { return places_; }

 private:
  std::string Row(Place place, std::span<const WordNumber> phrase, size_t around);
  std::string FileOf(Place place) const;
  void TellOnce(Place place, PlaceFault fault);

  const Corpus& corpus_;
  Yielder& yielder_;
  std::ostream& out_;
  std::function<void(const std::string&)> tell_;
  PlaceLocator locator_;
  std::set<size_t> told_;  ///< Sources.
  size_t places_ = 0;
};

}  // namespace korv
