#pragma once

#include <array>
#include <string>
#include <vector>

#include "sources/documents/extracted_text.h"
#include "sources/documents/xml_walker.h"

namespace korv {

/// Takes the text out of an OpenDocument text: each paragraph and heading is a line, and so is what stands
/// between two breaks of the line. Notes and text boxes follow the paragraph that they stand in. Deleted
/// text, comments and formulas are left out.
class OdtText final : public XmlHandler {
 public:
  explicit OdtText(ExtractedText& text) : text_(text) {}

  void BeginElement(const XmlElement& element, uint64_t line) override;
  void EndElement(std::string_view name) override;
  void Characters(std::string_view text, uint64_t line) override;
  size_t TextBytes() const override { return text_.Size() + held_; }
  /// Whether there was a text at all, be it empty: a drawing has none.
  bool HasBody() const { return hasBody_; }

 private:
  void EndParagraph();

  ExtractedText& text_;
  std::vector<CollapsedText> paragraphs_;  ///< Those that are open, each inside of the one before.
  std::vector<std::string> behind_;        ///< What follows the outermost one.
  size_t held_ = 0;                        ///< About the bytes in these.
  size_t bodyDepth_ = 0;                   ///< Elements open from office:text on.
  size_t passedOver_ = 0;                  ///< Elements open from one on that is passed over.
  bool hasBody_ = false;
};

}  // namespace korv
