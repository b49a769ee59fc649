#include <cstddef>
#include <cstdint>
#include <cstdlib>
#include <string>
#include <string_view>

#include "app/settings/saved_state.h"

/// A settings file from anywhere leaves settings that can be saved, and that are the same when loaded again.
extern "C" int LLVMFuzzerTestOneInput(const uint8_t* data, size_t size) {
  using namespace korv;
  Settings settings;
  const RestoreOutcome outcome =
      ReadStateBytes(std::string_view(reinterpret_cast<const char*>(data), size), settings);
  const auto saved = StateBytes(settings);
  if (!saved) std::abort();
  Settings again;
  if (!ReadStateBytes(*saved, again).Complete()) std::abort();
  const auto savedAgain = StateBytes(again);
  if (!savedAgain || *savedAgain != *saved) std::abort();
  if (settings.Words.ShortWordSize < kLeastShortWordSize ||
      settings.Words.ShortWordSize > kMostShortWordSize ||
      settings.Words.LongWordSize % kLongWordSizeStep != 0 || settings.MinWords < kLeastWords ||
      settings.MinWords > kMostWords || settings.MaxWords > kMostWords ||
      settings.SelectedWordsFile >= static_cast<int>(settings.WordsFiles.size()))
    std::abort();
  if (outcome.Complete() != outcome.ErrorText.empty() && !outcome.EndedEarly) std::abort();
  return 0;
}
