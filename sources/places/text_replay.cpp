#include "sources/places/text_replay.h"

#include <utility>

#include "engine/text/unicode.h"
#include "sources/places/encoding_of_source.h"

namespace korv {

namespace {

Place EndOfSource(const Corpus& corpus, size_t source) {
  return Place{static_cast<uint32_t>(source + 1 < corpus.Sources.size()
                                         ? corpus.Sources[source + 1].Begin
                                         : corpus.Tokens.size() - kTrailingEnds)};
}

}  // namespace

TextReplay::TextReplay(const Corpus& corpus, size_t source, const LineAnchor& anchor, uint64_t columnsBefore,
                       const CommentMarkers& markers, std::unique_ptr<TextReader> reader,
                       std::span<const TextMark> marks, bool linesAreBlocks)
    : corpus_(corpus),
      marks_(marks),
      readFrom_(anchor.Offset()),
      end_(EndOfSource(corpus, source)),
      stream_(corpus.Rules, corpus.Options, *corpus.Lists),
      cutter_(corpus.Rules, *this),
      scanner_(corpus.Rules, markers, cutter_),
      reader_(std::move(reader)),
      encoding_(EncodingOfSource(corpus, source)),
      line_(anchor.Line()),
      columns_(columnsBefore),
      startsLine_(anchor.StartsLine()) {
  // Whether a phrase end gives a token depends on the token before it.
  if (const WordNumber before = *corpus.From(anchor.Token() - 1); before != kNoWord)
    stream_.GetWords2(corpus.Words.Text(before));
  base_ = anchor.Token() - static_cast<uint32_t>(Tokens());
  cutter_.BeginSource(linesAreBlocks);
  scanner_.BeginSource();
}

std::unique_ptr<ReplayedLine> TextReplay::NextLine() {
  if (!reader_->NextLine()) return nullptr;
  auto line = std::make_unique<ReplayedLine>();
  const bool first = current_ == nullptr;
  line->StartsLine = first ? startsLine_ : reader_->StartsLine();
  if (line->StartsLine && !first) {
    ++line_;
    columns_ = 0;
  }
  line->Line = line_;
  line->ColumnsBefore = columns_;
  line->FirstToken = NextToken();
  line->Bytes = reader_->LineBytes();
  current_ = line.get();
  if (line->StartsLine && EndsPhraseAt(marks_, readFrom_ + reader_->LineOffset())) ResetPhrases();
  scanner_.ScanLine(reader_->Line(), line->StartsLine, reader_->EndsLine());
  // What follows may go on the line.
  columns_ += CharactersIn(line->Bytes, encoding_);
  return line;
}

void TextReplay::TakeWord(std::string_view word) {
  const size_t before = Tokens();
  stream_.TakeWord(word);
  if (Tokens() > before && stream_.Corpus().Tokens.back() != kNoWord) {
    const auto begin = static_cast<size_t>(word.data() - scanner_.CutLine().data());
    current_->Words.push_back({NextToken() - 1, begin, begin + word.size()});
  }
  Compare(before);
}

void TextReplay::ResetPhrases() {
  const size_t before = Tokens();
  stream_.ResetPhrases();
  Compare(before);
}

// A run that was stopped has no tokens for the rest of its text.
void TextReplay::Compare(size_t before) {
  const Corpus& again = stream_.Corpus();
  for (size_t i = before; i < again.Tokens.size(); ++i) {
    const Place token = base_ + static_cast<uint32_t>(i);
    if (token >= end_) return;
    const WordNumber was = *corpus_.From(token);
    const WordNumber is = again.Tokens[i];
    if ((was == kNoWord) != (is == kNoWord) ||
        (is != kNoWord && corpus_.Words.Text(was) != again.Words.Text(is)))
      differs_ = true;
  }
}

uint64_t CharactersIn(std::string_view bytes, TextEncoding encoding) {
  if (encoding != TextEncoding::Utf8) return bytes.size();
  uint64_t characters = 0;
  for (size_t at = 0; at < bytes.size(); ++characters) {
    const size_t ascii = PastAscii(bytes, at);
    characters += ascii - at;
    at = ascii;
    if (at == bytes.size()) break;
    NextCharacter(bytes, at);
  }
  return characters;
}

}  // namespace korv
