#include <algorithm>
#include <array>
#include <memory>
#include <string>
#include <utility>

#include "platform/unpacked_file.h"
#include "sources/documents/byte_source.h"
#include "sources/documents/document_fault.h"
#include "sources/documents/extracted_document.h"
#include "sources/read/document_readers.h"

namespace korv {

namespace {

/// A file whose bytes are counted by a limit while it is read.
class LimitedFile final : public InputFile {
 public:
  LimitedFile(std::unique_ptr<InputFile> file, UnpackLimit limit,
              std::shared_ptr<std::optional<DocumentFault>> fault)
      : file_(std::move(file)), limit_(std::move(limit)), fault_(std::move(fault)) {}

  Expected<size_t, FileError> Read(std::span<char> buffer) override {
    const Expected<size_t, FileError> got = file_->Read(buffer);
    if (!got) *fault_ = DocumentFault::Damaged;
    if (got && !*fault_) *fault_ = limit_.Take(*got);
    if (!*fault_) return got;
    return FileError{FileFault::Other, "It " + std::string(ReasonOf(**fault_)) + "."};
  }
  uint64_t Size() const override { return 0; }

 private:
  std::unique_ptr<InputFile> file_;
  UnpackLimit limit_;
  std::shared_ptr<std::optional<DocumentFault>> fault_;  ///< Stays when it has happened.
};

/// Reads on until so much of a text is in its head, or all of it. False on failure.
bool FillHead(DocumentText& text, size_t most, Yielder& yielder) {
  constexpr size_t kBlock = size_t{256} << 10;
  while (text.Rest && text.Head.size() < most && !yielder.Stopped()) {
    yielder.Yield();
    const size_t before = text.Head.size();
    text.Head.resize(before + kBlock);
    const Expected<size_t, FileError> got = text.Rest->Read({text.Head.data() + before, kBlock});
    text.Head.resize(before + (got ? *got : 0));
    if (!got) return false;
    if (*got == 0) text.Rest.reset();
  }
  return true;
}

/// A single file packed by itself: "words.txt.gz" is read as "words.txt" would be. The first 256 MB of a
/// text are held, so that its contexts can be found; what follows is read as it is unpacked.
class Packed final : public DocumentReader {
 public:
  bool TakesExtension(std::string_view extension) const override {
    static constexpr std::array<std::string_view, 4> kExtensions = {"gz", "bz2", "xz", "zst"};
    return std::ranges::find(kExtensions, extension) != kExtensions.end();
  }
  bool TakesBeginning(std::string_view head) const override {
    using namespace std::string_view_literals;
    return head.starts_with("\x1F\x8B") || head.starts_with("BZh") ||
           head.starts_with(
               "\xFD"
               "7zXZ\0"sv) ||
           head.starts_with("\x28\xB5\x2F\xFD");
  }
  Expected<DocumentText, DocumentRefusal> Open(const std::filesystem::path& path, OpenedText opened,
                                               const ReadContext& context) const override {
    const uint64_t size = opened.File->Size();
    const int64_t modified = opened.File->Modified();
    if (opened.File->SeekTo(0)) return RefusalOf(DocumentFault::Unreadable, path);
    const auto fault = std::make_shared<std::optional<DocumentFault>>();
    auto file = std::make_unique<LimitedFile>(UnpackedFile(std::move(opened.File)),
                                              LimitFor(path, size, kMostUnpackedBytes, context), fault);
    // "a/words.txt" of "a/words.txt.gz".
    std::filesystem::path inner = path;
    inner.replace_extension();
    OpenedText unpacked = OpenTextSource(std::move(file), inner, kRunThreshold);
    if (*fault) return RefusalOf(**fault, path);
    const DocumentReader& reader = ReaderOfFile(inner, unpacked.Head, context.ReadAs, /*others=*/true);
    // These need the file itself, or read it from its end.
    const std::string_view head = unpacked.Head;
    if (&reader == this || head.starts_with(kZipSignature) || head.starts_with("%PDF-"))
      return RefusalOf(DocumentFault::InPacked, path);
    auto text = reader.Open(inner, std::move(unpacked), context);
    if (*fault) return RefusalOf(**fault, path);
    if (!text) return text;
    if (!FillHead(*text, kMostTextBytes, context.Yielder))
      return RefusalOf(fault->value_or(DocumentFault::Unreadable), path);
    text->Origin = {.IsDocument = true, .Size = size, .Modified = modified};
    return text;
  }
};

}  // namespace

const DocumentReader& PackedReader() {
  static const Packed kReader;
  return kReader;
}

}  // namespace korv
