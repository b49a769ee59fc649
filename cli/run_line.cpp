#include "cli/run_line.h"

#include <array>
#include <vector>

#include "base/translation.h"
#include "engine/run_options.h"

namespace korv {

namespace {

std::string Joined(const std::vector<std::string>& parts, const char* between) {
  std::string text;
  for (const std::string& part : parts) text += (text.empty() ? "" : between) + part;
  return text;
}

class LineWriter {
 public:
  explicit LineWriter(const NumberFormat& numbers) : numbers_(numbers) {}

  std::string Number(uint64_t count) const { return numbers_.Grouped(static_cast<int64_t>(count)); }
  /// `pattern` with a number in place of "%1".
  std::string With(const char* pattern, uint64_t number) const { return Fill(pattern, {Number(number)}); }

  std::string Words(const WordCounts& words, const WordRules& rules) const {
    const uint64_t read = words.Read();
    if (words.Dropped() == 0)
      return With(TrCount("%1 word read, none dropped", "%1 words read, none dropped", read), read);
    const auto shortest = static_cast<uint64_t>(rules.ShortWordSize);
    const auto longest = static_cast<uint64_t>(rules.LongWordSize);
    const std::array<const char*, kDropReasons> reasons = {
        TrCount("%1 shorter than %2 characters", "%1 shorter than %2 characters", shortest),
        TrCount("%1 longer than %2 characters", "%1 longer than %2 characters", longest),
        Tr("%1 without a letter"),
        Tr("%1 with a letter four times in a row"),
        Tr("%1 to be ignored"),
        Tr("%1 not 7-bit"),
    };
    const std::array<uint64_t, kDropReasons> sizes = {shortest, longest};
    std::vector<std::string> parts;
    for (size_t reason = 0; reason < kDropReasons; ++reason)
      if (words.DroppedBy[reason] > 0)
        parts.push_back(Fill(reasons[reason], {Number(words.DroppedBy[reason]), Number(sizes[reason])}));
    return Fill(TrCount("%1 word read, %2 dropped (%3)", "%1 words read, %2 dropped (%3)", read),
                {Number(read), Number(words.Dropped()), Joined(parts, ", ")});
  }

  std::string Counts(const CountsRead& counts) const {
    const uint64_t read = counts.Counts;
    if (counts.OtherLengths == 0) return With(TrCount("%1 count read", "%1 counts read", read), read);
    return Fill(TrCount("%1 count read, %2 of other lengths left out",
                        "%1 counts read, %2 of other lengths left out", read),
                {Number(read), Number(counts.OtherLengths)});
  }

  /// Of one text the encoding, of several how many have which.
  std::string Encodings(const RunSummary& facts, bool folder) const {
    const EncodingCounts& texts = facts.Encodings;
    const auto kind = [&](uint64_t count, const char* name) {
      return folder ? Fill(TrCount("%1 file %2", "%1 files %2", count), {Number(count), name})
                    : std::string(name);
    };
    std::vector<std::string> parts;
    if (texts.Utf8 > 0) parts.push_back(kind(texts.Utf8, "UTF-8"));
    if (texts.Ansi > 0) parts.push_back(kind(texts.Ansi, Tr("ANSI with bytes above 127")));
    for (const auto& [name, count] : facts.OtherEncodings) parts.push_back(kind(count, name.c_str()));
    if (texts.Ascii > 0) parts.push_back(kind(texts.Ascii, "ASCII"));
    if (texts.IllFormed > 0)
      parts.push_back(With(
          TrCount("%1 ill-formed sequence replaced", "%1 ill-formed sequences replaced", texts.IllFormed),
          texts.IllFormed));
    return Joined(parts, ", ");
  }

 private:
  const NumberFormat& numbers_;
};

}  // namespace

std::string RunLine(const RunSummary& facts, const WordRules& rules, const NumberFormat& numbers) {
  const LineWriter writer(numbers);
  std::vector<std::string> parts{facts.Counts ? writer.Counts(*facts.Counts)
                                              : writer.Words(facts.Words, rules)};
  if (facts.LongPhrases > 0)
    parts.push_back(Fill(TrCount("%1 phrase of more than %2 characters not counted",
                                 "%1 phrases of more than %2 characters not counted", facts.LongPhrases),
                         {writer.Number(facts.LongPhrases),
                          writer.Number(static_cast<uint64_t>(facts.Options.MostCharacters))}));
  const std::string encodings = writer.Encodings(facts, facts.Options.SourceKind == TextSource::Folder);
  if (!encodings.empty()) parts.push_back(encodings);
  return Joined(parts, "; ");
}

std::string CoverageLine(const RunSummary& facts, const RunProgress& progress, const NumberFormat& numbers) {
  if (!facts.Options.Stopped) return Tr("Stopped: the report covers the whole text.");
  const LineWriter writer(numbers);
  const uint64_t read = facts.Words.Read();
  const std::string words = writer.With(TrCount("%1 word", "%1 words", read), read);
  if (facts.Options.SourceKind == TextSource::Folder && progress.FilesTotal > 0) {
    const uint64_t total = progress.FilesTotal;
    return Fill(Tr("Stopped: the report covers the first %1, from %2 of %3."),
                {words, writer.Number(facts.FilesScanned),
                 writer.With(TrCount("%1 file", "%1 files", total), total)});
  }
  if (progress.BytesTotal > 0)
    return Fill(Tr("Stopped: the report covers the first %1, %2 % of the text."),
                {words, std::to_string(progress.BytesRead * 100 / progress.BytesTotal)});
  return Fill(Tr("Stopped: the report covers the first %1."), {words});
}

std::string PhraseShareLine(double share, const RunSummary& facts, const NumberFormat& numbers) {
  const int minFrequency = facts.Options.MinFrequency;
  const std::string percent = numbers.Decimals(100 * share, 1);
  if (minFrequency <= 1) return Fill(Tr("%1 % of the words taken stand in phrases"), {percent});
  return Fill(TrCount("%1 % of the words taken stand in phrases that occur at least %2 time",
                      "%1 % of the words taken stand in phrases that occur at least %2 times",
                      static_cast<uint64_t>(minFrequency)),
              {percent, std::to_string(minFrequency)});
}

}  // namespace korv
