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
