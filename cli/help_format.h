#pragma once

#include <CLI/CLI.hpp>
#include <string>

namespace korv {

/// The text of --help, in lines of at most 80 characters.
class HelpFormat final : public CLI::Formatter {
 public:
  std::string make_help(const CLI::App* app, std::string name, CLI::AppFormatMode mode) const override;
  std::string make_option(const CLI::Option* option, bool isPositional) const override;
};

}  // namespace korv
