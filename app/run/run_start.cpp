#include "app/run/run_start.h"

#include <utility>

#include "engine/text/unicode.h"
#include "sources/detect/source_checks.h"

namespace korv {

namespace {

std::string PathOfSource(const RunRequest& request) {
  switch (request.Options.SourceKind) {
    case TextSource::Clipboard:
      break;
    case TextSource::SingleFile:
      return TrimmedPath(request.InputPath);
    case TextSource::Folder:
      return TrimmedFolderPath(request.InputPath);
  }
  return {};
}

}  // namespace

WordRules RulesInForce(const RunRequest& request) {
  WordRules rules = request.Rules;
  SetAllowedExtraChars(rules);
  SetAllowedExtraChars2(rules);
  return rules;
}

namespace {

/// Adds the fully folded forms: words of the text come in these.
void FoldEntries(std::vector<std::string>& entries) {
  const size_t count = entries.size();
  for (size_t i = 0; i < count; ++i) {
    std::string folded = entries[i].find('<') == std::string::npos ? FoldCaseFully(entries[i]) : entries[i];
    if (folded != FoldCase(entries[i])) entries.push_back(std::move(folded));
  }
}

}  // namespace

void BeginRun(const RunRequest& request, Yielder& yielder, CountedRun& run) {
  run = CountedRun{};
  WordFilterSpec entries = request.Lists;
  entries.CaseSignificant = request.Rules.CaseSignificant;
  if (request.Rules.FoldCaseFully && !request.Rules.CaseSignificant)
    for (auto* list : {&entries.FileWordsToIgnore, &entries.TypedWordsToIgnore, &entries.CountOnly})
      FoldEntries(*list);
  *run.Lists = WordFilters(entries, yielder);
  run.Chain = request.Chain;
  RunSummary& facts = run.Facts;
  facts.Options = request.Options;
  facts.Options.Stopped = false;
  facts.WordsToIgnoreInUse = run.Lists->HasWordsToIgnore();
  facts.MinCharacters = request.Rules.IgnoreShortWords ? request.Rules.ShortWordSize : 0;
  facts.IncludeSubfolders = request.IncludeSubfolders;
  facts.Paths = request.Paths;
  if (!request.Compared.empty()) facts.SecondSide = SecondSide{.Paths = request.Compared};
  run.Comparison = request.Comparison;
  run.Documents = request.Documents;
  facts.InputPath = request.Paths.empty() ? PathOfSource(request) : std::string();
  run.OutputPath = TrimmedPath(request.OutputPath);
}

}  // namespace korv
