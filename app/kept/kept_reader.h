#pragma once

#include <concepts>
#include <cstdint>
#include <filesystem>
#include <optional>
#include <string>
#include <vector>

#include "app/kept/checksum.h"
#include "app/kept/kept_bytes.h"
#include "app/kept/kept_format.h"
#include "app/kept/kept_run_error.h"

namespace korv {

/// Reads the file of a kept run from its first to its last byte, in large pieces, and yields after each.
/// Trusts nothing: no size is believed that goes beyond the section or the file, so that what is taken is
/// never larger than the file is. After the first fault all that is taken is 0 or empty, and nothing is left.
class KeptReader {
 public:
  /// All outlive this.
  KeptReader(InputFile& file, KeptProgress& progress, Yielder& yielder);

  /// The beginning of the file; first of all.
  bool Begin();
  /// Of the format that the file is in, 1 to kKeptVersion. After Begin().
  uint32_t Version() const { return version_; }
  /// The section that has to come next.
  bool BeginSection(KeptSection section);
  /// False, a fault, where the section holds more than was taken.
  bool EndSection();
  /// The end of the file, and whether its bytes are those that were written.
  bool End();

  /// Bytes of the section that have not been taken.
  uint64_t Left() const { return left_; }
  template <std::integral Number>
  Number Take() {
    if (!HasBytes(sizeof(Number))) return 0;
    const Number number = NumberIn<Number>(buffer_.data() + at_);
    Pass(sizeof(Number));
    return number;
  }
  /// A number above `most` is a fault.
  uint64_t TakeUpTo(uint64_t most);
  bool TakeBool();
  /// Well-formed UTF-8 of any length.
  std::string TakeText();
  std::vector<std::string> TakeTexts();
  std::filesystem::path TakePath();
  /// So many bytes as they are.
  std::string TakeBytes(uint64_t bytes);
  /// The number of elements of so many bytes each that the section has left. Others than whole ones are a
  /// fault.
  size_t ElementsLeft(size_t bytes);

  void Fail(OpenFault fault);
  bool Failed() const { return error_.has_value(); }
  /// Of the first fault; after one only.
  const OpenError& Error() const { return *error_; }

 private:
  bool HasBytes(size_t bytes) {
    if (bytes > left_) {
      Fail(OpenFault::Damaged);
      return false;
    }
    return buffer_.size() - at_ >= bytes || Fill(bytes);
  }
  void Pass(size_t bytes) {
    at_ += bytes;
    left_ -= bytes;
  }
  /// Reads on until the buffer holds so many bytes that were not taken.
  bool Fill(size_t bytes);
  void Fail(OpenError error);

  InputFile& file_;
  KeptProgress& progress_;
  Yielder& yielder_;
  std::string buffer_;
  size_t at_ = 0;      ///< In the buffer: the first byte that was not taken.
  uint64_t read_ = 0;  ///< Of the file.
  uint32_t version_ = 0;
  uint64_t left_ = 0;
  uint64_t beyond_ = 0;  ///< Bytes of the file behind the section, the checksum's left out.
  Checksum checksum_;
  std::optional<OpenError> error_;
};

}  // namespace korv
