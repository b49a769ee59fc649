// Lists of paths that somebody else has made.

#include <algorithm>
#include <cstdint>
#include <cstdlib>
#include <string>
#include <string_view>

#include "cli/path_list.h"

namespace {

class Bytes final : public korv::InputFile {
 public:
  explicit Bytes(std::string_view bytes) : bytes_(bytes) {}
  korv::Expected<size_t, korv::FileError> Read(std::span<char> buffer) override {
    // In small pieces, so that paths are cut.
    const size_t count = std::min({buffer.size(), bytes_.size(), size_t{7}});
    std::copy_n(bytes_.data(), count, buffer.data());
    bytes_.remove_prefix(count);
    return count;
  }
  uint64_t Size() const override { return bytes_.size(); }

 private:
  std::string_view bytes_;
};

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const uint8_t* data, size_t size) {
  const std::string_view bytes(reinterpret_cast<const char*>(data), size);
  for (const char separator : {'\n', '\0'}) {
    Bytes file(bytes);
    const auto paths = korv::ReadPathList(file, separator);
    if (!paths) std::abort();
    size_t held = 0;
    for (const std::string& path : *paths) {
      if (path.empty() || path.find(separator) != path.npos) std::abort();
      if (bytes.find(path) == bytes.npos) std::abort();
      held += path.size();
    }
    if (held > size) std::abort();
  }
  return 0;
}
