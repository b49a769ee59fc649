#pragma once

#include <cstddef>
#include <cstdint>
#include <deque>
#include <memory>
#include <span>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

#include "base/expected.h"
#include "engine/corpus/corpus.h"
#include "sources/places/context_text.h"
#include "sources/places/text_replay.h"
#include "sources/read/document_choice.h"
#include "sources/read/docx.h"
#include "sources/read/text_marks.h"

namespace korv {

/// Where a phrase stands in its file, and what stands around it, as the file has it.
struct PlaceInText {
  uint64_t Line;  ///< Of its first character, from 1; in a document, of the text extracted from it.
  uint64_t
      Column;  ///< Of its first character, from 1: code points of the file, a tab is one, a signature none.
  std::string Phrase;  ///< UTF-8; a line feed where a line ends.
  std::string Left;    ///< The words before it, all white space as single blanks.
  std::string Right;   ///< The words behind it.
  /// Offsets of the phrase in the bytes of the file, or of the text extracted from it.
  uint64_t Begin;
  uint64_t End;
  /// What stands for the line: that itself, or the page, chapter, cue or segment of a document.
  PlaceUnit Unit = PlaceUnit::Line;
  uint64_t Number = 0;  ///< Of that, from 1; 0 where nothing is known of it.
};

enum class PlaceFault {
  Unreadable,  ///< The file is gone or cannot be read any more.
  Changed,     ///< It has another size or time, or other words.
  NotKept,     ///< A text that was no file, and of which nothing was kept.
};

/// Leads from the places of a run back to its files, which are read again from the nearest anchor on. Needs a
/// run that kept places.
///
/// A single place costs the reading of some 256 words; in text with longer lines the reading of a line, or,
/// in plain text, of a piece of it. Places in ascending order cost together about one reading of what lies
/// between the first and the last; parts of more than some 256 words without a place are skipped. A document
/// is extracted again when the place before was in another text. Holds the lines around a place, and the text
/// of one document.
class PlaceLocator {
 public:
  /// `text`: that of the source without a path, from its first byte behind a signature; empty where it was
  /// not kept. `readAs`: the extension that all texts were read by, empty for their own. `documents`: as in
  /// the run. All others must outlive the object.
  PlaceLocator(const Corpus& corpus, const DocxContext& context, std::string_view text,
               std::string_view readAs = {}, DocumentChoice documents = {})
      : corpus_(corpus), context_(context), text_(text), readAs_(readAs), documents_(std::move(documents)) {}

  /// The phrase of `words` words at `place`, with at most `around` code points of whole words on both sides,
  /// beyond phrase ends too but not beyond the file.
  Expected<PlaceInText, PlaceFault> Locate(Place place, int words, size_t around);
  /// The bytes [begin, end) of a text, an index in Corpus::Sources, as far as it goes: of the file, or of the
  /// text extracted from it. Reads no more than these, but for a document.
  Expected<std::string, PlaceFault> Bytes(size_t source, uint64_t begin, uint64_t end);

 private:
  using Fault = std::optional<PlaceFault>;
  struct Hit;

  bool GoesOn(size_t source, Place from) const;
  const LineAnchor& AnchorFor(size_t source, Place from) const;
  Fault Open(size_t source, Place from);
  Expected<std::unique_ptr<InputFile>, PlaceFault> OpenFileAt(size_t source, uint64_t offset);
  Expected<std::unique_ptr<TextReader>, PlaceFault> ReaderAt(size_t source, const LineAnchor& anchor);
  Expected<uint64_t, PlaceFault> ColumnsBefore(size_t source, const LineAnchor& anchor);
  Fault ReadDocument(size_t source);
  CommentMarkers Markers(size_t source) const;
  std::span<const TextMark> Marks(size_t source) const;
  void SetNumber(PlaceInText& place) const;
  bool ReadLine();
  Fault ReadUntil(Place token, Place from);
  bool Find(Place token, Hit& hit) const;
  RawSpan SpanOf(const Hit& hit);
  TextEncoding Encoding() const;
  std::string Text(std::string_view bytes) const { return RawText(bytes, Encoding()); }
  std::string PhraseBetween(const Hit& first, size_t begin, const Hit& last, size_t end) const;
  std::string LeftOf(const Hit& hit, size_t begin, size_t around) const;
  std::string RightOf(const Hit& hit, size_t end, size_t around);

  const Corpus& corpus_;
  DocxContext context_;
  std::string_view text_;
  std::string_view readAs_;
  DocumentChoice documents_;

  size_t source_ = SIZE_MAX;  ///< The one that is being read.
  std::unique_ptr<InputFile> file_;
  size_t documentOf_ = SIZE_MAX;  ///< The source that document_ is the text of.
  std::string document_;
  CommentMarkers documentMarkers_;
  bool documentHasBlocks_ = false;  ///< See DocumentText::LinesAreBlocks.
  std::vector<TextMark> marks_;     ///< Of that text.
  PlaceUnit unit_ = PlaceUnit::Line;
  uint64_t readerBegin_ = 0;  ///< Offset of the first byte that the reader was given.
  std::unique_ptr<TextReplay> replay_;
  std::deque<std::unique_ptr<ReplayedLine>> lines_;  ///< Those around the place.
};

}  // namespace korv
