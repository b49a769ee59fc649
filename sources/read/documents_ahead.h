#pragma once

#include <cstddef>
#include <cstdint>
#include <deque>
#include <filesystem>
#include <functional>
#include <memory>
#include <optional>

#include "base/job_team.h"
#include "sources/read/document_reader.h"
#include "sources/read/read_plan.h"

namespace korv {

/// A document as it was opened.
struct OpenedDocument {
  std::optional<uint64_t> FileSize;  ///< In bytes; empty where the file could not be opened.
  Expected<DocumentText, DocumentRefusal> Text;
};

/// Opens a document with the reader that its name and its beginning ask for. `sizeKnown` is told
/// OpenedDocument::FileSize before the rest is done, which may take long.
OpenedDocument OpenDocument(const std::filesystem::path& path, const ReadContext& context,
                            const std::function<void(std::optional<uint64_t>)>& sizeKnown = nullptr);

/// Opens the documents of a plan on several threads before they are wanted: finding a small file takes longer
/// than reading it, and unpacking a document longer than cutting its text.
///
/// Nobody is asked meanwhile: what would show a message is opened again by the thread that wants it, which
/// may. What is open is a few documents for each thread, and of small files some tens.
class DocumentsAhead {
 public:
  /// Whether the plan has enough documents for that.
  static bool IsWorthIt(const ReadPlan& plan, const ReadContext& context);

  /// `context` is that of the thread that wants the documents. All must outlive the object.
  DocumentsAhead(const ReadPlan& plan, const ReadContext& context, size_t threads);
  ~DocumentsAhead();

  /// A document of the plan, one behind those that were taken. Yields while it waits.
  OpenedDocument Take(size_t index);

 private:
  class Batch;
  void OpenMore();

  const ReadPlan& plan_;
  const ReadContext& context_;
  size_t next_ = 0;  ///< The first document that no batch has.
  std::deque<std::unique_ptr<Batch>> batches_;
  JobTeam team_;  ///< Last: its threads use all of the above.
};

}  // namespace korv
