#include <algorithm>
#include <string>
#include <utility>
#include <vector>

#include "sources/documents/extracted_document.h"
#include "sources/documents/pdf_text.h"

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

/// All that the program prints.
Expected<std::string, DocumentFault> TextOf(const std::filesystem::path& path, const ReadContext& context) {
  // The path begins with "/", so that no file is taken for an option.
  auto output = context.Files.OpenOutputOf(
      "pdftotext", {"-enc", "UTF-8", "-eol", "unix", context.Files.AbsolutePath(path), "-"}, context.Yielder);
  if (!output)
    return output.Error().Fault == FileFault::NotFound ? DocumentFault::NoProgram
                                                       : DocumentFault::ProgramFailed;
  std::string text;
  std::vector<char> block(kBlock);
  for (;;) {
    const Expected<size_t, FileError> got = (*output)->Read(block);
    if (!got) return DocumentFault::ProgramFailed;
    if (*got == 0) return text;
    if (text.size() + *got > kMostTextBytes) return DocumentFault::TooLarge;
    text.append(block.data(), *got);
  }
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
                           const Expected<std::string, DocumentFault> pages = TextOf(path, context);
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
