#pragma once

#include <memory>
#include <vector>

#include "app/contexts/context_list.h"
#include "app/contexts/file_reading.h"
#include "base/newest_job.h"

namespace korv {

/// Puts contexts into the clipboard, read on a thread of its own.
class ContextsCopier {
 public:
  /// Both outlive this.
  ContextsCopier(EventLoop& loop, FileSystem& files)
      : reading_(std::make_shared<FileReading>(files)), job_(loop) {}

  /// These places of the list, with so many code points on each side, as text and as a table.
  void Copy(std::shared_ptr<const ContextList> list, std::vector<Place> places, size_t around);
  /// Lets the run go whose contexts were copied.
  void Forget();
  bool Idle() const { return job_.Idle(); }

 private:
  std::shared_ptr<FileReading> reading_;  ///< Used on the worker only.
  NewestJob job_;
};

}  // namespace korv
