#include "wordlists/list_kind.h"

#include "base/translation.h"

namespace korv {

namespace {

std::string ExtraText(bool ignoring, size_t typed) {
  if (typed == 1) return ignoring ? Tr("one extra word") : Tr("one extra entry");
  return Fill(ignoring ? TrCount("%1 extra word", "%1 extra words", typed)
                       : TrCount("%1 extra entry", "%1 extra entries", typed),
              {std::to_string(typed)});
}

}  // namespace

std::string LoadedLabel(ListKind kind, size_t count) {
  const bool ignoring = kind == ListKind::WordsToIgnore;
  if (count == 1) return ignoring ? Tr("One word-to-ignore loaded") : Tr("One count-only word loaded");
  return Fill(ignoring ? TrCount("%1 word-to-ignore loaded", "%1 words-to-ignore loaded", count)
                       : TrCount("%1 count-only word loaded", "%1 count-only words loaded", count),
              {std::to_string(count)});
}

std::string FilesButtonCaption(ListKind kind, size_t files) {
  return Fill(
      kind == ListKind::WordsToIgnore ? Tr("Words-to-ignore files (%1)") : Tr("Count-only words files (%1)"),
      {std::to_string(files)});
}

std::string FilesListHint(ListKind kind) {
  return kind == ListKind::WordsToIgnore
             ? Tr("To specify (or add) a file containing words to ignore, click on the button labelled "
                  "'Words-to-ignore files'.")
             : Tr("To specify (or add) a file containing count-only words, click on the button labelled "
                  "'Count-only words files'.");
}

std::string ListStateLabel(ListKind kind, std::string_view file, size_t typed) {
  const bool ignoring = kind == ListKind::WordsToIgnore;
  if (file.empty() && typed == 0)
    return ignoring ? Tr("The list is empty: no word is ignored.")
                    : Tr("The list is empty: every phrase is counted.");
  std::string held(file);
  if (typed > 0) {
    const std::string extra = ExtraText(ignoring, typed);
    held = file.empty() ? extra : Fill(Tr("%1 and %2"), {file, extra});
  }
  return Fill(Tr("In the list: %1"), {held});
}

std::string_view SelectFileTitle(ListKind kind) {
  return kind == ListKind::WordsToIgnore ? Tr("Specify a file containing words to ignore")
                                         : Tr("Specify a file containing count-only words/phrases");
}

std::string_view ReadingNotice(ListKind kind) {
  return kind == ListKind::WordsToIgnore ? Tr("Now reading words to ignore . . . ")
                                         : Tr("Now reading count-only words . . . ");
}

std::string_view SetWordsToIgnoreNotice(IgnoreRule mode, bool inForce) {
  if (mode == IgnoreRule::Allow) return {};
  return inForce ? Tr("This operation uses the words-to-ignore specifications in the 'Settings' window.")
                 : Tr("No words-to-ignore are specified in the 'Settings' window.");
}

}  // namespace korv
