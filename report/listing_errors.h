#pragma once

#include "platform/messages.h"
#include "platform/program_text.h"
#include "report/list_words.h"

namespace korv {

/// Shows the exception that is being handled, as an error in the middle of a listing: its name, its
/// description, and lines of advice; or that memory did not suffice. To be called in a handler that catches
/// everything the standard library throws. `texts` may be null: no advice.
void ShowListingError(const ReportOptions& options, Messages& messages, const ProgramText* texts);

}  // namespace korv
