#pragma once

#include <string>
#include <utility>

#include "sources/documents/xml_walker.h"

namespace korv {

/// Makes pages as AddPages() takes them of what pdftotext prints with the places of words: an element for
/// each page, line and word.
class PdfWords final : public XmlHandler {
 public:
  void BeginElement(const XmlElement& element, uint64_t line) override;
  void EndElement(std::string_view name) override;
  void Characters(std::string_view text, uint64_t line) override;
  size_t TextBytes() const override { return pages_.size(); }

  std::string Pages() && { return std::move(pages_); }

 private:
  std::string pages_;
  bool inWord_ = false;
};

}  // namespace korv
