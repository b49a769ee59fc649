#include "app/texts/program_folder.h"

namespace korv {

std::filesystem::path ProgramFolder(const FileSystem& files, const std::filesystem::path& executable) {
  const std::filesystem::path folder = executable.parent_path();
  if (files.FileExists(folder / kProgramTextName)) return folder;
  return folder.parent_path() / "share" / "korv";
}

}  // namespace korv
