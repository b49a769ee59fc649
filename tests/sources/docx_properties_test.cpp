#include <gtest/gtest.h>
#include <rapidcheck.h>
#include <rapidcheck/gtest.h>

#include <string>
#include <string_view>
#include <vector>

#include "sources/read/docx.h"
#include "tests/fakes/fake_files.h"
#include "tests/fakes/fake_messages.h"
#include "tests/reference/naive_docx.h"

// The text of a document against the naive model, on soups of everything that a main part may hold.

namespace korv {
namespace {

using Pieces = std::vector<std::string_view>;

const Pieces kRuns = {
    "<w:t>", "<w:t xml:space=\"preserve\">", "<w:t x='>'>", "<w:t/>", "<w:t", "</w:t>", "</w:t>", "</w:t>"};

const Pieces kMarkup = {"<w:p>",
                        "<w:p w:a=\"1\">",
                        "<w:p/>",
                        "<w:pPr>",
                        "</w:p>",
                        "</w:p>",
                        "<w:br/>",
                        "<w:br w:type=\"page\"/>",
                        "<w:cr/>",
                        "<w:tab/>",
                        "<w:tab w:val=\"left\"/>",
                        "<w:tabs>",
                        "<w:ptab w:leader=\"none\"/>",
                        "<w:noBreakHyphen/>",
                        "<w:delText>",
                        "<mc:Fallback>",
                        "<mc:Fallback>",
                        "<mc:Fallback/>",
                        "</mc:Fallback>",
                        "</mc:Fallback>",
                        "</mc:Fallback>",
                        "</mc:Fallback >",
                        "<mc:Fallbacks>",
                        "<w:moveFrom w:id=\"1\">",
                        "<w:moveFrom w:id='>'/>",
                        "<w:moveFromRangeStart/>",
                        "</w:moveFrom>",
                        "</w:moveFrom>",
                        "</w:moveFrom>",
                        "<mc:Choice>",
                        "<w:t/>"};

const Pieces kText = {"a",          "b",
                      "word",       " ",
                      "\r",         "\n",
                      "\r\n",       "\u00E9",
                      "&amp;",      "&lt;",
                      "&gt;",       "&quot;",
                      "&apos;",     "&#65;",
                      "&#xe9;",     "&#x",
                      "&#0;",       "&#13;",
                      "&#10;",      "&#xD800;",
                      "&#x110000;", "&#99999999999999999999999;",
                      "&",          "&#",
                      "#",          "x",
                      "41",         "amp",
                      ";",          ";",
                      ">",          "\"",
                      "'",          "/"};

std::string Draw(const Pieces& choice) {
  std::string text;
  for (const std::string_view piece : *rc::gen::container<Pieces>(rc::gen::elementOf(choice))) text += piece;
  return text;
}

RC_GTEST_PROP(DocxProperties, TheTextIsThatOfTheModel, ()) {
  FakeFiles files;
  FakeMessages messages;
  NoYielder yielder;
  Pieces all = {"<"};
  for (const Pieces* some : {&kRuns, &kMarkup, &kText}) all.insert(all.end(), some->begin(), some->end());
  const std::string xml = Draw(all);
  RC_LOG() << xml << '\n';
  RC_ASSERT(DocxXmlToText(xml, {files, messages, yielder}) == reference::DocxText(xml));
}

// Little is read of pieces that begin and end runs all the time, so here every run is whole.
RC_GTEST_PROP(DocxProperties, TheTextOfWholeRunsIsThatOfTheModel, ()) {
  FakeFiles files;
  FakeMessages messages;
  NoYielder yielder;
  std::string xml;
  for (int k = *rc::gen::inRange(0, 12); k > 0; --k)
    xml += std::string(*rc::gen::elementOf(kMarkup)) + "<w:t>" + Draw(kText) + "</w:t>";
  RC_LOG() << xml << '\n';
  RC_ASSERT(DocxXmlToText(xml, {files, messages, yielder}) == reference::DocxText(xml));
}

}  // namespace
}  // namespace korv
