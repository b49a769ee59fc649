#include "app/run/rules_text.h"

#include <vector>

#include "app/settings/settings.h"
#include "base/translation.h"

namespace korv {

namespace {

/// "a", "a and b", "a, b and c"
std::string Enumerated(const std::vector<std::string>& things) {
  std::string text;
  for (size_t i = 0; i < things.size(); ++i) {
    if (i == 0)
      text = things[i];
    else
      text = i + 1 == things.size() ? Fill(Tr("%1 and %2"), {text, things[i]}) : text + ", " + things[i];
  }
  return text;
}

struct Flag {
  bool WordRules::*Set;
  const char* Name;
};

std::vector<std::string> NamesOf(const std::vector<Flag>& flags, const WordRules& rules) {
  std::vector<std::string> names;
  for (const Flag& flag : flags)
    if (rules.*flag.Set) names.emplace_back(Tr(flag.Name));
  return names;
}

std::string Sizes(const WordRules& rules) {
  if (rules.LongWordSize > kMostLongWordSize)
    return rules.IgnoreShortWords
               ? Fill(Tr("Words of %1 letters and more"), {std::to_string(rules.ShortWordSize)})
               : Tr("Words of any length");
  const std::string most = std::to_string(rules.LongWordSize);
  if (!rules.IgnoreShortWords) return Fill(Tr("Words of up to %1 letters"), {most});
  return Fill(Tr("Words of %1 to %2 letters"), {std::to_string(rules.ShortWordSize), most});
}

}  // namespace

std::string WordRulesText(const WordRules& rules) {
  const std::vector<std::string> extra = NamesOf({{&WordRules::AllowHyphens, TrLater("hyphens")},
                                                  {&WordRules::AllowApostrophes, TrLater("apostrophes")},
                                                  {&WordRules::AllowUnderscores, TrLater("underscores")},
                                                  {&WordRules::AllowColons, TrLater("colons")},
                                                  {&WordRules::AllowBackslashes, TrLater("backslashes")},
                                                  {&WordRules::AllowForwardslashes, TrLater("slashes")},
                                                  {&WordRules::AllowPeriods, TrLater("periods")},
                                                  {&WordRules::AllowAtSigns, TrLater("at signs")},
                                                  {&WordRules::AllowNumerals, TrLater("numerals")},
                                                  {&WordRules::AllowParentheses, TrLater("parentheses")},
                                                  {&WordRules::AllowAmpersands, TrLater("ampersands")},
                                                  {&WordRules::AllowCommas, TrLater("commas")}},
                                                 rules);
  const std::vector<std::string> ends =
      NamesOf({{&WordRules::TerminateAtEndOfLine, TrLater("line ends")},
               {&WordRules::TerminateAtPeriod, TrLater("periods")},
               {&WordRules::TerminateAtComma, TrLater("commas")},
               {&WordRules::TerminateAtDoubleQuote, TrLater("double quotes")},
               {&WordRules::TerminateAtTab, TrLater("tabs")},
               {&WordRules::TerminateAtSentence, TrLater("sentences, brackets and quotes")},
               {&WordRules::TerminateAtBlock, TrLater("paragraphs")}},
              rules);
  std::string text = Sizes(rules);
  if (rules.UnicodeWords)
    text = Fill(Tr("%1, as Unicode has them"), {text});
  else if (!extra.empty())
    text = Fill(Tr("%1, with %2"), {text, Enumerated(extra)});
  text += std::string("; ") + (rules.CaseSignificant ? Tr("capitals count") : Tr("case ignored"));
  if (rules.Only7bitASCII) text += std::string("; ") + Tr("without accents");
  if (!rules.IgnoreNoLetter) text += std::string("; ") + Tr("also without a letter");
  if (!rules.IgnoreRepetitions) text += std::string("; ") + Tr("also with a letter four times in a row");
  if (rules.Segment != Segmentation::Off) text += std::string("; ") + Tr("also in scripts without blanks");
  return text + "; " +
         (ends.empty() ? Tr("phrases end at no sign") : Fill(Tr("phrases end at %1"), {Enumerated(ends)}));
}

std::string ReadingText(const Settings& settings) {
  std::vector<std::string> seen;
  if (settings.ShownMarkup) seen.emplace_back(Tr("pages as they are shown"));
  if (settings.DeclaredEncodings) seen.emplace_back(Tr("declared encodings"));
  if (settings.NotesAndBoxes) seen.emplace_back(Tr("notes and text boxes"));
  if (settings.LongPhrases) seen.emplace_back(Tr("phrases of up to 1,000 characters"));
  const bool letter = settings.Reading == Reading::Letter;
  if (seen.empty()) return letter ? Tr("Read by the letter") : Tr("Read as a reader sees it");
  return Fill(letter ? Tr("Read by the letter, but with %1") : Tr("Read as a reader sees it: %1"),
              {Enumerated(seen)});
}

std::string PhrasesText(const RunOptions& options) {
  const std::string least = std::to_string(options.MinWords);
  std::string phrases = Tr("Single words");
  if (options.MaxWords != 1)
    phrases = options.MinWords == options.MaxWords
                  ? Fill(Tr("Phrases of %1 words"), {least})
                  : Fill(Tr("Phrases of %1 to %2 words"), {least, std::to_string(options.MaxWords)});
  if (options.MinFrequency == 1) return Fill(Tr("%1 that occur any number of times"), {phrases});
  if (options.MinFrequency == 2) return Fill(Tr("%1 that occur at least twice"), {phrases});
  return Fill(Tr("%1 that occur at least %2 times"), {phrases, std::to_string(options.MinFrequency)});
}

}  // namespace korv
