#include "sources/read/text_reader.h"

#include <algorithm>
#include <cstring>
#include <utility>

#include "engine/text/unicode.h"
#include "sources/detect/encoding_sample.h"

namespace korv {
namespace {

constexpr size_t kBlock = size_t{256} * 1024;
constexpr size_t kLeastBlock = size_t{4} * 1024;
constexpr size_t kMostBytesOfCharacter = 4;
/// Bytes of characters that all join the one before them. Text has a few; no word is as long as this.
constexpr size_t kLongestJoined = size_t{64} * 1024;
constexpr std::string_view kSignature = "\xEF\xBB\xBF";

/// Whether a character, or an ill-formed sequence, of UTF-8 begins at byte `at`. Behind three bytes that go
/// on a character another such byte stands alone.
bool BeginsSequence(std::string_view text, size_t at) {
  const auto goesOn = [text](size_t place) {
    return (static_cast<unsigned char>(text[place]) & 0xC0) == 0x80;
  };
  return !goesOn(at) || (at >= 3 && goesOn(at - 1) && goesOn(at - 2) && goesOn(at - 3));
}

}  // namespace

struct TextReader::State {
  // Bytes[Begin, End) has been read and not been handed out.
  std::string Bytes;
  size_t Begin = 0;
  size_t End = 0;
  InputFile* Rest = nullptr;
  EncodingPlan Encoding = TextEncoding::Ansi;
  korv::LongLines LongLines = korv::LongLines::Whole;
  size_t LongFrom = kLongLine;
  uint64_t BytesRead = 0;
  std::optional<FileError> Error;

  // Where the next LF and CR stand at or after `Begin`; `End` where there is none in what was read. Each
  // is looked for once, so that a text without the other kind is not searched for it line by line.
  size_t NextLf = 0;
  size_t NextCr = 0;
  // No place to part a long line before this byte.
  size_t Unparted = 0;

  std::string Decoded;
  std::string_view Line;
  size_t LineLength = 0;    // In bytes as read, ...
  size_t LineBegin = 0;     // ... which begin here in `Bytes` ...
  uint64_t LineOffset = 0;  // ... and here in the text.
  bool HasAnsi = false;     // Bytes above 127 were read as ANSI.
  uint64_t IllFormed = 0;
  bool StartsLine = true;
  bool NextStartsLine = true;

  void BeginPart(TextPart part);
  bool NextLine();

