#include "app/kept/kept_reader.h"

#include <algorithm>
#include <span>

#include "base/utf8.h"

namespace korv {

namespace {
constexpr size_t kPiece = size_t{1} << 19;
}

KeptReader::KeptReader(InputFile& file, KeptProgress& progress, Yielder& yielder)
    : file_(file), progress_(progress), yielder_(yielder) {
  progress_.Done = 0;
  progress_.Total = file.Size();
}

bool KeptReader::Begin() {
  const uint64_t size = file_.Size();
  left_ = std::min<uint64_t>(size, kKeptHeaderBytes);
  const bool isKept = size >= kKeptMagic.size() && TakeBytes(kKeptMagic.size()) == kKeptMagic;
  if (!isKept) {
    // What the system says of a file that cannot be read goes before.
    Fail(OpenFault::NoKeptRun);
    return false;
  }
  if (size < kKeptHeaderBytes) {
    Fail(OpenFault::CutShort);
    return false;
  }
  version_ = Take<uint32_t>();
  const auto length = Take<uint64_t>();
  if (version_ > kKeptVersion) Fail(OpenFault::Newer);
  if (length > size) Fail(OpenFault::CutShort);
  if (version_ == 0 || length < size || size < kKeptHeaderBytes + kKeptChecksumBytes)
    Fail(OpenFault::Damaged);
  if (!Failed()) beyond_ = size - kKeptHeaderBytes - kKeptChecksumBytes;
  return !Failed();
}

bool KeptReader::BeginSection(KeptSection section) {
  if (Failed()) return false;
  if (beyond_ < kKeptSectionBytes) {
    Fail(OpenFault::Damaged);
    return false;
  }
  left_ = kKeptSectionBytes;
  beyond_ -= kKeptSectionBytes;
  const std::string name = TakeBytes(NameOf(section).size());
  const auto bytes = Take<uint64_t>();
  if (name != NameOf(section) || bytes > beyond_) {
    Fail(OpenFault::Damaged);
    return false;
  }
  left_ = bytes;
  beyond_ -= bytes;
  return true;
}

bool KeptReader::EndSection() {
  if (left_ != 0) Fail(OpenFault::Damaged);
  return !Failed();
}

bool KeptReader::End() {
  if (Failed()) return false;
  if (beyond_ != 0) Fail(OpenFault::Damaged);
  left_ = kKeptChecksumBytes;
  const auto checksum = Take<uint32_t>();
  if (checksum != checksum_.Value()) Fail(OpenFault::Damaged);
  return !Failed();
}

uint64_t KeptReader::TakeUpTo(uint64_t most) {
  const auto number = Take<uint64_t>();
  if (number <= most) return number;
  Fail(OpenFault::Damaged);
  return 0;
}

bool KeptReader::TakeBool() {
  const auto value = Take<uint8_t>();
  if (value > 1) Fail(OpenFault::Damaged);
  return value == 1 && !Failed();
}

std::string KeptReader::TakeText() {
  std::string text = TakeBytes(Take<uint32_t>());
  if (MendedUtf8(text) == text) return text;
  Fail(OpenFault::Damaged);
  return {};
}

std::vector<std::string> KeptReader::TakeTexts() {
  std::vector<std::string> texts;
  for (auto left = Take<uint32_t>(); left > 0 && !Failed(); --left) texts.push_back(TakeText());
  return texts;
}

std::filesystem::path KeptReader::TakePath() {
  const std::string bytes = TakeBytes(Take<uint32_t>());
  if (bytes.find('\0') != std::string::npos) Fail(OpenFault::Damaged);
  return Failed() ? std::filesystem::path() : PathOfBytes(bytes);
}

std::string KeptReader::TakeBytes(uint64_t bytes) {
  if (bytes > left_) Fail(OpenFault::Damaged);
  std::string taken;
  if (Failed()) return taken;
  taken.reserve(bytes);
  while (taken.size() < bytes) {
    if (!HasBytes(1)) return {};
    const size_t piece = std::min<uint64_t>(bytes - taken.size(), buffer_.size() - at_);
    taken.append(buffer_, at_, piece);
    Pass(piece);
  }
  return taken;
}

size_t KeptReader::ElementsLeft(size_t bytes) {
  if (left_ % bytes != 0) Fail(OpenFault::Damaged);
  return static_cast<size_t>(left_ / bytes);
}

bool KeptReader::Fill(size_t bytes) {
  if (Failed()) return false;
  buffer_.erase(0, at_);
  at_ = 0;
  while (buffer_.size() < bytes) {
    const size_t before = buffer_.size();
    const uint64_t rest = file_.Size() - read_;
    buffer_.resize(before + std::min<uint64_t>(kPiece, rest));
    const auto read = file_.Read(std::span(buffer_).subspan(before));
    buffer_.resize(before + (read ? *read : 0));
    if (!read) {
      Fail(OpenError{OpenFault::Unreadable, read.Error().Description});
      return false;
    }
    if (*read == 0) {
      Fail(OpenFault::CutShort);
      return false;
    }
    const uint64_t checked = std::max(file_.Size(), uint64_t{kKeptChecksumBytes}) - kKeptChecksumBytes;
    checksum_.Add(std::string_view(buffer_).substr(before, checked - std::min(checked, read_)));
    read_ += *read;
    progress_.Done = read_;
    yielder_.YieldNow();
    if (yielder_.Stopped()) {
      Fail(OpenFault::Stopped);
      return false;
    }
  }
  return true;
}

void KeptReader::Fail(OpenFault fault) {
  Fail(OpenError{fault});
}

void KeptReader::Fail(OpenError error) {
  left_ = 0;
  buffer_.clear();
  at_ = 0;
  if (!error_) error_ = std::move(error);
}

}  // namespace korv
