#pragma once

#include <CLI/CLI.hpp>
#include <cstddef>
#include <string>
#include <string_view>

namespace korv {

/// The columns of a text that is shown where nobody knows how many there are.
inline constexpr size_t kUsualColumns = 80;

/// The text of --help, in lines of as many characters as a terminal holds.
class HelpFormat final : public CLI::Formatter {
 public:
  /// Of fewer than 40 columns or more than 120 it takes so many; 0 stands for kUsualColumns.
  explicit HelpFormat(size_t columns);

  std::string make_help(const CLI::App* app, std::string name, CLI::AppFormatMode mode) const override;
  std::string make_option(const CLI::Option* option, bool isPositional) const override;

 private:
  /// The text that explains something, beside it from a column on, or below it where it is too long.
  std::string Explained(std::string_view line, std::string_view text, size_t column) const;
  std::string Paragraph(std::string_view text) const { return Explained({}, text, 0); }

  size_t columns_;
};

}  // namespace korv
