#include <gtest/gtest.h>
#include <zlib.h>

#include <stdexcept>
#include <string>
#include <string_view>

#include "sources/questions.h"
#include "tests/sources/docx_builder.h"
#include "tests/sources/other_documents.h"

namespace korv {
namespace {

using namespace std::string_view_literals;

std::string Gzip(const std::string& text) {
  constexpr int kWithGzipHeader = 15 + 16;
  z_stream stream{};
  if (deflateInit2(&stream, 9, Z_DEFLATED, kWithGzipHeader, 8, Z_DEFAULT_STRATEGY) != Z_OK)
    throw std::runtime_error("no gzip");
  std::string packed(deflateBound(&stream, text.size()) + 100, '\0');
  stream.next_in = reinterpret_cast<Bytef*>(const_cast<char*>(text.data()));
  stream.avail_in = static_cast<uInt>(text.size());
  stream.next_out = reinterpret_cast<Bytef*>(packed.data());
  stream.avail_out = static_cast<uInt>(packed.size());
  deflate(&stream, Z_FINISH);
  packed.resize(stream.total_out);
  deflateEnd(&stream);
  return packed;
}

// "some packed words", LF.
constexpr std::string_view kBzip2 =
    "\x42\x5a\x68\x39\x31\x41\x59\x26\x53\x59\xe3\xe5\x1e\x0d\x00\x00\x08\x51\x80\x00\x10\x40\x00\x2e\x0a\xd8"
    "\x80"
    "\x20\x00\x31\x00\xd0\x01\x4d\x3d\x47\xa8\xd8\xa3\x25\x10\xd2\x4e\xe4\x0e\x0f\x8b\xb9\x22\x9c\x28\x48\x71"
    "\xf2"
    "\x8f\x06\x80"sv;
constexpr std::string_view kXz =
    "\xfd\x37\x7a\x58\x5a\x00\x00\x04\xe6\xd6\xb4\x46\x02\x00\x21\x01\x16\x00\x00\x00\x74\x2f\xe5\xa3\x01\x00"
    "\x11"
    "\x73\x6f\x6d\x65\x20\x70\x61\x63\x6b\x65\x64\x20\x77\x6f\x72\x64\x73\x0a\x00\x00\x00\x0c\xc6\xae\x9d\x7a"
    "\x2c"
    "\xce\xfe\x00\x01\x2a\x12\x4b\x08\x54\xbc\x1f\xb6\xf3\x7d\x01\x00\x00\x00\x00\x04\x59\x5a"sv;
constexpr std::string_view kZstd =
    "\x28\xb5\x2f\xfd\x04\x58\x91\x00\x00\x73\x6f\x6d\x65\x20\x70\x61\x63\x6b\x65\x64\x20\x77\x6f\x72\x64\x73"
    "\x0a"
    "\xd9\x64\xc4\xa9"sv;

class PackedTest : public OtherDocumentsTest {};

TEST_F(PackedTest, IsReadAsWhatItHolds) {
  EXPECT_EQ(Open("a.txt.gz", Gzip("some packed words\n")).Text, "some packed words\n");
  EXPECT_EQ(Open("a.txt.bz2", std::string(kBzip2)).Text, "some packed words\n");
  EXPECT_EQ(Open("a.txt.xz", std::string(kXz)).Text, "some packed words\n");
  EXPECT_EQ(Open("a.zst", std::string(kZstd)).Text, "some packed words\n");
  EXPECT_EQ(Open("a.xml.gz", Gzip("<a>one<b>two</b></a>")).Text, "onetwo\n");
  EXPECT_EQ(Open("a.srt.gz", Gzip("1\n00:01 --> 00:02\none\n")).Unit, PlaceUnit::Cue);
  EXPECT_EQ(Open("a.txt.gz", Gzip("one ") + Gzip("two")).Text, "one two") << "several in a row";
}

TEST_F(PackedTest, OfAnyLengthIsReadToItsEnd) {
  std::string text;
  for (int k = 0; text.size() < (size_t{3} << 20); ++k) text += "line " + std::to_string(k * 7919) + "\n";
  EXPECT_EQ(Open("a.txt.gz", Gzip(text)).Text, text);
}

TEST_F(PackedTest, IsRefusedWithAReason) {
  const std::string damaged = "is damaged, or not what its name says";
  std::string broken = Gzip(std::string(100000, 'a') + " words");
  broken[20] = static_cast<char>(broken[20] ^ 0x55);
  EXPECT_EQ(Open("a.txt.gz", broken).Refusal, damaged);
  EXPECT_EQ(Open("a.txt.gz", "\x1F\x8B and nothing more").Refusal, damaged);
  EXPECT_EQ(Open("a.txt.gz", Gzip("")).Refusal, "is zero-length");
  EXPECT_EQ(Open("a.txt.gz", Gzip(std::string(1000, '\x01'))).Refusal, "is not a text file");
  const std::string within = "holds a document that must be unpacked first";
  EXPECT_EQ(Open("a.odt.gz", Gzip(BuildArchive({{"content.xml", "<a/>"}}))).Refusal, within);
  EXPECT_EQ(Open("a.pdf.gz", Gzip("%PDF-1.7 and so on")).Refusal, within);
}

TEST_F(PackedTest, OfManyBytesThatSayNothingIsRefusedUnlessTheUserWantsIt) {
  const std::string bomb = Gzip(std::string(size_t{80} << 20, ' ') + "words");
  EXPECT_EQ(Open("a.txt.gz", bomb).Refusal, "unpacks to more than 200 times its size");
  ASSERT_EQ(messages.Shown.size(), 1u);
  EXPECT_TRUE(messages.Shown[0].Question == questions::kPackedDensely);
  messages.WillAnswer(questions::kPackedDensely, Answer::Yes);
  EXPECT_TRUE(Open("a.txt.gz", bomb).Text.ends_with(" words"));
}

TEST_F(PackedTest, CutOffAnywhereIsReadOrRefused) {
  OpenCutOffAnywhere("a.txt.gz", Gzip("some words of a text\n"));
  OpenCutOffAnywhere("a.txt.bz2", std::string(kBzip2));
  OpenCutOffAnywhere("a.txt.xz", std::string(kXz));
  OpenCutOffAnywhere("a.txt.zst", std::string(kZstd));
}

}  // namespace
}  // namespace korv
