#include "desktop/results/table/row_count_text.h"

#include "base/translation.h"

namespace korv {

std::string CountOfRows(const PhraseList& rows, bool whole, const NumberFormat& numbers) {
  const uint32_t phrases = rows.Phrases();
  const char* const pattern = !rows.Filtered() ? TrCount("%2 phrase", "%2 phrases", phrases)
                              : whole          ? TrCount("%1 of %2 phrase", "%1 of %2 phrases", phrases)
                                      : TrCount("%1 so far of %2 phrase", "%1 so far of %2 phrases", phrases);
  const char* const occurrences = TrCount("%1 occurrence", "%1 occurrences", rows.Occurrences());
  return Fill(pattern, {numbers.Grouped(rows.Rows()), numbers.Grouped(phrases)}) + ", " +
         Fill(occurrences, {numbers.Grouped(static_cast<int64_t>(rows.Occurrences()))});
}

}  // namespace korv
