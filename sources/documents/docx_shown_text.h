#pragma once

#include <cstddef>
#include <string>
#include <string_view>
#include <vector>

#include "sources/documents/xml_walker.h"

namespace korv {

/// Takes the text out of a part of a .docx document as a reader sees it, a line for each paragraph: what was
/// deleted or moved away and what stands there for older programs is left out, a text box stands behind the
/// paragraph that it is fixed to, and the lines between notes are no notes.
class DocxShownText final : public XmlHandler {
 public:
  void BeginElement(const XmlElement& element, uint64_t line) override;
  void EndElement(std::string_view name) override;
  void Characters(std::string_view text, uint64_t line) override;
  size_t TextBytes() const override { return text_.size() + boxes_; }

  /// The lines so far, each with its CR LF.
  const std::string& Text() const { return text_; }

 private:
  /// A paragraph that is open, or the text of a box within one.
  struct Paragraph {
    std::string Text;
    std::string Boxes;  ///< Their lines, to stand behind the paragraph.
    bool Tab = false;   ///< A blank is due before the next run.
  };

  void EndParagraph();
  void Add(std::string_view text);

  std::string text_;
  std::vector<Paragraph> open_;
  size_t boxes_ = 0;       ///< Bytes that wait in paragraphs.
  size_t passedOver_ = 0;  ///< Elements open from one on that is passed over.
  bool inRun_ = false;     ///< In "w:t", the only element with text of the document.
};

}  // namespace korv
