#include "cli/manual/manual_options.h"

#include <algorithm>
#include <map>

namespace korv {

namespace {

constexpr std::string_view kNoteMark = ".\\\" for ";
constexpr std::string_view kOptionsMark = ".\\\" OPTIONS\n";

/// By the names that they belong to. A note is used up when it is taken.
using Notes = std::map<std::string, std::string, std::less<>>;

Notes SplitNotes(std::string_view text) {
  Notes notes;
  std::string* note = nullptr;
  while (!text.empty()) {
    const size_t end = std::min(text.find('\n'), text.size() - 1) + 1;
    const std::string_view line = text.substr(0, end);
    text.remove_prefix(end);
    if (line.starts_with(kNoteMark))
      note = &notes[std::string(line.substr(kNoteMark.size(), line.find('\n') - kNoteMark.size()))];
    else if (note != nullptr)
      *note += line;
  }
  return notes;
}

std::string Take(Notes& notes, std::string_view name) {
  const auto note = notes.find(name);
  if (note == notes.end()) return {};
  std::string text = std::move(note->second);
  notes.erase(note);
  return text;
}

std::string Replaced(std::string text, std::string_view what, std::string_view with) {
  for (size_t at = text.find(what); at != text.npos; at = text.find(what, at + with.size()))
    text.replace(at, what.size(), with);
  return text;
}

/// An option's name, whose signs are hyphens of the keyboard.
std::string Name(const std::string& name) {
  return Replaced(name, "-", "\\-");
}

/// The line that an option begins with: words to type are bold, names of values italic.
std::string Heading(const OptionRow& option) {
  const size_t comma = option.Name.find(',');
  const std::string name = Name(option.Name.substr(0, comma));
  if (comma != option.Name.npos)
    return ".BR " + Name(option.Name.substr(comma + 1)) + " \", \" " + name + " \" \\fI" + option.ValueName +
           "\\fP\"\n";
  if (option.ValueName.empty()) return ".B " + name + "\n";
  if (option.ValueName.find('|') == option.ValueName.npos)
    return ".BI " + name + " \" " + option.ValueName + "\"\n";
  return ".BR \"" + name + " " + Replaced(option.ValueName, "|", "\" | \"") + "\"\n";
}

/// The line of --help as a sentence.
std::string Sentence(const OptionRow& option) {
  std::string text = Replaced(option.Help, "\\", "\\e") + ".\n";
  if (!option.Range.empty()) text += "From " + option.Range + ".\n";
  return text;
}

}  // namespace

Expected<std::string, ManualFault> ManualOptions(std::span<const OptionRow> options, std::string_view notes) {
  Notes rest = SplitNotes(notes);
  std::string page;
  const OptionRow* before = nullptr;
  for (const OptionRow& option : options) {
    if (before == nullptr || before->Group != option.Group) {
      const std::string title = TitleOf(option.Group);
      page += ".SS " + title + "\n" + Take(rest, title);
    }
    page += ".TP\n" + Heading(option) + Sentence(option) +
            Take(rest, option.Name.substr(0, option.Name.find(',')));
    before = &option;
  }
  if (!rest.empty()) return ManualFault{"There is no option " + rest.begin()->first + "."};
  return page;
}

Expected<std::string, ManualFault> ManualPage(std::string_view page, std::span<const OptionRow> options,
                                              std::string_view notes) {
  const size_t mark = page.find(kOptionsMark);
  if (mark == page.npos) return ManualFault{"The page has no place for the options."};
  Expected<std::string, ManualFault> told = ManualOptions(options, notes);
  if (!told) return told;
  return std::string(page.substr(0, mark)) + *told + std::string(page.substr(mark + kOptionsMark.size()));
}

}  // namespace korv
