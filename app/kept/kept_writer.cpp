#include "app/kept/kept_writer.h"

#include <algorithm>

namespace korv {

KeptWriter::KeptWriter(OutputFile& file, uint64_t length, KeptProgress& progress, Yielder& yielder)
    : file_(file), progress_(progress), yielder_(yielder) {
  progress_.Done = 0;
  progress_.Total = length;
  buffer_ += kKeptMagic;
  Put(kKeptVersion);
  Put(length);
}

void KeptWriter::BeginSection(KeptSection section, uint64_t bytes) {
  buffer_ += NameOf(section);
  Put(bytes);
}

void KeptWriter::PutBytes(std::string_view bytes) {
  while (!bytes.empty() && !error_) {
    const size_t piece = std::min(bytes.size(), kPiece);
    buffer_ += bytes.substr(0, piece);
    bytes.remove_prefix(piece);
    if (buffer_.size() >= kPiece) Flush();
  }
}

std::optional<KeepError> KeptWriter::End() {
  checksum_.Add(buffer_);
  AppendNumber(checksum_.Value(), buffer_);
  Flush();
  return error_;
}

void KeptWriter::Flush() {
  if (!error_) {
    checksum_.Add(buffer_);
    if (const auto refused = file_.Write(buffer_))
      error_ = KeepError{KeepFault::Unwritable, refused->Description};
    progress_.Done = progress_.Done + buffer_.size();
    yielder_.YieldNow();
    if (yielder_.Stopped()) error_ = KeepError{KeepFault::Stopped};
  }
  buffer_.clear();
}

}  // namespace korv
