#include "sources/detect/comment_markers.h"

#include <gtest/gtest.h>

#include <string>
#include <string_view>

namespace korv {
namespace {

std::string Described(const CommentMarkers& markers) {
  std::string pairs;
  for (int k = 0; k < markers.intNumCommentMarkers; ++k) {
    const MarkerPair& pair = markers.Markers[static_cast<size_t>(k)];
    pairs += std::string(pair.Start) + ' ' + std::string(pair.End) + ',';
  }
  return pairs;
}

TEST(SetCommentMarkers, FillsTheTableByLanguage) {
  struct Row {
    std::string_view Language;
    std::string_view Pairs;
    int Count;
  };
  constexpr Row kTable[] = {
      {"C", "/* */,// ,", 2},
      {"XML", "<?xml ?>,<!-- -->,< >,", 3},
      {"HTML", "& ;,<script /script>,<style /style>,<noscript /noscript>,<!-- -->,< >,", 6},
      {"PHP", "& ;,<script /script>,<style /style>,<noscript /noscript>,<!-- -->,<?php php,< >,/* */,// ,",
       9},
      {"None", "", 0},
      {"", "", 0},
      {"html", "", 0},
      {"Perl", "", 0},
  };
  for (const Row& row : kTable) {
    CommentMarkers markers;
    SetCommentMarkers(markers, "PHP");  // What was there before must go.
    SetCommentMarkers(markers, row.Language);
    EXPECT_EQ(Described(markers), row.Pairs);
    EXPECT_EQ(markers.intNumCommentMarkers, row.Count);
    EXPECT_EQ(markers.blnCommentsPossible, row.Count > 0);
    for (size_t k = static_cast<size_t>(row.Count); k < markers.Markers.size(); ++k) {
      EXPECT_TRUE(markers.Markers[k].Start.empty());
    }
  }
}

TEST(SetCommentMarkers, LeavesTheEntitiesAsTheyWere) {
  CommentMarkers markers;
  SetCommentMarkers(markers, "HTML");
  EXPECT_FALSE(markers.blnCharacterEntitiesPossible);
}

TEST(SetMarkupLanguageFromExtension, ChoosesTheLanguage) {
  struct Row {
    std::string_view Extension;
    std::string_view Language;
    bool Entities;
  };
  constexpr Row kTable[] = {
      {"php", "PHP", true},    {"xml", "XML", true},    {"htm", "HTML", true},   {"html", "HTML", true},
      {"shtml", "HTML", true}, {"xhtml", "HTML", true}, {"mhtml", "HTML", true}, {"c", "C", false},
      {"cpp", "C", false},     {"h", "None", false},    {"cc", "None", false},   {"txt", "None", false},
      {"php3", "None", false}, {"xmls", "None", false}, {"", "None", false},
  };
  for (const Row& row : kTable) {
    CommentMarkers markers;
    markers.blnCharacterEntitiesPossible = true;
    EXPECT_TRUE(SetMarkupLanguageFromExtension(markers, row.Extension));
    EXPECT_EQ(markers.Language, row.Language) << row.Extension;
    EXPECT_EQ(markers.blnCharacterEntitiesPossible, row.Entities) << row.Extension;
  }
}

}  // namespace
}  // namespace korv
