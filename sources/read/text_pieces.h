#pragma once

#include <cstddef>
#include <cstdint>
#include <optional>
#include <string>
#include <string_view>

#include "platform/files.h"
#include "sources/read/text_reader.h"

namespace korv {

/// A piece of a text as it was read: whole lines, but for the last piece, which may end without a line end.
struct TextPiece {
  std::string Bytes;
  uint64_t Offset = 0;  ///< In bytes from the begin of the text.
  TextPart Part = TextPart::Middle;
  /// The encoding that is settled for it. Empty: nothing is, and there is no byte above 127.
  std::optional<TextEncoding> Encoding;
};

/// Parts a text into pieces that can be decoded and cut apart from each other. The encoding is settled as a
/// TextReader settles it. Holds one piece and what was read of the next one.
///
///   TextPieces pieces(std::move(head), file.get(), encoding);
///   while (auto piece = pieces.Next()) ...
///   if (pieces.HoldsLongLine()) TextReader rest(pieces.TakeBytes(), pieces.Rest(), pieces.Encoding(), ...);
class TextPieces {
 public:
  /// As for TextReader. Pieces have about `pieceBytes`.
  TextPieces(std::string head, InputFile* rest, EncodingPlan encoding, size_t pieceBytes);

  /// The next piece. Empty at the end of the text, where reading failed (Error() tells), and where the next
  /// line is longer than a piece.
  std::optional<TextPiece> Next();
  /// Whether the piece given last was the last one.
  bool AtEnd() const { return rest_ == nullptr && begin_ == bytes_.size(); }
  std::optional<FileError> Error() const { return error_; }

  /// Whether a line that is longer than a piece comes next: the rest is for a TextReader, which needs no
  /// memory for lines.
  bool HoldsLongLine() const { return longLine_; }
  std::string TakeBytes();
  InputFile* Rest() const { return rest_; }
  const EncodingPlan& Encoding() const { return encoding_; }
  /// Where the rest begins, and as what.
  uint64_t Offset() const { return offset_; }
  TextPart Part() const { return offset_ == 0 ? first_ : TextPart::Middle; }

  /// Bytes taken from the source so far, the head among them.
  uint64_t BytesRead() const { return offset_ + bytes_.size() - begin_; }

 private:
  std::string_view Unread() const { return std::string_view(bytes_).substr(begin_); }
  size_t BlockSize() const;
  bool ReadMore();
  void Settle(size_t length);
  size_t PieceLength() const;

  std::string bytes_;  ///< From begin_ on it has been read and not been given.
  size_t begin_ = 0;
  InputFile* rest_;
  EncodingPlan encoding_;
  TextPart first_;
  size_t pieceBytes_;
  uint64_t offset_ = 0;  ///< Of begin_ in the text.
  bool longLine_ = false;
  std::optional<FileError> error_;
};

}  // namespace korv
