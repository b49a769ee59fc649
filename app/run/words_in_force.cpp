#include "app/run/words_in_force.h"

#include "app/run/result_notes.h"
#include "wordlists/common_words.h"
#include "wordlists/typed_words.h"

namespace korv {
namespace {

constexpr size_t kLongestName = 30;  // characters

/// "common words of English"; of other files "of words.txt".
std::string NameOfList(const std::filesystem::path& path) {
  const std::string file = PathToText(path.filename());
  for (const CommonWordsLanguage& language : kCommonWordsLanguages)
    if (!language.File.empty() && language.File == file)
      return "common words of " + std::string(language.Code == "all" ? "all six languages" : language.Item);
  return "of " + Shortened(file, kLongestName);
}

}  // namespace

std::string WordsInForceText(const Workspace& work, const NumberFormat& numbers) {
  const auto number = [&numbers](size_t n) { return numbers.Grouped(static_cast<int64_t>(n)); };
  std::string text;
  const WordList* const loaded = work.LoadedOf(ListKind::WordsToIgnore);
  if (loaded != nullptr && !loaded->Words.empty())
    text = number(loaded->Words.size()) + " " + NameOfList(loaded->Path);
  const size_t typed =
      SplitTypedEntries(ListKind::WordsToIgnore, work.TypedOf(ListKind::WordsToIgnore)).size();
  if (typed > 0) text += (text.empty() ? "" : ", ") + number(typed) + " typed";
  return "Words to ignore: " + (text.empty() ? "none" : text);
}

}  // namespace korv
