#include "cli/manual/completions.h"

#include <algorithm>
#include <cctype>

#include "report/columns/registry.h"
#include "wordlists/common_words.h"

namespace korv {

namespace {

using Kind = OptionValues::Kind;

std::string Joined(std::span<const std::string> words) {
  std::string joined;
  for (const std::string& word : words) joined += (joined.empty() ? "" : " ") + word;
  return joined;
}

/// A placeholder such as N is in capitals.
bool IsPlaceholder(std::string_view word) {
  return std::ranges::any_of(word, [](unsigned char c) { return std::isupper(c) != 0; });
}

std::vector<std::string> Parts(std::string_view text, char between) {
  std::vector<std::string> parts;
  for (size_t end = 0; end != text.npos; text.remove_prefix(end == text.npos ? 0 : end + 1)) {
    end = text.find(between);
    parts.emplace_back(text.substr(0, end));
  }
  return parts;
}

/// "--output" of "--output,-o", then "-o".
std::vector<std::string> NamesOf(const OptionRow& option) {
  return Parts(option.Name, ',');
}

/// In single quotes of a POSIX shell.
std::string Quoted(std::string_view text) {
  std::string quoted = "'";
  for (const char c : text) quoted += c == '\'' ? std::string("'\\''") : std::string(1, c);
  return quoted + "'";
}

std::vector<std::string> ColumnNames() {
  std::vector<std::string> names;
  for (const Column* column : TableColumns(TableOf::TwoSides)) names.emplace_back(column->Id);
  return names;
}

std::vector<std::string> Languages() {
  std::vector<std::string> names;
  for (const CommonWordsLanguage& language : kCommonWordsLanguages)
    if (!language.Code.empty()) names.emplace_back(language.Code);
  return names;
}

}  // namespace

OptionValues ValuesOf(const OptionRow& option) {
  if (option.ValueName.empty()) return {};
  if (option.ValueName == "FILE") return {Kind::Files, {}};
  if (option.ValueName == "LANGUAGE") return {Kind::Words, Languages()};
  if (option.Name == "--columns") return {Kind::Words, ColumnNames()};
  if (option.Name == "--sort") {
    std::vector<std::string> orders = {"place", "left", "right", "file"};
    std::ranges::copy(ColumnNames(), std::back_inserter(orders));
    return {Kind::Words, orders};
  }
  std::vector<std::string> words = Parts(option.ValueName, '|');
  std::erase_if(words, IsPlaceholder);
  return words.empty() ? OptionValues{Kind::Any, {}} : OptionValues{Kind::Words, words};
}

std::string BashCompletions(std::span<const OptionRow> options) {
  std::string names = "--help --version";
  std::string cases;
  for (const OptionRow& option : options) {
    const std::vector<std::string> all = NamesOf(option);
    for (const std::string& name : all) names += " " + name;
    const OptionValues values = ValuesOf(option);
    if (values.Of == Kind::None) continue;
    for (const std::string& name : all) cases += (name == all.front() ? "    " : "|") + name;
    if (values.Of == Kind::Words)
      cases += ") mapfile -t COMPREPLY < <(compgen -W " + Quoted(Joined(values.Words)) +
               " -- \"$cur\"); return ;;\n";
    else
      cases += values.Of == Kind::Files ? ") mapfile -t COMPREPLY < <(compgen -f -- \"$cur\"); return ;;\n"
                                        : ") return ;;\n";
  }
  return "# Completions of korv-count for bash.\n"
         "_korv_count() {\n"
         "  local cur=${COMP_WORDS[COMP_CWORD]} prev=${COMP_WORDS[COMP_CWORD-1]}\n"
         "  # The sign of --option=VALUE is a word of its own.\n"
         "  if [ \"$cur\" = = ]; then\n"
         "    cur=\n"
         "  elif [ \"$prev\" = = ] && [ \"$COMP_CWORD\" -gt 1 ]; then\n"
         "    prev=${COMP_WORDS[COMP_CWORD-2]}\n"
         "  fi\n"
         "  case $prev in\n" +
         cases +
         "  esac\n"
         "  if [[ $cur == -* ]]; then\n"
         "    mapfile -t COMPREPLY < <(compgen -W " +
         Quoted(names) +
         " -- \"$cur\")\n"
         "  else\n"
         "    mapfile -t COMPREPLY < <(compgen -f -- \"$cur\")\n"
         "  fi\n"
         "}\n"
         "complete -o filenames -F _korv_count korv-count\n";
}

std::string ZshCompletions(std::span<const OptionRow> options) {
  // In the language of _arguments a bracket ends an explanation and a colon a message.
  const auto escaped = [](std::string_view text) {
    std::string plain;
    for (const char c : text) {
      if (c == '[' || c == ']' || c == ':' || c == '\\') plain += '\\';
      plain += c;
    }
    return plain;
  };
  std::string script =
      "#compdef korv-count\n# Completions of korv-count for zsh.\n_arguments -s -S \\\n"
      "  '(- *)'{-h,--help}'[Show this and exit]' \\\n"
      "  '(- *)--version[Show the version and exit]' \\\n";
  for (const OptionRow& option : options) {
    const OptionValues values = ValuesOf(option);
    std::string value;
    if (values.Of != Kind::None) value = ":" + escaped(option.ValueName) + ":";
    if (values.Of == Kind::Files) value += "_files";
    if (values.Of == Kind::Words) value += "(" + Joined(values.Words) + ")";
    for (const std::string& name : NamesOf(option)) {
      const char* const takes = values.Of == Kind::None ? "" : name.starts_with("--") ? "=" : "+";
      script += "  " + Quoted(name + takes + "[" + escaped(option.Help) + "]" + value) + " \\\n";
    }
  }
  return script + "  '*:file or folder:_files'\n";
}

std::string FishCompletions(std::span<const OptionRow> options) {
  // A backslash is the only other sign with a meaning in single quotes.
  const auto quoted = [](std::string_view text) {
    std::string plain = "'";
    for (const char c : text) {
      if (c == '\'' || c == '\\') plain += '\\';
      plain += c;
    }
    return plain + "'";
  };
  std::string script =
      "# Completions of korv-count for fish.\n"
      "complete -c korv-count -s h -l help -d 'Show this and exit'\n"
      "complete -c korv-count -l version -d 'Show the version and exit'\n";
  for (const OptionRow& option : options) {
    script += "complete -c korv-count";
    for (const std::string& name : NamesOf(option))
      script += name.starts_with("--") ? " -l " + name.substr(2) : " -s " + name.substr(1);
    const OptionValues values = ValuesOf(option);
    if (values.Of == Kind::Files) script += " -r -F";
    if (values.Of == Kind::Any) script += " -x";
    if (values.Of == Kind::Words) script += " -x -a " + quoted(Joined(values.Words));
    script += " -d " + quoted(option.Help) + "\n";
  }
  return script;
}

}  // namespace korv
