#pragma once

#include <set>
#include <string>
#include <string_view>

#include "sources/documents/extracted_text.h"
#include "sources/documents/xml_walker.h"
#include "sources/read/document_choice.h"

namespace korv {

/// Takes the text out of an XML file by the names of its elements, TEI above all. Elements that stand in a
/// line part no words; all others part lines. Each line is a place by its number in the file.
class ElementText final : public XmlHandler {
 public:
  ElementText(ExtractedText& text, const DocumentChoice& choice);

  void BeginElement(const XmlElement& element, uint64_t line) override;
  void EndElement(std::string_view name) override;
  void Characters(std::string_view text, uint64_t line) override;
  size_t TextBytes() const override { return text_.Size() + line_.Text().size(); }

 private:
  using Names = std::set<std::string, std::less<>>;

  static Names NamesIn(std::string_view list);
  void EndLine();

  ExtractedText& text_;
  Names only_;
  Names skipped_;
  CollapsedText line_;
  uint32_t lineNumber_ = 0;  ///< Of the file, at the begin of line_.
  size_t depth_ = 0;
  size_t inOnly_ = 0;     ///< Elements open from a wanted one on.
  size_t inSkipped_ = 0;  ///< And from one that is skipped.
};

}  // namespace korv
