#include "app/settings/settings.h"

namespace korv {

void SetDefaultValues(Settings& settings) {
  TakeResettable(settings, Settings{});
}

void TakeResettable(Settings& settings, const Settings& from) {
  settings.Words = from.Words;
  settings.ExtractTextFromDocx = from.ExtractTextFromDocx;
  settings.WarnOnOverwrite = from.WarnOnOverwrite;
  settings.SaveStateOnQuit = from.SaveStateOnQuit;
  settings.PatternMatchingInWordsToIgnoreFile = from.PatternMatchingInWordsToIgnoreFile;
  settings.SourceKind = from.SourceKind;
}

bool SameResettable(const Settings& one, const Settings& other) {
  return one.Words == other.Words && one.ExtractTextFromDocx == other.ExtractTextFromDocx &&
         one.WarnOnOverwrite == other.WarnOnOverwrite && one.SaveStateOnQuit == other.SaveStateOnQuit &&
         one.PatternMatchingInWordsToIgnoreFile == other.PatternMatchingInWordsToIgnoreFile &&
         one.SourceKind == other.SourceKind;
}

RunOptions RunOptionsOf(const Settings& settings) {
  RunOptions options;
  options.MinWords = settings.MinWords;
  options.MaxWords = settings.MaxWords;
  options.MinFrequency = settings.MinFrequency;
  options.IgnoreMode = settings.IgnoreOption.value_or(IgnoreRule::Allow);
  options.SourceKind = settings.SourceKind;
  return options;
}

}  // namespace korv
