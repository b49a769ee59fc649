#include "sources/read/decoded_stream.h"

#include <algorithm>
#include <utility>

#include "base/translation.h"
#include "sources/documents/document_fault.h"
#include "sources/read/whole_text.h"

namespace korv {

Expected<size_t, FileError> DecodedStream::Read(std::span<char> buffer) {
  if (!isRead_) {
    std::string bytes;
    constexpr size_t kBlock = size_t{1} << 18;
    while (!yielder_.Stopped()) {
      const size_t before = bytes.size();
      if (before > kMostTextBytes) return FileError{FileFault::Other, Tr("It is too large.")};
      bytes.resize(before + kBlock);
      const auto got = stream_.Read({bytes.data() + before, kBlock});
      if (!got) return got.Error();
      bytes.resize(before + *got);
      if (*got == 0) break;
      yielder_.Yield();
    }
    auto text = TextInUtf8(std::move(bytes), encoding_);
    if (!text) return FileError{FileFault::Other, Tr("Its encoding is not known.")};
    text_ = std::move(*text);
    isRead_ = true;
  }
  const size_t size = std::min(buffer.size(), text_.size() - given_);
  text_.copy(buffer.data(), size, given_);
  given_ += size;
  return size;
}

}  // namespace korv
