#pragma once

#include <span>
#include <string>

namespace korv {

// The values of options, as typed. What makes no sense is refused: RefuseValue() throws what the parser of
// the command line catches and tells.

[[noreturn]] void RefuseValue(const std::string& option, const std::string& why);

std::string Joined(std::span<const std::string> words, const char* between);
std::string WithoutBlanksAround(const std::string& text);

int ParseNumber(const std::string& text, const std::string& option);
/// A number that is not negative, with a decimal point where it has a fraction.
double ParseReal(const std::string& text, const std::string& option);
/// `least` or a number of steps more, at most `most`.
int ParseInRange(const std::string& text, const std::string& option, int least, int most, int step = 1);
/// The index of `text` among `words`.
int ParseChoice(const std::string& text, const std::string& option, std::span<const std::string> words);

}  // namespace korv
