#pragma once

#include <cstddef>

#include "sources/documents/extracted_text.h"
#include "sources/documents/xml_walker.h"

namespace korv {

/// Takes the text out of a page of XHTML as a reader sees it: elements that stand in a line part no words,
/// those that are blocks end a line, and what a page does not show (its head, scripts, hidden elements) is
/// left out.
class XhtmlText final : public XmlHandler {
 public:
  explicit XhtmlText(ExtractedText& text) : text_(text) {}

  void BeginElement(const XmlElement& element, uint64_t line) override;
  void EndElement(std::string_view name) override;
  void Characters(std::string_view text, uint64_t line) override;
  size_t TextBytes() const override { return text_.Size() + lines_.Text().size(); }
  /// The page is at its end: hands over what is left.
  void Finish();

 private:
  ExtractedText& text_;
  CollapsedText lines_;
  size_t passedOver_ = 0;  ///< Elements open from one on that is passed over.
};

}  // namespace korv
