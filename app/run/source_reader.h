#pragma once

#include <filesystem>
#include <functional>
#include <memory>
#include <optional>
#include <string>
#include <string_view>

#include "app/run/run.h"
#include "engine/corpus/corpus_builder.h"
#include "sources/read/corpus_reader.h"
#include "sources/read/decoded_stream.h"
#include "sources/read/documents_ahead.h"
#include "sources/read/read_plan.h"
#include "sources/read/stream_source.h"

namespace korv {

/// Reads the texts of a run's source into its corpus: asks what there is to ask, makes the plan, has its
/// documents read in order, and tells the observer. One object per run; every way of reading ends soon after
/// a stop, with what has been read until then.
class SourceReader {
 public:
  /// `rules` has its AllowedExtraChars. Everything must outlive the object.
  SourceReader(const RunRequest& request, const WordRules& rules, const RunServices& services,
               CountedRun& run, CorpusBuilder& corpus);

  /// The clipboard's text, or the stream that takes its place. Counted, Refused, or Stopped
  /// before there was any text.
  RunEnd DoItFromClipboard();
  /// A single file, from its checks on. Counted, Refused or Abandoned.
  RunEnd DoItFromFile();
  /// The wanted files of a folder, or those of several files and folders. Counted, Refused, or Stopped while
  /// they were still being counted.
  RunEnd DoItFromFolder();

 private:
  enum class Alone { Yes, No };  ///< Whether a document is all that the run reads.

  RunEnd DoItFromStream();
  std::unique_ptr<StreamSource> MakeStream();
  std::optional<FileError> ReadHeadOf(StreamSource& source);
  TextSummary ReadStream(std::unique_ptr<StreamSource> source);
  bool InputFileIsValid();
  bool ConfirmLargeInput();
  bool FolderIsValid();
  bool MakePlan(ReadPlan& plan);
  bool HasDocuments(const ReadPlan& plan) const;
  void TellSharedFiles(const ReadPlan& plan);
  bool PlanIsAccepted(const ReadPlan& plan);
  Message NothingToScan() const;
  void ReadFolder(const ReadPlan& plan);
  void BeginSecondSide();
  bool SomethingWasRead();
  bool BothSidesHaveWords();
  bool Compares() const { return !request_.Compared.empty(); }
  /// One of several documents; `open` opens it. False when it was not read, after noting why.
  bool ReadOneOfMany(const std::filesystem::path& path, const std::function<OpenedDocument()>& open);
  bool ReadStreamAmongFiles();
  bool ClipboardIsValid() const;
  void ReadClipboardText();
  /// False.
  bool Skip(std::string path, std::string_view reason);
  /// False when it was not read, after telling why.
  bool ReadDocument(const std::filesystem::path& path, OpenedDocument document, Alone alone);
  ReadContext ContextOf(Alone alone) const;
  OpenedDocument Open(const std::filesystem::path& path, Alone alone);
  void ShowSize(std::optional<uint64_t> fileSize);
  bool ReadText(const std::filesystem::path& path, DocumentText text, Alone alone);
  EncodingPlan EncodingOf(const std::filesystem::path& path, const DocumentText& text);
  /// False.
  bool Refuse(const std::filesystem::path& path, const DocumentRefusal& refusal, Alone alone);
  /// Shows a notice, and keeps it for the report.
  void Note(const std::string& text);
  /// Counts how texts were read, for the report.
  /// `encoding`: that of the file where it was decoded by its name.
  void Tally(const TextSummary& summary, const std::string& encoding = {});
  void NoteShortened(const std::filesystem::path& path);
  /// Shows a message about the first failure, and notes the others.
  void KeepExtractedText(const std::filesystem::path& path, std::string_view text);
  bool CommentMarkersAreSafe(const ReadPlan& plan) const;
  bool CommentMarkersAreSafe(MarkupLanguage language) const;
  bool KeepsText() const { return request_.Options.KeepPlaces && request_.KeepText; }

  const RunRequest& request_;
  const WordRules& rules_;
  const RunServices& services_;
  CountedRun& run_;
  CorpusBuilder& corpus_;
  CorpusReader reader_;
  std::unique_ptr<DecodedStream> decoded_;  ///< Of standard input in an encoding that was named.
  size_t secondSide_ = 0;                   ///< The first document of side B in the plan, where there is one.
  WordCounts wordsOfA_;
  bool refusalTold_ = false;
  bool extractionFaultTold_ = false;
};

}  // namespace korv
