#include "platform/sha256.h"

#include <gtest/gtest.h>

#include <string>

namespace korv {
namespace {

std::string DigestOf(std::string_view bytes) {
  Sha256 digest;
  digest.Add(bytes);
  return digest.Finish();
}

TEST(Sha256, IsThatOfTheStandard) {
  struct Case {
    std::string Bytes;
    const char* Digest;
  };
  const Case cases[] = {
      {"", "e3b0c44298fc1c149afbf4c8996fb92427ae41e4649b934ca495991b7852b855"},
      {"abc", "ba7816bf8f01cfea414140de5dae2223b00361a396177a9cb410ff61f20015ad"},
      {"abcdbcdecdefdefgefghfghighijhijkijkljklmklmnlmnomnopnopq",
       "248d6a61d20638b8e5c026930c3e6039a33ce45964ff2167f6ecedd419db06c1"},
      {std::string(1000000, 'a'), "cdc76e5c9914fb9281a1c7e284d73e67f1809a48a497200e046d39ccc7112cd0"},
  };
  for (const Case& c : cases) EXPECT_EQ(DigestOf(c.Bytes), c.Digest) << c.Bytes.size();
}

TEST(Sha256, ItDoesNotMatterInWhichPiecesBytesCome) {
  const std::string bytes = "The big cat sat. " + std::string(200, 'x') + '\0' + "end";
  for (size_t piece = 1; piece < 70; ++piece) {
    Sha256 digest;
    for (size_t at = 0; at < bytes.size(); at += piece) digest.Add(std::string_view(bytes).substr(at, piece));
    digest.Add({});
    EXPECT_EQ(digest.Finish(), DigestOf(bytes)) << piece;
  }
}

}  // namespace
}  // namespace korv
