// The main of the fuzz targets where libFuzzer is not at hand: hands a target every file of its corpus,
// then a fixed number of mutations of them and of the empty input. The same inputs on every run.
//     fuzz_<name> <corpus folder> [number of mutations]

#include <algorithm>
#include <cstddef>
#include <cstdint>
#include <cstdio>
#include <cstdlib>
#include <filesystem>
#include <fstream>
#include <iterator>
#include <random>
#include <string>
#include <system_error>
#include <vector>

extern "C" int LLVMFuzzerTestOneInput(const uint8_t* data, size_t size);

namespace {

using Input = std::vector<uint8_t>;

constexpr int kMutations = 600;
constexpr size_t kLargest = 4096;

void Try(const Input& input) {
  // A copy of exactly this size, so that a sanitizer sees one byte too far.
  const Input exact(input);
  LLVMFuzzerTestOneInput(exact.data(), exact.size());
}

std::vector<Input> ReadCorpus(const std::filesystem::path& folder) {
  std::vector<std::filesystem::path> names;
  std::error_code none;
  for (const auto& entry : std::filesystem::directory_iterator(folder, none)) {
    if (entry.is_regular_file()) names.push_back(entry.path());
  }
  std::sort(names.begin(), names.end());
  std::vector<Input> corpus;
  for (const auto& name : names) {
    std::ifstream file(name, std::ios::binary);
    corpus.emplace_back(std::istreambuf_iterator<char>(file), std::istreambuf_iterator<char>());
  }
  return corpus;
}

/// Small changes of the kinds that break parsers: a byte changed, a piece lost, doubled, or taken from
/// another input, bytes put in, the end cut off.
class Mutator {
 public:
  explicit Mutator(const std::vector<Input>& corpus) : corpus_(corpus) {}

  Input Next() {
    Input input = Pick();
    const size_t changes = 1 + Below(6);
    for (size_t i = 0; i < changes; ++i) Change(input);
    if (input.size() > kLargest) input.resize(kLargest);
    return input;
  }

 private:
  size_t Below(size_t n) { return n == 0 ? 0 : static_cast<size_t>(random_() % n); }
  uint8_t Byte() { return static_cast<uint8_t>(random_() & 0xFF); }

  Input Pick() {
    if (corpus_.empty() || Below(8) == 0) return Input(Below(64), static_cast<uint8_t>(0x20 + Below(95)));
    return corpus_[Below(corpus_.size())];
  }

  void Change(Input& input) {
    const size_t at = Below(input.size() + 1);
    const size_t length = std::min(Below(24) + 1, input.size() - at);
    const auto from = input.begin() + static_cast<std::ptrdiff_t>(at);
    const auto to = from + static_cast<std::ptrdiff_t>(length);
    switch (Below(6)) {
      case 0:
        if (at < input.size()) input[at] = Byte();
        break;
      case 1:
        input.erase(from, to);
        break;
      case 2: {
        const Input piece(from, to);
        input.insert(input.begin() + static_cast<std::ptrdiff_t>(at), piece.begin(), piece.end());
        break;
      }
      case 3: {
        Input piece(Below(4) + 1);
        std::generate(piece.begin(), piece.end(), [this] { return Byte(); });
        input.insert(from, piece.begin(), piece.end());
        break;
      }
      case 4: {
        const Input other = Pick();
        const size_t begin = Below(other.size());
        const size_t end = std::min(other.size(), begin + Below(64) + 1);
        input.insert(from, other.begin() + static_cast<std::ptrdiff_t>(begin),
                     other.begin() + static_cast<std::ptrdiff_t>(end));
        break;
      }
      default:
        input.resize(at);
    }
  }

  const std::vector<Input>& corpus_;
  std::mt19937_64 random_{20};
};

}  // namespace

int main(int argc, char** argv) {
  if (argc < 2) {
    std::fprintf(stderr, "usage: %s CORPUS [MUTATIONS]\n", argv[0]);
    return 2;
  }
  const int mutations = argc > 2 ? std::atoi(argv[2]) : kMutations;
  const std::vector<Input> corpus = ReadCorpus(argv[1]);
  Try({});
  for (const Input& input : corpus) Try(input);
  Mutator mutator(corpus);
  for (int i = 0; i < mutations; ++i) Try(mutator.Next());
  std::printf("%zu inputs of the corpus and %d mutations\n", corpus.size(), mutations);
  return 0;
}
