// Any bytes as a list file of either kind and as typed entries: read or refused with one message, and what
// comes out is clean and can be asked.
#include <algorithm>
#include <cstdint>
#include <cstdlib>
#include <set>
#include <string>

#include "engine/patterns/word_filters.h"
#include "engine/text/unicode.h"
#include "engine/text/word_chars.h"
#include "tests/wordlists/list_world.h"
#include "wordlists/load_word_filters.h"
#include "wordlists/typed_words.h"

namespace {

using namespace korv;

void Require(bool holds) {
  if (!holds) std::abort();
}

void RequireClean(const std::string& text) {
  Require(!text.empty() && text.front() != ' ' && text.back() != ' ');
  Require(ToNfc(text) == text);
  std::string again;
  for (size_t at = 0; at < text.size();) AppendCharacter(NextCharacter(text, at), again);
  Require(again == text);
}

void RequireWord(const std::string& word, const WordRules& rules) {
  Require(FoldCase(word) == word);
  // An apostrophe may stand before a last s or t whatever the rules say.
  const std::string extra = rules.AllowedExtraChars + "~?'";
  WordCharReader reader(extra);
  for (size_t at = 0; at < word.size();) Require(reader.Next(word, at));
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const uint8_t* data, size_t size) {
  constexpr size_t kMostBytes = 4096;
  if (size == 0 || size > kMostBytes) return 0;
  const ListKind kind = (data[0] & 1) != 0 ? ListKind::CountOnly : ListKind::WordsToIgnore;
  static constexpr EncodingChoice kChoices[] = {EncodingChoice::Auto, EncodingChoice::Utf8,
                                                EncodingChoice::Ansi, EncodingChoice::Auto};
  ListWorld world(kChoices[data[0] >> 1 & 3]);
  world.Rules.AllowForwardslashes = (data[0] & 8) != 0;
  world.Rules.AllowNumerals = world.Rules.AllowPeriods = (data[0] & 16) != 0;
  SetAllowedExtraChars(world.Rules);
  SetAllowedExtraChars2(world.Rules);
  const std::string content(reinterpret_cast<const char*>(data) + 1, size - 1);

  const WordList list = world.Read(content, kind);
  if (!world.Loaded) Require(list.Words.empty() && world.Messages.Shown.size() == 1);
  Require(std::set<std::string>(list.Words.begin(), list.Words.end()).size() == list.Words.size());
  for (const std::string& word : list.Words) {
    RequireClean(word);
    if (kind == ListKind::WordsToIgnore) RequireWord(word, world.Rules);
  }

  world.Messages.Forget();
  const bool faultless = CheckAllowedExtraChars(kind, content, world.Rules, world.Messages);
  Require(world.Messages.Shown.size() == (faultless ? 0u : 1u));
  for (const std::string& entry : SplitTypedEntries(kind, content)) RequireClean(entry);

  const WordFilterSpec entries = MakeWordFilterSpec(&list, content.substr(0, 200), (data[0] & 32) != 0, &list,
                                                    content.substr(0, 200), world.Rules);
  const WordFilters lists(entries);
  for (const std::string& word : list.Words) lists.IsWordToIgnore(word);
  lists.IsCountOnlyPhrase("some+words");
  return 0;
}
