#include "engine/text/word_rules.h"

namespace korv {

void SetAllowedExtraChars(WordRules& rules) {
  std::string& extra = rules.AllowedExtraChars;
  extra.clear();
  if (rules.AllowHyphens) extra += '-';
  if (rules.AllowApostrophes) extra += '\'';
  if (rules.AllowUnderscores) extra += '_';
  if (rules.AllowColons) extra += ':';
  if (rules.AllowBackslashes) extra += '\\';
  if (rules.AllowForwardslashes) extra += '/';
  if (rules.AllowPeriods) extra += '.';
  if (rules.AllowAtSigns) extra += '@';
  if (rules.AllowNumerals) extra += "0123456789";
}

void SetAllowedExtraChars2(WordRules& rules) {
  std::string& extra = rules.AllowedExtraChars;
  if (rules.AllowParentheses) extra += "()";
  if (rules.AllowAmpersands) extra += '&';
  if (rules.AllowCommas) extra += ',';
  // What may stand within words by Unicode's rules; where it does is found out for each word.
  if (rules.UnicodeWords) extra = "'.,:;_0123456789";
}

}  // namespace korv
