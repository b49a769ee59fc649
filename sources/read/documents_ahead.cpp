#include "sources/read/documents_ahead.h"

#include <string>
#include <utility>
#include <vector>

#include "sources/read/document_readers.h"

namespace korv {

namespace {

/// Small files that are opened one after the other by one thread.
constexpr size_t kMostOfBatch = 16;
/// With fewer documents threads are not worth their begin.
constexpr size_t kLeastDocuments = 32;
/// The same of those that take work to open.
constexpr size_t kLeastWork = 4;

/// Stops when another one does.
class FollowingYielder final : public Yielder {
 public:
  explicit FollowingYielder(const Yielder& leader) : leader_(leader) {}

 protected:
  void HandOver() override {
    if (leader_.Stopped()) RequestStop();
  }

 private:
  const Yielder& leader_;
};

/// Shows nothing, but remembers that there was something to show.
class UnshownMessages final : public Messages {
 public:
  Answer Show(const Message& message) override {
    any_ = true;
    return message.DefaultAnswer;
  }
  std::optional<std::string> AskText(const std::string& /*prompt*/, const std::string& /*title*/,
                                     const std::string& /*initial*/) override {
    any_ = true;
    return std::nullopt;
  }
  bool Any() const { return any_; }

 private:
  bool any_ = false;
};

/// By its name. Of the further kinds of documents only the beginning tells.
bool OpeningIsWork(const PlannedDocument& document, const ReadContext& context) {
  return context.Documents.Others || document.Reader->OpeningIsWork();
}

}  // namespace

OpenedDocument OpenDocument(const std::filesystem::path& path, const ReadContext& context,
                            const std::function<void(std::optional<uint64_t>)>& sizeKnown) {
  OpenedText opened = OpenTextSource(context.Files, path, kRunThreshold);
  const std::optional<uint64_t> size = opened.File ? std::optional(opened.File->Size()) : std::nullopt;
  if (sizeKnown) sizeKnown(size);
  const DocumentReader& reader = ReaderOfFile(path, opened.Head, context.ReadAs, context.Documents.Others);
  return {size, reader.Open(path, std::move(opened), context)};
}

/// Documents that one thread opens. Those that have no path are not opened.
class DocumentsAhead::Batch final : public TeamJob {
 public:
  Batch(const ReadContext& context, size_t first) : context_(context), first_(first) {}

  void Add(std::filesystem::path path) { paths_.push_back(std::move(path)); }
  bool Has(size_t index) const { return index - first_ < paths_.size(); }
  size_t Size() const { return paths_.size(); }
  const std::filesystem::path& Path(size_t index) const { return paths_[index - first_]; }
  /// Empty where it has to be opened by the thread that wants it.
  std::optional<OpenedDocument>& Document(size_t index) { return opened_[index - first_]; }
  bool Waited = false;  ///< It is done.

 protected:
  void Do(size_t /*worker*/) override {
    FollowingYielder yielder(context_.Yielder);
    opened_.resize(paths_.size());
    for (size_t i = 0; i < paths_.size() && !context_.Yielder.Stopped(); ++i) {
      if (paths_[i].empty()) continue;
      UnshownMessages messages;
      OpenedDocument document = OpenDocument(paths_[i], context_.With(messages, yielder));
      if (!messages.Any()) opened_[i] = std::move(document);
    }
  }

 private:
  const ReadContext& context_;
  size_t first_;
  std::vector<std::filesystem::path> paths_;
  std::vector<std::optional<OpenedDocument>> opened_;
};

bool DocumentsAhead::IsWorthIt(const ReadPlan& plan, const ReadContext& context) {
  if (plan.Documents() >= kLeastDocuments) return true;
  size_t work = 0;
  for (size_t i = 0; i < plan.Documents(); ++i) work += OpeningIsWork(plan.Document(i), context);
  return work >= kLeastWork;
}

DocumentsAhead::DocumentsAhead(const ReadPlan& plan, const ReadContext& context, size_t threads)
    : plan_(plan), context_(context), team_(threads) {}

DocumentsAhead::~DocumentsAhead() = default;

/// Adds the next batch: files that open at once, some together, or one that takes work.
void DocumentsAhead::OpenMore() {
  auto batch = std::make_unique<Batch>(context_, next_);
  while (next_ < plan_.Documents() && batch->Size() < kMostOfBatch) {
    const PlannedDocument document = plan_.Document(next_);
    const bool isWork = OpeningIsWork(document, context_);
    if (isWork && batch->Size() > 0) break;
    batch->Add(document.Path);
    ++next_;
    if (isWork) break;
  }
  batches_.push_back(std::move(batch));
  team_.Add(*batches_.back());
}

OpenedDocument DocumentsAhead::Take(size_t index) {
  while (!batches_.empty() && !batches_.front()->Has(index)) {
    if (!batches_.front()->Waited) team_.Wait(*batches_.front(), context_.Yielder);
    batches_.pop_front();
  }
  while (next_ < plan_.Documents() && batches_.size() < 2 * team_.Workers() + 1) OpenMore();
  Batch& batch = *batches_.front();
  if (!batch.Waited) {
    team_.Wait(batch, context_.Yielder);
    batch.Waited = true;
  }
  std::optional<OpenedDocument>& opened = batch.Document(index);
  return opened ? std::move(*opened) : OpenDocument(batch.Path(index), context_);
}

}  // namespace korv
