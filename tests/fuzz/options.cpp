// Any command line, an argument a line: options or a status with a reason, the same at a second time, and
// settings that can be saved and read again.
#include <algorithm>
#include <cstdint>
#include <cstdlib>
#include <sstream>
#include <string>
#include <string_view>
#include <variant>
#include <vector>

#include "app/settings/saved_state.h"
#include "cli/options.h"

namespace {

using namespace korv;

void Require(bool holds) {
  if (!holds) std::abort();
}

struct Parsed {
  std::variant<CountOptions, int> Result;
  std::string Out;
  std::string Err;
};

Parsed Parse(const std::vector<std::string>& arguments) {
  std::ostringstream out;
  std::ostringstream err;
  auto result = ParseCountOptions(arguments, out, err);
  return {std::move(result), out.str(), err.str()};
}

std::string Bytes(const CountOptions& options) {
  Settings settings;
  ApplyOptions(options, settings);
  Require(settings.MinWords >= kLeastWords && settings.MinWords <= kMostWords &&
          settings.MaxWords >= kLeastWords && settings.MaxWords <= kMostWords);
  const auto saved = StateBytes(settings);
  if (!saved) return {};  // A text that is too long for the file.
  Settings again;
  Require(ReadStateBytes(*saved, again).Complete());
  const auto savedAgain = StateBytes(again);
  Require(savedAgain && *savedAgain == *saved);
  return *saved;
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const uint8_t* data, size_t size) {
  constexpr size_t kMostBytes = 1024;
  if (size > kMostBytes) return 0;
  std::string_view rest(reinterpret_cast<const char*>(data), size);
  std::vector<std::string> arguments;
  while (!rest.empty()) {
    const size_t end = std::min(rest.find('\n'), rest.size());
    arguments.emplace_back(rest.substr(0, end));
    rest.remove_prefix(std::min(end + 1, rest.size()));
  }
  const Parsed first = Parse(arguments);
  const Parsed second = Parse(arguments);
  Require(first.Out == second.Out && first.Err == second.Err);
  if (const int* status = std::get_if<int>(&first.Result)) {
    Require(*status == std::get<int>(second.Result));
    Require(*status == kExitReport ? !first.Out.empty() && first.Err.empty()
                                   : *status == kExitUsage && !first.Err.empty() && first.Out.empty());
    return 0;
  }
  Require(first.Out.empty() && first.Err.empty());
  const CountOptions& options = std::get<CountOptions>(first.Result);
  Require(options.Command == std::get<CountOptions>(second.Result).Command);
  Require(Bytes(options) == Bytes(std::get<CountOptions>(second.Result)));
  return 0;
}
