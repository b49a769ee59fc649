#include "sources/documents/document_fault.h"

#include <string>

#include "base/translation.h"

namespace korv {

std::string_view ReasonOf(DocumentFault fault) {
  switch (fault) {
    case DocumentFault::Damaged:
      return TrLater("is damaged, or not what its name says");
    case DocumentFault::NotWellFormed:
      return TrLater("is damaged: its XML is not well-formed");
    case DocumentFault::TooDeep:
      return TrLater("is nested too deeply");
    case DocumentFault::UnknownEncoding:
      return TrLater("is in an encoding that is not known");
    case DocumentFault::Encrypted:
      return TrLater("is encrypted");
    case DocumentFault::Unsupported:
      return TrLater("is encrypted, or packed in a way that is not known");
    case DocumentFault::BadChecksum:
      return TrLater("has an invalid checksum");
    case DocumentFault::TooLarge:
      return TrLater("is too large");
    case DocumentFault::TooPacked:
      return TrLater("unpacks to more than 200 times its size");
    case DocumentFault::OnlyPictures:
      return TrLater("has no text, perhaps only pictures of its pages");
    case DocumentFault::NoText:
      return TrLater("has no text of the kind that was asked for");
    case DocumentFault::InPacked:
      return TrLater("holds a document that must be unpacked first");
    case DocumentFault::NoProgram:
      return TrLater("is a PDF document, which needs the program pdftotext (Debian package poppler-utils)");
    case DocumentFault::ProgramFailed:
      return TrLater("could not be read by the program pdftotext");
    case DocumentFault::Unreadable:
      return TrLater("cannot be read");
  }
  return {};
}

DocumentRefusal RefusalOf(DocumentFault fault, const std::filesystem::path& path) {
  DocumentRefusal refusal;
  refusal.SkipReason = ReasonOf(fault);
  refusal.MessageAlone = [fault, name = PathToText(path)](const NumberFormat& /*format*/) {
    return Message{.Text = name + "\n" + Tr(std::string(ReasonOf(fault)).c_str()) + ".",
                   .Title = Tr("Error"),
                   .Icon = Icon::Exclamation};
  };
  return refusal;
}

}  // namespace korv
