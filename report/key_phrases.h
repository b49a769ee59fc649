#pragma once

#include <cstdint>
#include <optional>
#include <span>
#include <vector>

#include "engine/analysis/phrase_order.h"
#include "report/columns/row_filter.h"

namespace korv {

/// What a table of two sides lists.
enum class KeyPhrases {
  Typical,   ///< Of A or of B.
  TypicalA,  ///< Those of A.
  TypicalB,
  Shared,  ///< Equally usual on both sides: |log ratio| < 0.5 and BIC < -2.
  // Where A is a new version of B.
  Changes,  ///< All of them.
  New,
  Gone,
  More,
  Less,
};

/// The least BIC of a typical phrase: positive evidence of a difference.
inline constexpr double kKeyBic = 2;
/// The least a + b of the phrases that are compared.
inline constexpr int kKeyFrequency = 3;

/// Which rows these are, and in which order: those with the largest difference first, shared ones by
/// frequency.
struct KeyRows {
  std::vector<Limit> Limits;
  const Column* OrderBy;
  SortDirection Direction;
};

/// `leastBic` is for typical phrases; without it none is put to a test.
KeyRows RowsOf(KeyPhrases which, std::optional<double> leastBic = kKeyBic);

/// To which test typical phrases are put.
enum class KeyTest {
  Bic,    ///< BIC kKeyBic or more.
  Sidak,  ///< p at most 0.01 %, where as many phrases are tested as are listed, by Sidak.
  None,
};

/// The least BIC that passes the test; nothing where all do. `units`: c + d, running words or files of both
/// sides, above 0. `tests`: how many phrases are tested, at least 1.
std::optional<double> LeastBicOf(KeyTest test, uint64_t units, uint64_t tests);

/// The tables that a comparison is sorted out into, in the order in which people read them; `drafts`: those
/// where A is a new version of B.
std::span<const KeyPhrases> KeyTablesOf(bool drafts);

/// The columns of such a table unless others are asked for.
std::vector<const Column*> UsualColumnsOf(KeyPhrases which);

}  // namespace korv
