#include "app/kept/kept_facts.h"

#include <limits>

#include "base/utf8.h"

namespace korv {

namespace {

using std::chrono::seconds;
using std::chrono::system_clock;

/// Some two hundred years, in seconds: times between 1970 and then can be told.
constexpr uint64_t kMostSeconds = uint64_t{200} * 365 * 24 * 60 * 60;

void AppendText(std::string_view text, std::string& bytes) {
  AppendBytes(MendedUtf8(text), bytes);
}

template <typename Counts, typename Use>
void ForEachWordCount(Counts& counts, const Use& use) {
  use(counts.Taken);
  for (auto& dropped : counts.DroppedBy) use(dropped);
}

/// The numbers of a summary, in the order of the file.
template <typename Facts, typename Use>
void ForEachNumber(Facts& facts, const Use& use) {
  ForEachWordCount(facts.Words, use);
  use(facts.LongPhrases);
  use(facts.FilesScanned);
  use(facts.FoldersScanned);
  use(facts.Encodings.Ascii);
  use(facts.Encodings.Ansi);
  use(facts.Encodings.Utf8);
  use(facts.Encodings.IllFormed);
}

}  // namespace

void AppendFacts(const FactsToKeep& kept, std::string& bytes) {
  const RunSummary& facts = kept.Run.Facts;
  AppendBool(facts.Options.Stopped, bytes);
  AppendBool(kept.Run.Interrupted, bytes);
  ForEachNumber(facts, [&](uint64_t number) { AppendNumber(number, bytes); });
  AppendNumber(static_cast<uint32_t>(facts.SkippedFiles.size()), bytes);
  for (const SkippedFile& file : facts.SkippedFiles) {
    AppendText(file.Path, bytes);
    AppendText(file.Reason, bytes);
  }
  AppendNumber(static_cast<uint32_t>(facts.Notices.size()), bytes);
  for (const std::string& notice : facts.Notices) AppendText(notice, bytes);
  AppendText(kept.Run.FileKind, bytes);
  AppendNumber(int64_t{kept.Took.count()}, bytes);
  AppendNumber(int64_t{std::chrono::duration_cast<seconds>(kept.Ended.time_since_epoch()).count()}, bytes);
  AppendNumber(kept.Run.Table.PhraseCount(), bytes);
  AppendNumber(kept.Run.Table.Occurrences(), bytes);
  AppendBool(facts.SecondSide.has_value(), bytes);
  if (!facts.SecondSide) return;
  AppendNumber(uint64_t{*kept.Run.Table.Corpus().SecondSide}, bytes);
  ForEachWordCount(facts.SecondSide->Words, [&](uint64_t number) { AppendNumber(number, bytes); });
  AppendNumber(facts.SecondSide->FilesScanned, bytes);
  AppendNumber(facts.SecondSide->SharedFiles, bytes);
}

KeptFacts TakeFacts(KeptReader& reader, CountedRun& run) {
  RunSummary& facts = run.Facts;
  facts.Options.Stopped = reader.TakeBool();
  run.Interrupted = reader.TakeBool();
  ForEachNumber(facts, [&](uint64_t& number) { number = reader.TakeUpTo(kMostKept); });
  for (auto left = reader.Take<uint32_t>(); left > 0 && !reader.Failed(); --left) {
    std::string path = reader.TakeText();
    facts.SkippedFiles.push_back({std::move(path), reader.TakeText()});
  }
  facts.Notices = reader.TakeTexts();
  run.FileKind = reader.TakeText();
  KeptFacts kept;
  kept.Took = seconds(static_cast<int64_t>(reader.TakeUpTo(kMostSeconds)));
  kept.Ended = system_clock::time_point(seconds(static_cast<int64_t>(reader.TakeUpTo(kMostSeconds))));
  kept.PhraseCount = reader.TakeUpTo(kMostKept);
  kept.Occurrences = reader.TakeUpTo(kMostKept);
  if (reader.Version() < 3 || !reader.TakeBool()) return kept;
  kept.SecondSideAt = static_cast<size_t>(reader.TakeUpTo(std::numeric_limits<uint32_t>::max()));
  SecondSide& b = facts.SecondSide.emplace();
  ForEachWordCount(b.Words, [&](uint64_t& number) { number = reader.TakeUpTo(kMostKept); });
  b.FilesScanned = reader.TakeUpTo(kMostKept);
  b.SharedFiles = reader.TakeUpTo(b.FilesScanned);
  return kept;
}

}  // namespace korv
