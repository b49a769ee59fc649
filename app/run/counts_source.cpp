#include "app/run/counts_source.h"

#include <memory>
#include <string>

#include "base/translation.h"
#include "sources/read/read_counts.h"

namespace korv {

namespace {

std::string TextOf(const CountsError& error, const NumberFormat& numbers) {
  const std::string line = std::to_string(error.Line);
  const std::string most = numbers.Grouped(kMostFrequency);
  switch (error.Fault) {
    case CountsFault::Unreadable:
      break;
    case CountsFault::LineTooLong:
      return Fill(Tr("Line %1 is no count: it has more than %2 bytes."),
                  {line, numbers.Grouped(kMostCountLine)});
    case CountsFault::MissingCells:
      return Fill(Tr("Line %1 is no count: there must be a phrase, a tab and a frequency, or the columns of "
                     "the heading."),
                  {line});
    case CountsFault::NoFrequency:
      return Fill(Tr("Line %1 is no count: a frequency is a whole number from 1 to %2."), {line, most});
    case CountsFault::NoPhrase:
      return Fill(Tr("Line %1 is no count: a phrase is words in UTF-8 with single blanks between them."),
                  {line});
    case CountsFault::HoldsWordToRemove:
      return Fill(Tr("Line %1 holds a word to ignore, which cannot be taken out of a phrase that has been "
                     "counted."),
                  {line});
    case CountsFault::SumTooLarge:
      return Fill(Tr("Line %1: the frequencies of this phrase add up to more than %2."), {line, most});
  }
  return Fill(Tr("The counts cannot be read: %1"), {error.Description});
}

RunEnd Refuse(const CountsError& error, const RunServices& services) {
  services.Messages.Show(
      {.Text = TextOf(error, services.Numbers), .Title = Tr("Error"), .Icon = Icon::Exclamation});
  return RunEnd::Refused;
}

}  // namespace

RunEnd ReadCountsOf(const RunRequest& request, const RunServices& services, PhraseSums& sums,
                    RunSummary& facts) {
  std::unique_ptr<InputFile> opened;
  InputFile* file = request.Stream;
  if (request.Options.SourceKind != TextSource::Clipboard) {
    auto found = services.Files.OpenForReading(PathFromText(facts.InputPath));
    if (!found) return Refuse({CountsFault::Unreadable, 0, found.Error().Description}, services);
    opened = std::move(*found);
    file = opened.get();
  }
  services.Progress.BytesTotal = file->Size();
  CountsTally tally;
  const auto error = ReadCounts(*file, sums, services.Yielder, tally, [&](uint64_t bytes) {
    services.Progress.BytesRead = bytes;
    services.Progress.Counts = tally.Counts;
  });
  if (error) return Refuse(*error, services);
  facts.Counts = {.Counts = tally.Counts, .OtherLengths = tally.OtherLengths};
  return services.Yielder.Stopped() ? RunEnd::Stopped : RunEnd::Counted;
}

}  // namespace korv
