// Any bytes as text of either encoding: what comes out is well-formed, composed and free of all that is
// replaced or dropped, the same at a second time, and its lines do not depend on the blocks in which it is
// read.
#include <cstdint>
#include <cstdlib>
#include <string>
#include <string_view>
#include <vector>

#include "engine/text/unicode.h"
#include "sources/read/text_reader.h"
#include "tests/sources/bitten_file.h"

namespace {

using namespace korv;

void Require(bool holds) {
  if (!holds) std::abort();
}

void RequireClean(std::string_view text) {
  for (size_t at = 0; at < text.size();) {
    const size_t begin = at;
    const char32_t c = NextCharacter(text, at);
    Require(c != kReplacementCharacter || text.substr(begin, at - begin) == "\uFFFD");
    Require(std::u32string_view(U"\u2018\u2019\u201D\u2010\u2011\u00AD\u2060\uFEFF").find(c) ==
            std::u32string_view::npos);
  }
  Require(ToNfc(text) == text);
  std::string buffer;
  Require(DecodeText(text, TextEncoding::Utf8, buffer) == text);
}

std::vector<std::string> LinesOf(std::string_view text, size_t head, size_t bite, TextEncoding encoding,
                                 LongLines longLines, size_t longFrom = kLongLine) {
  BittenFile rest(text.substr(head), bite);
  TextReader reader(std::string(text.substr(0, head)), &rest, encoding, longLines, TextPart::Beginning,
                    longFrom);
  std::vector<std::string> lines;
  while (reader.NextLine()) {
    if (reader.StartsLine()) lines.emplace_back();
    lines.back() += reader.Line();
  }
  Require(!reader.Error() && reader.BytesRead() == text.size());
  return lines;
}

/// The lines by looking at one byte after the other.
std::vector<std::string> PlainLines(std::string_view text, TextEncoding encoding) {
  if (encoding == TextEncoding::Utf8 && text.starts_with("\xEF\xBB\xBF")) text.remove_prefix(3);
  std::vector<std::string> lines;
  std::string line;
  std::string buffer;
  for (size_t at = 0; at < text.size(); ++at) {
    const bool isPair = text.substr(at, 2) == "\r\n";
    if (text[at] != '\n' && text[at] != '\r') {
      line += text[at];
      if (at + 1 < text.size()) continue;
    }
    lines.emplace_back(DecodeText(line, encoding, buffer));
    line.clear();
    if (isPair) ++at;
  }
  return lines;
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const uint8_t* data, size_t size) {
  if (size < 3) return 0;
  const std::string_view text(reinterpret_cast<const char*>(data) + 3, size - 3);
  const TextEncoding encoding = data[0] & 1 ? TextEncoding::Ansi : TextEncoding::Utf8;
  const size_t head = std::min<size_t>(data[1], text.size());
  const size_t bite = 1U + data[2];

  std::string buffer;
  RequireClean(DecodeText(text, encoding, buffer));
  const std::vector<std::string> lines = PlainLines(text, encoding);
  Require(LinesOf(text, head, bite, encoding, LongLines::Whole) == lines);
  for (const LongLines longLines : {LongLines::AtBlanks, LongLines::Anywhere})
    Require(LinesOf(text, head, bite, encoding, longLines, 8) == lines);
  return 0;
}
