#pragma once

#include <string>

#include "base/yielder.h"
#include "platform/files.h"

namespace korv {

/// A stream in an encoding of a name, as UTF-8. Holds all of it: the first Read() reads it to its end. Fails
/// where it is longer than kMostTextBytes or nobody knows the name.
class DecodedStream final : public InputFile {
 public:
  /// Both must outlive the object.
  DecodedStream(InputFile& stream, std::string encoding, Yielder& yielder)
      : stream_(stream), encoding_(std::move(encoding)), yielder_(yielder) {}

  Expected<size_t, FileError> Read(std::span<char> buffer) override;
  uint64_t Size() const override { return 0; }

 private:
  InputFile& stream_;
  std::string encoding_;
  Yielder& yielder_;
  std::string text_;
  size_t given_ = 0;
  bool isRead_ = false;
};

}  // namespace korv
