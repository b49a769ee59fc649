#include "app/contexts/context_copy.h"

#include <algorithm>
#include <array>
#include <string_view>
#include <unordered_map>

#include "app/contexts/context_texts.h"
#include "base/translation.h"
#include "sources/places/context_text.h"
#include "sources/places/words_around.h"

namespace korv {

namespace {

using Cells = std::array<std::string, 5>;

std::string EscapedHtml(std::string_view text) {
  std::string escaped;
  for (const char c : text) switch (c) {
      case '&':
        escaped += "&amp;";
        break;
      case '<':
        escaped += "&lt;";
        break;
      case '>':
        escaped += "&gt;";
        break;
      default:
        escaped += c;
    }
  return escaped;
}

void AddRow(const Cells& cells, const char* tag, ContextCopy& copy) {
  copy.Html += "<tr>";
  for (const std::string& cell : cells) {
    copy.Html += std::string("<") + tag + ">" + EscapedHtml(cell) + "</" + tag + ">";
    copy.Text += WithSingleBlanks(cell);
    copy.Text += '\t';
  }
  copy.Html += "</tr>";
  copy.Text.back() = '\n';
}

Cells CellsOf(const ContextList& list, Place place, const PlaceInText& text) {
  const size_t source = list.Run().Table.Corpus().SourceAt(place);
  return {NameOfText(list.Run(), source), text.Number == 0 ? "" : std::to_string(text.Number), text.Left,
          WithSingleBlanks(text.Phrase), text.Right};
}

}  // namespace

ContextCopy CopyContexts(const ContextList& list, const std::vector<Place>& places, size_t around,
                         PlaceLocator& locator, const Yielder& yielder) {
  const Corpus& corpus = list.Run().Table.Corpus();
  // Files are read from their beginnings to their ends.
  std::vector<Place> inText = places;
  std::ranges::sort(inText);
  std::unordered_map<Place, PlaceInText> texts;
  for (const Place place : inText) {
    if (yielder.Stopped()) break;
    auto found = locator.Locate(place, list.Words(), around);
    texts.emplace(place, found ? std::move(*found) : WordsAround(corpus, place, list.Words(), around));
  }
  ContextCopy copy{.Text = {}, .Html = "<table>"};
  AddRow({Tr("file"), Tr("line"), Tr("left"), Tr("phrase"), Tr("right")}, "th", copy);
  for (const Place place : places)
    if (const auto text = texts.find(place); text != texts.end())
      AddRow(CellsOf(list, place, text->second), "td", copy);
  copy.Html += "</table>";
  return copy;
}

}  // namespace korv
