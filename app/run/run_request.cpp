#include "app/run/run_request.h"

#include "engine/text/word_chars.h"

namespace korv {

FileSelection SelectionOf(const Settings& settings) {
  return {.Patterns = SplitPatterns(settings.FilePatterns),
          .Exclusions = SplitPatterns(settings.ExcludedTexts),
          .OtherDocuments = settings.Documents.Others};
}

WordRules WordRulesOf(const Settings& settings) {
  WordRules rules = settings.Words;
  if (settings.WordsAre == WordRule::Words)
    rules.AllowHyphens = rules.AllowApostrophes = rules.AllowNumerals = true;
  rules.UnicodeWords = settings.WordsAre == WordRule::Unicode;
  if (settings.AnyWordLength) {
    rules.IgnoreShortWords = false;
    rules.LongWordSize = static_cast<int>(kMostWordCharacters);
  }
  // Of the periods these are the ones that end a sentence.
  if (rules.TerminateAtSentence) rules.TerminateAtPeriod = false;
  return rules;
}

RunRequest RunRequestOf(const Settings& settings) {
  RunRequest request;
  request.Options.MinWords = settings.MinWords;
  request.Options.MaxWords = settings.MaxWords;
  request.Options.MinFrequency = settings.MinFrequency;
  request.Options.IgnoreMode = settings.IgnoreOption.value_or(IgnoreRule::Allow);
  request.Options.SourceKind = settings.SourceKind;
  request.Options.MostCharacters = settings.LongPhrases ? kMostLongPhraseCharacters : kMostPhraseCharacters;
  request.Options.Reading = {.ShownMarkup = settings.ShownMarkup,
                             .DeclaredEncodings = settings.DeclaredEncodings,
                             .NotesAndBoxes = settings.NotesAndBoxes,
                             .Encoding = settings.Encoding};
  request.Rules = WordRulesOf(settings);
  request.Chain = ChainOrderOf(settings.Report);
  request.InputPath = settings.SourceKind == TextSource::Folder ? settings.Folder : settings.InputFile;
  if (!settings.DisableOutputToFile) request.OutputPath = settings.OutputFile;
  request.Selection = SelectionOf(settings);
  request.IncludeSubfolders = settings.IncludeSubfolders;
  request.ExtractTextFromDocx = settings.ExtractTextFromDocx;
  request.Documents = settings.Documents;
  return request;
}

RunRequest SingleWordsOf(RunRequest request) {
  request.Options.MinWords = 1;
  request.Options.MaxWords = 1;
  request.OutputPath.clear();
  return request;
}

}  // namespace korv
