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
  // bytes[begin, end) has been read and not been handed out.
  std::string bytes;
  size_t begin = 0;
  size_t end = 0;
  InputFile* rest = nullptr;
  EncodingPlan encoding = TextEncoding::Ansi;
  LongLines longLines = LongLines::Whole;
  size_t longFrom = kLongLine;
  uint64_t bytesRead = 0;
  std::optional<FileError> error;

  // Where the next LF and CR stand at or after `begin`; `end` where there is none in what was read. Each
  // is looked for once, so that a text without the other kind is not searched for it line by line.
  size_t nextLf = 0;
  size_t nextCr = 0;
  // No place to part a long line before this byte.
  size_t unparted = 0;

  std::string decoded;
  std::string_view line;
  size_t lineLength = 0;    // In bytes as read, ...
  size_t lineBegin = 0;     // ... which begin here in `bytes` ...
  uint64_t lineOffset = 0;  // ... and here in the text.
  bool hasAnsi = false;     // Bytes above 127 were read as ANSI.
  uint64_t illFormed = 0;
  bool startsLine = true;
  bool nextStartsLine = true;

  void Begin(TextPart part);
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
  bool HasLineEnd() const { return std::min(nextLf, nextCr) < end; }
};

size_t TextReader::State::Find(char sign, size_t from) const {
  if (from >= end) return end;
  const void* found = std::memchr(bytes.data() + from, sign, end - from);
  return found == nullptr ? end : static_cast<size_t>(static_cast<const char*>(found) - bytes.data());
}

/// How much to ask for next: no more room for a small file than it needs, but enough to see its end.
size_t TextReader::State::BlockSize() const {
  const uint64_t size = rest->Size();
  if (size == 0) return kBlock;
  return static_cast<size_t>(std::clamp<uint64_t>(size - std::min(size, bytesRead) + 1, kLeastBlock, kBlock));
}

/// Appends a block to what is left. False where there is nothing more.
bool TextReader::State::ReadMore() {
  if (rest == nullptr) return false;
  const size_t block = BlockSize();
  if (begin > 0 && (begin == end || bytes.size() - end < block)) {
    std::memmove(bytes.data(), bytes.data() + begin, end - begin);
    nextLf -= begin;
    nextCr -= begin;
    unparted -= std::min(unparted, begin);
    end -= begin;
    begin = 0;
  }
  if (bytes.size() - end < block) bytes.resize(std::max(bytes.size() + bytes.size() / 2, end + block));
  const Expected<size_t, FileError> got = rest->Read({bytes.data() + end, block});
  if (!got) error = got.Error();
  if (!got || *got == 0) {
    rest = nullptr;
    return false;
  }
  const size_t before = end;
  end += *got;
  bytesRead += *got;
  if (nextLf == before) nextLf = Find('\n', before);
  if (nextCr == before) nextCr = Find('\r', before);
  return true;
}

/// Settles the encoding where the next `length` bytes hold one above 127: it begins the sample.
void TextReader::State::Decide(size_t length) {
  const std::string_view next = std::string_view(bytes).substr(begin, length);
  if (IsAscii(next)) return;
  const size_t before = PastAscii(next, 0);
  while (end - begin < before + kEncodingSample && ReadMore()) {
  }
  const std::string_view sample =
      std::string_view(bytes).substr(begin, end - begin).substr(before, kEncodingSample);
  const bool isUtf8 = LooksLikeUtf8(sample) && (!encoding.ConfirmUtf8 || encoding.ConfirmUtf8());
  encoding.Settled = isUtf8 ? TextEncoding::Utf8 : TextEncoding::Ansi;
}

/// Makes a line of the next `length` bytes.
void TextReader::State::Decode(size_t length) {
  if (!encoding.Settled) Decide(length);
  const std::string_view source = std::string_view(bytes).substr(begin, length);
  if (!encoding.Settled) {
    line = source;
    return;
  }
  line = DecodeText(source, *encoding.Settled, decoded, &illFormed);
  hasAnsi |= encoding.Settled == TextEncoding::Ansi && line.data() != source.data();
}

void TextReader::State::HandOut(size_t length, size_t lineEnd, bool endsLine) {
  Decode(length);
  startsLine = nextStartsLine;
  nextStartsLine = endsLine;
  lineBegin = begin;
  lineLength = length;
  lineOffset = bytesRead - (end - begin);
  begin += length + lineEnd;
  if (nextLf < begin) nextLf = Find('\n', begin);
  if (nextCr < begin) nextCr = Find('\r', begin);
}

