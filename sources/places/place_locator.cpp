#include "sources/places/place_locator.h"

#include <algorithm>
#include <utility>

#include "engine/text/unicode.h"
#include "sources/places/context_text.h"
#include "sources/places/encoding_of_source.h"
#include "sources/read/document_readers.h"

namespace korv {

namespace {

/// A replay holds its tokens: from so many on a new one is begun.
constexpr size_t kMostTokens = size_t{1} << 20;

/// No token: what is wanted begins with the text.
constexpr Place kFromBegin{0};

/// Fewer bytes are sooner read than sought.
constexpr uint64_t kWorthASeek = uint64_t{64} * 1024;

LongLines LinesOf(const CommentMarkers& markers) {
  return IsPlainText(markers) ? LongLines::AtBlanks : LongLines::Whole;
}

}  // namespace

/// A word of the lines that were read.
struct PlaceLocator::Hit {
  size_t Line;  ///< Index in lines_.
  const TakenWord* Word;
};

Expected<PlaceInText, PlaceFault> PlaceLocator::Locate(Place place, int words, size_t around) {
  const size_t source = corpus_.SourceAt(place);
  // Two tokens, of which one may be a phrase end, stand for one character at least, and a blank.
  const size_t before = around + 2;
  const bool all = ValueOf(place) < corpus_.Sources[source].Begin + before;
  const Place from = all ? kFromBegin : place - static_cast<uint32_t>(before);
  const Place last = place + static_cast<uint32_t>(words - 1);
  if (!GoesOn(source, from))
    if (const Fault fault = Open(source, from)) return *fault;
  if (const Fault fault = ReadUntil(last, from)) return *fault;
  Hit firstWord;
  Hit lastWord;
  if (!Find(place, firstWord) || !Find(last, lastWord)) return PlaceFault::Changed;

  const ReplayedLine& line = *lines_[firstWord.Line];
  const RawSpan begin = SpanOf(firstWord);
  const size_t end = SpanOf(lastWord).End;
  PlaceInText found{.Line = line.Line,
                    .Column = line.ColumnsBefore + begin.Characters + 1,
                    .Phrase = PhraseBetween(firstWord, begin.Begin, lastWord, end),
                    .Left = LeftOf(firstWord, begin.Begin, around),
                    .Right = RightOf(lastWord, end, around),
                    .Begin = line.Offset + begin.Begin,
                    .End = lines_[lastWord.Line]->Offset + end,
                    .Unit = PlaceUnit::Line,
                    .Number = line.Line};
  SetNumber(found);
  return found;
}

CommentMarkers PlaceLocator::Markers(size_t source) const {
  const CorpusSource& of = corpus_.Sources[source];
  if (of.Origin.IsDocument) return documentOf_ == source ? documentMarkers_ : CommentMarkers{};
  return of.Path.empty() && readAs_.empty() ? CommentMarkers{} : MarkersOfFile(of.Path, readAs_);
}

/// Only a document has marks.
std::span<const TextMark> PlaceLocator::Marks(size_t source) const {
  return documentOf_ == source ? std::span<const TextMark>(marks_) : std::span<const TextMark>();
}

void PlaceLocator::SetNumber(PlaceInText& place) const {
  const std::span<const TextMark> marks = Marks(source_);
  const auto behind = MarkBehind(marks, place.Begin);
  if (behind == marks.begin()) return;
  const TextMark& mark = *(behind - 1);
  place.Unit = unit_;
  place.Number = mark.Number;
  if (mark.Column == 0) return;
  place.Column = mark.Column +
                 CharacterCount(std::string_view(document_).substr(mark.Offset, place.Begin - mark.Offset));
}

/// Whether reading on is as good as beginning at an anchor.
bool PlaceLocator::GoesOn(size_t source, Place from) const {
  if (source != source_ || replay_ == nullptr || replay_->Differs() || lines_.empty() ||
      replay_->Tokens() > kMostTokens)
    return false;
  const ReplayedLine& first = *lines_.front();
  if (from == kFromBegin) return first.Line == 1 && first.StartsLine;
  return first.FirstToken <= from &&
         corpus_.Lines.Before(from).Offset() <= readerBegin_ + replay_->LineOffset() + kWorthASeek;
}

const LineAnchor& PlaceLocator::AnchorFor(size_t source, Place from) const {
  if (from != kFromBegin) return corpus_.Lines.Before(from);
  return corpus_.Lines.BeginOfText(
      corpus_.Lines.Before(Place{static_cast<uint32_t>(corpus_.Sources[source].Begin)}));
}

PlaceLocator::Fault PlaceLocator::Open(size_t source, Place from) {
  replay_.reset();
  lines_.clear();
  source_ = source;
  const LineAnchor& anchor = AnchorFor(source, from);
  const auto columns = ColumnsBefore(source, anchor);
  if (!columns) return columns.Error();
  auto reader = ReaderAt(source, anchor);
  if (!reader) return reader.Error();
  readerBegin_ = anchor.Offset();
  replay_ = std::make_unique<TextReplay>(corpus_, source, anchor, *columns, Markers(source),
                                         std::move(*reader), Marks(source),
                                         corpus_.Sources[source].Origin.IsDocument && documentHasBlocks_);
  return std::nullopt;
}

/// The file, if it is the one that was counted.
Expected<std::unique_ptr<InputFile>, PlaceFault> PlaceLocator::OpenFileAt(size_t source, uint64_t offset) {
  const CorpusSource& of = corpus_.Sources[source];
  auto file = context_.Files.OpenForReading(of.Path);
  if (!file) return PlaceFault::Unreadable;
  if ((*file)->Size() != of.Origin.Size || (*file)->Modified() != of.Origin.Modified)
    return PlaceFault::Changed;
  if ((*file)->SeekTo(offset)) return PlaceFault::Unreadable;
  return std::move(*file);
}

Expected<std::string, PlaceFault> PlaceLocator::Bytes(size_t source, uint64_t begin, uint64_t end) {
  const CorpusSource& of = corpus_.Sources[source];
  const auto part = [&](std::string_view text) {
    return std::string(text.substr(std::min<uint64_t>(begin, text.size()), end - begin));
  };
  if (of.Path.empty() && text_.empty()) return PlaceFault::NotKept;
  if (of.Path.empty()) return part(text_);
  if (of.Origin.IsDocument) {
    if (const Fault fault = ReadDocument(source)) return *fault;
    return part(document_);
  }
  auto file = OpenFileAt(source, begin);
  if (!file) return file.Error();
  std::string bytes(end - begin, '\0');
  size_t size = 0;
  while (size < bytes.size()) {
    const auto read = (*file)->Read(std::span(bytes).subspan(size));
    if (!read) return PlaceFault::Unreadable;
    if (*read == 0) break;
    size += *read;
  }
  bytes.resize(size);
  return bytes;
}

Expected<std::unique_ptr<TextReader>, PlaceFault> PlaceLocator::ReaderAt(size_t source,
                                                                         const LineAnchor& anchor) {
  const CorpusSource& of = corpus_.Sources[source];
  if (of.Origin.IsDocument && !of.Path.empty())
    if (const Fault fault = ReadDocument(source)) return *fault;
  const LongLines longLines = LinesOf(Markers(source));
  std::string head;
  InputFile* rest = nullptr;
  if (of.Path.empty()) {
    if (text_.empty()) return PlaceFault::NotKept;
    head = text_.substr(std::min<size_t>(anchor.Offset(), text_.size()));
  } else if (of.Origin.IsDocument) {
    head = document_.substr(std::min<size_t>(anchor.Offset(), document_.size()));
  } else {
    auto file = OpenFileAt(source, anchor.Offset());
    if (!file) return file.Error();
    file_ = std::move(*file);
    rest = file_.get();
  }
  const TextEncoding encoding = EncodingOfSource(corpus_, source);
  return std::make_unique<TextReader>(std::move(head), rest, encoding, longLines, TextPart::Middle);
}

/// Of the line that the anchor's piece goes on; reads that line up to it.
Expected<uint64_t, PlaceFault> PlaceLocator::ColumnsBefore(size_t source, const LineAnchor& anchor) {
  if (anchor.StartsLine()) return uint64_t{0};
  const LineAnchor& begin = corpus_.Lines.LineOf(anchor);
  auto reader = ReaderAt(source, begin);
  if (!reader) return reader.Error();
  const uint64_t length = anchor.Offset() - begin.Offset();
  const TextEncoding encoding = Encoding();
  uint64_t columns = 0;
  while ((*reader)->NextLine()) {
    const std::string_view bytes = (*reader)->LineBytes();
    const uint64_t at = (*reader)->LineOffset();
    if (at >= length) break;
    columns += CharactersIn(bytes.substr(0, std::min<uint64_t>(bytes.size(), length - at)), encoding);
  }
  return columns;
}

PlaceLocator::Fault PlaceLocator::ReadDocument(size_t source) {
  if (documentOf_ == source) return std::nullopt;
  documentOf_ = SIZE_MAX;
  const CorpusSource& of = corpus_.Sources[source];
  OpenedText opened = OpenTextSource(context_.Files, of.Path, kRunThreshold);
  if (!opened.File) return PlaceFault::Unreadable;
  if (opened.File->Size() != of.Origin.Size || opened.File->Modified() != of.Origin.Modified)
    return PlaceFault::Changed;
  const DocumentReader& reader = ReaderOfFile(of.Path, opened.Head, readAs_, documents_.Others);
  auto text = reader.Open(of.Path, std::move(opened),
                          {context_.Files, context_.Messages, context_.Yielder, /*IsOneOfMany=*/true,
                           /*ShowProgress=*/{}, readAs_, documents_, corpus_.Options.Reading});
  if (!text) return PlaceFault::Unreadable;
  document_ = std::move(text->Head);
  documentMarkers_ = text->Markers;
  documentHasBlocks_ = text->LinesAreBlocks;
  marks_ = std::move(text->Marks);
  unit_ = text->Unit;
  documentOf_ = source;
  return std::nullopt;
}

bool PlaceLocator::ReadLine() {
  std::unique_ptr<ReplayedLine> line = replay_->NextLine();
  if (line == nullptr) return false;
  line->Offset = readerBegin_ + replay_->LineOffset();
  lines_.push_back(std::move(line));
  return true;
}

/// Reads until the word is there, and forgets the lines that no longer matter to what begins at `from`.
PlaceLocator::Fault PlaceLocator::ReadUntil(Place token, Place from) {
  const auto isThere = [&] {
    return std::any_of(lines_.rbegin(), lines_.rend(), [token](const auto& line) {
      return !line->Words.empty() && line->Words.back().Token >= token;
    });
  };
  bool there = isThere();
  while (!there) {
    if (!ReadLine() || replay_->Differs()) return PlaceFault::Changed;
    there = !lines_.back()->Words.empty() && lines_.back()->Words.back().Token >= token;
    while (lines_.size() > 1 && lines_[1]->FirstToken <= from) lines_.pop_front();
  }
  while (lines_.size() > 1 && lines_[1]->FirstToken <= from) lines_.pop_front();
  return std::nullopt;
}

bool PlaceLocator::Find(Place token, Hit& hit) const {
  for (size_t i = 0; i < lines_.size(); ++i) {
    const std::vector<TakenWord>& words = lines_[i]->Words;
    const auto word = std::lower_bound(words.begin(), words.end(), token,
                                       [](const TakenWord& w, Place t) { return w.Token < t; });
    if (word == words.end()) continue;
    hit = {i, &*word};
    return word->Token == token;
  }
  return false;
}

RawSpan PlaceLocator::SpanOf(const Hit& hit) {
  ReplayedLine& line = *lines_[hit.Line];
  if (!line.Raw)
    line.Raw.emplace(line.Bytes, Encoding(), line.StartsLine, Markers(source_).blnCharacterEntitiesPossible);
  return line.Raw->Find(hit.Word->Begin, hit.Word->End);
}

TextEncoding PlaceLocator::Encoding() const {
  return EncodingOfSource(corpus_, source_);
}

std::string PlaceLocator::PhraseBetween(const Hit& first, size_t begin, const Hit& last, size_t end) const {
  if (first.Line == last.Line)
    return Text(std::string_view(lines_[first.Line]->Bytes).substr(begin, end - begin));
  std::string text = Text(std::string_view(lines_[first.Line]->Bytes).substr(begin));
  for (size_t i = first.Line + 1; i <= last.Line; ++i) {
    const std::string_view bytes = lines_[i]->Bytes;
    if (lines_[i]->StartsLine) text += '\n';
    text += Text(i == last.Line ? bytes.substr(0, end) : bytes);
  }
  return text;
}

std::string PlaceLocator::LeftOf(const Hit& hit, size_t begin, size_t around) const {
  std::string words;
  for (size_t i = hit.Line + 1; i-- > 0;) {
    const std::string_view bytes =
        std::string_view(lines_[i]->Bytes).substr(0, i == hit.Line ? begin : std::string::npos);
    // Most of a long line is not wanted, and how much of it is white space not known.
    size_t part = bytes.size();
    std::string text;
    for (size_t wanted = 16 * (around + 2);; wanted *= 4) {
      part = bytes.size() > wanted ? bytes.size() - wanted : 0;
      while (part > 0 && (static_cast<unsigned char>(bytes[part]) & 0xC0) == 0x80) --part;
      text = Text(bytes.substr(part));
      if (part == 0 || CharacterCount(WithSingleBlanks(text + words)) > around + 1) break;
    }
    words = text + words;
    if (CharacterCount(WithSingleBlanks(words)) > around + 1) break;
    if (lines_[i]->StartsLine) words.insert(0, 1, '\n');
  }
  return LastWords(WithSingleBlanks(words), around);
}

std::string PlaceLocator::RightOf(const Hit& hit, size_t end, size_t around) {
  std::string words;
  for (size_t i = hit.Line; i < lines_.size() || ReadLine(); ++i) {
    const std::string_view bytes = std::string_view(lines_[i]->Bytes).substr(i == hit.Line ? end : 0);
    if (i != hit.Line && lines_[i]->StartsLine) words += '\n';
    std::string text;
    for (size_t wanted = 16 * (around + 2);; wanted *= 4) {
      size_t part = std::min(wanted, bytes.size());
      while (part < bytes.size() && (static_cast<unsigned char>(bytes[part]) & 0xC0) == 0x80) ++part;
      text = Text(bytes.substr(0, part));
      if (part == bytes.size() || CharacterCount(WithSingleBlanks(words + text)) > around + 1) break;
    }
    words += text;
    if (CharacterCount(WithSingleBlanks(words)) > around + 1) break;
  }
  return FirstWords(WithSingleBlanks(words), around);
}

}  // namespace korv
