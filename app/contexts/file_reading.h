#pragma once

#include <memory>
#include <utility>

#include "app/contexts/quiet_messages.h"
#include "app/run/run.h"
#include "base/yielder.h"
#include "sources/places/place_locator.h"

namespace korv {

/// Reads the files of a run again beside a window. Belongs to the jobs of one worker, one after another, so
/// that the next one goes on where the last one was.
class FileReading {
 public:
  explicit FileReading(FileSystem& files) : files_(files) {}

  /// Does `work` with a locator in the texts of the run, stopped as `yielder` is.
  template <typename Work>
  void Do(const std::shared_ptr<const CountedRun>& run, const Yielder& yielder, const Work& work) {
    if (open_ == nullptr || open_->Run != run) open_ = std::make_unique<Open>(run, files_);
    open_->Yielder.Follow(&yielder);
    work(open_->Locator);
    open_->Yielder.Follow(nullptr);
    // A document that was stopped half-way is not to be taken for the whole one.
    if (yielder.Stopped()) Forget();
  }
  /// Lets the run go.
  void Forget() { open_ = nullptr; }

 private:
  class FollowingYielder final : public Yielder {
   public:
    void Follow(const Yielder* other) { other_ = other; }

   protected:
    void HandOver() override {
      if (other_ != nullptr && other_->Stopped()) RequestStop();
    }

   private:
    const Yielder* other_ = nullptr;
  };

  struct Open {
    Open(std::shared_ptr<const CountedRun> run, FileSystem& files)
        : Run(std::move(run)),
          Locator(Run->Table.Corpus(), {files, Messages, Yielder}, Run->KeptText, /*readAs=*/{},
                  Run->Documents) {}

    std::shared_ptr<const CountedRun> Run;
    QuietMessages Messages;
    FollowingYielder Yielder;
    PlaceLocator Locator;
  };

  FileSystem& files_;
  std::unique_ptr<Open> open_;
};

}  // namespace korv
