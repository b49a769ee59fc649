#pragma once

#include <algorithm>
#include <charconv>
#include <cstddef>
#include <cstdint>
#include <cstring>
#include <memory>
#include <string_view>

#include "report/report_sink.h"

namespace korv {

/// Text that grows at its end. Lists of millions of lines are appended a few bytes at a time, so appending is
/// inline. Nothing is allocated once it has been as long as ever.
class TextBuffer {
 public:
  void Append(std::string_view text) {
    if (room_ - size_ < text.size()) Grow(text.size());
    if (!text.empty()) std::memcpy(text_.get() + size_, text.data(), text.size());
    size_ += text.size();
  }
  void Append(char c) {
    if (room_ == size_) Grow(1);
    text_[size_++] = c;
  }
  /// Plain, as programs read it.
  void AppendWhole(int64_t number) {
    constexpr size_t kMostDigits = 20;
    if (room_ - size_ < kMostDigits) Grow(kMostDigits);
    char* const at = text_.get() + size_;
    size_ += static_cast<size_t>(std::to_chars(at, at + kMostDigits, number).ptr - at);
  }
  /// Nothing for a negative count.
  void AppendBlanks(int count) {
    if (count <= 0) return;
    const auto blanks = static_cast<size_t>(count);
    const size_t written = std::max(blanks, kFewBlanks);
    if (room_ - size_ < written) Grow(written);
    // Setting a fixed number of bytes takes one or two stores instead of a call. What is appended next
    // overwrites the bytes beyond the text.
    std::memset(text_.get() + size_, ' ', kFewBlanks);
    if (blanks > kFewBlanks) std::memset(text_.get() + size_, ' ', blanks);
    size_ += blanks;
  }

  std::string_view Text() const { return {text_.get(), size_}; }
  size_t Size() const { return size_; }
  void Clear() { size_ = 0; }

 private:
  static constexpr size_t kFewBlanks = 16;

  void Grow(size_t bytes) {
    room_ = std::max(2 * room_, size_ + bytes);
    auto grown = std::make_unique_for_overwrite<char[]>(room_);
    if (size_ > 0) std::memcpy(grown.get(), text_.get(), size_);
    text_ = std::move(grown);
  }

  std::unique_ptr<char[]> text_;
  size_t size_ = 0;
  size_t room_ = 0;
};

/// Collects text and hands it to a sink in large pieces.
class Pieces : public TextBuffer {
 public:
  explicit Pieces(ReportSink& sink) : sink_(sink), pieceSize_(sink.PieceSize()) {}

  /// The text of a phrase ends here.
  void PhraseEnds() { sink_.PhraseEnds(Size()); }

  /// Whether the sink takes so large pieces that nobody waits for one.
  bool Large() const { return pieceSize_ >= kLarge; }

  /// These two are false when the sink takes no more.
  bool HandOverWhenLarge() { return Size() <= pieceSize_ || HandOver(); }
  bool HandOverRest() { return Size() == 0 || HandOver(); }

 private:
  static constexpr size_t kLarge = size_t{1} << 14;

  bool HandOver() {
    const bool taken = sink_.Write(Text());
    Clear();
    // The room of a text box shrinks as it fills.
    pieceSize_ = sink_.PieceSize();
    return taken;
  }

  ReportSink& sink_;
  size_t pieceSize_;
};

}  // namespace korv
