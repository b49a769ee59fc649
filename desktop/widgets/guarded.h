#pragma once

#include <exception>
#include <new>
#include <utility>

#include "platform/messages.h"

namespace korv {

void ShowInsufficientMemory(Messages& messages);
void ShowUnexpectedError(Messages& messages, const char* place, const char* description);

/// `handler` with its errors shown, not thrown: exceptions must not pass through the toolkit. `place` names
/// the handler in the message and has to outlive the result.
///
///   connect(button, &QPushButton::clicked, this, Guarded(messages, "cmdQuit_Click", [this] { ... }));
template <typename Handler>
auto Guarded(Messages& messages, const char* place, Handler handler) {
  return [&messages, place, handler = std::move(handler)](auto&&...) {
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
