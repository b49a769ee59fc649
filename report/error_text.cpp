#include "report/error_text.h"

#include "base/translation.h"

namespace korv {

namespace {
constexpr int kFirstAdviceText = 92;
constexpr int kLastAdviceText = 96;
}  // namespace

int ErrorNumber(FileFault fault) {
  switch (fault) {
    case FileFault::NotFound:
      return kErrorFileNotFound;
    case FileFault::PermissionDenied:
      return kErrorPermissionDenied;
    case FileFault::IsFolder:
    case FileFault::NotAFolder:
      return kErrorPath;
    case FileFault::NoSpace:
      return kErrorDiskFull;
    case FileFault::Other:
      break;
  }
  return kErrorDevice;
}

std::string UnexpectedErrorText(std::string_view place, int number, std::string_view description) {
  return Fill(Tr("At %1 error # %2.\nDescription: %3"), {place, std::to_string(number), description});
}

std::string ListingAdvice(const ProgramText* texts) {
  std::string advice;
  if (texts == nullptr) return advice;
  for (int number = kFirstAdviceText; number <= kLastAdviceText; ++number)
    if (const std::string line = texts->Get(number); !line.empty()) advice += "\n" + line;
  return advice;
}

}  // namespace korv
