#pragma once

#include <cstdint>
#include <memory>
#include <optional>
#include <span>
#include <string>
#include <vector>

#include "engine/corpus/corpus.h"
#include "engine/corpus/corpus_builder.h"
#include "sources/places/raw_line.h"
#include "sources/read/text_marks.h"
#include "sources/read/text_reader.h"
#include "sources/scan/word_cutter.h"

namespace korv {

/// A word that has a token, in the line as words are cut from it, in bytes.
struct TakenWord {
  Place Token;
  size_t Begin;
  size_t End;
};

/// A line of a text read again, or a piece of a long one.
struct ReplayedLine {
  uint64_t Line = 0;           ///< Counted from 1.
  uint64_t Offset = 0;         ///< Of its first byte in the text; set by who knows where reading began.
  uint64_t ColumnsBefore = 0;  ///< Of a piece: code points of the line before it.
  bool StartsLine = true;
  Place FirstToken{};  ///< Index of the first token that it may give.
  std::string Bytes;   ///< As the file has it, without its end.
  std::vector<TakenWord> Words;
  std::optional<RawLine> Raw;  ///< Of Bytes; made when it is asked for.
};

/// Reads a text of a finished run once more from an anchor on: the same lines, cut by the same rules, each
/// word compared with the token that the run has for it. Costs as much as
/// reading the text from the anchor to the last line that is asked for.
class TextReplay final : private WordSink {
 public:
  /// `source` is an index in corpus.Sources; `reader` stands at the line of `anchor`, of which
  /// `columnsBefore` code points came before it. `marks`: those of the text, by their offsets in it.
  /// `linesAreBlocks`: see DocumentText. The corpus and the marks must outlive the object.
  TextReplay(const Corpus& corpus, size_t source, const LineAnchor& anchor, uint64_t columnsBefore,
             const CommentMarkers& markers, std::unique_ptr<TextReader> reader,
             std::span<const TextMark> marks = {}, bool linesAreBlocks = false);

  /// Null at the end of the text.
  std::unique_ptr<ReplayedLine> NextLine();
  /// A word differed from the run's: this is not the text that was counted.
  bool Differs() const { return differs_; }
  /// Where the last line begins, in bytes from where the reader began.
  uint64_t LineOffset() const { return reader_->LineOffset(); }
  /// The tokens given so far; each is held in memory once more.
  size_t Tokens() const { return stream_.Corpus().Tokens.size(); }

 private:
  void TakeWord(std::string_view word) override;
  void ResetPhrases() override;
  Place NextToken() const { return base_ + static_cast<uint32_t>(Tokens()); }
  /// Compares the tokens that came since the stream had `before` of them.
  void Compare(size_t before);

  const Corpus& corpus_;
  std::span<const TextMark> marks_;
  uint64_t readFrom_;  ///< Offset in the text at which the reader began.
  Place end_;          ///< First token behind the text.
  CorpusBuilder stream_;
  WordCutter cutter_;
  LineScanner<WordCutter> scanner_;
  std::unique_ptr<TextReader> reader_;
  TextEncoding encoding_;
  Place base_;  ///< Token i of the stream is token base_ + i of the run.
  uint64_t line_;
  uint64_t columns_;
  bool startsLine_;  ///< Of the next line.
  bool differs_ = false;
  ReplayedLine* current_ = nullptr;
};

/// Code points of a line's bytes, as RawSpan counts them. Linear.
uint64_t CharactersIn(std::string_view bytes, TextEncoding encoding);

}  // namespace korv
