#include "desktop/widgets/guarded.h"

#include <utility>

#include "base/translation.h"
#include "report/error_text.h"

namespace korv {

namespace {

// Handlers are called on the thread of the windows.
const char* currentHandler = "Form_Load";

}  // namespace

const char* CurrentHandler() {
  return currentHandler;
}

HandlerScope::HandlerScope(const char* place) : before_(std::exchange(currentHandler, place)) {}

HandlerScope::~HandlerScope() {
  currentHandler = before_;
}

void ShowInsufficientMemory(Messages& messages) {
  messages.Show({.Text = Tr("Insufficient memory"), .Title = Tr("Error"), .Icon = Icon::Critical});
}

void ShowUnexpectedError(Messages& messages, const char* place, const char* description) {
  messages.Show({.Text = UnexpectedErrorText(place, kErrorUnexpected, description),
                 .Title = Tr("Unexpected error"),
                 .Icon = Icon::Critical});
}

}  // namespace korv
