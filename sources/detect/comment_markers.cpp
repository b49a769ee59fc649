#include "sources/detect/comment_markers.h"

#include <algorithm>
#include <span>

namespace korv {
namespace {

constexpr MarkerPair kC[] = {{"/*", "*/"}, {"//", ""}};

constexpr MarkerPair kXml[] = {{"<?xml", "?>"}, {"<!--", "-->"}, {"<", ">"}};

constexpr MarkerPair kHtml[] = {
    {"&", ";"}, {"<script", "/script>"}, {"<style", "/style>"}, {"<noscript", "/noscript>"}, {"<!--", "-->"},
    {"<", ">"}};

// A PHP block ends with the letters of its closing word, wherever they stand next.
constexpr MarkerPair kPhp[] = {{"&", ";"},
                               {"<script", "/script>"},
                               {"<style", "/style>"},
                               {"<noscript", "/noscript>"},
                               {"<!--", "-->"},
                               {"<?php", "php"},
                               {"<", ">"},
                               {"/*", "*/"},
                               {"//", ""}};

std::span<const MarkerPair> PairsOf(MarkupLanguage language) {
  switch (language) {
    case MarkupLanguage::None:
      return {};
    case MarkupLanguage::C:
      return kC;
    case MarkupLanguage::Xml:
      return kXml;
    case MarkupLanguage::Html:
      return kHtml;
    case MarkupLanguage::Php:
      return kPhp;
  }
  return {};
}

MarkupLanguage LanguageOfExtension(std::string_view extension) {
  if (extension == "php") return MarkupLanguage::Php;
  if (extension == "xml") return MarkupLanguage::Xml;
  if (extension.find("htm") != std::string_view::npos) return MarkupLanguage::Html;
  if (extension == "cpp" || extension == "c") return MarkupLanguage::C;
  return MarkupLanguage::None;
}

}  // namespace

void SetCommentMarkers(CommentMarkers& markers, MarkupLanguage language) {
  const std::span<const MarkerPair> pairs = PairsOf(language);
  markers.Language = language;
  markers.Markers.fill({});
  std::copy(pairs.begin(), pairs.end(), markers.Markers.begin());
  markers.intNumCommentMarkers = static_cast<int>(pairs.size());
  markers.blnCommentsPossible = !pairs.empty();
}

bool SetMarkupLanguageFromExtension(CommentMarkers& markers, std::string_view extension) {
  const MarkupLanguage language = LanguageOfExtension(extension);
  markers.blnCharacterEntitiesPossible = IsMarkup(language);
  SetCommentMarkers(markers, language);
  return true;
}

CommentMarkers MarkersOfExtension(std::string_view extension) {
  CommentMarkers markers;
  SetMarkupLanguageFromExtension(markers, extension);
  return markers;
}

}  // namespace korv
