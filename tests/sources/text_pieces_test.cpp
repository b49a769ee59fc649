#include "sources/read/text_pieces.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <string>
#include <string_view>
#include <vector>

#include "tests/sources/bitten_file.h"

namespace korv {
namespace {

using testing::ElementsAre;

/// The pieces of a text that comes in bites of `bite` bytes behind a head of `head` bytes.
std::vector<std::string> PiecesOf(std::string_view text, size_t pieceBytes, size_t head, size_t bite) {
  BittenFile rest(text.substr(head), bite);
  TextPieces pieces(std::string(text.substr(0, head)), &rest, TextEncoding::Utf8, pieceBytes);
  std::vector<std::string> found;
  uint64_t offset = 0;
  while (auto piece = pieces.Next()) {
    EXPECT_EQ(piece->Offset, offset);
    EXPECT_EQ(piece->Part, offset == 0 ? TextPart::Beginning : TextPart::Middle);
    offset += piece->Bytes.size();
    found.push_back(piece->Bytes);
  }
  if (pieces.HoldsLongLine()) found.push_back("long: " + pieces.TakeBytes());
  EXPECT_EQ(pieces.Error(), std::nullopt);
  return found;
}

struct Parting {
  std::string_view Text;
  std::vector<std::string> Pieces;
};

TEST(TextPieces, EndWithALineThatIsWhole) {
  const Parting partings[] = {
      {"", {}},
      {"one", {"one"}},
      {"one\n", {"one\n"}},
      {"one two\nthree\nfour", {"one two\n", "three\n", "four"}},
      {"one\ntwo\nthree\nfour\n", {"one\ntwo\n", "three\n", "four\n"}},
      // An LF belongs to the CR before it.
      {"one two\r\nthree\r\n", {"one two\r\n", "three\r\n"}},
      {"onetwo\rthree\r", {"onetwo\r", "three\r"}},
      {"onetwo7\r\nthree\r\n", {"onetwo7\r\n", "three\r\n"}},
      {"\n\n\n\n\n\n\n\n\n\n\n\n", {"\n\n\n\n\n\n\n\n\n", "\n\n\n"}},
  };
  for (const Parting& parting : partings)
    for (const size_t head : {size_t{0}, parting.Text.size() / 2, parting.Text.size()})
      for (const size_t bite : {size_t{1}, size_t{4}, size_t{1000}})
        EXPECT_EQ(PiecesOf(parting.Text, 9, head, bite), parting.Pieces)
            << parting.Text << " " << head << " " << bite;
}

TEST(TextPieces, LeaveALineThatIsLongerThanAPieceToWhoeverReadsLines) {
  EXPECT_THAT(PiecesOf("one\ntwo\nthree four\nfive", 9, 0, 100),
              ElementsAre("one\ntwo\n", testing::StartsWith("long: three four")));
  EXPECT_THAT(PiecesOf("three four five", 9, 15, 100), ElementsAre("long: three four five"));
}

TEST(TextPieces, SettleTheEncodingWithTheFirstByteAbove127) {
  BittenFile rest("one\ntwo\ncaf\xC3\xA9\nfour\n");
  int asked = 0;
  TextPieces pieces("", &rest, EncodingPlan([&] {
                      ++asked;
                      return true;
                    }),
                    6);
  EXPECT_EQ(pieces.Next()->Encoding, std::nullopt);
  EXPECT_EQ(pieces.Next()->Encoding, std::nullopt);
  EXPECT_EQ(asked, 0);
  EXPECT_EQ(pieces.Next()->Encoding, TextEncoding::Utf8);
  EXPECT_EQ(pieces.Next()->Encoding, TextEncoding::Utf8);
  EXPECT_EQ(asked, 1);
  EXPECT_TRUE(pieces.AtEnd());
  EXPECT_FALSE(pieces.Next());
}

TEST(TextPieces, GiveWhatWasReadBeforeAFailure) {
  BittenFile rest("one\ntwo\nthree\n", 10, 1);
  TextPieces pieces("", &rest, TextEncoding::Ansi, 100);
  EXPECT_EQ(pieces.Next()->Bytes, "one\ntwo\nth");
  EXPECT_FALSE(pieces.Next());
  ASSERT_TRUE(pieces.Error());
  EXPECT_EQ(pieces.Error()->Description, "worn out");
  EXPECT_EQ(pieces.BytesRead(), 10u);
}

}  // namespace
}  // namespace korv
