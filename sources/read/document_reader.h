#pragma once

#include <filesystem>
#include <functional>
#include <memory>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "base/expected.h"
#include "base/number_format.h"
#include "base/yielder.h"
#include "engine/corpus/corpus.h"
#include "platform/files.h"
#include "platform/messages.h"
#include "sources/detect/classification.h"
#include "sources/detect/comment_markers.h"
#include "sources/read/document_choice.h"
#include "sources/read/text_decoder.h"
#include "sources/read/text_marks.h"

namespace korv {

/// The services that readers of documents use. All outlive the reading.
struct ReadContext {
  FileSystem& Files;
  korv::Messages& Messages;
  korv::Yielder& Yielder;
  bool IsOneOfMany = false;  ///< Of a folder: a large document is read without a question.
  /// Gets a bar of characters while a large document is unpacked; may be empty.
  std::function<void(const std::string&)> ShowProgress;
  std::string_view ReadAs{};  ///< The extension that a text is read by; empty for its own.
  DocumentChoice Documents{};
  ReadingOptions Reading{};

  /// The same for another thread, which shows no progress.
  ReadContext With(korv::Messages& messages, korv::Yielder& yielder) const {
    return {Files, messages, yielder, IsOneOfMany, nullptr, ReadAs, Documents, Reading};
  }
};

/// The text of a document, ready to be read line by line.
struct DocumentText {
  std::string Head;                      ///< Its beginning, or all of it.
  std::unique_ptr<InputFile> Rest;       ///< What follows; null: nothing.
  TextFacts Facts;                       ///< Of a file that is itself the text.
  std::optional<TextEncoding> Encoding;  ///< Empty: as the user chooses for files with such Facts.
  CommentMarkers Markers;                ///< Of the regions that are no text.
  std::string EncodingName;              ///< That of the file, where the reader has decoded it.
  bool LinesAreBlocks = false;           ///< Each line is a paragraph; else blank lines part these.
  SourceOrigin Origin;                   ///< IsUtf8 is set when the text has been read.
  std::vector<TextMark> Marks;           ///< By their offsets in Head, which is then all of the text.
  PlaceUnit Unit = PlaceUnit::Line;      ///< What Marks count; without Marks lines of the text count.
};

/// Why a document cannot be read, in the words of a run of this file alone and of a folder run.
struct DocumentRefusal {
  /// Shown in a run of this file alone. Without text where the user knows already.
  std::function<Message(const NumberFormat&)> MessageAlone;
  /// Shown in a folder run, for the first such document only. Without text nothing is shown.
  Message MessageOnce;
  /// "is zero-length": why a folder run skips the file, in English as SkipReason() says.
  std::string_view SkipReason;
};

/// Reads the documents of one kind: recognises them by name and beginning, and opens their text. Has no
/// state; any number of threads may use one reader at once.
class DocumentReader {
 public:
  DocumentReader() = default;
  DocumentReader(const DocumentReader&) = delete;
  DocumentReader& operator=(const DocumentReader&) = delete;
  virtual ~DocumentReader() = default;

  /// Whether files with that extension, lower-cased and without its dot, are of this kind.
  virtual bool TakesExtension(std::string_view extension) const = 0;
  /// Whether such a file also begins like one. If not it is read as plain text.
  virtual bool TakesBeginning(std::string_view /*head*/) const { return true; }
  /// The regions that are no text in files with that extension.
  virtual CommentMarkers Markers(std::string_view /*extension*/) const { return {}; }
  /// Whether Open() takes about as long as the reading of the text, or longer.
  virtual bool OpeningIsWork() const { return true; }
  /// Makes the text of a file, whose beginning has been read, ready to be read. Messages and questions of the
  /// work itself go through `context`; a refusal is only returned.
  virtual Expected<DocumentText, DocumentRefusal> Open(const std::filesystem::path& path, OpenedText opened,
                                                       const ReadContext& context) const = 0;
};

}  // namespace korv
