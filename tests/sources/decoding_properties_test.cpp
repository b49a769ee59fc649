#include <gtest/gtest.h>
#include <rapidcheck.h>
#include <rapidcheck/gtest.h>

#include <string>
#include <string_view>
#include <vector>

#include "engine/text/clean_text.h"
#include "sources/read/text_reader.h"
#include "tests/reference/naive_decoding.h"
#include "tests/sources/bitten_file.h"

// Texts of unknown encoding against the naive model, read in blocks of any size.

namespace korv {
namespace {

using namespace std::string_view_literals;

constexpr std::string_view kPieces[] = {
    "a"sv, "word"sv, " "sv, " "sv, "\t"sv, "--"sv, "\n"sv, "\r"sv, "\r\n"sv, "\0"sv, "e"sv, "T"sv,
    // Well-formed.
    "\u00E9"sv, "\u0436\u0436\u0436\u0436\u0436\u0436\u0436\u0436"sv, "\u6F22"sv, "\U0001F600"sv, "\u0301"sv,
    "\u0308"sv, "\u0323"sv, "\u212B"sv, "\u1100"sv, "\u1161"sv, "\u00B4"sv, "\uFFFD"sv, "\u2028"sv,
    // Replaced and dropped.
    "\u00AD"sv, "\u2060"sv, "\uFEFF"sv, "\u2010"sv, "\u2011"sv, "\u2018"sv, "\u2019"sv, "\u201C"sv,
    "\u201D"sv, "\u200C"sv,
    // ANSI, and what is ill-formed in other ways.
    "\xE9"sv, "\x91"sv, "\x92"sv, "\x94"sv, "\xAD"sv, "\xFF"sv, "\xC0\xAF"sv, "\xE2"sv, "\xE2\x80"sv,
    "\xED\xA0\x80"sv, "\xF0\x9F\x98"sv, "\xF4\x90\x80\x80"sv};

std::string DrawBytes() {
  const auto pieces = rc::gen::container<std::vector<std::string_view>>(
      rc::gen::elementOf(std::vector<std::string_view>(std::begin(kPieces), std::end(kPieces))));
  std::string bytes;
  for (const std::string_view piece : *pieces) bytes += piece;
  return bytes;
}

/// Long enough that the sample ends in it.
std::string DrawFiller() {
  const std::string_view of = *rc::gen::element("\u0436"sv, "word "sv, "\n"sv, "\xE9 "sv, "\u6F22"sv);
  const size_t bytes = *rc::gen::element<size_t>(0, 16380, 16382, 16383, 16384, 16385, 40000);
  std::string filler;
  while (filler.size() < bytes) filler += of;
  return filler;
}

void CompareReaderWithModel(const std::string& bytes) {
  const bool answer = *rc::gen::arbitrary<bool>();
  const bool looks = reference::TakesForUtf8(bytes);
  const reference::DecodedText model = reference::DecodeBytes(bytes, looks && answer);

  const size_t head = *rc::gen::inRange<size_t>(0, std::min<size_t>(bytes.size(), 40) + 1);
  BittenFile rest(std::string_view(bytes).substr(head), *rc::gen::element<size_t>(1, 2, 3, 1000, 100000));
  int asked = 0;
  TextReader reader(bytes.substr(0, head), &rest, EncodingPlan([&] {
                      ++asked;
                      return answer;
                    }),
                    *rc::gen::element(LongLines::Whole, LongLines::AtBlanks, LongLines::Anywhere),
                    TextPart::Beginning, *rc::gen::element<size_t>(1, 10, 1000, kLongLine));
  std::vector<std::string> lines;
  while (reader.NextLine()) {
    if (reader.StartsLine()) lines.emplace_back();
    lines.back() += reader.Line();
  }

  const bool ascii = std::all_of(bytes.begin(), bytes.end(), [](char c) { return (c & 0x80) == 0; });
  RC_ASSERT(lines == model.Lines);
  RC_ASSERT(asked == (looks ? 1 : 0));
  RC_ASSERT(reader.IllFormed() == model.IllFormed);
  RC_ASSERT(reader.ReadAs() == (ascii ? ReadAs::Ascii : model.IsUtf8 ? ReadAs::Utf8 : ReadAs::Ansi));
}

RC_GTEST_PROP(DecodingProperties, ShortTextsAreReadLikeTheModel, ()) {
  CompareReaderWithModel(DrawBytes());
}

RC_GTEST_PROP(DecodingProperties, TextsAroundTheSampleAreReadLikeTheModel, ()) {
  const std::string before = *rc::gen::element(std::string(), std::string(5000, 'w'), std::string("word\n"));
  const std::string bytes = before + DrawBytes() + DrawFiller() + DrawBytes();
  CompareReaderWithModel(bytes);
}

RC_GTEST_PROP(DecodingProperties, EitherEncodingIsDecodedLikeTheModel, ()) {
  const std::string bytes = DrawBytes();
  const bool isUtf8 = *rc::gen::arbitrary<bool>();
  const bool isSigned = isUtf8 && bytes.starts_with("\xEF\xBB\xBF");
  const reference::DecodedText model =
      reference::DecodeBytes(std::string_view(bytes).substr(isSigned ? 3 : 0), isUtf8);
  TextReader reader(bytes, nullptr, isUtf8 ? TextEncoding::Utf8 : TextEncoding::Ansi);
  std::vector<std::string> lines;
  while (reader.NextLine()) lines.emplace_back(reader.Line());
  RC_ASSERT(lines == model.Lines);
  RC_ASSERT(reader.IllFormed() == model.IllFormed);
}

RC_GTEST_PROP(DecodingProperties, TypedTextIsCleanedLikeTheModel, ()) {
  const std::string text = DrawBytes();
  RC_ASSERT(CleanText(text) == reference::Clean(text));
  RC_ASSERT(CleanText(CleanText(text)) == CleanText(text));
}

}  // namespace
}  // namespace korv
