#include "report/listing_errors.h"

#include <exception>
#include <new>

#include "report/error_text.h"

namespace korv {

void ShowListingError(const ReportOptions& options, Messages& messages, const ProgramText* texts) {
  try {
    throw;
  } catch (const std::bad_alloc&) {
    messages.Show({.text = "Insufficient memory", .title = "Error", .icon = Icon::Exclamation});
  } catch (const std::exception& error) {
    messages.Show({.text = UnexpectedErrorText(NameOfListing(options), kErrorUnexpected, error.what()) +
                           ListingAdvice(texts),
                   .title = "Error",
                   .icon = Icon::Critical});
  }
}

}  // namespace korv
