#include "sources/documents/tmx_text.h"

#include <algorithm>
#include <array>
#include <string_view>

namespace korv {

namespace {

/// Elements in a segment that hold codes of the original document.
constexpr std::array<std::string_view, 8> kCodes = {"bpt", "ept", "ph", "it", "ut", "x", "bx", "ex"};
/// What holds segments that are no text of the file.
constexpr std::array<std::string_view, 9> kPassedOver = {
    "alt-trans", "seg-source", "ignorable", "match", "glossary", "originalData", "notes", "note", "header"};

template <size_t N>
bool IsOneOf(const std::array<std::string_view, N>& names, std::string_view name) {
  return std::ranges::find(names, name) != names.end();
}

std::string Value(const XmlElement& element, std::string_view name) {
  return std::string(element.Attribute(name).value_or(""));
}

/// What a file says where any language may be the source.
constexpr std::string_view kAllLanguages = "*all*";

void AddSegment(CollapsedText& segment, uint32_t unit, ExtractedText& text) {
  segment.EndLine();
  text.BeginPlace(unit);
  text.EndPhrases();
  text.Lines(segment.Text());
  segment = CollapsedText();
}

}  // namespace

// ---- TMX

bool TmxText::IsSource(const std::string& language) const {
  const std::string& source = unitSource_.empty() ? source_ : unitSource_;
  if (source.empty() || source == kAllLanguages) return variants_ == 1;
  return IsLanguage(language, source) || IsLanguage(source, language);
}

void TmxText::BeginElement(const XmlElement& element, uint64_t /*line*/) {
  const std::string_view name = LocalName(element.Name());
  if (inSegment_) {
    if (inCode_ > 0 || IsOneOf(kCodes, name)) ++inCode_;
    return;
  }
  if (name == "header") {
    source_ = Value(element, "srclang");
  } else if (name == "tu") {
    ++unit_;
    variants_ = 0;
    unitSource_ = Value(element, "srclang");
  } else if (name == "tuv") {
    ++variants_;
    std::string language = Value(element, "xml:lang");
    if (language.empty()) language = Value(element, "lang");
    isWanted_ = IsSource(language) ? choice_.WantsSource(language) : choice_.WantsTarget(language);
  } else if (name == "seg") {
    inSegment_ = true;
  }
}

void TmxText::EndElement(std::string_view name) {
  if (!inSegment_) return;
  if (inCode_ > 0) {
    --inCode_;
    return;
  }
  if (LocalName(name) != "seg") return;
  inSegment_ = false;
  if (isWanted_) AddSegment(segment_, unit_, text_);
}

void TmxText::Characters(std::string_view text, uint64_t /*line*/) {
  if (inSegment_ && isWanted_ && inCode_ == 0) segment_.Run(text);
}

// ---- XLIFF

void XliffText::BeginElement(const XmlElement& element, uint64_t /*line*/) {
  const std::string_view name = LocalName(element.Name());
  if (passedOver_ > 0 || (!inSegment_ && IsOneOf(kPassedOver, name))) {
    ++passedOver_;
  } else if (inSegment_) {
    if (inCode_ > 0 || IsOneOf(kCodes, name)) ++inCode_;
  } else if (name == "xliff" || name == "file") {
    // The older version names the languages for each file, the newer one for all.
    for (const char* const attribute : {"srcLang", "source-language"})
      if (element.Attribute(attribute)) source_ = Value(element, attribute);
    for (const char* const attribute : {"trgLang", "target-language"})
      if (element.Attribute(attribute)) target_ = Value(element, attribute);
  } else if (name == "trans-unit" || name == "segment") {
    ++unit_;
  } else if (name == "source") {
    inSegment_ = choice_.WantsSource(source_);
  } else if (name == "target") {
    inSegment_ = choice_.WantsTarget(target_);
  }
}

void XliffText::EndElement(std::string_view name) {
  if (passedOver_ > 0) {
    --passedOver_;
    return;
  }
  if (!inSegment_) return;
  if (inCode_ > 0) {
    --inCode_;
    return;
  }
  const std::string_view local = LocalName(name);
  if (local != "source" && local != "target") return;
  inSegment_ = false;
  AddSegment(segment_, unit_, text_);
}

void XliffText::Characters(std::string_view text, uint64_t /*line*/) {
  if (inSegment_ && passedOver_ == 0 && inCode_ == 0) segment_.Run(text);
}

}  // namespace korv
