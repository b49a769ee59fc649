#include "sources/places/text_window.h"

#include <algorithm>

#include "sources/places/context_text.h"
#include "sources/places/encoding_of_source.h"

namespace korv {

namespace {

constexpr std::string_view kSignature = "\xEF\xBB\xBF";

bool IsMiddleOfCharacter(char byte) {
  return (static_cast<unsigned char>(byte) & 0xC0) == 0x80;
}

/// Where the first line begins that begins in `bytes`; npos for none.
size_t FirstLineBegin(std::string_view bytes) {
  const size_t end = bytes.find_first_of("\r\n");
  if (end == std::string_view::npos) return end;
  return end + (bytes.substr(end, 2) == "\r\n" ? 2 : 1);
}

/// How many of its first bytes a part loses that begins somewhere in a text: the rest of a line if that is
/// short, or else of a character.
size_t CutAtBegin(std::string_view bytes, size_t most, TextEncoding encoding) {
  if (const size_t line = FirstLineBegin(bytes); line <= most) return line;
  size_t cut = 0;
  while (encoding == TextEncoding::Utf8 && cut < bytes.size() && IsMiddleOfCharacter(bytes[cut])) ++cut;
  return cut;
}

/// The size of a part that ends somewhere in a text: up to the last line that ends in it if that is not much
/// shorter, or else without the beginning of a character.
size_t CutAtEnd(std::string_view bytes, size_t least, TextEncoding encoding) {
  // A CR at the very end may be half of a line end.
  const size_t line = bytes.substr(0, bytes.size() - 1).find_last_of("\r\n");
  if (line != std::string_view::npos && line + 1 >= least)
    return line + (bytes.substr(line, 2) == "\r\n" ? 2 : 1);
  size_t end = bytes.size();
  while (encoding == TextEncoding::Utf8 && end > least && IsMiddleOfCharacter(bytes[end - 1])) --end;
  if (encoding == TextEncoding::Utf8 && end > least && static_cast<unsigned char>(bytes[end - 1]) >= 0xC0)
    --end;
  return end;
}

/// UTF-8, a line feed for each line end.
std::string WindowText(std::string_view bytes, TextEncoding encoding) {
  std::string text = RawText(bytes, encoding);
  size_t to = 0;
  for (size_t at = 0; at < text.size(); ++at) {
    if (text[at] == '\r' && at + 1 < text.size() && text[at + 1] == '\n') ++at;
    text[to++] = text[at] == '\r' ? '\n' : text[at];
  }
  text.resize(to);
  return text;
}

uint64_t LineEnds(std::string_view text) {
  return static_cast<uint64_t>(std::ranges::count(text, '\n'));
}

}  // namespace

uint64_t TextWindow::LastLine() const {
  return FirstLine + LineEnds(Text);
}

Expected<TextWindow, PlaceFault> ReadTextWindow(const Corpus& corpus, PlaceLocator& locator,
                                                const WindowWish& wish) {
  const TextEncoding encoding = EncodingOfSource(corpus, wish.Source);
  const uint64_t begin = wish.Offset - std::min(wish.Offset, wish.Around);
  const uint64_t end = wish.Offset + wish.Around;
  // One byte more tells whether the text goes on.
  auto read = locator.Bytes(wish.Source, begin, end + 1);
  if (!read) return read.Error();
  std::string_view bytes = *read;
  TextWindow window;
  window.ToEnd = bytes.size() <= end - begin;
  const auto known = static_cast<size_t>(wish.Offset - begin);
  if (!window.ToEnd)
    bytes = bytes.substr(0, CutAtEnd(bytes.substr(0, end - begin), known + wish.Around / 2, encoding));
  const size_t cut = begin == 0 ? 0 : CutAtBegin(bytes, known / 2, encoding);
  window.Begin = begin + cut;
  window.End = begin + bytes.size();
  window.FirstLine = wish.Line - LineEnds(WindowText(bytes.substr(cut, known - cut), encoding));
  const bool signature = begin == 0 && encoding == TextEncoding::Utf8 && bytes.starts_with(kSignature);
  const size_t shown = signature ? kSignature.size() : cut;
  const auto text = [&](uint64_t from, uint64_t to) {
    return WindowText(bytes.substr(from - begin, to - from), encoding);
  };
  const uint64_t textBegin = begin + shown;
  window.Text = text(textBegin, window.End);
  if (textBegin <= wish.PhraseBegin && wish.PhraseEnd <= window.End) {
    window.PhraseBegin = text(textBegin, wish.PhraseBegin).size();
    window.PhraseEnd = window.PhraseBegin + text(wish.PhraseBegin, wish.PhraseEnd).size();
  }
  return window;
}

}  // namespace korv
