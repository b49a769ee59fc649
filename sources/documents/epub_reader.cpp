#include <utility>

#include "sources/documents/byte_source.h"
#include "sources/documents/epub_package.h"
#include "sources/documents/extracted_document.h"
#include "sources/documents/xhtml_text.h"
#include "sources/documents/xml_walker.h"
#include "sources/documents/zip_path.h"

namespace korv {

namespace {

/// A book that is being read.
class Book {
 public:
  Book(ZipArchive archive, UnpackLimit& limit, ExtractedText& text, Yielder& yielder)
      : archive_(std::move(archive)), limit_(limit), text_(text), yielder_(yielder) {}

  std::optional<DocumentFault> Read() {
    EpubEncryption encryption;
    // Books that hide nothing have no such member.
    if (const auto fault = Walk("META-INF/encryption.xml", encryption); !fault && encryption.HidesText)
      return DocumentFault::Encrypted;
    EpubContainer container;
    if (const auto fault = Walk("META-INF/container.xml", container)) return fault;
    const auto packageName = MemberBeside("", container.Package);
    if (!packageName) return DocumentFault::Damaged;
    EpubPackage package;
    if (const auto fault = Walk(*packageName, package)) return fault;
    const std::vector<std::string> chapters = package.Chapters();
    if (chapters.empty() && !yielder_.Stopped()) return DocumentFault::NoText;
    uint32_t number = 0;
    for (const std::string& chapter : chapters) {
      if (yielder_.Stopped()) break;
      if (const auto fault = ReadChapter(MemberBeside(*packageName, chapter), ++number)) return fault;
    }
    return std::nullopt;
  }

 private:
  std::optional<DocumentFault> ReadChapter(const std::optional<std::string>& member, uint32_t number) {
    if (!member) return DocumentFault::Damaged;
    text_.BeginPlace(number);
    text_.EndPhrases();
    XhtmlText page(text_);
    const auto fault = Walk(*member, page);
    page.Finish();
    return fault;
  }

  std::optional<DocumentFault> Walk(const std::string& name, XmlHandler& handler) {
    Expected<ZipMember, ZipError> member = archive_.Open(name);
    if (!member) return FaultOf(member.Error());
    MemberBytes bytes(std::move(*member), limit_);
    return WalkXml(bytes, handler, yielder_);
  }

  ZipArchive archive_;
  UnpackLimit& limit_;
  ExtractedText& text_;
  Yielder& yielder_;
};

/// E-books: archives with a page of XHTML for each chapter.
class Epub final : public DocumentReader {
 public:
  bool TakesExtension(std::string_view extension) const override { return extension == "epub"; }
  bool TakesBeginning(std::string_view head) const override { return head.starts_with(kZipSignature); }
  Expected<DocumentText, DocumentRefusal> Open(const std::filesystem::path& path, OpenedText opened,
                                               const ReadContext& context) const override {
    return OpenExtracted(path, std::move(opened), PlaceUnit::Chapter,
                         [&](OpenedText file, ExtractedText& text) -> std::optional<DocumentFault> {
                           UnpackLimit limit = LimitFor(path, file.File->Size(), kMostUnpackedBytes, context);
                           Expected<ZipArchive, ZipError> archive = OpenZipArchive(std::move(file.File));
                           if (!archive) return FaultOf(archive.Error());
                           return Book(std::move(*archive), limit, text, context.Yielder).Read();
                         });
  }
};

}  // namespace

const DocumentReader& EpubReader() {
  static const Epub kReader;
  return kReader;
}

}  // namespace korv
