#pragma once

#include <algorithm>
#include <memory>
#include <string>
#include <string_view>

#include "app/contexts/quiet_messages.h"
#include "app/kept/checksum.h"
#include "app/kept/keep_run.h"
#include "app/kept/kept_choice.h"
#include "app/kept/kept_format.h"
#include "app/kept/open_kept_run.h"
#include "engine/analysis/phrase_fate.h"
#include "report/columns/registry.h"
#include "report/list_words.h"
#include "report/report_rules.h"
#include "report/writers/table_forms.h"
#include "sources/places/place_locator.h"
#include "sources/places/words_around.h"
#include "tests/app/run_world.h"

namespace korv {

/// A file of a kept run whose checksum is that of the rest of it, so that a test gets past the checksum.
inline std::string WithChecksum(std::string bytes) {
  if (bytes.size() < kKeptHeaderBytes + kKeptChecksumBytes) return bytes;
  bytes.resize(bytes.size() - kKeptChecksumBytes);
  Checksum checksum;
  checksum.Add(bytes);
  AppendNumber(checksum.Value(), bytes);
  return bytes;
}

/// A file of which nothing but the length in its beginning is that of the bytes.
inline std::string WithLength(std::string bytes) {
  if (bytes.size() < kKeptHeaderBytes) return bytes;
  std::string length;
  AppendNumber(uint64_t{bytes.size()}, length);
  return bytes.replace(kKeptHeaderBytes - length.size(), length.size(), length);
}

/// All texts that a result is shown as: every report, the table with all of its columns, every occurrence
/// with what stands around it in its file and in the run, and what became of each phrase.
class ShownTexts {
 public:
  ShownTexts(ShownResult& result, FileSystem& files) : result_(result), files_(files) {}

  std::string Reports() {
    std::string text;
    for (int format = 0; format < kDisplayFormats; ++format)
      for (const int order : {0, kAlphabetical})
        text += Report({.DisplayFormat = format, .WordOrder = order}, {});
    text += Report({.DisplayFormat = 12, .SortByNumberOfFiles = true}, {});
    text += Report({.DisplayFormat = 4, .RelativeFrequency = true}, {});
    return text + Report({}, {.File = true, .SkippedFiles = true});
  }

  std::string Table() {
    const auto tsv = std::ranges::find(TableForms(), std::string_view("tsv"), &TableForm::Name);
    const TableOf run = result_.Run.Facts.SecondSide ? TableOf::TwoSides : TableOf::OneSide;
    return Report({}, {.Table = {.Form = &*tsv, .Columns = TableColumns(run)}});
  }

  std::string Places() {
    const Corpus& corpus = result_.Run.Table.Corpus();
    QuietMessages messages;
    NoYielder yielder;
    PlaceLocator locator(corpus, {files_, messages, yielder}, result_.Run.KeptText);
    std::string text;
    for (size_t place = 0; place + kTrailingEnds < corpus.Tokens.size(); ++place) {
      if (corpus.Tokens[place] == kNoWord) continue;
      const Place at{static_cast<uint32_t>(place)};
      const auto found = locator.Locate(at, 1, 20);
      text += std::to_string(corpus.Lines.LineNumber(at)) + ": " + Said(WordsAround(corpus, at, 1, 20)) +
              "; " + (found ? Said(*found) : std::to_string(static_cast<int>(found.Error()))) + "\n";
    }
    return text;
  }

  std::string Fates() {
    const PhraseTable& table = result_.Run.Table;
    std::string text;
    for (const PhraseIndex i : table.All()) {
      PhraseFate fate;
      NoYielder yielder;
      FindPhraseFate(table,
                     std::span(table.Corpus().From(table.First(i)), static_cast<size_t>(table.Words(i))),
                     yielder, fate);
      text += table.Text(i) + ": ";
      for (const FateCause cause : fate.Causes) text += std::to_string(static_cast<int>(cause)) + " ";
      text += std::to_string(fate.Occurrences) + " " + std::to_string(fate.Rank) + " " +
              std::to_string(ValueOf(fate.Within)) + "\n";
    }
    return text;
  }

  std::string All() { return Reports() + Table() + Places() + Fates(); }

 private:
  class Keeper final : public ReportSink {
   public:
    bool Write(std::string_view piece) override {
      Text += piece;
      return true;
    }
    size_t PieceSize() const override { return 1U << 16; }
    std::string Text;
  };

  std::string Report(ReportOptions options, const ReportForm& form) {
    ApplyReportRules(options, result_.Run.Facts.Options.SourceKind);
    NoYielder yielder;
    SetUpChainFor(result_.Run, options, yielder);
    Keeper sink;
    ListWords({result_.Run.Table, result_.Run.Facts, options, numbers_}, form, sink, yielder);
    return sink.Text;
  }

  static std::string Said(const PlaceInText& place) {
    return std::to_string(place.Line) + "," + std::to_string(place.Column) + "," +
           std::to_string(place.Begin) + "-" + std::to_string(place.End) + " " + place.Left + "[" +
           place.Phrase + "]" + place.Right;
  }

  ShownResult& result_;
  FileSystem& files_;
  NumberFormat numbers_;
};

/// Counts under what was chosen in a window, and keeps and opens what comes of it.
struct KeptWorld {
  KeptWorld() {
    World.Encodings = EncodingChooser(EncodingChoice::Utf8);
    World.Files.AddFolder("/kept");
  }

  /// False where the run was refused.
  bool Count(KeptChoice choice) {
    World.Request = RequestOf(choice);
    World.Request.SeveralFilesNeedOutput = false;
    World.Request.ClipboardText = ClipboardText;
    if (World.Count() != RunEnd::Counted) return false;
    Result.Request = World.Request;
    Result.Request.ClipboardText = {};
    Result.Chosen = std::move(choice.Chosen);
    Result.Run = std::move(World.Run);
    Result.Took = std::chrono::seconds(75);
    Result.Ended = std::chrono::system_clock::time_point(std::chrono::seconds(1'800'000'000));
    if (Result.Run.Table.Occurrences() > 0) return true;
    OfferedPhrases offered;
    NoYielder yielder;
    FindOfferedPhrases(Result.Run.Table, yielder, offered);
    Result.Offered = offered;
    return true;
  }

  KeptServices Services() { return {World.Files, World.Yielder, Progress}; }
  Expected<uint64_t, KeepError> Keep() { return KeepRun(ToKeep(Result), kPath, Services()); }
  std::string Kept() const { return World.Files.Content(kPath).value_or(""); }
  std::optional<OpenError> Open() { return OpenKeptRun(kPath, Services(), Opened); }
  std::optional<OpenError> OpenBytes(std::string bytes) {
    World.Files.ChangeUnnoticed(kPath, std::move(bytes));
    return Open();
  }

  static constexpr const char* kPath = "/kept/run.korvrun";
  RunWorld World;
  std::string ClipboardText;
  ShownResult Result;
  ShownResult Opened;
  KeptProgress Progress;
};

}  // namespace korv
