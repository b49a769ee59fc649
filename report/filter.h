#pragma once

#include <string>
#include <string_view>
#include <vector>

#include "report/report_options.h"

namespace korv {

/// The words of a filter text, lower-cased, in the order typed: runs of letters, digits, "'" and "-". All
/// else separates them.
std::vector<std::string> SplitFilterWords(std::string_view typed);

/// What the text box of the filter words shows when it is left: those words, single blanks between them.
std::string NormaliseFilterText(std::string_view typed);

/// Decides which phrases a filtered listing shows. Case is not significant, accents are.
///
///   PhraseFilter filter(options.FilterText, options.FilterModeOfWords);
///   if (filter.Passes("Saw the cat")) ...
///
/// Cost of a test: the length of the phrase times the number of filter words; no allocation once the
/// longest phrase has been seen.
class PhraseFilter {
 public:
  PhraseFilter(std::string_view filterText, FilterMode mode);

  /// No words: nothing to filter by, and every phrase passes.
  bool Empty() const { return words_.empty(); }
  bool Passes(std::string_view phrase);

 private:
  bool InSameOrder(std::string_view lowered) const;

  std::vector<std::string> words_;
  std::string text_;
  FilterMode mode_;
  std::string lowered_;
};

/// The lines between summary and heading that name the filter.
std::string FilterNoticeText(FilterMode mode, std::string_view filterText);

/// Where a notice about a listing without a match is shown, and of which listing it tells; the words
/// differ in each case.
enum class NoticePlace { TextBox, File };
/// Without line breaks around it.
std::string NoMatchText(FilterMode mode, bool alphabetical, NoticePlace place);

}  // namespace korv
