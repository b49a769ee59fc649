#include "sources/detect/comment_markers.h"

#include <algorithm>
#include <span>

#include "platform/files.h"
#include "sources/detect/classification.h"

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

struct Language {
  std::string_view Name;
  std::span<const MarkerPair> Pairs;
};
constexpr Language kLanguages[] = {{"C", kC}, {"XML", kXml}, {"HTML", kHtml}, {"PHP", kPhp}};

}  // namespace

void SetCommentMarkers(CommentMarkers& markers, std::string_view language) {
  markers.Language = "None";
  markers.Markers.fill({});
  markers.intNumCommentMarkers = 0;
  markers.blnCommentsPossible = false;
  for (const Language& known : kLanguages) {
    if (known.Name != language) continue;
    markers.Language = known.Name;
    std::copy(known.Pairs.begin(), known.Pairs.end(), markers.Markers.begin());
    markers.intNumCommentMarkers = static_cast<int>(known.Pairs.size());
    markers.blnCommentsPossible = true;
  }
}

bool SetMarkupLanguageFromExtension(CommentMarkers& markers, std::string_view extension) {
  markers.blnCharacterEntitiesPossible = false;
  std::string_view language = "None";
  if (extension == "php")
    language = "PHP";
  else if (extension == "xml")
    language = "XML";
  else if (extension.find("htm") != std::string_view::npos)
    language = "HTML";
  else if (extension == "cpp" || extension == "c")
    language = "C";
  markers.blnCharacterEntitiesPossible = language == "PHP" || language == "XML" || language == "HTML";
  SetCommentMarkers(markers, language);
  return true;
}

CommentMarkers MarkersOfFile(const std::filesystem::path& path) {
  CommentMarkers markers;
  SetMarkupLanguageFromExtension(markers, FileExtension(PathToText(path), true));
  return markers;
}

}  // namespace korv
