#include "sources/documents/pdf_words.h"

namespace korv {

void PdfWords::BeginElement(const XmlElement& element, uint64_t /*line*/) {
  if (element.Name() != "word") return;
  inWord_ = true;
  if (!pages_.empty() && pages_.back() != '\n' && pages_.back() != '\f') pages_ += ' ';
}

void PdfWords::EndElement(std::string_view name) {
  if (name == "word") inWord_ = false;
  if (name == "line") pages_ += '\n';
  if (name == "page") pages_ += '\f';
}

void PdfWords::Characters(std::string_view text, uint64_t /*line*/) {
  if (inWord_) pages_ += text;
}

}  // namespace korv
