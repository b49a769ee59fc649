// Writes the first lines of a text that hold so many words (short ones too) to standard output, and
// the number of words that it wrote to standard error.
//     first_words TEXT WORDS

#include <cstdint>
#include <cstdio>
#include <cstdlib>
#include <string>

#include "bench/word_reader.h"

namespace {

struct Copier {
  uint64_t Wanted;
  uint64_t Words = 0;

  void Word(const std::string&) { ++Words; }
  void DroppedWord() { ++Words; }
  void PhraseEnd() {}
  bool Line(std::string_view line) {
    std::fwrite(line.data(), 1, line.size(), stdout);
    std::fputc('\n', stdout);
    return Words < Wanted;
  }
};

}  // namespace

int main(int argc, char** argv) {
  if (argc != 3) {
    std::fprintf(stderr, "usage: %s TEXT WORDS\n", argv[0]);
    return 2;
  }
  Copier copier{std::strtoull(argv[2], nullptr, 10)};
  korv::bench::ReadWordsOf(argv[1], copier);
  std::fprintf(stderr, "%llu\n", static_cast<unsigned long long>(copier.Words));
  return 0;
}
