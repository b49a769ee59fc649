#include "sources/read/stream_source.h"

#include "base/utf8.h"
#include "engine/text/unicode.h"
#include "sources/detect/encoding_sample.h"
#include "sources/detect/source_checks.h"

namespace korv {

namespace {

constexpr std::string_view kSignature = "\xEF\xBB\xBF";
constexpr size_t kMostBytesOfCharacter = 4;
/// Holds the characters that are looked at, and the sample of an encoding that begins among them.
constexpr size_t kHeadBytes = kSignature.size() + kLookedAtCharacters * kMostBytesOfCharacter;
static_assert(kHeadBytes >= kLookedAtCharacters + kEncodingSample);

}  // namespace

std::optional<FileError> StreamSource::ReadHead(const std::function<void(uint64_t)>& onBlock) {
  head_.resize(kHeadBytes);
  size_t filled = 0;
  while (filled < kHeadBytes) {
    const auto got = Read(std::span(head_).subspan(filled));
    if (!got) return got.Error();
    if (*got == 0) break;
    filled += *got;
    onBlock(filled);
  }
  head_.resize(filled);
  hadSignature_ = head_.starts_with(kSignature);
  if (hadSignature_) head_.erase(0, kSignature.size());
  return std::nullopt;
}

EncodingPlan StreamSource::Encoding() const {
  switch (choice_) {
    case EncodingChoice::Utf8:
      return TextEncoding::Utf8;
    case EncodingChoice::Ansi:
      return TextEncoding::Ansi;
    case EncodingChoice::Auto:
      break;
  }
  return hadSignature_ ? EncodingPlan(TextEncoding::Utf8) : EncodingPlan(nullptr);
}

std::string StreamSource::Beginning() const {
  const std::string_view head = head_;
  const size_t ascii = PastAscii(head, 0);
  const bool isUtf8 = Encoding().Settled ? Encoding().Settled == TextEncoding::Utf8
                                         : LooksLikeUtf8(head.substr(ascii, kEncodingSample));
  if (isUtf8) return MendedUtf8(head.substr(0, kLookedAtCharacters * kMostBytesOfCharacter));
  std::string buffer;
  return std::string(DecodeText(head.substr(0, kLookedAtCharacters), TextEncoding::Ansi, buffer));
}

Expected<size_t, FileError> StreamSource::Read(std::span<char> buffer) {
  if (yielder_.Stopped()) return size_t{0};
  Expected<size_t, FileError> got = stream_.Read(buffer);
  if (got && kept_ != nullptr && isTaken_) kept_->append(buffer.data(), *got);
  return got;
}

std::string StreamSource::TakeHead() {
  if (kept_ != nullptr) *kept_ = head_;
  isTaken_ = true;
  return std::move(head_);
}

}  // namespace korv
