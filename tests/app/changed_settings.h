#pragma once

#include "app/settings/settings.h"

namespace korv {

/// Settings in which every field differs from its default.
inline Settings AllChanged() {
  Settings s;
  s.Folder = "/texts";
  s.InputFile = "/texts/a.txt";
  s.OutputFile = "/out/report.txt";
  s.FilePatterns = "*.txt, a*.htm*";
  s.ExcludedTexts = "copy, bak";
  s.ExtraWordsToIgnore = "ibid vide größer";
  s.SourceKind = TextSource::Folder;
  s.IncludeSubfolders = true;
  s.DisableOutputToFile = true;
  WordRules& w = s.Words;
  for (bool WordRules::*flag :
       {&WordRules::AllowHyphens,      &WordRules::AllowApostrophes,  &WordRules::AllowUnderscores,
        &WordRules::AllowColons,       &WordRules::AllowBackslashes,  &WordRules::AllowForwardslashes,
        &WordRules::AllowPeriods,      &WordRules::AllowAtSigns,      &WordRules::AllowNumerals,
        &WordRules::AllowParentheses,  &WordRules::AllowAmpersands,   &WordRules::AllowCommas,
        &WordRules::CaseSignificant,   &WordRules::Only7bitASCII,     &WordRules::IgnoreShortWords,
        &WordRules::IgnoreNoLetter,    &WordRules::IgnoreRepetitions, &WordRules::TerminateAtEndOfLine,
        &WordRules::TerminateAtPeriod, &WordRules::TerminateAtComma,  &WordRules::TerminateAtDoubleQuote,
        &WordRules::TerminateAtTab})
    w.*flag = !(w.*flag);
  w.ShortWordSize = 20;
  w.LongWordSize = 80;
  s.MinWords = 2;
  s.MaxWords = 25;
  s.MinFrequency = 20;
  s.IgnoreOption = IgnoreRule::Remove;
  s.WordsFiles = {"/lists/one.txt", "/lists/two.txt"};
  s.SelectedWordsFile = 1;
  s.CommonWordsLanguage = CommonWords::None;
  s.PatternMatchingInWordsToIgnoreFile = true;
  s.Report.DisplayFormat = 12;
  s.Report.WordOrder = 1;
  s.Report.RelativeFrequency = true;
  s.Report.SortByNumberOfFiles = true;
  s.Report.FilterText = "the cat";
  s.Report.FilterModeOfWords = FilterMode::Subphrase;
  s.Reading = Reading::Reader;
  s.ShownMarkup = s.DeclaredEncodings = s.NotesAndBoxes = s.AnyWordLength = s.LongPhrases = true;
  s.WordsAre = WordRule::Unicode;
  s.Encoding = "KOI8-R";
  w.FoldCaseFully = w.TerminateAtSentence = w.TerminateAtBlock = true;
  w.Segment = Segmentation::Characters;
  s.ExtractTextFromDocx = true;
  s.Documents = {.Others = true, .Segments = "de", .OnlyElements = "p, l", .SkippedElements = "note"};
  s.SaveStateOnQuit = true;
  s.WarnOnOverwrite = true;
  return s;
}

}  // namespace korv
