#include "cli/help_format.h"

#include <algorithm>
#include <string_view>

namespace korv {

namespace {

constexpr size_t kWidth = 80;
constexpr size_t kIndent = 2;
constexpr size_t kTextColumn = 28;

constexpr std::string_view kUsage =
    "Usage:\n"
    "  korv-count [OPTIONS] PATH...   a file, a folder of files, or several together\n"
    "  korv-count [OPTIONS] -         text from standard input, also among files\n"
    "  korv-count --settings FILE [OPTIONS]\n"
    "                                 the source that the settings name\n";

constexpr std::string_view kFooter =
    "\nThe value in parentheses holds where neither an option nor --settings says more.\n"
    "Exit status: 0 a report was made, 1 input or output was refused, 2 wrong usage,\n"
    "3 nothing to list (with --fail-if-empty), 130 stopped.\n"
    "\n"
    "Examples:\n"
    "  korv-count book.txt                       frequent phrases of 4 to 6\n"
    "                                            words\n"
    "  korv-count --words 2-8 -o phrases.csv texts/\n"
    "                                            those of a folder, as a table\n"
    "  korv-count --context-of \"in the end\" book.txt\n"
    "                                            where a phrase stands, line by line\n"
    "The manual page tells more: man korv-count\n";

/// The words of `text` in lines that begin in the text's column; what stands in the first line before it has
/// `used` characters.
std::string Wrapped(std::string_view text, size_t used) {
  std::string lines;
  size_t column = used;
  const auto indent = [&] {
    lines.append(kTextColumn - column, ' ');
    column = kTextColumn;
  };
  if (used + 1 > kTextColumn) {
    lines += '\n';
    column = 0;
  }
  indent();
  for (bool first = true; !text.empty(); first = false) {
    const size_t end = std::min(text.find(' '), text.size());
    const std::string_view word = text.substr(0, end);
    text.remove_prefix(std::min(end + 1, text.size()));
    if (!first && column + 1 + word.size() > kWidth) {
      lines += '\n';
      column = 0;
      indent();
    } else if (!first) {
      lines += ' ';
      ++column;
    }
    lines += word;
    column += word.size();
  }
  return lines + '\n';
}

}  // namespace

std::string HelpFormat::make_help(const CLI::App* app, std::string /*name*/,
                                  CLI::AppFormatMode /*mode*/) const {
  std::string help = app->get_description() + "\n\n" + std::string(kUsage);
  for (const std::string& group : app->get_groups()) {
    const auto options = app->get_options(
        [&](const CLI::Option* option) { return option->get_group() == group && option->nonpositional(); });
    if (!options.empty()) help += make_group(group, false, options);
  }
  return help + std::string(kFooter);
}

std::string HelpFormat::make_option(const CLI::Option* option, bool isPositional) const {
  std::string name = make_option_name(option, isPositional);
  if (const size_t comma = name.find(','); comma != name.npos) name.insert(comma + 1, " ");
  std::string line = std::string(kIndent, ' ') + name;
  if (option->get_type_size() != 0) line += " " + option->get_type_name();
  return line + Wrapped(option->get_description(), line.size());
}

}  // namespace korv
