#pragma once

#include <string>

#include "sources/documents/extracted_text.h"
#include "sources/documents/segment_choice.h"
#include "sources/documents/xml_walker.h"

namespace korv {

/// Takes segments out of a translation memory (TMX). Each unit is a place, and phrases end with each segment.
/// Inline codes are left out. Where the file does not say which language is the source, the first segment of
/// a unit is.
class TmxText final : public XmlHandler {
 public:
  TmxText(ExtractedText& text, SegmentChoice choice) : text_(text), choice_(std::move(choice)) {}

  void BeginElement(const XmlElement& element, uint64_t line) override;
  void EndElement(std::string_view name) override;
  void Characters(std::string_view text, uint64_t line) override;
  size_t TextBytes() const override { return text_.Size() + segment_.Text().size(); }

 private:
  bool IsSource(const std::string& language) const;

  ExtractedText& text_;
  SegmentChoice choice_;
  CollapsedText segment_;
  std::string source_;      ///< Of the file, ...
  std::string unitSource_;  ///< ... of the unit.
  uint32_t unit_ = 0;
  int variants_ = 0;  ///< Met in the unit.
  bool isWanted_ = false;
  bool inSegment_ = false;
  size_t inCode_ = 0;
};

/// The same of XLIFF, 1.2 and 2.0.
class XliffText final : public XmlHandler {
 public:
  XliffText(ExtractedText& text, SegmentChoice choice) : text_(text), choice_(std::move(choice)) {}

  void BeginElement(const XmlElement& element, uint64_t line) override;
  void EndElement(std::string_view name) override;
  void Characters(std::string_view text, uint64_t line) override;
  size_t TextBytes() const override { return text_.Size() + segment_.Text().size(); }

 private:
  ExtractedText& text_;
  SegmentChoice choice_;
  CollapsedText segment_;
  std::string source_;
  std::string target_;
  uint32_t unit_ = 0;
  bool inSegment_ = false;
  size_t inCode_ = 0;      ///< Elements open from an inline code on.
  size_t passedOver_ = 0;  ///< The same of what repeats or explains the segments.
};

}  // namespace korv
