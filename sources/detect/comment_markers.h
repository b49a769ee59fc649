#pragma once

#include <array>
#include <string_view>

namespace korv {

/// Where regions that are no prose begin and end; an empty end marker ends the region with its line.
struct MarkerPair {
  std::string_view Start;
  std::string_view End;
};

/// What tells the regions of a text that are no prose.
enum class MarkupLanguage {
  None,
  C,
  Xml,
  Html,
  Php,  ///< HTML with programs in it.
};

/// Whether text of a language is cut into tags and text, so that the delimiters of CDATA are no text either.
constexpr bool IsMarkup(MarkupLanguage language) {
  return language == MarkupLanguage::Xml || language == MarkupLanguage::Html ||
         language == MarkupLanguage::Php;
}

/// Whether text of a language may hold comments of programs (see CommentMarkersOK).
constexpr bool HoldsProgramComments(MarkupLanguage language) {
  return language == MarkupLanguage::C || language == MarkupLanguage::Php;
}

/// The marker pairs of one language, in the order in which a reader tests them.
struct CommentMarkers {
  MarkupLanguage Language = MarkupLanguage::None;
  std::array<MarkerPair, 10> Markers{};
  int intNumCommentMarkers = 0;
  bool blnCharacterEntitiesPossible = false;  ///< "&...;" may stand for characters.
  bool blnCommentsPossible = false;
};

/// Fills the table for a language; None clears it. Leaves blnCharacterEntitiesPossible as it is.
void SetCommentMarkers(CommentMarkers& markers, MarkupLanguage language);
/// By the lower-cased extension without its dot. Always true.
bool SetMarkupLanguageFromExtension(CommentMarkers& markers, std::string_view extension);
/// Those of files with that extension, lower-cased and without its dot.
CommentMarkers MarkersOfExtension(std::string_view extension);

/// No region and no entity: each word stands for itself, wherever a line is parted.
inline bool IsPlainText(const CommentMarkers& markers) {
  return markers.intNumCommentMarkers == 0 && !markers.blnCharacterEntitiesPossible;
}

}  // namespace korv
