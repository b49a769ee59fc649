#pragma once

namespace korv {

/// While it lives, the calling thread is waiting for input, and EndWaitingRead() makes its system call fail
/// with ERROR_OPERATION_ABORTED. One object at a time.
class WaitingRead {
 public:
  WaitingRead();
  ~WaitingRead();
  WaitingRead(const WaitingRead&) = delete;
  WaitingRead& operator=(const WaitingRead&) = delete;
};

/// Ends the read that goes on, if there is one. Called by another thread than the reading one.
void EndWaitingRead();

}  // namespace korv
