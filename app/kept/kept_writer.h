#pragma once

#include <concepts>
#include <cstdint>
#include <optional>
#include <string>
#include <string_view>

#include "app/kept/checksum.h"
#include "app/kept/kept_bytes.h"
#include "app/kept/kept_format.h"
#include "app/kept/kept_run_error.h"

namespace korv {

/// Writes the file of a kept run from its first to its last byte, in large pieces, and yields after each.
/// After a fault or a stop nothing more is written.
class KeptWriter {
 public:
  /// `length`: of the whole file, in bytes, which is written at its beginning. All outlive this.
  KeptWriter(OutputFile& file, uint64_t length, KeptProgress& progress, Yielder& yielder);

  /// Begins a section whose contents take so many bytes.
  void BeginSection(KeptSection section, uint64_t bytes);
  template <std::integral Number>
  void Put(Number number) {
    AppendNumber(number, buffer_);
    if (buffer_.size() >= kPiece) Flush();
  }
  void PutBytes(std::string_view bytes);
  /// Writes the checksum and what is left. What went wrong, if anything did.
  std::optional<KeepError> End();
  bool Failed() const { return error_.has_value(); }

 private:
  static constexpr size_t kPiece = size_t{1} << 19;

  void Flush();

  OutputFile& file_;
  KeptProgress& progress_;
  Yielder& yielder_;
  std::string buffer_;
  Checksum checksum_;
  std::optional<KeepError> error_;
};

}  // namespace korv
