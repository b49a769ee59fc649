// Filter text against phrases: the filter and the naive model agree, and normalising is done in one go.
// An input is a byte for the mode, the filter text, a line feed, and a phrase.

#include <cstdint>
#include <cstdlib>
#include <string>
#include <string_view>

#include "engine/text/unicode.h"
#include "report/filter.h"
#include "tests/reference/naive_filter.h"

namespace korv {
namespace {

/// Phrases come out of the decoder, so they are never ill-formed; what the user types may be anything.
std::string WellFormed(std::string_view bytes) {
  std::string text;
  for (size_t at = 0; at < bytes.size();) AppendCharacter(NextCharacter(bytes, at), text);
  return text;
}

void Check(bool holds) {
  if (!holds) std::abort();
}

}  // namespace
}  // namespace korv

extern "C" int LLVMFuzzerTestOneInput(const uint8_t* data, size_t size) {
  using namespace korv;
  if (size == 0) return 0;
  const std::string_view input(reinterpret_cast<const char*>(data), size);
  const auto mode = static_cast<FilterMode>(data[0] % 3);
  const size_t cut = input.find('\n');
  const std::string_view typed = input.substr(1, cut == input.npos ? input.npos : cut - 1);
  const std::string phrase = WellFormed(cut == input.npos ? std::string_view() : input.substr(cut + 1));

  const std::string normalised = NormaliseFilterText(typed);
  Check(NormaliseFilterText(normalised) == normalised);

  PhraseFilter filter(typed, mode);
  const std::vector<std::string> words = reference::FilterWords(normalised);
  Check(words == SplitFilterWords(typed));
  Check(filter.Empty() == words.empty());
  const bool passes = filter.Passes(phrase);
  Check(words.empty() ? passes : passes == reference::PassesFilter(phrase, words, mode));
  return 0;
}
