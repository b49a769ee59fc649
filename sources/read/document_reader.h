#pragma once

#include <filesystem>
#include <functional>
#include <memory>
#include <optional>
#include <string>
#include <string_view>

#include "base/expected.h"
#include "base/number_format.h"
#include "base/yielder.h"
#include "engine/corpus/corpus.h"
#include "platform/files.h"
#include "platform/messages.h"
#include "sources/detect/classification.h"
#include "sources/detect/comment_markers.h"
#include "sources/read/text_decoder.h"

namespace korv {

/// What readers of documents work with. All of it outlives the reading.
struct ReadContext {
  FileSystem& Files;
  korv::Messages& Messages;
  korv::Yielder& Yielder;
  bool IsOneOfMany = false;  ///< Of a folder: a large document is read without a question.
  /// Gets a bar of characters while a large document is unpacked; may be empty.
  std::function<void(const std::string&)> ShowProgress;
};

/// The text of a document, ready to be read line by line.
struct DocumentText {
  std::string Head;                      ///< Its beginning, or all of it.
  std::unique_ptr<InputFile> Rest;       ///< What follows; null: nothing.
  TextFacts Facts;                       ///< Of a file that is itself the text.
  std::optional<TextEncoding> Encoding;  ///< Empty: as the user chooses for files with such Facts.
  CommentMarkers Markers;                ///< Of the regions that are no text.
  SourceOrigin Origin;                   ///< Whoever reads the text finds out whether it is UTF-8.
};

/// Why a document cannot be read, for a run of this file alone and for a folder's.
struct DocumentRefusal {
  /// Shown in a run of this file alone. Without text where the user knows already.
  std::function<Message(const NumberFormat&)> MessageAlone;
  /// Shown in a folder run, for the first such document only. Without text nothing is shown.
  Message MessageOnce;
  /// "is zero-length": why a folder run skips the file.
  std::string_view SkipReason;
};

/// Reads the documents of one kind: knows them by their names and beginnings, and gets at their text. Has no
/// state, so that any thread may use it.
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
  /// Gets at the text of a file whose beginning has been read. Shows and asks through `context` what is to be
  /// told or asked while it works; a refusal itself is only returned.
  virtual Expected<DocumentText, DocumentRefusal> Open(const std::filesystem::path& path, OpenedText opened,
                                                       const ReadContext& context) const = 0;
};

}  // namespace korv
