#pragma once

#include <cstdint>
#include <optional>
#include <string>
#include <vector>

#include "base/yielder.h"
#include "desktop/results/table/table_source.h"
#include "engine/analysis/phrase_list.h"

namespace korv {

/// What there is to say of one phrase.
struct PhraseDetails {
  struct InFile {
    std::string Path;  ///< As in the column of the first file.
    uint32_t Count;
  };
  struct Other {
    PhraseIndex Phrase;
    std::string Text;
    uint32_t Count;
  };
  static constexpr size_t kMostShown = 100;

  PhraseIndex Phrase;
  std::string Text;
  uint32_t Count = 0;
  std::optional<int64_t> Alone{};  ///< The value of the column "net_frequency".
  // The most frequent ones first, at most kMostShown of each, and how many there are.
  std::vector<InFile> Files{};
  size_t AllFiles = 0;
  std::vector<Other> Longer{};  ///< Listed phrases that contain it as whole words.
  size_t AllLonger = 0;
  std::vector<Other> Shorter{};  ///< Listed phrases that it contains as whole words.
  size_t AllShorter = 0;
};

/// `rows` holds the listed phrases in some order, filtered or not. Cost: a look at each occurrence of the
/// phrase, and one at each listed phrase. Nothing when stopped.
std::optional<PhraseDetails> DetailsOf(const TableSource& source, const PhraseList& rows, PhraseIndex phrase,
                                       Yielder& yielder);

}  // namespace korv
