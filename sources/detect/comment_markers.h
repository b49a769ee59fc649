#pragma once

#include <array>
#include <string_view>

namespace korv {

/// Where regions that are no prose begin and end; an empty end marker ends the region with its line.
struct MarkerPair {
  std::string_view Start;
  std::string_view End;
};

/// The language of a text, which says which of its regions are no prose.
enum class MarkupLanguage {
  None,
  C,
  Xml,
  Html,
  Php,  ///< HTML with programs in it.
};

/// Whether a language has tags. The delimiters of CDATA are no text in it either.
constexpr bool IsMarkup(MarkupLanguage language) {
  return language == MarkupLanguage::Xml || language == MarkupLanguage::Html ||
         language == MarkupLanguage::Php;
}

/// Whether a language has comments of programs (see CommentMarkersOK).
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
/// Chooses the language by the lower-cased extension without its dot, and fills the table. Always returns
/// true.
bool SetMarkupLanguageFromExtension(CommentMarkers& markers, std::string_view extension);
/// The table for files with an extension, lower-cased and without its dot.
CommentMarkers MarkersOfExtension(std::string_view extension);

/// Whether the text has neither regions nor entities, so that it may be read from any word on.
inline bool IsPlainText(const CommentMarkers& markers) {
  return markers.intNumCommentMarkers == 0 && !markers.blnCharacterEntitiesPossible;
}

}  // namespace korv
