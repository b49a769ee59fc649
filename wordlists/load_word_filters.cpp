#include "wordlists/load_word_filters.h"

#include "wordlists/typed_words.h"

namespace korv {

WordFilterSpec MakeWordFilterSpec(const WordList* ignoreFile, const std::string& ignoreWords,
                                  bool patternMatching, const WordList* countOnlyFile,
                                  const std::string& countOnly, const WordRules& rules) {
  WordFilterSpec entries;
  if (ignoreFile != nullptr) entries.FileWordsToIgnore = ignoreFile->Words;
  entries.TypedWordsToIgnore = SplitTypedEntries(ListKind::WordsToIgnore, ignoreWords);
  entries.PatternMatchingInWordsToIgnoreFile = patternMatching;
  if (countOnlyFile != nullptr) entries.CountOnly = countOnlyFile->Words;
  for (std::string& entry : SplitTypedEntries(ListKind::CountOnly, countOnly))
    entries.CountOnly.push_back(std::move(entry));
  entries.CaseSignificant = rules.CaseSignificant;
  return entries;
}

std::optional<WordFilterSpec> LoadWordFilters(const ListRequest& request, const WordRules& rules,
                                              ListReading& reading) {
  WordList ignore;
  WordList countOnly;
  std::string label;
  if (request.IgnoreFile &&
      !AttemptToReadWords(reading, *request.IgnoreFile, ListKind::WordsToIgnore, rules, ignore, label))
    return std::nullopt;
  if (request.CountOnlyFile &&
      !AttemptToReadWords(reading, *request.CountOnlyFile, ListKind::CountOnly, rules, countOnly, label))
    return std::nullopt;
  Messages& messages = reading.Check.Messages;
  CheckAllowedExtraChars(ListKind::WordsToIgnore, request.IgnoreWords, rules, messages);
  CheckAllowedExtraChars(ListKind::CountOnly, request.CountOnly, rules, messages);
  return MakeWordFilterSpec(&ignore, request.IgnoreWords, request.PatternMatching, &countOnly,
                            request.CountOnly, rules);
}

}  // namespace korv
