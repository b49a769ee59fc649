#pragma once

#include <string>

namespace korv {

inline constexpr int kDisplayFormats = 13;
inline constexpr int kAlphabetical = 1;  ///< A word order.

enum class FilterMode { AllWords = 0, AllWordsInSameOrder = 1, Subphrase = 2 };

/// How a report looks. Plain data; the texts of its lists are program texts.
struct ReportOptions {
  int DisplayFormat = 0;             ///< 0..12; 10 to 12 only for a folder source.
  int WordOrder = 0;                 ///< 0 by frequency, 1 alphabetical.
  bool RelativeFrequency = false;    ///< Percentages of all counted occurrences instead of counts.
  bool SortByNumberOfFiles = false;  ///< Only format 12, by frequency, folder source.
  bool FileList = false;             ///< Selecting it selects format 10.
  std::string FilterText = {};       ///< Normalised filter words, single blanks between them.
  FilterMode FilterModeOfWords = FilterMode::AllWords;
  bool FilterActive = false;  ///< Only the listing at hand is filtered.
};

}  // namespace korv
