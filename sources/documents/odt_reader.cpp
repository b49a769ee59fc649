#include <array>
#include <utility>

#include "sources/documents/byte_source.h"
#include "sources/documents/extracted_document.h"
#include "sources/documents/odt_text.h"
#include "sources/documents/xml_walker.h"

namespace korv {

namespace {

/// Looks whether the list of an archive's members says that some are encrypted.
class EncryptionFinder final : public XmlHandler {
 public:
  void BeginElement(const XmlElement& element, uint64_t /*line*/) override {
    Found = Found || LocalName(element.Name()) == "encryption-data";
  }
  void EndElement(std::string_view /*name*/) override {}
  void Characters(std::string_view /*text*/, uint64_t /*line*/) override {}
  size_t TextBytes() const override { return 0; }

  bool Found = false;
};

bool IsEncrypted(ZipArchive& archive, UnpackLimit& limit, Yielder& yielder) {
  Expected<ZipMember, ZipError> member = archive.Open("META-INF/manifest.xml");
  if (!member) return false;
  MemberBytes bytes(std::move(*member), limit);
  EncryptionFinder finder;
  // A list that is damaged tells nothing; the text itself may be good.
  (void)WalkXml(bytes, finder, yielder);
  return finder.Found;
}

std::optional<DocumentFault> Walk(ByteSource& bytes, ExtractedText& text, Yielder& yielder) {
  OdtText odt(text);
  if (const auto fault = WalkXml(bytes, odt, yielder)) return fault;
  return odt.HasBody() || yielder.Stopped() ? std::nullopt : std::optional(DocumentFault::NoText);
}

/// Texts of OpenDocument: archives with the text in a member.
class Odt final : public DocumentReader {
 public:
  bool TakesExtension(std::string_view extension) const override {
    return extension == "odt" || extension == "ott" || extension == "odm";
  }
  bool TakesBeginning(std::string_view head) const override { return head.starts_with(kZipSignature); }
  Expected<DocumentText, DocumentRefusal> Open(const std::filesystem::path& path, OpenedText opened,
                                               const ReadContext& context) const override {
    return OpenExtracted(path, std::move(opened), PlaceUnit::Line,
                         [&](OpenedText file, ExtractedText& text) -> std::optional<DocumentFault> {
                           UnpackLimit limit = LimitFor(path, file.File->Size(), kMostUnpackedBytes, context);
                           Expected<ZipArchive, ZipError> archive = OpenZipArchive(std::move(file.File));
                           if (!archive) return FaultOf(archive.Error());
                           if (IsEncrypted(*archive, limit, context.Yielder)) return DocumentFault::Encrypted;
                           Expected<ZipMember, ZipError> content = archive->Open("content.xml");
                           if (!content) return FaultOf(content.Error());
                           MemberBytes bytes(std::move(*content), limit);
                           return Walk(bytes, text, context.Yielder);
                         });
  }
};

/// The same in a single file.
class FlatOdt final : public DocumentReader {
 public:
  bool TakesExtension(std::string_view extension) const override { return extension == "fodt"; }
  Expected<DocumentText, DocumentRefusal> Open(const std::filesystem::path& path, OpenedText opened,
                                               const ReadContext& context) const override {
    return OpenExtracted(path, std::move(opened), PlaceUnit::Line,
                         [&](OpenedText file, ExtractedText& text) -> std::optional<DocumentFault> {
                           FileBytes bytes(std::move(file));
                           return Walk(bytes, text, context.Yielder);
                         });
  }
};

}  // namespace

const DocumentReader& OdtReader() {
  static const Odt kReader;
  return kReader;
}

const DocumentReader& FlatOdtReader() {
  static const FlatOdt kReader;
  return kReader;
}

}  // namespace korv
