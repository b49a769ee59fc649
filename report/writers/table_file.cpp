#include "report/writers/table_file.h"

#include <algorithm>
#include <utility>
#include <vector>

namespace korv {

TableFile::TableFile(FileSystem& files) : files_(files) {
  auto folder = files_.CreatePrivateTemporaryFolder();
  if (!folder) {
    Fail(folder.Error());
    return;
  }
  folder_ = std::move(*folder);
  // Made by us, the file is known to be temporary, also to a signal that ends the program.
  const std::filesystem::path path = folder_ / "table";
  auto file = files_.OpenForWriting(path);
  if (!file)
    Fail(file.Error());
  else if (auto error = (*file)->Commit())
    Fail(std::move(*error));
  else
    path_ = path;
}

TableFile::~TableFile() {
  // What cannot be removed is in the folder for what is temporary; there is nobody to tell.
  if (!path_.empty()) files_.Remove(path_);
  if (!folder_.empty()) files_.Remove(folder_);
}

void TableFile::Fail(FileError error) {
  if (!fault_) fault_ = std::move(error);
}

bool TableFile::HandOver(ReportSink& sink) {
  if (fault_) return false;
  const auto file = files_.OpenForReading(path_);
  if (!file) {
    Fail(file.Error());
    return false;
  }
  constexpr size_t kLeastPiece = size_t{1} << 16;
  std::vector<char> piece(std::max(sink.PieceSize(), kLeastPiece));
  for (;;) {
    const auto got = (*file)->Read(piece);
    if (!got) {
      Fail(got.Error());
      return false;
    }
    if (*got == 0) return true;
    if (!sink.Write({piece.data(), *got})) return false;
  }
}

}  // namespace korv
