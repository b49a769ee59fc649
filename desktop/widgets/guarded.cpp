#include "desktop/widgets/guarded.h"

#include "report/error_text.h"

namespace korv {

void ShowInsufficientMemory(Messages& messages) {
  messages.Show({.Text = "Insufficient memory", .Title = "Error", .Icon = Icon::Critical});
}

void ShowUnexpectedError(Messages& messages, const char* place, const char* description) {
  messages.Show({.Text = UnexpectedErrorText(place, kErrorUnexpected, description),
                 .Title = "Unexpected error",
                 .Icon = Icon::Critical});
}

}  // namespace korv
