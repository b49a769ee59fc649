#include "sources/documents/html_text.h"

#include <gtest/gtest.h>

#include <string>
#include <string_view>

#include "sources/documents/php_page.h"

namespace korv {
namespace {

/// The text with "/" for the end of a line and "//" for that of a block.
std::string Shown(std::string_view page) {
  NoYielder yielder;
  const auto shown = HtmlText(page, yielder);
  if (!shown) return "refused";
  std::string text;
  for (const char c : shown->Text) text += c == '\n' ? '/' : c;
  return text;
}

TEST(HtmlText, IsWhatAPageShows) {
  struct Case {
    const char* Page;
    const char* Text;
  };
  const Case cases[] = {
      {"", ""},
      {"plain", "plain/"},
      {"<p>one<p>two", "one//two/"},
      {"<p>o<b>n</b>e <i>two</i></p>", "one two/"},
      {"one<br>two<br/>three", "one/two/three/"},
      {"one<br><br>two", "one//two/"},
      {"<h1>a</h1>b<div>c</div>d", "a//b//c//d/"},
      {"<ul><li>one<li>two</ul>", "one//two/"},
      {"<table><tr><td>one<td>two<tr><th>three</table>", "one//two//three/"},
      {"<head><title>no</title></head><body>yes", "yes/"},
      {"a<script>no</script>b<style>no</style>c", "abc/"},
      {"a <noscript>no</noscript><template>no</template> b", "a b/"},
      {"<select><option>no</select><textarea>no</textarea>yes", "yes/"},
      {"<iframe>no</iframe><object>no</object><svg><text>no</text></svg>yes", "yes/"},
      {"<p hidden>no</p><p style='Display : none'>no</p>yes", "yes/"},
      {"<p style='visibility:hidden'>no</p><span style='color:red'>yes</span>", "yes/"},
      {"<details><summary>yes</summary>no<p>no</p></details>", "yes/"},
      {"<details open><summary>a</summary>b</details>", "a//b/"},
      {"<!-- no --> yes", "yes/"},
      {"caf&eacute; &#233; &#xE9; &amp;amp; &hellip; &lt;b&gt;", "caf\u00E9 \u00E9 \u00E9 &amp; \u2026 <b>/"},
      {"wo&shy;rd na&iuml;ve", "wo\u00ADrd na\u00EFve/"},
      {"  one \r\n\t two  ", "one two/"},
      {"<pre>one\n two\n\nthree</pre>four", "one/two//three//four/"},
      {"a<img alt=no>b<input value=no>c", "abc/"},
      {"<button>a</button>b", "ab/"},
      {"<math><mi>x</mi><annotation>no</annotation></math>", "x/"},
      {"<table>before<tr><td>in</table>", "before//in/"},
      {"<p>one</b> two", "one two/"},
      {"<custom-x>a</custom-x>b", "ab/"},
  };
  for (const Case& c : cases) EXPECT_EQ(Shown(c.Page), c.Text) << c.Page;
}

struct Place {
  uint32_t Line;
  uint32_t Column;
};

/// Where in the file the text stands that `word` begins.
Place PlaceOf(std::string_view page, std::string_view word) {
  NoYielder yielder;
  const auto shown = HtmlText(page, yielder);
  const size_t at = shown->Text.find(word);
  const auto behind = MarkBehind(shown->Marks, at);
  if (at == std::string::npos || behind == std::span<const TextMark>(shown->Marks).begin()) return {0, 0};
  const TextMark& mark = *(behind - 1);
  uint32_t column = mark.Column;
  for (size_t k = mark.Offset; k < at; ++k)
    column += (static_cast<unsigned char>(shown->Text[k]) & 0xC0) != 0x80;
  return {mark.Number, column};
}

TEST(HtmlText, LeadsBackToLinesAndColumnsOfTheFile) {
  const std::string_view page =
      "<html>\n<p class=x>one\r\n   tw&ouml; three &amp; f\u00F6ur<b>five</b>\n"
      "six&nbsp;seven</p>\n<pre>\neight\n  nine</pre>";
  struct Case {
    const char* Word;
    Place At;
  };
  const Case cases[] = {{"one", {2, 12}},       {"tw\u00F6", {3, 4}}, {"three", {3, 13}}, {"& f", {3, 19}},
                        {"f\u00F6ur", {3, 25}}, {"five", {3, 32}},    {"six", {4, 1}},    {"seven", {4, 10}},
                        {"eight", {6, 1}},      {"nine", {7, 3}}};
  for (const Case& c : cases) {
    const Place at = PlaceOf(page, c.Word);
    EXPECT_EQ(at.Line, c.At.Line) << c.Word;
    EXPECT_EQ(at.Column, c.At.Column) << c.Word;
  }
}

TEST(HtmlText, DeepAndUnclosedPagesTakeBoundedMemory) {
  std::string deep;
  for (size_t i = 0; i < kMostPageDepth; ++i) deep += "<i>";
  EXPECT_EQ(Shown(deep + "end"), "end/");
  EXPECT_EQ(Shown(deep + "<i>end"), "refused");
  std::string closed;
  for (size_t i = 0; i < 2 * kMostPageDepth; ++i) closed += "<i>a</i><li><br>";
  EXPECT_NE(Shown(closed), "refused");
  std::string square = "<p>";
  for (int i = 0; i < 3000; ++i) square += "<font size=" + std::to_string(i) + ">";
  for (int i = 0; i < 30000; ++i) square += "<p>a";
  EXPECT_EQ(Shown(square), "refused");
  EXPECT_EQ(Shown(std::string(kMostPageBytes + 1, 'a')), "refused");
}

TEST(WithoutPrograms, LeavesWhatStandsOutsideWhereItStood) {
  struct Case {
    const char* Php;
    const char* Page;
  };
  const Case cases[] = {
      {"a<?php echo 1; ?>b", "a                b"},
      {"a<?= $x ?>b", "a         b"},
      {"<?xml version='1.0'?>b", "<?xml version='1.0'?>b"},
      {"<?php '?>' ?>b", "             b"},
      {"<?php \"\\\"?>\" ?>b", "               b"},
      {"<?php /* ?> */ ?>b", "                 b"},
      {"<?php // it's ?>b", "                b"},
      {"<?php # it's\n ?>b", "            \n   b"},
      {"a<?php no end", "a            "},
      {"<?php 'no end ?>b", "                 "},
      {"a<?", "a<?"},
      {"no program", "no program"},
  };
  for (const Case& c : cases) EXPECT_EQ(WithoutPrograms(c.Php), c.Page) << c.Php;
}

}  // namespace
}  // namespace korv
