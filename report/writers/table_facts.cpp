#include "report/writers/table_facts.h"

#include "base/translation.h"
#include "report/writers/number_text.h"

namespace korv {

namespace {

std::string TextOf(const TableDescription::Value& value) {
  if (const auto* text = std::get_if<std::string>(&value)) return *text;
  if (const auto* flag = std::get_if<bool>(&value)) return *flag ? Tr("yes") : Tr("no");
  return std::to_string(std::get<int64_t>(value));
}

void AddSides(const RunSummary& facts, const TableDescription& about, const auto& grouped,
              std::vector<TableFact>& list) {
  for (const SourcePath& path : facts.SecondSide->Paths) list.push_back({Tr("Compared with"), path.Path});
  const SideSize a = SizeOf(facts, Side::A);
  const SideSize b = SizeOf(facts, Side::B);
  list.push_back({Tr("Files of A"), grouped(a.Files)});
  list.push_back({Tr("Files of B"), grouped(b.Files)});
  list.push_back({Tr("Running words of A (c)"), grouped(a.Words.Read())});
  list.push_back({Tr("Running words of B (d)"), grouped(b.Words.Read())});
  list.push_back({Tr("Words taken of A"), grouped(a.Words.Taken)});
  list.push_back({Tr("Words taken of B"), grouped(b.Words.Taken)});
  list.push_back({Tr("Compared by"), std::string(NameOfBasis(about.ComparedBy))});
  list.push_back(
      {Tr("Constant of simple maths (k)"), std::string(NumberText().Of(Cell(about.SimpleMathsK)))});
}

}  // namespace

std::vector<TableFact> FactsOf(const ColumnSource& source, const TableDescription& about) {
  const RunSummary& facts = source.Facts;
  const auto grouped = [&](uint64_t n) { return about.Numbers.Grouped(static_cast<int64_t>(n)); };
  std::vector<TableFact> list;
  for (const std::string& path : about.Paths) list.push_back({Tr("Source"), path});
  if (facts.SecondSide) {
    AddSides(facts, about, grouped, list);
  } else if (facts.Counts) {
    list.push_back({Tr("Counts"), grouped(facts.Counts->Counts)});
  } else {
    list.push_back({Tr("Files"), grouped(FilesRead(facts))});
    list.push_back({Tr("Running words (N)"), grouped(facts.Words.Read())});
    list.push_back({Tr("Words taken"), grouped(facts.Words.Taken)});
  }
  list.push_back({Tr("Program"), "Korv " + about.Version});
  list.push_back({Tr("Made"), about.Created});
  if (!about.Command.empty()) list.push_back({Tr("Command"), about.Command});
  for (const auto& [name, value] : about.Settings) list.push_back({name, TextOf(value)});
  for (const SkippedFile& file : facts.SkippedFiles)
    list.push_back({Tr("Skipped"), file.Path + " " + Tr(file.Reason.c_str())});
  return list;
}

std::vector<std::string> RowNotes(uint64_t rows, uint64_t limit, bool stopped, const NumberFormat& numbers) {
  std::vector<std::string> notes;
  if (rows > limit) {
    const uint64_t left = rows - limit;
    notes.push_back(Fill(TrCount("%1 more phrase is left out.", "%1 more phrases are left out.", left),
                         {numbers.Grouped(static_cast<int64_t>(left))}));
  }
  if (stopped) notes.push_back(Tr("The list was stopped: there are more phrases."));
  return notes;
}

}  // namespace korv
