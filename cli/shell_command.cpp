#include "cli/shell_command.h"

#include <algorithm>

namespace korv {

namespace {

bool IsPlain(char c) {
  return (c >= 'a' && c <= 'z') || (c >= 'A' && c <= 'Z') || (c >= '0' && c <= '9') ||
         std::string_view("%+,-./:=@_").find(c) != std::string_view::npos;
}

std::string Quoted(const std::string& argument) {
  if (!argument.empty() && std::ranges::all_of(argument, IsPlain)) return argument;
  std::string quoted = "'";
  for (const char c : argument) quoted += c == '\'' ? std::string("'\\''") : std::string(1, c);
  return quoted + "'";
}

}  // namespace

std::string ShellCommand(std::string_view program, std::span<const std::string> arguments) {
  std::string command(program);
  for (const std::string& argument : arguments) command += ' ' + Quoted(argument);
  return command;
}

}  // namespace korv
