#include "cli/run_line.h"

#include <array>
#include <vector>

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
  std::string Counted(uint64_t count, const char* one, const char* many) const {
    return Number(count) + (count == 1 ? one : many);
  }

  std::string Words(const WordCounts& words, const WordRules& rules) const {
    std::string text = Counted(words.Read(), " word read, ", " words read, ");
    if (words.Dropped() == 0) return text + "none dropped";
    const std::array<std::string, kDropReasons> reasons = {
        " shorter than " + Number(static_cast<uint64_t>(rules.ShortWordSize)) + " characters",
        " longer than " + Number(static_cast<uint64_t>(rules.LongWordSize)) + " characters",
        " without a letter",
        " with a letter four times in a row",
        " to be ignored",
        " not 7-bit",
    };
    std::vector<std::string> parts;
    for (size_t reason = 0; reason < kDropReasons; ++reason)
      if (words.DroppedBy[reason] > 0) parts.push_back(Number(words.DroppedBy[reason]) + reasons[reason]);
    return text + Number(words.Dropped()) + " dropped (" + Joined(parts, ", ") + ")";
  }

  std::string Counts(const CountsRead& counts) const {
    std::string text = Counted(counts.Counts, " count read", " counts read");
    if (counts.OtherLengths > 0) text += ", " + Number(counts.OtherLengths) + " of other lengths left out";
    return text;
  }

  /// Of one text the encoding, of several how many have which.
  std::string Encodings(const EncodingCounts& texts, bool folder) const {
    const auto kind = [&](uint64_t count, const char* name) {
      return folder ? Counted(count, " file ", " files ") + name : std::string(name);
    };
    std::vector<std::string> parts;
    if (texts.Utf8 > 0) parts.push_back(kind(texts.Utf8, "UTF-8"));
    if (texts.Ansi > 0) parts.push_back(kind(texts.Ansi, "ANSI with bytes above 127"));
    if (texts.Ascii > 0) parts.push_back(kind(texts.Ascii, "ASCII"));
    if (texts.IllFormed > 0)
      parts.push_back(
          Counted(texts.IllFormed, " ill-formed sequence replaced", " ill-formed sequences replaced"));
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
    parts.push_back(writer.Counted(facts.LongPhrases, " phrase", " phrases") + " of more than " +
                    std::to_string(kMostPhraseCharacters) + " characters not counted");
  const std::string encodings =
      writer.Encodings(facts.Encodings, facts.Options.SourceKind == TextSource::Folder);
  if (!encodings.empty()) parts.push_back(encodings);
  return Joined(parts, "; ");
}

std::string CoverageLine(const RunSummary& facts, const RunProgress& progress, const NumberFormat& numbers) {
  if (!facts.Options.Stopped) return "Stopped: the report covers the whole text.";
  const LineWriter writer(numbers);
  std::string text =
      "Stopped: the report covers the first " + writer.Counted(facts.Words.Read(), " word", " words");
  if (facts.Options.SourceKind == TextSource::Folder && progress.FilesTotal > 0)
    text += ", from " + writer.Number(facts.FilesScanned) + " of " +
            writer.Counted(progress.FilesTotal, " file", " files");
  else if (progress.BytesTotal > 0)
    text += ", " + std::to_string(progress.BytesRead * 100 / progress.BytesTotal) + " % of the text";
  return text + ".";
}

std::string PhraseShareLine(double share, const RunSummary& facts, const NumberFormat& numbers) {
  const int minFrequency = facts.Options.MinFrequency;
  return numbers.Decimals(100 * share, 1) + " % of the words taken stand in phrases" +
         (minFrequency > 1 ? " that occur at least " + std::to_string(minFrequency) + " times" : "");
}

}  // namespace korv
