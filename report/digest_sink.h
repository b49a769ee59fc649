#pragma once

#include <cstdint>
#include <string>

#include "platform/sha256.h"
#include "report/report_sink.h"

namespace korv {

/// Passes a report on, and keeps account of the bytes that were taken. Only for reports that are carried on
/// as they are, in UTF-8.
class DigestSink final : public ReportSink {
 public:
  explicit DigestSink(ReportSink& sink) : sink_(sink) {}

  bool Write(std::string_view piece) override {
    if (!sink_.Write(piece)) return false;
    bytes_ += piece.size();
    digest_.Add(piece);
    return true;
  }
  size_t PieceSize() const override { return sink_.PieceSize(); }
  void PhraseEnds(size_t bytes) override { sink_.PhraseEnds(bytes); }

  uint64_t Bytes() const { return bytes_; }
  /// Of these bytes, in hexadecimal digits. Ask once, when all is written.
  std::string Sha256Text() { return digest_.Finish(); }

 private:
  ReportSink& sink_;
  Sha256 digest_;
  uint64_t bytes_ = 0;
};

}  // namespace korv
