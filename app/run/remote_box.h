#pragma once

#include "base/loop_calls.h"
#include "report/text_output.h"

namespace korv {

/// The output box of a window for a worker, which waits for every text to be taken. Takes nothing any more
/// once waiting is over.
class RemoteBox final : public TextOutput {
 public:
  /// `box` is used on the thread of `calls`; both outlive this. Nobody else clears the box while this is
  /// used.
  RemoteBox(LoopCalls& calls, TextOutput& box) : calls_(calls), box_(box) {}

  bool OutputToTxb(std::string_view text) override;
  void Clear() override;
  bool Full() const override;
  size_t Kept() const override;
  size_t Room() const override;

 private:
  LoopCalls& calls_;
  TextOutput& box_;
  /// A full box takes nothing until it is cleared: there is no need to ask it.
  bool full_ = false;
};

}  // namespace korv
