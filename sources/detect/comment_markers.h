#pragma once

#include <array>
#include <filesystem>
#include <string_view>

namespace korv {

/// Where regions that are no prose begin and end; an empty end marker ends the region with its line.
struct MarkerPair {
  std::string_view Start;
  std::string_view End;
};

/// The marker pairs of one language, in the order in which a reader tests them.
struct CommentMarkers {
  std::string_view Language = "None";
  std::array<MarkerPair, 10> Markers{};
  int intNumCommentMarkers = 0;
  bool blnCharacterEntitiesPossible = false;  ///< "&...;" may stand for characters.
  bool blnCommentsPossible = false;
};

/// "C", "XML", "HTML", "PHP"; any other name clears the table. Names are compared exactly. Leaves
/// blnCharacterEntitiesPossible as it is.
void SetCommentMarkers(CommentMarkers& markers, std::string_view language);
/// Those of a file, by its name.
CommentMarkers MarkersOfFile(const std::filesystem::path& path);
/// By the lower-cased extension without its dot. Always true.
bool SetMarkupLanguageFromExtension(CommentMarkers& markers, std::string_view extension);

/// No region and no entity: each word stands for itself, wherever a line is parted.
inline bool IsPlainText(const CommentMarkers& markers) {
  return markers.intNumCommentMarkers == 0 && !markers.blnCharacterEntitiesPossible;
}

}  // namespace korv
