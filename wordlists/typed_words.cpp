#include "wordlists/typed_words.h"

#include <functional>

#include "base/translation.h"
#include "engine/patterns/list_entry.h"
#include "engine/text/clean_text.h"
#include "engine/text/word_chars.h"
#include "sources/scan/markup.h"

namespace korv {

namespace {

std::string_view Trimmed(std::string_view text) {
  const size_t begin = text.find_first_not_of(' ');
  if (begin == std::string_view::npos) return {};
  return text.substr(begin, text.find_last_not_of(' ') + 1 - begin);
}

/// Calls `take` with the place of every byte that stands outside angle brackets, until it returns false.
void OutsideBrackets(std::string_view text, const std::function<bool(size_t)>& take) {
  bool bracketsPossible = true;
  for (size_t i = 0; i < text.size(); ++i) {
    size_t close = 0;
    if (text[i] == '<' && bracketsPossible) {
      bracketsPossible = OpensBrackets(text, i, close);
      if (bracketsPossible) {
        i = close;
        continue;
      }
    }
    if (!take(i)) return;
  }
}

size_t FindOutsideBrackets(std::string_view text, const std::function<bool(size_t)>& isWanted) {
  size_t found = std::string_view::npos;
  OutsideBrackets(text, [&](size_t at) {
    if (isWanted(at)) found = at;
    return found == std::string_view::npos;
  });
  return found;
}

std::vector<std::string_view> SplitAtCommaAndBlank(std::string_view text) {
  std::vector<std::string_view> pieces;
  size_t begin = 0;
  OutsideBrackets(text, [&](size_t at) {
    if (text[at] == ',' && at + 1 < text.size() && text[at + 1] == ' ') {
      pieces.push_back(text.substr(begin, at - begin));
      begin = at + 2;
    }
    return true;
  });
  pieces.push_back(text.substr(begin));
  return pieces;
}

/// The first character outside angle brackets that is neither one of `passing` nor one that a word may hold.
std::string FirstDisallowed(std::string_view text, std::string_view passing, const WordRules& rules) {
  WordRules current = rules;
  SetAllowedExtraChars(current);
  SetAllowedExtraChars2(current);
  std::string found;
  size_t next = 0;
  WordCharReader reader(current.AllowedExtraChars);
  OutsideBrackets(text, [&](size_t at) {
    if (at < next) return true;  // Inside a character of several bytes.
    if (at > next) reader = WordCharReader(current.AllowedExtraChars);
    next = at;
    const bool passes = passing.find(text[at]) != std::string_view::npos;
    if (!reader.Next(text, next) && !passes) found = text.substr(at, next - at);
    return found.empty();
  });
  return found;
}

/// Blanks the apostrophes that the text's words keep whatever the rules: those of "'s", and of "'t" after a
/// stem such as "didn".
std::string WithoutApostropheEndings(std::string_view entry) {
  std::string plain(entry);
  for (size_t at = plain.find('\''); at != plain.npos; at = plain.find('\'', at + 1)) {
    const size_t end = at + 2;
    if (end > plain.size() || (end < plain.size() && plain[end] != ' ')) continue;
    const size_t begin = plain.rfind(' ', at) + 1;
    const char last = static_cast<char>(plain[at + 1] | 0x20);
    const bool kept =
        last == 's' ||
        (last == 't' && IsNegativeContractionStem(std::string_view(plain).substr(begin, at - begin)));
    if (kept && at > begin) plain[at] = ' ';
  }
  return plain;
}

void Refuse(Messages& messages, std::string text, std::string title) {
  messages.Show({.Text = std::move(text), .Title = std::move(title), .Icon = Icon::Exclamation});
}

}  // namespace

std::string NormaliseTypedText(std::string_view typed) {
  // What comes from a command line need not be well-formed.
  const std::string text = CleanText(typed);
  std::string result = text;
  OutsideBrackets(text, [&](size_t at) {
    if (text[at] == '\t' || text[at] == '\r' || text[at] == '\n') result[at] = ' ';
    return true;
  });
  return result;
}

std::vector<std::string> SplitTypedEntries(ListKind kind, std::string_view typed) {
  const std::string text = NormaliseTypedText(typed);
  std::vector<std::string> entries;
  for (const std::string_view piece :
       kind == ListKind::WordsToIgnore ? SplitOutsideBrackets(text, ' ') : SplitAtCommaAndBlank(text)) {
    const std::string_view entry = Trimmed(piece);
    if (!entry.empty()) entries.emplace_back(entry);
  }
  return entries;
}

std::string CheckForNonAlphaNumeric(std::string_view entry, const WordRules& rules) {
  return FirstDisallowed(WithoutApostropheEndings(entry), " ~?", rules);
}

bool CheckAllowedExtraChars(ListKind kind, std::string_view typed, const WordRules& rules,
                            Messages& messages) {
  const std::string text = NormaliseTypedText(typed);
  // Commas and carets have their own messages.
  const std::string disallowed = FirstDisallowed(text, " ~?,^", rules);
  if (!disallowed.empty()) {
    Refuse(messages,
           Fill(kind == ListKind::WordsToIgnore
                    ? Tr("The character '%1' occurs in some extra word-to-ignore\n"
                         "but is not currently set as a character allowed in a word.")
                    : Tr("The character '%1' occurs in some extra count-only word\n"
                         "but is not currently set as a character allowed in a word."),
                {disallowed}),
           Tr("Character not allowed"));
    return false;
  }
  const bool ignoring = kind == ListKind::WordsToIgnore;
  const size_t comma = FindOutsideBrackets(text, [&](size_t at) {
    return text[at] == ',' && (ignoring || at + 1 == text.size() || text[at + 1] != ' ');
  });
  if (comma != std::string_view::npos) {
    Refuse(messages,
           ignoring ? Tr("Words-to-ignore must be separated by a space, not by a comma.")
                    : Tr("Count-only words and phrases must be separated by comma+space, not just by comma."),
           "Korv");
    return false;
  }
  if (FindOutsideBrackets(text, [&](size_t at) { return text[at] == '^'; }) != std::string_view::npos) {
    messages.Show(
        {.Text = ignoring ? Tr("Perhaps some Word-to-ignore is a regular expression\nwithout angle brackets.")
                          : Tr("Perhaps some count-only word is a regular expression\n"
                               "without angle brackets."),
         .Title = "Korv",
         .Icon = Icon::Information});
    return false;
  }
  return true;
}

}  // namespace korv
