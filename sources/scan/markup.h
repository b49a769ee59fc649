#pragma once

#include <cstddef>
#include <string>
#include <string_view>
#include <vector>

namespace korv {

/// An entity that was replaced. All numbers are bytes.
struct ReplacedEntity {
  size_t Begin;     ///< Where the replacement begins in the new text.
  size_t Size;      ///< The length of the replacement.
  size_t OldBegin;  ///< Where the entity began in the old text.
  size_t OldSize;   ///< The length of the entity.
};

/// Replaces the known character entities of a line by the characters they stand for: letters by
/// themselves, quotes of all shapes by an apostrophe, "&quot;" by a double quote. Unknown ones stay. What
/// a replacement makes is not looked at again. An "&" without ";" after it ends the work. Linear.
/// `replaced`, where given, gets what was replaced, in order.
void ReplaceNamedEntities(std::string& text, std::vector<ReplacedEntity>* replaced = nullptr);
/// The same for a line that comes in parts, none of which ends inside a known entity. `open` says whether an
/// "&" of an earlier part, in the end of this one, waits for its ";"; false at the beginning of a line.
void ReplaceNamedEntities(std::string& text, bool& open, std::vector<ReplacedEntity>* replaced = nullptr);
/// The number of bytes of such a part that can be replaced now. Behind them stands an "&" that may become a
/// known entity with the next part; if there is none, it is the size of the part. `open` as above, at the
/// beginning of the part.
size_t SizeBeforeEntity(std::string_view part, bool open);

/// Replaces "--" by two blanks, save at the first two characters of the line and where it belongs to
/// "<!--" or "-->". Linear.
std::string ReplaceDoubleHyphens(std::string_view text);
/// The same in place. `charactersBefore` is the number of characters of the line before `text`; 2 stands for
/// any greater number.
void ReplaceDoubleHyphensInPlace(std::string& text, size_t charactersBefore);

/// For text that begins at an ampersand: 0 where it is no entity, 1 for a numeric one ("&#"), else the
/// position of its ";" in characters, counted from 1. Looks at the first 20 characters at most.
int EntityLength(std::string_view text);

/// Whether an apostrophe and "t" belong to `word` before them ("didn", "WASN"). Tails of such words pass
/// too, the empty one among them.
bool IsNegativeContractionStem(std::string_view word);

}  // namespace korv
