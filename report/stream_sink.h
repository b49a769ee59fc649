#pragma once

#include <ostream>

#include "report/list_words.h"

namespace korv {

/// Carries a report into a stream, standard output for one. Finish() ends it with a line end in any case.
class StreamReportSink final : public ReportSink {
 public:
  explicit StreamReportSink(std::ostream& stream) : stream_(stream) {}
  bool Write(std::string_view piece) override;
  size_t PieceSize() const override { return size_t{1} << 18; }
  /// After the last piece. False when not everything could be written.
  bool Finish();

 private:
  std::ostream& stream_;
  bool lineEnded_ = false;
};

}  // namespace korv
