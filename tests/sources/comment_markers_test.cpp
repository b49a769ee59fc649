#include "sources/detect/comment_markers.h"

#include <gtest/gtest.h>

#include <string>
#include <string_view>

#include "sources/detect/comment_markers_ok.h"
#include "tests/fakes/fake_messages.h"

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
    MarkupLanguage Language;
    std::string_view Pairs;
    int Count;
  };
  constexpr Row kTable[] = {
      {MarkupLanguage::C, "/* */,// ,", 2},
      {MarkupLanguage::Xml, "<?xml ?>,<!-- -->,< >,", 3},
      {MarkupLanguage::Html, "& ;,<script /script>,<style /style>,<noscript /noscript>,<!-- -->,< >,", 6},
      {MarkupLanguage::Php,
       "& ;,<script /script>,<style /style>,<noscript /noscript>,<!-- -->,<?php php,< >,/* */,// ,", 9},
      {MarkupLanguage::None, "", 0},
  };
  for (const Row& row : kTable) {
    CommentMarkers markers;
    SetCommentMarkers(markers, MarkupLanguage::Php);  // What was there before must go.
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
  SetCommentMarkers(markers, MarkupLanguage::Html);
  EXPECT_FALSE(markers.blnCharacterEntitiesPossible);
}

TEST(SetMarkupLanguageFromExtension, ChoosesTheLanguage) {
  struct Row {
    std::string_view Extension;
    MarkupLanguage Language;
    bool Entities;
  };
  constexpr Row kTable[] = {
      {"php", MarkupLanguage::Php, true},    {"xml", MarkupLanguage::Xml, true},
      {"htm", MarkupLanguage::Html, true},   {"html", MarkupLanguage::Html, true},
      {"shtml", MarkupLanguage::Html, true}, {"xhtml", MarkupLanguage::Html, true},
      {"mhtml", MarkupLanguage::Html, true}, {"c", MarkupLanguage::C, false},
      {"cpp", MarkupLanguage::C, false},     {"h", MarkupLanguage::None, false},
      {"cc", MarkupLanguage::None, false},   {"txt", MarkupLanguage::None, false},
      {"php3", MarkupLanguage::None, false}, {"xmls", MarkupLanguage::None, false},
      {"", MarkupLanguage::None, false},
  };
  for (const Row& row : kTable) {
    CommentMarkers markers;
    markers.blnCharacterEntitiesPossible = true;
    EXPECT_TRUE(SetMarkupLanguageFromExtension(markers, row.Extension));
    EXPECT_TRUE(markers.Language == row.Language) << row.Extension;
    EXPECT_EQ(markers.blnCharacterEntitiesPossible, row.Entities) << row.Extension;
  }
}

TEST(CommentMarkersOK, RefusesMarkersThatCouldBeWords) {
  FakeMessages messages;
  WordRules rules;
  rules.AllowHyphens = rules.AllowParentheses = rules.AllowBackslashes = true;
  EXPECT_TRUE(CommentMarkersOK(rules, messages));
  EXPECT_TRUE(messages.Shown.empty());
  rules.AllowForwardslashes = true;
  EXPECT_FALSE(CommentMarkersOK(rules, messages));
  EXPECT_EQ(messages.Only().Title, "Error");
  EXPECT_EQ(messages.Only().Text,
            "With the current settings the start-comment marker // could be part of a word.\n"
            "Check the the 'Settings' window and perhaps disallow comment markers or restrict allowable "
            "characters in 'words'.");
}

}  // namespace
}  // namespace korv
