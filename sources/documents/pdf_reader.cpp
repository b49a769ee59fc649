#include <algorithm>
#include <string>
#include <utility>
#include <vector>

#include "sources/documents/extracted_document.h"
#include "sources/documents/pdf_text.h"
#include "sources/documents/pdf_words.h"
#include "sources/documents/xml_walker.h"

namespace korv {

namespace {

constexpr size_t kBlock = size_t{64} << 10;

/// What a document says of itself that a password protects.
bool NamesEncryption(OpenedText& file, Yielder& yielder) {
  constexpr std::string_view kName = "/Encrypt";
  std::string bytes = std::move(file.Head);
  std::vector<char> block(kBlock);
  for (;;) {
    yielder.Yield();
    if (bytes.find(kName) != bytes.npos) return true;
    const Expected<size_t, FileError> got = file.File->Read(block);
    if (!got || *got == 0 || yielder.Stopped()) return false;
    // The name may lie across two blocks.
    bytes.erase(0, bytes.size() - std::min(bytes.size(), kName.size()));
    bytes.append(block.data(), *got);
  }
}

/// What the program prints.
class PrintedBytes final : public ByteSource {
 public:
  explicit PrintedBytes(std::unique_ptr<InputFile> output) : output_(std::move(output)) {}
  Expected<size_t, DocumentFault> Read(std::span<char> buffer) override {
    const Expected<size_t, FileError> got = output_->Read(buffer);
    if (!got) return DocumentFault::ProgramFailed;
    return *got;
  }

 private:
  std::unique_ptr<InputFile> output_;
};

Expected<PrintedBytes, DocumentFault> Start(const std::filesystem::path& path, const ReadContext& context,
                                            bool withPlaces) {
  std::vector<std::filesystem::path> arguments = {"-enc", "UTF-8", "-eol", "unix"};
  if (withPlaces) arguments.emplace_back("-bbox-layout");
  // The path begins with "/", so that no file is taken for an option.
  arguments.push_back(context.Files.AbsolutePath(path));
  arguments.emplace_back("-");
  auto output = context.Files.OpenOutputOf("pdftotext", arguments, context.Yielder);
  if (output) return PrintedBytes(std::move(*output));
  return output.Error().Fault == FileFault::NotFound ? DocumentFault::NoProgram
                                                     : DocumentFault::ProgramFailed;
}

/// The pages as AddPages() takes them. Of its forms of text the program's plain one has all hyphens removed
/// at the ends of lines, those of compounds too; the one with the places of words has every line as it is.
Expected<std::string, DocumentFault> PagesOf(const std::filesystem::path& path, const ReadContext& context) {
  auto words = Start(path, context, /*withPlaces=*/true);
  if (!words) return words.Error();
  PdfWords pages;
  const auto fault = WalkXml(*words, pages, context.Yielder);
  if (!fault) return std::move(pages).Pages();
  if (fault != DocumentFault::NotWellFormed) return *fault;
  // It writes down control characters that some documents hold, with which this is no XML.
  auto plain = Start(path, context, /*withPlaces=*/false);
  if (!plain) return plain.Error();
  return ReadAll(*plain, kMostTextBytes);
}

/// PDF, out of which a program of the user's system takes the text.
class Pdf final : public DocumentReader {
 public:
  bool TakesExtension(std::string_view extension) const override { return extension == "pdf"; }
  bool TakesBeginning(std::string_view head) const override {
    // A few bytes may come before.
    constexpr size_t kLookedAt = 1024;
    return head.substr(0, kLookedAt).find("%PDF-") != head.npos;
  }
  Expected<DocumentText, DocumentRefusal> Open(const std::filesystem::path& path, OpenedText opened,
                                               const ReadContext& context) const override {
    return OpenExtracted(path, std::move(opened), PlaceUnit::Page,
                         [&](OpenedText file, ExtractedText& text) -> std::optional<DocumentFault> {
                           const Expected<std::string, DocumentFault> pages = PagesOf(path, context);
                           if (!pages && pages.Error() == DocumentFault::ProgramFailed &&
                               NamesEncryption(file, context.Yielder))
                             return DocumentFault::Encrypted;
                           if (!pages) return pages.Error();
                           AddPages(*pages, text);
                           const bool isEmpty = text.Size() == 0 && !context.Yielder.Stopped();
                           return isEmpty ? std::optional(DocumentFault::OnlyPictures) : std::nullopt;
                         });
  }
};

}  // namespace

const DocumentReader& PdfReader() {
  static const Pdf kReader;
  return kReader;
}

}  // namespace korv
