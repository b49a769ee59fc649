#include "app/settings.h"

namespace korv {

void SetDefaultValues(Settings& settings) {
  const Settings fresh;
  settings.Words = fresh.Words;
  settings.ExtractTextFromDocx = fresh.ExtractTextFromDocx;
  settings.WarnOnOverwrite = fresh.WarnOnOverwrite;
  settings.SaveStateOnQuit = fresh.SaveStateOnQuit;
  settings.PatternMatchingInWordsToIgnoreFile = fresh.PatternMatchingInWordsToIgnoreFile;
  settings.SourceKind = fresh.SourceKind;
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
