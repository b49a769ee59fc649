#include "sources/detect/comment_markers_ok.h"

#include <algorithm>
#include <string>
#include <string_view>

#include "base/translation.h"
#include "engine/text/word_chars.h"

namespace korv {

bool CommentMarkersOK(const WordRules& rules, Messages& messages) {
  WordRules current = rules;
  SetAllowedExtraChars(current);
  SetAllowedExtraChars2(current);
  for (const std::string_view marker : {"/*", "//"}) {
    const bool couldBeWord = std::all_of(marker.begin(), marker.end(), [&](char c) {
      return IsWordChar(std::string_view(&c, 1), false, current.AllowedExtraChars);
    });
    if (!couldBeWord) continue;
    messages.Show(
        {.Text = Fill(Tr("With the current settings the start-comment marker %1 could be part of a word.\n"
                         "Check the the 'Settings' window and perhaps disallow comment "
                         "markers or restrict allowable characters in 'words'."),
                      {marker}),
         .Title = Tr("Error"),
         .Icon = Icon::Critical});
    return false;
  }
  return true;
}

}  // namespace korv
