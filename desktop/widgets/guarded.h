#pragma once

#include <exception>
#include <new>
#include <utility>

#include "platform/messages.h"

namespace korv {

void ShowInsufficientMemory(Messages& messages);
void ShowUnexpectedError(Messages& messages, const char* place, const char* description);

/// The handler that is being called, as Guarded() names it; "Form_Load" where none is.
const char* CurrentHandler();

/// Names the handler for as long as it lives.
class HandlerScope {
 public:
  explicit HandlerScope(const char* place);
  ~HandlerScope();
  HandlerScope(const HandlerScope&) = delete;
  HandlerScope& operator=(const HandlerScope&) = delete;

 private:
  const char* before_;
};

/// `handler` with its errors shown, not thrown: exceptions must not pass through the toolkit. `place` names
/// the handler in the message and has to outlive the result.
///
///   connect(button, &QPushButton::clicked, this, Guarded(messages, "cmdQuit_Click", [this] { ... }));
template <typename Handler>
auto Guarded(Messages& messages, const char* place, Handler handler) {
  return [&messages, place, handler = std::move(handler)](auto&&...) {
    const HandlerScope scope(place);
    try {
      handler();
    } catch (const std::bad_alloc&) {
      ShowInsufficientMemory(messages);
    } catch (const std::exception& error) {
      ShowUnexpectedError(messages, place, error.what());
    }
  };
}

}  // namespace korv
