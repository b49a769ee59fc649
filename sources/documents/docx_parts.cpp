#include "sources/documents/docx_parts.h"

#include <set>
#include <string_view>
#include <utility>
#include <vector>

#include "base/line_ends.h"
#include "platform/zip.h"
#include "sources/documents/byte_source.h"
#include "sources/documents/docx_shown_text.h"
#include "sources/documents/zip_path.h"
#include "sources/read/docx_main_part.h"

namespace korv {

namespace {

/// The members that a document's relationships name, by what they are.
class Relationships final : public XmlHandler {
 public:
  void BeginElement(const XmlElement& element, uint64_t /*line*/) override {
    const auto type = element.Attribute("Type");
    const auto target = element.Attribute("Target");
    if (LocalName(element.Name()) != "Relationship" || !type || !target) return;
    if (type->ends_with("/footnotes")) Footnotes.emplace_back(*target);
    if (type->ends_with("/endnotes")) Endnotes.emplace_back(*target);
    if (type->ends_with("/header") || type->ends_with("/footer")) Margins.emplace_back(*target);
    bytes_ += target->size();
  }
  void EndElement(std::string_view /*name*/) override {}
  void Characters(std::string_view /*text*/, uint64_t /*line*/) override {}
  size_t TextBytes() const override { return bytes_; }

  std::vector<std::string> Footnotes;
  std::vector<std::string> Endnotes;
  std::vector<std::string> Margins;

 private:
  size_t bytes_ = 0;
};

/// Reads the parts of one document.
class Parts {
 public:
  Parts(ZipArchive archive, uint64_t packed, Yielder& yielder)
      : archive_(std::move(archive)),
        text_(packed, kMostDocxPartBytes),
        notes_(packed, kMostDocxPartBytes),
        yielder_(yielder) {}

  Expected<std::string, DocumentFault> Read() {
    const std::string main = NameOfMain();
    DocxShownText shown;
    if (const auto fault = Walk(main, shown, text_)) return *fault;
    std::string text = shown.Text();
    Relationships parts;
    // A document without other parts has no such member.
    if (Walk(RelationshipsOf(main), parts, notes_)) return text;
    for (const auto* kind : {&parts.Footnotes, &parts.Endnotes})
      for (const std::string& part : *kind)
        if (const auto fault = AddPart(main, part, text)) return *fault;
    std::string margins;
    for (const std::string& part : parts.Margins)
      if (const auto fault = AddPart(main, part, margins)) return *fault;
    AddDistinctLines(margins, text);
    return text;
  }

 private:
  std::string NameOfMain() {
    constexpr const char* kUsual = "word/document.xml";
    if (archive_.Open(kUsual)) return kUsual;
    Expected<ZipMember, ZipError> member = archive_.Open("_rels/.rels");
    if (!member) return kUsual;
    MemberBytes bytes(std::move(*member), notes_);
    const auto relationships = ReadAll(bytes, kMostRelationshipBytes);
    return relationships ? MainPartOf(*relationships).value_or(kUsual) : kUsual;
  }

  static std::string RelationshipsOf(const std::string& main) {
    const size_t slash = main.rfind('/') + 1;
    return main.substr(0, slash) + "_rels/" + main.substr(slash) + ".rels";
  }

  std::optional<DocumentFault> AddPart(const std::string& main, const std::string& target,
                                       std::string& text) {
    const auto member = MemberBeside(main, target);
    if (!member) return std::nullopt;
    DocxShownText shown;
    const auto fault = Walk(*member, shown, notes_);
    text += shown.Text();
    return fault;
  }

  std::optional<DocumentFault> Walk(const std::string& name, XmlHandler& handler, UnpackLimit& limit) {
    Expected<ZipMember, ZipError> member = archive_.Open(name);
    if (!member) return FaultOf(member.Error());
    MemberBytes bytes(std::move(*member), limit);
    return WalkXml(bytes, handler, yielder_);
  }

  static void AddDistinctLines(std::string_view lines, std::string& text) {
    std::set<std::string_view> met;
    for (size_t begin = 0; begin < lines.size();) {
      const size_t end = lines.find(kCrLf, begin) + kCrLf.size();
      if (met.insert(lines.substr(begin, end - begin)).second) text += lines.substr(begin, end - begin);
      begin = end;
    }
  }

  static constexpr size_t kMostRelationshipBytes = size_t{1} << 20;

  ZipArchive archive_;
  UnpackLimit text_;
  UnpackLimit notes_;
  Yielder& yielder_;
};

}  // namespace

Expected<std::string, DocumentFault> DocxWithNotes(std::unique_ptr<InputFile> archive, Yielder& yielder) {
  const uint64_t packed = archive->Size();
  Expected<ZipArchive, ZipError> opened = OpenZipArchive(std::move(archive));
  if (!opened) return FaultOf(opened.Error());
  return Parts(std::move(*opened), packed, yielder).Read();
}

}  // namespace korv
