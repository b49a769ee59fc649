#include "cli/option_values.h"

#include <CLI/CLI.hpp>
#include <algorithm>
#include <charconv>
#include <cmath>

#include "base/translation.h"

namespace korv {

void RefuseValue(const std::string& option, const std::string& why) {
  throw CLI::ValidationError(option, why);
}

std::string Joined(std::span<const std::string> words, const char* between) {
  std::string text;
  for (const std::string& word : words) text += (text.empty() ? "" : between) + word;
  return text;
}

std::string WithoutBlanksAround(const std::string& text) {
  const size_t first = text.find_first_not_of(' ');
  return first == text.npos ? "" : text.substr(first, text.find_last_not_of(' ') - first + 1);
}

int ParseNumber(const std::string& text, const std::string& option) {
  int number = 0;
  const auto [end, error] = std::from_chars(text.data(), text.data() + text.size(), number);
  if (error != std::errc{} || end != text.data() + text.size())
    RefuseValue(option, Fill(Tr("'%1' is no number"), {text}));
  return number;
}

int ParseInRange(const std::string& text, const std::string& option, int least, int most, int step) {
  const int number = ParseNumber(text, option);
  if (number < least || number > most || (number - least) % step != 0)
    RefuseValue(option, Fill(step > 1 ? Tr("%1 is not between %2 and %3 in steps of %4")
                                      : Tr("%1 is not between %2 and %3"),
                             {text, std::to_string(least), std::to_string(most), std::to_string(step)}));
  return number;
}

double ParseReal(const std::string& text, const std::string& option) {
  double number = 0;
  const auto [end, error] = std::from_chars(text.data(), text.data() + text.size(), number);
  if (error != std::errc{} || end != text.data() + text.size() || !std::isfinite(number))
    RefuseValue(option, Fill(Tr("'%1' is no number"), {text}));
  if (number < 0) RefuseValue(option, Fill(Tr("%1 is less than 0"), {text}));
  return number;
}

int ParseChoice(const std::string& text, const std::string& option, std::span<const std::string> words) {
  const auto found = std::ranges::find(words, text);
  if (found == words.end()) RefuseValue(option, Fill(Tr("'%1' is none of: %2"), {text, Joined(words, "|")}));
  return static_cast<int>(found - words.begin());
}

}  // namespace korv