 private:
  void RemoveSignature();
  size_t Find(char sign, size_t from) const;
  size_t BlockSize() const;
  bool ReadMore();
  void Decide(size_t length);
  void Decode(size_t length);
  void HandOut(size_t length, size_t lineEnd, bool endsLine);
  bool HandOutPiece();
  size_t BehindBlank() const;
  size_t BetweenCharacters() const;
  bool HasLineEnd() const { return std::min(NextLf, NextCr) < End; }
};

size_t TextReader::State::Find(char sign, size_t from) const {
  if (from >= End) return End;
  const void* found = std::memchr(Bytes.data() + from, sign, End - from);
  return found == nullptr ? End : static_cast<size_t>(static_cast<const char*>(found) - Bytes.data());
}

/// How much to ask for next: no more room for a small file than it needs, but enough to see its end.
size_t TextReader::State::BlockSize() const {
  const uint64_t size = Rest->Size();
  if (size == 0) return kBlock;
  return static_cast<size_t>(std::clamp<uint64_t>(size - std::min(size, BytesRead) + 1, kLeastBlock, kBlock));
}

/// Appends a block to what is left. False where there is nothing more.
bool TextReader::State::ReadMore() {
  if (Rest == nullptr) return false;
  const size_t block = BlockSize();
  if (Begin > 0 && (Begin == End || Bytes.size() - End < block)) {
    std::memmove(Bytes.data(), Bytes.data() + Begin, End - Begin);
    NextLf -= Begin;
    NextCr -= Begin;
    Unparted -= std::min(Unparted, Begin);
    End -= Begin;
    Begin = 0;
  }
  if (Bytes.size() - End < block) Bytes.resize(std::max(Bytes.size() + Bytes.size() / 2, End + block));
  const Expected<size_t, FileError> got = Rest->Read({Bytes.data() + End, block});
  if (!got) Error = got.Error();
  if (!got || *got == 0) {
    Rest = nullptr;
    return false;
  }
  const size_t before = End;
  End += *got;
  BytesRead += *got;
  if (NextLf == before) NextLf = Find('\n', before);
  if (NextCr == before) NextCr = Find('\r', before);
  return true;
}

/// Settles the encoding where the next `length` bytes hold one above 127: it begins the sample.
void TextReader::State::Decide(size_t length) {
  const std::string_view next = std::string_view(Bytes).substr(Begin, length);
  if (IsAscii(next)) return;
  const size_t before = PastAscii(next, 0);
  while (End - Begin < before + kEncodingSample && ReadMore()) {
  }
  const std::string_view sample =
      std::string_view(Bytes).substr(Begin, End - Begin).substr(before, kEncodingSample);
  const bool isUtf8 = LooksLikeUtf8(sample) && (!Encoding.ConfirmUtf8 || Encoding.ConfirmUtf8());
  Encoding.Settled = isUtf8 ? TextEncoding::Utf8 : Encoding.OtherThanUtf8;
}

/// Makes a line of the next `length` bytes.
void TextReader::State::Decode(size_t length) {
  if (!Encoding.Settled) Decide(length);
  const std::string_view source = std::string_view(Bytes).substr(Begin, length);
  if (!Encoding.Settled) {
    Line = source;
    return;
  }
  Line = DecodeText(source, *Encoding.Settled, Decoded, &IllFormed);
  HasAnsi |= Encoding.Settled != TextEncoding::Utf8 && Line.data() != source.data();
}

void TextReader::State::HandOut(size_t length, size_t lineEnd, bool endsLine) {
  Decode(length);
  StartsLine = NextStartsLine;
  NextStartsLine = endsLine;
  LineBegin = Begin;
  LineLength = length;
  LineOffset = BytesRead - (End - Begin);
  Begin += length + lineEnd;
  if (NextLf < Begin) NextLf = Find('\n', Begin);
  if (NextCr < Begin) NextCr = Find('\r', Begin);
}

/// Parts an unfinished long line. False where it has to be longer for that.
bool TextReader::State::HandOutPiece() {
  size_t cut = BehindBlank();
  if (cut == Begin && LongLines == korv::LongLines::Anywhere) {
    if (!Encoding.Settled) Decide(End - Begin);
    if (HasLineEnd()) return false;  // It came with the sample.
    cut = BetweenCharacters();
  }
  if (cut > Begin) {
    HandOut(cut - Begin, 0, false);
    return true;
  }
  Unparted = End;
  return false;
}

/// The place behind the last blank or tab of the unfinished line; `Begin` where there is none: no word, no
/// composed character and no pair of hyphens reaches across. Before the blank stands something of ASCII, so
/// that nothing that is dropped hides what it is, but no "&", which with the blank and what may follow is the
/// one known entity that holds a blank.
size_t TextReader::State::BehindBlank() const {
  for (size_t at = End; at > std::max(Begin + 1, Unparted); --at) {
    const char before = Bytes[at - 2];
    if ((Bytes[at - 1] == ' ' || Bytes[at - 1] == '\t') && before != '&' &&
        static_cast<unsigned char>(before) < 0x80)
      return at;
  }
  return Begin;
}

/// The last place of the unfinished line where a character begins that joins none before it; `Begin` where
/// there is none yet. Where more than kLongestJoined bytes join, the last character: no word reaches across
/// so many.
size_t TextReader::State::BetweenCharacters() const {
  const std::string_view text = std::string_view(Bytes).substr(Begin, End - Begin);
  const TextEncoding as = Encoding.Settled.value_or(TextEncoding::Utf8);
  if (text.size() <= kMostBytesOfCharacter) return Begin;
  const size_t last = text.size() - kMostBytesOfCharacter;
  const size_t first = last - std::min(last, kLongestJoined);
  for (size_t at = last; at > first; --at)
    if (BeginsSequence(text, at) && BeginsPart(text.substr(at), as)) return Begin + at;
  if (first == 0) return Begin;
  size_t at = last;
  while (!BeginsSequence(text, at)) --at;
  return Begin + at;
}

void TextReader::State::BeginPart(TextPart part) {
  End = Bytes.size();
  BytesRead = End;
  NextLf = Find('\n', 0);
  NextCr = Find('\r', 0);
  if (part == TextPart::Beginning && Encoding.Settled == TextEncoding::Utf8) RemoveSignature();
}

bool TextReader::State::NextLine() {
  for (;;) {
    if (HasLineEnd()) {
      const size_t lineEnd = std::min(NextLf, NextCr);
      const bool isCr = Bytes[lineEnd] == '\r';
      // Whether an LF belongs to a CR at the very end is known when more has been read.
      if (isCr && lineEnd + 1 == End && Rest != nullptr) {
        ReadMore();
        continue;
      }
      const bool isPair = isCr && lineEnd + 1 < End && Bytes[lineEnd + 1] == '\n';
      HandOut(lineEnd - Begin, isPair ? 2 : 1, true);
      return true;
    }
    if (LongLines != korv::LongLines::Whole && End - Begin >= LongFrom && HandOutPiece()) return true;
    if (HasLineEnd() || ReadMore()) continue;
    if (Begin == End && NextStartsLine) return false;
    HandOut(End - Begin, 0, true);
    return true;
  }
}

void TextReader::State::RemoveSignature() {
  while (End - Begin < kSignature.size() && ReadMore()) {
  }
  if (std::string_view(Bytes).substr(Begin, End - Begin).starts_with(kSignature)) Begin += kSignature.size();
}

TextReader::TextReader(std::string head, InputFile* rest, EncodingPlan encoding, LongLines longLines,
                       TextPart part, size_t longFrom)
    : state_(std::make_unique<State>()) {
  State& s = *state_;
  s.Bytes = std::move(head);
  s.Rest = rest;
  s.Encoding = std::move(encoding);
  s.LongLines = longLines;
  s.LongFrom = longFrom;
  s.BeginPart(part);
}

TextReader::~TextReader() = default;
bool TextReader::NextLine() {
  return state_->NextLine();
}
std::string_view TextReader::Line() const {
  return state_->Line;
}
std::string_view TextReader::LineBytes() const {
  return std::string_view(state_->Bytes).substr(state_->LineBegin, state_->LineLength);
}
uint64_t TextReader::LineOffset() const {
  return state_->LineOffset;
}
bool TextReader::StartsLine() const {
  return state_->StartsLine;
}
bool TextReader::EndsLine() const {
  return state_->NextStartsLine;
}
std::optional<FileError> TextReader::Error() const {
  return state_->Error;
}
uint64_t TextReader::BytesRead() const {
  return state_->BytesRead;
}
ReadAs TextReader::ReadAs() const {
  if (state_->Encoding.Settled == TextEncoding::Utf8) return ReadAs::Utf8;
  return state_->HasAnsi ? ReadAs::Ansi : ReadAs::Ascii;
}
uint64_t TextReader::IllFormed() const {
  return state_->IllFormed;
}

}  // namespace korv
