#pragma once

#include <cstdint>
#include <memory>
#include <optional>
#include <string>
#include <string_view>

#include "platform/files.h"

namespace korv {

enum class TextEncoding { Ansi, Utf8 };

/// The lines of a text, read in blocks and decoded on the way: UTF-8 in NFC, typographic apostrophes and
/// closing quotes replaced, a UTF-8 signature removed, ill-formed bytes as U+FFFD, without the line end
/// (CR LF, LF or CR).
///
///   TextReader reader(std::move(head), file.get(), TextEncoding::Utf8);
///   while (reader.NextLine()) Use(reader.Line());
///   if (reader.Error()) ...
class TextReader {
 public:
  /// `head` is what has been read of the text already; `rest` supplies what follows (null: nothing) and
  /// must outlive the reader.
  TextReader(std::string head, InputFile* rest, TextEncoding encoding);
  ~TextReader();

  /// False at the end of the text, or where reading failed (Error() tells).
  bool NextLine();
  /// Valid until the next call of NextLine().
  std::string_view Line() const;
  std::optional<FileError> Error() const;
  /// Bytes taken from the source so far, for progress.
  uint64_t BytesRead() const;

 private:
  struct State;
  std::unique_ptr<State> state_;
};

}  // namespace korv
