#include "report/writers/table_facts.h"

namespace korv {

namespace {

std::string TextOf(const TableDescription::Value& value) {
  if (const auto* text = std::get_if<std::string>(&value)) return *text;
  if (const auto* flag = std::get_if<bool>(&value)) return *flag ? "yes" : "no";
  return std::to_string(std::get<int64_t>(value));
}

}  // namespace

std::vector<TableFact> FactsOf(const ColumnSource& source, const TableDescription& about) {
  const RunSummary& facts = source.Facts;
  const auto grouped = [&](uint64_t n) { return about.Numbers.Grouped(static_cast<int64_t>(n)); };
  std::vector<TableFact> list;
  for (const std::string& path : about.Paths) list.push_back({"Source", path});
  if (facts.Counts) {
    list.push_back({"Counts", grouped(facts.Counts->Counts)});
  } else {
    list.push_back({"Files", grouped(FilesRead(facts))});
    list.push_back({"Running words (N)", grouped(facts.Words.Read())});
    list.push_back({"Words taken", grouped(facts.Words.Taken)});
  }
  list.push_back({"Program", "Korv " + about.Version});
  list.push_back({"Made", about.Created});
  if (!about.Command.empty()) list.push_back({"Command", about.Command});
  for (const auto& [name, value] : about.Settings) list.push_back({name, TextOf(value)});
  for (const SkippedFile& file : facts.SkippedFiles)
    list.push_back({"Skipped", file.Path + " " + file.Reason});
  return list;
}

std::vector<std::string> RowNotes(uint64_t rows, uint64_t limit, bool stopped, const NumberFormat& numbers) {
  std::vector<std::string> notes;
  if (rows > limit) {
    const uint64_t left = rows - limit;
    notes.push_back(numbers.Grouped(static_cast<int64_t>(left)) +
                    (left == 1 ? " more phrase is left out." : " more phrases are left out."));
  }
  if (stopped) notes.push_back("The list was stopped: there are more phrases.");
  return notes;
}

}  // namespace korv
