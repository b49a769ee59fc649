#include "app/run/run_request.h"

namespace korv {

FileSelection SelectionOf(const Settings& settings) {
  return {.Patterns = SplitPatterns(settings.FilePatterns),
          .Exclusions = SplitPatterns(settings.ExcludedTexts),
          .OtherDocuments = settings.Documents.Others};
}

RunRequest RunRequestOf(const Settings& settings) {
  RunRequest request;
  request.Options.MinWords = settings.MinWords;
  request.Options.MaxWords = settings.MaxWords;
  request.Options.MinFrequency = settings.MinFrequency;
  request.Options.IgnoreMode = settings.IgnoreOption.value_or(IgnoreRule::Allow);
  request.Options.SourceKind = settings.SourceKind;
  request.Rules = settings.Words;
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
