#pragma once

#include <ostream>

#include "report/list_words.h"

namespace korv {

/// Carries a report into a stream, standard output for one. Finish() ends it with a line end in any case,
/// unless the report is a table: these end their lines themselves, and an empty one may have none.
class StreamReportSink final : public ReportSink {
 public:
  explicit StreamReportSink(std::ostream& stream, bool isTable = false)
      : stream_(stream), isTable_(isTable) {}
  bool Write(std::string_view piece) override;
  size_t PieceSize() const override { return size_t{1} << 18; }
  /// After the last piece. False when not everything could be written.
  bool Finish();

 private:
  std::ostream& stream_;
  bool isTable_;
  bool lineEnded_ = false;
};

}  // namespace korv
