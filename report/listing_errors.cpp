#include "report/listing_errors.h"

#include <exception>
#include <new>

#include "base/translation.h"
#include "report/error_text.h"

namespace korv {

void ShowListingError(const ReportOptions& options, Messages& messages, const ProgramText* texts) {
  try {
    throw;
  } catch (const std::bad_alloc&) {
    messages.Show({.Text = Tr("Insufficient memory"), .Title = Tr("Error"), .Icon = Icon::Exclamation});
  } catch (const std::exception& error) {
    messages.Show({.Text = UnexpectedErrorText(NameOfListing(options), kErrorUnexpected, error.what()) +
                           ListingAdvice(texts),
                   .Title = Tr("Error"),
                   .Icon = Icon::Critical});
  }
}

}  // namespace korv