/// Parts an unfinished long line. False where it has to be longer for that.
bool TextReader::State::HandOutPiece() {
  size_t cut = BehindBlank();
  if (cut == begin && longLines == LongLines::Anywhere) {
    if (!encoding.Settled) Decide(end - begin);
    if (HasLineEnd()) return false;  // It came with the sample.
    cut = BetweenCharacters();
  }
  if (cut > begin) {
    HandOut(cut - begin, 0, false);
    return true;
  }
  unparted = end;
  return false;
}

/// The place behind the last blank or tab of the unfinished line; `begin` where there is none: no word, no
/// composed character and no pair of hyphens reaches across. Before the blank stands something of ASCII, so
/// that nothing that is dropped hides what it is, but no "&", which with the blank and what may follow is the
/// one known entity that holds a blank.
size_t TextReader::State::BehindBlank() const {
  for (size_t at = end; at > std::max(begin + 1, unparted); --at) {
    const char before = bytes[at - 2];
    if ((bytes[at - 1] == ' ' || bytes[at - 1] == '\t') && before != '&' &&
        static_cast<unsigned char>(before) < 0x80)
      return at;
  }
  return begin;
}

/// The last place of the unfinished line where a character begins that joins none before it; `begin` where
/// there is none yet. Where more than kLongestJoined bytes join, the last character: no word reaches across
/// so many.
size_t TextReader::State::BetweenCharacters() const {
  const std::string_view text = std::string_view(bytes).substr(begin, end - begin);
  const TextEncoding as = encoding.Settled.value_or(TextEncoding::Utf8);
  if (text.size() <= kMostBytesOfCharacter) return begin;
  const size_t last = text.size() - kMostBytesOfCharacter;
  const size_t first = last - std::min(last, kLongestJoined);
  for (size_t at = last; at > first; --at)
    if (BeginsSequence(text, at) && BeginsPart(text.substr(at), as)) return begin + at;
  if (first == 0) return begin;
  size_t at = last;
  while (!BeginsSequence(text, at)) --at;
  return begin + at;
}

void TextReader::State::Begin(TextPart part) {
  end = bytes.size();
  bytesRead = end;
  nextLf = Find('\n', 0);
  nextCr = Find('\r', 0);
  if (part == TextPart::Beginning && encoding.Settled == TextEncoding::Utf8) RemoveSignature();
}

bool TextReader::State::NextLine() {
  for (;;) {
    if (HasLineEnd()) {
      const size_t lineEnd = std::min(nextLf, nextCr);
      const bool isCr = bytes[lineEnd] == '\r';
      // Whether an LF belongs to a CR at the very end is known when more has been read.
      if (isCr && lineEnd + 1 == end && rest != nullptr) {
        ReadMore();
        continue;
      }
      const bool isPair = isCr && lineEnd + 1 < end && bytes[lineEnd + 1] == '\n';
      HandOut(lineEnd - begin, isPair ? 2 : 1, true);
      return true;
    }
    if (longLines != LongLines::Whole && end - begin >= longFrom && HandOutPiece()) return true;
    if (HasLineEnd() || ReadMore()) continue;
    if (begin == end && nextStartsLine) return false;
    HandOut(end - begin, 0, true);
    return true;
  }
}

void TextReader::State::RemoveSignature() {
  while (end - begin < kSignature.size() && ReadMore()) {
  }
  if (std::string_view(bytes).substr(begin, end - begin).starts_with(kSignature)) begin += kSignature.size();
}

TextReader::TextReader(std::string head, InputFile* rest, EncodingPlan encoding, LongLines longLines,
                       TextPart part, size_t longFrom)
    : state_(std::make_unique<State>()) {
  State& s = *state_;
  s.bytes = std::move(head);
  s.rest = rest;
  s.encoding = std::move(encoding);
  s.longLines = longLines;
  s.longFrom = longFrom;
  s.Begin(part);
}

TextReader::~TextReader() = default;
bool TextReader::NextLine() {
  return state_->NextLine();
}
std::string_view TextReader::Line() const {
  return state_->line;
}
std::string_view TextReader::LineBytes() const {
  return std::string_view(state_->bytes).substr(state_->lineBegin, state_->lineLength);
}
uint64_t TextReader::LineOffset() const {
  return state_->lineOffset;
}
bool TextReader::StartsLine() const {
  return state_->startsLine;
}
bool TextReader::EndsLine() const {
  return state_->nextStartsLine;
}
std::optional<FileError> TextReader::Error() const {
  return state_->error;
}
uint64_t TextReader::BytesRead() const {
  return state_->bytesRead;
}
ReadAs TextReader::ReadAs() const {
  if (state_->encoding.Settled == TextEncoding::Utf8) return ReadAs::Utf8;
  return state_->hasAnsi ? ReadAs::Ansi : ReadAs::Ascii;
}
uint64_t TextReader::IllFormed() const {
  return state_->illFormed;
}

}  // namespace korv
