#pragma once

#include <algorithm>
#include <cstdint>
#include <span>
#include <string_view>

#include "platform/files.h"

namespace korv {

/// Hands out a text in bites of so many bytes, and may fail after some of them.
class BittenFile final : public InputFile {
 public:
  /// Keeps a view of `text`.
  explicit BittenFile(std::string_view text, size_t bite = static_cast<size_t>(-1), int failsAt = -1)
      : text_(text), bite_(bite), failsAt_(failsAt) {}

  Expected<size_t, FileError> Read(std::span<char> buffer) override {
    if (failsAt_ >= 0 && reads_ >= failsAt_) return FileError{FileFault::Other, "worn out"};
    ++reads_;
    const size_t count = std::min({bite_, buffer.size(), text_.size() - at_});
    std::copy_n(text_.data() + at_, count, buffer.data());
    at_ += count;
    return count;
  }
  uint64_t Size() const override { return claimed_; }
  /// For a file that grows or shrinks after it was opened, or a pipe.
  void ClaimSize(uint64_t size) { claimed_ = size; }
  int Reads() const { return reads_; }

 private:
  std::string_view text_;
  size_t bite_;
  int failsAt_;
  uint64_t claimed_ = text_.size();
  size_t at_ = 0;
  int reads_ = 0;
};

}  // namespace korv
