#include "base/newest_job.h"

#include <exception>

namespace korv {

struct NewestJob::Ticket {
  NoYielder Yielder;
  bool Wanted = true;  ///< On the loop's thread.
};

korv::Yielder& NewestJob::Turn::Yielder() {
  return ticket_->Yielder;
}

void NewestJob::Turn::Tell(std::function<void()> task) {
  calls_.Post([ticket = ticket_, task = std::move(task)] {
    if (ticket->Wanted) task();
  });
}

NewestJob::~NewestJob() {
  Stop();
  calls_.Close();
}

void NewestJob::Start(std::function<void(Turn&)> work) {
  Stop();
  current_ = std::make_shared<Ticket>();
  thread_.Post([this, ticket = current_, work = std::move(work)] {
    if (ticket->Yielder.Stopped()) return;
    Turn turn(ticket, calls_);
    std::exception_ptr thrown;
    try {
      work(turn);
    } catch (...) {
      thrown = std::current_exception();
    }
    turn.Tell([this, thrown] {
      current_ = nullptr;
      if (thrown) std::rethrow_exception(thrown);
    });
  });
}

void NewestJob::Stop() {
  if (current_ == nullptr) return;
  current_->Yielder.RequestStop();
  current_->Wanted = false;
  current_ = nullptr;
}

}  // namespace korv
