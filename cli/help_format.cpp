#include "cli/help_format.h"

#include <algorithm>
#include <array>

#include "base/translation.h"
#include "engine/text/unicode.h"

namespace korv {

namespace {

constexpr size_t kLeastColumns = 40;
constexpr size_t kMostColumns = 120;  // Longer lines are hard to read.
constexpr size_t kIndent = 2;
constexpr size_t kOptionColumn = 28;
constexpr size_t kUsageColumn = 33;
constexpr size_t kExampleColumn = 44;

struct Line {
  const char* Command;
  const char* Text;
};

constexpr std::array kUsage = {
    Line{"korv-count [OPTIONS] PATH...", TrLater("a file, a folder of files, or several together")},
    Line{"korv-count [OPTIONS] -", TrLater("text from standard input, also among files")},
    Line{"korv-count --settings FILE [OPTIONS]", TrLater("the source that the settings name")},
};

constexpr std::array kExamples = {
    Line{"korv-count book.txt", TrLater("frequent phrases of 4 to 6 words")},
    Line{"korv-count --words 2-8 -o phrases.csv texts/", TrLater("those of a folder, as a table")},
    Line{"korv-count --context-of \"in the end\" book.txt", TrLater("where a phrase stands, line by line")},
};

constexpr const char* kDefaults =
    TrLater("The value in parentheses holds where neither an option nor --settings says more.");
constexpr const char* kStatus = TrLater(
    "Exit status: 0 a report was made, 1 input or output was refused, 2 wrong usage, 3 nothing to list (with "
    "--fail-if-empty), 130 stopped.");

}  // namespace

HelpFormat::HelpFormat(size_t columns)
    : columns_(columns == 0 ? kUsualColumns : std::clamp(columns, kLeastColumns, kMostColumns)) {}

std::string HelpFormat::Explained(std::string_view line, std::string_view text, size_t column) const {
  // A narrow terminal has room for little beside the text.
  column = std::min(column, columns_ * kExampleColumn / kUsualColumns);
  std::string lines(line);
  size_t used = CharacterCount(line);
  if (column > 0 && used + 1 > column) {
    lines += '\n';
    used = 0;
  }
  lines.append(column - used, ' ');
  used = column;
  for (bool first = true; !text.empty(); first = false) {
    const size_t end = std::min(text.find(' '), text.size());
    const std::string_view word = text.substr(0, end);
    const size_t characters = CharacterCount(word);
    text.remove_prefix(std::min(end + 1, text.size()));
    if (!first && used + 1 + characters > columns_) {
      lines += '\n' + std::string(column, ' ');
      used = column;
    } else if (!first) {
      lines += ' ';
      ++used;
    }
    lines += word;
    used += characters;
  }
  return lines + '\n';
}

std::string HelpFormat::make_help(const CLI::App* app, std::string /*name*/,
                                  CLI::AppFormatMode /*mode*/) const {
  const std::string indent(kIndent, ' ');
  std::string help = Paragraph(app->get_description()) + "\n" + Tr("Usage:") + "\n";
  for (const Line& line : kUsage) help += Explained(indent + line.Command, Tr(line.Text), kUsageColumn);
  for (const std::string& group : app->get_groups()) {
    const auto options = app->get_options(
        [&](const CLI::Option* option) { return option->get_group() == group && option->nonpositional(); });
    if (!options.empty()) help += make_group(Tr(group.c_str()), false, options);
  }
  help += "\n" + Paragraph(Tr(kDefaults)) + Paragraph(Tr(kStatus)) + "\n" + Tr("Examples:") + "\n";
  for (const Line& line : kExamples) help += Explained(indent + line.Command, Tr(line.Text), kExampleColumn);
  return help + Paragraph(Tr("The manual page tells more: man korv-count"));
}

std::string HelpFormat::make_option(const CLI::Option* option, bool isPositional) const {
  std::string name = make_option_name(option, isPositional);
  if (const size_t comma = name.find(','); comma != name.npos) name.insert(comma + 1, " ");
  std::string line = std::string(kIndent, ' ') + name;
  if (option->get_type_size() != 0) line += " " + option->get_type_name();
  return Explained(line, option->get_description(), kOptionColumn);
}

}  // namespace korv
