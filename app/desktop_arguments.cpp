#include "app/desktop_arguments.h"

#include "base/translation.h"
#include "platform/files.h"

namespace korv {
namespace {

constexpr const char* kUsage = TrLater(
    "Usage: korv [FILE | FOLDER]...\n"
    "\n"
    "Opens a window that counts the phrases of a text.\n"
    "\n"
    "  FILE        a text to be counted, settings to be loaded (*.korv), or a kept\n"
    "              run to be opened (*.korvrun)\n"
    "  FOLDER      a folder of texts to be counted; several texts and folders are\n"
    "              counted together\n"
    "  --help      print this and end\n"
    "  --version   print the version and end\n"
    "\n"
    "Everything else is chosen in the window.  korv-count does the same without windows.\n");

std::string AbsolutePath(const std::string& argument) {
  std::error_code code;
  std::filesystem::path path = std::filesystem::absolute(PathFromText(argument), code);
  if (code) return argument;
  path = path.lexically_normal();
  // "texts/" is the folder "texts".
  if (!path.has_filename() && path.has_relative_path()) path = path.parent_path();
  return PathToText(path);
}

}  // namespace

DesktopArguments ReadDesktopArguments(std::span<const std::string> arguments, const std::string& version) {
  DesktopArguments read;
  bool options = true;
  for (const std::string& argument : arguments) {
    if (argument.empty()) continue;
    if (!options || argument.front() != '-') {
      read.Paths.push_back(AbsolutePath(argument));
    } else if (argument == "--") {
      options = false;
    } else if (argument == "--help" || argument == "-h") {
      return {.What = DesktopArguments::Kind::Tell, .Paths = {}, .Text = Tr(kUsage)};
    } else if (argument == "--version") {
      return {.What = DesktopArguments::Kind::Tell, .Paths = {}, .Text = "korv " + version + "\n"};
    } else {
      return {.What = DesktopArguments::Kind::Wrong,
              .Paths = {},
              .Text = Fill(Tr("korv: There is no option %1."), {argument}) + "\n\n" + Tr(kUsage)};
    }
  }
  return read;
}

}  // namespace korv
