#include "desktop/settings_window/rule_tips.h"

#include "app/texts/rule_examples.h"
#include "desktop/settings_window/frm_params_controls.h"
#include "desktop/toolkit/text.h"

namespace korv {
namespace {

struct Tip {
  QCheckBox* FrmParamsControls::*Box;
  RuleExample Example;
};

using C = FrmParamsControls;
using R = WordRules;

constexpr Tip kTips[] = {
    {&C::chkAllowWordsWithAmpersands, {&R::AllowAmpersands, "An ampersand may stand in a word.", "R&D"}},
    {&C::chkAllowWordsWithParentheses, {&R::AllowParentheses, "Parentheses may stand in a word.", "word(s)"}},
    {&C::chkAllowWordsWithCommas, {&R::AllowCommas, "A comma may stand within a word.", "red,green"}},
    {&C::chkAllowWordsWithAtSigns, {&R::AllowAtSigns, "An at-sign may stand in a word.", "me@home"}},
    {&C::chkAllowWordsWithHyphens, {&R::AllowHyphens, "A hyphen may stand within a word.", "stop-loss"}},
    {&C::chkAllowWordsWithPeriods, {&R::AllowPeriods, "A period may stand within a word.", "example.org"}},
    {&C::chkAllowWordsWithForwardslashes,
     {&R::AllowForwardslashes, "A forward slash may stand in a word.", "and/or"}},
    {&C::chkAllowWordsWithBackslashes, {&R::AllowBackslashes, "A backslash may stand in a word.", "in\\out"}},
    {&C::chkAllowWordsWithColons, {&R::AllowColons, "A colon may stand in a word.", "std:sort"}},
    {&C::chkAllowWordsWithUnderscores,
     {&R::AllowUnderscores, "An underscore may stand in a word.", "my_file"}},
    {&C::chkAllowWordsWithNumerals, {&R::AllowNumerals, "Numerals may stand in a word.", "MP3 player"}},
    {&C::chkAllowWordsWithApostrophes,
     {&R::AllowApostrophes,
      "An apostrophe may stand within a word. The endings of Tom's and isn't belong to their word in any "
      "case.",
      "rock'n'roll"}},
    {&C::chkCaseSignificant,
     {&R::CaseSignificant, "Words that differ in upper and lower case are different words.", "May may"}},
    {&C::chkOnly7bitASCII,
     {&R::Only7bitASCII, "Words with any other letter than a to z are not counted.", "cafe caf\xC3\xA9"}},
    {&C::chkIgnoreShortWords,
     {&R::IgnoreShortWords, "Words with fewer characters than the list beside says (here 3) are not counted.",
      "an old man"}},
    {&C::chkIgnoreRepetitions,
     {&R::IgnoreRepetitions, "Words in which a letter stands four times in a row are not counted.",
      "Grrrr said he"}},
    {&C::chkIgnoreNoLetter,
     {&R::IgnoreNoLetter, "Words without any letter are not counted. It matters where numerals are allowed.",
      "3D in 2024"}},
    {&C::chkTerminatePhraseAtDoubleQuote,
     {&R::TerminateAtDoubleQuote, "No phrase goes on after a double quote that ends a quotation.",
      "yes\" he said"}},
    {&C::chkTerminatePhraseAtComma,
     {&R::TerminateAtComma, "No phrase goes on after a comma.", "at last, he said"}},
    {&C::chkTerminatePhraseAtTab,
     {&R::TerminateAtTab, "No phrase goes on after a tab (here \xE2\x87\xA5).", "name\xE2\x87\xA5place"}},
    {&C::chkTerminatePhraseAtPeriod,
     {&R::TerminateAtPeriod, "No phrase goes on after a period.", "at last. He said"}},
    {&C::chkTerminatePhraseAtEndOfLine,
     {&R::TerminateAtEndOfLine, "No phrase goes on from one line (here up to \xC2\xB6) to the next.",
      "at last\xC2\xB6he said"}},
};

}  // namespace

void SetRuleTips(FrmParamsControls& controls) {
  for (const auto& [box, example] : kTips) (controls.*box)->setToolTip(ToQt(RuleTip(example)));
  controls.cboShortWordSize->setToolTip(controls.chkIgnoreShortWords->toolTip());
  controls.cboLongWordSize->setToolTip(QStringLiteral(
      "Words with more characters than this are not counted.\n"
      "Example: internationalization has 20 letters; antidisestablishmentarianism has 28 and is "
      "counted from 30 on."));
  controls.chkPatternMatchingInWordsToIgnoreFile->setToolTip(
      QStringLiteral("In the entries of a words-to-ignore file ~ stands for any characters and ? for one.\n"
                     "Example: ~ing\nchecked: every word that ends with ing is ignored\n"
                     "unchecked: only what is typed below the file list is a pattern"));
}

}  // namespace korv
