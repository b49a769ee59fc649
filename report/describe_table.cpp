#include "report/describe_table.h"

#include <array>
#include <string>

#include "base/translation.h"
#include "report/formats.h"
#include "report/writers/data_package.h"

namespace korv {

namespace {

/// With "/" between names on every system.
std::string PortableText(const std::filesystem::path& path) {
  std::string text;
  for (const std::filesystem::path& name : path) {
    if (!text.empty() && text.back() != '/') text += '/';
    text += PathToText(name);
  }
  return text;
}

/// The path of `table` from the folder of `description`; in full where none leads there.
std::string PathFromDescription(const std::filesystem::path& table, const std::filesystem::path& description,
                                const FileSystem& files) {
  const std::filesystem::path full = files.CanonicalPath(table);
  const std::filesystem::path way = full.lexically_relative(files.CanonicalPath(description).parent_path());
  return way.empty() ? PathToText(full) : PortableText(way);
}

/// Its table is named in the beginning.
bool Describes(const std::filesystem::path& description, const std::filesystem::path& table,
               FileSystem& files) {
  const auto file = files.OpenForReading(description);
  if (!file) return false;
  std::array<char, 8192> beginning{};
  size_t size = 0;
  while (size < beginning.size()) {
    const auto read = (*file)->Read(std::span(beginning).subspan(size));
    if (!read || *read == 0) break;
    size += *read;
  }
  const std::string_view text(beginning.data(), size);
  return text.find(DataPackagePathMember(PathFromDescription(table, description, files))) != text.npos;
}

}  // namespace

std::filesystem::path DescriptionPath(const std::filesystem::path& table, FileSystem& files) {
  std::filesystem::path path = table.parent_path() / "datapackage.json";
  if (!files.FileExists(path) || Describes(path, table, files)) return path;
  std::filesystem::path name = table.stem();
  name += ".datapackage.json";
  return table.parent_path() / name;
}

bool WriteDescription(const DescribedTable& described, const std::filesystem::path& path, FileSystem& files,
                      Messages& messages) {
  const ListResult& list = described.List;
  const WrittenTable written{
      .Path = described.Path.empty() ? std::string() : PathFromDescription(described.Path, path, files),
      .Bytes = described.Bytes.Bytes(),
      .Sha256 = described.Bytes.Sha256Text(),
      .Listed = list.Phrases,
      .Phrases = list.Unfiltered,
      .Occurrences = list.Occurrences,
      .Stopped = list.Outcome == ListOutcome::Stopped};
  const std::string text =
      DataPackageText(described.Table, ColumnsOf(described.Table), described.Facts, written);
  auto file = files.OpenForWriting(path);
  std::optional<FileError> error;
  if (!file)
    error = file.Error();
  else if (!(error = (*file)->Write(text)))
    error = (*file)->Commit();
  if (!error) return true;
  messages.Show({.Text = Fill(Tr("The description of the table cannot be written to %1.\n%2"),
                              {PathToText(path), error->Description}),
                 .Title = Tr("Error"),
                 .Icon = Icon::Exclamation});
  return false;
}

}  // namespace korv
