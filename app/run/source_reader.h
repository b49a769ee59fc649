#pragma once

#include <cstdint>
#include <filesystem>
#include <string>
#include <string_view>

#include "app/run/run.h"
#include "engine/corpus/corpus_builder.h"
#include "sources/detect/classification.h"
#include "sources/detect/comment_markers.h"
#include "sources/read/text_reader.h"

namespace korv {

/// Feeds the texts of a run's source to its stream. One object per run; every way of reading ends soon
/// after a stop, with what has been read until then.
class SourceReader {
 public:
  /// `rules` has its AllowedExtraChars. Everything must outlive the object.
  SourceReader(const RunRequest& request, const WordRules& rules, const RunServices& services,
               CountedRun& run, CorpusBuilder& stream);

  /// The clipboard's text, or the stream that takes its place. Counted, Refused, or Stopped
  /// before there was any text.
  RunEnd DoItFromClipboard();
  /// A single file, from its checks on. Counted, Refused or Abandoned.
  RunEnd DoItFromFile();
  /// The wanted files of a folder. Counted, Refused, or Stopped while they were still being counted.
  RunEnd DoItFromFolder();

 private:
  enum class Kind { Single, OneOfMany };
  /// What is still read after a stop. What came by a stream until then is there to be counted.
  enum class AfterStop { Nothing, WhatIsThere };

  bool Stopped() const { return services_.Yielder.Stopped(); }
  RunEnd DoItFromStream();
  bool ConfirmLargeInput();
  /// False when it was not read, after telling why.
  bool ReadFile(const std::filesystem::path& path, Kind kind);
  bool ReadDocx(const std::filesystem::path& path, OpenedText& opened, Kind kind);
  /// Tells of a document that cannot be read; in a folder only of the first, so that a run that nobody
  /// watches waits once at most. False.
  bool RefuseDocx(const std::filesystem::path& path, int32_t fault, Kind kind);
  bool Refuse(const std::filesystem::path& path, const OpenedText& opened, Kind kind);
  bool Skip(const std::filesystem::path& path, std::string_view reason);
  /// Tells now, and keeps it for the report.
  void Note(const std::string& text);
  /// Returns how many bytes of the text were no mark-up.
  uint64_t FeedLines(TextReader& reader, const CommentMarkers& markers, AfterStop afterStop);
  /// Keeps how a text was read.
  void Tally(const TextReader& reader, SourceOrigin origin);
  EncodingPlan PlanFor(const std::filesystem::path& path, const TextFacts& facts);
  /// Tells of the first failure, and notes the others.
  void KeepExtractedText(const std::filesystem::path& path, std::string_view text);
  bool CommentMarkersAreSafe(const CommentMarkers& markers) const;

  const RunRequest& request_;
  const WordRules& rules_;
  const RunServices& services_;
  CountedRun& run_;
  CorpusBuilder& stream_;
  bool docxFaultTold_ = false;
  bool extractionFaultTold_ = false;
};

}  // namespace korv
