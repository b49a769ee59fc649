#include "report/stream_sink.h"

namespace korv {

bool StreamReportSink::Write(std::string_view piece) {
  if (piece.empty()) return stream_.good();
  lineEnded_ = piece.back() == '\n';
  stream_.write(piece.data(), static_cast<std::streamsize>(piece.size()));
  return stream_.good();
}

bool StreamReportSink::Finish() {
  if (!lineEnded_ && !isTable_) Write("\n");
  stream_.flush();
  return stream_.good();
}

}  // namespace korv
