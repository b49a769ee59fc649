#pragma once

#include <QSizeF>
#include <filesystem>
#include <optional>
#include <span>
#include <string>

#include "desktop/results/pictures/picture.h"
#include "platform/files.h"

namespace korv {

/// What a picture can be saved as.
struct PictureForm {
  const char* Extension;  ///< Without a dot.
  /// The bytes of a file that shows the picture in `size`, in units of the screen.
  std::string (*Bytes)(const Picture& picture, const PictureStyle& style, const QSizeF& size);
};

/// SVG, with title and description, where the build has it; then PNG, with two dots for each unit of the
/// screen, so that it can be printed. The first one is offered first.
std::span<const PictureForm> PictureForms();

/// The form that belongs to the extension of a file, upper or lower case; PNG for all that mean nothing. Null
/// for "svg" in a build without it: no other program would open a PNG of that name.
const PictureForm* PictureFormOfFile(const std::filesystem::path& path);

/// Writes `bytes` beside `path` and renames: what was there stays when something fails.
std::optional<FileError> WritePicture(FileSystem& files, const std::filesystem::path& path,
                                      const std::string& bytes);

}  // namespace korv
