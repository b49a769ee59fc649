#include "app/run/words_in_force.h"

#include "app/run/counted.h"
#include "app/run/result_notes.h"
#include "base/translation.h"
#include "wordlists/common_words.h"
#include "wordlists/typed_words.h"

namespace korv {
namespace {

constexpr size_t kLongestName = 30;  // characters

/// "150 common words of English"; of other files "150 of words.txt".
std::string TextOfList(const WordList& list, const NumberFormat& numbers) {
  const std::string file = PathToText(list.Path.filename());
  const size_t words = list.Words.size();
  const std::string number = numbers.Grouped(static_cast<int64_t>(words));
  for (const CommonWordsLanguage& language : kCommonWordsLanguages) {
    if (language.File.empty() || language.File != file) continue;
    if (language.Code == "all")
      return Fill(
          TrCount("%1 common words of all six languages", "%1 common words of all six languages", words),
          {number});
    return Fill(TrCount("%1 common words of %2", "%1 common words of %2", words),
                {number, ItemText(language)});
  }
  // Translators: so many words of the list file %2.
  return Fill(Tr("%1 of %2"), {number, Shortened(file, kLongestName)});
}

}  // namespace

std::string WordsInForceText(const Workspace& work, const NumberFormat& numbers) {
  std::string text;
  const WordList* const loaded = work.LoadedOf(ListKind::WordsToIgnore);
  if (loaded != nullptr && !loaded->Words.empty()) text = TextOfList(*loaded, numbers);
  const size_t typed =
      SplitTypedEntries(ListKind::WordsToIgnore, work.TypedOf(ListKind::WordsToIgnore)).size();
  if (typed > 0)
    text += (text.empty() ? "" : ", ") + Counted(TrCount("%1 typed", "%1 typed", typed), typed, numbers);
  return text.empty() ? Tr("Words to ignore: none") : Fill(Tr("Words to ignore: %1"), {text});
}

}  // namespace korv
