#pragma once

#include <cstdint>
#include <functional>
#include <memory>
#include <optional>
#include <string>
#include <string_view>

#include "platform/files.h"
#include "sources/read/text_decoder.h"

namespace korv {

/// The length in bytes from which on a line is a long one.
inline constexpr size_t kLongLine = size_t{1024} * 1024;

/// How long lines are handed out.
enum class LongLines {
  Whole,     ///< As they are, for callers to whom a line is one thing.
  AtBlanks,  ///< In pieces that end with a blank or tab and part no word, marker or known entity.
  Anywhere,  ///< The same, but a megabyte without such a blank is parted between two other characters.
};

/// The encoding of a text that is about to be read.
struct EncodingPlan {
  /// Settled from the start.
  EncodingPlan(TextEncoding encoding) : Settled(encoding) {}
  /// To be found out: the first byte above 127 decides, with what follows it (see LooksLikeUtf8). Where that
  /// looks like UTF-8, `confirm` is called once and has the last word; it may be empty, which means yes.
  explicit EncodingPlan(std::function<bool()> confirm) : ConfirmUtf8(std::move(confirm)) {}

  std::optional<TextEncoding> Settled;
  TextEncoding OtherThanUtf8 = TextEncoding::Ansi;  ///< What a text is in that is found not to be UTF-8.
  std::function<bool()> ConfirmUtf8;
};

/// Where the text that a reader is given begins. A signature is removed only from the beginning of a text.
enum class TextPart { Beginning, Middle };

/// The encoding in which a text was read. Ascii: the text declares no encoding and has no byte above 127, so
/// that both encodings read the same.
enum class ReadAs { Ascii, Ansi, Utf8 };

/// The lines of a text, read in blocks and decoded on the way (see DecodeText), without the line end
/// (CR LF, LF or CR) and without a UTF-8 signature. Holds one block, and of a longer line what is handed
/// out at once: with LongLines::Anywhere never much more than a megabyte.
///
///   TextReader reader(std::move(head), file.get(), TextEncoding::Utf8, LongLines::Anywhere);
///   while (reader.NextLine()) scanner.ScanLine(reader.Line(), reader.StartsLine(), reader.EndsLine());
///   if (reader.Error()) ...
class TextReader {
 public:
  /// `head` is what has been read of the text already; `rest` supplies what follows (null: nothing) and
  /// must outlive the reader. Lines of `longFrom` bytes and more are long ones; tests use small numbers.
  TextReader(std::string head, InputFile* rest, EncodingPlan encoding, LongLines longLines = LongLines::Whole,
             TextPart part = TextPart::Beginning, size_t longFrom = kLongLine);
  ~TextReader();

  /// False at the end of the text, or where reading failed (Error() tells). What was read before a
  /// failure is handed out first.
  bool NextLine();
  /// Valid until the next call of NextLine().
  std::string_view Line() const;
  /// False where Line() goes on with a line that began earlier.
  bool StartsLine() const;
  /// False where more of the line follows, be it nothing but its end.
  bool EndsLine() const;
  std::optional<FileError> Error() const;
  /// The bytes that Line() was decoded from, valid as long.
  std::string_view LineBytes() const;
  /// The offset of LineBytes() in bytes from the beginning of what the reader was given.
  uint64_t LineOffset() const;
  /// Bytes taken from the source so far, the head among them, for progress.
  uint64_t BytesRead() const;

  /// How the lines handed out so far were decoded.
  korv::ReadAs ReadAs() const;
  /// The number of ill-formed sequences of UTF-8 that became U+FFFD so far.
  uint64_t IllFormed() const;

 private:
  struct State;
  std::unique_ptr<State> state_;
};

}  // namespace korv
