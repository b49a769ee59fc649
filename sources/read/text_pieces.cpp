#include "sources/read/text_pieces.h"

#include <algorithm>
#include <string_view>
#include <utility>

#include "engine/text/unicode.h"
#include "sources/detect/encoding_sample.h"

namespace korv {

namespace {

/// What is read at once. A stream gives less.
constexpr size_t kBlock = size_t{256} * 1024;
constexpr size_t kLeastBlock = size_t{4} * 1024;

}  // namespace

TextPieces::TextPieces(std::string head, InputFile* rest, EncodingPlan encoding, size_t pieceBytes)
    : bytes_(std::move(head)),
      rest_(rest),
      encoding_(std::move(encoding)),
      // Only where it was declared, the text begins with a signature.
      first_(encoding_.Settled ? TextPart::Beginning : TextPart::Middle),
      pieceBytes_(pieceBytes) {}

/// How much to ask for next: no more room for a small file than it needs, but enough to see its end.
size_t TextPieces::BlockSize() const {
  const uint64_t size = rest_->Size();
  if (size == 0) return kBlock;
  return static_cast<size_t>(
      std::clamp<uint64_t>(size - std::min(size, BytesRead()) + 1, kLeastBlock, kBlock));
}

/// Reads a block. False where there is nothing more.
bool TextPieces::ReadMore() {
  if (rest_ == nullptr) return false;
  const size_t before = bytes_.size();
  const size_t block = BlockSize();
  bytes_.resize(before + block);
  const Expected<size_t, FileError> got = rest_->Read({bytes_.data() + before, block});
  if (!got) error_ = got.Error();
  bytes_.resize(before + (got ? *got : 0));
  if (!got || *got == 0) rest_ = nullptr;
  return rest_ != nullptr;
}

/// Settles the encoding where the next `length` bytes hold one above 127: it begins the sample.
void TextPieces::Settle(size_t length) {
  const std::string_view next = Unread().substr(0, length);
  const size_t before = PastAscii(next, 0);
  if (before == next.size()) return;
  while (Unread().size() < before + kEncodingSample && ReadMore()) {
  }
  const std::string_view sample = Unread().substr(before, kEncodingSample);
  const bool isUtf8 = LooksLikeUtf8(sample) && (!encoding_.ConfirmUtf8 || encoding_.ConfirmUtf8());
  encoding_.Settled = isUtf8 ? TextEncoding::Utf8 : encoding_.OtherThanUtf8;
}

/// The length of the next piece; 0 where no line ends in as many bytes as a piece has.
size_t TextPieces::PieceLength() const {
  const std::string_view unread = Unread();
  if (rest_ == nullptr && unread.size() <= pieceBytes_) return unread.size();
  const std::string_view piece = unread.substr(0, pieceBytes_);
  if (const size_t lf = piece.rfind('\n'); lf != std::string_view::npos) return lf + 1;
  // An LF may belong to a CR at the very end.
  const size_t cr = piece.substr(0, piece.size() - std::min<size_t>(piece.size(), 1)).rfind('\r');
  return cr == std::string_view::npos ? 0 : cr + 1;
}

std::optional<TextPiece> TextPieces::Next() {
  if (rest_ != nullptr && Unread().size() < pieceBytes_) bytes_.erase(0, std::exchange(begin_, 0));
  while (Unread().size() < pieceBytes_ && ReadMore()) {
  }
  if (Unread().empty()) return std::nullopt;
  const size_t length = PieceLength();
  longLine_ = length == 0;
  if (longLine_) return std::nullopt;
  if (!encoding_.Settled) Settle(length);
  TextPiece piece{std::string(Unread().substr(0, length)), offset_, Part(), encoding_.Settled};
  begin_ += length;
  offset_ += length;
  return piece;
}

std::string TextPieces::TakeBytes() {
  bytes_.erase(0, std::exchange(begin_, 0));
  return std::exchange(bytes_, {});
}

}  // namespace korv
