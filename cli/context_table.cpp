#include "cli/context_table.h"

#include <algorithm>
#include <initializer_list>
#include <unordered_map>
#include <utility>
#include <vector>

#include "base/translation.h"
#include "engine/corpus/phrase_places.h"
#include "sources/places/words_around.h"

namespace korv {

namespace {

constexpr const char* kStandardInput = "-";

/// A tab, or the end of a line, as one blank.
void AppendCell(std::string_view cell, std::string& line) {
  for (size_t at = 0; at < cell.size(); ++at) {
    if (cell.substr(at, 2) == "\r\n") ++at;
    const char c = cell[at];
    line += c == '\t' || c == '\r' || c == '\n' ? ' ' : c;
  }
}

std::string Line(std::initializer_list<std::string_view> cells) {
  std::string line;
  for (const std::string_view cell : cells) {
    AppendCell(cell, line);
    line += '\t';
  }
  line.back() = '\n';
  return line;
}

}  // namespace

ContextTable::ContextTable(const CountedRun& run, const DocxContext& context, std::string_view readAs,
                           std::ostream& out, std::function<void(const std::string&)> tell)
    : corpus_(run.Table.Corpus()),
      yielder_(context.Yielder),
      out_(out),
      tell_(std::move(tell)),
      locator_(corpus_, context, run.KeptText, readAs, run.Documents) {}

bool ContextTable::Write(std::span<const WordNumber> phrase, PlaceOrder order, size_t around) {
  out_ << Line({"file", "line", "column", "left", "phrase", "right"});
  std::vector<Place> places = PlacesOf(corpus_, phrase);
  places_ = places.size();
  // Files are read from their beginnings to their ends, whatever the order of the table.
  std::unordered_map<Place, std::string> rows;
  for (const Place place : places) {
    yielder_.Yield();
    if (yielder_.Stopped()) return false;
    std::string row = Row(place, phrase, around);
    if (order == PlaceOrder::Place)
      out_ << row;
    else
      rows.emplace(place, std::move(row));
  }
  if (order == PlaceOrder::Place) return true;
  if (!OrderPlaces(corpus_, static_cast<int>(phrase.size()), order, /*fileByFile=*/false, yielder_, places))
    return false;
  for (const Place place : places) out_ << rows[place];
  return true;
}

std::string ContextTable::Row(Place place, std::span<const WordNumber> phrase, size_t around) {
  const auto found = locator_.Locate(place, static_cast<int>(phrase.size()), around);
  if (!found) {
    TellOnce(place, found.Error());
    const PlaceInText words = WordsAround(corpus_, place, static_cast<int>(phrase.size()), around);
    return Line({FileOf(place), "", "", words.Left, words.Phrase, words.Right});
  }
  return Line({FileOf(place), std::to_string(found->Number), std::to_string(found->Column), found->Left,
               found->Phrase, found->Right});
}

std::string ContextTable::FileOf(Place place) const {
  const std::filesystem::path& path = corpus_.Sources[corpus_.SourceAt(place)].Path;
  return path.empty() ? kStandardInput : PathToText(path);
}

void ContextTable::TellOnce(Place place, PlaceFault fault) {
  if (!told_.insert(corpus_.SourceAt(place)).second) return;
  tell_(Fill(fault == PlaceFault::Changed
                 ? Tr("%1 has changed since it was counted: its contexts are the words that were counted, "
                      "without line and column.")
                 : Tr("%1 cannot be read any more: its contexts are the words that were counted, without "
                      "line and column."),
             {FileOf(place)}));
}

}  // namespace korv
