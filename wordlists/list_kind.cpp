#include "wordlists/list_kind.h"

namespace korv {

std::string_view NameOfMany(ListKind kind) {
  return kind == ListKind::WordsToIgnore ? "words-to-ignore" : "count-only words";
}

std::string_view NameOfOne(ListKind kind) {
  return kind == ListKind::WordsToIgnore ? "word-to-ignore" : "count-only word";
}

std::string LoadedLabel(ListKind kind, size_t count) {
  std::string label = count == 1 ? "One " : std::to_string(count) + " ";
  label += count == 1 ? NameOfOne(kind) : NameOfMany(kind);
  return label + " loaded";
}

std::string FilesButtonCaption(ListKind kind, size_t files) {
  std::string caption = kind == ListKind::WordsToIgnore ? "Words-to-ignore" : "Count-only words";
  return caption + " files (" + std::to_string(files) + ")";
}

std::string FilesListHint(ListKind kind) {
  const bool ignoring = kind == ListKind::WordsToIgnore;
  return "To specify (or add) a file containing " +
         std::string(ignoring ? "words to ignore" : "count-only words") + ", click on the button labelled '" +
         (ignoring ? "Words-to-ignore" : "Count-only words") + " files'.";
}

std::string ListStateLabel(ListKind kind, std::string_view file, size_t typed) {
  const bool ignoring = kind == ListKind::WordsToIgnore;
  if (file.empty() && typed == 0) {
    return ignoring ? "The list is empty: no word is ignored."
                    : "The list is empty: every phrase is counted.";
  }
  std::string label = "In the list: " + std::string(file);
  if (typed == 0) return label;
  if (!file.empty()) label += " and ";
  label += typed == 1 ? "one extra " : std::to_string(typed) + " extra ";
  return label + (ignoring ? typed == 1 ? "word" : "words" : typed == 1 ? "entry" : "entries");
}

std::string_view SelectFileTitle(ListKind kind) {
  return kind == ListKind::WordsToIgnore ? "Specify a file containing words to ignore"
                                         : "Specify a file containing count-only words/phrases";
}

std::string_view ReadingNotice(ListKind kind) {
  return kind == ListKind::WordsToIgnore ? "Now reading words to ignore . . . "
                                         : "Now reading count-only words . . . ";
}

std::string_view SetWordsToIgnoreNotice(IgnoreRule mode, bool inForce) {
  if (mode == IgnoreRule::Allow) return {};
  return inForce ? "This operation uses the words-to-ignore specifications in the 'Settings' window."
                 : "No words-to-ignore are specified in the 'Settings' window.";
}

}  // namespace korv
