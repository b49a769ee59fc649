#include "desktop/results/table/row_count_text.h"

namespace korv {

namespace {

std::string Counted(uint64_t number, const char* one, const char* many, const NumberFormat& numbers) {
  return numbers.Grouped(static_cast<int64_t>(number)) + (number == 1 ? one : many);
}

}  // namespace

std::string CountOfRows(const PhraseList& rows, bool whole, const NumberFormat& numbers) {
  std::string text;
  if (rows.Filtered()) text = numbers.Grouped(rows.Rows()) + (whole ? " of " : " so far of ");
  text += Counted(rows.Phrases(), " phrase, ", " phrases, ", numbers);
  return text + Counted(rows.Occurrences(), " occurrence", " occurrences", numbers);
}

}  // namespace korv
